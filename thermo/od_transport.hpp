// Viscosity and thermal conductivity from kinetic theory with Lennard-Jones data.
#pragma once
#include <vector>

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
// Wilke's rule needs, for each pair (i, j) of components, the fourth root of
// a mass ratio (Mj/Mi for the viscosity, Mi/Mj for the conductivity) and
// sqrt(8 (1 + Mi/Mj)); a mixture built once can compute them once.
struct PairTerms {
    double root;
    double denom;
};
struct WilkeFactors {
    std::vector<PairTerms> viscosity, conductivity;  // n x n, row i, column j
};
WilkeFactors wilke_factors(const MixtureRows& mix);

// w: the mixture's factors, or nullptr to form them on the way (the same bits).
double eta_t(double t, const MixtureRows& mix, const WilkeFactors* w = nullptr);                              // Pa s
double lambda_pt(Context& ctx, double p, double t, const MixtureRows& mix, const WilkeFactors* w = nullptr);  // W/(m K)
}  // namespace core

// Test hook: kept for the tests' set-up; the conductivity functions keep no state.
void reset_for_tests();

}  // namespace od::transport
