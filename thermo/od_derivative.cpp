// Pressure derivatives of the ideal-gas law p v = R T / M for the whole
// mixture, and the temperature derivative of its isochoric heat capacity.
#include "thermo/od_derivative.hpp"

#include "thermo/od_basefuncs.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"

namespace od::derivative {
namespace {
using basefuncs::r_gas;
}  // namespace

// Intended: no guard on M or t; M = 0 gives 0 and t = 0 divides by zero.
double dp_dt(double p, double t) { return p / t; }

double dp_dv(double p, double t, const MixtureRows& mix) { return -(p * p / (r_gas * t)) * mixinfo::mmol(mix); }

double d2p_dt2() { return 0.0; }

double d2p_dv2(double p, double t, const MixtureRows& mix) {
    const double m = mixinfo::mmol(mix);
    const double p3 = p * p * p;
    const double rt = r_gas * t;
    return m * m * (p3 + p3) / (rt * rt);
}

double d2p_dtdv(double p, double t, const MixtureRows& mix) {
    return -(p * p / (t * t * r_gas)) * mixinfo::mmol(mix);
}

double dcv_dt(double t, const MixtureRows& mix) {
    double sum = 0.0;
    // Intended: every component counts here, without the threshold of the state sums.
    for (const Component& c : mix.comps) {
        // The condensing water counts with the "H2O" row.
        const fluiddata::TableRow* row = c.water_if ? mix.water.gas : c.row;
        sum += c.conc * component::dcp_of(component::coefs(row, t), t);
    }
    const double m = mixinfo::mmol(mix);
    if (!(m > 0.0)) return 0.0;
    return sum * r_gas / m;
}

double dp_dv(double p, double t, const Mixture& mix) { return dp_dv(p, t, StoredRows(mix)); }
double d2p_dv2(double p, double t, const Mixture& mix) { return d2p_dv2(p, t, StoredRows(mix)); }
double d2p_dtdv(double p, double t, const Mixture& mix) { return d2p_dtdv(p, t, StoredRows(mix)); }
double dcv_dt(double t, const Mixture& mix) { return dcv_dt(t, StoredRows(mix)); }

}  // namespace od::derivative
