// Region equations of the water-and-steam package (IFC-67), the transport
// equations and the iterations used with them. Sub-region 1 and region 2 take
// (p bar, t C), region 3 takes (v m3/kg, t C). Out-of-range states are reported
// by the common-term routines and evaluated all the same.
#pragma once
#include "pwsftn/pws_context_fwd.hpp"
#include "pwsftn/pws_function_ref.hpp"

namespace pws {

double pws_c1(Context& ctx, double p, double t);  // specific volume, sub-region 1, m3/kg
double pws_c2(Context& ctx, double p, double t);  // specific volume, region 2, m3/kg
double pws_d1(Context& ctx, double p, double t);  // specific enthalpy, sub-region 1, kJ/kg
double pws_d2(Context& ctx, double p, double t);  // specific enthalpy, region 2, kJ/kg
double pws_d3(Context& ctx, double v, double t);  // specific enthalpy, region 3, kJ/kg
double pws_e1(Context& ctx, double p, double t);  // specific entropy, sub-region 1, kJ/(kg K)
double pws_e2(Context& ctx, double p, double t);  // specific entropy, region 2, kJ/(kg K)
double pws_e3(Context& ctx, double v, double t);  // specific entropy, region 3, kJ/(kg K)
double pws_f1(Context& ctx, double p, double t);  // specific internal energy, sub-region 1, kJ/kg
double pws_f2(Context& ctx, double p, double t);  // specific internal energy, region 2, kJ/kg
double pws_f3(Context& ctx, double v, double t);  // specific internal energy, region 3, kJ/kg
double pws_h1(Context& ctx, double p, double t);  // isobaric heat capacity, sub-region 1, kJ/(kg K)
double pws_h2(Context& ctx, double p, double t);  // isobaric heat capacity, region 2, kJ/(kg K)
double pws_h3(Context& ctx, double v, double t);  // isobaric heat capacity, region 3, kJ/(kg K)
double pws_a3(Context& ctx, double v, double t);  // pressure, region 3, bar

// Dynamic viscosity (Pa s) and thermal conductivity (W/(m K)) at (v m3/kg, t C).
double pws_ci(double v, double t);
double pws_cj(double v, double t);

// A region routine above, as the tables of the inverse routines hold them.
using RegionFn = double (*)(Context&, double, double);
// Property routines handed to the iterations and called with the iteration's
// context: a routine of the package (pws_a3) or any callable of that form.
using Fn2 = FunctionRef<double(Context&, double, double)>;
using Fn3 = FunctionRef<double(Context&, double, double, double)>;

// Solves f(fixed, x) = target from the starting values a, b (overwritten) by
// regula falsi with halving; after 40 steps warns (PWS_I1) and returns 0.
double pws_i1(Context& ctx, Fn2 f, double fixed, double target, double& a, double& b, double eps);
// Solves f(x, fixed) = target (region-3 volume from pressure): bracketed regula
// falsi with halving, or secant steps when a, b do not bracket; 40 steps at most.
double pws_i2(Context& ctx, Fn2 f, double fixed, double target, double& a, double& b, double eps);
// As the bracketed pws_i2 with f(x, fixed, eps); returns the last estimate after 40 steps.
double pws_i3(Context& ctx, Fn3 f, double fixed, double target, double& a, double& b, double eps);
// Saturation temperature (C) at p (bar) by bracketing on [0.01, 374.15] C.
double pws_it(Context& ctx, double p);
// Finds (x, y) with f2(x, y) = target2 and f1(x, y) = target1: outer iteration
// on y in [ya, yb], inner on x in [xa, xb]; returns xa = xb = x, ya = yb = y.
void pws_id(Context& ctx, Fn2 f1, double target1, Fn2 f2, double target2, double& xa, double& xb,
            double& ya, double& yb, double eps);

// ---------------------------------------------------------------------------
// The legacy routines: the same over the default context.

inline double pws_c1(double p, double t) { return pws_c1(default_context(), p, t); }
inline double pws_c2(double p, double t) { return pws_c2(default_context(), p, t); }
inline double pws_d1(double p, double t) { return pws_d1(default_context(), p, t); }
inline double pws_d2(double p, double t) { return pws_d2(default_context(), p, t); }
inline double pws_d3(double v, double t) { return pws_d3(default_context(), v, t); }
inline double pws_e1(double p, double t) { return pws_e1(default_context(), p, t); }
inline double pws_e2(double p, double t) { return pws_e2(default_context(), p, t); }
inline double pws_e3(double v, double t) { return pws_e3(default_context(), v, t); }
inline double pws_f1(double p, double t) { return pws_f1(default_context(), p, t); }
inline double pws_f2(double p, double t) { return pws_f2(default_context(), p, t); }
inline double pws_f3(double v, double t) { return pws_f3(default_context(), v, t); }
inline double pws_h1(double p, double t) { return pws_h1(default_context(), p, t); }
inline double pws_h2(double p, double t) { return pws_h2(default_context(), p, t); }
inline double pws_h3(double v, double t) { return pws_h3(default_context(), v, t); }
inline double pws_a3(double v, double t) { return pws_a3(default_context(), v, t); }

// Property routines of the legacy iterations: plain functions of two (or three) values.
using Func2 = double (*)(double, double);
using Func3 = double (*)(double, double, double);

namespace detail {
// A legacy property routine as the iterations call it.
inline auto with_context(Func2 f) {
    return [f](Context&, double x, double y) { return f(x, y); };
}
}  // namespace detail

inline double pws_i1(Func2 f, double fixed, double target, double& a, double& b, double eps) {
    return pws_i1(default_context(), detail::with_context(f), fixed, target, a, b, eps);
}
inline double pws_i2(Func2 f, double fixed, double target, double& a, double& b, double eps) {
    return pws_i2(default_context(), detail::with_context(f), fixed, target, a, b, eps);
}
inline double pws_i3(Func3 f, double fixed, double target, double& a, double& b, double eps) {
    const auto g = [f](Context&, double x, double y, double e) { return f(x, y, e); };
    return pws_i3(default_context(), g, fixed, target, a, b, eps);
}
inline double pws_it(double p) { return pws_it(default_context(), p); }
inline void pws_id(Func2 f1, double target1, Func2 f2, double target2, double& xa, double& xb, double& ya,
                   double& yb, double eps) {
    pws_id(default_context(), detail::with_context(f1), target1, detail::with_context(f2), target2, xa, xb,
           ya, yb, eps);
}

}  // namespace pws
