// Dilute-gas viscosity and thermal conductivity: Chapman-Enskog with the
// Neufeld-Janzen-Aziz collision integral, a modified Eucken term for the
// conductivity, and Wilke-type mixing rules.
#include "thermo/od_transport.hpp"

#include <array>
#include <cmath>

#include "fluiddata/od_fluiddata.hpp"
#include "thermo/od_component.hpp"
#include "thermo/od_thermodyn.hpp"

namespace od::transport {
namespace {

// Collision integral Omega(2,2)*, Neufeld, Janzen and Aziz (1972).
inline constexpr double omega_a = 1.16145;
inline constexpr double omega_b = 0.14874;
inline constexpr double omega_c = 0.52487;
inline constexpr double omega_d = 0.7732;
inline constexpr double omega_e = 2.16178;
inline constexpr double omega_f = 2.43787;
inline constexpr double chapman_enskog = 8.44012e-5;  // Pa s with M in kg/mol, sigma in Angstrom
inline constexpr double eucken = 18.707175;           // 9/4 R, J/(mol K)
inline constexpr double wilke = 8.0;
inline constexpr double negligible = 1e-6;  // concentrations and denominators at or below are left out

// The component evaluated alone by the conductivity functions.
struct State {
    CompName name;
    double conc = 1.0;
};

State& state() {
    static State s;
    return s;
}

// eta of the component of this table row (nullptr: no row, the getters' marker values).
double component_viscosity(double t, const fluiddata::TableRow* row) {
    const double eps = row ? row->eps : missing_value;
    const double sigma = row ? row->sigma : missing_value;
    const double m = component::mmol(row);
    if (eps == 0.0 || sigma == 0.0) return 0.0;
    const double ts = t / eps;
    const double omega = omega_a / std::pow(ts, omega_b) + omega_c / std::exp(omega_d * ts) + omega_e / std::exp(omega_f * ts);
    return chapman_enskog * std::sqrt(t * m) / (omega * sigma * sigma);
}

double component_conductivity(double p, double t, const CompName& name, double eta, double m) {
    State& st = state();
    st.name = name;
    st.conc = 1.0;
    const Mixture alone{std::span<const CompName>(&st.name, 1), std::span<const double>(&st.conc, 1)};
    // Intended: cv is evaluated even when eta is 0.
    const double cv = thermodyn::cv_pt(p, t, alone);
    return (eta / m) * (m * cv + eucken);
}

// Wilke's weight of j in the denominator of i; x are the component values,
// massratio the ratio inside the fourth root.
double phi(double xi, double xj, double massratio, double mi, double mj) {
    const double b = 1.0 + std::sqrt(xi / xj) * std::pow(massratio, 0.25);
    return b * b / std::sqrt(wilke * (1.0 + mi / mj));
}

// sum_i c_i x_i / D_i, D_i = sum_j c_j phi_ij; viscosity_rule picks the mass ratio.
double mix_rule(const Mixture& mix, const double* x, const double* m, bool viscosity_rule) {
    double total = 0.0;
    for (int i = 0; i < mix.n(); ++i) {
        if (mix.conc[i] <= negligible) continue;  // every phi_ij is 0, so D_i is 0 and the term left out
        double d = 0.0;
        for (int j = 0; j < mix.n(); ++j) {
            double f = 0.0;
            if (!(mix.conc[j] <= negligible) && !(x[j] <= 0.0)) {
                // Intended: viscosity weighs by M_j/M_i, conductivity by M_i/M_j.
                const double ratio = viscosity_rule ? m[j] / m[i] : m[i] / m[j];
                f = phi(x[i], x[j], ratio, m[i], m[j]);
            }
            d += mix.conc[j] * f;
        }
        if (std::fabs(d) > negligible) total += mix.conc[i] * x[i] / d;
    }
    return total;
}

}  // namespace

double viscosity(double t, const CompName& name) { return component_viscosity(t, component::row_of(name)); }

double thermcond(double p, double t, const CompName& name) {
    const fluiddata::TableRow* row = component::row_of(name);
    return component_conductivity(p, t, name, component_viscosity(t, row), component::mmol(row));
}

double eta_t(double t, const Mixture& mix) {
    if (mix.n() > max_components) return missing_value;
    std::array<double, max_components> eta;
    std::array<double, max_components> m;
    for (int i = 0; i < mix.n(); ++i) {
        const fluiddata::TableRow* row = component::row_of(mix.names[i]);
        m[i] = component::mmol(row);
        eta[i] = mix.conc[i] <= negligible ? 0.0 : component_viscosity(t, row);
    }
    return mix_rule(mix, eta.data(), m.data(), true);
}

double lambda_pt(double p, double t, const Mixture& mix) {
    if (mix.n() > max_components) return missing_value;
    std::array<double, max_components> lambda;
    std::array<double, max_components> m;
    for (int i = 0; i < mix.n(); ++i) {
        const fluiddata::TableRow* row = component::row_of(mix.names[i]);
        m[i] = component::mmol(row);
        lambda[i] = 0.0;
        if (mix.conc[i] <= negligible) continue;
        const double eta = component_viscosity(t, row);
        lambda[i] = component_conductivity(p, t, mix.names[i], eta, m[i]);
    }
    return mix_rule(mix, lambda.data(), m.data(), false);
}

void reset_for_tests() { state() = State{}; }

}  // namespace od::transport
