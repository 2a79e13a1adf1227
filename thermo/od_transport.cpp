// Dilute-gas viscosity and thermal conductivity: Chapman-Enskog with the
// Neufeld-Janzen-Aziz collision integral, a modified Eucken term for the
// conductivity, and Wilke-type mixing rules.
#include "thermo/od_transport.hpp"

#include <cmath>
#include <span>
#include <array>
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
// evaluated alone (concentration 1).
double component_conductivity(Context& ctx, double p, double t, const Component& c, const h2o::WaterRows& water) {
    const double eta = component_viscosity(t, c.row);
    const double m = component::mmol(c.row);
    Component one = c;
    one.conc = 1.0;
    const MixtureRows alone{std::span<const Component>(&one, 1), water};
    // Intended: cv is evaluated even when eta is 0.
    const double cv = thermodyn::core::cv_pt(ctx, p, t, alone);
    return (eta / m) * (m * cv + eucken);
}

// Wilke's weight of j in the denominator of i; x are the component values,
// t the pair's fourth root of the mass ratio and sqrt(8 (1 + Mi/Mj)).
double phi(double xi, double xj, const core::PairTerms& t) {
    const double b = 1.0 + std::sqrt(xi / xj) * t.root;
    return b * b / t.denom;
}

// The pair terms as the rule forms them; viscosity_rule picks the mass ratio.
core::PairTerms pair_terms(double mi, double mj, bool viscosity_rule) {
    // Intended: viscosity weighs by M_j/M_i, conductivity by M_i/M_j.
    const double ratio = viscosity_rule ? mj / mi : mi / mj;
    return {std::pow(ratio, 0.25), std::sqrt(wilke * (1.0 + mi / mj))};
}

// sum_i c_i x_i / D_i, D_i = sum_j c_j phi_ij; terms(i, j) gives the pair terms.
template <class Terms>
double mix_rule(const MixtureRows& mix, std::span<const double> x, Terms terms) {
    double total = 0.0;
    for (std::size_t i = 0; i < mix.comps.size(); ++i) {
        const double ci = mix.comps[i].conc;
        if (ci <= negligible) continue;  // every phi_ij is 0, so D_i is 0 and the term left out
        double d = 0.0;
        for (std::size_t j = 0; j < mix.comps.size(); ++j) {
            const double cj = mix.comps[j].conc;
            double f = 0.0;
            if (!(cj <= negligible) && !(x[j] <= 0.0)) f = phi(x[i], x[j], terms(i, j));
            d += cj * f;
        }
        if (std::fabs(d) > negligible) total += ci * x[i] / d;
    }
    return total;
}

// The mixture value by Wilke's rule from each component's own value
// value(component); components at or below the threshold take 0. factors:
// the pair terms computed beforehand, or nullptr to form them here.
template <class Value>
double mixture_value(const MixtureRows& mix, bool viscosity_rule, const std::vector<core::PairTerms>* factors,
                     Value value) {
    // Scratch on the stack: a mixture has at most 250 components.
    std::array<double, max_components> x, m;
    const std::size_t n = mix.comps.size();
    for (std::size_t i = 0; i < n; ++i) {
        const Component& c = mix.comps[i];
        m[i] = component::mmol(c.row);
        x[i] = c.conc <= negligible ? 0.0 : value(c);
    }
    const std::span<const double> xs(x.data(), n);
    if (factors) return mix_rule(mix, xs, [&](std::size_t i, std::size_t j) { return (*factors)[i * n + j]; });
    return mix_rule(mix, xs, [&](std::size_t i, std::size_t j) { return pair_terms(m[i], m[j], viscosity_rule); });
}

}  // namespace

double viscosity(double t, const CompName& name) { return component_viscosity(t, fluiddata::stored_table_row(name)); }

double thermcond(double p, double t, const CompName& name) {
    return component_conductivity(default_context(), p, t, stored_component(name, 1.0), h2o::stored_water_rows());
}

namespace core {

double eta_t(double t, const MixtureRows& mix, const WilkeFactors* w) {
    return mixture_value(mix, true, w ? &w->viscosity : nullptr,
                         [t](const Component& c) { return component_viscosity(t, c.row); });
}

double lambda_pt(Context& ctx, double p, double t, const MixtureRows& mix, const WilkeFactors* w) {
    return mixture_value(mix, false, w ? &w->conductivity : nullptr,
                         [&](const Component& c) { return component_conductivity(ctx, p, t, c, mix.water); });
}

WilkeFactors wilke_factors(const MixtureRows& mix) {
    const std::size_t n = mix.comps.size();
    WilkeFactors w;
    w.viscosity.resize(n * n);
    w.conductivity.resize(n * n);
    for (std::size_t i = 0; i < n; ++i)
        for (std::size_t j = 0; j < n; ++j) {
            const double mi = component::mmol(mix.comps[i].row), mj = component::mmol(mix.comps[j].row);
            w.viscosity[i * n + j] = pair_terms(mi, mj, true);
            w.conductivity[i * n + j] = pair_terms(mi, mj, false);
        }
    return w;
}

}  // namespace core

double eta_t(double t, const Mixture& mix) { return core::eta_t(t, StoredRows(mix)); }

double lambda_pt(double p, double t, const Mixture& mix) { return core::lambda_pt(default_context(), p, t, StoredRows(mix)); }

void reset_for_tests() {}

}  // namespace od::transport
