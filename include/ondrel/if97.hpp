// Water and steam by IAPWS-IF97 in SI units: states from every input pair
// the library solves, single properties from (p, T), transport properties
// and surface tension.
//
// Units: p in Pa, T in K, v in m3/kg, rho in kg/m3, h and u in J/kg, s, cp
// and cv in J/(kg K), w in m/s, viscosity in Pa s, thermal conductivity in
// W/(m K), surface tension in N/m.
//
// The library keeps no state between calls: every function may be called
// from any number of threads at once. The states come from the same solvers
// as the legacy entry point (if97_main) in its units.
#pragma once
#include "ondrel/export.h"
#include "ondrel/status.hpp"

namespace ondrel::if97 {

// A state of water or steam: one phase (regions 1, 2, 3, 5) or a wet
// mixture (region 4, 0 < x < 1). In a wet state v, rho, h, u and s are the
// mixed values and cp, cv, w, alpha and kappa are undefined (NaN). A
// saturated state asked for with x = 0 or x = 1 is the saturated phase
// itself (region 1, 2 or 3) with all its properties.
struct State {
    double p = 0.0;      // pressure, Pa
    double T = 0.0;      // temperature, K
    double v = 0.0;      // specific volume, m3/kg
    double rho = 0.0;    // density, kg/m3
    double h = 0.0;      // specific enthalpy, J/kg
    double s = 0.0;      // specific entropy, J/(kg K)
    double u = 0.0;      // specific internal energy, J/kg
    double cp = 0.0;     // isobaric heat capacity, J/(kg K)
    double cv = 0.0;     // isochoric heat capacity, J/(kg K)
    double w = 0.0;      // speed of sound, m/s
    double alpha = 0.0;  // isobaric expansion coefficient, 1/K
    double kappa = 0.0;  // isothermal compressibility, 1/Pa
    // Vapour quality: the mass fraction of vapour in a wet state; in one
    // phase 0 when liquid-like (region 1, region 3 denser than the critical
    // density) and 1 otherwise.
    double x = 0.0;
    int region = 0;  // IF97 region: 1, 2, 3, 4 (wet) or 5
};

// States from an input pair. Failures: invalid_input (NaN or infinite),
// non_positive_input (a pressure or volume at or below zero),
// outside_data_range (outside 273.15 K to 1073.15 K up to 100 MPa and
// 1073.15 K to 2273.15 K up to 50 MPa, a quality outside 0 to 1, or a
// saturation input off the saturation line), not_converged.
//
// From (p, T). A state exactly on the saturation line is the liquid.
ONDREL_API Result<State> from_pT(double p, double T);
// Along an isobar: from (p, h), (p, s), (p, u), (p, v). For (p, v) in the
// liquid below the temperature of maximum density two states share one
// volume: the warmer one is returned.
ONDREL_API Result<State> from_ph(double p, double h);
ONDREL_API Result<State> from_ps(double p, double s);
ONDREL_API Result<State> from_pu(double p, double u);
ONDREL_API Result<State> from_pv(double p, double v);
// Along an isotherm: from (T, h), (T, s), (T, v). Where a compressed liquid
// and a wet mixture share T and h (or s), the compressed liquid is returned.
ONDREL_API Result<State> from_Th(double T, double h);
ONDREL_API Result<State> from_Ts(double T, double s);
ONDREL_API Result<State> from_Tv(double T, double v);
// Along an isochore: from (v, h), (v, s), (v, u).
ONDREL_API Result<State> from_vh(double v, double h);
ONDREL_API Result<State> from_vs(double v, double s);
ONDREL_API Result<State> from_vu(double v, double u);
// From (h, s).
ONDREL_API Result<State> from_hs(double h, double s);
// On the saturation line, vapour quality x from 0 to 1: from (T, x), T from
// 273.15 K to the critical 647.096 K, and from (p, x), p from 611.213 Pa to
// the critical 22.064 MPa.
ONDREL_API Result<State> from_Tx(double T, double x);
ONDREL_API Result<State> from_px(double p, double x);

// Single properties from (p, T), each the value from_pT gives, bit for
// bit, at a fraction of its cost: only the derivatives of the Gibbs energy
// the property needs are evaluated (in region 3 the density iteration
// dominates and the full state is taken). Failures as for from_pT.
ONDREL_API Result<double> v_pT(double p, double T);   // m3/kg
ONDREL_API Result<double> h_pT(double p, double T);   // J/kg
ONDREL_API Result<double> u_pT(double p, double T);   // J/kg
ONDREL_API Result<double> s_pT(double p, double T);   // J/(kg K)
ONDREL_API Result<double> cp_pT(double p, double T);  // J/(kg K)

// Dynamic viscosity of a state (IAPWS 2008, industrial use), Pa s, and
// thermal conductivity (IAPWS 2011, industrial formulation), W/(m K).
// Failures: not_available for a wet state (region 4); invalid_input when a
// property the correlation reads is NaN or infinite; non_positive_input for
// a density at or below zero; outside_data_range for a temperature outside
// 273.15 K to 2273.15 K.
ONDREL_API Result<double> viscosity(const State& state);
ONDREL_API Result<double> conductivity(const State& state);

// Surface tension on the saturation line (IAPWS 2014), N/m, from 273.15 K
// to the critical temperature, where it falls to zero. Failures:
// invalid_input (NaN or infinite), outside_data_range (outside that range).
ONDREL_API Result<double> surface_tension(double T);

}  // namespace ondrel::if97
