// The search of a mixture state from an input pair. A temperature alone is
// found with Newton's method where the mixture has no condensing water, and
// with condensing water by a search that solves a cheap model of the mixture
// corrected by the model's own values (corrected_search below). The pairs
// without pressure or temperature sample an outer search in temperature
// whose every step solves the pressure; with condensing water the samples
// far from a root take the cheap model's signs (nested_fast). Where the
// quick searches do not settle, and for what they do not serve, the searches
// sample their interval for sign changes of the residual and close each
// bracket with Brent's method.
#include "api/mixture_search.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "if97/if97_forward.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_thermodyn.hpp"

namespace ondrel::detail {
namespace {

namespace td = od::thermodyn::core;
namespace cm = od::component;
using od::search::Outcome;
using od::search::Root;

bool finite(double x) { return std::isfinite(x); }

const double no_value = std::numeric_limits<double>::quiet_NaN();

}  // namespace

double quantity(od::Context& c, const MixtureData& m, char letter, double p, double t) {
    switch (letter) {
    case 'P': return p;
    case 'T': return t;
    case 'v': return td::v_pt(c, p, t, m.rows);
    case 'd': return 1.0 / td::v_pt(c, p, t, m.rows);
    case 'h': return td::h_pt(c, p, t, m.rows);
    case 's': return td::s_pt(c, p, t, m.rows);
    default: return td::u_pt(c, p, t, m.rows);
    }
}

double residual_scale(const MixtureData& m, char letter, double target, double t) {
    switch (letter) {
    case 'h': case 'u': return std::fabs(target) + residual_floor * m.r_specific * t;
    case 's': return std::fabs(target) + residual_floor * m.r_specific;
    default: return std::fabs(target);
    }
}

double saturation_pressure(od::Context& c, double t) {
    const double ps = od::h2o::core::h2o(c.water, 'T', t, 'X', 0.5, "P.");
    return od::basefuncs::isinit(ps) ? no_value : ps;
}

namespace {

// T at pressure p where h, s or u (letter) equals target, by Newton's method
// kept inside a shrinking bracket in the data range, for a mixture without
// condensing water (each of h, s, u then rises with T). Returns NaN when it
// does not settle, and the caller then takes the sampled search; a target
// outside the range ends at an end of it, which the check then refuses.
inline constexpr double newton_start = 1000.0;       // K
inline constexpr double newton_step_tolerance = 1e-11;  // relative step that ends the iteration
inline constexpr int newton_max_iterations = 60;

double newton_t(const MixtureData& m, char letter, double p, double target) {
    const double r_m = od::basefuncs::r_gas / m.molar_mass;
    const double log_p = std::log(p / od::basefuncs::p_ref);
    // The target as the gas-table sum the grid holds.
    const auto& grid = m.start;
    const std::vector<double>* sums = &grid.h;
    double want = target / r_m;
    if (letter == 's') {
        sums = &grid.s;
        want += m.gas_moles * log_p + m.mixing;
    } else if (letter == 'u') {
        sums = &grid.u;
        want += p * m.condensed_volume / m.molar_mass / r_m;
    }
    // Start: the grid interval holding the target, interpolated linearly
    // (within a few hundredths of a kelvin); outside the grid, its end.
    double lo = m.t_min;
    double hi = m.t_max;
    double t = std::clamp(newton_start, lo, hi);
    if (!sums->empty()) {
        const auto above = std::upper_bound(sums->begin(), sums->end(), want);
        if (above == sums->begin()) {
            t = lo;
        } else if (above == sums->end()) {
            t = hi;
        } else {
            const auto k = static_cast<std::size_t>(above - sums->begin());
            const double a = (*sums)[k - 1], b = (*sums)[k];
            t = grid.t0 + (static_cast<double>(k - 1) + (want - a) / (b - a)) * grid.dt;
            t = std::clamp(t, lo, hi);
        }
    }
    for (int k = 0; k < newton_max_iterations; ++k) {
        const bool entropy = letter == 's';
        const td::GasSums g = td::gas_sums(m.rows, t, entropy ? std::log(t) : 0.0, {!entropy, entropy, true});
        double f, df;
        if (letter == 'h') {
            f = g.h * r_m;
            df = g.cp * r_m;
        } else if (letter == 's') {
            f = (g.s - m.gas_moles * log_p - m.mixing) * r_m;
            df = g.cp * r_m / t;
        } else {
            f = (g.h - m.gas_moles * t) * r_m - p * m.condensed_volume / m.molar_mass;  // u = h - p v
            df = (g.cp - m.gas_moles) * r_m;
        }
        const double r = f - target;
        if (r == 0.0) return t;
        (r > 0.0 ? hi : lo) = t;
        double next = t - r / df;
        if (!(next > lo && next < hi)) next = 0.5 * (lo + hi);
        // Newton's error after a step of relative size e is of the order of
        // e squared (times T cp'/cp, well below one): a step of 1e-11 leaves
        // the next iterate exact to the rounding of the sums, and where cp
        // has a kink (the polynomials' common temperature) within 1e-13.
        if (std::fabs(next - t) <= newton_step_tolerance * t) return next;
        t = next;
    }
    return no_value;
}

// --- the condensing water: a cheap model corrected by the model -------------
//
// The model's condensing water costs a saturation pressure and two IAPWS-IF97
// states an evaluation. The cheap model keeps what shapes the mixture's
// quantities most: the dry components' gas-table sums, and the water split
// into vapour and condensate at the saturation pressure as the model splits
// it (IF97's, so that it has the model's dew point, and its latent heat to a
// fraction of a percent); its two water phases come from the gas table's
// "H2O" row (ideal vapour at its partial pressure) and "H2O(L)" row. What it
// leaves out, the difference between IF97 and those rows, is small and
// changes slowly with temperature, and the corrected search carries it as a
// straight line fitted to the model's values.

inline constexpr double condensate_density = 1000.0;  // kg/m3, the cheap model's condensate
inline constexpr double saturation_step = 1e-5;       // K, step of the saturation pressure's slope
inline constexpr double pa_per_mpa = 1e6;
inline constexpr double dew_offset = 1e-9;  // relative distance of the first point from the dew point

struct Slope {
    double q = 0.0;   // the letter's quantity, SI units
    double dq = 0.0;  // its derivative in T at the search's pressure
};

class CheapModel {
public:
    CheapModel(const MixtureData& m, char letter, double p)
        : m_(m), letter_(letter), p_(p), log_p_(std::log(p / od::basefuncs::p_ref)) {}

    Slope at(double t) const {
        const bool entropy = letter_ == 's';
        const bool enthalpy = letter_ == 'h' || letter_ == 'u';
        const double log_t = entropy ? std::log(t) : 0.0;
        // The components besides the water: h/R, cp/R and s/R at p_ref.
        double h = 0.0, cp = 0.0, s = 0.0;
        for (const od::Component& comp : m_.comps) {
            if (comp.water_if || !(comp.conc > od::thermodyn::negligible)) continue;
            const cm::Coefs& a = cm::coefs(comp.row, t);
            if (enthalpy) h += comp.conc * cm::h_of(a, t);
            if (entropy) s += comp.conc * cm::s_of(a, t, log_t);
            cp += comp.conc * cm::cp_of(a, t);
        }
        // The water: vapour moles per mole of mixture, their derivative in T,
        // and the vapour's partial pressure, as the model splits the water.
        const double y = m_.water;
        const double dry = m_.all_gas - y;  // moles of the other gas-phase components
        double nv = y, dnv = 0.0, pw = p_ * y / m_.all_gas, dlog_pw = 0.0;
        const double ps = t >= t_triple && t <= if97::critical_temperature ? if97::psat(t) * pa_per_mpa : no_value;
        if (finite(ps) && y * p_ > ps && ps != p_) {
            const double t2 = t + saturation_step < if97::critical_temperature ? t + saturation_step : t - saturation_step;
            const double dps = (if97::psat(t2) * pa_per_mpa - ps) / (t2 - t);
            nv = dry * ps / (p_ - ps);
            dnv = dry * p_ * dps / ((p_ - ps) * (p_ - ps));
            pw = ps;
            dlog_pw = dps / ps;
        }
        const double nl = y - nv;
        const cm::Coefs& av = cm::coefs(m_.rows.water.gas, t);
        const cm::Coefs& al = cm::coefs(m_.rows.water.liquid, t);
        const double cpv = cm::cp_of(av, t), cpl = cm::cp_of(al, t);
        const double r = od::basefuncs::r_gas;
        const double mm = m_.molar_mass;
        if (entropy) {
            const double g = dry + nv;  // gas-phase moles
            const double sv = cm::s_of(av, t, log_t) - std::log(pw / od::basefuncs::p_ref);
            const double sl = cm::s_of(al, t, log_t);
            const double total = s - m_.dry_gas * log_p_ - m_.dry_mixing + m_.dry_gas * std::log(g) + nv * sv + nl * sl;
            const double slope = cp / t + m_.dry_gas * dnv / g + dnv * (sv - sl) + nv * (cpv / t - dlog_pw) +
                                 nl * cpl / t;
            return {total * r / mm, slope * r / mm};
        }
        Slope out;
        if (enthalpy) {
            const double hv = cm::h_of(av, t), hl = cm::h_of(al, t);
            out.q = (h + nv * hv + nl * hl) * r / mm;
            out.dq = (cp + nv * cpv + nl * cpl + dnv * (hv - hl)) * r / mm;
            if (letter_ == 'h') return out;
        }
        // Volume: the gas phase ideal, the condensate of constant density.
        const double vl = cm::mmol(m_.rows.water.liquid) / condensate_density;
        const double v = ((m_.dry_gas + nv) * r * t / p_ + m_.dry_condensed_volume + nl * vl) / mm;
        const double dv = ((m_.dry_gas + nv) * r / p_ + dnv * (r * t / p_ - vl)) / mm;
        if (letter_ == 'v') return {v, dv};
        if (letter_ == 'd') return {1.0 / v, -dv / (v * v)};
        return {out.q - p_ * v, out.dq - p_ * dv};  // u = h - p v
    }

private:
    const MixtureData& m_;
    char letter_;
    double p_;
    double log_p_;
};

// The cheap model along an isotherm: what depends on T alone formed once,
// then any letter's quantity at any pressure with its derivative in ln p.
class CheapIsotherm {
public:
    CheapIsotherm(const MixtureData& m, double t) : m_(m), t_(t) {
        const double log_t = std::log(t);
        for (const od::Component& comp : m.comps) {
            if (comp.water_if || !(comp.conc > od::thermodyn::negligible)) continue;
            const cm::Coefs& a = cm::coefs(comp.row, t);
            h_ += comp.conc * cm::h_of(a, t);
            s_ += comp.conc * cm::s_of(a, t, log_t);
        }
        const cm::Coefs& av = cm::coefs(m.rows.water.gas, t);
        const cm::Coefs& al = cm::coefs(m.rows.water.liquid, t);
        hv_ = cm::h_of(av, t);
        hl_ = cm::h_of(al, t);
        sv0_ = cm::s_of(av, t, log_t);
        sl_ = cm::s_of(al, t, log_t);
        vl_ = cm::mmol(m.rows.water.liquid) / condensate_density;
        ps_ = t >= t_triple && t <= if97::critical_temperature ? if97::psat(t) * pa_per_mpa : no_value;
    }

    double temperature() const { return t_; }
    // The letter's quantity (v, d, h, s or u) at pressure p (log_p = ln p), and its derivative in ln p.
    Slope at(char letter, double p, double log_p) const {
        const double y = m_.water, dry = m_.all_gas - y;
        double nv = y, dnv = 0.0, pw = p * y / m_.all_gas, dlog_pw = 1.0;
        if (finite(ps_) && y * p > ps_ && ps_ != p) {
            nv = dry * ps_ / (p - ps_);
            dnv = -dry * ps_ * p / ((p - ps_) * (p - ps_));
            pw = ps_;
            dlog_pw = 0.0;
        }
        const double nl = y - nv;
        const double r = od::basefuncs::r_gas, mm = m_.molar_mass;
        if (letter == 's') {
            const double g = dry + nv;
            const double sv = sv0_ - std::log(pw / od::basefuncs::p_ref);
            const double total = s_ - m_.dry_gas * (log_p - log_p_ref) - m_.dry_mixing + m_.dry_gas * std::log(g) +
                                 nv * sv + nl * sl_;
            const double slope = -m_.dry_gas + m_.dry_gas * dnv / g + dnv * (sv - sl_) - nv * dlog_pw;
            return {total * r / mm, slope * r / mm};
        }
        const double h = (h_ + nv * hv_ + nl * hl_) * r / mm;
        const double dh = dnv * (hv_ - hl_) * r / mm;
        if (letter == 'h') return {h, dh};
        const double rt_p = r * t_ / p;
        const double v = ((m_.dry_gas + nv) * rt_p + m_.dry_condensed_volume + nl * vl_) / mm;
        const double dv = (dnv * rt_p - (m_.dry_gas + nv) * rt_p - dnv * vl_) / mm;
        if (letter == 'v') return {v, dv};
        if (letter == 'd') return {1.0 / v, -dv / (v * v)};
        return {h - p * v, dh - p * v - p * dv};  // u = h - p v
    }

private:
    static inline const double log_p_ref = std::log(od::basefuncs::p_ref);
    const MixtureData& m_;
    double t_;
    double h_ = 0.0, s_ = 0.0;  // the components besides the water: h/R, s/R at p_ref
    double hv_, hl_, sv0_, sl_, vl_, ps_;
};


inline constexpr double settle_tolerance = 1e-12;  // relative residual that ends the search: 1e-3 of the check's
inline constexpr int max_evaluations = 8;          // evaluations of the model before the sampled search takes over
inline constexpr int max_cheap_steps = 60;
// Relative Newton step after which the cheap model's iteration takes that
// step and stops: the error left after it is of the order of the square of
// the step times the curvature, far below 1e-12 of T. The first round,
// which the model's values correct anyway, stops earlier.
inline constexpr double cheap_step_tolerance = 1e-8;
inline constexpr double first_cheap_step_tolerance = 1e-6;

// A point of the cheap model: temperature, value and slope (the slope at
// the last point evaluated, the value carried to t along it).
struct CheapPoint {
    double t = no_value;
    double q = no_value;
    double dq = no_value;
};

// The root in (lo, hi) of cheap(t) + d0 + slope (t - t0) = target by
// Newton's method from `from` (whose value and slope are known where
// from.q is finite), kept inside a shrinking bracket; `rising`: the cheap
// model rises with T. NaN when the root is not inside (the iteration then
// ends on an end it never left) or the iteration does not settle.
CheapPoint cheap_root(const CheapModel& cheap, double target, double d0, double slope, double t0, double lo,
                      double hi, CheapPoint from, bool rising, double tolerance) {
    const double lo0 = lo, hi0 = hi;
    double t = from.t;
    for (int k = 0; k < max_cheap_steps; ++k) {
        const Slope v = k == 0 && finite(from.q) ? Slope{from.q, from.dq} : cheap.at(t);
        const double r = v.q + d0 + slope * (t - t0) - target;
        if (r == 0.0) return {t, v.q, v.dq};
        if (!finite(r)) return {};
        ((r > 0.0) == rising ? hi : lo) = t;
        const double step = r / (v.dq + slope);
        // A step this small ends the iteration (it may be below the spacing of
        // the doubles at t, and t itself then is the root).
        if (std::fabs(step) <= tolerance * t) return {t - step, v.q - v.dq * step, v.dq};
        double next = t - step;
        if (!(next > lo && next < hi)) next = 0.5 * (lo + hi);
        // Closed onto an end that no residual moved: the root lies beyond it.
        if (!(hi - lo > 1e-9 * t) && (lo == lo0 || hi == hi0)) return {};
        t = next;
    }
    return {};
}

}  // namespace

// The corrected search serves a mixture with one condensing water entry
// beside other gas-phase components, and the gas rows it needs.
bool corrected_search_serves(const MixtureData& m) {
    return m.condensing && m.water_entries == 1 && m.water > 0.0 && m.all_gas - m.water > 1e-6 * m.all_gas &&
           m.rows.water.gas != nullptr && m.rows.water.liquid != nullptr;
}

// The temperature in [lo, hi] at pressure p where the letter's quantity
// equals target, for a mixture corrected_search_serves. Each round solves
// the cheap model plus a straight line d0 + slope (t - t0) for the
// difference between model and cheap model, evaluates the model at that
// root, and refits the line to the differences found there (the newest
// value, and the slope between the newest two). The cheap model holds the
// strong nonlinearity of condensation and the line the small rest, so that
// a few evaluations reach a residual of 1e-12 of its scale. NaN where it
// does not (a target outside what the interval reaches, among others): the
// caller then searches the sampled way.
Settled corrected_search(od::Context& c, const MixtureData& m, char letter, double target, double p, double lo,
                         double hi) {
    const CheapModel cheap(m, letter, p);
    const bool rising = letter != 'd';
    // Start where the dry gas search starts, or next to the dew point on the
    // side of the root, so that the cheap model's first slope is that of the
    // side (condensing below the dew point, where the latent heat steepens
    // every quantity; the gas alone above).
    double t = std::clamp(newton_start, lo, hi);
    const double p_water = p * m.water / m.all_gas / pa_per_mpa;
    if (p_water >= if97::psat(if97::t_min) && p_water < if97::critical_pressure) {
        const double t_dew = if97::tsat(p_water);
        const double below = t_dew * (1.0 - dew_offset), above = t_dew * (1.0 + dew_offset);
        if (below > lo && above < hi) t = (cheap.at(below).q > target) == rising ? below : above;
    }
    double d0 = 0.0, slope = 0.0, t0 = t;
    double t_prev = no_value, d_prev = no_value;
    CheapPoint from{t};
    Settled out;
    for (int k = 0; k < max_evaluations; ++k) {
        const CheapPoint cr = cheap_root(cheap, target, d0, slope, t0, lo, hi, from, rising,
                                         k == 0 ? first_cheap_step_tolerance : cheap_step_tolerance);
        if (!finite(cr.t)) return {};
        t = cr.t;
        const double q = quantity(c, m, letter, p, t);
        ++out.evaluations;
        const double r = q - target;
        if (!finite(r)) return {};
        const double scale = residual_scale(m, letter, target, t);
        if (std::fabs(r) <= settle_tolerance * scale) return {t, q, out.evaluations};
        // The model's residual brackets its root.
        ((r > 0.0) == rising ? hi : lo) = t;
        if (!(hi - lo > 4.0 * std::numeric_limits<double>::epsilon() * t)) {
            // No representable temperature lies between: the closest one, if it passes the check.
            if (std::fabs(r) <= residual_tolerance * scale) return {t, q, out.evaluations};
            return {};
        }
        // The difference between the model and the cheap model at t; the
        // next round starts at t, where the cheap model is known.
        const double d = q - cr.q;
        if (finite(t_prev) && t != t_prev) slope = (d - d_prev) / (t - t_prev);
        t_prev = t;
        d_prev = d;
        d0 = d;
        t0 = t;
        from = cr;
    }
    return {};
}

namespace {

// --- the sampled searches ---------------------------------------------------

// Samples per temperature piece of the outer search of the pairs that give
// neither pressure nor temperature (its residual need not run one way).
inline constexpr int nested_samples = 24;
// Samples of a pressure search with condensing water: three per decade from 1 Pa to 1e8 Pa.
inline constexpr int pressure_samples = 25;

Status outcome_status(const Root& r) {
    switch (r.outcome) {
    case Outcome::found: return Status::ok;
    case Outcome::not_converged: return Status::not_converged;
    default: return Status::no_solution;
    }
}

// The temperature intervals on which the state functions are continuous: the
// condensing water's terms jump at the triple point, where its condensate
// turns from ice-like to liquid.
std::vector<double> temperature_pieces(const MixtureData& m) {
    if (m.condensing && m.t_min < t_triple && t_triple < m.t_max) return {m.t_min, t_triple, m.t_max};
    return {m.t_min, m.t_max};
}

// The temperature at pressure p where the quantity `letter` equals target;
// *value receives the quantity at the root where the search evaluated it there.
Root temperature_at(od::Context& c, const MixtureData& m, char letter, double target, double p, SearchMode mode,
                    double* value) {
    if (!m.condensing && (letter == 'h' || letter == 's' || letter == 'u')) {
        const double t = newton_t(m, letter, p, target);
        if (finite(t)) return {t, Outcome::found, false};
    }
    const auto f = [&](double t) { return quantity(c, m, letter, p, t) - target; };
    const std::vector<double> pieces = temperature_pieces(m);
    if (mode == SearchMode::fast && corrected_search_serves(m)) {
        // The highest piece by the corrected search; every quantity runs one
        // way with temperature on each piece, so that a lower piece holds a
        // root exactly where the residual changes sign over it.
        const double lo = pieces[pieces.size() - 2], hi = pieces.back();
        const Settled s = corrected_search(c, m, letter, target, p, lo, hi);
        if (finite(s.t)) {
            Root r{s.t, Outcome::found, false};
            *value = s.value;
            for (std::size_t k = pieces.size() - 2; k > 0 && !r.not_unique; --k) {
                const double a = pieces[k - 1], b = std::nextafter(pieces[k], a);
                const double fa = f(a), fb = f(b);
                // As the sampled search counts a bracket: a zero counts as positive.
                r.not_unique = !std::isnan(fa) && !std::isnan(fb) && (fa < 0.0) != (fb < 0.0);
            }
            return r;
        }
    }
    return od::search::find_root_in_pieces(f, pieces, false, 2);
}

}  // namespace

Root pressure_at(od::Context& c, const MixtureData& m, char letter, double target, double t, SearchMode) {
    if (!m.condensing) {
        const double r = od::basefuncs::r_gas;
        double p = no_value;
        if (letter == 'v' || letter == 'd') {
            const double v = letter == 'v' ? target : 1.0 / target;
            p = m.gas_moles * r * t / (v * m.molar_mass - m.condensed_volume);
        } else if (letter == 's') {
            const td::GasSums g = td::gas_sums(m.rows, t, std::log(t), {false, true, false});
            p = od::basefuncs::p_ref * std::exp((g.s - m.mixing - target * m.molar_mass / r) / m.gas_moles);
        }
        if (finite(p) && p > 0.0) return {p, Outcome::found, false};
        return {};
    }
    // Volume, density and entropy fall with pressure; the condensate's
    // enthalpy rises with it where the vapour's does not, so h and u need not
    // run one way and are sampled.
    const auto f = [&](double p) { return quantity(c, m, letter, p, t) - target; };
    const int n = letter == 'h' || letter == 'u' ? pressure_samples : 2;
    return od::search::find_root(f, od::search::p_search_min, od::search::p_search_max, true, n,
                                 od::search::Prefer::lowest);
}

namespace {

// --- the condensing water: pressures and the pairs without p or T -----------

inline constexpr double log_p_low = -6.907755278982137;  // ln(1e-3 Pa): the cheap model's search in ln p
inline constexpr double log_p_high = 25.328436022934504;  // ln(1e11 Pa)
inline constexpr double cheap_log_p_tolerance = 1e-10;
inline constexpr int max_pressure_evaluations = 6;
// Cheap-model residuals of the outer search larger than this share of
// their scale have the model's sign: the cheap model's quantities differ
// from the model's by well under a percent of it.
inline constexpr double sample_margin = 0.05;
// A cheap-model pressure this factor beyond the pressure search's ends leaves the model's beyond them too.
inline constexpr double pressure_margin = 10.0;

// The cheap model's ln p on the isotherm where the letter's quantity (v, d
// or s) equals target, by Newton's method in ln p kept inside [1e-3 Pa,
// 1e11 Pa]; NaN where it finds none there.
double cheap_log_pressure(const MixtureData& m, const CheapIsotherm& iso, char letter, double target) {
    // Start where the water would be all vapour: an ideal gas.
    const double r = od::basefuncs::r_gas;
    const double gas = m.dry_gas + m.water;
    double x;
    if (letter == 's') {
        const double x_ref = std::log(od::basefuncs::p_ref);
        x = x_ref + (iso.at(letter, od::basefuncs::p_ref, x_ref).q - target) * m.molar_mass / (gas * r);
    } else {
        const double v = letter == 'v' ? target : 1.0 / target;
        x = std::log(gas * r * iso.temperature() / (v * m.molar_mass));
    }
    double lo = log_p_low, hi = log_p_high;
    const bool rising = letter == 'd';  // v and s fall with pressure
    if (!finite(x)) x = 0.5 * (lo + hi);
    for (int k = 0; k < max_cheap_steps; ++k) {
        x = std::clamp(x, lo, hi);
        const Slope f = iso.at(letter, std::exp(x), x);
        const double fx = f.q - target;
        if (!finite(fx)) return no_value;
        if (fx == 0.0) return x;
        ((fx > 0.0) == rising ? hi : lo) = x;
        double next = x - fx / f.dq;
        if (!(next > lo && next < hi)) next = 0.5 * (lo + hi);
        if (std::fabs(next - x) <= cheap_log_p_tolerance) return next;
        if (!(hi - lo > cheap_log_p_tolerance)) return no_value;  // closed onto an end
        x = next;
    }
    return no_value;
}

// The model's pressure at t where the letter's quantity (v, d or s) equals
// target, for a mixture corrected_search_serves: from the cheap model's
// pressure, secant steps on the model's residual in ln p, the first with
// the cheap model's slope, until the residual is 1e-12 of its scale. Where
// the cheap model puts the pressure outside the search's range, or the
// steps do not settle inside it, the sampled search answers. *value
// receives the quantity at the pressure found.
Root fast_pressure(od::Context& c, const MixtureData& m, char letter, double target, double t, double* value) {
    const double x_min = std::log(od::search::p_search_min), x_max = std::log(od::search::p_search_max);
    const CheapIsotherm iso(m, t);
    const double xc = cheap_log_pressure(m, iso, letter, target);
    if (finite(xc) && xc > x_min && xc < x_max) {
        const bool rising = letter == 'd';
        const double scale = residual_scale(m, letter, target, t);
        double lo = x_min, hi = x_max;
        double x = xc, x_prev = no_value, r_prev = no_value;
        double slope = iso.at(letter, std::exp(xc), xc).dq;
        for (int k = 0; k < max_pressure_evaluations; ++k) {
            const double p = std::exp(x);
            const double q = quantity(c, m, letter, p, t);
            const double r = q - target;
            if (!finite(r)) break;
            if (std::fabs(r) <= settle_tolerance * scale) {
                *value = q;
                return {p, Outcome::found, false};
            }
            ((r > 0.0) == rising ? hi : lo) = x;
            if (finite(x_prev) && x != x_prev && r != r_prev) slope = (r - r_prev) / (x - x_prev);
            x_prev = x;
            r_prev = r;
            const double next = x - r / slope;
            if (!(next > lo && next < hi)) break;
            x = next;
        }
    }
    return pressure_at(c, m, letter, target, t, SearchMode::sampled);
}

// The grid of find_root: n points from lo to hi, evenly in ln T.
double grid_point(double lo, double hi, int k, int n) {
    if (k == 0) return lo;
    if (k == n - 1) return hi;
    const double s = static_cast<double>(k) / (n - 1);
    return std::exp(std::log(lo) + s * (std::log(hi) - std::log(lo)));
}

// The cheap model's residual of the outer search at t: its quantity `outer`
// at the pressure where its quantity `inner` matches; NaN where none does.
double cheap_nested_residual(const MixtureData& m, char inner, char outer, double inner_target, double outer_target,
                             double t) {
    const CheapIsotherm iso(m, t);
    const double x = cheap_log_pressure(m, iso, inner, inner_target);
    return finite(x) ? iso.at(outer, std::exp(x), x).q - outer_target : no_value;
}

inline constexpr int max_cheap_secants = 40;
inline constexpr double cheap_t_tolerance = 1e-7;  // relative, of the cheap model's root in the bracket
inline constexpr double cheap_t_step = 1e-6;       // relative step of the cheap residual's slope

// The root in the bracket [a, b] of the outer search's residual (its
// model's value: `residual`): the cheap model's root of it by the Illinois
// method, then secant steps on the model's residual from there, the first
// with the cheap model's slope, inside the bracket, until the residual is
// 1e-12 of its scale. NaN where that does not happen (the caller then
// closes the bracket by Brent's method).
template <class Residual>
double close_nested(const MixtureData& m, char inner, char outer, double inner_target,
                    double outer_target, double a, double b, Residual&& residual) {
    const auto cheap = [&](double t) {
        return cheap_nested_residual(m, inner, outer, inner_target, outer_target, t);
    };
    double ta = a, tb = b, ga = cheap(a), gb = cheap(b);
    if (!finite(ga) || !finite(gb) || (ga < 0.0) == (gb < 0.0)) return no_value;
    int side = 0;
    double t = no_value;
    for (int k = 0; k < max_cheap_secants; ++k) {
        t = (ta * gb - tb * ga) / (gb - ga);
        const double g = cheap(t);
        if (!finite(g)) return no_value;
        if (std::fabs(tb - ta) <= cheap_t_tolerance * t || g == 0.0) break;
        if ((g < 0.0) == (gb < 0.0)) {
            tb = t;
            gb = g;
            if (side == -1) ga *= 0.5;
            side = -1;
        } else {
            ta = t;
            ga = g;
            if (side == 1) gb *= 0.5;
            side = 1;
        }
    }
    if (!finite(t)) return no_value;
    const double dt = cheap_t_step * t;
    double slope = (cheap(t + dt) - cheap(t)) / dt;
    double lo = a, hi = b;
    const bool rising_in_t = slope > 0.0;
    double t_prev = no_value, r_prev = no_value;
    for (int k = 0; k < max_evaluations; ++k) {
        const double r = residual(t);
        if (!finite(r)) return no_value;
        if (std::fabs(r) <= settle_tolerance * residual_scale(m, outer, outer_target, t)) return t;
        ((r > 0.0) == rising_in_t ? hi : lo) = t;
        if (finite(t_prev) && t != t_prev && r != r_prev) slope = (r - r_prev) / (t - t_prev);
        t_prev = t;
        r_prev = r;
        const double next = t - r / slope;
        if (!(next > lo && next < hi)) return no_value;
        t = next;
    }
    return no_value;
}

// The pairs without pressure or temperature for a mixture
// corrected_search_serves, on the sampled search's grid and with its rule
// (the highest bracket of a sign change gives the root, a second one makes
// it not unique): a sample's residual is taken from the cheap model where
// that is far from zero (and its pressure far inside or outside the
// pressure search's range), from the model elsewhere; each bracket is
// closed on the model by Brent's method, its pressures found by
// fast_pressure.
Search nested_fast(od::Context& c, const MixtureData& m, char inner, char outer, double inner_target,
                   double outer_target, bool first_inner) {
    double inner_value = no_value;
    const auto residual = [&](double t) {
        const Root p = fast_pressure(c, m, inner, inner_target, t, &inner_value);
        if (p.outcome != Outcome::found) return no_value;
        return quantity(c, m, outer, p.x, t) - outer_target;
    };
    const auto sample = [&](double t) {
        const CheapIsotherm iso(m, t);
        const double x = cheap_log_pressure(m, iso, inner, inner_target);
        const double x_min = std::log(od::search::p_search_min), x_max = std::log(od::search::p_search_max);
        const double margin = std::log(pressure_margin);
        if (finite(x) && (x < x_min - margin || x > x_max + margin)) return no_value;
        if (finite(x) && x > x_min + margin && x < x_max - margin) {
            const double g = iso.at(outer, std::exp(x), x).q - outer_target;
            if (std::fabs(g) > sample_margin * residual_scale(m, outer, outer_target, t)) return g;
        }
        return residual(t);
    };
    const std::vector<double> pieces = temperature_pieces(m);
    Search out;
    Root best;
    std::array<double, od::search::max_samples> ts{}, fs{};
    for (std::size_t piece = pieces.size() - 1; piece > 0 && !best.not_unique; --piece) {
        const double lo = pieces[piece - 1];
        const double hi = piece + 1 < pieces.size() ? std::nextafter(pieces[piece], lo) : pieces[piece];
        if (!(lo < hi)) continue;
        const int n = nested_samples;
        for (int k = 0; k < n; ++k) {
            ts[static_cast<std::size_t>(k)] = grid_point(lo, hi, k, n);
            fs[static_cast<std::size_t>(k)] = sample(ts[static_cast<std::size_t>(k)]);
        }
        for (int j = 1; j < n; ++j) {
            const auto i = static_cast<std::size_t>(n - j);
            const double fa = fs[i - 1], fb = fs[i];
            if (std::isnan(fa) || std::isnan(fb) || (fa < 0.0) == (fb < 0.0)) continue;
            if (best.outcome == Outcome::found) {
                best.not_unique = true;
                break;
            }
            double a = ts[i - 1], b = ts[i];
            const double quick = close_nested(m, inner, outer, inner_target, outer_target, a, b, residual);
            if (finite(quick)) {
                best = {quick, Outcome::found, false};
                continue;
            }
            int ierr = 0;
            const double x = od::solver::brent([&](double u, double, const od::Mixture&) { return residual(u); }, 1,
                                               0.0, 0.0, a, b, od::search::x_tolerance * std::fabs(b),
                                               od::Mixture{}, ierr);
            if (ierr == od::solver::err_not_converged) {
                out.status = Status::not_converged;
                return out;
            }
            if (ierr != 0) continue;
            best = {x, Outcome::found, false};
        }
    }
    out.status = outcome_status(best);
    if (out.status != Status::ok) return out;
    inner_value = no_value;  // set again only where the pressure below is found by the secant steps
    const Root p = fast_pressure(c, m, inner, inner_target, best.x, &inner_value);
    out.state = {p.x, best.x, best.not_unique || p.not_unique};
    out.status = outcome_status(p);
    if (out.status == Status::ok) out.at_state[first_inner ? 0 : 1] = inner_value;
    return out;
}

}  // namespace

Search search_state(od::Context& c, const MixtureData& m, std::string_view spec, double a, double b,
                    SearchMode mode) {
    Search out;
    State& st = out.state;
    const char first = spec[0], second = spec[1];
    if (first == 'P' && second == 'T') return {{a, b}, Status::ok};
    if (first == 'T' && second == 'P') return {{b, a}, Status::ok};
    if (first == 'P') {
        const Root r = temperature_at(c, m, second, b, a, mode, &out.at_state[1]);
        st = {a, r.x, r.not_unique};
        out.status = outcome_status(r);
        return out;
    }
    if (first == 'T') {
        // Without condensing water an ideal gas's h and u do not fix the pressure.
        if (!m.condensing && (second == 'h' || second == 'u')) return {{0.0, a}, Status::pressure_undetermined};
        const Root r = pressure_at(c, m, second, b, a, mode);
        st = {r.x, a, r.not_unique};
        out.status = outcome_status(r);
        return out;
    }
    // Neither pressure nor temperature: at each temperature the pressure that
    // matches the volume, density or entropy, then the temperature at which
    // the other quantity matches too.
    const bool first_inner = first == 'v' || first == 'd' || first == 's';
    const char inner = first_inner ? first : second;
    const char outer = first_inner ? second : first;
    const double inner_target = first_inner ? a : b;
    const double outer_target = first_inner ? b : a;
    if (mode == SearchMode::fast && corrected_search_serves(m))
        return nested_fast(c, m, inner, outer, inner_target, outer_target, first_inner);
    const auto residual = [&](double t) {
        const Root p = pressure_at(c, m, inner, inner_target, t, mode);
        if (p.outcome != Outcome::found) return no_value;
        return quantity(c, m, outer, p.x, t) - outer_target;
    };
    // Sampled evenly in ln T: closer where condensation shapes the residual.
    const Root t = od::search::find_root_in_pieces(residual, temperature_pieces(m), true, nested_samples);
    out.status = outcome_status(t);
    if (out.status != Status::ok) return out;
    const Root p = pressure_at(c, m, inner, inner_target, t.x, mode);
    st = {p.x, t.x, t.not_unique || p.not_unique};
    out.status = outcome_status(p);
    return out;
}

}  // namespace ondrel::detail
