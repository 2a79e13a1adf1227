// Speed of the IF97 library: forward (p, T), the iterated pairs, saturation
// and transport, through the core and through the typed SI calls. The
// baseline is one region-1 Gibbs evaluation.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "if97/if97.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_solve.hpp"
#include "if97/if97_transport.hpp"
#include "ondrel/c/if97.h"
#include "ondrel/if97.hpp"

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

// The typed calls in SI units (Pa, K, J/kg), and beside them the core's
// full state, each with the second input changing between calls: it steps
// through 16 values 0.01 K (or 10 J/kg, 0.01 J/(kg K)) apart, so that
// nothing is computed once for the loop, and the region stays the same.
constexpr int steps = 16;

template <class Fn>
void Varying(benchmark::State& s, Fn fn, double a, double b0, double db) {
    double b[steps];
    for (int k = 0; k < steps; ++k) b[k] = b0 + k * db;
    int k = 0;
    for (auto _ : s) {
        benchmark::DoNotOptimize(a);
        benchmark::DoNotOptimize(fn(a, b[k]));
        k = (k + 1) % steps;
    }
}

double typed_h_pT(double p, double t) { return ondrel::if97::h_pT(p, t).value; }
double typed_from_pT_h(double p, double t) { return ondrel::if97::from_pT(p, t).value.h; }
double typed_from_ph_T(double p, double h) { return ondrel::if97::from_ph(p, h).value.T; }
double typed_from_ps_T(double p, double s) { return ondrel::if97::from_ps(p, s).value.T; }
double typed_from_hs_T(double h, double s) { return ondrel::if97::from_hs(h, s).value.T; }
double c_h_pT(double p, double t) {
    double h = 0.0;
    ondrel_if97_h_pT(p, t, &h);
    return h;
}
double core_state_pt_h(double p, double t) { return if97::state_pt(p, t).state.props.h; }
double core_property_pt_h(double p, double t) { return if97::property_pt(if97::GibbsProperty::h, p, t).value; }

struct VaryingCase {
    const char* name;
    double (*fn)(double, double);
    double a;
    double b0;
    double db;
};

// States of the (p, T) verification tables: region 1 at 3 MPa and 300 K,
// region 2 at 3.5 kPa and 700 K, region 3 at 25 MPa and 650 K, region 5 at
// 30 MPa and 1500 K.
const VaryingCase varying_cases[] = {
    {"Typed_h_pT/region1", typed_h_pT, 3e6, 300.0, 0.01},
    {"Typed_h_pT/region2", typed_h_pT, 3.5e3, 700.0, 0.01},
    {"Typed_h_pT/region3", typed_h_pT, 25e6, 650.0, 0.01},
    {"Typed_h_pT/region5", typed_h_pT, 30e6, 1500.0, 0.01},
    {"C_h_pT/region1", c_h_pT, 3e6, 300.0, 0.01},
    {"Core_h_pt/region1", core_property_pt_h, 3.0, 300.0, 0.01},
    {"Core_h_pt/region2", core_property_pt_h, 0.0035, 700.0, 0.01},
    {"Core_h_pt/region5", core_property_pt_h, 30.0, 1500.0, 0.01},
    {"Core_state_pt_h/region1", core_state_pt_h, 3.0, 300.0, 0.01},
    {"Core_state_pt_h/region2", core_state_pt_h, 0.0035, 700.0, 0.01},
    {"Core_state_pt_h/region5", core_state_pt_h, 30.0, 1500.0, 0.01},
    {"Typed_from_pT/region1", typed_from_pT_h, 3e6, 300.0, 0.01},
    {"Typed_from_pT/region2", typed_from_pT_h, 3.5e3, 700.0, 0.01},
    {"Typed_from_pT/region3", typed_from_pT_h, 25e6, 650.0, 0.01},
    {"Typed_from_pT/region5", typed_from_pT_h, 30e6, 1500.0, 0.01},
    {"Typed_from_ph/region1", typed_from_ph_T, 3e6, 500e3, 10.0},
    {"Typed_from_ph/region2", typed_from_ph_T, 5e6, 3500e3, 10.0},
    {"Typed_from_ph/region3", typed_from_ph_T, 50e6, 2000e3, 10.0},
    {"Typed_from_ps/region1", typed_from_ps_T, 3e6, 0.5e3, 0.01},
    {"Typed_from_ps/region2", typed_from_ps_T, 8e6, 6e3, 0.01},
    {"Typed_from_ps/region3", typed_from_ps_T, 50e6, 3.6e3, 0.01},
    {"Typed_from_hs/region1", typed_from_hs_T, 1500e3, 3.4e3, 0.01},
    {"Typed_from_hs/region2", typed_from_hs_T, 2800e3, 6.5e3, 0.01},
    {"Typed_from_hs/two_phase", typed_from_hs_T, 2400e3, 6.0e3, 0.01},
};

}  // namespace

int main(int argc, char** argv) {
    for (const PairCase& c : pair_cases) {
        benchmark::RegisterBenchmark(c.name, c.run, c.a, c.b);
    }
    for (const VaryingCase& c : varying_cases) {
        benchmark::RegisterBenchmark(c.name, Varying<double (*)(double, double)>, c.fn, c.a, c.b0, c.db);
    }
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
