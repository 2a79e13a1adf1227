// Pure-component functions of the NASA 7-coefficient polynomials (divided by
// the gas constant), molar volumes, and the missing-value tests.
#pragma once
#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"

namespace od::basefuncs {

// Intended: the shortened gas constant; the whole mixture model is consistent with it.
inline constexpr double r_gas = 8.3143;       // J/(mol K)
inline constexpr double p_ref = 101325.0;     // Pa, reference pressure of entropies

double cp_0(const CompName& name, double t);             // cp/R
double h_0(const CompName& name, double t);              // H/R, K
double s_0(const CompName& name, double p, double t);    // S/R (pressure term for gases only)
double dcv_dt_0(const CompName& name, double t);         // d(cp/R)/dT, 1/K
double v_0(double p, double t);                          // ideal-gas molar volume, m3/mol
double v_sl(const CompName& name);                       // condensed molar volume, m3/mol
double v_sl(const CompName& name, const fluiddata::TableRow* row);  // the same with its row found beforehand
bool isinit(double x);
// The same of a table row found beforehand (nullptr: no row, the getters'
// marker values); phase is the component's, 'G' for a gas.
double cp_0(const fluiddata::TableRow* row, double t);
double h_0(const fluiddata::TableRow* row, double t);
double s_0(const fluiddata::TableRow* row, char phase, double p, double t);                                   // x is the missing-value marker
bool isnotinit(double x);                                // x is not the marker (true for NaN)

}  // namespace od::basefuncs
