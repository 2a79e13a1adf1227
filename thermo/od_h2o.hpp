// Condensing water "H2O(IF)": per-mole contributions in the conventions of the
// component functions, with IAPWS-IF97 values brought onto the gas-table reference.
#pragma once
#include <string>
#include <string_view>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"
#include "if97_adapter/if97_qv.hpp"

namespace od::h2o {

// The mixture component whose terms this module gives.
inline const CompName water_if = CompName::from("H2O(IF)");

// Saved values of one property function.
struct Saved {
    bool first = true;   // reference correction not yet computed
    double r_h2o = 0.0;  // J/(kg K)
    double corr = 0.0;   // reference correction, per-mole units
    double p_sat = 0.0;
    double p_h2o = 0.0;
    double vap = 0.0;    // vapour value of the last call with vapour
};

// Everything the functions below change: their saved values, the gateway's
// last request and the adapter's buffers. One per calling thread.
struct State {
    Saved h, s, cp;
    std::string errmsg;        // Intended: the adapter's last message is kept but read by nobody.
    double calcval = 0.0;      // last result of the gateway
    char inputspec[2] = {' ', ' '};
    if97_qv::State adapter;
    // Ask the IF97 library's functions directly instead of through the
    // adapter's text interface: the same states, the values equal to the
    // last bits of the unit conversions, several times faster. The exported
    // routines keep the adapter.
    bool direct = false;
};

// The gas-table rows of "H2O" and "H2O(L)" whose terms carry the water
// beyond the range of IF97; nullptr where the getters answer -8888.8.
struct WaterRows {
    const fluiddata::TableRow* gas = nullptr;
    const fluiddata::TableRow* liquid = nullptr;
};

// The same functions on an explicit state and explicit water rows.
namespace core {
double h2o(State& st, char code1, double value1, char code2, double value2, std::string_view property);
double h_h2o(State& st, const WaterRows& rows, double xw, double p, double t);
double s_h2o(State& st, const WaterRows& rows, double xw, double p, double t);
double cp_h2o(State& st, const WaterRows& rows, double xw, double p, double t);
double v_h2o(State& st, const WaterRows& rows, double xw, double p, double t);
}  // namespace core

// The state of the exported routines (the process-wide default).
State& default_state();
// The water rows as the getters find them through the stored composition.
WaterRows stored_water_rows();

// --- the functions below run on the default state and the stored rows ---

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
