// Pressure and temperature from an input pair, searched inside the data
// range and checked: the state must reproduce both inputs. The pairs that
// hold neither pressure nor temperature are solved as one problem (an outer
// search in temperature whose every step solves the pressure that matches
// the first input), so that the state found reproduces both.
//
// The searches sample their interval for sign changes of the residual, then
// close each bracket with Brent's method to the last bits; where several
// brackets hold a root, the highest temperature (or, for a search in
// pressure, the highest pressure) is taken and the answer says that the root
// was not unique. Every search ends: the samples are fixed in number and
// Brent's method stops after 100 steps.
#pragma once
#include <array>
#include <cmath>
#include <span>
#include <limits>

#include "fluiddata/od_types.hpp"
#include "solver/od_solver.hpp"

namespace od::search {

inline constexpr int max_samples = 64;           // points that look for sign changes in an interval
inline constexpr double x_tolerance = 1e-14;     // relative width at which a bracket is closed
inline constexpr double p_search_min = 1.0;      // Pa, lower end of a pressure search
inline constexpr double p_search_max = 1.0e8;    // Pa, upper end (the upper limit of IAPWS-IF97)

enum class Outcome { found, none, not_converged };

struct Root {
    double x = std::numeric_limits<double>::quiet_NaN();
    Outcome outcome = Outcome::none;
    bool not_unique = false;
};

// Which root a search returns when several brackets hold one.
enum class Prefer { highest, lowest };

// A root of f in [lo, hi] (lo < hi), sampled on `n` points (2: the ends
// alone, for an f known to change sign at most once), spaced evenly in x or
// in ln x, and every bracket closed; the root of the highest (or lowest)
// bracket is returned, not_unique set when another bracket holds one too.
template <class F>
Root find_root(F&& f, double lo, double hi, bool logarithmic, int n, Prefer prefer = Prefer::highest) {
    n = n < 2 ? 2 : (n > max_samples ? max_samples : n);
    auto at = [&](int k) {
        if (k == 0) return lo;
        if (k == n - 1) return hi;
        const double s = static_cast<double>(k) / (n - 1);
        return logarithmic ? std::exp(std::log(lo) + s * (std::log(hi) - std::log(lo))) : lo + s * (hi - lo);
    };
    std::array<double, max_samples> xs{}, fs{};
    for (int k = 0; k < n; ++k) {
        xs[static_cast<std::size_t>(k)] = at(k);
        fs[static_cast<std::size_t>(k)] = f(xs[static_cast<std::size_t>(k)]);
    }
    Root r;
    for (int j = 1; j < n; ++j) {
        const auto i = static_cast<std::size_t>(prefer == Prefer::highest ? n - j : j);
        const double fa = fs[i - 1], fb = fs[i];
        if (std::isnan(fa) || std::isnan(fb)) continue;
        // A zero counts as positive, so that a root on a sample is counted once.
        if ((fa < 0.0) == (fb < 0.0)) continue;
        if (r.outcome == Outcome::found) {
            r.not_unique = true;
            break;
        }
        double a = xs[i - 1], b = xs[i];
        int ierr = 0;
        const double tol = x_tolerance * std::fabs(b);
        const double x = solver::brent([&](double u, double, const Mixture&) { return f(u); }, 1, 0.0, 0.0, a, b,
                                       tol, Mixture{}, ierr);
        if (ierr == solver::err_not_converged) return {x, Outcome::not_converged, false};
        if (ierr != 0) continue;
        r.x = x;
        r.outcome = Outcome::found;
    }
    return r;
}

// The same over consecutive pieces [breaks[k], breaks[k + 1]) on each of
// which f is continuous (it may jump at a break): the highest piece with a
// root gives it, and a root in a lower piece makes it not unique.
template <class F>
Root find_root_in_pieces(F&& f, std::span<const double> breaks, bool logarithmic, int n) {
    Root best;
    for (std::size_t k = breaks.size() - 1; k > 0; --k) {
        const double lo = breaks[k - 1];
        // The upper end of a lower piece stays just below its break.
        const double hi = k + 1 < breaks.size() ? std::nextafter(breaks[k], lo) : breaks[k];
        if (!(lo < hi)) continue;
        const Root r = find_root(f, lo, hi, logarithmic, n);
        if (r.outcome == Outcome::not_converged) return r;
        if (r.outcome != Outcome::found) continue;
        if (best.outcome == Outcome::found) {
            best.not_unique = true;
            return best;
        }
        best = r;
    }
    return best;
}

}  // namespace od::search
