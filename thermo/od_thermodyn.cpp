// Specific properties of an ideal mixture of gas-table components at given
// pressure and temperature, with "H2O(IF)" delegated to the condensing water.
#include "thermo/od_thermodyn.hpp"

#include <cmath>

#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_h2o.hpp"

namespace od::thermodyn {
namespace {

using basefuncs::r_gas;


// Moles of gas phase per mole of mixture: the sum of the gas-phase
// concentrations, reduced when the condensing water exceeds saturation.
double gas_fraction(Context& ctx, double p, double t, const MixtureRows& mix) {
    double g = 0.0;
    for (const Component& c : mix.comps)
        if (c.phase == 'G') g += c.conc;
    for (const Component& c : mix.comps) {
        const double y = c.conc;
        // Intended: only the first present "H2O(IF)" entry sets y, however often it is listed.
        if (!c.water_if || !(y > negligible)) continue;
        const double psat = h2o::core::h2o(ctx.water, 'T', t, 'X', 0.0, "P.");
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

// term(component) gives each component's per-mole value.
template <class Term>
Sums mixture_sum(const MixtureRows& mix, Term term) {
    Sums s;
    for (const Component& c : mix.comps) {
        if (c.conc > negligible) s.x += c.conc * term(c);
        s.m += c.conc * component::mmol(c.row);
    }
    return s;
}

}  // namespace

namespace core {

double h_pt(Context& ctx, double p, double t, const MixtureRows& mix) {
    // The gas fraction is formed afresh at every "H2O(IF)" entry; it is the same each time.
    const Sums s = mixture_sum(mix, [&](const Component& c) {
        if (c.water_if) return h2o::core::h_h2o(ctx.water, mix.water, c.conc / gas_fraction(ctx, p, t, mix), p, t);
        return component::h_of(component::coefs(c.row, t), t);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x * r_gas / s.m;
}

double s_pt(Context& ctx, double p, double t, const MixtureRows& mix) {
    const double g = gas_fraction(ctx, p, t, mix);
    const double log_t = std::log(t);
    const double log_p = std::log(p / basefuncs::p_ref);
    const Sums s = mixture_sum(mix, [&](const Component& c) {
        if (c.water_if) return h2o::core::s_h2o(ctx.water, mix.water, c.conc / g, p, t);
        const double s0 = component::s_of(component::coefs(c.row, t), t, log_t);
        // Condensed species: no pressure term and no mixing term.
        if (c.phase != 'G') return s0;
        // Mixing entropy from the fraction within the gas phase.
        return s0 - log_p - std::log(c.conc / g);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x * r_gas / s.m;
}

double cv_pt(Context& ctx, double p, double t, const MixtureRows& mix) {
    const Sums s = mixture_sum(mix, [&](const Component& c) {
        if (c.water_if) return h2o::core::cp_h2o(ctx.water, mix.water, c.conc / gas_fraction(ctx, p, t, mix), p, t);
        return component::cp_of(component::coefs(c.row, t), t);
    });
    if (!(s.m > 0.0)) return 0.0;
    // Intended: one R per mole of mixture is subtracted, however much of it is condensed.
    return (s.x * r_gas - r_gas) / s.m;
}

double v_pt(Context& ctx, double p, double t, const MixtureRows& mix) {
    const Sums s = mixture_sum(mix, [&](const Component& c) {
        if (c.water_if) return h2o::core::v_h2o(ctx.water, mix.water, c.conc / gas_fraction(ctx, p, t, mix), p, t);
        if (c.phase == 'G') return basefuncs::v_0(p, t);
        return basefuncs::v_sl(c.name, c.row);
    });
    if (!(s.m > 0.0)) return 0.0;
    return s.x / s.m;
}

double u_pt(Context& ctx, double p, double t, const MixtureRows& mix) {
    const double h = h_pt(ctx, p, t, mix);
    const double v = v_pt(ctx, p, t, mix);
    return h - v * p;
}

double x_gas(Context& ctx, double p, double t, const MixtureRows& mix) { return gas_fraction(ctx, p, t, mix); }

GasSums gas_sums(const MixtureRows& mix, double t, double log_t, SumParts parts) {
    GasSums g;
    for (const Component& c : mix.comps) {
        if (!(c.conc > negligible)) continue;
        const component::Coefs& a = component::coefs(c.row, t);
        if (parts.h) g.h += c.conc * component::h_of(a, t);
        if (parts.s) g.s += c.conc * component::s_of(a, t, log_t);
        if (parts.cp) g.cp += c.conc * component::cp_of(a, t);
    }
    return g;
}

}  // namespace core

double h_pt(double p, double t, const Mixture& mix) { return core::h_pt(default_context(), p, t, StoredRows(mix)); }
double s_pt(double p, double t, const Mixture& mix) { return core::s_pt(default_context(), p, t, StoredRows(mix)); }
double cv_pt(double p, double t, const Mixture& mix) { return core::cv_pt(default_context(), p, t, StoredRows(mix)); }
double v_pt(double p, double t, const Mixture& mix) { return core::v_pt(default_context(), p, t, StoredRows(mix)); }
double u_pt(double p, double t, const Mixture& mix) { return core::u_pt(default_context(), p, t, StoredRows(mix)); }
double x_gas(double p, double t, const Mixture& mix) { return core::x_gas(default_context(), p, t, StoredRows(mix)); }

}  // namespace od::thermodyn
