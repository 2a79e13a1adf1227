// Condensing water "H2O(IF)": IAPWS-IF97 values through the IF97 adapter,
// split into condensed and vapour parts and moved onto the gas-table
// reference so that the water term adds to the ideal-gas terms.
#include "thermo/od_h2o.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "fluiddata/od_fluiddata.hpp"
#include "if97_adapter/if97_qv.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_units.hpp"

namespace od::h2o {
namespace {

using basefuncs::isnotinit;
using basefuncs::r_gas;
using units::bar_to_pa;
using units::celsius_offset;
using units::kj_to_j;

inline constexpr double t_triple = 273.16;       // K
inline constexpr double p_triple = 611.657;      // Pa, lower clip of a first pressure input
inline constexpr double t_crit = 647.096;        // K, no saturation above
inline constexpr double t_if97_max = 1073.15;    // K, vapour is extended with the gas table above
inline constexpr double p_reference = 101325.0;  // Pa, where IF97 is matched to the gas table
inline constexpr double t_reference = 1073.15;   // K
inline constexpr double saturation_tolerance = 1e-6;
inline constexpr double quality_any = 0.5;       // quality of a saturation-pressure request

// Constants of the sublimation-pressure formula (Goff-Gratch form).
inline constexpr double subl_c0 = -0.213856;
inline constexpr double subl_log = 3.56654;
inline constexpr double subl_lin = 9.09685;
inline constexpr double subl_t = 0.87682;
inline constexpr double subl_scale = 1000.0;

const CompName water = CompName::from("H2O");
const CompName water_liquid = CompName::from("H2O(L)");

// Saved values of one property function.
struct Saved {
    bool first = true;   // reference correction not yet computed
    double r_h2o = 0.0;  // J/(kg K)
    double corr = 0.0;   // reference correction, per-mole units
    double p_sat = 0.0;
    double p_h2o = 0.0;
    double vap = 0.0;    // vapour value of the last call with vapour
};

struct State {
    Saved h, s, cp;
    std::string errmsg;        // Intended: the adapter's last message is kept but read by nobody.
    double calcval = 0.0;      // last result of the gateway
    char inputspec[2] = {' ', ' '};
};

State& state() {
    static State s;
    return s;
}

// One of the four quantities a property function evaluates.
struct Quantity {
    std::string_view prop;                                   // IF97 property name
    double (*db)(const CompName& name, double p, double t);  // gas-table value, per mole
    bool scaled;  // carried beyond an anchor temperature by t/t_anchor, not by gas-table differences
};
double db_h(const CompName& n, double, double t) { return basefuncs::h_0(n, t); }
double db_s(const CompName& n, double p, double t) { return basefuncs::s_0(n, p, t); }
double db_cp(const CompName& n, double, double t) { return basefuncs::cp_0(n, t); }
double db_v(const CompName&, double p, double t) { return basefuncs::v_0(p, t); }
inline constexpr Quantity q_h{"H.", db_h, false};
inline constexpr Quantity q_s{"S.", db_s, false};
inline constexpr Quantity q_cp{"CP.", db_cp, false};
inline constexpr Quantity q_v{"V.", db_v, true};
inline constexpr std::string_view prop_p = "P.";

double sublimation_pressure(double t) {
    const double r = t_triple / t;
    const double e = subl_c0 - subl_log * std::log10(r) - subl_lin * (r - 1.0) + subl_t * (1.0 - t / t_triple);
    return subl_scale * std::pow(10.0, e);
}

// Where the water stands: saturation pressure, condensed fraction f and
// vapour partial pressure.
struct Split {
    double p_sat;
    double f;
    double p_h2o;
};

Split split(double xw, double p, double t) {
    Split s{};
    s.p_sat = h2o('T', t, 'X', quality_any, prop_p);
    const bool valid = isnotinit(s.p_sat);
    // Intended: non-strict xw*p >= psat here, strict in the gas fraction of the mixture.
    const bool saturated = valid && xw * p >= s.p_sat && s.p_sat != p;
    if (xw == 1.0)
        s.f = (valid && p > s.p_sat) ? 1.0 : 0.0;
    else
        s.f = saturated ? (xw - s.p_sat / p) / xw : 0.0;
    s.p_h2o = saturated ? s.p_sat : xw * p;
    return s;
}

// The per-mole value at t of the component `name` from its value at t_anchor.
double carried(const Quantity& q, double anchor, const CompName& name, double p, double t, double t_anchor) {
    if (q.scaled) return anchor * t / t_anchor;
    return anchor + q.db(name, p, t) - q.db(name, p, t_anchor);
}

// Condensed-phase value (h/R, s/R, cp/R or molar volume) with conv turning an IF97 value into it.
template <class Conv>
double condensed(const Quantity& q, double p, double t, double f, double p_sat, Conv conv) {
    if (t >= t_triple) {
        if (f > 0.0 && f < 1.0)
            return p > p_sat ? conv(h2o('P', p, 'T', t, q.prop)) : conv(h2o('P', p, 'X', 0.0, q.prop));
        if (f >= 1.0) return conv(h2o('P', p, 'T', t, q.prop));
        return 0.0;
    }
    if (f > 0.0)
        return carried(q, conv(h2o('P', p, 'T', t_triple, q.prop)), water_liquid, p, t, t_triple);
    return 0.0;
}

// Vapour value at the partial pressure p_h2o (the gas-table terms at the total pressure p).
template <class Conv>
double vapour(const Quantity& q, double p, double t, const Split& s, Conv conv) {
    // Intended: the gas-table vapour terms take the total pressure, not the partial one.
    if (t < t_triple) return q.db(water, p, t);
    if (std::fabs((s.p_sat - s.p_h2o) / s.p_sat) < saturation_tolerance)
        return conv(h2o('P', s.p_h2o, 'X', 1.0, q.prop));
    if (t <= t_if97_max) return conv(h2o('P', s.p_h2o, 'T', t, q.prop));
    return carried(q, conv(h2o('P', s.p_h2o, 'T', t_if97_max, q.prop)), water, p, t, t_if97_max);
}

// h/R, s/R or cp/R of the water, condensed and vapour parts weighted by the
// condensed fraction; sv holds the function's saved values.
template <class Conv>
double split_value(const Quantity& q, Saved& sv, double xw, double p, double t, Conv conv) {
    const Split s = split(xw, p, t);
    sv.p_sat = s.p_sat;
    sv.p_h2o = s.p_h2o;
    const double liq = condensed(q, p, t, s.f, s.p_sat, conv);
    // Intended: with no vapour the saved vapour value of an earlier call is weighted by zero.
    if (s.f < 1.0) sv.vap = vapour(q, p, t, s, conv);
    const double w = 1.0 - s.f;
    // A term weighted by zero contributes zero, also when an earlier call saved
    // an infinite or NaN vapour value (0 * inf would be NaN).
    const double vap = (w == 0.0 && !std::isfinite(sv.vap)) ? 0.0 : sv.vap;
    return w * vap + s.f * liq;
}

// h/R or s/R of the water, on the gas-table reference.
double energy_like(const Quantity& q, Saved& sv, double xw, double p, double t) {
    // Intended: the reference correction is computed once, on the first call, and never again.
    if (sv.first) {
        sv.r_h2o = r_gas / fluiddata::getmmol(water);
        sv.corr = q.db(water, p_reference, t_reference) - h2o('P', p_reference, 'T', t_reference, q.prop) / sv.r_h2o;
        sv.first = false;
    }
    return split_value(q, sv, xw, p, t, [&sv](double x) { return x / sv.r_h2o + sv.corr; });
}

}  // namespace

double h2o(char code1, double value1, char code2, double value2, std::string_view property) {
    State& st = state();
    double result;
    if (code1 == 'T' && code2 == 'X') {
        // Intended: a temperature of 0 K or less is evaluated at 1 K.
        const double t = value1 <= 0.0 ? 1.0 : value1;
        if (t > t_crit) {
            st.calcval = missing_value;
            return st.calcval;
        }
        if (t < t_triple)
            result = sublimation_pressure(t);
        else
            result = if97_qv::if97_prop("Tq", t - celsius_offset, value2, property, st.errmsg);
    } else {
        double v1 = value1;
        double v2 = value2;
        if (code1 == 'P') v1 = std::max(value1, p_triple) / bar_to_pa;
        if (code1 == 'T') v1 = value1 - celsius_offset;
        // Intended: a second pressure is not clipped.
        if (code2 == 'P') v2 = value2 / bar_to_pa;
        if (code2 == 'T') v2 = value2 - celsius_offset;
        st.inputspec[0] = code1;
        st.inputspec[1] = code2;
        result = if97_qv::if97_prop(std::string_view(st.inputspec, 2), v1, v2, property, st.errmsg);
    }
    st.calcval = result;
    if (result == missing_value) return result;
    // Intended: the sublimation branch is scaled as well, so below 273.16 K water never condenses.
    if (property == prop_p)
        st.calcval = result * bar_to_pa;
    else if (property == q_h.prop || property == q_s.prop || property == q_cp.prop)
        st.calcval = result * kj_to_j;
    return st.calcval;
}

double h_h2o(double xw, double p, double t) { return energy_like(q_h, state().h, xw, p, t); }

double s_h2o(double xw, double p, double t) { return energy_like(q_s, state().s, xw, p, t); }

double cp_h2o(double xw, double p, double t) {
    // No reference correction; the specific gas constant is formed on every call.
    const double r_h2o = r_gas / fluiddata::getmmol(water);
    return split_value(q_cp, state().cp, xw, p, t, [r_h2o](double x) { return x / r_h2o; });
}

double v_h2o(double xw, double p, double t) {
    const double m = fluiddata::getmmol(water);
    auto molar = [m](double v) { return v * m; };
    const Split s = split(xw, p, t);
    const double liq = condensed(q_v, p, t, s.f, s.p_sat, molar);
    // The vapour fills the mixture's volume at its partial pressure; with no vapour it counts 0.
    const double vap = s.f < 1.0 ? vapour(q_v, p, t, s, molar) * (s.p_h2o / p) : 0.0;
    return (1.0 - s.f) * vap + s.f * liq;
}

void reset_for_tests() { state() = State{}; }

}  // namespace od::h2o
