// Lookups of the gas table as the mixture functions make them: values of the
// stored components by name, and the table search of iscomp.
#include <benchmark/benchmark.h>

#include <array>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"

namespace fd = od::fluiddata;
using od::CompName;

namespace {

// Loads the installed gas data and stores a flue gas of six components.
const std::vector<CompName>& flue_gas() {
    static const std::vector<CompName> names = [] {
        std::vector<CompName> n;
        for (const char* s : {"N2", "O2", "CO2", "H2O", "AR", "SO2"}) n.push_back(CompName::from(s));
        fd::readgasfile(od::host::fluidpath(fd::library_name) + std::string(fd::data_file_name));
        fd::setdbread();
        return n;
    }();
    fd::storeidx(names);
    return names;
}

void BM_GetcoefOfEveryComponent(benchmark::State& state) {
    const auto& names = flue_gas();
    std::array<double, 7> a{};
    double t = 900.0;
    for (auto _ : state) {
        for (const CompName& n : names) {
            fd::getcoef(n, t, a);
            benchmark::DoNotOptimize(a);
        }
        t = t > 1500.0 ? 900.0 : t + 1.0;
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(names.size()));
}
BENCHMARK(BM_GetcoefOfEveryComponent);

void BM_GetmmolOfTheLastComponent(benchmark::State& state) {
    const CompName last = flue_gas().back();
    for (auto _ : state) benchmark::DoNotOptimize(fd::getmmol(last));
}
BENCHMARK(BM_GetmmolOfTheLastComponent);

void BM_IscompOfTheLastTableRow(benchmark::State& state) {
    flue_gas();
    std::array<CompName, od::max_components> all;
    const CompName last = all[fd::getcompset(all) - 1];
    for (auto _ : state) benchmark::DoNotOptimize(fd::iscomp(last));
}
BENCHMARK(BM_IscompOfTheLastTableRow);

}  // namespace

BENCHMARK_MAIN();
