// Condensing water "H2O(IF)": per-mole contributions in the conventions of the
// component functions, with IAPWS-IF97 values brought onto the gas-table reference.
#pragma once
#include <string_view>

#include "fluiddata/od_types.hpp"

namespace od::h2o {

// The mixture component whose terms this module gives.
inline const CompName water_if = CompName::from("H2O(IF)");

// Gateway to the IF97 adapter in SI units: spec letters as the adapter's,
// value1/value2 in Pa or K (converted to bar / degrees Celsius), result in
// Pa, K, J/kg, J/(kg K) or m3/kg; -8888.8 where no value exists.
double h2o(char code1, double value1, char code2, double value2, std::string_view property);

// The four property functions split the water into a condensed part f and
// a vapour part 1 - f. h, s and cp keep the vapour value of their last call
// with vapour and use it, weighted by zero, when all the water is condensed;
// a zero weight always gives a zero term, so a saved value that is not
// finite (from an absurd earlier request) never reaches a later result.
double h_h2o(double xw, double p, double t);    // h/R, K
double s_h2o(double xw, double p, double t);    // s/R
double cp_h2o(double xw, double p, double t);   // cp/R
double v_h2o(double xw, double p, double t);    // molar volume, m3/mol

// Test hook: forgets the saved values and the first-call reference corrections.
void reset_for_tests();

}  // namespace od::h2o
