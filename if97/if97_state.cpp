#include "if97/if97_state.hpp"

#include <cmath>
#include <limits>

#include "if97/if97_backward.hpp"
#include "if97/if97_constants.hpp"
#include "if97/if97_roots.hpp"

namespace if97 {

namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();

constexpr int newton_max_iter = 30;
// Newton on the density stops when p3(rho, T) matches p to this relative
// tolerance.
constexpr double p_rel_tol = 1e-13;
constexpr int bracket_scan_steps = 16;

// Which root of p3(rho, T) = p is wanted.
enum class Side { liquid, vapour, any };

bool on_side(double rho, Side side) {
    if (side == Side::liquid) return rho > critical_density;
    if (side == Side::vapour) return rho < critical_density;
    return true;
}

// Newton on p3(rho, T) = p from rho. The properties at the root, or rho =
// NaN when the iteration leaves the mechanically stable branch or the side.
Properties newton_density(double p, double t, double rho, Side side) {
    for (int iter = 0; iter < newton_max_iter; ++iter) {
        if (!(rho > 0.0) || !std::isfinite(rho)) break;
        const Properties st = region3(rho, t);
        const double dp_drho = 1.0 / (rho * st.kappa);
        if (!(dp_drho > 0.0)) break;
        const double r = st.p - p;
        if (std::fabs(r) <= p_rel_tol * p) {
            if (!on_side(rho, side)) break;
            return st;
        }
        rho -= r / dp_drho;
    }
    Properties failed;
    failed.rho = nan;
    return failed;
}

// Bracketed fallback: the root of p3(rho, T) = p on the given side, found
// by scanning from the start towards the critical density for a sign change.
// p3 rises with rho on both sides, so the liquid side brackets from above
// (a start with f < 0 is already the lower end) and the vapour side from
// below.
Properties bracket_density(double p, double t, double start, Side side) {
    auto f = [p, t](double rho) { return region3(rho, t).p - p; };
    Properties failed;
    failed.rho = nan;
    double lo = region3_rho_low;
    double hi = region3_rho_high;
    if (side != Side::any) {
        const bool liquid = side == Side::liquid;
        // True where the scan has passed the root.
        auto past = [&f, liquid](double rho) { return liquid ? f(rho) < 0.0 : f(rho) > 0.0; };
        double near = start;  // end of the bracket on the start's side of the root
        double far = nan;     // end across the root
        if (past(start)) {
            far = start;
            near = liquid ? hi : lo;
        } else {
            const double step = (critical_density - start) / bracket_scan_steps;
            for (int k = 1; k <= bracket_scan_steps; ++k) {
                const double rho = start + k * step;
                if (past(rho)) {
                    far = rho;
                    break;
                }
                near = rho;
            }
        }
        lo = liquid ? far : near;
        hi = liquid ? near : far;
    }
    if (std::isnan(lo) || std::isnan(hi)) return failed;
    const double rho = brent(f, lo, hi, f(lo), f(hi), 1e-13 * hi);
    if (std::isnan(rho)) return failed;
    return region3(rho, t);
}

Properties solve_density(double p, double t, double start, Side side) {
    const Properties st = newton_density(p, t, start, side);
    if (!std::isnan(st.rho)) return st;
    return bracket_density(p, t, std::isfinite(start) ? start : critical_density, side);
}

// Auxiliary equations for the saturated densities (IAPWS supplementary
// release on saturation properties of ordinary water substance, 1992,
// equations 2 and 3): start values for the region-3 iteration.
struct AuxTerm {
    double n;
    double e;
};
constexpr AuxTerm liquid_density_terms[] = {{1.99274064, 1.0},    {1.09965342, 2.0},
                                            {-0.510839303, 5.0},  {-1.75493479, 16.0},
                                            {-45.5170352, 43.0},  {-6.74694450e5, 110.0}};
constexpr AuxTerm vapour_density_terms[] = {{-2.03150240, 2.0},  {-2.68302940, 4.0},
                                            {-5.38626492, 8.0},  {-17.2991605, 18.0},
                                            {-44.7586581, 37.0}, {-63.9201063, 71.0}};

double liquid_density_guess(double t) {
    const double theta = 1.0 - t / critical_temperature;
    double sum = 1.0;
    for (const AuxTerm& a : liquid_density_terms) sum += a.n * std::pow(theta, a.e / 3.0);
    return critical_density * sum;
}

double vapour_density_guess(double t) {
    const double theta = 1.0 - t / critical_temperature;
    double sum = 0.0;
    for (const AuxTerm& a : vapour_density_terms) sum += a.n * std::pow(theta, a.e / 6.0);
    return critical_density * std::exp(sum);
}

void set_quality(State& st) {
    if (st.region == 1) {
        st.x = 0.0;
    } else if (st.region == 3) {
        st.x = st.props.rho > critical_density ? 0.0 : 1.0;
    } else {
        st.x = 1.0;
    }
}
}  // namespace

double psat_min() {
    static const double p = psat(t_min);
    return p;
}

double psat_623() {
    static const double p = psat(t_region13);
    return p;
}

int region_pt(double p, double t, Error& error) {
    error = Error::none;
    if (!std::isfinite(p) || !std::isfinite(t)) {
        error = Error::not_finite;
    } else if (p < p_min) {
        error = Error::p_below_min;
    } else if (t < t_min - t_slack) {
        error = Error::t_below_min;
    } else if (p > p_max) {
        error = Error::p_above_max;
    } else if (t > t_max_region5 + t_slack ||
               (t > t_max_region2 + t_slack && p > p_max_region5)) {
        error = Error::t_above_max;
    }
    if (error != Error::none) return 0;
    if (t > t_max_region2 + t_slack) return 5;
    if (p <= psat_623()) {
        if (p >= psat_min() && t <= tsat(p)) return 1;
        return 2;
    }
    if (t <= t_region13) return 1;
    if (t < t_b23(p)) return 3;
    return 2;
}

double region3_density(double p, double t) {
    const double ts = p < critical_pressure ? tsat(p) : 0.0;
    const double start = 1.0 / backward::v_pt_region3(p, t, ts);
    Side side = Side::any;
    if (t < critical_temperature) side = p >= psat(t) ? Side::liquid : Side::vapour;
    Properties st = newton_density(p, t, start, side);
    if (!std::isnan(st.rho)) return st.rho;
    if (side == Side::any) return bracket_density(p, t, critical_density, side).rho;
    // The saturated density of the wanted phase bounds the root.
    const Saturation sat = saturation(psat(t), t);
    if (!sat.ok) return nan;
    const double edge = side == Side::liquid ? sat.liquid.rho : sat.vapour.rho;
    return bracket_density(p, t, edge, side).rho;
}

StateResult state_pt(double p, double t) {
    StateResult r;
    r.state.region = region_pt(p, t, r.error);
    switch (r.state.region) {
        case 1: r.state.props = region1(p, t); break;
        case 2: r.state.props = region2(p, t); break;
        case 5: r.state.props = region5(p, t); break;
        case 3: {
            const double rho = region3_density(p, t);
            if (std::isnan(rho)) {
                r.error = Error::no_convergence;
                r.state.region = 0;
                return r;
            }
            r.state.props = region3(rho, t);
            r.state.props.p = p;
            break;
        }
        default: return r;
    }
    set_quality(r.state);
    return r;
}

ValueResult property_pt(GibbsProperty q, double p, double t) {
    Error e;
    switch (region_pt(p, t, e)) {
        case 1: return {region1_single(q, p, t), e};
        case 2: return {region2_single(q, p, t), e};
        case 5: return {region5_single(q, p, t), e};
        case 3: {
            const StateResult r = state_pt(p, t);
            return {r.error == Error::none ? gibbs_property(q, r.state.props) : 0.0, r.error};
        }
        default: return {0.0, e};
    }
}

Saturation saturation(double p, double t) {
    Saturation sat;
    if (t <= t_region13) {
        sat.liquid = region1(p, t);
        sat.vapour = region2(p, t);
    } else if (t >= critical_temperature || p >= critical_pressure) {
        sat.liquid = region3(critical_density, critical_temperature);
        sat.vapour = sat.liquid;
    } else {
        sat.liquid = solve_density(p, t, liquid_density_guess(t), Side::liquid);
        sat.vapour = solve_density(p, t, vapour_density_guess(t), Side::vapour);
        // Within a few microkelvin of the critical temperature the region-3
        // isotherm no longer has two roots on either side of the critical
        // density: both phases then take the single root.
        if (std::isnan(sat.liquid.rho) || std::isnan(sat.vapour.rho)) {
            const Properties single = bracket_density(p, t, critical_density, Side::any);
            if (std::isnan(single.rho)) return sat;
            if (std::isnan(sat.liquid.rho)) sat.liquid = single;
            if (std::isnan(sat.vapour.rho)) sat.vapour = single;
        }
        sat.liquid.p = p;
        sat.vapour.p = p;
    }
    sat.ok = true;
    return sat;
}

State mixture(const Saturation& sat, double x) {
    State st;
    st.x = x;
    const bool low = sat.liquid.t <= t_region13;
    if (x <= 0.0) {
        st.region = low ? 1 : 3;
        st.props = sat.liquid;
        return st;
    }
    if (x >= 1.0) {
        st.region = low ? 2 : 3;
        st.props = sat.vapour;
        return st;
    }
    const Properties& l = sat.liquid;
    const Properties& g = sat.vapour;
    st.region = 4;
    Properties& m = st.props;
    m.p = l.p;
    m.t = l.t;
    m.v = l.v + x * (g.v - l.v);
    m.rho = 1.0 / m.v;
    m.h = l.h + x * (g.h - l.h);
    m.u = l.u + x * (g.u - l.u);
    m.s = l.s + x * (g.s - l.s);
    m.cp = m.cv = m.w = m.alpha = m.kappa = nan;
    return st;
}

namespace {
// Error of a saturation-line input y and quality x before the range of y
// is checked, in the order the state functions report them.
Error quality_error(double y, double x) {
    if (!std::isfinite(y) || !std::isfinite(x)) return Error::not_finite;
    if (x < 0.0 || x > 1.0) return Error::quality_range;
    return Error::none;
}

// State of quality x on the saturation line at (p, t).
StateResult saturated_state(double p, double t, double x) {
    const Saturation sat = saturation(p, t);
    if (!sat.ok) return {State{}, Error::no_convergence};
    return {mixture(sat, x), Error::none};
}
}  // namespace

StateResult state_tx(double t, double x) {
    Error e = quality_error(t, x);
    if (e == Error::none && (t < t_min - t_slack || t > critical_temperature)) e = Error::t_not_saturation;
    if (e != Error::none) return {State{}, e};
    return saturated_state(psat(t), t, x);
}

StateResult state_px(double p, double x) {
    Error e = quality_error(p, x);
    if (e == Error::none && (p < psat_min() || p > critical_pressure)) e = Error::p_not_saturation;
    if (e != Error::none) return {State{}, e};
    return saturated_state(p, tsat(p), x);
}

}  // namespace if97
