// Pressure derivatives of the ideal-gas mixture and d(cv)/dT.
#pragma once
#include "fluiddata/od_types.hpp"
#include "thermo/od_mixture.hpp"

namespace od::derivative {

double dp_dt(double p, double t);                               // (dp/dT)_v, Pa/K
double dp_dv(double p, double t, const MixtureRows& mix);       // (dp/dv)_T, Pa kg/m3
double d2p_dt2();                                               // 0.0 for an ideal gas
double d2p_dv2(double p, double t, const MixtureRows& mix);     // (d2p/dv2)_T
double d2p_dtdv(double p, double t, const MixtureRows& mix);    // d2p/dTdv
double dcv_dt(double t, const MixtureRows& mix);                // (dcv/dT), J/(kg K2)

// The same, the rows found through the stored composition.
double dp_dv(double p, double t, const Mixture& mix);
double d2p_dv2(double p, double t, const Mixture& mix);
double d2p_dtdv(double p, double t, const Mixture& mix);
double dcv_dt(double t, const Mixture& mix);

}  // namespace od::derivative
