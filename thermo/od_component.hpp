// Internal to the thermo modules: the gas-table row of a mixture component,
// looked up once per evaluation, and the NASA polynomials evaluated from a
// coefficient set. The getters of od_fluiddata give the same values; this
// only saves repeated lookups of the same name within one call.
#pragma once
#include <array>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"

namespace od::component {

using Coefs = std::array<double, 7>;

inline constexpr double range_split = 1000.0;  // K: range 1 above, range 2 at and below

// Coefficients of every component without a table row: the getters' marker.
inline constexpr Coefs missing_coefs{missing_value, missing_value, missing_value, missing_value,
                                     missing_value, missing_value, missing_value};

// The table row the getters read for this name, or nullptr where they answer
// with the missing-value marker.
inline const fluiddata::TableRow* row_of(const CompName& name) {
    const int r = fluiddata::getstoredidx(name);
    if (r < 1 || r > max_components) return nullptr;
    return &fluiddata::table_row(r);
}

// The coefficient set valid at t, chosen as getcoef chooses it.
inline const Coefs& coefs(const fluiddata::TableRow* row, double t) {
    if (row == nullptr) return missing_coefs;
    int range = t > range_split ? 0 : 1;
    if (row->coef[range][0] == 0.0) range = 1 - range;
    return row->coef[range];
}

inline double mmol(const fluiddata::TableRow* row) { return row ? row->mmol : missing_value; }

// cp/R
inline double cp_of(const Coefs& a, double t) { return a[0] + t * (a[1] + t * (a[2] + t * (a[3] + t * a[4]))); }

// H/R in K: H/(RT) times T, so a6 is added unscaled.
inline double h_of(const Coefs& a, double t) {
    return t * (a[0] + t * (a[1] / 2.0 + t * (a[2] / 3.0 + t * (a[3] / 4.0 + t * (a[4] / 5.0))))) + a[5];
}

// S/R at the reference pressure; log_t is ln(t), formed once per mixture evaluation.
inline double s_of(const Coefs& a, double t, double log_t) {
    return a[0] * log_t + t * (a[1] + t * (a[2] / 2.0 + t * (a[3] / 3.0 + t * (a[4] / 4.0)))) + a[6];
}

// d(cp/R)/dT
inline double dcp_of(const Coefs& a, double t) { return a[1] + t * (2.0 * a[2] + t * (3.0 * a[3] + t * (4.0 * a[4]))); }

}  // namespace od::component
