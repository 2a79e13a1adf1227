// Transport properties and surface tension of water for use with IF97:
// viscosity (IAPWS 2008, industrial use: no critical enhancement), thermal
// conductivity (IAPWS 2011, industrial formulation with its simplified
// critical enhancement) and surface tension (IAPWS 2014). Inputs in the
// formulation units (kg/m3, K); results in SI units.
#pragma once
#include "if97/if97_forward.hpp"

namespace if97 {

// Dynamic viscosity from density and temperature, Pa s.
double viscosity(double rho, double t);

// Thermal conductivity without the critical enhancement (lambda0·lambda1),
// from density and temperature, W/(m K).
double conductivity_background(double rho, double t);

// Thermal conductivity of one phase with the industrial critical
// enhancement, from its IF97 properties (rho, T, cp, cv, kappa), W/(m K).
double thermal_conductivity(const Properties& st);

// Surface tension from temperature, N/m; NaN outside the triple point to
// the critical temperature.
double surface_tension(double t);

}  // namespace if97
