// Condensing water "H2O(IF)": IAPWS-IF97 values through the IF97 adapter,
// split into condensed and vapour parts and moved onto the gas-table
// reference so that the water term adds to the ideal-gas terms.
#include "thermo/od_h2o.hpp"

#include <algorithm>
#include <cmath>
#include <string>

#include "fluiddata/od_fluiddata.hpp"
#include "if97/if97_state.hpp"
#include "if97_adapter/if97_qv.hpp"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_context.hpp"
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

// One of the four quantities a property function evaluates.
struct Quantity {
    std::string_view prop;  // IF97 property name
    // gas-table value per mole of the row (phase 'G' or 'L')
    double (*db)(const fluiddata::TableRow* row, char phase, double p, double t);
    bool scaled;  // carried beyond an anchor temperature by t/t_anchor, not by gas-table differences
};
double db_h(const fluiddata::TableRow* r, char, double, double t) { return basefuncs::h_0(r, t); }
double db_s(const fluiddata::TableRow* r, char phase, double p, double t) { return basefuncs::s_0(r, phase, p, t); }
double db_cp(const fluiddata::TableRow* r, char, double, double t) { return basefuncs::cp_0(r, t); }
double db_v(const fluiddata::TableRow*, char, double p, double t) { return basefuncs::v_0(p, t); }
inline constexpr Quantity q_h{"H.", db_h, false};
inline constexpr Quantity q_s{"S.", db_s, false};
inline constexpr Quantity q_cp{"CP.", db_cp, false};
inline constexpr Quantity q_v{"V.", db_v, true};
inline constexpr std::string_view prop_p = "P.";

// A gas-table row with the phase its name gives ("H2O" a gas, "H2O(L)" a liquid).
struct Row {
    const fluiddata::TableRow* row;
    char phase;
};
Row gas_row(const WaterRows& w) { return {w.gas, 'G'}; }
Row liquid_row(const WaterRows& w) { return {w.liquid, 'L'}; }

// The evaluation context of one call: the caller's state and water rows.
struct Env {
    State& st;
    const WaterRows& rows;
};

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

Split split(State& st, double xw, double p, double t) {
    Split s{};
    s.p_sat = core::h2o(st, 'T', t, 'X', quality_any, prop_p);
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
double carried(const Quantity& q, double anchor, Row r, double p, double t, double t_anchor) {
    if (q.scaled) return anchor * t / t_anchor;
    return anchor + q.db(r.row, r.phase, p, t) - q.db(r.row, r.phase, p, t_anchor);
}

// Condensed-phase value (h/R, s/R, cp/R or molar volume) with conv turning an IF97 value into it.
template <class Conv>
double condensed(const Env& e, const Quantity& q, double p, double t, double f, double p_sat, Conv conv) {
    if (t >= t_triple) {
        if (f > 0.0 && f < 1.0)
            return p > p_sat ? conv(core::h2o(e.st, 'P', p, 'T', t, q.prop)) : conv(core::h2o(e.st, 'P', p, 'X', 0.0, q.prop));
        if (f >= 1.0) return conv(core::h2o(e.st, 'P', p, 'T', t, q.prop));
        return 0.0;
    }
    if (f > 0.0)
        return carried(q, conv(core::h2o(e.st, 'P', p, 'T', t_triple, q.prop)), liquid_row(e.rows), p, t, t_triple);
    return 0.0;
}

// Vapour value at the partial pressure p_h2o (the gas-table terms at the total pressure p).
template <class Conv>
double vapour(const Env& e, const Quantity& q, double p, double t, const Split& s, Conv conv) {
    const Row water = gas_row(e.rows);
    // Intended: the gas-table vapour terms take the total pressure, not the partial one.
    if (t < t_triple) return q.db(water.row, water.phase, p, t);
    if (std::fabs((s.p_sat - s.p_h2o) / s.p_sat) < saturation_tolerance)
        return conv(core::h2o(e.st, 'P', s.p_h2o, 'X', 1.0, q.prop));
    if (t <= t_if97_max) return conv(core::h2o(e.st, 'P', s.p_h2o, 'T', t, q.prop));
    return carried(q, conv(core::h2o(e.st, 'P', s.p_h2o, 'T', t_if97_max, q.prop)), water, p, t, t_if97_max);
}

// h/R, s/R or cp/R of the water, condensed and vapour parts weighted by the
// condensed fraction; sv holds the function's saved values.
template <class Conv>
double split_value(const Env& e, const Quantity& q, Saved& sv, double xw, double p, double t, Conv conv) {
    const Split s = split(e.st, xw, p, t);
    sv.p_sat = s.p_sat;
    sv.p_h2o = s.p_h2o;
    const double liq = condensed(e, q, p, t, s.f, s.p_sat, conv);
    // Intended: with no vapour the saved vapour value of an earlier call is weighted by zero.
    if (s.f < 1.0) sv.vap = vapour(e, q, p, t, s, conv);
    const double w = 1.0 - s.f;
    // A term weighted by zero contributes zero, also when an earlier call saved
    // an infinite or NaN vapour value (0 * inf would be NaN).
    const double vap = (w == 0.0 && !std::isfinite(sv.vap)) ? 0.0 : sv.vap;
    return w * vap + s.f * liq;
}

// h/R or s/R of the water, on the gas-table reference.
double energy_like(const Env& e, const Quantity& q, Saved& sv, double xw, double p, double t) {
    // Intended: the reference correction is computed once, on the first call, and never again.
    if (sv.first) {
        const Row water = gas_row(e.rows);
        sv.r_h2o = r_gas / component::mmol(water.row);
        sv.corr = q.db(water.row, water.phase, p_reference, t_reference) -
                  core::h2o(e.st, 'P', p_reference, 'T', t_reference, q.prop) / sv.r_h2o;
        sv.first = false;
    }
    return split_value(e, q, sv, xw, p, t, [&sv](double x) { return x / sv.r_h2o + sv.corr; });
}

// The gateway's IF97 values from the library's functions (MPa, K, kJ): the
// saturation pressure at (T, x), the property at (p, T) or (p, x); the
// missing-value marker where the adapter would leave it.
double direct_value(char code1, double value1, char code2, double value2, std::string_view property) {
    constexpr double pa_per_mpa = 1e6;
    if (code1 == 'T' && code2 == 'X') {
        const double p = if97::psat(value1);
        return std::isfinite(p) ? p * pa_per_mpa / bar_to_pa : missing_value;  // bar, as the adapter gives it
    }
    if (code1 != 'P' || (code2 != 'T' && code2 != 'X')) return missing_value;
    const double p = std::max(value1, p_triple) / pa_per_mpa;
    if (code2 == 'T') {
        if97::GibbsProperty q = if97::GibbsProperty::h;
        if (property == q_s.prop) q = if97::GibbsProperty::s;
        else if (property == q_cp.prop) q = if97::GibbsProperty::cp;
        else if (property == q_v.prop) q = if97::GibbsProperty::v;
        else if (property != q_h.prop) return missing_value;
        const if97::ValueResult r = if97::property_pt(q, p, value2);
        return r.error == if97::Error::none ? r.value : missing_value;
    }
    // A saturated phase below the corner of regions 1 and 3: its one
    // property from region 1 or 2 at (p, tsat(p)), the bits state_px gives,
    // without evaluating the other phase and every property of both.
    if ((value2 == 0.0 || value2 == 1.0) && p >= if97::psat_min() && p <= if97::critical_pressure) {
        const double t = if97::tsat(p);
        if (t <= if97::t_region13) {
            if97::GibbsProperty q = if97::GibbsProperty::h;
            if (property == q_s.prop) q = if97::GibbsProperty::s;
            else if (property == q_cp.prop) q = if97::GibbsProperty::cp;
            else if (property == q_v.prop) q = if97::GibbsProperty::v;
            else if (property != q_h.prop) return missing_value;
            return value2 == 0.0 ? if97::region1_single(q, p, t) : if97::region2_single(q, p, t);
        }
    }
    const if97::StateResult r = if97::state_px(p, value2);
    if (r.error != if97::Error::none) return missing_value;
    const if97::Properties& pr = r.state.props;
    if (property == q_h.prop) return pr.h;
    if (property == q_s.prop) return pr.s;
    if (property == q_v.prop) return pr.v;
    // Intended, as the adapter: no heat capacity of a wet mixture.
    if (property == q_cp.prop && r.state.region != 4) return pr.cp;
    return missing_value;
}

}  // namespace

namespace core {

double h2o(State& st, char code1, double value1, char code2, double value2, std::string_view property) {
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
        else if (st.direct)
            result = direct_value(code1, t, code2, value2, property);
        else
            result = if97_qv::if97_prop(st.adapter, "Tq", t - celsius_offset, value2, property, st.errmsg);
    } else if (st.direct) {
        result = direct_value(code1, value1, code2, value2, property);
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
        result = if97_qv::if97_prop(st.adapter, std::string_view(st.inputspec, 2), v1, v2, property, st.errmsg);
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

double h_h2o(State& st, const WaterRows& rows, double xw, double p, double t) {
    return energy_like(Env{st, rows}, q_h, st.h, xw, p, t);
}

double s_h2o(State& st, const WaterRows& rows, double xw, double p, double t) {
    return energy_like(Env{st, rows}, q_s, st.s, xw, p, t);
}

double cp_h2o(State& st, const WaterRows& rows, double xw, double p, double t) {
    // No reference correction; the specific gas constant is formed on every call.
    const double r_h2o = r_gas / component::mmol(rows.gas);
    return split_value(Env{st, rows}, q_cp, st.cp, xw, p, t, [r_h2o](double x) { return x / r_h2o; });
}

double v_h2o(State& st, const WaterRows& rows, double xw, double p, double t) {
    const double m = component::mmol(rows.gas);
    auto molar = [m](double v) { return v * m; };
    const Env e{st, rows};
    const Split s = split(st, xw, p, t);
    const double liq = condensed(e, q_v, p, t, s.f, s.p_sat, molar);
    // The vapour fills the mixture's volume at its partial pressure; with no vapour it counts 0.
    const double vap = s.f < 1.0 ? vapour(e, q_v, p, t, s, molar) * (s.p_h2o / p) : 0.0;
    return (1.0 - s.f) * vap + s.f * liq;
}

}  // namespace core

State& default_state() { return default_context().water; }

WaterRows stored_water_rows() {
    static const CompName gas = CompName::from("H2O");
    static const CompName liquid = CompName::from("H2O(L)");
    return {fluiddata::stored_table_row(gas), fluiddata::stored_table_row(liquid)};
}

double h2o(char code1, double value1, char code2, double value2, std::string_view property) {
    return core::h2o(default_state(), code1, value1, code2, value2, property);
}
double h_h2o(double xw, double p, double t) { return core::h_h2o(default_state(), stored_water_rows(), xw, p, t); }
double s_h2o(double xw, double p, double t) { return core::s_h2o(default_state(), stored_water_rows(), xw, p, t); }
double cp_h2o(double xw, double p, double t) { return core::cp_h2o(default_state(), stored_water_rows(), xw, p, t); }
double v_h2o(double xw, double p, double t) { return core::v_h2o(default_state(), stored_water_rows(), xw, p, t); }

void reset_for_tests() { default_state() = State{}; }

}  // namespace od::h2o
