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

// (p, T) to h in MPa and K: region 1, 2, 3, 5.
void PT_h(benchmark::State& s, double p, double t) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::state_pt(p, t).state.props.h);
    }
}
BENCHMARK_CAPTURE(PT_h, region1, 3.0, 300.0);
BENCHMARK_CAPTURE(PT_h, region2, 0.0035, 700.0);
BENCHMARK_CAPTURE(PT_h, region3, 25.0, 650.0);
BENCHMARK_CAPTURE(PT_h, region5, 30.0, 1500.0);

// The same through the entry point in host units, property list parsed.
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

void Ph_T(benchmark::State& s, double p, double h) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::state_ph(p, h).state.props.t);
    }
}
BENCHMARK_CAPTURE(Ph_T, region1, 3.0, 500.0);
BENCHMARK_CAPTURE(Ph_T, region2, 5.0, 3500.0);
BENCHMARK_CAPTURE(Ph_T, region3, 50.0, 2000.0);

void Ps_T(benchmark::State& s, double p, double entropy) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::state_ps(p, entropy).state.props.t);
    }
}
BENCHMARK_CAPTURE(Ps_T, region1, 3.0, 0.5);
BENCHMARK_CAPTURE(Ps_T, region2, 8.0, 6.0);
BENCHMARK_CAPTURE(Ps_T, region3, 50.0, 3.6);

void Hs_T(benchmark::State& s, double h, double entropy) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(h);
        benchmark::DoNotOptimize(if97::state_hs(h, entropy).state.props.t);
    }
}
BENCHMARK_CAPTURE(Hs_T, region1, 1500.0, 3.4);
BENCHMARK_CAPTURE(Hs_T, region2, 2800.0, 6.5);
BENCHMARK_CAPTURE(Hs_T, region3, 2000.0, 4.2);
BENCHMARK_CAPTURE(Hs_T, two_phase, 2400.0, 6.0);

// (v, h), (v, s), (v, u) to T: liquid, vapour, region 3, wet.
void Vh_T(benchmark::State& s, double v, double h) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(v);
        benchmark::DoNotOptimize(if97::state_vh(v, h).state.props.t);
    }
}
BENCHMARK_CAPTURE(Vh_T, region1, 0.00102, 400.0);
BENCHMARK_CAPTURE(Vh_T, region2, 0.5, 3000.0);
BENCHMARK_CAPTURE(Vh_T, region3, 0.0025, 2200.0);
BENCHMARK_CAPTURE(Vh_T, two_phase, 1.0, 1500.0);

void Vs_T(benchmark::State& s, double v, double entropy) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(v);
        benchmark::DoNotOptimize(if97::state_vs(v, entropy).state.props.t);
    }
}
BENCHMARK_CAPTURE(Vs_T, region1, 0.00102, 1.2);
BENCHMARK_CAPTURE(Vs_T, region2, 0.5, 7.5);

void Vu_T(benchmark::State& s, double v, double u) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(v);
        benchmark::DoNotOptimize(if97::state_vu(v, u).state.props.t);
    }
}
BENCHMARK_CAPTURE(Vu_T, region2, 0.5, 2800.0);

void Px_h(benchmark::State& s, double p) {
    for (auto _ : s) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(if97::state_px(p, 0.5).state.props.h);
    }
}
BENCHMARK_CAPTURE(Px_h, low, 1.0);
BENCHMARK_CAPTURE(Px_h, region3, 20.0);

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

BENCHMARK_MAIN();
