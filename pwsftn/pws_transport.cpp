// Transport properties used with IFC-67: dynamic viscosity (IAPS 1975, without
// the critical enhancement) and the package's thermal-conductivity correlation.
#include <array>
#include <cmath>

#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws {
namespace {

// IAPS 1975 viscosity: reference temperature (K), density (kg/m3), viscosity (Pa s).
constexpr double visc_t_ref = 647.27;
constexpr double visc_rho_ref = 317.763;
constexpr double visc_ref = 1.0E-6;
// IAPS 1975 viscosity, a0 ... a3 of the dilute-gas part.
constexpr std::array<double, 4> visc_a{0.0181583, 0.0177624, 0.0105287, -0.0036744};
// IAPS 1975 viscosity, b(i, j) of (1/Tr - 1)^i (rho_r - 1)^j.
struct Term {
    int i;
    int j;
    double n;
};
constexpr std::array<Term, 30> visc_b{{
    {0, 0, 0.501938},  {0, 1, 0.235622},   {0, 2, -0.274637},  {0, 3, 0.145831},  {0, 4, -0.0270448},
    {1, 0, 0.162888},  {1, 1, 0.789393},   {1, 2, -0.743539},  {1, 3, 0.263129},  {1, 4, -0.0253093},
    {2, 0, -0.130356}, {2, 1, 0.673665},   {2, 2, -0.959456},  {2, 3, 0.347247},  {2, 4, -0.0267758},
    {3, 0, 0.907919},  {3, 1, 1.207552},   {3, 2, -0.687343},  {3, 3, 0.213486},  {3, 4, -0.0822904},
    {4, 0, -0.551119}, {4, 1, 0.0670665},  {4, 2, -0.497089},  {4, 3, 0.100754},  {4, 4, 0.0602253},
    {5, 0, 0.146543},  {5, 1, -0.084337},  {5, 2, 0.195286},   {5, 3, -0.032932}, {5, 4, -0.0202595},
}};

// Conductivity correlation, W/(m K), t in C and rho in kg/m3.
constexpr std::array<double, 4> cond_t{0.0179, 5.53E-5, 1.13E-7, -5.2E-11};  // 1, t, t^2, t^3
constexpr std::array<double, 2> cond_rho{0.00035, 5.5E-7};                   // rho, rho^2
constexpr double cond_crit_a = 8.56E-33, cond_crit_ka = -0.01371;
constexpr double cond_crit_b = 2.55E-29, cond_crit_kb = -0.0433;
constexpr double cond_rho_top = 1000.0;
// Nested liquid corrections: below each temperature (C), minus c rho exp(k t^n).
struct Correction {
    double t_max;
    double c;
    double k;
    int n;
};
constexpr std::array<Correction, 3> cond_corrections{{
    {450.0, 0.000103, -1.33E-10, 4},
    {300.0, 0.000173, -6.8E-5, 2},
    {150.0, 6.8E-5, -0.0422, 1},
}};

}  // namespace

double pws_ci(double v, double t) {
    const double tr = (t + celsius_offset) / visc_t_ref;
    const double rr = 1.0 / (v * visc_rho_ref);
    const auto& a = visc_a;
    const double mu0 = std::sqrt(tr) / (a[0] + a[1] / tr + a[2] / (tr * tr) + a[3] / (tr * tr * tr));
    const double x = 1.0 / tr - 1.0;
    const double y = rr - 1.0;
    std::array<double, 6> xp{1.0, x, x * x, x * x * x, x * x * x * x, x * x * x * x * x};
    std::array<double, 5> yp{1.0, y, y * y, y * y * y, y * y * y * y};
    double sum = 0.0;
    for (const Term& b : visc_b)
        sum += b.n * xp[static_cast<std::size_t>(b.i)] * yp[static_cast<std::size_t>(b.j)];
    const double mu1 = std::exp(rr * sum);
    return mu0 * mu1 * visc_ref;
}

double pws_cj(double v, double t) {
    const double rho = 1.0 / v;
    const auto& c = cond_t;
    const double top = (cond_rho_top - rho) * (cond_rho_top - rho) * (cond_rho_top - rho) * rho;
    double lambda = c[0] + (c[1] + (c[2] + c[3] * t) * t) * t +
                    (cond_rho[0] + cond_rho[1] * rho) * rho +
                    (cond_crit_a * std::exp(cond_crit_ka * t) + cond_crit_b * std::exp(cond_crit_kb * t)) *
                        (top * top * top);
    // Intended: each correction is tried only when the one before it applied,
    // and a temperature equal to the limit takes it.
    for (const Correction& k : cond_corrections) {
        if (!(t <= k.t_max)) break;
        lambda -= k.c * rho * std::exp(k.k * std::pow(t, k.n));
    }
    return lambda;
}

}  // namespace pws
