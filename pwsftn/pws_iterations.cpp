// Iterations used with the region equations: regula falsi with a halving step
// in one variable (pws_i1, pws_i2, pws_i3), the saturation temperature by
// bracketing (pws_it) and the two-level iteration (pws_id).
#include <cmath>

#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_halving.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws {
namespace {

constexpr int max_steps = 40;
// Saturation temperature by bracketing: tolerances and bracket (C).
constexpr double it_tol = 1.0E-12;
constexpr double it_low = 0.01;
constexpr double inner_power = 1.25;  // inner tolerance of pws_id: eps^1.25

// How the iterations read two residuals u, v as enclosing a root: pws_i2
// (and pws_i3, pws_it) by u v <= 0 (a zero product encloses, a NaN one does
// not); pws_i1 and the outer iteration of pws_id by not u v >= 0 (the other
// way round).
constexpr auto encloses_i2 = [](double u, double v) { return u * v <= 0.0; };
constexpr auto encloses_i1 = [](double u, double v) { return !(u * v >= 0.0); };

// The interval of the bracketed loop; the caller's ends are written when it stops.
struct Bracket {
    double a, b, fa, fb;
};

// The scheme of pws_i2 on g(x) = 0 with residual tolerance r and relative
// interval tolerance eps; `last_estimate` selects the result after 40 steps.
template <typename G>
double solve_i2(G&& g, double& a, double& b, double r, double eps, bool strict_ends,
                bool unbracketed_allowed, bool last_estimate) {
    double fa = g(a);
    if (strict_ends ? std::fabs(fa) < r : std::fabs(fa) <= r) return a;
    double fb = g(b);
    if (strict_ends ? std::fabs(fb) < r : std::fabs(fb) <= r) return b;
    if (fa * fb <= 0.0 || !unbracketed_allowed) {
        Bracket k{a, b, fa, fb};
        double x = a;
        for (int step = 1; step <= max_steps; ++step) {
            if (std::fabs(k.a - k.b) < std::fabs(k.a) * eps) break;
            x = k.a - (k.a - k.b) * k.fa / (k.fa - k.fb);
            const double fx = g(x);
            if (std::fabs(fx) < r) {
                a = k.a;
                b = k.b;
                return x;
            }
            detail::halve(k.a, k.fa, k.b, k.fb, x, fx, encloses_i2, g);
            if (step == max_steps && last_estimate) {
                a = k.a;
                b = k.b;
                return x;
            }
        }
        a = k.a;
        b = k.b;
        return (a + b) * 0.5;
    }
    // Not bracketed: secant steps from the two starting values; every step
    // evaluates g at its first point afresh (the trial of the step before).
    double x = a;
    for (int step = 1; step <= max_steps; ++step) {
        fa = g(a);
        x = a + (b - a) * fa / (fa - fb);
        if (std::fabs(g(x)) < r) return x;
        b = a;
        fb = fa;
        a = x;
    }
    return x;
}

}  // namespace

double pws_i1(Context& ctx, Fn2 f, double fixed, double target, double& a, double& b, double eps) {
    const double r = std::fabs(target * eps);
    auto g = [&](double x) { return f(ctx, fixed, x) - target; };
    double fa = g(a);
    if (std::fabs(fa) < r) return a;
    double fb = g(b);
    if (std::fabs(fb) < r) return b;
    for (int step = 1; step <= max_steps; ++step) {
        if (std::fabs(a - b) < std::fabs(a) * eps) return (a + b) * 0.5;
        const double x = a - (a - b) * fa / (fa - fb);
        const double fx = g(x);
        if (std::fabs(fx) < r) return x;
        detail::halve(a, fa, b, fb, x, fx, encloses_i1, g);
    }
    warn_iterations(ctx, "PWS_I1");
    // Intended: after the last step the result is 0, not the last estimate.
    return 0.0;
}

double pws_i2(Context& ctx, Fn2 f, double fixed, double target, double& a, double& b, double eps) {
    auto g = [&](double x) { return f(ctx, x, fixed) - target; };
    // Intended: a starting value is accepted on equality with the tolerance,
    // a trial inside the loop only below it.
    return solve_i2(g, a, b, std::fabs(target * eps), eps, false, true, false);
}

double pws_i3(Context& ctx, Fn3 f, double fixed, double target, double& a, double& b, double eps) {
    auto g = [&](double x) { return f(ctx, x, fixed, eps) - target; };
    return solve_i2(g, a, b, std::fabs(target * eps), eps, true, false, true);
}

double pws_it(Context& ctx, double p) {
    if (p > crit_p || p < p_min) pwser(ctx, "PWS_IT", 1, p, 0.0);
    const double r = std::fabs(p * it_tol);
    double last = 0.0;
    auto g = [&](double t) {
        if (t > crit_t) {
            pwser(ctx, "PWS_IT", 2, t, 0.0);
            return last;  // not evaluated: the residual of the last evaluation stands
        }
        last = pws_pt(ctx, t) - p;  // t is not above 374.15 here: pws_pt adds no report
        return last;
    };
    double a = it_low;
    double b = crit_t;
    return solve_i2(g, a, b, r, it_tol, true, false, true);
}

void pws_id(Context& ctx, Fn2 f1, double target1, Fn2 f2, double target2, double& xa, double& xb,
            double& ya, double& yb, double eps) {
    const double tol = std::fabs(target1 * eps);
    const double eps_in = std::pow(eps, inner_power);
    const double tol_in = std::fabs(target2 * eps_in);
    const double x_low = xa;
    const double x_high = xb;
    // Inner problem: x with f2(x, y) = target2, restarted from the caller's ends.
    auto inner = [&](double y) {
        double a = x_low;
        double b = x_high;
        auto g = [&](double x) { return f2(ctx, x, y) - target2; };
        return solve_i2(g, a, b, tol_in, eps_in, false, true, false);
    };
    double x_last = inner(ya);
    double ga = f1(ctx, x_last, ya) - target1;
    double x_at_b = inner(yb);
    double gb = f1(ctx, x_at_b, yb) - target1;
    double y_last = ya;
    if (std::fabs(ga) < tol) {
        xa = xb = x_last;
        ya = yb = y_last;
        return;
    }
    x_last = x_at_b;
    y_last = yb;
    auto outer = [&](double y, double& x) {
        x = inner(y);
        return f1(ctx, x, y) - target1;
    };
    for (int step = 1;; ++step) {
        if (std::fabs(ya - yb) < std::fabs(ya) * eps) break;
        const double y = ya - (ya - yb) * ga / (ga - gb);
        double x = 0.0;
        const double g = outer(y, x);
        x_last = x;
        y_last = y;
        // A trial within the tolerance ends the loop before the halving
        // evaluation (as in pws_i1), so the x handed back belongs to this y.
        if (std::fabs(g) < tol) break;
        double x_mid = 0.0;  // the x of a halving point is not handed back
        detail::halve(ya, ga, yb, gb, y, g, encloses_i1, [&](double m) { return outer(m, x_mid); });
        if (step >= max_steps) {
            warn_iterations(ctx, "PWS_ID");
            break;
        }
    }
    xa = xb = x_last;
    ya = yb = y_last;
}

}  // namespace pws
