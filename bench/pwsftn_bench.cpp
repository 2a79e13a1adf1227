// Speed of the water-and-steam entry routine with its inverse routines, each
// beside the IF97 library asked for the same properties of the same states,
// and of the typed calls of the modern API (their context's cost shows beside
// the legacy rows).
// States rotate through a fixed set, so that no call finds the common terms
// of the previous one.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "if97/if97.hpp"
#include "ondrel/ifc67.hpp"
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

// The typed call of a pair on the same states, in SI units (Pa, K, J/kg).
constexpr double pa_per_bar = 1.0e5;
constexpr double kelvin_at_0c = 273.15;
constexpr double j_per_kj = 1.0e3;
using Ifc67Call = ondrel::Result<ondrel::ifc67::State> (*)(ondrel::ifc67::Context&, double, double);

void run_ifc67(benchmark::State& s, Ifc67Call call, const std::vector<std::array<double, 2>>& in,
               double scale1, double offset1, double scale2, double offset2) {
    std::vector<std::array<double, 2>> si;
    for (const auto& xy : in) si.push_back({xy[0] * scale1 + offset1, xy[1] * scale2 + offset2});
    ondrel::ifc67::Context ctx;
    std::size_t k = 0;
    for (auto _ : s) {
        const auto& xy = si[k];
        k = k + 1 == si.size() ? 0 : k + 1;
        const auto r = call(ctx, xy[0], xy[1]);
        benchmark::DoNotOptimize(r.value.h);
    }
}

void Pwsftn_PT_HSV_Regions12(benchmark::State& s) { run_pwsftn(s, pws::pwsrpt, pairs_12().pt, "H,S,V"); }
void Ifc67_from_pT_Regions12(benchmark::State& s) {
    run_ifc67(s, ondrel::ifc67::from_pT, pairs_12().pt, pa_per_bar, 0.0, 1.0, kelvin_at_0c);
}
void If97_PT_hsv_Regions12(benchmark::State& s) { run_if97(s, 'P', 'T', pairs_12().pt, "h,s,v"); }
void Pwsftn_PT_HSV_Region3(benchmark::State& s) { run_pwsftn(s, pws::pwsrpt, pairs_3().pt, "H,S,V"); }
void If97_PT_hsv_Region3(benchmark::State& s) { run_if97(s, 'P', 'T', pairs_3().pt, "h,s,v"); }
void Pwsftn_PH_T(benchmark::State& s) { run_pwsftn(s, pws::pwsrph, pairs_12().ph, "T"); }
void Ifc67_from_ph(benchmark::State& s) {
    run_ifc67(s, ondrel::ifc67::from_ph, pairs_12().ph, pa_per_bar, 0.0, j_per_kj, 0.0);
}
void If97_Ph_T(benchmark::State& s) { run_if97(s, 'P', 'h', pairs_12().ph, "T"); }
void Pwsftn_PS_T(benchmark::State& s) { run_pwsftn(s, pws::pwsrps, pairs_12().ps, "T"); }
void If97_Ps_T(benchmark::State& s) { run_if97(s, 'P', 's', pairs_12().ps, "T"); }
void Pwsftn_HS_PT(benchmark::State& s) { run_pwsftn(s, pws::pwsrhs, pairs_12().hs, "P,T"); }
void If97_hs_PT(benchmark::State& s) { run_if97(s, 'h', 's', pairs_12().hs, "P,T"); }
void Pwsftn_VH_PT(benchmark::State& s) { run_pwsftn(s, pws::pwsrvh, pairs_12().vh, "P,T"); }
void If97_vh_PT(benchmark::State& s) { run_if97(s, 'v', 'h', pairs_12().vh, "P,T"); }

BENCHMARK(Pwsftn_PT_HSV_Regions12);
BENCHMARK(Ifc67_from_pT_Regions12);
BENCHMARK(If97_PT_hsv_Regions12);
BENCHMARK(Pwsftn_PT_HSV_Region3);
BENCHMARK(If97_PT_hsv_Region3);
BENCHMARK(Pwsftn_PH_T);
BENCHMARK(Ifc67_from_ph);
BENCHMARK(If97_Ph_T);
BENCHMARK(Pwsftn_PS_T);
BENCHMARK(If97_Ps_T);
BENCHMARK(Pwsftn_HS_PT);
BENCHMARK(If97_hs_PT);
BENCHMARK(Pwsftn_VH_PT);
BENCHMARK(If97_vh_PT);

}  // namespace

BENCHMARK_MAIN();
