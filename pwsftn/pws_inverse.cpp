// Inverse routines of the water-and-steam package: the state and its region
// from an input pair, by searching along the isobar, isotherm, isentrope or
// isochore through the regions of the formulation.
#include "pwsftn/pws_inverse.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_halving.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws {
namespace {

// Names handed to pwser.
constexpr std::string_view name_pwsrph = "PWSRPH";
constexpr std::string_view name_pwsrps = "PWSRPS";
constexpr std::string_view name_pwsrpu = "PWSRPU";
constexpr std::string_view name_pwsrpv = "PWSRPV";
constexpr std::string_view name_pwsrtv = "PWSRTV";
constexpr std::string_view name_pwsrth = "PWSRTH";
constexpr std::string_view name_pwsrtu = "PWSRTU";
constexpr std::string_view name_pwsrts = "PWSRTS";
constexpr std::string_view name_pwsrhs = "PWSRHS";

// Codes of pwser: tens digit names the first value, units digit the second
// (1 P, 2 T, 3 H, 4 V, 5 S); a single digit names one value.
constexpr std::int32_t code_p = 1;
constexpr std::int32_t code_t = 2;
constexpr std::int32_t code_ph = 13;
constexpr std::int32_t code_pv = 14;
constexpr std::int32_t code_ps = 15;
constexpr std::int32_t code_th = 23;
constexpr std::int32_t code_tv = 24;
constexpr std::int32_t code_ts = 25;
constexpr std::int32_t code_hs = 35;

// Report lines of the inverse routines (error channel, not counted).
// Intended: pwsrth writes "CAN NOT", pwsrtu and pwsrus "CANNOT".
constexpr std::string_view subregion_can_not = " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE";
constexpr std::string_view subregion_cannot = " SUB-REGION CANNOT BE CALCULATED IN THIS STATE";
constexpr std::string_view not_in_wet_region = " POINT IS NOT IN WET-REGION  S=";
constexpr std::string_view below_critical_point = " POINT IS BELOW CRITICAL POINT  S=";
constexpr std::string_view label_t = " T=";
constexpr std::string_view label_h = " H=";
constexpr std::string_view label_u = " U=";
constexpr std::string_view label_s = " S=";
constexpr std::string_view label_x = " X=";
constexpr int report_width = 16;   // field of each reported value
constexpr int report_digits = 9;   // digits after the point
constexpr int scale_one = 1;       // 3.500000000E+02 (SUB-REGION lines)
constexpr int scale_zero = 0;      // 0.350000000E+03 (POINT lines)

// Relative widening of the range bounds (as in the bound checks of the
// common terms).
constexpr double bound_widening = 1.0E-5;
// Distance (relative) at which a value in the small gap between two regions
// of the formulation is given the nearer region's boundary state silently.
constexpr double region_gap = 1.0E-3;
// Tolerance of the inner inverse routine in the auxiliary routines when the
// outer routine asks for a coarser one: the inner state must be finer than
// the outer residual.
constexpr double inner_eps_factor = 1.0E-4;
constexpr int max_steps = 40;

// Region selection boundary between region 2 and region 3: reduced pressure
// (b2 theta + b1) theta + b0.
// Intended: 19.313380707 and 15.7473327 differ in their digits from the L
// function's 19.31380707 and 15.74373327; the selection keeps its own.
constexpr double sel_b2 = 19.313380707;
constexpr double sel_b1 = -34.17061978;
constexpr double sel_b0 = 15.7473327;

// Starting volumes (m3/kg) of the region-3 volume solves, linear in t (C).
constexpr double liquid_start_slope = 6.0E-5;
constexpr double liquid_start_offset = -0.01899;
constexpr double vapour_start_lo_slope = 5.6E-6;
constexpr double vapour_start_lo_offset = -0.00073;
constexpr double vapour_start_hi_slope = -2.18E-5;
constexpr double vapour_start_hi_offset = 0.01545;
constexpr double sat_liquid_start = 0.00174;
constexpr double sat_vapour_start_slope = -0.000222;
constexpr double sat_vapour_start_offset = 0.08611;

// Isochore bracket of pwsrvh, pwsrvs, pwsrvu.
constexpr double iso_v_liquid = 0.001000223493;   // liquid volume at the lowest state, m3/kg
constexpr double iso_p_per_v = 2.2851E7;          // bar per m3/kg below that volume
constexpr double iso_v_vapour = 0.004341059548;   // vapour volume at 1000 bar, 800 C, m3/kg
constexpr double iso_pv = 4.341059548;            // bar m3/kg: upper pressure times v above it
constexpr double iso_split = 1.0;                 // bar

bool finite(double a, double b) { return std::isfinite(a) && std::isfinite(b); }

double widened_lo(double lo) { return lo * (1.0 - bound_widening); }
double widened_hi(double hi) { return hi * (1.0 + bound_widening); }
bool outside(double x, double lo, double hi) { return x < widened_lo(lo) || x > widened_hi(hi); }

// The input x brought into [lo, hi]: a value outside is reported with the
// second input z (unless the caller is a quiet probe) and taken at the
// nearest end of the range.
double into_range(Context& ctx, std::string_view name, std::int32_t code, double x, double z, double lo,
                  double hi, bool report) {
    if (report && outside(x, lo, hi)) pwser(ctx, name, code, x, z);
    return std::clamp(x, lo, hi);
}

std::string report_value(double x, int scale) {
    return fortran_e(x, report_width, report_digits, scale);
}

void report_subregion(Context& ctx, std::string_view text, std::string_view l1, double x1,
                      std::string_view l2,
                      double x2) {
    write_record(ctx, pwserr(ctx).iunit, std::string(text) + std::string(l1) + report_value(x1, scale_one) +
                                     std::string(l2) + report_value(x2, scale_one));
}

// ---------------------------------------------------------------------------
// Properties by region, as functions the iterations can take.

enum class Prop { v, h, s, u };

double volume3(Context& /*ctx*/, double v, double /*t*/) { return v; }

// Volume, enthalpy, entropy and internal energy of sub-region 1, region 2
// (at p, t) and region 3 (at v, t).
constexpr std::array<std::array<RegionFn, 3>, 4> region_fns{{{pws_c1, pws_c2, volume3},
                                                         {pws_d1, pws_d2, pws_d3},
                                                         {pws_e1, pws_e2, pws_e3},
                                                         {pws_f1, pws_f2, pws_f3}}};
template <Prop Q>
constexpr RegionFn z1 = region_fns[static_cast<std::size_t>(Q)][0];
template <Prop Q>
constexpr RegionFn z2 = region_fns[static_cast<std::size_t>(Q)][1];
template <Prop Q>
constexpr RegionFn z3 = region_fns[static_cast<std::size_t>(Q)][2];

// The property of a placed state (IREG, a, b); NaN for a state not placed.
template <Prop Q>
double state_value(Context& ctx, std::int32_t ireg, double a, double b) {
    switch (ireg) {
    case ireg_liquid: return z1<Q>(ctx, a, b);
    case ireg_vapour: return z2<Q>(ctx, a, b);
    case ireg_r3_vapour:
    case ireg_r3_liquid: return z3<Q>(ctx, a, b);
    case ireg_wet_r3: {
        const SaturatedVolumes sv = saturated_volumes3(ctx, pws_pt(ctx, b), b);
        const double zl = z3<Q>(ctx, sv.liquid, b);
        return zl + a * (z3<Q>(ctx, sv.vapour, b) - zl);
    }
    case ireg_wet: {
        const double ps = pws_pt(ctx, b);
        const double zl = z1<Q>(ctx, ps, b);
        return zl + a * (z2<Q>(ctx, ps, b) - zl);
    }
    default: return std::numeric_limits<double>::quiet_NaN();
    }
}

// ---------------------------------------------------------------------------
// Region-3 volume at (p, t) from two starting volumes: pws_i3's secant steps
// with halving (at most 40; they stop when the pressure matches within eps p
// or the bracket is narrower than eps times the volume, and after 40 steps
// keep the last volume).
double a3_eps(Context& ctx, double v, double t, double /*eps*/) { return pws_a3(ctx, v, t); }

double v3_solve(Context& ctx, double p, double t, double a, double b, double eps) {
    // The equation has no value at a volume that is not positive (the vapour
    // pair's upper volume above about 708.7 C): such a start is replaced by
    // the lowest volume of region 3.
    if (!(a > 0.0)) a = v3_min;
    if (!(b > 0.0)) b = v3_min;
    double fa = pws_a3(ctx, a, t) - p;
    double fb = pws_a3(ctx, b, t) - p;
    // Starting volumes that do not enclose the root are widened towards it
    // inside the volumes of region 3 (pressure falls with volume on both
    // branches), at most 40 times.
    for (int step = 0; step < max_steps && fa * fb > 0.0; ++step) {
        if (a > b) std::swap(a, b), std::swap(fa, fb);
        const double width = b - a;
        if (fa < 0.0) {  // both pressures too low: the root lies at a smaller volume
            if (a <= v3_min) break;
            b = a, fb = fa;
            a = std::max(a - width, v3_min);
            fa = pws_a3(ctx, a, t) - p;
        } else {  // both too high: at a larger volume
            if (b >= v3_max) break;
            a = b, fa = fb;
            b = std::min(b + width, v3_max);
            fb = pws_a3(ctx, b, t) - p;
        }
    }
    return pws_i3(ctx, a3_eps, t, p, a, b, eps);
}

// Starting volumes (m3/kg) of the liquid and vapour solves at t (C).
double liquid_start(double t) { return liquid_start_slope * t + liquid_start_offset; }
double vapour_start_lo(double t) { return vapour_start_lo_slope * t + vapour_start_lo_offset; }
double vapour_start_hi(double t) { return vapour_start_hi_offset + vapour_start_hi_slope * t; }

// Region-3 volumes at the ends of the pieces of an isobar or isotherm: the
// starting volumes are kept inside region 3, so that the probes of these
// searches are not reported as states out of range.
double in_v3(double v) { return std::clamp(v, v3_min, v3_max); }
double v3_liquid(Context& ctx, double p, double t, double eps) {
    return v3_solve(ctx, p, t, in_v3(liquid_start(t)), v3_min, eps);
}
double v3_vapour(Context& ctx, double p, double t, double eps) {
    return v3_solve(ctx, p, t, in_v3(vapour_start_lo(t)), in_v3(vapour_start_hi(t)), eps);
}

// Reduced pressure p / pc of the selection boundary at t (C).
double selection_boundary_reduced(double t) {
    const double theta = reduced_temperature(t);
    return (sel_b2 * theta + sel_b1) * theta + sel_b0;
}

// Temperature (C) at which the selection boundary reaches p (bar): the root
// of the quadratic above its vertex (near 300 C).
double selection_boundary_temperature(double p) {
    const double disc = sel_b1 * sel_b1 - 4.0 * sel_b2 * (sel_b0 - p / crit_p);
    const double theta = (-sel_b1 + std::sqrt(std::max(disc, 0.0))) / (2.0 * sel_b2);
    return theta * crit_tk - celsius_offset;
}

// ---------------------------------------------------------------------------
// Pieces of a line of constant pressure or temperature: one region each, in
// the order of the line, with the property at both ends.

struct Piece {
    std::int32_t ireg = 0;
    double lo = 0, hi = 0;      // varied quantity at the two ends (t, p or v)
    double z_lo = 0, z_hi = 0;  // the property at the two ends
    double v_lo = 0, v_hi = 0;  // region-3 volumes at the ends (isobars)
    double t_sat = 0;           // wet piece: saturation temperature
};

struct Line {
    std::array<Piece, 5> piece{};
    std::size_t n = 0;
    void add(const Piece& p) { piece[n++] = p; }
};

bool is_wet(std::int32_t ireg) { return ireg == ireg_wet || ireg == ireg_wet_r3; }

bool within(double z, double lo, double hi, double tol = 0.0) {
    return z >= std::min(lo, hi) - tol && z <= std::max(lo, hi) + tol;
}

double dryness(double z, double zl, double zg) { return zg == zl ? 0.0 : (z - zl) / (zg - zl); }

// Isobar at p (bar, inside the range) in increasing temperature, up to the
// first piece that reaches the value z (the pieces beyond are not needed).
template <Prop Q>
Line isobar(Context& ctx, double p, double z, double eps) {
    Line line;
    const double tol = std::fabs(z * eps);
    const auto reached = [&] { return z <= line.piece[line.n - 1].z_hi + tol; };
    const auto r1 = [&](double t_hi) {
        line.add({ireg_liquid, t_sub1_min, t_hi, z1<Q>(ctx, p, t_sub1_min), z1<Q>(ctx, p, t_hi)});
        return reached();
    };
    const auto r2 = [&](double t_lo) {
        line.add({ireg_vapour, t_lo, t2_max, z2<Q>(ctx, p, t_lo), z2<Q>(ctx, p, t2_max)});
        return reached();
    };
    const auto r3 = [&](std::int32_t ireg, double t_lo, double v_lo, double t_hi, double v_hi) {
        line.add({ireg, t_lo, t_hi, z3<Q>(ctx, v_lo, t_lo), z3<Q>(ctx, v_hi, t_hi), v_lo, v_hi});
        return reached();
    };
    const double ts = p < crit_p ? pws_it(ctx, p) : crit_t;
    // A vapour state is found in region 2 without the pieces below it.
    const bool below_boundary = p < crit_p && (ts <= t_sub1_max || p < selection_boundary_pressure(ts));
    const double t2_lo = below_boundary ? ts : selection_boundary_temperature(p);
    if (z >= z2<Q>(ctx, p, t2_lo)) {
        r2(t2_lo);
        return line;
    }
    if (p < crit_p) {
        if (ts <= t_sub1_max) {
            if (r1(ts)) return line;
            line.add({ireg_wet, ts, ts, z1<Q>(ctx, p, ts), z2<Q>(ctx, p, ts), 0, 0, ts});
            if (reached()) return line;
            r2(ts);
            return line;
        }
        if (r1(t_sub1_max)) return line;
        const SaturatedVolumes sv = saturated_volumes3(ctx, p, ts);
        if (r3(ireg_r3_liquid, t_sub1_max, v3_liquid(ctx, p, t_sub1_max, eps), ts, sv.liquid)) return line;
        line.add({ireg_wet_r3, ts, ts, z3<Q>(ctx, sv.liquid, ts), z3<Q>(ctx, sv.vapour, ts), sv.liquid,
                  sv.vapour, ts});
        if (reached()) return line;
        if (p < selection_boundary_pressure(ts)) {
            r2(ts);
            return line;
        }
        const double tb = selection_boundary_temperature(p);
        if (r3(ireg_r3_vapour, ts, sv.vapour, tb, v3_vapour(ctx, p, tb, eps))) return line;
        r2(tb);
        return line;
    }
    if (r1(t_sub1_max)) return line;
    if (r3(ireg_r3_liquid, t_sub1_max, v3_liquid(ctx, p, t_sub1_max, eps), crit_t,
           v3_liquid(ctx, p, crit_t, eps)))
        return line;
    const double tb = selection_boundary_temperature(p);
    if (r3(ireg_r3_vapour, crit_t, v3_vapour(ctx, p, crit_t, eps), tb, v3_vapour(ctx, p, tb, eps)))
        return line;
    r2(tb);
    return line;
}

// Temperature along the isobar p at which the property is z; pieces in
// increasing z. Returns IREG with (a, b) set.
// With `report` false a state outside the range is clamped silently (the
// probes of an outer iteration).
template <Prop Q>
std::int32_t invert_isobar(Context& ctx, std::string_view name, std::int32_t code, double& a, double& b,
                           double eps, bool report = true) {
    if (!finite(a, b)) return ireg_not_placed;
    const double z = b;
    const double p = into_range(ctx, name, code, a, z, p_min, p_max, report);
    const Line line = isobar<Q>(ctx, p, z, eps);
    const Piece& first = line.piece[0];
    const Piece& last = line.piece[line.n - 1];
    if (z < first.z_lo || z > last.z_hi + std::fabs(z * eps)) {
        if (report) pwser(ctx, name, code, p, z);
        a = p;
        b = z < first.z_lo ? first.lo : last.hi;
        return z < first.z_lo ? first.ireg : last.ireg;
    }
    for (std::size_t k = 0; k < line.n; ++k) {
        const Piece& c = line.piece[k];
        // A value at the upper end (within the tolerance) stays in this piece.
        if (z > c.z_hi + std::fabs(z * eps) && k + 1 < line.n) continue;
        if (is_wet(c.ireg)) {
            a = dryness(z, c.z_lo, c.z_hi);
            b = c.t_sat;
            return c.ireg;
        }
        const bool r3 = c.ireg == ireg_r3_liquid || c.ireg == ireg_r3_vapour;
        if (z < c.z_lo) {  // in the small gap between two regions: the lower end
            a = r3 ? c.v_lo : p;
            b = c.lo;
            return c.ireg;
        }
        double ta = c.lo, tb = c.hi;
        if (!r3) {
            a = p;
            b = pws_i1(ctx, c.ireg == ireg_liquid ? z1<Q> : z2<Q>, p, z, ta, tb, eps);
            return c.ireg;
        }
        if constexpr (Q == Prop::v) {
            a = z;
            b = pws_i1(ctx, pws_a3, z, p, ta, tb, eps);
        } else {
            double va = c.v_lo, vb = c.v_hi;
            pws_id(ctx, z3<Q>, z, pws_a3, p, va, vb, ta, tb, eps);
            a = va;
            b = ta;
        }
        return c.ireg;
    }
    return ireg_not_placed;
}

// Isotherm at t (C, inside the range) in increasing pressure, up to the
// first piece that holds the value z.
template <Prop Q>
Line isotherm(Context& ctx, double t, double z, double eps) {
    Line line;
    const double tol = std::fabs(z * eps);
    const auto holds = [&] {
        const Piece& c = line.piece[line.n - 1];
        return within(z, c.z_lo, c.z_hi, tol);
    };
    const auto r2 = [&](double p_hi) {
        line.add({ireg_vapour, p_min, p_hi, z2<Q>(ctx, p_min, t), z2<Q>(ctx, p_hi, t)});
        return holds();
    };
    const auto r3 = [&](std::int32_t ireg, double v_lo, double v_hi) {
        line.add({ireg, v_lo, v_hi, z3<Q>(ctx, v_lo, t), z3<Q>(ctx, v_hi, t)});
        return holds();
    };
    const auto wet = [&](std::int32_t ireg, double ps, double zl, double zg) {
        line.add({ireg, ps, ps, zl, zg, 0, 0, t});
        return holds();
    };
    if (t <= t_sub1_max) {
        const double ps = pws_pt(ctx, t);
        if (r2(ps)) return line;
        if (wet(ireg_wet, ps, z1<Q>(ctx, ps, t), z2<Q>(ctx, ps, t))) return line;
        line.add({ireg_liquid, ps, p_max, z1<Q>(ctx, ps, t), z1<Q>(ctx, p_max, t)});
        return line;
    }
    const double pb = selection_boundary_pressure(t);
    if (t <= crit_t) {
        const double ps = pws_pt(ctx, t);
        if (r2(std::min(pb, ps))) return line;
        const SaturatedVolumes sv = saturated_volumes3(ctx, ps, t);
        if (pb < ps && r3(ireg_r3_vapour, v3_vapour(ctx, pb, t, eps), sv.vapour)) return line;
        if (wet(ireg_wet_r3, ps, z3<Q>(ctx, sv.liquid, t), z3<Q>(ctx, sv.vapour, t))) return line;
        r3(ireg_r3_liquid, sv.liquid, v3_liquid(ctx, p_max, t, eps));
        return line;
    }
    if (pb >= p_max) {
        r2(p_max);
        return line;
    }
    if (r2(pb)) return line;
    r3(ireg_r3_vapour, v3_vapour(ctx, pb, t, eps), v3_vapour(ctx, p_max, t, eps));
    return line;
}

enum class OffLine { report, subregion_can_not, subregion_cannot };

// Pressure (or region-3 volume) along the isotherm t at which the property is
// z: the first piece that holds z. A value no piece holds is given the nearest
// end when it lies in a gap between regions; otherwise it is reported.
template <Prop Q>
std::int32_t invert_isotherm(Context& ctx, std::string_view name, std::int32_t code, OffLine off,
                             std::string_view z_label, double& a, double& b, double eps,
                             bool report = true) {
    if (!finite(a, b)) return ireg_not_placed;
    const double z = a;
    const double t = into_range(ctx, name, code, b, z, t_sub1_min, t2_max, report);
    const Line line = isotherm<Q>(ctx, t, z, eps);
    for (std::size_t k = 0; k < line.n; ++k) {
        const Piece& c = line.piece[k];
        if (!within(z, c.z_lo, c.z_hi, std::fabs(z * eps))) continue;
        b = t;
        if (is_wet(c.ireg)) {
            a = dryness(z, c.z_lo, c.z_hi);
            return c.ireg;
        }
        double lo = c.lo, hi = c.hi;
        if (c.ireg == ireg_liquid) {
            a = pws_i2(ctx, z1<Q>, t, z, lo, hi, eps);
        } else if (c.ireg == ireg_vapour) {
            a = pws_i2(ctx, z2<Q>, t, z, lo, hi, eps);
        } else if constexpr (Q == Prop::v) {
            a = z;
        } else {
            a = pws_i2(ctx, z3<Q>, t, z, lo, hi, eps);
        }
        return c.ireg;
    }
    // Nearest end of any piece.
    std::size_t best = 0;
    bool at_hi = false;
    double dist = std::numeric_limits<double>::infinity();
    for (std::size_t k = 0; k < line.n; ++k) {
        const Piece& c = line.piece[k];
        if (std::fabs(z - c.z_lo) < dist) dist = std::fabs(z - c.z_lo), best = k, at_hi = false;
        if (std::fabs(z - c.z_hi) < dist) dist = std::fabs(z - c.z_hi), best = k, at_hi = true;
    }
    const bool in_gap = dist <= region_gap * std::fabs(z);
    if (!in_gap) {
        if (off == OffLine::report) {
            if (report) pwser(ctx, name, code, t, z);
        } else {
            report_subregion(ctx, off == OffLine::subregion_can_not ? subregion_can_not : subregion_cannot,
                             label_t, t, z_label, z);
            return ireg_not_placed;
        }
    }
    const Piece& c = line.piece[best];
    b = t;
    a = is_wet(c.ireg) ? (at_hi ? 1.0 : 0.0) : (at_hi ? c.hi : c.lo);
    return c.ireg;
}

// pwsrpv without range reports, (p, v) in (a, b).
std::int32_t quiet_pv(Context& ctx, double& a, double& b, double eps) {
    return invert_isobar<Prop::v>(ctx, name_pwsrpv, code_pv, a, b, eps, false);
}
// pwsrts without range reports, with (s, t) in (a, b) (the isotherm's order).
std::int32_t quiet_ts(Context& ctx, double& a, double& b, double eps) {
    return invert_isotherm<Prop::s>(ctx, name_pwsrts, code_ts, OffLine::report, label_s, a, b, eps, false);
}

// ---------------------------------------------------------------------------
// Outer iteration of pwsrvh, pwsrvs, pwsrvu, pwsrhs, pwsrus: f(x, fixed, eps)
// - target on [a, b] by secant steps, each followed by one midpoint evaluation
// that keeps the bracket shrinking; 40 steps, then the last secant point.
double outer_solve(Context& ctx, Fn3 f, double fixed, double target, double a, double b, double eps) {
    // Residuals of the same sign do not enclose the root; a zero or NaN product does.
    const auto encloses = [](double u, double v) { return !(u * v > 0.0); };
    const double tol = std::fabs(target * eps);
    double fb = f(ctx, b, fixed, eps) - target;
    if (std::fabs(fb) < tol) return b;
    double fa = f(ctx, a, fixed, eps) - target;
    if (std::fabs(fa) < tol) return a;
    double s = b;
    for (int step = 0; step < max_steps; ++step) {
        // Equal residuals at both ends (a bracket whose probes all fall at the
        // same clamped state) leave no secant point: the midpoint is taken
        // instead of a division by zero.
        if (std::fabs(b) * eps > std::fabs(b - a) || fb == fa) return (a + b) * 0.5;
        s = b - (b - a) * fb / (fb - fa);
        const double fs = f(ctx, s, fixed, eps) - target;
        if (std::fabs(fs) < tol) return s;
        detail::halve(b, fb, a, fa, s, fs, encloses,
                      [&](double m) { return f(ctx, m, fixed, eps) - target; });
    }
    // Intended: no warning when the 40 steps run out; the last secant point stands.
    return s;
}

// Volume with a property: pressure along the isochore, then pwsrpv.
std::int32_t invert_isochore(Context& ctx, Fn3 f, double& a, double& b, double eps) {
    if (!finite(a, b)) return ireg_not_placed;
    const double v = a;
    const double z = b;
    double lo = p_min;
    double hi = p_max;
    if (v < iso_v_liquid) lo = (iso_v_liquid - v) * iso_p_per_v;
    if (v > iso_v_vapour) hi = iso_pv / v;
    if (lo < iso_split && hi > iso_split) {
        const double f1 = f(ctx, iso_split, v, eps) - z;
        if (f1 < 0.0) lo = iso_split;
        if (f1 > 0.0) hi = iso_split;
    }
    double p = outer_solve(ctx, f, v, z, lo, hi, eps);
    double second = v;
    const std::int32_t ireg = pwsrpv(ctx, p, second, eps);
    a = p;
    // A state not placed keeps the property in b.
    if (ireg >= ireg_liquid && ireg <= ireg_wet) b = second;
    return ireg;
}

// Entropy with enthalpy or internal energy: temperature along the isentrope,
// bracketed by the lowest and the highest pressure of the range.
struct IsentropeBracket {
    bool ok = false;
    double lo = 0, hi = 0;
};

IsentropeBracket isentrope_bracket(Context& ctx, double s, double eps) {
    IsentropeBracket br;
    if (s < pws_e1(ctx, p_max, t_sub1_min) || s > pws_e2(ctx, p_min, t2_max)) return br;
    br.lo = t_sub1_min;
    if (s > pws_e2(ctx, pws_pt(ctx, t_sub1_min), t_sub1_min)) {
        double ta = t_sub1_min, tb = t2_max;
        br.lo = pws_i1(ctx, z2<Prop::s>, p_min, s, ta, tb, eps);
    }
    br.hi = t2_max;
    if (s < pws_e2(ctx, p_max, t2_max)) {
        double p = p_max, s_then_t = s;
        pwsrps(ctx, p, s_then_t, eps);
        br.hi = s_then_t;
    }
    br.ok = true;
    return br;
}

std::int32_t invert_isentrope(Context& ctx, Fn3 f, bool refuse, double& a, double& b, double eps) {
    if (!finite(a, b)) return ireg_not_placed;
    const double z = a;
    const double s = b;
    const IsentropeBracket br = isentrope_bracket(ctx, s, eps);
    const double z_lo = br.ok ? f(ctx, br.lo, s, eps) : 0.0;
    const double z_hi = br.ok ? f(ctx, br.hi, s, eps) : 0.0;
    const double tol = std::fabs(z * eps);
    double t = 0.0;
    if (br.ok && z >= z_lo - tol && z <= z_hi + tol) {
        t = outer_solve(ctx, f, s, z, br.lo, br.hi, eps);
    } else if (refuse) {
        report_subregion(ctx, subregion_cannot, label_u, z, label_s, s);
        return ireg_not_placed;
    } else {
        pwser(ctx, name_pwsrhs, code_hs, z, s);
        if (br.ok)
            t = z < z_lo ? br.lo : br.hi;
        else
            t = s < pws_e1(ctx, p_max, t_sub1_min) ? t_sub1_min : t2_max;
    }
    // The state of the isentrope at t, quietly: a value out of range has
    // been reported above.
    double za = s, tb = t;
    const std::int32_t ireg = quiet_ts(ctx, za, tb, eps);
    a = za;
    b = tb;
    return ireg;
}

// Region number of a wet state at the saturation temperature t (C).
std::int32_t wet_region(double t) { return t <= t_sub1_max ? ireg_wet : ireg_wet_r3; }

// Mixed entropy of the wet state (t, x).
double mixed_entropy(Context& ctx, double t, double x) {
    return state_value<Prop::s>(ctx, wet_region(t), x, t);
}

double inner_eps(double eps) { return std::min(eps, entry_eps) * inner_eps_factor; }

// The property of the state (p, v) placed by pwsrpv, and of the state (t, s)
// placed by pwsrts, quietly and with the inner tolerance.
template <Prop Q>
double on_isobar(Context& ctx, double p, double v, double eps) {
    double a = p, b = v;
    const std::int32_t ireg = quiet_pv(ctx, a, b, inner_eps(eps));
    return state_value<Q>(ctx, ireg, a, b);
}
template <Prop Q>
double on_isentrope(Context& ctx, double t, double s, double eps) {
    double a = s, b = t;
    const std::int32_t ireg = quiet_ts(ctx, a, b, inner_eps(eps));
    return state_value<Q>(ctx, ireg, a, b);
}

// A routine of the pair (t, z): the isotherm search reads (z, t); arguments
// not placed are handed back as they came.
template <Prop Q>
std::int32_t from_isotherm(Context& ctx, std::string_view name, std::int32_t code, OffLine off,
                           std::string_view z_label, double& a, double& b, double eps) {
    std::swap(a, b);
    const std::int32_t ireg = invert_isotherm<Q>(ctx, name, code, off, z_label, a, b, eps);
    if (ireg == ireg_not_placed) std::swap(a, b);
    return ireg;
}


}  // namespace

// ---------------------------------------------------------------------------

double selection_boundary_pressure(double t) { return selection_boundary_reduced(t) * crit_p; }

SaturatedVolumes saturated_volumes3(Context& ctx, double ps, double t) {
    double va = std::max(sat_vapour_start_offset + sat_vapour_start_slope * t, crit_v);
    double vb = v3_max;
    const double vapour = pws_i2(ctx, pws_a3, t, ps, va, vb, entry_eps);
    double la = std::min(liquid_start_slope * t + liquid_start_offset, crit_v);
    double lb = sat_liquid_start;
    const double liquid = pws_i2(ctx, pws_a3, t, ps, la, lb, entry_eps);
    // Intended: the roots are those that pws_i2 reaches from these starting
    // pairs. Above about 373.1 C the vapour pair (0.00317, 0.008799105448) no
    // longer encloses the vapour root, and the secant steps end on the middle
    // root of the isotherm; that volume is used as found.
    return {liquid, vapour};
}

std::int32_t pwsrpt(Context& ctx, double& a, double& b, double eps) {
    // Values that are not finite go through the same tests as any other: a
    // NaN fails every comparison and ends in region 2 (or region 3 above
    // 350 C), where the equations give NaN.
    const double p = a;
    const double t = b;
    if (t <= t_sub1_max) {
        const double ps = pws_pt(ctx, t);
        // Intended: a state on the saturation line keeps its pressure in a,
        // where the entry routine reads a dryness fraction.
        if (eps * p > std::fabs(p - ps)) return ireg_wet;
        if (ps <= p) {
            comt1(ctx, p, t);
            return ireg_liquid;
        }
        comt2(ctx, p, t);
        return ireg_vapour;
    }
    if (t <= crit_t) {
        const double ps = pws_pt(ctx, t);
        if (eps * p > std::fabs(p - ps)) return ireg_wet_r3;  // Intended: pressure kept in a.
        if (p > ps) {
            a = v3_solve(ctx, p, t, liquid_start(t), v3_min, eps);
            return ireg_r3_liquid;
        }
    }
    // Above 350 C a region-2 state is placed without its common terms: a
    // temperature out of range is reported when a property is evaluated.
    if (selection_boundary_reduced(t) > p / crit_p) return ireg_vapour;
    // The search starts from 5.6E-6 t - 0.00073 as it stands: up to about
    // 365.3 C that volume lies below region 3, and the bound check of the
    // region-3 terms reports it.
    a = v3_solve(ctx, p, t, vapour_start_lo(t), vapour_start_hi(t), eps);
    return ireg_r3_vapour;
}

std::int32_t pwsrph(Context& ctx, double& a, double& b, double eps) {
    return invert_isobar<Prop::h>(ctx, name_pwsrph, code_ph, a, b, eps);
}
std::int32_t pwsrps(Context& ctx, double& a, double& b, double eps) {
    return invert_isobar<Prop::s>(ctx, name_pwsrps, code_ps, a, b, eps);
}
std::int32_t pwsrpu(Context& ctx, double& a, double& b, double eps) {
    return invert_isobar<Prop::u>(ctx, name_pwsrpu, code_p, a, b, eps);
}
std::int32_t pwsrpv(Context& ctx, double& a, double& b, double eps) {
    return invert_isobar<Prop::v>(ctx, name_pwsrpv, code_pv, a, b, eps);
}

std::int32_t pwsrpx(Context& ctx, double& a, double& b, double eps) {
    (void)eps;
    if (!finite(a, b)) return ireg_not_placed;
    // The saturation temperature by bracketing on the saturation equation
    // (residual 1e-12 of the pressure); the Newton form pws_tp stops at a
    // residual of 1e-4 below 186 bar.
    const double ts = pws_it(ctx, a);
    a = b;
    b = ts;
    return wet_region(ts);
}

std::int32_t pwsrtv(Context& ctx, double& a, double& b, double eps) {
    return from_isotherm<Prop::v>(ctx, name_pwsrtv, code_tv, OffLine::report, label_x, a, b, eps);
}
std::int32_t pwsrth(Context& ctx, double& a, double& b, double eps) {
    return from_isotherm<Prop::h>(ctx, name_pwsrth, code_th, OffLine::subregion_can_not, label_h, a, b, eps);
}
std::int32_t pwsrtu(Context& ctx, double& a, double& b, double eps) {
    return from_isotherm<Prop::u>(ctx, name_pwsrtu, code_t, OffLine::subregion_cannot, label_u, a, b, eps);
}
std::int32_t pwsrts(Context& ctx, double& a, double& b, double eps) {
    return from_isotherm<Prop::s>(ctx, name_pwsrts, code_ts, OffLine::report, label_s, a, b, eps);
}

std::int32_t pwsrtx(Context& /*ctx*/, double& a, double& b, double eps) {
    (void)eps;
    const double t = a;
    const double x = b;
    if (t <= t_sub1_max) {
        a = x;
        b = t;
        return ireg_wet;
    }
    // Intended: a wet state above the critical temperature is refused with an
    // illegal region number, arguments unchanged.
    // A temperature that is not a number fails both tests and is placed as 5.
    if (t > crit_t) return ireg_above_critical;
    a = x;
    b = t;
    return ireg_wet_r3;
}

std::int32_t pwsrsx(Context& ctx, double& a, double& b, double eps) {
    if (!finite(a, b)) return ireg_not_placed;
    const double s = a;
    const double x = b;
    const double ps0 = pws_pt(ctx, t_sub1_min);
    const double sl0 = pws_e1(ctx, ps0, t_sub1_min);
    const double sg0 = pws_e2(ctx, ps0, t_sub1_min);
    if (x < 0.0 || x > 1.0 || s < sl0 || s > sg0) {
        write_record(ctx, pwserr(ctx).iunit, std::string(not_in_wet_region) + report_value(s, scale_zero) +
                                         std::string(label_x) + report_value(x, scale_zero));
        return ireg_not_placed;
    }
    const double s_low = sl0 + x * (sg0 - sl0);
    const double s_crit = mixed_entropy(ctx, crit_t, x);
    if (!within(s, s_low, s_crit)) {
        write_record(ctx, pwserr(ctx).iunit, std::string(below_critical_point) + report_value(s, scale_zero));
        return ireg_not_placed;
    }
    double ta = t_sub1_min, tb = crit_t;
    const double t = pws_i2(ctx, mixed_entropy, x, s, ta, tb, eps);
    a = x;
    b = t;
    return wet_region(t);
}

std::int32_t pwsrhs(Context& ctx, double& a, double& b, double eps) {
    return invert_isentrope(ctx, pws_ht, false, a, b, eps);
}
std::int32_t pwsrus(Context& ctx, double& a, double& b, double eps) {
    return invert_isentrope(ctx, pws_ut, true, a, b, eps);
}

std::int32_t pwsrvh(Context& ctx, double& a, double& b, double eps) {
    return invert_isochore(ctx, pws_hp, a, b, eps);
}
std::int32_t pwsrvs(Context& ctx, double& a, double& b, double eps) {
    return invert_isochore(ctx, pws_sp, a, b, eps);
}
std::int32_t pwsrvu(Context& ctx, double& a, double& b, double eps) {
    return invert_isochore(ctx, pws_up, a, b, eps);
}

// The auxiliary routines place their state as pwsrpv and pwsrts do, but
// clamp a probe outside the range silently: an outer iteration tries states
// at the ends of its bracket, and only the state it settles on is reported
// (by the final call of the public routine).
double pws_hp(Context& ctx, double p, double v, double eps) { return on_isobar<Prop::h>(ctx, p, v, eps); }
double pws_sp(Context& ctx, double p, double v, double eps) { return on_isobar<Prop::s>(ctx, p, v, eps); }
double pws_up(Context& ctx, double p, double v, double eps) { return on_isobar<Prop::u>(ctx, p, v, eps); }
double pws_ht(Context& ctx, double t, double s, double eps) { return on_isentrope<Prop::h>(ctx, t, s, eps); }
double pws_ut(Context& ctx, double t, double s, double eps) { return on_isentrope<Prop::u>(ctx, t, s, eps); }

}  // namespace pws
