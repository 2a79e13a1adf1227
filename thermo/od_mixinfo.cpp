// Molar mass and temperature limits of a mixture.
#include "thermo/od_mixinfo.hpp"

#include <algorithm>

#include "thermo/od_component.hpp"

namespace od::mixinfo {
namespace {
inline constexpr double no_upper_limit = 1e10;  // K, upper limit of an empty mixture

// A column of a component's row; the getters' marker where it has none.
double column(const Component& c, double fluiddata::TableRow::*field) { return c.row ? c.row->*field : missing_value; }
}  // namespace

double tmin(const MixtureRows& mix) {
    double t = 0.0;
    for (const Component& c : mix.comps) t = std::max(t, column(c, &fluiddata::TableRow::tmin));
    return t;
}

double tmax(const MixtureRows& mix) {
    double t = no_upper_limit;
    for (const Component& c : mix.comps) t = std::min(t, column(c, &fluiddata::TableRow::tmax));
    return t;
}

double mmol(const MixtureRows& mix) {
    double m = 0.0;
    // Intended: concentrations are used as given, never normalised.
    for (const Component& c : mix.comps) m += c.conc * component::mmol(c.row);
    return m;
}

double tmin(const Mixture& mix) { return tmin(StoredRows(mix)); }
double tmax(const Mixture& mix) { return tmax(StoredRows(mix)); }
double mmol(const Mixture& mix) { return mmol(StoredRows(mix)); }

}  // namespace od::mixinfo
