#include <cmath>

#include "if97/if97_forward.hpp"

namespace if97 {

namespace {
// IAPWS-IF97, table 34: coefficients n1..n10 of the saturation-pressure
// equation (index 0 unused, so that n[i] reads as in the release).
constexpr double n[] = {0.0,
                        0.11670521452767e4,
                        -0.72421316703206e6,
                        -0.17073846940092e2,
                        0.12020824702470e5,
                        -0.32325550322333e7,
                        0.14915108613530e2,
                        -0.48232657361591e4,
                        0.40511340542057e6,
                        -0.23855557567849,
                        0.65017534844798e3};

// IAPWS-IF97, table 1: coefficients n1..n5 of the B23 equation (index 0
// unused).
constexpr double b23[] = {0.0, 0.34805185628969e3, -0.11671859879975e1, 0.10192970039326e-2,
                          0.57254459862746e3, 0.13918839778870e2};
}  // namespace

// IAPWS-IF97, equation 30.
double psat(double t) {
    const double theta = t + n[9] / (t - n[10]);
    const double a = (theta + n[1]) * theta + n[2];
    const double b = (n[3] * theta + n[4]) * theta + n[5];
    const double c = (n[6] * theta + n[7]) * theta + n[8];
    const double r = 2.0 * c / (-b + std::sqrt(b * b - 4.0 * a * c));
    const double r2 = r * r;
    return r2 * r2;
}

// IAPWS-IF97, equation 31.
double tsat(double p) {
    const double beta = std::sqrt(std::sqrt(p));
    const double e = (beta + n[3]) * beta + n[6];
    const double f = (n[1] * beta + n[4]) * beta + n[7];
    const double g = (n[2] * beta + n[5]) * beta + n[8];
    const double d = 2.0 * g / (-f - std::sqrt(f * f - 4.0 * e * g));
    return (n[10] + d - std::sqrt((n[10] + d) * (n[10] + d) - 4.0 * (n[9] + n[10] * d))) / 2.0;
}

// IAPWS-IF97, equation 5.
double p_b23(double t) { return b23[1] + (b23[2] + b23[3] * t) * t; }

// IAPWS-IF97, equation 6.
double t_b23(double p) { return b23[4] + std::sqrt((p - b23[5]) / b23[3]); }

}  // namespace if97
