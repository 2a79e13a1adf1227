// Mixture state and transport at given (p, T): a five-component dry flue
// gas, the same with condensing water in and above the condensing range.
#include <benchmark/benchmark.h>

#include <array>
#include <string>

#include "bench/flue_gas.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"

namespace {

constexpr double bar = 1e5;
constexpr double t_hot = 1200.0;       // K, dry flue gas
constexpr double t_condensing = 313.15; // K, 40 C
constexpr double t_vapour = 573.15;     // K, 300 C

template <double (*F)(double, double, const od::Mixture&)>
void state(benchmark::State& st, const char* water, double t) {
    const FlueGas gas(water);
    const od::Mixture mix = gas.mix();
    double p = bar;
    for (auto _ : st) {
        benchmark::DoNotOptimize(p);
        benchmark::DoNotOptimize(F(p, t, mix));
    }
}

void BM_h_pt_dry(benchmark::State& st) { state<od::thermodyn::h_pt>(st, "H2O", t_hot); }
void BM_s_pt_dry(benchmark::State& st) { state<od::thermodyn::s_pt>(st, "H2O", t_hot); }
void BM_v_pt_dry(benchmark::State& st) { state<od::thermodyn::v_pt>(st, "H2O", t_hot); }
void BM_h_pt_condensing(benchmark::State& st) { state<od::thermodyn::h_pt>(st, "H2O(IF)", t_condensing); }
void BM_s_pt_condensing(benchmark::State& st) { state<od::thermodyn::s_pt>(st, "H2O(IF)", t_condensing); }
void BM_v_pt_condensing(benchmark::State& st) { state<od::thermodyn::v_pt>(st, "H2O(IF)", t_condensing); }
void BM_h_pt_vapour(benchmark::State& st) { state<od::thermodyn::h_pt>(st, "H2O(IF)", t_vapour); }
void BM_s_pt_vapour(benchmark::State& st) { state<od::thermodyn::s_pt>(st, "H2O(IF)", t_vapour); }
void BM_v_pt_vapour(benchmark::State& st) { state<od::thermodyn::v_pt>(st, "H2O(IF)", t_vapour); }
void BM_lambda_pt_dry(benchmark::State& st) { state<od::transport::lambda_pt>(st, "H2O", t_hot); }

void BM_eta_t_dry(benchmark::State& st) {
    const FlueGas gas("H2O");
    const od::Mixture mix = gas.mix();
    double t = t_hot;
    for (auto _ : st) {
        benchmark::DoNotOptimize(t);
        benchmark::DoNotOptimize(od::transport::eta_t(t, mix));
    }
}

}  // namespace

BENCHMARK(BM_h_pt_dry);
BENCHMARK(BM_s_pt_dry);
BENCHMARK(BM_v_pt_dry);
BENCHMARK(BM_h_pt_condensing);
BENCHMARK(BM_s_pt_condensing);
BENCHMARK(BM_v_pt_condensing);
BENCHMARK(BM_h_pt_vapour);
BENCHMARK(BM_s_pt_vapour);
BENCHMARK(BM_v_pt_vapour);
BENCHMARK(BM_eta_t_dry);
BENCHMARK(BM_lambda_pt_dry);
BENCHMARK_MAIN();
