// Internal to the water-and-steam package: shared pieces of the region modules.
#pragma once
#include <cstdint>
#include <string_view>

#include "pwsftn/pws_saturation.hpp"

namespace pws::detail {

// Relative widening of the region bounds in the common-term checks.
inline constexpr double bound_low_factor = 0.99999;
inline constexpr double bound_high_factor = 1.00001;
// Value of the kept state before the first call (no real state has it).
inline constexpr double no_state = -999.0;

// Bound check of a common-term routine: the reporting name and code, whether
// the first quantity is a volume (else a pressure), and the ranges of the
// first and second quantity.
struct StateCheck {
    std::string_view name;
    std::int32_t code;
    bool volume;
    double a_low, a_high, b_low, b_high;
};

// The first steps of comt1, comt2, comt3: false when (a, b) equals the kept
// pair (bitwise, neither NaN); otherwise keeps the pair, writes it into the
// context's current-state record and reports each quantity outside its range
// widened by the bound factors, and returns true (the terms are to be
// evaluated).
bool enter_state(Context& ctx, const StateCheck& check, double a, double b, double& a_prev,
                 double& b_prev);

// Reduced state and properties of a state of sub-region 1 or region 2, both
// given by a characteristic Gibbs equation.
struct GibbsTerms {
    double theta = 0.0, beta = 0.0;  // T / Tc, p / pc
    double chi = 0.0;                // v / vc
    double eps = 0.0;                // h / (pc vc)
    double sigma = 0.0;              // s / (pc vc / Tc)
    double zeta_tt = 0.0;            // second theta derivative of g / (pc vc)
};
// Their properties: m3/kg, kJ/kg, kJ/(kg K); u = h - p v, cp = -T d2g/dT2.
inline double volume(const GibbsTerms& r) { return r.chi * crit_v; }
inline double enthalpy(const GibbsTerms& r) { return r.eps * energy_scale; }
inline double entropy(const GibbsTerms& r) { return r.sigma * entropy_scale; }
inline double internal_energy(const GibbsTerms& r) { return (r.eps - r.beta * r.chi) * energy_scale; }
inline double heat_capacity(const GibbsTerms& r) { return -r.theta * r.zeta_tt * entropy_scale; }

// Reduced Helmholtz function psi = f / (pc vc) of a region-3 state and its
// derivatives with respect to theta (t) and chi (c).
struct Terms3 {
    double theta = 0.0, chi = 0.0;
    double psi = 0.0, psi_t = 0.0, psi_c = 0.0, psi_tt = 0.0, psi_tc = 0.0, psi_cc = 0.0;
};

}  // namespace pws::detail
