// The IF97 library in SI units: converts the inputs to the formulation's
// units (MPa, K, kJ), calls the core and converts its state back; the
// core's errors become statuses.
#include "ondrel/if97.hpp"

#include <cmath>

#include "if97/if97_constants.hpp"
#include "if97/if97_solve.hpp"
#include "if97/if97_state.hpp"
#include "if97/if97_transport.hpp"

namespace ondrel::if97 {

namespace {
namespace core = ::if97;

// Unit conversions between SI and the formulation's units.
constexpr double pa_per_mpa = 1e6;
constexpr double j_per_kj = 1e3;

Status status_of(core::Error e) {
    switch (e) {
        case core::Error::none: return Status::ok;
        case core::Error::not_finite: return Status::invalid_input;
        case core::Error::v_not_positive: return Status::non_positive_input;
        case core::Error::no_convergence: return Status::not_converged;
        case core::Error::t_below_min:
        case core::Error::t_above_max:
        case core::Error::p_below_min:
        case core::Error::p_above_max:
        case core::Error::quality_range:
        case core::Error::p_not_saturation:
        case core::Error::t_not_saturation: return Status::outside_data_range;
    }
    return Status::not_converged;
}

// The status of a call with a pressure among its inputs: a pressure at or
// below zero is named as such rather than as a range error.
Status status_of(core::Error e, double p) {
    if (e != core::Error::none && e != core::Error::not_finite && !(p > 0.0)) {
        return Status::non_positive_input;
    }
    return status_of(e);
}

State to_si(const core::State& st) {
    const core::Properties& pr = st.props;
    State out;
    out.p = pr.p * pa_per_mpa;
    out.T = pr.t;
    out.v = pr.v;
    out.rho = pr.rho;
    out.h = pr.h * j_per_kj;
    out.s = pr.s * j_per_kj;
    out.u = pr.u * j_per_kj;
    out.cp = pr.cp * j_per_kj;
    out.cv = pr.cv * j_per_kj;
    out.w = pr.w;
    out.alpha = pr.alpha;
    out.kappa = pr.kappa / pa_per_mpa;
    out.x = st.x;
    out.region = st.region;
    return out;
}

Result<State> result(const core::StateResult& r) {
    if (r.error != core::Error::none) return {State{}, status_of(r.error)};
    return {to_si(r.state), Status::ok};
}

// A state from a pair with the pressure p (Pa) among its inputs: the state
// carries the caller's p itself, not its round trip through MPa.
Result<State> result_at_p(const core::StateResult& r, double p) {
    if (r.error != core::Error::none) return {State{}, status_of(r.error, p)};
    Result<State> out{to_si(r.state), Status::ok};
    out.value.p = p;
    return out;
}

Result<double> single_pt(core::GibbsProperty q, double p, double T, double unit) {
    const core::ValueResult r = core::property_pt(q, p / pa_per_mpa, T);
    if (r.error != core::Error::none) return {0.0, status_of(r.error, p)};
    return {r.value * unit, Status::ok};
}

// The checks of a state handed to a transport correlation; ok when it may
// be evaluated.
Status transport_status(const State& st, bool needs_derivatives) {
    if (st.region == 4) return Status::not_available;
    if (!std::isfinite(st.rho) || !std::isfinite(st.T)) return Status::invalid_input;
    if (needs_derivatives && !(std::isfinite(st.cp) && std::isfinite(st.cv) && std::isfinite(st.kappa))) {
        return Status::invalid_input;
    }
    if (!(st.rho > 0.0)) return Status::non_positive_input;
    if (st.T < core::t_min - core::t_slack || st.T > core::t_max_region5 + core::t_slack) {
        return Status::outside_data_range;
    }
    return Status::ok;
}
}  // namespace

Result<State> from_pT(double p, double T) { return result_at_p(core::state_pt(p / pa_per_mpa, T), p); }
Result<State> from_ph(double p, double h) { return result_at_p(core::state_ph(p / pa_per_mpa, h / j_per_kj), p); }
Result<State> from_ps(double p, double s) { return result_at_p(core::state_ps(p / pa_per_mpa, s / j_per_kj), p); }
Result<State> from_pu(double p, double u) { return result_at_p(core::state_pu(p / pa_per_mpa, u / j_per_kj), p); }
Result<State> from_pv(double p, double v) { return result_at_p(core::state_pv(p / pa_per_mpa, v), p); }
Result<State> from_px(double p, double x) { return result_at_p(core::state_px(p / pa_per_mpa, x), p); }

Result<State> from_Th(double T, double h) { return result(core::state_th(T, h / j_per_kj)); }
Result<State> from_Ts(double T, double s) { return result(core::state_ts(T, s / j_per_kj)); }
Result<State> from_Tv(double T, double v) { return result(core::state_tv(T, v)); }
Result<State> from_Tx(double T, double x) { return result(core::state_tx(T, x)); }

Result<State> from_vh(double v, double h) { return result(core::state_vh(v, h / j_per_kj)); }
Result<State> from_vs(double v, double s) { return result(core::state_vs(v, s / j_per_kj)); }
Result<State> from_vu(double v, double u) { return result(core::state_vu(v, u / j_per_kj)); }

Result<State> from_hs(double h, double s) { return result(core::state_hs(h / j_per_kj, s / j_per_kj)); }

Result<double> v_pT(double p, double T) { return single_pt(core::GibbsProperty::v, p, T, 1.0); }
Result<double> h_pT(double p, double T) { return single_pt(core::GibbsProperty::h, p, T, j_per_kj); }
Result<double> u_pT(double p, double T) { return single_pt(core::GibbsProperty::u, p, T, j_per_kj); }
Result<double> s_pT(double p, double T) { return single_pt(core::GibbsProperty::s, p, T, j_per_kj); }
Result<double> cp_pT(double p, double T) { return single_pt(core::GibbsProperty::cp, p, T, j_per_kj); }

Result<double> viscosity(const State& st) {
    const Status status = transport_status(st, false);
    if (status != Status::ok) return {0.0, status};
    return {core::viscosity(st.rho, st.T), Status::ok};
}

Result<double> conductivity(const State& st) {
    const Status status = transport_status(st, true);
    if (status != Status::ok) return {0.0, status};
    core::Properties pr;
    pr.rho = st.rho;
    pr.t = st.T;
    pr.cp = st.cp / j_per_kj;
    pr.cv = st.cv / j_per_kj;
    pr.kappa = st.kappa * pa_per_mpa;
    return {core::thermal_conductivity(pr), Status::ok};
}

Result<double> surface_tension(double T) {
    if (!std::isfinite(T)) return {0.0, Status::invalid_input};
    const double sigma = core::surface_tension(T);
    if (std::isnan(sigma)) return {0.0, Status::outside_data_range};
    return {sigma, Status::ok};
}

}  // namespace ondrel::if97
