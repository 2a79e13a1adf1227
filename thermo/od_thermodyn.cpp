// Specific properties of an ideal mixture of gas-table components at given
// pressure and temperature, with "H2O(IF)" delegated to the condensing water.
#include "thermo/od_thermodyn.hpp"

#include <cmath>

#include "fluiddata/od_fluiddata.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_h2o.hpp"

namespace od::thermodyn {
namespace {

using basefuncs::r_gas;

inline constexpr double negligible = 1e-10;  // concentrations at or below are skipped
bool is_water_if(const CompName& name) { return name == h2o::water_if; }

// Moles of gas phase per mole of mixture: the sum of the gas-phase
// concentrations, reduced when the condensing water exceeds saturation.
double gas_fraction(double p, double t, const Mixture& mix) {
    double g = 0.0;
    for (int i = 0; i < mix.n(); ++i)
        if (fluiddata::getphase(mix.names[i]) == 'G') g += mix.conc[i];
    for (int i = 0; i < mix.n(); ++i) {
        const double y = mix.conc[i];
        // Intended: only the first present "H2O(IF)" entry sets y, however often it is listed.
        if (!is_water_if(mix.names[i]) || !(y > negligible)) continue;
        const double psat = h2o::h2o('T', t, 'X', 0.0, "P.");
        // The dry gas keeps just enough vapour to make its fraction psat/p.
        if (basefuncs::isnotinit(psat) && y * p > psat && psat != p) g = g * (1.0 - y / g) / (1.0 - psat / p);
        break;
    }
    // Intended: a mixture without gas-phase components divides by 1.
    return g == 0.0 ? 1.0 : g;
}

// Molar mass accumulated in component order, as mixinfo::mmol does.
struct Sums {
    double x = 0.0;  // the property's per-mole sum
    double m = 0.0;  // molar mass, kg/mol
};

using Row = const fluiddata::TableRow*;

// Each component's row is looked up once; term(name, row, c) gives its per-mole value.
template <class Term>
Sums mixture_sum(const Mixture& mix, Term term) {
    Sums s;
    for (int i = 0; i < mix.n(); ++i) {
        const CompName& name = mix.names[i];
        const Row row = fluiddata::stored_table_row(name);
        const double c = mix.conc[i];
        if (c > negligible) s.x += c * term(name, row, c);
        s.m += c * component::mmol(row);
    }
    return s;
}

}  // namespace

double h_pt(double p, double t, const Mixture& mix) {
    // The gas fraction is formed afresh at every "H2O(IF)" entry; it is the same each time.
    const Sums s = mixture_sum(mix, [&](const CompName& name, Row row, double c) {
        if (is_water_if(name)) return h2o::h_h2o(c / gas_fraction(p, t, mix), p, t);
        return component::h_of(component::coefs(row, t), t);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x * r_gas / s.m;
}

double s_pt(double p, double t, const Mixture& mix) {
    const double g = gas_fraction(p, t, mix);
    const double log_t = std::log(t);
    const double log_p = std::log(p / basefuncs::p_ref);
    const Sums s = mixture_sum(mix, [&](const CompName& name, Row row, double c) {
        if (is_water_if(name)) return h2o::s_h2o(c / g, p, t);
        const double s0 = component::s_of(component::coefs(row, t), t, log_t);
        // Condensed species: no pressure term and no mixing term.
        if (fluiddata::getphase(name) != 'G') return s0;
        // Mixing entropy from the fraction within the gas phase.
        return s0 - log_p - std::log(c / g);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x * r_gas / s.m;
}

double cv_pt(double p, double t, const Mixture& mix) {
    const Sums s = mixture_sum(mix, [&](const CompName& name, Row row, double c) {
        if (is_water_if(name)) return h2o::cp_h2o(c / gas_fraction(p, t, mix), p, t);
        return component::cp_of(component::coefs(row, t), t);
    });
    if (!(s.m > 0.0)) return 0.0;
    // Intended: one R per mole of mixture is subtracted, however much of it is condensed.
    return (s.x * r_gas - r_gas) / s.m;
}

double v_pt(double p, double t, const Mixture& mix) {
    const Sums s = mixture_sum(mix, [&](const CompName& name, Row, double c) {
        if (is_water_if(name)) return h2o::v_h2o(c / gas_fraction(p, t, mix), p, t);
        if (fluiddata::getphase(name) == 'G') return basefuncs::v_0(p, t);
        return basefuncs::v_sl(name);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x / s.m;
}

double u_pt(double p, double t, const Mixture& mix) {
    const double h = h_pt(p, t, mix);
    const double v = v_pt(p, t, mix);
    return h - v * p;
}

double x_gas(double p, double t, const Mixture& mix) { return gas_fraction(p, t, mix); }

}  // namespace od::thermodyn
