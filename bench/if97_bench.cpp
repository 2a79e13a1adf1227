// Speed of the IF97 library: forward (p, T), the iterated pairs, saturation
// and transport. The baseline is one region-1 Gibbs evaluation.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "if97/if97.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_solve.hpp"
#include "if97/if97_transport.hpp"

namespace {

void Baseline_Region1Gibbs(benchmark::State& s) {
    double p = 3.0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::region1(p, 300.0));
    }
}
BENCHMARK(Baseline_Region1Gibbs);

// One state function of two inputs, the wanted property read from its
// result: the direct call keeps the function out of the measured loop.
template <if97::StateResult (*Fn)(double, double), double if97::Properties::*Out>
void Pair(benchmark::State& s, double a, double b) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(Fn(a, b).state.props.*Out);
    }
}

using if97::Properties;
struct PairCase {
    const char* name;
    void (*run)(benchmark::State&, double, double);
    double a;
    double b;
};

// Inputs in MPa, K, kJ/kg, kJ/(kg K), m3/kg.
const PairCase pair_cases[] = {
    {"PT_h/region1", Pair<if97::state_pt, &Properties::h>, 3.0, 300.0},
    {"PT_h/region2", Pair<if97::state_pt, &Properties::h>, 0.0035, 700.0},
    {"PT_h/region3", Pair<if97::state_pt, &Properties::h>, 25.0, 650.0},
    {"PT_h/region5", Pair<if97::state_pt, &Properties::h>, 30.0, 1500.0},
    {"Ph_T/region1", Pair<if97::state_ph, &Properties::t>, 3.0, 500.0},
    {"Ph_T/region2", Pair<if97::state_ph, &Properties::t>, 5.0, 3500.0},
    {"Ph_T/region3", Pair<if97::state_ph, &Properties::t>, 50.0, 2000.0},
    {"Ps_T/region1", Pair<if97::state_ps, &Properties::t>, 3.0, 0.5},
    {"Ps_T/region2", Pair<if97::state_ps, &Properties::t>, 8.0, 6.0},
    {"Ps_T/region3", Pair<if97::state_ps, &Properties::t>, 50.0, 3.6},
    {"Hs_T/region1", Pair<if97::state_hs, &Properties::t>, 1500.0, 3.4},
    {"Hs_T/region2", Pair<if97::state_hs, &Properties::t>, 2800.0, 6.5},
    {"Hs_T/region3", Pair<if97::state_hs, &Properties::t>, 2000.0, 4.2},
    {"Hs_T/two_phase", Pair<if97::state_hs, &Properties::t>, 2400.0, 6.0},
    {"Vh_T/region1", Pair<if97::state_vh, &Properties::t>, 0.00102, 400.0},
    {"Vh_T/region2", Pair<if97::state_vh, &Properties::t>, 0.5, 3000.0},
    {"Vh_T/region3", Pair<if97::state_vh, &Properties::t>, 0.0025, 2200.0},
    {"Vh_T/two_phase", Pair<if97::state_vh, &Properties::t>, 1.0, 1500.0},
    {"Vs_T/region1", Pair<if97::state_vs, &Properties::t>, 0.00102, 1.2},
    {"Vs_T/region2", Pair<if97::state_vs, &Properties::t>, 0.5, 7.5},
    {"Vu_T/region2", Pair<if97::state_vu, &Properties::t>, 0.5, 2800.0},
    {"Px_h/low", Pair<if97::state_px, &Properties::h>, 1.0, 0.5},
    {"Px_h/region3", Pair<if97::state_px, &Properties::h>, 20.0, 0.5},
};

// The same (p, T) call through the entry point in host units, property
// list parsed.
void Main_PT_h(benchmark::State& s, double p_bar, double t_c) {
    std::vector<double> res(1);
    std::string msg;
    for (auto _ : s) {
        benchmark::DoNotOptimize(p_bar);
        if97::if97_main('P', p_bar, 'T', t_c, "h", res, msg);
        benchmark::DoNotOptimize(res[0]);
    }
}
BENCHMARK_CAPTURE(Main_PT_h, region1, 30.0, 26.85);

void PT_tc(benchmark::State& s) {
    double p = 10.0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::thermal_conductivity(if97::state_pt(p, 400.0).state.props));
    }
}
BENCHMARK(PT_tc);

void PT_dv(benchmark::State& s) {
    double p = 10.0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        const if97::Properties st = if97::state_pt(p, 400.0).state.props;
        benchmark::DoNotOptimize(if97::viscosity(st.rho, st.t));
    }
}
BENCHMARK(PT_dv);

}  // namespace

int main(int argc, char** argv) {
    for (const PairCase& c : pair_cases) {
        benchmark::RegisterBenchmark(c.name, c.run, c.a, c.b);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
