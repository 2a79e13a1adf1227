// State-independent properties of a mixture.
#pragma once
#include "fluiddata/od_types.hpp"
#include "thermo/od_mixture.hpp"

namespace od::mixinfo {

double tmin(const MixtureRows& mix);   // highest lower temperature limit of the components, K (0.0 if empty)
double tmax(const MixtureRows& mix);   // lowest upper temperature limit, K (1e10 if empty)
double mmol(const MixtureRows& mix);   // sum of conc * molar mass, kg/mol (0.0 if empty)

// The same, the rows found through the stored composition.
double tmin(const Mixture& mix);
double tmax(const Mixture& mix);
double mmol(const Mixture& mix);

}  // namespace od::mixinfo
