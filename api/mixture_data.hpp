// What the modern API's gas tables and mixtures hold: a loaded table, and a
// mixture with its rows resolved in it and its constants computed once.
#pragma once
#include <memory>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "ondrel/mixture.hpp"
#include "thermo/od_mixture.hpp"
#include "thermo/od_transport.hpp"

namespace ondrel {

class GasTable {
public:
    od::fluiddata::Table table;
};

namespace detail {

struct MixtureData {
    std::shared_ptr<const GasTable> table;  // keeps the rows alive
    std::vector<od::Component> comps;
    od::MixtureRows rows;                   // views comps
    double molar_mass = 0.0;                // kg/mol
    double r_specific = 0.0;                // J/(kg K)
    double t_min = 0.0, t_max = 0.0;        // K
    bool condensing = false;
    // Without condensing water, independent of the state: the gas-phase
    // moles per mole of mixture that the sums count, the sum of
    // c ln(c / g) over them (g: all gas-phase moles; the mixing entropy
    // divided by -R), and the molar volume of the condensed species, m3/mol.
    double gas_moles = 0.0;
    double mixing = 0.0;
    double condensed_volume = 0.0;
    od::transport::core::WilkeFactors wilke;  // pair terms of the mixing rules
    double all_gas = 0.0;                     // moles of gas-phase components per mole of mixture
    double water = 0.0;                       // moles of "H2O(IF)" per mole of mixture (its first entry)
    int water_entries = 0;                    // entries of "H2O(IF)" above the negligible concentration
    // The components besides "H2O(IF)" above the negligible concentration:
    // their gas-phase moles, the sum of c ln c over those, and the molar
    // volume of the condensed ones, m3/mol.
    double dry_gas = 0.0;
    double dry_mixing = 0.0;
    double dry_condensed_volume = 0.0;
    // Without condensing water: the gas-table sums on an even grid of
    // temperatures over [t_min, t_max], where the temperature searches of
    // h, s and u start Newton's method (each sum rises with temperature).
    struct StartGrid {
        double t0 = 0.0, dt = 0.0;
        std::vector<double> h;  // the enthalpy sum h/R
        std::vector<double> s;  // the entropy sum s/R at the reference pressure
        std::vector<double> u;  // h/R - gas_moles * T: the internal energy sum without the condensed p v
    } start;
};

}  // namespace detail
}  // namespace ondrel
