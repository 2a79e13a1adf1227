#include "if97/if97_transport.hpp"

#include <cmath>
#include <iterator>
#include <limits>
#include <numbers>

#include "if97/if97_constants.hpp"
#include "if97/if97_series.hpp"

namespace if97 {

namespace {
// IAPWS R12-08, table 1: coefficients H_i of the dilute-gas viscosity.
constexpr double visc_h0[] = {1.67752, 2.20462, 0.6366564, -0.241605};
// IAPWS R12-08, table 2: coefficients H_ij of the residual viscosity.
constexpr Term visc_h1[] = {
    {0, 0, 0.520094},     {1, 0, 0.850895e-1},  {2, 0, -0.108374e1}, {3, 0, -0.289555},
    {0, 1, 0.222531},     {1, 1, 0.999115},     {2, 1, 0.188797e1},  {3, 1, 0.126613e1},
    {5, 1, 0.120573},     {0, 2, -0.281378},    {1, 2, -0.906851},   {2, 2, -0.772479},
    {3, 2, -0.489837},    {4, 2, -0.257040},    {0, 3, 0.161913},    {1, 3, 0.257399},
    {0, 4, -0.325372e-1}, {3, 4, 0.698452e-1},  {4, 5, 0.872102e-2}, {3, 6, -0.435673e-2},
    {5, 6, -0.593264e-3},
};
constexpr double visc_reference = 1e-6;  // Pa s

// IAPWS R15-11, table 1: coefficients L_k of the dilute-gas conductivity.
constexpr double cond_l0[] = {2.443221e-3, 1.323095e-2, 6.770357e-3, -3.454586e-3, 4.096266e-4};
// IAPWS R15-11, table 2: coefficients L_ij of the residual conductivity.
constexpr Term cond_l1[] = {
    {0, 0, 1.60397357},   {0, 1, -0.646013523}, {0, 2, 0.111443906},   {0, 3, 0.102997357},
    {0, 4, -0.0504123634}, {0, 5, 0.00609859258}, {1, 0, 2.33771842},  {1, 1, -2.78843778},
    {1, 2, 1.53616167},   {1, 3, -0.463045512}, {1, 4, 0.0832827019},  {1, 5, -0.00719201245},
    {2, 0, 2.19650529},   {2, 1, -4.54580785},  {2, 2, 3.55777244},    {2, 3, -1.40944978},
    {2, 4, 0.275418278},  {2, 5, -0.0205938816}, {3, 0, -1.21051378},  {3, 1, 1.60812989},
    {3, 2, -0.621178141}, {3, 3, 0.0716373224}, {4, 0, -2.7203370},    {4, 1, 4.57586331},
    {4, 2, -3.18369245},  {4, 3, 1.1168348},    {4, 4, -0.19268305},   {4, 5, 0.012913842},
};
constexpr double cond_reference = 1e-3;  // W/(m K)

// IAPWS R15-11, table 6: coefficients A_ij of zeta_R = 1/sum A_ij·rho_bar^i
// for the industrial critical enhancement, one row per density band whose
// upper limit (reduced density) is given first.
struct ZetaBand {
    double upper;
    double a[6];
};
constexpr ZetaBand zeta_bands[] = {
    {0.310559006,
     {6.53786807199516, -5.61149954923348, 3.39624167361325, -2.27492629730878, 10.2631854662709,
      1.97815050331519}},
    {0.776397516,
     {6.52717759281799, -6.30816983387575, 8.08379285492595, -9.82240510197603, 12.1358413791395,
      -5.54349664571295}},
    {1.242236025,
     {5.35500529896124, -3.96415689925446, 8.91990208918795, -12.0338729505790, 9.19494865194302,
      -2.16866274479712}},
    {1.863354037,
     {1.55225959906681, 0.464621290821181, 8.93237374861479, -11.0321960061126, 6.16780999933360,
      -0.965458722086812}},
    {std::numeric_limits<double>::infinity(),
     {1.11999926419994, 0.595748562571649, 9.88952565078920, -10.3255051147040, 4.66861294457414,
      -0.503243546373828}},
};
// IAPWS R15-11, table 5 and equations 19 to 24.
constexpr double cond_lambda = 177.8514;
constexpr double cond_r = 0.46151805;  // kJ/(kg K): the IAPWS-95 value, not IF97's
constexpr double cond_xi0 = 0.13;      // nm
constexpr double cond_gamma0 = 0.06;
constexpr double cond_nu_over_gamma = 0.630 / 1.239;
constexpr double cond_qd_inv = 0.40;  // nm
constexpr double cond_tr = 1.5;       // reference temperature / Tc
constexpr double cond_y_min = 1.2e-7;

// IAPWS R1-76(2014): sigma = B·tau^mu·(1 + b·tau), tau = 1 - T/Tc.
constexpr double sigma_b_big = 235.8e-3;  // N/m
constexpr double sigma_b = -0.625;
constexpr double sigma_mu = 1.256;

// Sum of n·x^I·y^J over a table (x^I, y^J by repeated multiplication).
double sum_terms(std::span<const Term> terms, double x, double y) {
    const Powers<0, 5> px(x);
    const Powers<0, 6> py(y);
    double sum = 0.0;
    for (const Term& t : terms) sum += t.n * px[t.i] * py[t.j];
    return sum;
}

// Dilute-gas factor sqrt(Tr)/sum c_k/Tr^k of viscosity and conductivity.
double dilute_factor(std::span<const double> c, double tr) {
    double sum = 0.0;
    double inv = 1.0;
    for (double ck : c) {
        sum += ck * inv;
        inv /= tr;
    }
    return std::sqrt(tr) / sum;
}

// Reduced viscosity mu_bar0·mu_bar1 (mu_bar2 = 1 for industrial use).
double viscosity_reduced(double rho, double t) {
    const double tr = t / critical_temperature;
    const double dr = rho / critical_density;
    const double mu0 = 100.0 * dilute_factor(visc_h0, tr);
    const double mu1 = std::exp(dr * sum_terms(visc_h1, 1.0 / tr - 1.0, dr - 1.0));
    return mu0 * mu1;
}

double conductivity_background_reduced(double rho, double t) {
    const double tr = t / critical_temperature;
    const double dr = rho / critical_density;
    const double l0 = dilute_factor(cond_l0, tr);
    const double l1 = std::exp(dr * sum_terms(cond_l1, 1.0 / tr - 1.0, dr - 1.0));
    return l0 * l1;
}

// zeta_R of the industrial formulation (reduced (d rho/d p)_T at 1.5 Tc).
double zeta_reference(double dr) {
    for (const ZetaBand& band : zeta_bands) {
        if (dr <= band.upper) {
            double sum = 0.0;
            double pw = 1.0;
            for (double a : band.a) {
                sum += a * pw;
                pw *= dr;
            }
            return 1.0 / sum;
        }
    }
    return 0.0;  // not reached: the last band is unbounded
}

// Critical enhancement lambda_bar2, equations 18 to 24 with IF97 cp, cv and
// (d rho/d p)_T.
double conductivity_enhancement(const Properties& st, double mu_bar) {
    const double tr = st.t / critical_temperature;
    const double dr = st.rho / critical_density;
    const double drho_dp = st.rho * st.kappa;  // kg/m3 per MPa
    const double zeta = critical_pressure / critical_density * drho_dp;
    double dchi = dr * (zeta - zeta_reference(dr) * cond_tr / tr);
    if (!(dchi > 0.0)) dchi = 0.0;
    const double xi = cond_xi0 * std::pow(dchi / cond_gamma0, cond_nu_over_gamma);
    const double y = xi / cond_qd_inv;
    if (y < cond_y_min) return 0.0;
    const double kappa = st.cp / st.cv;
    const double z = 2.0 / (std::numbers::pi * y) *
                     (((1.0 - 1.0 / kappa) * std::atan(y) + y / kappa) -
                      (1.0 - std::exp(-1.0 / (1.0 / y + y * y / (3.0 * dr * dr)))));
    return cond_lambda * dr * st.cp / cond_r * tr / mu_bar * z;
}
}  // namespace

double viscosity(double rho, double t) { return viscosity_reduced(rho, t) * visc_reference; }

double conductivity_background(double rho, double t) {
    return conductivity_background_reduced(rho, t) * cond_reference;
}

double thermal_conductivity(const Properties& st) {
    const double mu_bar = viscosity_reduced(st.rho, st.t);
    const double l2 = conductivity_enhancement(st, mu_bar);
    return (conductivity_background_reduced(st.rho, st.t) + l2) * cond_reference;
}

double surface_tension(double t) {
    if (!(t >= t_min && t <= critical_temperature))
        return std::numeric_limits<double>::quiet_NaN();
    const double tau = 1.0 - t / critical_temperature;
    return sigma_b_big * std::pow(tau, sigma_mu) * (1.0 + sigma_b * tau);
}

}  // namespace if97
