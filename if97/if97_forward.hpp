// Forward equations of IAPWS-IF97. Formulation units: p in MPa, T in K,
// rho in kg/m3, v in m3/kg, h and u in kJ/kg, s, cp, cv in kJ/(kg K), w in
// m/s. None checks its range of validity; the callers in if97_state do.
#pragma once
#include "if97/if97_constants.hpp"
#include "if97/if97_series.hpp"

namespace if97 {

// Properties of one phase at one state. alpha is the isobaric expansion
// coefficient (1/K), kappa the isothermal compressibility (1/MPa); with cp
// and cv they give every first derivative the iterations need.
struct Properties {
    double p = 0.0;
    double t = 0.0;
    double rho = 0.0;
    double v = 0.0;
    double h = 0.0;
    double u = 0.0;
    double s = 0.0;
    double cp = 0.0;
    double cv = 0.0;
    double w = 0.0;
    double alpha = 0.0;
    double kappa = 0.0;
};

// Properties from a dimensionless Gibbs energy gamma(pi, tau) with pi = p/p*
// and tau = T*/T: the series holds gamma and its derivatives (a = pi,
// b = tau).
Properties from_gibbs(const Series& gamma, double pi, double tau, double p, double t);

// Single properties of a Gibbs region (1, 2 or 5) at (p, T).
enum class GibbsProperty { v, h, u, s, cp };

// The sums of gamma that a single property needs.
constexpr unsigned gibbs_parts(GibbsProperty q) {
    switch (q) {
        case GibbsProperty::v: return part_fa;
        case GibbsProperty::h: return part_fb;
        case GibbsProperty::u: return part_fa | part_fb;
        case GibbsProperty::s: return part_f | part_fb;
        case GibbsProperty::cp: return part_fbb;
    }
    return all_parts;
}

// One property from gamma(pi, tau) by the relation from_gibbs uses, so that
// it has the same bits as from_gibbs gives: v in m3/kg, h and u in kJ/kg,
// s and cp in kJ/(kg K).
double gibbs_property(GibbsProperty q, const Series& gamma, double pi, double tau, double p, double t);

// The same property read from a state's properties.
double gibbs_property(GibbsProperty q, const Properties& st);

// gibbs_property with gamma = gamma_of.template operator()<Parts>(), Parts
// being gibbs_parts(q): one instance of the sum per property, each
// evaluating only the sums its property needs.
template <class GammaOf>
double gibbs_single(GibbsProperty q, double pi, double tau, double p, double t, GammaOf gamma_of) {
    using enum GibbsProperty;
    switch (q) {
        case v: return gibbs_property(q, gamma_of.template operator()<gibbs_parts(v)>(), pi, tau, p, t);
        case h: return gibbs_property(q, gamma_of.template operator()<gibbs_parts(h)>(), pi, tau, p, t);
        case u: return gibbs_property(q, gamma_of.template operator()<gibbs_parts(u)>(), pi, tau, p, t);
        case s: return gibbs_property(q, gamma_of.template operator()<gibbs_parts(s)>(), pi, tau, p, t);
        case cp: return gibbs_property(q, gamma_of.template operator()<gibbs_parts(cp)>(), pi, tau, p, t);
    }
    return gibbs_property(q, gamma_of.template operator()<all_parts>(), pi, tau, p, t);
}

// Region 1 (compressed liquid), from (p, T).
Properties region1(double p, double t);
// Region 2 (vapour), from (p, T).
Properties region2(double p, double t);
// Metastable-vapour equation of region 2 (supersaturated vapour, p <= 10 MPa),
// from (p, T).
Properties region2_metastable(double p, double t);
// Region 3, from (rho, T).
Properties region3(double rho, double t);
// Region 5 (high-temperature steam), from (p, T).
Properties region5(double p, double t);

// One property of region 1, 2 or 5 from (p, T): the value that region1,
// region2 or region5 gives, bit for bit, at a fraction of the cost.
double region1_single(GibbsProperty q, double p, double t);
double region2_single(GibbsProperty q, double p, double t);
double region5_single(GibbsProperty q, double p, double t);

// Along an isobar, what a Newton or Halley step in T needs: h (kJ/kg), s,
// cp (kJ/(kg K)) and dcp/dT (kJ/(kg K2)), from a Gibbs energy gamma(tau) at
// fixed pi with its tau derivatives up to the third.
struct Isobar {
    double t = 0.0;
    double h = 0.0;
    double s = 0.0;
    double cp = 0.0;
    double dcp_dt = 0.0;
};
Isobar from_gibbs_isobar(const SeriesB& gamma, double tau, double t);

// The same along an isobar of region 1 and of region 2 (p, T).
Isobar region1_isobar(double p, double t);
Isobar region2_isobar(double p, double t);

// Saturation pressure from temperature (273.15 K to 647.096 K), MPa.
double psat(double t);
// Saturation temperature from pressure (611.213 Pa to 22.064 MPa), K.
double tsat(double p);

// Boundary between regions 2 and 3: pressure from temperature, MPa.
double p_b23(double t);
// Boundary between regions 2 and 3: temperature from pressure, K.
double t_b23(double p);

// First derivatives from one phase's properties. Along an isotherm with p
// as variable: dh/dp, ds/dp (kJ/(kg MPa), kJ/(kg K MPa)).
inline double dh_dp_t(const Properties& st) { return st.v * (1.0 - st.t * st.alpha) * kj_per_mpa_m3; }
inline double ds_dp_t(const Properties& st) { return -st.v * st.alpha * kj_per_mpa_m3; }
// With density and temperature as variables (the variables of region 3):
// dp/drho at constant T (MPa m3/kg) and dp/dT at constant rho (MPa/K).
inline double dp_drho_t(const Properties& st) { return 1.0 / (st.rho * st.kappa); }
inline double dp_dt_rho(const Properties& st) { return st.alpha / st.kappa; }
// dh/drho at constant T, dh/dT at constant rho, from h = u + p/rho and
// du/dv = T dp/dT - p (kJ m3/kg2, kJ/(kg K)).
inline double dh_drho_t(const Properties& st) {
    return (st.rho * dp_drho_t(st) - st.t * dp_dt_rho(st)) / (st.rho * st.rho) * kj_per_mpa_m3;
}
inline double dh_dt_rho(const Properties& st) { return st.cv + dp_dt_rho(st) / st.rho * kj_per_mpa_m3; }
// ds/drho at constant T (a Maxwell relation) and ds/dT at constant rho.
inline double ds_drho_t(const Properties& st) {
    return -dp_dt_rho(st) / (st.rho * st.rho) * kj_per_mpa_m3;
}
inline double ds_dt_rho(const Properties& st) { return st.cv / st.t; }
// du/drho at constant T and du/dT at constant rho.
inline double du_drho_t(const Properties& st) {
    return (st.p - st.t * dp_dt_rho(st)) / (st.rho * st.rho) * kj_per_mpa_m3;
}
inline double du_dt_rho(const Properties& st) { return st.cv; }

}  // namespace if97
