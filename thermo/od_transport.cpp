// Dilute-gas viscosity and thermal conductivity: Chapman-Enskog with the
// Neufeld-Janzen-Aziz collision integral, a modified Eucken term for the
// conductivity, and Wilke-type mixing rules.
#include "thermo/od_transport.hpp"

#include <cmath>
#include <span>
#include <vector>

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
    return chapman_enskog * std::sqrt(t * m) / (omega * (sigma * sigma));  // sigma squared first, then times omega
}

// lambda of one component: the Eucken term on eta, with cv of the component
// evaluated alone through the saved name and concentration.
double component_conductivity(double p, double t, const CompName& name, const fluiddata::TableRow* row) {
    const double eta = component_viscosity(t, row);
    const double m = component::mmol(row);
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
double mix_rule(const Mixture& mix, std::span<const double> x, std::span<const double> m, bool viscosity_rule) {
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

// The mixture value by Wilke's rule from each component's own value
// value(name, row); components at or below the threshold take 0.
template <class Value>
double mixture_value(const Mixture& mix, bool viscosity_rule, Value value) {
    // Scratch sized by the mixture, whatever its length.
    std::vector<double> x(static_cast<std::size_t>(mix.n())), m(x.size());
    for (int i = 0; i < mix.n(); ++i) {
        const fluiddata::TableRow* row = fluiddata::stored_table_row(mix.names[i]);
        m[i] = component::mmol(row);
        x[i] = mix.conc[i] <= negligible ? 0.0 : value(mix.names[i], row);
    }
    return mix_rule(mix, x, m, viscosity_rule);
}

}  // namespace

double viscosity(double t, const CompName& name) { return component_viscosity(t, fluiddata::stored_table_row(name)); }

double thermcond(double p, double t, const CompName& name) {
    return component_conductivity(p, t, name, fluiddata::stored_table_row(name));
}

double eta_t(double t, const Mixture& mix) {
    return mixture_value(mix, true, [t](const CompName&, const fluiddata::TableRow* row) {
        return component_viscosity(t, row);
    });
}

double lambda_pt(double p, double t, const Mixture& mix) {
    return mixture_value(mix, false, [p, t](const CompName& name, const fluiddata::TableRow* row) {
        return component_conductivity(p, t, name, row);
    });
}

void reset_for_tests() { state() = State{}; }

}  // namespace od::transport
