#include <cmath>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

// Relations of IAPWS-IF97, tables 3, 12 and 39, written once for the total
// gamma (ideal and residual parts already added).
Properties from_gibbs(const Series& g, double pi, double tau, double p, double t) {
    Properties st;
    st.p = p;
    st.t = t;
    const double rt = gas_constant * t;
    st.v = pi * g.fa * rt / (p * kj_per_mpa_m3);
    st.rho = 1.0 / st.v;
    st.h = rt * tau * g.fb;
    st.u = rt * (tau * g.fb - pi * g.fa);
    st.s = gas_constant * (tau * g.fb - g.f);
    st.cp = -gas_constant * tau * tau * g.fbb;
    const double c = g.fa - tau * g.fab;
    st.cv = gas_constant * (-tau * tau * g.fbb + c * c / g.faa);
    st.w = std::sqrt(rt * kj_per_mpa_m3 * g.fa * g.fa / (c * c / (tau * tau * g.fbb) - g.faa));
    st.alpha = (1.0 - tau * g.fab / g.fa) / t;
    st.kappa = -pi * g.faa / (g.fa * p);
    return st;
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
