#include <cmath>
#include <limits>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

namespace {
// Relations of IAPWS-IF97, tables 3, 12 and 39, written once for the total
// gamma (ideal and residual parts already added); rt = R·T.
double relation_v(const Series& g, double pi, double rt, double p) { return pi * g.fa * rt / (p * kj_per_mpa_m3); }
double relation_h(const Series& g, double tau, double rt) { return rt * tau * g.fb; }
double relation_u(const Series& g, double pi, double tau, double rt) { return rt * (tau * g.fb - pi * g.fa); }
double relation_s(const Series& g, double tau) { return gas_constant * (tau * g.fb - g.f); }
double relation_cp(const Series& g, double tau) { return -gas_constant * tau * tau * g.fbb; }
}  // namespace

Properties from_gibbs(const Series& g, double pi, double tau, double p, double t) {
    Properties st;
    st.p = p;
    st.t = t;
    const double rt = gas_constant * t;
    st.v = relation_v(g, pi, rt, p);
    st.rho = 1.0 / st.v;
    st.h = relation_h(g, tau, rt);
    st.u = relation_u(g, pi, tau, rt);
    st.s = relation_s(g, tau);
    st.cp = relation_cp(g, tau);
    const double c = g.fa - tau * g.fab;
    st.cv = gas_constant * (-tau * tau * g.fbb + c * c / g.faa);
    st.w = std::sqrt(rt * kj_per_mpa_m3 * g.fa * g.fa / (c * c / (tau * tau * g.fbb) - g.faa));
    st.alpha = (1.0 - tau * g.fab / g.fa) / t;
    st.kappa = -pi * g.faa / (g.fa * p);
    return st;
}

double gibbs_property(GibbsProperty q, const Series& g, double pi, double tau, double p, double t) {
    const double rt = gas_constant * t;
    switch (q) {
        case GibbsProperty::v: return relation_v(g, pi, rt, p);
        case GibbsProperty::h: return relation_h(g, tau, rt);
        case GibbsProperty::u: return relation_u(g, pi, tau, rt);
        case GibbsProperty::s: return relation_s(g, tau);
        case GibbsProperty::cp: return relation_cp(g, tau);
    }
    return std::numeric_limits<double>::quiet_NaN();
}

double gibbs_property(GibbsProperty q, const Properties& st) {
    switch (q) {
        case GibbsProperty::v: return st.v;
        case GibbsProperty::h: return st.h;
        case GibbsProperty::u: return st.u;
        case GibbsProperty::s: return st.s;
        case GibbsProperty::cp: return st.cp;
    }
    return std::numeric_limits<double>::quiet_NaN();
}

// The isobar relations: h, s and cp as in from_gibbs, and
// dcp/dT = R·(tau/T)·(2·tau·gamma_tt + tau²·gamma_ttt) since dtau/dT = -tau/T.
Isobar from_gibbs_isobar(const SeriesB& g, double tau, double t) {
    Isobar st;
    st.t = t;
    st.h = gas_constant * t * tau * g.fb;
    st.s = gas_constant * (tau * g.fb - g.f);
    st.cp = -gas_constant * tau * tau * g.fbb;
    st.dcp_dt = gas_constant * tau / t * (2.0 * tau * g.fbb + tau * tau * g.fbbb);
    return st;
}

}  // namespace if97
