// States from the input pairs other than (p, T), (T, x) and (p, x).
// Formulation units: p in MPa, T in K, h and u in kJ/kg, s in kJ/(kg K), v in
// m3/kg. Every result agrees with the forward equations (and, for a
// two-phase state, with the lever rule) to about 1e-12 relative; every
// iteration is bounded and falls back to bisection on a bracket.
#pragma once
#include "if97/if97_state.hpp"

namespace if97 {

// Along an isobar: T from (p, h), (p, s), (p, u), (p, v). For (p, v) in the
// liquid below the temperature of maximum density (about 4 degrees Celsius)
// two states share one volume: the warmer one is returned.
StateResult state_ph(double p, double h);
StateResult state_ps(double p, double s);
StateResult state_pu(double p, double u);
StateResult state_pv(double p, double v);

// Along an isotherm: p from (T, h), (T, s), (T, v). Where a compressed
// liquid and a wet mixture share T and h (or s), the compressed liquid is
// returned.
StateResult state_th(double t, double h);
StateResult state_ts(double t, double s);
StateResult state_tv(double t, double v);

// Along an isochore: T from (v, h), (v, s), (v, u).
StateResult state_vh(double v, double h);
StateResult state_vs(double v, double s);
StateResult state_vu(double v, double u);

// From (h, s): p along the isentrope, where h rises with p in every phase.
StateResult state_hs(double h, double s);

}  // namespace if97
