// Viscosity and thermal conductivity from kinetic theory with Lennard-Jones data.
#pragma once
#include "fluiddata/od_types.hpp"

namespace od::transport {

double viscosity(double t, const CompName& name);                 // Pa s, one component
double thermcond(double p, double t, const CompName& name);       // W/(m K), one component
double eta_t(double t, const Mixture& mix);                       // Pa s, mixture
double lambda_pt(double p, double t, const Mixture& mix);         // W/(m K), mixture

// Test hook: forgets the component saved by the conductivity functions.
void reset_for_tests();

}  // namespace od::transport
