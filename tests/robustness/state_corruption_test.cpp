// No bad call changes a later answer: a fixed set of valid requests (mixture
// model, IF97 and its adapter, the water-and-steam package) gives the same
// bits before and after rounds of random bad calls of every exported kind.
#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "if97/if97.h"
#include "ondrel/if97_qv.h"
#include "ondrel/od_fluiddata.h"
#include "ondrel/od_thermo.h"
#include "ondrel/pwsftn.h"
#include "tests/robustness/exported.hpp"

namespace {

using namespace robustness;

// --- the fixed valid requests ----------------------------------------------

// The values of the keys of a list like "H,S,V." (one entry per key).
std::vector<double> pws(pws_inverse_routine routine, double x, double y, const std::string& keys) {
    std::vector<double> r(keys.size() + 1, 0.0);
    pwsftn_(routine, &x, &y, keys.data(), r.data(), keys.size());
    r.resize(static_cast<std::size_t>(std::count(keys.begin(), keys.end(), ',')) + 1);
    return r;
}

std::vector<double> if97(const char* spec, double a, double b, const std::string& property) {
    char message[80];
    const double x = if97_prop_(spec, &a, &b, property.data(), message, 2, property.size(), sizeof message);
    return {x, std::string(message, sizeof message).starts_with("No errors") ? 0.0 : 1.0};
}

// Every result and code of the fixed requests, in one list.
std::vector<double> fixed_requests() {
    std::vector<double> out;
    const auto add = [&](const auto& values) { out.insert(out.end(), std::begin(values), std::end(values)); };
    int32_t e = 0;
    const auto prop_and_code = [&](const char* spec, double a, double b, const HostMix& m, const char* name) {
        add(std::vector<double>{prop(spec, a, b, m, name, e), static_cast<double>(e)});
    };
    const auto all_and_code = [&](const char* spec, double a, double b, const HostMix& m) {
        add(allprops(spec, a, b, m, e));
        out.push_back(e);
    };
    for (const char* name : {"h", "s", "v", "cv"}) {
        prop_and_code("PT", 10.0, 50.0, water, name);  // liquid
        prop_and_code("PT", 0.05, 150.0, water, name);  // vapour
    }
    all_and_code("PT", 1.01325, 30.0, flue);  // condensing
    all_and_code("PT", 1.01325, 300.0, flue);
    prop_and_code("Ph", 1.0, 100.0, flue, "T");
    prop_and_code("Ps", 1.0, 7.2, flue, "T");
    prop_and_code("Ts", 40.0, 7.2, flue, "P");
    prop_and_code("vu", 0.9, 100.0, flue, "T");
    all_and_code("PT", 1.01325, 300.0, dry_flue);
    all_and_code("Ph", 20.0, 900.0, dry_flue);
    prop_and_code("hs", -2455.9, 7.65, dry_flue, "T");
    prop_and_code("vu", 0.5, 300.0, dry_flue, "P");
    prop_and_code("dh", 1.2, 300.0, air, "T");
    const int32_t n = air.n();
    const std::string names = air.packed();
    out.push_back(od_info_(&n, names.data(), air.conc.data(), "T_max", &e, air.width, 5));
    out.push_back(e);
    add(if97("PT", 10.0, 200.0, "h"));
    add(if97("Ph", 50.0, 3000.0, "T"));
    add(if97("Tq", 100.0, 0.5, "P"));
    add(if97("hs", 2800.0, 6.5, "d"));
    add(pws(pwsrpt_, 10.0, 200.0, "P,T,V,H,S,X,CP,DV,TC."));
    add(pws(pwsrpt_, 200.0, 370.0, "V,H,S,CP."));  // region 3
    add(pws(pwsrph_, 10.0, 2000.0, "T,X,V."));     // wet
    add(pws(pwsrhs_, 2800.0, 6.5, "P,T."));
    add(pws(pwsrvh_, 0.1, 2700.0, "P,T."));
    return out;
}

std::vector<std::uint64_t> bits(const std::vector<double>& values) {
    std::vector<std::uint64_t> b;
    for (double x : values) b.push_back(std::bit_cast<std::uint64_t>(x));
    return b;
}

// --- random bad calls --------------------------------------------------------

// Values a hostile caller passes: special and extreme values, any magnitude,
// and values in the range of real requests (bar, degrees Celsius, kJ/kg,
// m3/kg), so that deep paths (condensing water, nested solutions) are run.
double hostile(std::mt19937_64& rng) {
    static const double pool[] = {std::nan(""), -std::nan(""), INFINITY, -INFINITY, 0.0, -0.0, 1e300, -1e300,
                                  1e-300, -1e-300, 5e-324, 1e-35, -1.0, 1.0, 1e6, 1e10, -273.15, -273.16,
                                  2e9, std::numeric_limits<double>::max()};
    switch (std::uniform_int_distribution<int>(0, 3)(rng)) {
    case 0:
        return pool[std::uniform_int_distribution<std::size_t>(0, std::size(pool) - 1)(rng)];
    case 1: {
        std::uniform_real_distribution<double> exponent(-40.0, 40.0);
        return (rng() % 2 == 0 ? -1.0 : 1.0) * std::pow(10.0, exponent(rng));
    }
    case 2:
        return std::uniform_real_distribution<double>(-60.0, 4000.0)(rng);
    default:
        return std::pow(10.0, std::uniform_real_distribution<double>(-3.0, 3.0)(rng));
    }
}

template <class T>
const T& one_of(std::mt19937_64& rng, const std::vector<T>& items) {
    return items[std::uniform_int_distribution<std::size_t>(0, items.size() - 1)(rng)];
}

const std::vector<std::string> specs = {"PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts", "Tu",
                                        "vh", "vs", "vu", "dh", "ds", "du", "hs", "su", "", "hv", "xx", "p", "Tq",
                                        "Px", "dd", "P"};
const std::vector<std::string> outnames = {"P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2",
                                           "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda", "", "p", "cp", "H"};
const std::vector<std::string> if97_properties = {"p", "t", "v", "d", "h", "s", "u", "x", "cp", "cv", "w", "dv",
                                                  "tc", "st", "kv", "pr", "q", "c", "eta", "lambda", "sigma",
                                                  "P.", "H.", "CP.", "p,h,s", "h,,s", ".", "", "zz", "p,t,v,h,s,u,x"};
const std::vector<std::string> if97_specs = {"PT", "TP", "Ph", "hP", "Ps", "Pu", "Pv", "Px", "Tq", "Tx", "Th",
                                             "Ts", "Tv", "hs", "vh", "vs", "vu", "dT", "Td", "qT", "  ", "zz"};
const std::vector<std::string> pws_keys = {"P,T,V,H,S,X,CP,DV,TC.", "H", "T,X", "CP,DV,TC", "", ".", ",,,",
                                           "ABCDE,H", "h,s", "X,P.", "DV,DV,TC,TC"};
const std::vector<pws_inverse_routine> pws_routines = {pwsrpt_, pwsrph_, pwsrps_, pwsrpu_, pwsrpv_, pwsrpx_,
                                                       pwsrtv_, pwsrth_, pwsrtx_, pwsrtu_, pwsrts_, pwsrsx_,
                                                       pwsrhs_, pwsrus_, pwsrvh_, pwsrvs_, pwsrvu_};
const std::vector<std::string> names = {"N2", "CO2", "O2", "AR", "H2O", "H2O(IF)", "H2O(L)", "C(S)", "SIO2(L)",
                                        "UNOBTAIN", "", "h2o", "H2O(IF)xx", "N2      junk"};

// A mixture of random names, counts, widths and concentrations.
HostMix hostile_mixture(std::mt19937_64& rng) {
    std::uniform_int_distribution<int> coin(0, 3);
    HostMix m = coin(rng) == 0 ? HostMix{} : one_of(rng, std::vector<HostMix>{flue, dry_flue, water, air});
    if (coin(rng) == 0) {
        m.names.clear();
        m.conc.clear();
        const int n = std::uniform_int_distribution<int>(0, 6)(rng);
        for (int i = 0; i < n; ++i) m.names.push_back(one_of(rng, names));
        m.conc.resize(m.names.size(), 0.2);
    }
    for (double& c : m.conc)
        if (coin(rng) == 0) c = hostile(rng);
    m.width = one_of(rng, std::vector<std::size_t>{1, 2, 7, 8, 12, 20});
    return m;
}

void silent_line(const char*, std::size_t) {}

// One bad call of a random exported kind; what it was goes to log.
void bad_call(std::mt19937_64& rng, std::ostream& log) {
    const double a = hostile(rng), b = hostile(rng);
    const std::string spec = one_of(rng, specs);
    int32_t e = 0;
    switch (std::uniform_int_distribution<int>(0, 9)(rng)) {
    case 0: case 1: {
        const HostMix m = hostile_mixture(rng);
        const std::string out = one_of(rng, outnames);
        log << "od_prop " << spec << " " << a << " " << b << " n=" << m.n() << " " << out;
        (void)prop(spec.c_str(), a, b, m, out.c_str(), e);
        break;
    }
    case 2: {
        const HostMix m = hostile_mixture(rng);
        log << "od_allprops " << spec << " " << a << " " << b << " n=" << m.n();
        (void)allprops(spec.c_str(), a, b, m, e);
        break;
    }
    case 3: {
        const HostMix m = hostile_mixture(rng);
        const bool pressure = rng() % 2 == 0;
        log << (pressure ? "get_p " : "get_t ") << spec << " " << a << " " << b << " n=" << m.n();
        int32_t ierr = static_cast<int32_t>(rng() % 8);
        (void)solve(pressure, spec.c_str(), a, b, m, ierr);
        break;
    }
    case 4: {  // the state functions at (p, T) store their mixture like a request
        const HostMix m = hostile_mixture(rng);
        const int32_t n = m.n();
        const std::string packed = m.packed();
        log << "state functions " << a << " " << b << " n=" << n;
        for (auto f : {h_pt_, s_pt_, v_pt_, u_pt_, cv_pt_}) (void)f(&a, &b, &n, packed.data(), m.conc.data(), m.width);
        (void)od_info_(&n, packed.data(), m.conc.data(), one_of(rng, outnames).c_str(), &e, m.width, 1);
        break;
    }
    case 5: {  // the component store: lookups, a stored list, the same table loaded again
        const HostMix m = hostile_mixture(rng);
        const int32_t n = m.n();
        const std::string packed = m.packed();
        log << "component store n=" << n;
        (void)iscomp_(packed.data(), m.width);
        double coef[7];
        (void)getcoef_(packed.data(), &a, coef, m.width);
        (void)getmmol_(packed.data(), m.width);
        storeidx_(&n, packed.data(), m.width);
        if (rng() % 20 == 0) {
            const std::string path = (std::string(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat") + std::string(256, ' '));
            readgasfile_(path.data(), 256);
        }
        break;
    }
    case 6: {
        const std::string s = one_of(rng, if97_specs), p = one_of(rng, if97_properties);
        log << "if97_prop " << s << " " << a << " " << b << " " << p;
        char message[80];
        (void)if97_prop_(s.data(), &a, &b, p.data(), message, s.size(), p.size(), sizeof message);
        std::vector<double> results(p.size() + 2);
        if97_props_(s.data(), &a, &b, p.data(), results.data(), message, s.size(), p.size(), sizeof message);
        break;
    }
    case 7: {
        const std::string s = one_of(rng, if97_specs);
        log << "if97_allprops " << s << " " << a << " " << b;
        double o[11], first[20], second[20];
        char message[80];
        if97_allprops_(s.data(), &a, &b, &o[0], &o[1], &o[2], &o[3], &o[4], &o[5], &o[6], &o[7], first, second,
                       &o[8], &o[9], &o[10], message, s.size(), sizeof message);
        const std::string p = one_of(rng, if97_properties);
        std::vector<double> results(p.size() + 2);
        if97_main_(s.substr(0, 1).data(), &a, s.substr(1).data(), &b, p.data(), results.data(), message, 1,
                   s.size() > 1 ? 1 : 0, p.size(), sizeof message);
        break;
    }
    case 8: case 9: {
        const pws_inverse_routine routine = one_of(rng, pws_routines);
        const std::string keys = one_of(rng, pws_keys);
        log << "pwsftn routine " << (std::find(pws_routines.begin(), pws_routines.end(), routine) - pws_routines.begin())
            << " " << a << " " << b << " " << keys;
        std::vector<double> r(keys.size() + 1);
        pwsftn_(routine, &a, &b, keys.data(), r.data(), keys.size());
        (void)pws_pt_(&a);
        comt1_(&a, &b);
        (void)pws_c2_(&a, &b);
        (void)pws_a3_(&a, &b);
        break;
    }
    }
    log << "\n";
}

TEST(StateCorruption, FixedRequestsGiveTheSameBitsAfterFifteenThousandRandomBadCalls) {
    // The package stops the process past its error limit by design: raise the
    // limit, and send its lines nowhere.
    pwserr_ = pwserr_record{13, 0, std::numeric_limits<int32_t>::max(), 0};
    pws_set_channel13_callback_(silent_line);
    const std::vector<std::uint64_t> before = bits(fixed_requests());
    ASSERT_EQ(bits(fixed_requests()), before);  // the first pass leaves nothing that changes the second

    constexpr int rounds = 60, calls_per_round = 250;  // 15000 bad calls
    std::mt19937_64 rng(20240613);
    for (int round = 0; round < rounds; ++round) {
        std::ostringstream log;
        for (int k = 0; k < calls_per_round; ++k) bad_call(rng, log);
        pwserr_.nerr = 0;
        const std::vector<std::uint64_t> after = bits(fixed_requests());
        ASSERT_EQ(after.size(), before.size());
        for (std::size_t i = 0; i < before.size(); ++i)
            ASSERT_EQ(after[i], before[i]) << "result " << i << " after round " << round << ": "
                                           << std::bit_cast<double>(after[i]) << " instead of "
                                           << std::bit_cast<double>(before[i]) << "\nbad calls of that round:\n"
                                           << log.str();
    }
}

}  // namespace
