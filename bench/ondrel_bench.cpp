// Property requests of the mixture model: one property from each input pair
// ("PT", "Ph", "Ps", "Pv", "Tv", "vu", "hs", "su") and all sixteen from "PT",
// for a dry flue gas (N2, CO2, H2O, O2, AR) and for the same gas with
// condensing water "H2O(IF)" in its condensing range and above it. The
// baseline is one h_pt evaluation of the same mixture.
#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/flue_gas.hpp"
#include "ondrel/ondrel.h"
#include "ondrel/ondrel_core.hpp"
#include "thermo/od_thermodyn.hpp"

namespace {

// One property of a request for the flue gas.
double prop(const FlueGas& g, const char* spec, double a, double b, const char* out) {
    int err = 0;
    return od::ondrel::od_prop(spec, a, b, 5, g.names, g.conc, out, err);
}

const FlueGas& dry() { static const FlueGas g("H2O"); return g; }
const FlueGas& wet() { static const FlueGas g("H2O(IF)"); return g; }

constexpr double p_bar = 1.01325;

// The given values of each pair at (p_bar, t_c), from a "PT" request.
struct Given {
    double v, h, s, u;
};
Given given(const FlueGas& g, double t_c) {
    return {prop(g, "PT", p_bar, t_c, "v"), prop(g, "PT", p_bar, t_c, "h"),
            prop(g, "PT", p_bar, t_c, "s"), prop(g, "PT", p_bar, t_c, "u")};
}

void BM_Baseline_h_pt(benchmark::State& state) {
    const FlueGas& g = dry();
    prop(g, "PT", p_bar, 300.0, "h");  // stores the mixture
    const od::Mixture mix{g.names, g.conc};
    for (auto _ : state) benchmark::DoNotOptimize(od::thermodyn::h_pt(p_bar * 1e5, 573.15, mix));
}
BENCHMARK(BM_Baseline_h_pt);

// state.range(0): 0 dry gas at 300 C, 1 wet gas at 40 C (condensing), 2 wet gas at 300 C.
const FlueGas& gas_of(int64_t which) { return which == 0 ? dry() : wet(); }
double t_of(int64_t which) { return which == 1 ? 40.0 : 300.0; }

void BM_Prop(benchmark::State& state, const char* spec) {
    const FlueGas& g = gas_of(state.range(0));
    const double t = t_of(state.range(0));
    const Given x = given(g, t);
    const std::string s(spec);
    double a = 0.0, b = 0.0;
    const char* out = "T";
    if (s == "PT") { a = p_bar; b = t; out = "h"; }
    else if (s == "Ph") { a = p_bar; b = x.h; }
    else if (s == "Ps") { a = p_bar; b = x.s; }
    else if (s == "Pv") { a = p_bar; b = x.v; }
    else if (s == "Tv") { a = t; b = x.v; out = "P"; }
    else if (s == "vu") { a = x.v; b = x.u; }
    else if (s == "hs") { a = x.h; b = x.s; }
    else if (s == "su") { a = x.s; b = x.u; }
    for (auto _ : state) benchmark::DoNotOptimize(prop(g, spec, a, b, out));
}
BENCHMARK_CAPTURE(BM_Prop, PT_to_h, "PT")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, Ph_to_T, "Ph")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, Ps_to_T, "Ps")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, Pv_to_T, "Pv")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, Tv_to_P, "Tv")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, vu_to_T, "vu")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, hs_to_T, "hs")->Arg(0)->Arg(1)->Arg(2);
BENCHMARK_CAPTURE(BM_Prop, su_to_T, "su")->Arg(0)->Arg(1)->Arg(2);

void BM_Allprops_PT(benchmark::State& state) {
    const FlueGas& g = gas_of(state.range(0));
    const double t = t_of(state.range(0));
    int err = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(od::ondrel::od_allprops("PT", p_bar, t, 5, g.names, g.conc, err));
}
BENCHMARK(BM_Allprops_PT)->Arg(0)->Arg(1)->Arg(2);

// The same "PT" request through the exported routine, as a host calls it.
void BM_Export_PT_to_h(benchmark::State& state) {
    const std::string names = "N2      CO2     H2O     O2      AR      ";
    const double conc[5] = {0.71, 0.13, 0.12, 0.035, 0.005};
    const int32_t n = 5;
    const double a = p_bar, b = 300.0;
    int32_t err = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(od_prop_("PT", &a, &b, &n, names.data(), conc, "h", &err, 2, 8, 1));
}
BENCHMARK(BM_Export_PT_to_h);

}  // namespace

BENCHMARK_MAIN();
