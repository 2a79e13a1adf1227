// States of water and steam from (p, T) and on the saturation line: region
// selection, the region-3 density from (p, T), saturated phases and
// two-phase mixtures. Formulation units (MPa, K, kJ/kg, m3/kg).
#pragma once
#include "if97/if97_forward.hpp"

namespace if97 {

// Density bracket that contains every region-3 state, kg/m3.
inline constexpr double region3_rho_low = 60.0;
inline constexpr double region3_rho_high = 900.0;

// Why a state could not be given.
enum class Error {
    none,
    not_finite,          // an input is NaN or infinite
    t_below_min,         // below 273.15 K
    t_above_max,         // above 1073.15 K (p > 50 MPa) or 2273.15 K
    p_below_min,         // pressure not above the lowest accepted value
    p_above_max,         // above 100 MPa, or above 50 MPa beyond 1073.15 K
    v_not_positive,      // specific volume zero or negative
    quality_range,       // vapour quality outside 0..1
    p_not_saturation,    // pressure outside the saturation line's range
    t_not_saturation,    // temperature outside the saturation line's range
    no_convergence,
};

// A state: one phase (region 1, 2, 3 or 5) or a two-phase mixture
// (region 4). For a mixture v, h, u, s are the mixed values and cp, cv, w,
// alpha, kappa are undefined (NaN); rho = 1/v. x is the vapour quality;
// single-phase states carry 0 when liquid-like (region 1, region 3 denser
// than the critical density) and 1 otherwise (regions 2 and 5, region 3
// lighter than the critical density).
struct State {
    int region = 0;
    double x = 0.0;
    Properties props;
};

struct StateResult {
    State state;
    Error error = Error::none;
};

// Region of (p, T): 1, 2, 3 or 5; 0 with error set when outside the range.
// A state exactly on the saturation line counts as liquid (region 1).
int region_pt(double p, double t, Error& error);

// State from (p, T), MPa and K.
StateResult state_pt(double p, double t);

// One property at (p, T), MPa and K: the value state_pt gives, bit for bit.
// In regions 1, 2 and 5 only the sums of gamma the property needs are
// evaluated; region 3 takes the full state (its density iteration
// dominates).
struct ValueResult {
    double value = 0.0;
    Error error = Error::none;
};
ValueResult property_pt(GibbsProperty q, double p, double t);

// Density of region 3 at (p, T), kg/m3: liquid-side root when p >= psat(T)
// below the critical temperature, vapour-side root otherwise; NaN if the
// iteration fails.
double region3_density(double p, double t);

// The two saturated phases at temperature t and its saturation pressure p
// (p = psat(t) or t = tsat(p)); above 623.15 K both come from region 3.
struct Saturation {
    Properties liquid;
    Properties vapour;
    bool ok = false;
};
Saturation saturation(double p, double t);

// Two-phase (or saturated) state of quality x from the saturated phases.
State mixture(const Saturation& sat, double x);

// Saturated and two-phase states from (T, x) and (p, x).
StateResult state_tx(double t, double x);
StateResult state_px(double p, double x);

// Lowest pressure of the saturation line, psat(273.15 K), MPa, and the
// pressure of the region 1/3 and 2/3 corner, psat(623.15 K), MPa.
double psat_min();
double psat_623();

}  // namespace if97
