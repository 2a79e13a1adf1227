// The flue gas of the mixture benchmarks: N2 0.71, CO2 0.13, water 0.12,
// O2 0.035, AR 0.005, with "H2O" (dry flue gas) or "H2O(IF)" (condensing
// water) as its water component.
#pragma once
#include <array>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"

struct FlueGas {
    std::array<od::CompName, 5> names;
    std::array<double, 5> conc{0.71, 0.13, 0.12, 0.035, 0.005};

    // Loads the gas table if needed and stores the gas as the composition.
    explicit FlueGas(const char* water) {
        const std::array<const char*, 5> text{"N2", "CO2", water, "O2", "AR"};
        for (std::size_t i = 0; i < text.size(); ++i) names[i] = od::CompName::from(text[i]);
        if (!od::fluiddata::dbread()) od::fluiddata::readgas();
        od::fluiddata::storeidx(names);
    }
    od::Mixture mix() const { return {names, conc}; }
};
