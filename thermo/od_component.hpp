// Internal to the thermo modules: the coefficient set of a component whose
// gas-table row was looked up once per evaluation, and the NASA polynomials
// evaluated from it. The getters of od_fluiddata give the same values; this
// only saves repeated lookups of the same name within one call.
#pragma once
#include <array>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"

namespace od::component {

using Coefs = std::array<double, 7>;

// Coefficients of every component without a table row: the getters' marker.
inline constexpr Coefs missing_coefs{missing_value, missing_value, missing_value, missing_value,
                                     missing_value, missing_value, missing_value};

// The coefficient set valid at t of a row from fluiddata::stored_table_row.
inline const Coefs& coefs(const fluiddata::TableRow* row, double t) {
    return row ? fluiddata::coef_at(*row, t) : missing_coefs;
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
