// Inverse routines of the water-and-steam package (IFC-67): the state and its
// region number IREG from a pair of input values. Units: bar, degrees Celsius,
// m3/kg, kJ/kg, kJ/(kg K); the dryness fraction X is the vapour mass fraction.
//
// Contract of every pwsr* routine, called as pwsrXY(a, b, eps):
// - on entry a and b hold the two input values in the order of the name
//   (pwsrph: pressure, enthalpy); eps is the relative tolerance;
// - the result is IREG, and a and b hold the state:
//     IREG 1  sub-region 1 (liquid up to 350 C)        a = pressure, b = temperature
//     IREG 2  region 2 (vapour)                        a = pressure, b = temperature
//     IREG 3  region 3, vapour side                    a = volume,   b = temperature
//     IREG 4  region 3, liquid side (350 to 374.15 C)  a = volume,   b = temperature
//     IREG 5  wet, saturation temperature above 350 C  a = dryness,  b = temperature
//     IREG 6  wet, up to 350 C                         a = dryness,  b = temperature
// - any other result means the state could not be placed (the entry routine
//   reports it as an illegal region); a and b are then left as they were
//   unless the routine says otherwise. A NaN or infinite input value is such a
//   state (result 0), except for pwsrpt and pwsrtx, which place any values by
//   their comparisons.
// pwsrpt places a state as it is given (the common terms report one out of
// range). The other routines report an input outside the range of the
// formulation through pwser and go on with the nearest state inside it:
// codes 13 (P, H) pwsrph, 15 (P, S) pwsrps, 1 (P) pwsrpu, 14 (P, V) pwsrpv
// and the outer routines of the isochore, 24 (T, V) pwsrtv, 23 (T, H) pwsrth,
// 2 (T) pwsrtu, 25 (T, S) pwsrts, 35 (H, S) pwsrhs.
#pragma once
#include <cstdint>

#include "pwsftn/pws_context_fwd.hpp"
#include "pwsftn/pws_function_ref.hpp"

namespace pws {

// Region numbers IREG (see above); pwsrtx refuses a wet state above the
// critical temperature with 7, and 0 is a state not placed.
inline constexpr std::int32_t ireg_liquid = 1;
inline constexpr std::int32_t ireg_vapour = 2;
inline constexpr std::int32_t ireg_r3_vapour = 3;
inline constexpr std::int32_t ireg_r3_liquid = 4;
inline constexpr std::int32_t ireg_wet_r3 = 5;
inline constexpr std::int32_t ireg_wet = 6;
inline constexpr std::int32_t ireg_above_critical = 7;
inline constexpr std::int32_t ireg_not_placed = 0;

// An inverse routine handed to the entry routine and called with its
// context: a pwsr* routine below, or any callable of that form (a host's
// routine). IREG from (a, b, eps), with a and b overwritten.
using Inverse = FunctionRef<std::int32_t(Context& ctx, double& a, double& b, double eps)>;

// Tolerance the entry routine hands to the inverse routines, and the one used
// for the saturated region-3 volumes.
inline constexpr double entry_eps = 1.0E-8;

// Pressure and temperature: the region selection of the package. A state on the
// saturation line (relative distance below eps) returns 6 (up to 350 C) or 5
// with the pressure left in a.
std::int32_t pwsrpt(Context& ctx, double& a, double& b, double eps);
// Pressure with enthalpy, entropy, internal energy or volume: temperature along
// the isobar; dryness fraction from the saturated values.
std::int32_t pwsrph(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrps(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrpu(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrpv(Context& ctx, double& a, double& b, double eps);
// Pressure and dryness fraction: the wet state at the saturation temperature.
std::int32_t pwsrpx(Context& ctx, double& a, double& b, double eps);
// Temperature with volume, enthalpy, internal energy or entropy: pressure (or
// region-3 volume) along the isotherm. pwsrth and pwsrtu return 0 with a line
// on the error channel when no state of the isotherm has the value.
std::int32_t pwsrtv(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrth(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrtu(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrts(Context& ctx, double& a, double& b, double eps);
// Temperature and dryness fraction: 6 up to 350 C, 5 up to 374.15 C, 7 above
// (a and b unchanged). eps is not used.
std::int32_t pwsrtx(Context& ctx, double& a, double& b, double eps);
// Entropy and dryness fraction: the saturation temperature whose mixed entropy
// is the given one; 0 with a line on the error channel when there is none.
std::int32_t pwsrsx(Context& ctx, double& a, double& b, double eps);
// Enthalpy or internal energy with entropy: temperature along the isentrope.
std::int32_t pwsrhs(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrus(Context& ctx, double& a, double& b, double eps);
// Volume with enthalpy, entropy or internal energy: pressure along the isochore.
std::int32_t pwsrvh(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrvs(Context& ctx, double& a, double& b, double eps);
std::int32_t pwsrvu(Context& ctx, double& a, double& b, double eps);

// Auxiliary routines of the outer iterations: one property of the state found
// by an inner inverse routine, as a function of the varied quantity (first
// argument) at a fixed second quantity; eps is handed to the inner routine.
// pws_hp, pws_sp, pws_up: enthalpy (kJ/kg), entropy (kJ/(kg K)) and internal
// energy (kJ/kg) of the state (p, v) by pwsrpv; pws_ht, pws_ut: enthalpy and
// internal energy of the state (t, s) by pwsrts.
double pws_hp(Context& ctx, double p, double v, double eps);
double pws_sp(Context& ctx, double p, double v, double eps);
double pws_up(Context& ctx, double p, double v, double eps);
double pws_ht(Context& ctx, double t, double s, double eps);
double pws_ut(Context& ctx, double t, double s, double eps);

// Saturated liquid and vapour volumes (m3/kg) of region 3 at t (C) and the
// saturation pressure ps (bar): the two region-3 roots of p(v, t) = ps, found
// by pws_i2 from the starting pairs (min(6.0E-5 t - 0.01899, 0.00317),
// 0.00174) and (max(0.08611 - 0.000222 t, 0.00317), 0.008799105448). Above
// about 373.1 C the vapour volume is the middle root that pair leads to.
struct SaturatedVolumes {
    double liquid;
    double vapour;
};
SaturatedVolumes saturated_volumes3(Context& ctx, double ps, double t);

// Pressure (bar) of the region-2/3 boundary that the region selection uses at
// t (C) (its own coefficients, see pwsrpt).
double selection_boundary_pressure(double t);

// ---------------------------------------------------------------------------
// The legacy routines: the same over the default context.

// An inverse routine of the legacy form: IREG from (a, b, eps) on the default context.
using InverseFn = std::int32_t (*)(double& a, double& b, double eps);

inline std::int32_t pwsrpt(double& a, double& b, double eps) { return pwsrpt(default_context(), a, b, eps); }
inline std::int32_t pwsrph(double& a, double& b, double eps) { return pwsrph(default_context(), a, b, eps); }
inline std::int32_t pwsrps(double& a, double& b, double eps) { return pwsrps(default_context(), a, b, eps); }
inline std::int32_t pwsrpu(double& a, double& b, double eps) { return pwsrpu(default_context(), a, b, eps); }
inline std::int32_t pwsrpv(double& a, double& b, double eps) { return pwsrpv(default_context(), a, b, eps); }
inline std::int32_t pwsrpx(double& a, double& b, double eps) { return pwsrpx(default_context(), a, b, eps); }
inline std::int32_t pwsrtv(double& a, double& b, double eps) { return pwsrtv(default_context(), a, b, eps); }
inline std::int32_t pwsrth(double& a, double& b, double eps) { return pwsrth(default_context(), a, b, eps); }
inline std::int32_t pwsrtu(double& a, double& b, double eps) { return pwsrtu(default_context(), a, b, eps); }
inline std::int32_t pwsrts(double& a, double& b, double eps) { return pwsrts(default_context(), a, b, eps); }
inline std::int32_t pwsrtx(double& a, double& b, double eps) { return pwsrtx(default_context(), a, b, eps); }
inline std::int32_t pwsrsx(double& a, double& b, double eps) { return pwsrsx(default_context(), a, b, eps); }
inline std::int32_t pwsrhs(double& a, double& b, double eps) { return pwsrhs(default_context(), a, b, eps); }
inline std::int32_t pwsrus(double& a, double& b, double eps) { return pwsrus(default_context(), a, b, eps); }
inline std::int32_t pwsrvh(double& a, double& b, double eps) { return pwsrvh(default_context(), a, b, eps); }
inline std::int32_t pwsrvs(double& a, double& b, double eps) { return pwsrvs(default_context(), a, b, eps); }
inline std::int32_t pwsrvu(double& a, double& b, double eps) { return pwsrvu(default_context(), a, b, eps); }

inline double pws_hp(double p, double v, double eps) { return pws_hp(default_context(), p, v, eps); }
inline double pws_sp(double p, double v, double eps) { return pws_sp(default_context(), p, v, eps); }
inline double pws_up(double p, double v, double eps) { return pws_up(default_context(), p, v, eps); }
inline double pws_ht(double t, double s, double eps) { return pws_ht(default_context(), t, s, eps); }
inline double pws_ut(double t, double s, double eps) { return pws_ut(default_context(), t, s, eps); }
inline SaturatedVolumes saturated_volumes3(double ps, double t) {
    return saturated_volumes3(default_context(), ps, t);
}

}  // namespace pws
