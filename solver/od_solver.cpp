// Pressure and temperature from an input pair, and the composed inverse
// property functions that the pair solutions match.
#include "solver/od_solver.hpp"

#include <cmath>

#include "fluiddata/od_fluiddata.hpp"
#include "thermo/od_units.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"

namespace od::solver {
namespace {

using basefuncs::r_gas;
using units::bar_to_pa;
using units::celsius_offset;
using units::kj_to_j;
using units::j_to_kj;
using units::pa_to_bar;

constexpr double p_lower = 1.0;        // Pa, lower end of every pressure bracket
constexpr double p_upper = 1.0e8;      // Pa, upper end unless the first letter is "v" or "d"
constexpr double p_volume_coef = 41571.5;  // R * 5000 K: the upper end is this / (v M)
constexpr double vu_retry_width = 100000.0;  // Pa: "vu" retries while the bracket is wider
constexpr double vu_retry_lower_factor = 10.0;
constexpr double vu_retry_upper_factor = 0.95;
// A bracket with positive ends closes (or overflows to NaN) within some 330
// rounds; one with a negative end would widen for ever.
constexpr int vu_retry_limit = 400;

// The two letters as one number, for a switch over the known pairs.
constexpr int pair(char first, char second) {
    return (static_cast<unsigned char>(first) << 8) | static_cast<unsigned char>(second);
}

}  // namespace

namespace core {
namespace {

// A state function of the core: f(ctx, x1, x2, mix).
using CoreFn = double (*)(Context& ctx, double x1, double x2, const MixtureRows& mix);

// f(ctx, x1, x2, mix) as a property function of brent.
auto on(Context& ctx, CoreFn f) {
    return [&ctx, f](double x1, double x2, const MixtureRows& mix) { return f(ctx, x1, x2, mix); };
}

// How a root is found: for the pair of a request NaNs fail (solve_pair);
// the inner solutions of the composed functions run as plain brent, so that
// the outer one meets the values they always gave.
enum class Rooting { checked, plain };

template <class F>
double root(Rooting mode, F&& f, int which, double fixed, double target, double& lo, double& hi,
            bool finite_inputs, const MixtureRows& mix, int& ierr) {
    if (mode == Rooting::plain) return brent(f, which, fixed, target, lo, hi, solve_tol, mix, ierr);
    return solve_pair(f, which, fixed, target, lo, hi, solve_tol, finite_inputs, mix, ierr);
}

// Pressure for "vu"/"du": u_pv(p, v) = u over p; with water present the
// bracket is narrowed and the solution repeated while it fails.
double p_from_vu(Context& ctx, double v, double u, double lo, double hi, bool retry, Rooting mode,
                 bool finite_inputs, const MixtureRows& mix, int& ierr) {
    double p = root(mode, on(ctx, u_pv), 1, v, u, lo, hi, finite_inputs, mix, ierr);
    if (!retry) return p;
    // Intended: the loop reads the caller's ierr, which is not cleared before the
    // first solution, so an earlier failure makes the retry run anyway.
    for (int round = 0; round < vu_retry_limit && ierr != 0 && hi - lo > vu_retry_width; ++round) {
        lo *= vu_retry_lower_factor;
        hi *= vu_retry_upper_factor;
        ierr = 0;
        p = root(mode, on(ctx, u_pv), 1, v, u, lo, hi, finite_inputs, mix, ierr);
    }
    return p;
}

}  // namespace
}  // namespace core

bool select_mixture(const Mixture& mix) {
    if (!fluiddata::dbread()) fluiddata::readgas();
    for (const CompName& name : mix.names)
        if (!fluiddata::iscomp(name)) return false;
    if (!fluiddata::same_as_stored(mix.names)) fluiddata::storeidx(mix.names);
    return true;
}

std::array<char, 2> spec_letters(std::string_view inputspec) {
    std::array<char, 2> s{' ', ' '};
    for (std::size_t i = 0; i < s.size() && i < inputspec.size(); ++i) s[i] = inputspec[i];
    return s;
}

bool has_water(const Mixture& mix) {
    bool found = false;
    for (const CompName& name : mix.names) found = found || name == h2o::water_if;
    return found;
}

bool has_water(const MixtureRows& mix) {
    bool found = false;
    for (const Component& c : mix.comps) found = found || c.water_if;
    return found;
}

namespace core {
namespace {

// get_p, its roots found as mode says.
double pressure(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
                int& ierr, Rooting mode) {
    const auto [first, second] = spec_letters(inputspec);
    if (first == 'P') return input1 * bar_to_pa;
    if (second == 'P') return input2 * bar_to_pa;

    double lo = p_lower;
    double hi = p_upper;
    if (first == 'v') hi = p_volume_coef / (input1 * mixinfo::mmol(mix));
    else if (first == 'd') hi = p_volume_coef * input1 / mixinfo::mmol(mix);
    const bool finite = std::isfinite(input1) && std::isfinite(input2);
    const auto solve = [&](CoreFn f, double fixed, double target) {
        return root(mode, on(ctx, f), 1, fixed, target, lo, hi, finite, mix, ierr);
    };

    const double t = input1 + celsius_offset;               // the "T" rows
    const double v = first == 'd' ? 1.0 / input1 : input1;  // the "v" and "d" rows
    const double e1 = input1 * kj_to_j;                     // a first "h" or "s"
    const double e2 = input2 * kj_to_j;                     // a second "h", "s" or "u"
    switch (pair(first, second)) {
    case pair('T', 'v'):
    case pair('T', 'd'): {
        const double vt = second == 'v' ? input2 : 1.0 / input2;
        if (has_water(mix)) return solve(thermodyn::core::v_pt, t, vt);
        return r_gas * t / (vt * mixinfo::mmol(mix));
    }
    case pair('T', 'h'):
        // Intended: without condensing water h and u do not depend on p (code 7).
        if (has_water(mix)) return solve(thermodyn::core::h_pt, t, e2);
        ierr = err_p_undetermined;
        return 0.0;
    case pair('T', 's'):
        return solve(thermodyn::core::s_pt, t, e2);
    case pair('T', 'u'):
        if (has_water(mix)) return solve(thermodyn::core::u_pt, t, e2);
        ierr = err_p_undetermined;
        return 0.0;
    case pair('v', 'h'):
    case pair('d', 'h'):
        return solve(h_pv, v, e2);
    case pair('v', 's'):
    case pair('d', 's'):
        // Intended: the pressure matches the volume at the held entropy, while
        // get_t matches the entropy at the held volume.
        return solve(v_ps, e2, v);
    case pair('v', 'u'):
        return p_from_vu(ctx, v, e2, lo, hi, has_water(mix), mode, finite, mix, ierr);
    case pair('d', 'u'):
        // Intended: only "vu" retries; "du" solves once.
        return p_from_vu(ctx, v, e2, lo, hi, false, mode, finite, mix, ierr);
    case pair('h', 's'):
        return solve(h_ps, e2, e1);
    case pair('s', 'u'):
        return solve(u_ps, e1, e2);
    default:
        ierr = err_unknown_spec;
        return 0.0;
    }
}

// get_t, its roots found as mode says.
double temperature(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
                   int& ierr, Rooting mode) {
    const auto [first, second] = spec_letters(inputspec);
    if (first == 'T') return input1 + celsius_offset;
    if (second == 'T') return input2 + celsius_offset;

    double lo = t_lower;
    double hi = mixinfo::tmax(mix);
    const bool finite = std::isfinite(input1) && std::isfinite(input2);
    const auto solve = [&](CoreFn f, int which, double fixed, double target) {
        return root(mode, on(ctx, f), which, fixed, target, lo, hi, finite, mix, ierr);
    };

    const double p = input1 * bar_to_pa;                    // the "P" rows
    const double v = first == 'd' ? 1.0 / input1 : input1;  // the "v" and "d" rows
    const double e1 = input1 * kj_to_j;                     // a first "h" or "s"
    const double e2 = input2 * kj_to_j;                     // a second "h", "s" or "u"
    switch (pair(first, second)) {
    case pair('P', 'v'):
    case pair('P', 'd'): {
        const double vp = second == 'v' ? input2 : 1.0 / input2;
        if (has_water(mix)) return solve(thermodyn::core::v_pt, 2, p, vp);
        return p * vp * mixinfo::mmol(mix) / r_gas;
    }
    case pair('P', 'h'):
        return solve(thermodyn::core::h_pt, 2, p, e2);
    case pair('P', 's'):
        return solve(thermodyn::core::s_pt, 2, p, e2);
    case pair('P', 'u'):
        return solve(thermodyn::core::u_pt, 2, p, e2);
    case pair('v', 'h'):
    case pair('d', 'h'):
        return solve(h_tv, 1, v, e2);
    case pair('v', 's'):
    case pair('d', 's'):
        return solve(s_tv, 1, v, e2);
    case pair('v', 'u'):
    case pair('d', 'u'):
        return solve(u_tv, 1, v, e2);
    case pair('h', 's'):
        return solve(h_ts, 1, e2, e1);
    case pair('s', 'u'):
        return solve(u_ts, 1, e1, e2);
    default:
        ierr = err_unknown_spec;
        return 0.0;
    }
}

}  // namespace

double get_p(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
             int& ierr) {
    return pressure(ctx, inputspec, input1, input2, mix, ierr, Rooting::checked);
}

double get_t(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
             int& ierr) {
    return temperature(ctx, inputspec, input1, input2, mix, ierr, Rooting::checked);
}

// The inner solutions convert back to interface units because get_p and
// get_t take them. Intended: their error code is dropped, and a failure value
// (-8888.8 or 0.0) becomes the state variable; they run plain brent, and
// the outer solution judges what it meets.
double t_at_pv(Context& ctx, double p, double v, const MixtureRows& mix) {
    int ignored = 0;
    return temperature(ctx, "Pv", p * pa_to_bar, v, mix, ignored, Rooting::plain);
}
double p_at_tv(Context& ctx, double t, double v, const MixtureRows& mix) {
    int ignored = 0;
    return pressure(ctx, "Tv", t - celsius_offset, v, mix, ignored, Rooting::plain);
}
double t_at_ps(Context& ctx, double p, double s, const MixtureRows& mix) {
    int ignored = 0;
    return temperature(ctx, "Ps", p * pa_to_bar, s * j_to_kj, mix, ignored, Rooting::plain);
}
double p_at_ts(Context& ctx, double t, double s, const MixtureRows& mix) {
    int ignored = 0;
    return pressure(ctx, "Ts", t - celsius_offset, s * j_to_kj, mix, ignored, Rooting::plain);
}

using thermodyn::core::h_pt;
using thermodyn::core::s_pt;
using thermodyn::core::u_pt;
using thermodyn::core::v_pt;
using R = const MixtureRows&;
double h_pv(Context& c, double p, double v, R m) { return h_pt(c, p, t_at_pv(c, p, v, m), m); }
double s_pv(Context& c, double p, double v, R m) { return s_pt(c, p, t_at_pv(c, p, v, m), m); }
double u_pv(Context& c, double p, double v, R m) { return u_pt(c, p, t_at_pv(c, p, v, m), m); }
double h_tv(Context& c, double t, double v, R m) { return h_pt(c, p_at_tv(c, t, v, m), t, m); }
double s_tv(Context& c, double t, double v, R m) { return s_pt(c, p_at_tv(c, t, v, m), t, m); }
double u_tv(Context& c, double t, double v, R m) { return u_pt(c, p_at_tv(c, t, v, m), t, m); }
double h_ps(Context& c, double p, double s, R m) { return h_pt(c, p, t_at_ps(c, p, s, m), m); }
double u_ps(Context& c, double p, double s, R m) { return u_pt(c, p, t_at_ps(c, p, s, m), m); }
double v_ps(Context& c, double p, double s, R m) { return v_pt(c, p, t_at_ps(c, p, s, m), m); }
double h_ts(Context& c, double t, double s, R m) { return h_pt(c, p_at_ts(c, t, s, m), t, m); }
double u_ts(Context& c, double t, double s, R m) { return u_pt(c, p_at_ts(c, t, s, m), t, m); }
double v_ts(Context& c, double t, double s, R m) { return v_pt(c, p_at_ts(c, t, s, m), t, m); }

// Intended: the closed forms ignore "H2O(IF)" and condensed species.
double p_tv(double t, double v, R mix) { return r_gas * t / (v * mixinfo::mmol(mix)); }
double t_pv(double p, double v, R mix) { return v * mixinfo::mmol(mix) * p / r_gas; }

}  // namespace core

// --- on the default context and the stored composition ---
using M = const Mixture&;
double get_p(std::string_view spec, double in1, double in2, M mix, int& ierr) {
    return core::get_p(default_context(), spec, in1, in2, StoredRows(mix), ierr);
}
double get_t(std::string_view spec, double in1, double in2, M mix, int& ierr) {
    return core::get_t(default_context(), spec, in1, in2, StoredRows(mix), ierr);
}
double t_at_pv(double p, double v, M m) { return core::t_at_pv(default_context(), p, v, StoredRows(m)); }
double p_at_tv(double t, double v, M m) { return core::p_at_tv(default_context(), t, v, StoredRows(m)); }
double t_at_ps(double p, double s, M m) { return core::t_at_ps(default_context(), p, s, StoredRows(m)); }
double p_at_ts(double t, double s, M m) { return core::p_at_ts(default_context(), t, s, StoredRows(m)); }
double h_pv(double p, double v, M m) { return core::h_pv(default_context(), p, v, StoredRows(m)); }
double s_pv(double p, double v, M m) { return core::s_pv(default_context(), p, v, StoredRows(m)); }
double u_pv(double p, double v, M m) { return core::u_pv(default_context(), p, v, StoredRows(m)); }
double h_tv(double t, double v, M m) { return core::h_tv(default_context(), t, v, StoredRows(m)); }
double s_tv(double t, double v, M m) { return core::s_tv(default_context(), t, v, StoredRows(m)); }
double u_tv(double t, double v, M m) { return core::u_tv(default_context(), t, v, StoredRows(m)); }
double h_ps(double p, double s, M m) { return core::h_ps(default_context(), p, s, StoredRows(m)); }
double u_ps(double p, double s, M m) { return core::u_ps(default_context(), p, s, StoredRows(m)); }
double v_ps(double p, double s, M m) { return core::v_ps(default_context(), p, s, StoredRows(m)); }
double h_ts(double t, double s, M m) { return core::h_ts(default_context(), t, s, StoredRows(m)); }
double u_ts(double t, double s, M m) { return core::u_ts(default_context(), t, s, StoredRows(m)); }
double v_ts(double t, double s, M m) { return core::v_ts(default_context(), t, s, StoredRows(m)); }
double p_tv(double t, double v, M m) { return core::p_tv(t, v, StoredRows(m)); }
double t_pv(double p, double v, M m) { return core::t_pv(p, v, StoredRows(m)); }

}  // namespace od::solver
