// Viscosity and thermal conductivity from kinetic theory with Lennard-Jones data.
#pragma once
#include "fluiddata/od_types.hpp"
#include "thermo/od_context.hpp"
#include "thermo/od_mixture.hpp"

namespace od::transport {

double viscosity(double t, const CompName& name);                 // Pa s, one component
double thermcond(double p, double t, const CompName& name);       // W/(m K), one component
double eta_t(double t, const Mixture& mix);                       // Pa s, mixture
double lambda_pt(double p, double t, const Mixture& mix);         // W/(m K), mixture

// The mixture values of resolved rows, on an explicit context.
namespace core {
double eta_t(double t, const MixtureRows& mix);                              // Pa s
double lambda_pt(Context& ctx, double p, double t, const MixtureRows& mix);  // W/(m K)
}  // namespace core

// Test hook: kept for the tests' set-up; the conductivity functions keep no state.
void reset_for_tests();

}  // namespace od::transport
