// Mixture state at given pressure (Pa) and temperature (K); results per unit mass.
#pragma once
#include "fluiddata/od_types.hpp"

namespace od::thermodyn {

double h_pt(double p, double t, const Mixture& mix);    // specific enthalpy, J/kg
double s_pt(double p, double t, const Mixture& mix);    // specific entropy, J/(kg K)
double cv_pt(double p, double t, const Mixture& mix);   // isochoric heat capacity, J/(kg K)
double v_pt(double p, double t, const Mixture& mix);    // specific volume, m3/kg
double u_pt(double p, double t, const Mixture& mix);    // internal energy, J/kg
double x_gas(double p, double t, const Mixture& mix);   // moles of gas phase per mole of mixture

}  // namespace od::thermodyn
