// Speed of the water-and-steam entry routine with its inverse routines, each
// beside the IF97 library asked for the same properties of the same states.
// States rotate through a fixed set, so that no call finds the common terms
// of the previous one.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "if97/if97.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pwsftn.hpp"

namespace {

struct PT {
    double p, t;  // bar, C
};

// Sub-region 1 and region 2, and region 3 apart.
const std::vector<PT> states_12 = {{1, 20},    {10, 150},  {50, 250},  {100, 300}, {200, 100},
                                   {500, 200}, {1000, 50}, {0.1, 100}, {1, 200},   {10, 400},
                                   {50, 500},  {100, 600}, {200, 700}, {300, 450}, {5, 800}};
const std::vector<PT> states_3 = {{250, 380}, {300, 400}, {500, 450}, {800, 500}, {300, 372}};

// Input pairs of the states, from the package itself.
struct Pairs {
    std::vector<std::array<double, 2>> pt, ph, ps, hs, vh;
};

Pairs make_pairs(const std::vector<PT>& states) {
    Pairs out;
    for (const PT& st : states) {
        std::array<double, 4> r{};
        pws::pwsftn(pws::pwsrpt, st.p, st.t, "H,S,V", r);
        out.pt.push_back({st.p, st.t});
        out.ph.push_back({st.p, r[0]});
        out.ps.push_back({st.p, r[1]});
        out.hs.push_back({r[0], r[1]});
        out.vh.push_back({r[2], r[0]});
    }
    return out;
}

const Pairs& pairs_12() {
    static const Pairs p = make_pairs(states_12);
    return p;
}
const Pairs& pairs_3() {
    static const Pairs p = make_pairs(states_3);
    return p;
}

void run_pwsftn(benchmark::State& s, pws::InverseFn fn, const std::vector<std::array<double, 2>>& in,
                std::string_view keys) {
    std::array<double, 4> r{};
    std::size_t k = 0;
    for (auto _ : s) {
        const auto& xy = in[k];
        k = k + 1 == in.size() ? 0 : k + 1;
        pws::pwsftn(fn, xy[0], xy[1], keys, r);
        benchmark::DoNotOptimize(r);
    }
}

void run_if97(benchmark::State& s, char c1, char c2, const std::vector<std::array<double, 2>>& in,
              std::string_view keys) {
    std::vector<double> r(4);
    std::string msg;
    std::size_t k = 0;
    for (auto _ : s) {
        const auto& xy = in[k];
        k = k + 1 == in.size() ? 0 : k + 1;
        if97::if97_main(c1, xy[0], c2, xy[1], keys, r, msg);
        benchmark::DoNotOptimize(r.data());
    }
}

void Pwsftn_PT_HSV_Regions12(benchmark::State& s) { run_pwsftn(s, pws::pwsrpt, pairs_12().pt, "H,S,V"); }
void If97_PT_hsv_Regions12(benchmark::State& s) { run_if97(s, 'P', 'T', pairs_12().pt, "h,s,v"); }
void Pwsftn_PT_HSV_Region3(benchmark::State& s) { run_pwsftn(s, pws::pwsrpt, pairs_3().pt, "H,S,V"); }
void If97_PT_hsv_Region3(benchmark::State& s) { run_if97(s, 'P', 'T', pairs_3().pt, "h,s,v"); }
void Pwsftn_PH_T(benchmark::State& s) { run_pwsftn(s, pws::pwsrph, pairs_12().ph, "T"); }
void If97_Ph_T(benchmark::State& s) { run_if97(s, 'P', 'h', pairs_12().ph, "T"); }
void Pwsftn_PS_T(benchmark::State& s) { run_pwsftn(s, pws::pwsrps, pairs_12().ps, "T"); }
void If97_Ps_T(benchmark::State& s) { run_if97(s, 'P', 's', pairs_12().ps, "T"); }
void Pwsftn_HS_PT(benchmark::State& s) { run_pwsftn(s, pws::pwsrhs, pairs_12().hs, "P,T"); }
void If97_hs_PT(benchmark::State& s) { run_if97(s, 'h', 's', pairs_12().hs, "P,T"); }
void Pwsftn_VH_PT(benchmark::State& s) { run_pwsftn(s, pws::pwsrvh, pairs_12().vh, "P,T"); }
void If97_vh_PT(benchmark::State& s) { run_if97(s, 'v', 'h', pairs_12().vh, "P,T"); }

BENCHMARK(Pwsftn_PT_HSV_Regions12);
BENCHMARK(If97_PT_hsv_Regions12);
BENCHMARK(Pwsftn_PT_HSV_Region3);
BENCHMARK(If97_PT_hsv_Region3);
BENCHMARK(Pwsftn_PH_T);
BENCHMARK(If97_Ph_T);
BENCHMARK(Pwsftn_PS_T);
BENCHMARK(If97_Ps_T);
BENCHMARK(Pwsftn_HS_PT);
BENCHMARK(If97_hs_PT);
BENCHMARK(Pwsftn_VH_PT);
BENCHMARK(If97_vh_PT);

}  // namespace

BENCHMARK_MAIN();
