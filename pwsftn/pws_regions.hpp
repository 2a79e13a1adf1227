// Region equations of the water-and-steam package (IFC-67), the transport
// equations and the iterations used with them. Sub-region 1 and region 2 take
// (p bar, t C), region 3 takes (v m3/kg, t C). Out-of-range states are reported
// by the common-term routines and evaluated all the same.
#pragma once

namespace pws {

double pws_c1(double p, double t);  // specific volume, sub-region 1, m3/kg
double pws_c2(double p, double t);  // specific volume, region 2, m3/kg
double pws_d1(double p, double t);  // specific enthalpy, sub-region 1, kJ/kg
double pws_d2(double p, double t);  // specific enthalpy, region 2, kJ/kg
double pws_d3(double v, double t);  // specific enthalpy, region 3, kJ/kg
double pws_e1(double p, double t);  // specific entropy, sub-region 1, kJ/(kg K)
double pws_e2(double p, double t);  // specific entropy, region 2, kJ/(kg K)
double pws_e3(double v, double t);  // specific entropy, region 3, kJ/(kg K)
double pws_f1(double p, double t);  // specific internal energy, sub-region 1, kJ/kg
double pws_f2(double p, double t);  // specific internal energy, region 2, kJ/kg
double pws_f3(double v, double t);  // specific internal energy, region 3, kJ/kg
double pws_h1(double p, double t);  // isobaric heat capacity, sub-region 1, kJ/(kg K)
double pws_h2(double p, double t);  // isobaric heat capacity, region 2, kJ/(kg K)
double pws_h3(double v, double t);  // isobaric heat capacity, region 3, kJ/(kg K)
double pws_a3(double v, double t);  // pressure, region 3, bar

// Dynamic viscosity (Pa s) and thermal conductivity (W/(m K)) at (v m3/kg, t C).
double pws_ci(double v, double t);
double pws_cj(double v, double t);

// Property routines handed to the iterations.
using Func2 = double (*)(double, double);
using Func3 = double (*)(double, double, double);

// Solves f(fixed, x) = target from the starting values a, b (overwritten) by
// regula falsi with halving; after 40 steps warns (PWS_I1) and returns 0.
double pws_i1(Func2 f, double fixed, double target, double& a, double& b, double eps);
// Solves f(x, fixed) = target (region-3 volume from pressure): bracketed regula
// falsi with halving, or secant steps when a, b do not bracket; 40 steps at most.
double pws_i2(Func2 f, double fixed, double target, double& a, double& b, double eps);
// As the bracketed pws_i2 with f(x, fixed, eps); returns the last estimate after 40 steps.
double pws_i3(Func3 f, double fixed, double target, double& a, double& b, double eps);
// Saturation temperature (C) at p (bar) by bracketing on [0.01, 374.15] C.
double pws_it(double p);
// Finds (x, y) with f2(x, y) = target2 and f1(x, y) = target1: outer iteration
// on y in [ya, yb], inner on x in [xa, xb]; returns xa = xb = x, ya = yb = y.
void pws_id(Func2 f1, double target1, Func2 f2, double target2, double& xa, double& xb,
            double& ya, double& yb, double eps);

}  // namespace pws
