// Mixture state at given pressure (Pa) and temperature (K); results per unit mass.
#pragma once
#include "fluiddata/od_types.hpp"
#include "thermo/od_context.hpp"
#include "thermo/od_mixture.hpp"

namespace od::thermodyn {

inline constexpr double negligible = 1e-10;  // concentrations at or below are left out of the sums

// The state functions on an explicit context and resolved rows (in their own
// namespace so that the names below stay unambiguous as function values).
namespace core {
double h_pt(Context& ctx, double p, double t, const MixtureRows& mix);    // specific enthalpy, J/kg
double s_pt(Context& ctx, double p, double t, const MixtureRows& mix);    // specific entropy, J/(kg K)
double cv_pt(Context& ctx, double p, double t, const MixtureRows& mix);   // isochoric heat capacity, J/(kg K)
double v_pt(Context& ctx, double p, double t, const MixtureRows& mix);    // specific volume, m3/kg
double u_pt(Context& ctx, double p, double t, const MixtureRows& mix);    // internal energy, J/kg
double x_gas(Context& ctx, double p, double t, const MixtureRows& mix);   // moles of gas phase per mole of mixture

// A mixture without condensing water in one pass at temperature t: the
// per-mole sums divided by R (mole-fraction weighted, concentrations at or
// below 1e-10 skipped, as the functions above sum them) of the enthalpy
// h/R, the entropy s/R at the reference pressure before the pressure and
// mixing terms, and cp/R. h_pt is h * R / M and cv_pt (cp * R - R) / M.
struct GasSums {
    double h = 0.0;
    double s = 0.0;
    double cp = 0.0;
};
// Which sums to form; those left out stay 0 and save their polynomial.
struct SumParts {
    bool h = true, s = true, cp = true;
};
GasSums gas_sums(const MixtureRows& mix, double t, double log_t, SumParts parts = {});
}  // namespace core

// The same on the default context, the rows found through the stored composition.
double h_pt(double p, double t, const Mixture& mix);
double s_pt(double p, double t, const Mixture& mix);
double cv_pt(double p, double t, const Mixture& mix);
double v_pt(double p, double t, const Mixture& mix);
double u_pt(double p, double t, const Mixture& mix);
double x_gas(double p, double t, const Mixture& mix);

}  // namespace od::thermodyn
