// The modern API of the mixture model beside the exported routines' core, for
// the dry flue gas N2 0.71, CO2 0.13, H2O 0.12, O2 0.035, AR 0.005 at 1 bar,
// 1200 K, the temperature changing between calls. Baseline: the same request
// through the legacy core (od_prop / od_allprops) in the same run.
#include <benchmark/benchmark.h>

#include <vector>

#include "bench/flue_gas.hpp"
#include "ondrel/mixture.hpp"
#include "ondrel/ondrel_core.hpp"

namespace {

const ondrel::Mixture& gas() {
    static const ondrel::Mixture m =
        ondrel::Mixture::make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.035}, {"AR", 0.005}}).value;
    return m;
}
const FlueGas& legacy_gas() { static const FlueGas g("H2O"); return g; }

// Temperatures around 1200 K, one per call.
double t_of(std::size_t i) { return 1190.0 + static_cast<double>(i % 21); }

void BM_Legacy_PT_h(benchmark::State& state) {
    const FlueGas& g = legacy_gas();
    std::size_t i = 0;
    for (auto _ : state) {
        int err = 0;
        benchmark::DoNotOptimize(od::ondrel::od_prop("PT", 1.0, t_of(i++) - 273.15, 5, g.names, g.conc, "h", err));
    }
}
BENCHMARK(BM_Legacy_PT_h);

void BM_Api_PT_h(benchmark::State& state) {
    ondrel::Context ctx;
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(ondrel::property(ctx, gas(), {1e5, t_of(i++)}, ondrel::Property::h));
}
BENCHMARK(BM_Api_PT_h);

void BM_Api_all16(benchmark::State& state) {
    ondrel::Context ctx;
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(ondrel::properties(ctx, gas(), {1e5, t_of(i++)}));
}
BENCHMARK(BM_Api_all16);

void BM_Api_h_s_cv_d(benchmark::State& state) {
    ondrel::Context ctx;
    const ondrel::Property want[] = {ondrel::Property::h, ondrel::Property::s, ondrel::Property::cv,
                                     ondrel::Property::d};
    double out[4];
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ondrel::properties(ctx, gas(), {1e5, t_of(i++)}, want, out));
        benchmark::DoNotOptimize(out);
    }
}
BENCHMARK(BM_Api_h_s_cv_d);

void BM_Api_eta(benchmark::State& state) {
    ondrel::Context ctx;
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(ondrel::property(ctx, gas(), {1e5, t_of(i++)}, ondrel::Property::eta));
}
BENCHMARK(BM_Api_eta);

void BM_Api_lambda(benchmark::State& state) {
    ondrel::Context ctx;
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(ondrel::property(ctx, gas(), {1e5, t_of(i++)}, ondrel::Property::lambda));
}
BENCHMARK(BM_Api_lambda);

// (p, h) and (p, s) to T, checked, from the h or s of a state 300 K away.
void BM_Api_solve(benchmark::State& state, ondrel::Pair pair, ondrel::Property given) {
    ondrel::Context ctx;
    std::vector<double> x(21);
    for (std::size_t k = 0; k < x.size(); ++k)
        x[k] = ondrel::property(ctx, gas(), {1e5, t_of(k) - 300.0}, given).value;
    std::size_t i = 0;
    for (auto _ : state) benchmark::DoNotOptimize(ondrel::solve(ctx, gas(), pair, 1e5, x[i++ % x.size()]));
}
BENCHMARK_CAPTURE(BM_Api_solve, Ph, ondrel::Pair::Ph, ondrel::Property::h);
BENCHMARK_CAPTURE(BM_Api_solve, Ps, ondrel::Pair::Ps, ondrel::Property::s);

// The condensing flue gas (water as "H2O(IF)"): checked "Ph" and "hs" at
// 1.01325 bar, 40 C (below its dew point, about 49 C).
const ondrel::Mixture& wet() {
    static const ondrel::Mixture m =
        ondrel::Mixture::make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}}).value;
    return m;
}

void BM_Api_condensing(benchmark::State& state, ondrel::Pair pair) {
    ondrel::Context ctx;
    const auto all = ondrel::properties(ctx, wet(), {1.01325e5, 313.15}).value;
    const double a = pair == ondrel::Pair::Ph ? all.P : all.h;
    const double b = pair == ondrel::Pair::Ph ? all.h : all.s;
    for (auto _ : state) benchmark::DoNotOptimize(ondrel::solve(ctx, wet(), pair, a, b));
}
BENCHMARK_CAPTURE(BM_Api_condensing, Ph, ondrel::Pair::Ph);
BENCHMARK_CAPTURE(BM_Api_condensing, hs, ondrel::Pair::hs)->Unit(benchmark::kMicrosecond);

void BM_Legacy_condensing_Ph(benchmark::State& state) {
    static const FlueGas g("H2O(IF)");
    int err = 0;
    const double h = od::ondrel::od_prop("PT", 1.01325, 40.0, 5, g.names, g.conc, "h", err);
    std::size_t i = 0;
    for (auto _ : state) {
        // Alternate two enthalpies so that the stored state is not reused.
        benchmark::DoNotOptimize(od::ondrel::od_prop("Ph", 1.01325, h + static_cast<double>(i++ % 2), 5, g.names, g.conc, "T", err));
    }
}
BENCHMARK(BM_Legacy_condensing_Ph);

// Throughput of "Ph" to T over 10^6 states, on 1 and 2 threads.
void BM_Api_batch_Ph(benchmark::State& state) {
    ondrel::Context ctx;
    const std::size_t n = 1000000;
    std::vector<double> p(n, 1e5), h(n), out(n);
    std::vector<ondrel::Status> status(n);
    for (std::size_t k = 0; k < n; ++k)
        h[k] = ondrel::property(ctx, gas(), {1e5, 600.0 + 1e-3 * static_cast<double>(k)}, ondrel::Property::h).value;
    const ondrel::Property want[] = {ondrel::Property::T};
    for (auto _ : state)
        ondrel::evaluate(gas(), ondrel::Pair::Ph, p, h, want, out, status, static_cast<unsigned>(state.range(0)));
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * n));
}
BENCHMARK(BM_Api_batch_Ph)->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
