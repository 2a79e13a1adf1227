// Module ondrel (file named ondrel_core so that it does not shadow the public
// C++ API include/ondrel/ondrel.hpp on the include path).
// Entry points of the ideal-gas mixture model: one property or all sixteen
// at a state given by a two-letter input pair, mixture information, the gas
// table's component set and the version.
//
// Interface units: bar, degrees Celsius, m3/kg, kg/m3, kJ/kg, kJ/(kg K);
// molar mass in kg/mol; derivatives and transport properties in SI units.
// A mixture is ncomp names with ncomp concentrations (mole fractions, used as
// given); ncomp outside 0..250, or lists shorter than ncomp, fail with code 1.
//
// The calls keep the last mixture's names and the last solved state. When
// the gas table is loaded anew (readgasfile, readgasdb), both are forgotten:
// the next request checks its names against the new table and is solved.
//
// Bad input: a NaN or infinite input value of a pair that has to be solved
// (every pair but "PT", "TP" and, without "H2O(IF)", "Pv", "Pd", "Tv",
// "Td") gives code 5; a search that met a NaN never ends as a success (code
// 5 or 4; see solver::solve_pair); the solved variable is then -8888.8. A
// pair that is only converted passes a NaN through to the results, code 0.
#pragma once
#include <array>
#include <span>
#include <string_view>

#include "fluiddata/od_types.hpp"

namespace od::ondrel {

// Error codes (0 none); 2, 4, 5 and 7 come from the solver.
inline constexpr int err_none = 0;
inline constexpr int err_unknown_component = 1;
inline constexpr int err_unknown_property = 3;
inline constexpr int err_unknown_info = 6;

// The sixteen properties of od_allprops, in their order.
struct AllProps {
    double P, T, v, d, h, s, u, cv;
    double dP_dT, dP_dv, d2P_dT2, d2P_dv2, d2P_dTdv, dCv_dT, eta, lambda;
};

// One property ("P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv",
// "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda") at the state
// given by inputspec ("PT", "Ph", "Ts", "vu", ...) and input1, input2.
// errcode: 0, or 1 (unknown component: -8888.8), 2, 4, 5, 7 (from the
// solution; the value at whatever state it gave), 3 (unknown property: -8888.8).
double od_prop(std::string_view inputspec, double input1, double input2, int ncomp,
               std::span<const CompName> names, std::span<const double> conc,
               std::string_view outname, int& errcode);

// All sixteen properties; on code 1 every one is -8888.8.
AllProps od_allprops(std::string_view inputspec, double input1, double input2, int ncomp,
                     std::span<const CompName> names, std::span<const double> conc, int& errcode);

// "M_mol" (kg/mol), "T_min" or "T_max" (degrees Celsius) of the mixture;
// errcode 1 (unknown component) or 6 (unknown infoname) with -8888.8.
double od_info(int ncomp, std::span<const CompName> names, std::span<const double> conc,
               std::string_view infoname, int& errcode);

// Number of gas table rows; names receives all 250 name slots in table order.
int od_compset(std::span<CompName, max_components> names);

// Version as major, minor, patch, build: 3, 0, 1, 24.
std::array<int, 4> od_getversion();

// Writes the greeting line to standard output.
void ondrel_sub();

// The greeting of ondrel_sub, 40 characters.
inline constexpr std::string_view greeting = "****** Hello from the Ondrel      ******";

// The last solved state and the inputs it was solved from.
struct LastState {
    double t, p, input1, input2;
    std::array<char, 2> inputspec;
};
LastState last_state();

// Test hook: returns the module state to its load-time values (all zero) and
// forgets which names were found in the gas table; call it whenever the gas
// table is reset with its own test hook (a load through readgasfile or
// readgasdb is noticed without it).
void reset_for_tests();

}  // namespace od::ondrel
