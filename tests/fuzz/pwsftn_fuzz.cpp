// The water-and-steam package: the entry routine with every inverse routine
// and arbitrary key lists, the inverse routines alone with any tolerance, and
// the saturation line, region equations and iterations. The package stops
// the process past its error limit by design; the limit is raised and its
// lines go nowhere.
// Checked: an inverse routine places a state in regions 1 to 6 or reports
// that it could not (any other number), and the entry writes no more result
// entries than it was given keys.
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "ondrel/pwsftn.h"
#include "tests/fuzz/fuzz_input.hpp"

namespace {

const pws_inverse_routine routines[] = {pwsrpt_, pwsrph_, pwsrps_, pwsrpu_, pwsrpv_, pwsrpx_, pwsrtv_, pwsrth_, pwsrtx_,
                                        pwsrtu_, pwsrts_, pwsrsx_, pwsrhs_, pwsrus_, pwsrvh_, pwsrvs_, pwsrvu_};
const pws_func2 equations[] = {pws_c1_, pws_c2_, pws_d1_, pws_d2_, pws_d3_, pws_e1_, pws_e2_, pws_e3_,
                               pws_f1_, pws_f2_, pws_f3_, pws_h1_, pws_h2_, pws_h3_, pws_a3_, pws_ci_, pws_cj_};
const pws_func3 composed[] = {pws_hp_, pws_sp_, pws_up_, pws_ht_, pws_ut_};
constexpr double guard = 12345.678;  // written after the entries the keys may fill

void silent(const char*, std::size_t) {}

void entry(fuzz::Input& in) {
    const pws_inverse_routine routine = routines[in.byte() % std::size(routines)];
    const double x = in.number(), y = in.number();
    const std::string keys = in.pick({"P,T,V,H,S,X,CP,DV,TC.", "H,S,V.", "T,X", "CP,H", "DV,TC", "H.S", "ABCDE,H", "",
                                      ".", "H,,S", "h", "P, T"},
                                     40);
    std::vector<double> result(keys.size() + 2, NAN);
    result.back() = guard;
    pwsftn_(routine, &x, &y, keys.data(), result.data(), keys.size());
    fuzz::check(result.back() == guard, "pwsftn_ wrote past depend_len + 1 entries");
}

void inverse(fuzz::Input& in) {
    double a = in.number(), b = in.number();
    const double eps = in.number();
    const std::int32_t ireg = routines[in.byte() % std::size(routines)](&a, &b, &eps);
    (void)ireg;  // 1..6 a region, anything else no state: both are answers
}

void equations_and_iterations(fuzz::Input& in) {
    const double p = in.number(), t = in.number(), eps = in.number();
    (void)pws_pt_(&t);
    (void)psl1_(&t);
    (void)psl1_slope_();
    (void)pws_tp_(&p);
    (void)pws_it_(&p);
    comt1_(&p, &t);
    comt2_(&p, &t);
    comt3_(&p, &t);
    const pws_func2 f = equations[in.byte() % std::size(equations)];
    (void)f(&p, &t);
    (void)composed[in.byte() % std::size(composed)](&p, &t, &eps);
    double a = in.number(), b = in.number();
    const double target = in.number();
    switch (in.byte() % 4) {
    case 0: (void)pws_i1_(f, &p, &target, &a, &b, &eps); break;
    case 1: (void)pws_i2_(f, &p, &target, &a, &b, &eps); break;
    case 2: (void)pws_i3_(composed[in.byte() % std::size(composed)], &p, &target, &a, &b, &eps); break;
    default: {
        double ya = in.number(), yb = in.number();
        const double target2 = in.number();
        pws_id_(f, &target, equations[in.byte() % std::size(equations)], &target2, &a, &b, &ya, &yb, &eps);
    }
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    pws_set_channel13_callback_(silent);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    pwserr_ = pwserr_record{13, 0, std::numeric_limits<std::int32_t>::max(), 0};
    fuzz::Input in(data, size);
    const int calls = 1 + in.byte() % 4;
    for (int k = 0; k < calls && !in.at_end(); ++k) {
        switch (in.byte() % 3) {
        case 0: entry(in); break;
        case 1: inverse(in); break;
        default: equations_and_iterations(in);
        }
    }
    return 0;
}
