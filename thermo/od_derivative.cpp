// Pressure derivatives of the ideal-gas law p v = R T / M for the whole
// mixture, and the temperature derivative of its isochoric heat capacity.
#include "thermo/od_derivative.hpp"

#include "thermo/od_basefuncs.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"

namespace od::derivative {
namespace {
using basefuncs::r_gas;
const CompName water = CompName::from("H2O");
}  // namespace

// Intended: no guard on M or t; M = 0 gives 0 and t = 0 divides by zero.
double dp_dt(double p, double t) { return p / t; }

double dp_dv(double p, double t, const Mixture& mix) { return -(p * p / (r_gas * t)) * mixinfo::mmol(mix); }

double d2p_dt2() { return 0.0; }

double d2p_dv2(double p, double t, const Mixture& mix) {
    const double m = mixinfo::mmol(mix);
    const double p3 = p * p * p;
    const double rt = r_gas * t;
    return m * m * (p3 + p3) / (rt * rt);
}

double d2p_dtdv(double p, double t, const Mixture& mix) {
    return -(p * p / (t * t * r_gas)) * mixinfo::mmol(mix);
}

double dcv_dt(double t, const Mixture& mix) {
    double sum = 0.0;
    // Intended: every component counts here, without the threshold of the state sums.
    for (int i = 0; i < mix.n(); ++i) {
        const CompName& name = mix.names[i] == h2o::water_if ? water : mix.names[i];
        sum += mix.conc[i] * basefuncs::dcv_dt_0(name, t);
    }
    const double m = mixinfo::mmol(mix);
    if (!(m > 0.0)) return 0.0;
    return sum * r_gas / m;
}

}  // namespace od::derivative
