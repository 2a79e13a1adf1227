// Saturation line, region-2/3 boundary and the common terms of the region
// equations of the water-and-steam package (IFC-67). Units: bar, degrees
// Celsius, m3/kg, kJ/kg, kJ/(kg K).
#pragma once
#include <array>
#include <cstddef>

#include "pwsftn/pws_context_fwd.hpp"

namespace pws {

// The package's constants record, in its fixed order (read-only).
inline constexpr std::array<double, 33> pws_lc{
    1.041659047737673E-8,   // 1  about -u/(pc vc) of the triple-point liquid (kept, not applied:
    -1.592682542006834E-6,  // 2  about s/(pc vc/Tc) of it; the equations are used without offsets)
    221.2,                  // 3  critical pressure, bar
    0.00317,                // 4  critical specific volume, m3/kg
    647.3,                  // 5  critical temperature, K
    273.15,                 // 6  offset from degrees Celsius to K
    70.1204,                // 7  pc * vc, kJ/kg (scale of energies)
    0.1083275143,           // 8  pc * vc / Tc, kJ/(kg K) (scale of entropies)
    4.260321148,            // 9  I1 = R Tc / (pc vc)
    350.0,                  // 10 upper temperature of sub-region 1, C
    374.15,                 // 11 critical temperature, C
    165.3512406,            // 12 saturation pressure at 350 C, bar
    0.006112444,            // 13 lowest pressure, bar
    1000.0,                 // 14 highest pressure, bar
    3208.3,                 // 15
    165.12406,              // 16
    0.001314782578,         // 17 lowest specific volume of region 3, m3/kg
    0.008799105448,         // 18 highest specific volume of region 3, m3/kg
    0.01,                   // 19 lowest temperature of sub-region 1, C
    800.0,                  // 20 highest temperature of region 2, C
    705.5,                  // 21
    350.0,                  // 22 highest temperature of sub-region 1 (bound check), C
    0.01,                   // 23 lowest temperature of region 2, C
    350.0,                  // 24 lowest temperature of region 3, C
    590.0,                  // 25 highest temperature of region 3, C
    -1.0, 1860.0, 1205.0, 906.1, -0.1, 3.0, 0.804, 1.065,  // 26-33 used by the inverse routines
};
// The entries of pws_lc by meaning (1-based position in the comment).
inline constexpr double crit_p = pws_lc[2];        // bar
inline constexpr double crit_v = pws_lc[3];        // m3/kg
inline constexpr double crit_tk = pws_lc[4];       // K
inline constexpr double celsius_offset = pws_lc[5];
inline constexpr double energy_scale = pws_lc[6];  // kJ/kg
inline constexpr double entropy_scale = pws_lc[7]; // kJ/(kg K)
inline constexpr double i1_const = pws_lc[8];
inline constexpr double t_sub1_max = pws_lc[9];    // C
inline constexpr double crit_t = pws_lc[10];       // C
inline constexpr double p_min = pws_lc[12];        // bar
inline constexpr double p_max = pws_lc[13];        // bar
inline constexpr double v3_min = pws_lc[16];       // m3/kg
inline constexpr double v3_max = pws_lc[17];       // m3/kg
inline constexpr double t_sub1_min = pws_lc[18];   // C
inline constexpr double t2_max = pws_lc[19];       // C
inline constexpr double t1_bound_max = pws_lc[21]; // C
inline constexpr double t2_min = pws_lc[22];       // C
inline constexpr double t3_min = pws_lc[23];       // C
inline constexpr double t3_max = pws_lc[24];       // C

// Reduced temperature T / Tc at t (C).
inline double reduced_temperature(double t) { return (t + celsius_offset) / crit_tk; }

// Saturation pressure (bar) at t (C); above 374.15 C reports code 2 and returns 0.
double pws_pt(Context& ctx, double t);
// As pws_pt, and keeps the slope of the saturation line in the context (read
// by psl1_slope).
double psl1(Context& ctx, double t);
// The slope kept by the last psl1: (ps / 80.3334) times minus the derivative of
// the saturation exponent with respect to 1 - T/Tc (psi per degree F scale).
double psl1_slope(const Context& ctx);
// Saturation temperature (C) at p (bar) by damped Newton steps; above 221.2 bar
// reports code 1 and returns 0; not converged after 30 updates (the rule above
// 186.1581 bar, where the tolerance tightens), reports code -1 and returns the
// last iterate.
double pws_tp(Context& ctx, double p);

// IFC-67 L function (region-2/3 boundary): L0, L1, L2 and the derivative
// coefficient 2 L2; reduced boundary pressure L0 + L1 theta + L2 theta^2.
struct LFunction {
    double l0, l1, l2, dl2;
};
inline constexpr LFunction pws_cl_record{15.74373327, -34.17061978, 19.31380707, 38.62761414};

// The L function: reduced pressure of the region-2/3 boundary at t (C), and
// the boundary pressure in bar.
double pws_cl(double t);
// Derivative of the L function with respect to the reduced temperature T/Tc.
double pws_cl_slope(double t);
double boundary_pressure(double t);
// Temperature (C) on the region-2/3 boundary for a pressure in bar.
double boundary_temperature(double p);

// Common terms of sub-region 1 / region 2 at (p bar, t C) and of region 3 at
// (v m3/kg, t C): bound check (codes 12 and 42), then the terms, kept in the
// context until a call with another state.
void comt1(Context& ctx, double p, double t);
void comt2(Context& ctx, double p, double t);
void comt3(Context& ctx, double v, double t);

// The current-state record: the last state handed to a common-term routine
// that was not its kept state. comt1 and comt2 write p (bar) and t (C), comt3
// writes v (m3/kg) and t; the other place keeps its earlier value (0 at first).
struct CurrentState {
    double p, t, v;
};
CurrentState pws_cu(const Context& ctx);

// Forgets the kept states of comt1, comt2 and comt3: the next call of each
// evaluates and checks its state afresh.
void forget_terms(Context& ctx);

// ---------------------------------------------------------------------------
// The legacy routines: the same over the default context.

inline double pws_pt(double t) { return pws_pt(default_context(), t); }
inline double psl1(double t) { return psl1(default_context(), t); }
inline double psl1_slope() { return psl1_slope(default_context()); }
inline double pws_tp(double p) { return pws_tp(default_context(), p); }
inline void comt1(double p, double t) { comt1(default_context(), p, t); }
inline void comt2(double p, double t) { comt2(default_context(), p, t); }
inline void comt3(double v, double t) { comt3(default_context(), v, t); }
inline CurrentState pws_cu() { return pws_cu(default_context()); }

// Test hook: empties the default context's caches of comt1, comt2, comt3,
// the kept slope and the current-state record.
void reset_terms_for_tests();

}  // namespace pws
