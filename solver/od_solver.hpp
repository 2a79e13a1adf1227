// Inverse solution: Brent's bracketed root finder, pressure and temperature
// from a two-letter input pair, and the composed inverse property functions
// (a property at a state given by pressure or temperature and a held
// volume or entropy).
//
// Units: pressure Pa, temperature K, volume m3/kg, enthalpy and internal
// energy J/kg, entropy J/(kg K), except the inputs of get_p and get_t, which
// are in the interface units (bar, degrees Celsius, m3/kg, kg/m3, kJ/kg,
// kJ/(kg K)).
#pragma once
#include <array>
#include <cmath>
#include <string_view>

#include "fluiddata/od_types.hpp"
#include "thermo/od_context.hpp"
#include "thermo/od_mixture.hpp"

namespace od::solver {

// Error codes written by this module (never cleared by it).
inline constexpr int err_unknown_spec = 2;      // input specification not known
inline constexpr int err_not_converged = 4;     // brent: no convergence in 100 iterations
inline constexpr int err_not_bracketed = 5;     // brent: value not reached within the bracket
inline constexpr int err_p_undetermined = 7;    // "Th"/"Tu" of a mixture without "H2O(IF)"

inline constexpr double solve_tol = 1e-6;            // tol of every brent call
inline constexpr double t_lower = 1.0;               // K, lower end of every temperature bracket
inline constexpr int max_iterations = 100;           // evaluations inside brent's loop
inline constexpr double not_converged_value = 0.0;   // result with err_not_converged
inline constexpr double twice_epsilon = 4.440892098500626e-16;  // 2 * DBL_EPSILON

// Root of f(x, fixed) = target (which == 1) or f(fixed, x) = target (any
// other which) for x between a and b, by Brent's method. a and b are
// overwritten with the iteration's current points; on success b holds the
// root. tol bounds both the residual at the two ends (steps 1 and 2) and,
// halved, the step on x. Failures: ierr = 5 and -8888.8 when the ends give
// residuals of one strict sign (a, b unchanged); ierr = 4 and 0.0 after 100
// loop evaluations. ierr is written only on failure. A NaN residual has no
// sign: brent goes on with it and may return a point next to it with no
// code; solve_pair catches that case, brent alone does not.
// f is any callable f(double, double, const M&) -> double; mix is handed to it unread.
template <class F, class M>
double brent(F&& f, int which, double fixed, double target, double& a, double& b,
             double tol, const M& mix, int& ierr) {
    auto residual = [&](double x) {
        return (which == 1 ? f(x, fixed, mix) : f(fixed, x, mix)) - target;
    };
    auto same_sign = [](double u, double w) { return (u > 0.0 && w > 0.0) || (u < 0.0 && w < 0.0); };

    // Intended: tol bounds the residual (in the matched property's unit) here
    // and, halved, the step on the unknown below.
    double ra = residual(a);
    if (std::fabs(ra) < tol) return a;
    double rb = residual(b);
    if (std::fabs(rb) < tol) return b;
    if (same_sign(ra, rb)) {
        ierr = err_not_bracketed;
        return missing_value;
    }
    double c = b, rc = rb;
    double d = 0.0, e = 0.0;
    int k = 1;
    for (;;) {
        if (same_sign(rb, rc)) {
            c = a;
            rc = ra;
            d = e = b - a;
        }
        if (std::fabs(rc) < std::fabs(rb)) {
            a = b; b = c; c = a;
            ra = rb; rb = rc; rc = ra;
        }
        const double t1 = 0.5 * tol + twice_epsilon * std::fabs(b);
        const double m = 0.5 * (c - b);
        if (std::fabs(m) <= t1 || rb == 0.0) return b;

        if (std::fabs(e) >= t1 && std::fabs(ra) > std::fabs(rb)) {
            const double s = rb / ra;
            double p, q;
            if (a == c) {
                p = 2.0 * m * s;
                q = 1.0 - s;
            } else {
                const double qa = ra / rc, rr = rb / rc;
                p = s * (2.0 * m * qa * (qa - rr) - (b - a) * (rr - 1.0));
                q = (qa - 1.0) * (rr - 1.0) * (s - 1.0);
            }
            if (p > 0.0) q = -q;
            p = std::fabs(p);
            const double limit = std::fmin(3.0 * m * q - std::fabs(t1 * q), std::fabs(e * q));
            if (2.0 * p < limit) {
                e = d;
                d = p / q;
            } else {
                d = e = m;
            }
        } else {
            d = e = m;
        }

        a = b;
        ra = rb;
        if (std::fabs(d) > t1) b += d;
        else b += (m >= 0.0 ? t1 : -t1);
        rb = residual(b);
        ++k;
        if (k > max_iterations) {
            ierr = err_not_converged;  // Intended: the residual just computed is not tested.
            return not_converged_value;
        }
    }
}

// brent as the input pairs use it, with two failures brent itself does not
// see. Given values that are not all finite (finite_inputs false) lie in no
// bracket: ierr = 5 and -8888.8, f not evaluated. A search that met a NaN
// residual and that brent reports as a success has found no root, only the
// edge of a region where f is not a number: ierr = 5 when the NaN was at
// one of the two ends (a and b are then put back as they were given), 4
// when it was inside (a and b the last two iterates); -8888.8 both times.
// A search that brent itself ends with a failure keeps brent's code and
// result, and one without a NaN is brent's, bit for bit.
template <class F, class M>
double solve_pair(F&& f, int which, double fixed, double target, double& a, double& b, double tol,
                  bool finite_inputs, const M& mix, int& ierr) {
    if (!finite_inputs) {
        ierr = err_not_bracketed;
        return missing_value;
    }
    const double a_given = a, b_given = b;
    int evaluations = 0;
    int nan_at = 0;  // the evaluation that gave the first NaN residual; 0: none
    auto watched = [&](double x1, double x2, const M& m) {
        const double y = f(x1, x2, m);
        ++evaluations;
        if (nan_at == 0 && std::isnan(y - target)) nan_at = evaluations;
        return y;
    };
    int code = 0;
    const double x = brent(watched, which, fixed, target, a, b, tol, mix, code);
    if (code != 0) {
        ierr = code;
        return x;
    }
    if (nan_at == 0) return x;
    if (nan_at <= 2) {
        a = a_given;
        b = b_given;
    }
    ierr = nan_at <= 2 ? err_not_bracketed : err_not_converged;
    return missing_value;
}


// Makes mix the stored composition of the gas table (loading the table
// first), which the state functions look their components up in; false, and
// nothing stored, when one of its names is not in the table.
bool select_mixture(const Mixture& mix);

// The two significant letters of an input specification, blank-padded.
std::array<char, 2> spec_letters(std::string_view inputspec);
// True when some component of the mixture is "H2O(IF)" (concentration not looked at).
bool has_water(const MixtureRows& mix);
bool has_water(const Mixture& mix);

// The solutions on an explicit context and resolved rows.
namespace core {

// Pressure in Pa from an input pair given in interface units.
double get_p(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
             int& ierr);
// Temperature in K from an input pair given in interface units.
double get_t(Context& ctx, std::string_view inputspec, double input1, double input2, const MixtureRows& mix,
             int& ierr);

// --- composed inverse functions: X_YZ is property X at the state (Y, Z) ------
// The missing state variable is found by get_t ("Pv", "Ps") or get_p ("Tv",
// "Ts"); an inner failure is silent and its failure value is used as state.
double t_at_pv(Context& ctx, double p, double v, const MixtureRows& mix);   // K at (p Pa, v m3/kg)
double p_at_tv(Context& ctx, double t, double v, const MixtureRows& mix);   // Pa at (t K, v m3/kg)
double t_at_ps(Context& ctx, double p, double s, const MixtureRows& mix);   // K at (p Pa, s J/(kg K))
double p_at_ts(Context& ctx, double t, double s, const MixtureRows& mix);   // Pa at (t K, s J/(kg K))

double h_pv(Context& ctx, double p, double v, const MixtureRows& mix);   // J/kg
double s_pv(Context& ctx, double p, double v, const MixtureRows& mix);   // J/(kg K)
double u_pv(Context& ctx, double p, double v, const MixtureRows& mix);   // J/kg
double h_tv(Context& ctx, double t, double v, const MixtureRows& mix);   // J/kg
double s_tv(Context& ctx, double t, double v, const MixtureRows& mix);   // J/(kg K)
double u_tv(Context& ctx, double t, double v, const MixtureRows& mix);   // J/kg
double h_ps(Context& ctx, double p, double s, const MixtureRows& mix);   // J/kg
double u_ps(Context& ctx, double p, double s, const MixtureRows& mix);   // J/kg
double v_ps(Context& ctx, double p, double s, const MixtureRows& mix);   // m3/kg
double h_ts(Context& ctx, double t, double s, const MixtureRows& mix);   // J/kg
double u_ts(Context& ctx, double t, double s, const MixtureRows& mix);   // J/kg
double v_ts(Context& ctx, double t, double s, const MixtureRows& mix);   // m3/kg

// Ideal-gas closed forms with R = 8.3143 J/(mol K); condensing water and
// condensed species are counted as gas.
double p_tv(double t, double v, const MixtureRows& mix);   // Pa: R t / (v M)
double t_pv(double p, double v, const MixtureRows& mix);   // K: v M p / R

}  // namespace core

// --- the same on the default context, the rows found through the stored composition ---
double get_p(std::string_view inputspec, double input1, double input2, const Mixture& mix, int& ierr);
double get_t(std::string_view inputspec, double input1, double input2, const Mixture& mix, int& ierr);
double t_at_pv(double p, double v, const Mixture& mix);
double p_at_tv(double t, double v, const Mixture& mix);
double t_at_ps(double p, double s, const Mixture& mix);
double p_at_ts(double t, double s, const Mixture& mix);
double h_pv(double p, double v, const Mixture& mix);
double s_pv(double p, double v, const Mixture& mix);
double u_pv(double p, double v, const Mixture& mix);
double h_tv(double t, double v, const Mixture& mix);
double s_tv(double t, double v, const Mixture& mix);
double u_tv(double t, double v, const Mixture& mix);
double h_ps(double p, double s, const Mixture& mix);
double u_ps(double p, double s, const Mixture& mix);
double v_ps(double p, double s, const Mixture& mix);
double h_ts(double t, double s, const Mixture& mix);
double u_ts(double t, double s, const Mixture& mix);
double v_ts(double t, double s, const Mixture& mix);
double p_tv(double t, double v, const Mixture& mix);
double t_pv(double p, double v, const Mixture& mix);

// f at the state: f(p, T, mix) with the missing variable found as above.
// f is any callable f(double p, double t, const Mixture&) -> double.
template <class F> double f_pv(F&& f, double p, double v, const Mixture& mix) { return f(p, t_at_pv(p, v, mix), mix); }
template <class F> double f_tv(F&& f, double t, double v, const Mixture& mix) { return f(p_at_tv(t, v, mix), t, mix); }
template <class F> double f_ps(F&& f, double p, double s, const Mixture& mix) { return f(p, t_at_ps(p, s, mix), mix); }
template <class F> double f_ts(F&& f, double t, double s, const Mixture& mix) { return f(p_at_ts(t, s, mix), t, mix); }

}  // namespace od::solver
