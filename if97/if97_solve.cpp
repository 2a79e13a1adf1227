#include "if97/if97_solve.hpp"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "if97/if97_backward.hpp"
#include "if97/if97_constants.hpp"
#include "if97/if97_roots.hpp"

namespace if97 {

namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

// Newton iterations stop when the residual is below this fraction of the
// quantity's scale; brackets stop at this relative width.
constexpr double rel_tol = 1e-12;
constexpr double bracket_rel_tol = 1e-13;
constexpr int newton_max_iter = 200;
// Every this many Newton steps one bisection step guarantees progress.
constexpr int bisect_every = 4;
constexpr int fast_newton_max_iter = 8;
constexpr int newton_2d_max_iter = 16;
// A backward temperature this far (K) from a region boundary is taken as
// naming the region; the Newton result is checked against the boundary.
constexpr double backward_margin = 0.5;
// Sub-intervals scanned for a sign change along an isotherm, where h and s
// need not be monotonic in p.
constexpr int isotherm_scan = 8;
// Values standing in for an out-of-range state in the isochore search:
// only their sign matters.
constexpr double too_hot = 1e10;
constexpr double too_cold = -1e10;
// Start pressure of the liquid on an isochore, MPa.
constexpr double liquid_nominal_p = 10.0;

enum class Quantity { p, h, s, u, v };

double value(const Properties& st, Quantity q) {
    switch (q) {
        case Quantity::p: return st.p;
        case Quantity::h: return st.h;
        case Quantity::s: return st.s;
        case Quantity::u: return st.u;
        case Quantity::v: return st.v;
    }
    return nan;
}

// d(quantity)/dT at constant p.
double slope_t(const Properties& st, Quantity q) {
    switch (q) {
        case Quantity::p: return 0.0;
        case Quantity::h: return st.cp;
        case Quantity::s: return st.cp / st.t;
        case Quantity::u: return st.cp - st.p * st.v * st.alpha * kj_per_mpa_m3;
        case Quantity::v: return st.v * st.alpha;
    }
    return nan;
}

// Partial derivatives of a quantity in the two variables of a 2-D Newton
// iteration: x is p (at constant T) for the Gibbs regions and rho (at
// constant T) for region 3; t is T at constant x.
struct Gradient {
    double x;
    double t;
};

Gradient gradient_p_t(const Properties& st, Quantity q) {
    switch (q) {
        case Quantity::p: return {1.0, 0.0};
        case Quantity::h: return {dh_dp_t(st), st.cp};
        case Quantity::s: return {ds_dp_t(st), st.cp / st.t};
        case Quantity::u:
            return {dh_dp_t(st) - st.v * (1.0 - st.p * st.kappa) * kj_per_mpa_m3, slope_t(st, q)};
        case Quantity::v: return {-st.v * st.kappa, st.v * st.alpha};
    }
    return {nan, nan};
}

Gradient gradient_rho_t(const Properties& st, Quantity q) {
    switch (q) {
        case Quantity::p: return {dp_drho_t(st), dp_dt_rho(st)};
        case Quantity::h: return {dh_drho_t(st), dh_dt_rho(st)};
        case Quantity::s: return {ds_drho_t(st), ds_dt_rho(st)};
        case Quantity::u: return {du_drho_t(st), du_dt_rho(st)};
        case Quantity::v: return {-st.v * st.v, 0.0};
    }
    return {nan, nan};
}

// Two conditions on a state: q1 = target1 and q2 = target2.
struct Conditions {
    Quantity q1;
    double target1;
    Quantity q2;
    double target2;
};

bool condition_met(const Properties& st, Quantity q, double target, const Gradient& g, double x) {
    const double scale = std::fabs(target) + std::fabs(g.x * x) + std::fabs(g.t * st.t);
    return std::fabs(value(st, q) - target) <= rel_tol * scale;
}

// Newton in (x, T) on both conditions with the forward equation eval(x, T);
// in ln x when log_x (x a pressure that may span decades). Empty when it
// leaves x > 0, T > 0, meets a singular step or does not converge within
// a few steps: the callers then fall back to their bracketed searches.
template <class Eval, class Grad>
std::optional<Properties> newton_2d(Eval eval, Grad grad, const Conditions& c, double x, double t,
                                    bool log_x) {
    for (int iter = 0; iter < newton_2d_max_iter; ++iter) {
        if (!(x > 0.0 && t > 0.0) || !std::isfinite(x) || !std::isfinite(t)) return std::nullopt;
        const Properties st = eval(x, t);
        const Gradient g1 = grad(st, c.q1);
        const Gradient g2 = grad(st, c.q2);
        if (condition_met(st, c.q1, c.target1, g1, x) && condition_met(st, c.q2, c.target2, g2, x)) {
            return st;
        }
        const double r1 = value(st, c.q1) - c.target1;
        const double r2 = value(st, c.q2) - c.target2;
        const double a11 = log_x ? g1.x * x : g1.x;
        const double a21 = log_x ? g2.x * x : g2.x;
        const double det = a11 * g2.t - g1.t * a21;
        if (!(std::fabs(det) > 0.0)) return std::nullopt;
        const double dx = (r1 * g2.t - r2 * g1.t) / det;
        const double dt = (a11 * r2 - a21 * r1) / det;
        x = log_x ? x * std::exp(-dx) : x - dx;
        t -= dt;
    }
    return std::nullopt;
}

// The state of a region-3 solution when it is the stable region-3 state
// of its (p, T): mechanically stable, inside region 3, and below the
// critical temperature on the side of the critical density that its
// pressure names (liquid at or above psat(T), vapour below).
std::optional<State> region3_state(const Properties& st) {
    Error e;
    if (!(st.kappa > 0.0) || region_pt(st.p, st.t, e) != 3) return std::nullopt;
    if (st.t < critical_temperature) {
        const bool liquid = st.rho > critical_density;
        if (liquid != (st.p >= psat(st.t))) return std::nullopt;
    }
    return State{3, st.rho > critical_density ? 0.0 : 1.0, st};
}

// Region 3 from both conditions, Newton in (rho, T) from (rho0, t0).
std::optional<State> newton_region3(const Conditions& c, double rho0, double t0) {
    const auto st = newton_2d([](double rho, double t) { return region3(rho, t); }, gradient_rho_t,
                              c, rho0, t0, false);
    if (!st) return std::nullopt;
    return region3_state(*st);
}

// A Gibbs region (1, 2 or 5) from both conditions, Newton in (p, T) from
// (p0, t0); in ln p for the vapour regions. Any region number other than
// 1, 2, 5 gives nothing.
std::optional<Properties> newton_gibbs(int region, const Conditions& c, double p0, double t0) {
    switch (region) {
        case 1: return newton_2d(region1, gradient_p_t, c, p0, t0, false);
        case 2: return newton_2d(region2, gradient_p_t, c, p0, t0, true);
        case 5: return newton_2d(region5, gradient_p_t, c, p0, t0, true);
        default: return std::nullopt;
    }
}

// The state satisfying both conditions, searched by Newton in the given
// region from (x0, t0), x0 being p for a Gibbs region and rho for region 3.
// A solution that lands across a region boundary (623.15 K, B23, 1073.15
// K) is searched once more in that region from where it landed; empty when
// neither is a valid state.
std::optional<State> solve_in_region(int region, const Conditions& c, double x0, double t0) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        if (region == 3) return newton_region3(c, x0, t0);
        const auto st = newton_gibbs(region, c, x0, t0);
        if (!st) return std::nullopt;
        Error e;
        const int landed = region_pt(st->p, st->t, e);
        if (landed == region) return State{region, region == 1 ? 0.0 : 1.0, *st};
        // A liquid solution on the vapour side of the saturation line or
        // the reverse is a metastable state: the stable one is wet.
        if (landed == 0 || landed + region == 3) return std::nullopt;
        region = landed;
        x0 = landed == 3 ? st->rho : st->p;
        t0 = st->t;
    }
    return std::nullopt;
}

double t_upper(double p) { return p <= p_max_region5 ? t_max_region5 : t_max_region2; }
double p_upper(double t) { return t <= t_max_region2 ? p_max : p_max_region5; }

bool converged(double r, double target, double slope_x) {
    return std::fabs(r) <= rel_tol * (std::fabs(target) + std::fabs(slope_x));
}

StateResult failure(Error e) {
    StateResult r;
    r.error = e;
    return r;
}

// One Halley step in T on h or s along an isobar, from the light isobar
// evaluation: its cubic convergence takes a backward start (a few mK off)
// to within round-off of the root, so that the full evaluation that
// follows usually meets the tolerance at once.
double halley_step(const Isobar& st, double target, Quantity q) {
    const bool by_h = q == Quantity::h;
    const double f = (by_h ? st.h : st.s) - target;
    const double d1 = by_h ? st.cp : st.cp / st.t;
    const double d2 = by_h ? st.dcp_dt : (st.dcp_dt - st.cp / st.t) / st.t;
    return st.t - 2.0 * f * d1 / (2.0 * d1 * d1 - f * d2);
}

// T from (p, h) or (p, s) with one Gibbs region: a Halley step on the
// light evaluation, then Newton on the full one. Empty when it leaves
// [lo, hi] or does not converge within a few steps.
template <class Region, class Light>
std::optional<Properties> newton_region(Region region, Light light, double p, double target,
                                        Quantity q, double t, double lo, double hi) {
    if (!(t >= lo && t <= hi)) return std::nullopt;
    t = halley_step(light(p, t), target, q);
    for (int iter = 0; iter < fast_newton_max_iter; ++iter) {
        if (!(t >= lo && t <= hi)) return std::nullopt;
        const Properties st = region(p, t);
        const double slope = slope_t(st, q);
        const double r = value(st, q) - target;
        if (converged(r, target, slope * t)) return st;
        t -= r / slope;
    }
    return std::nullopt;
}

// Root in T of quantity(p, T) = target on [lo, hi], where the quantity rises
// with T and takes the values qlo, qhi at the ends. Newton from t0 (or from
// linear interpolation), kept inside a shrinking bracket.
StateResult solve_isobar_segment(double p, double target, Quantity q, double lo, double hi,
                                 double qlo, double qhi, double t0) {
    if (target == qlo || target == qhi) {
        // The caller evaluates its ends itself; landing on one is rare.
        const double t = target == qlo ? lo : hi;
        return state_pt(p, t);
    }
    double a = lo;
    double b = hi;
    double t = (t0 > a && t0 < b) ? t0 : a + (target - qlo) / (qhi - qlo) * (b - a);
    if (!(t > a && t < b)) t = 0.5 * (a + b);
    for (int iter = 0; iter < newton_max_iter; ++iter) {
        StateResult r = state_pt(p, t);
        if (r.error != Error::none) return r;
        const Properties& st = r.state.props;
        const double f = value(st, q) - target;
        const double slope = slope_t(st, q);
        if (converged(f, target, slope * t)) return r;
        if (f < 0.0) {
            a = t;
        } else {
            b = t;
        }
        if (b - a <= bracket_rel_tol * b) return r;
        double next = t - f / slope;
        if (!(next > a && next < b) || iter % bisect_every == bisect_every - 1) next = 0.5 * (a + b);
        t = next;
    }
    return failure(Error::no_convergence);
}

// Temperature of maximum density of the liquid at p, or t_min when the
// liquid expands on heating already at t_min.
double t_max_density(double p) {
    const StateResult cold = state_pt(p, t_min);
    if (cold.error != Error::none || cold.state.props.alpha >= 0.0) return t_min;
    auto alpha = [p](double t) { return region1(p, t).alpha; };
    const double hi = 300.0;
    const double t = brent(alpha, t_min, hi, cold.state.props.alpha, alpha(hi), 1e-10);
    return std::isnan(t) ? t_min : t;
}

// Start values from the backward equations for (p, h) and (p, s): T in
// regions 1, 2 and 3, and v in region 3.
struct Backward {
    double (*region1)(double, double);
    double (*region2)(double, double);
    double (*region3)(double, double);
    double (*region3_v)(double, double);
};

// Region 3 on an isobar from the backward T and v: Newton in (rho, T) on
// p3(rho, T) = p and quantity3(rho, T) = target.
std::optional<State> isobar_region3(double p, double target, Quantity q, const Backward& backward) {
    const double t0 = backward.region3(p, target);
    const double rho0 = 1.0 / backward.region3_v(p, target);
    auto st = newton_region3(Conditions{Quantity::p, p, q, target}, rho0, t0);
    if (st) st->props.p = p;
    return st;
}

StateResult solve_isobar(double p, double target, Quantity q, const Backward* backward) {
    if (!std::isfinite(p) || !std::isfinite(target)) return failure(Error::not_finite);
    if (p < p_min) return failure(Error::p_below_min);
    if (p > p_max) return failure(Error::p_above_max);
    if (q == Quantity::v && !(target > 0.0)) return failure(Error::v_not_positive);

    const bool has_saturation = p >= psat_min() && p < critical_pressure;
    const double ts = has_saturation ? tsat(p) : nan;
    double t0 = nan;
    if (backward != nullptr) {
        // Fast paths: regions 1 and 2 named by their backward temperature,
        // refined by Newton on the forward equation alone.
        const double t_liquid_top = p <= psat_623() ? ts : t_region13;
        const double t1 = backward->region1(p, target);
        if (t1 < t_liquid_top - backward_margin) {
            const auto st = newton_region(region1, region1_isobar, p, target, q, t1, t_min, t_liquid_top);
            if (st) return StateResult{State{1, 0.0, *st}, Error::none};
        }
        const double t_vapour_bottom =
            p < psat_min() ? t_min : (p <= psat_623() ? ts : t_b23(p));
        const double t2 = backward->region2(p, target);
        if (t2 > t_vapour_bottom + backward_margin && t2 < t_max_region2) {
            const auto st = newton_region(region2, region2_isobar, p, target, q, t2, t_vapour_bottom,
                                          t_max_region2);
            if (st) return StateResult{State{2, 1.0, *st}, Error::none};
        }
        if (p > psat_623()) {
            if (const auto st = isobar_region3(p, target, q, *backward)) {
                return StateResult{*st, Error::none};
            }
            t0 = backward->region3(p, target);
        }
    }

    double lo = q == Quantity::v ? t_max_density(p) : t_min;
    double hi = t_upper(p);
    double qlo;
    double qhi;
    if (has_saturation) {
        const Saturation sat = saturation(p, ts);
        if (!sat.ok) return failure(Error::no_convergence);
        const double ql = value(sat.liquid, q);
        const double qv = value(sat.vapour, q);
        if (target >= ql && target <= qv) {
            return StateResult{mixture(sat, (target - ql) / (qv - ql)), Error::none};
        }
        if (target < ql) {
            hi = ts;
            qhi = ql;
            const StateResult end = state_pt(p, lo);
            if (end.error != Error::none) return end;
            qlo = value(end.state.props, q);
        } else {
            lo = ts;
            qlo = qv;
            const StateResult end = state_pt(p, hi);
            if (end.error != Error::none) return end;
            qhi = value(end.state.props, q);
        }
    } else {
        const StateResult a = state_pt(p, lo);
        const StateResult b = state_pt(p, hi);
        if (a.error != Error::none) return a;
        if (b.error != Error::none) return b;
        qlo = value(a.state.props, q);
        qhi = value(b.state.props, q);
    }
    if (target < qlo) return failure(Error::t_below_min);
    if (target > qhi) return failure(Error::t_above_max);
    return solve_isobar_segment(p, target, q, lo, hi, qlo, qhi, t0);
}

const Backward backward_ph{backward::t_ph_region1, backward::t_ph_region2, backward::t_ph_region3,
                           backward::v_ph_region3};
const Backward backward_ps{backward::t_ps_region1, backward::t_ps_region2, backward::t_ps_region3,
                           backward::v_ps_region3};

// Region 3 straight from (rho, T) when the state is a stable region-3
// state; empty otherwise.
std::optional<State> region3_direct(double t, double v) {
    if (t < t_region13 || t > t_b23(p_max)) return std::nullopt;
    return region3_state(region3(1.0 / v, t));
}

// Root in ln p of quantity(p, T) = target over [ln a, ln b] with known end
// values, scanning `parts` sub-intervals for the first sign change.
std::optional<double> scan_isotherm(double t, double target, Quantity q, double a, double b,
                                    double qa, double qb, int parts) {
    auto f = [t, target, q](double lnp) {
        const StateResult r = state_pt(std::exp(lnp), t);
        return r.error == Error::none ? value(r.state.props, q) - target : nan;
    };
    const double la = std::log(a);
    const double lb = std::log(b);
    double x0 = la;
    double f0 = qa - target;
    for (int k = 1; k <= parts; ++k) {
        const double x1 = k == parts ? lb : la + (lb - la) * k / parts;
        const double f1 = k == parts ? qb - target : f(x1);
        if (std::isnan(f1)) return std::nullopt;
        if (f0 == 0.0) return k == 1 ? a : std::exp(x0);
        if ((f0 < 0.0) != (f1 < 0.0) || f1 == 0.0) {
            if (f1 == 0.0 && k == parts) return b;
            const double x = brent(f, x0, x1, f0, f1, bracket_rel_tol);
            if (std::isnan(x)) return std::nullopt;
            return std::clamp(std::exp(x), a, b);
        }
        x0 = x1;
        f0 = f1;
    }
    return std::nullopt;
}

StateResult solve_isotherm(double t, double target, Quantity q) {
    if (!std::isfinite(t) || !std::isfinite(target)) return failure(Error::not_finite);
    if (t < t_min) return failure(Error::t_below_min);
    if (t > t_max_region5) return failure(Error::t_above_max);
    if (q == Quantity::v) {
        if (!(target > 0.0)) return failure(Error::v_not_positive);
        if (const auto st = region3_direct(t, target)) return StateResult{*st, Error::none};
    }
    const int parts = q == Quantity::v ? 1 : isotherm_scan;
    const double top = p_upper(t);
    const StateResult low_end = state_pt(p_min, t);
    if (low_end.error != Error::none) return low_end;
    const double q_low = value(low_end.state.props, q);
    std::optional<double> p;
    if (t < critical_temperature) {
        const double ps = psat(t);
        const Saturation sat = saturation(ps, t);
        if (!sat.ok) return failure(Error::no_convergence);
        const double ql = value(sat.liquid, q);
        const double qv = value(sat.vapour, q);
        const StateResult high_end = state_pt(top, t);
        if (high_end.error != Error::none) return high_end;
        p = scan_isotherm(t, target, q, ps, top, ql, value(high_end.state.props, q), parts);
        if (!p && (target - ql) * (target - qv) <= 0.0 && ql != qv) {
            return StateResult{mixture(sat, (target - ql) / (qv - ql)), Error::none};
        }
        if (!p) p = scan_isotherm(t, target, q, p_min, ps, q_low, qv, parts);
    } else {
        const StateResult high_end = state_pt(top, t);
        if (high_end.error != Error::none) return high_end;
        p = scan_isotherm(t, target, q, p_min, top, q_low, value(high_end.state.props, q), parts);
    }
    if (!p) {
        // Along an isotherm h, s and v all fall towards high pressure.
        return failure(target > q_low ? Error::p_below_min : Error::p_above_max);
    }
    return state_pt(*p, t);
}

// Start temperature of a Gibbs region on an isochore at pressure p, from
// the backward (p, h) and (p, s) equations; u is taken for h (start
// values only: the Newton corrects them).
double isochore_start_t(int region, double p, double target, Quantity q) {
    const bool by_s = q == Quantity::s;
    if (region == 1) return by_s ? backward::t_ps_region1(p, target) : backward::t_ph_region1(p, target);
    return by_s ? backward::t_ps_region2(p, target) : backward::t_ph_region2(p, target);
}

// Single-phase state of (v, quantity) by a 2-D Newton: a denser-than-
// critical volume is tried in region 1 from a nominal pressure, a lighter
// one in region 2 (and on to region 5) from the ideal-gas pressure; then
// region 3 at the given density, from the critical temperature. Empty for
// wet states and whenever no iteration gives a valid state.
std::optional<State> isochore_direct(double v, double target, Quantity q) {
    const Conditions c{Quantity::v, v, q, target};
    const bool liquid_like = v < 1.0 / critical_density;
    const int region = liquid_like ? 1 : 2;
    double p0 = liquid_nominal_p;
    double t0 = isochore_start_t(region, p0, target, q);
    if (!liquid_like) {
        // Two passes of T from the backward equation and p = R·T/v.
        for (int pass = 0; pass < 2; ++pass) {
            p0 = std::clamp(gas_constant * std::clamp(t0, t_min, t_max_region5) / v / kj_per_mpa_m3,
                            p_min, p_max);
            t0 = isochore_start_t(region, p0, target, q);
        }
    }
    if (std::isfinite(t0)) {
        t0 = std::clamp(t0, t_min, t_max_region5);
        if (const auto st = solve_in_region(region, c, p0, t0)) return st;
    }
    const double rho = 1.0 / v;
    if (rho < region3_rho_low || rho > region3_rho_high) return std::nullopt;
    return solve_in_region(3, c, rho, critical_temperature);
}

StateResult solve_isochore(double v, double target, Quantity q) {
    if (!std::isfinite(v) || !std::isfinite(target)) return failure(Error::not_finite);
    if (!(v > 0.0)) return failure(Error::v_not_positive);
    if (const auto st = isochore_direct(v, target, q)) return StateResult{*st, Error::none};
    // Wet states and states the direct iteration misses: Brent in T on the
    // isochore, each step a state from (T, v).
    Error last = Error::none;
    auto f = [v, target, q, &last](double t) {
        const StateResult r = solve_isotherm(t, v, Quantity::v);
        if (r.error == Error::none) return value(r.state.props, q) - target;
        last = r.error;
        if (r.error == Error::p_above_max) return too_hot;
        if (r.error == Error::p_below_min) return too_cold;
        return nan;
    };
    const double f_lo = f(t_min);
    if (f_lo > 0.0) return failure(f_lo == too_hot ? Error::p_above_max : Error::t_below_min);
    const double f_hi = f(t_max_region5);
    if (f_hi < 0.0) return failure(f_hi == too_cold ? Error::p_below_min : Error::t_above_max);
    const double t = brent(f, t_min, t_max_region5, f_lo, f_hi, bracket_rel_tol * t_max_region5);
    if (std::isnan(t)) return failure(last == Error::none ? Error::no_convergence : last);
    StateResult r = solve_isotherm(t, v, Quantity::v);
    if (r.error != Error::none) return r;
    const double scale = std::fabs(target) + std::fabs(slope_t(r.state.props, q)) * t + 1.0;
    if (std::fabs(value(r.state.props, q) - target) > 1e-9 * scale) {
        return failure(last == Error::none ? Error::no_convergence : last);
    }
    return r;
}
// Start for (h, s) from the backward equations, the region chosen by the
// h(s) boundaries: region 1, 2, 3 or 4 (wet) and its pressure.
struct HsStart {
    int region;
    double p;
};

HsStart start_hs(double h, double s) {
    constexpr double s_liquid_623 = 3.778281340;  // s' at 623.15 K
    constexpr double s_b13_low = 3.397782955;
    constexpr double s_b23_low = 5.048096828;
    constexpr double s_vapour_623 = 5.210887825;  // s'' at 623.15 K
    constexpr double s_2bc = 5.85;
    constexpr double s_vapour_max = 9.155759395;  // s'' at 273.15 K
    HsStart start{};
    if (s >= s_vapour_623 && s <= s_vapour_max &&
        h <= (s >= s_2bc ? backward::h_2ab_vapour_s(s) : backward::h_2c3b_vapour_s(s))) {
        start = {4, psat(backward::tsat_hs(h, s))};
    } else if (s < s_b13_low || (s < s_liquid_623 && h <= backward::h_b13_s(s))) {
        start = {1, backward::p_hs_region1(h, s)};
    } else if (s < s_b23_low) {
        start = {3, backward::p_hs_region3(h, s)};
    } else {
        start = {2, backward::p_hs_region2(h, s)};
    }
    constexpr double fallback = 1.0;  // MPa
    if (!(start.p >= p_min && start.p <= p_max)) start.p = fallback;
    return start;
}

// Single-phase state of (h, s) by a 2-D Newton from the backward start: in
// (p, T) on a Gibbs region, in (rho, T) on region 3, T and v started from
// the backward (p, h) equations of the region. Empty for a wet start or
// when the iteration does not give a valid state.
std::optional<State> hs_direct(const HsStart& start, double h, double s) {
    const Conditions c{Quantity::h, h, Quantity::s, s};
    switch (start.region) {
        case 1: return solve_in_region(1, c, start.p, backward::t_ph_region1(start.p, h));
        case 2: return solve_in_region(2, c, start.p, backward::t_ph_region2(start.p, h));
        case 3:
            return solve_in_region(3, c, 1.0 / backward::v_ph_region3(start.p, h),
                                   backward::t_ph_region3(start.p, h));
        default: return std::nullopt;
    }
}
}  // namespace

// Along an isentrope dh/dp = v, in one phase and in a mixture alike, so h
// rises with p and the state of (h, s) is unique.
StateResult state_hs(double h, double s) {
    if (!std::isfinite(h) || !std::isfinite(s)) return failure(Error::not_finite);
    const HsStart start = start_hs(h, s);
    if (const auto st = hs_direct(start, h, s)) return StateResult{*st, Error::none};
    // Wet states, and the rare single-phase state the direct iteration
    // misses: Newton in p on h(p, s) = h along the isentrope.
    double a = p_min;
    double b = p_max;
    double p = start.p;
    Error last = Error::none;
    // Closest state found: a root on the boundary of the range is reached
    // only from inside, as the bracket closes on it.
    StateResult best = failure(Error::no_convergence);
    double best_f = std::numeric_limits<double>::infinity();
    for (int iter = 0; iter < newton_max_iter; ++iter) {
        StateResult r = state_ps(p, s);
        double next;
        if (r.error != Error::none) {
            // No state of this entropy at p: too hot a state lies beyond
            // the upper temperature limit, so p must fall.
            last = r.error;
            if (r.error == Error::t_above_max) {
                b = p;
            } else {
                a = p;
            }
            next = std::sqrt(a * b);
        } else {
            const double f = r.state.props.h - h;
            const double slope = r.state.props.v * kj_per_mpa_m3;
            if (converged(f, h, slope * p)) return r;
            if (std::fabs(f) < best_f) {
                best_f = std::fabs(f);
                best = r;
            }
            if (f < 0.0) {
                a = p;
                last = Error::p_above_max;
            } else {
                b = p;
                last = Error::p_below_min;
            }
            next = p - f / slope;
            if (!(next > a && next < b)) next = std::sqrt(a * b);
        }
        if (b - a <= bracket_rel_tol * b) break;
        p = next;
    }
    if (best.error == Error::none &&
        best_f <= 1e3 * rel_tol * (std::fabs(h) + best.state.props.v * kj_per_mpa_m3 * best.state.props.p)) {
        return best;
    }
    return failure(last == Error::none ? Error::no_convergence : last);
}

StateResult state_ph(double p, double h) { return solve_isobar(p, h, Quantity::h, &backward_ph); }
StateResult state_ps(double p, double s) { return solve_isobar(p, s, Quantity::s, &backward_ps); }
StateResult state_pu(double p, double u) { return solve_isobar(p, u, Quantity::u, nullptr); }
StateResult state_pv(double p, double v) { return solve_isobar(p, v, Quantity::v, nullptr); }

StateResult state_th(double t, double h) { return solve_isotherm(t, h, Quantity::h); }
StateResult state_ts(double t, double s) { return solve_isotherm(t, s, Quantity::s); }
StateResult state_tv(double t, double v) { return solve_isotherm(t, v, Quantity::v); }

StateResult state_vh(double v, double h) { return solve_isochore(v, h, Quantity::h); }
StateResult state_vs(double v, double s) { return solve_isochore(v, s, Quantity::s); }
StateResult state_vu(double v, double u) { return solve_isochore(v, u, Quantity::u); }

}  // namespace if97
