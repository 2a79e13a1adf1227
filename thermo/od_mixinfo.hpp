// State-independent properties of a mixture.
#pragma once
#include "fluiddata/od_types.hpp"

namespace od::mixinfo {

double tmin(const Mixture& mix);   // highest lower temperature limit of the components, K (0.0 if empty)
double tmax(const Mixture& mix);   // lowest upper temperature limit, K (1e10 if empty)
double mmol(const Mixture& mix);   // sum of conc * molar mass, kg/mol (0.0 if empty)

}  // namespace od::mixinfo
