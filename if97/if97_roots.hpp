// Bounded root finding for the iterations of the library: Brent's method on
// a bracket whose end values are known. Never loops more than max_iter
// times; NaN function values end the search.
#pragma once
#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace if97 {

inline constexpr int brent_max_iter = 200;

// Root of f in [a, b] with f(a) = fa and f(b) = fb of opposite signs (or one
// of them zero). Stops when the bracket is narrower than xtol. Returns NaN
// when the ends do not bracket a root or an evaluation gives NaN.
template <class F>
double brent(F&& f, double a, double b, double fa, double fb, double xtol) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    if (std::isnan(fa) || std::isnan(fb)) return nan;
    if (fa == 0.0) return a;
    if (fb == 0.0) return b;
    if ((fa > 0.0) == (fb > 0.0)) return nan;
    double c = a;
    double fc = fa;
    double d = b - a;
    double e = d;
    for (int iter = 0; iter < brent_max_iter; ++iter) {
        if ((fb > 0.0) == (fc > 0.0)) {
            c = a;
            fc = fa;
            d = b - a;
            e = d;
        }
        if (std::fabs(fc) < std::fabs(fb)) {
            a = b;
            b = c;
            c = a;
            fa = fb;
            fb = fc;
            fc = fa;
        }
        const double tol = 2.0 * std::numeric_limits<double>::epsilon() * std::fabs(b) + 0.5 * xtol;
        const double m = 0.5 * (c - b);
        if (std::fabs(m) <= tol || fb == 0.0) return b;
        if (std::fabs(e) >= tol && std::fabs(fa) > std::fabs(fb)) {
            // Inverse quadratic interpolation, or the secant when a == c.
            const double s = fb / fa;
            double p;
            double q;
            if (a == c) {
                p = 2.0 * m * s;
                q = 1.0 - s;
            } else {
                const double qa = fa / fc;
                const double r = fb / fc;
                p = s * (2.0 * m * qa * (qa - r) - (b - a) * (r - 1.0));
                q = (qa - 1.0) * (r - 1.0) * (s - 1.0);
            }
            if (p > 0.0) q = -q;
            p = std::fabs(p);
            if (2.0 * p < std::min(3.0 * m * q - std::fabs(tol * q), std::fabs(e * q))) {
                e = d;
                d = p / q;
            } else {
                d = m;
                e = d;
            }
        } else {
            d = m;
            e = d;
        }
        a = b;
        fa = fb;
        b += std::fabs(d) > tol ? d : (m > 0.0 ? tol : -tol);
        fb = f(b);
        if (std::isnan(fb)) return nan;
    }
    return nan;
}

}  // namespace if97
