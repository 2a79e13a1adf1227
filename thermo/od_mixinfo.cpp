// Molar mass and temperature limits of a mixture.
#include "thermo/od_mixinfo.hpp"

#include <algorithm>

#include "fluiddata/od_fluiddata.hpp"

namespace od::mixinfo {
namespace {
inline constexpr double no_upper_limit = 1e10;  // K, upper limit of an empty mixture
}

double tmin(const Mixture& mix) {
    double t = 0.0;
    for (const CompName& name : mix.names) t = std::max(t, fluiddata::gettmin(name));
    return t;
}

double tmax(const Mixture& mix) {
    double t = no_upper_limit;
    for (const CompName& name : mix.names) t = std::min(t, fluiddata::gettmax(name));
    return t;
}

double mmol(const Mixture& mix) {
    double m = 0.0;
    // Intended: concentrations are used as given, never normalised.
    for (int i = 0; i < mix.n(); ++i) m += mix.conc[i] * fluiddata::getmmol(mix.names[i]);
    return m;
}

}  // namespace od::mixinfo
