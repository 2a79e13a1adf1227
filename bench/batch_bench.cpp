// The array call of the modern API over 10^6 states of the dry flue gas
// N2 0.71, CO2 0.13, H2O 0.12, O2 0.035, AR 0.005 at 1 bar: "PT" to h and
// "Ph" to T, on one thread and on all cores. The Python package's benchmark
// (bench/python_bench.py) runs this program as its baseline and times the
// same calls made from Python.
#include <benchmark/benchmark.h>

#include <vector>

#include "ondrel/mixture.hpp"

namespace {

constexpr std::size_t points = 1000000;

const ondrel::Mixture& gas() {
    static const ondrel::Mixture m =
        ondrel::Mixture::make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.035}, {"AR", 0.005}}).value;
    return m;
}

// The states: 1 bar, 600 K + k mK.
struct Inputs {
    std::vector<double> p, T, h;
    Inputs() : p(points, 1.0e5), T(points), h(points) {
        ondrel::Context ctx;
        for (std::size_t k = 0; k < points; ++k) {
            T[k] = 600.0 + 1.0e-3 * static_cast<double>(k);
            h[k] = ondrel::property(ctx, gas(), {p[k], T[k]}, ondrel::Property::h).value;
        }
    }
};
const Inputs& inputs() {
    static const Inputs in;
    return in;
}

void run(benchmark::State& state, ondrel::Pair pair, ondrel::Property want) {
    const Inputs& in = inputs();
    const std::vector<double>& second = pair == ondrel::Pair::PT ? in.T : in.h;
    std::vector<double> out(points);
    std::vector<ondrel::Status> status(points);
    const ondrel::Property props[] = {want};
    for (auto _ : state) {
        ondrel::evaluate(gas(), pair, in.p, second, props, out, status, static_cast<unsigned>(state.range(0)));
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(static_cast<int64_t>(state.iterations() * points));
}

void BM_Batch_PT_h(benchmark::State& state) { run(state, ondrel::Pair::PT, ondrel::Property::h); }
void BM_Batch_Ph_T(benchmark::State& state) { run(state, ondrel::Pair::Ph, ondrel::Property::T); }
// Argument: threads (0, all cores).
BENCHMARK(BM_Batch_PT_h)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BM_Batch_Ph_T)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
