// Viscosity and thermal conductivity of components and mixtures.
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace tr = od::transport;

// Chapman-Enskog viscosity, Pa s, with the collision integral of Neufeld, Janzen and Aziz (1972).
double eta_of(const Row& r, double t) {
    if (r.t.eps == 0 || r.t.sigma == 0) return 0.0;  // no Lennard-Jones data
    const double ts = t / r.t.eps;
    const double omega = 1.16145 * std::pow(ts, -0.14874) + 0.52487 * std::exp(-0.7732 * ts) + 2.16178 * std::exp(-2.43787 * ts);
    return 2.669e-6 * std::sqrt(1e3 * r.t.mmol * t) / (r.t.sigma * r.t.sigma * omega);  // M in g/mol
}

// Modified Eucken conductivity, W/(m K): eta (cv + 9R/(4M)).
double lambda_of(const Row& r, double t) { return eta_of(r, t) * ((r.cp(t) - 1) * r_gas + 2.25 * r_gas) / r.t.mmol; }

// Wilke's rule over the components above 1e-6 with component values x; the
// viscosity weighs by (Mj/Mi)^(1/4), the conductivity by (Mi/Mj)^(1/4).
double wilke(const TestMix& m, const std::vector<double>& x, bool viscosity) {
    double total = 0;
    for (std::size_t i = 0; i < x.size(); ++i) {
        double d = 0;
        for (std::size_t j = 0; j < x.size(); ++j) {
            if (m.conc[j] <= 1e-6 || x[j] <= 0) continue;
            const double mi = row(m.text[i]).t.mmol, mj = row(m.text[j]).t.mmol;
            const double b = 1 + std::sqrt(x[i] / x[j]) * std::pow(viscosity ? mj / mi : mi / mj, 0.25);
            d += m.conc[j] * b * b / std::sqrt(8 * (1 + mi / mj));
        }
        if (m.conc[i] > 1e-6 && d > 1e-6) total += m.conc[i] * x[i] / d;
    }
    return total;
}

class TransportMixtures : public TableTest {};

TEST_P(TransportMixtures, FollowKineticTheoryAndWilkesRules) {
    const CsvRow& c = GetParam();
    const TestMix m(c["composition"]);
    const double p = c.num("p_Pa"), t = c.num("T_K");
    std::vector<double> eta, lambda;  // the components' own values, checked first
    const od::Mixture mix = m.mix();
    for (const std::string& n : m.text) {
        eta.push_back(tr::viscosity(t, od::CompName::from(n)));
        lambda.push_back(tr::thermcond(p, t, od::CompName::from(n)));
        EXPECT_NEAR(eta.back(), eta_of(row(n), t), 1e-6 * eta.back()) << n;
        EXPECT_NEAR(lambda.back(), lambda_of(row(n), t), 1e-6 * lambda.back()) << n;
    }
    const double eta_mix = wilke(m, eta, true), lambda_mix = wilke(m, lambda, false);
    EXPECT_NEAR(tr::eta_t(t, mix), eta_mix, 1e-12 * eta_mix);
    EXPECT_NEAR(tr::lambda_pt(p, t, mix), lambda_mix, 1e-12 * lambda_mix);
}

INSTANTIATE_TEST_SUITE_P(Table, TransportMixtures, ::testing::ValuesIn(table("transport_mixtures.csv")), row_name);

class AirReference : public TableTest {};

TEST_P(AirReference, DryAirIsCloseToHandbookValues) {
    const TestMix air("N2=0.7809 O2=0.2095 AR=0.0093 CO2=0.0003");
    const od::Mixture m = air.mix();
    const double p = 101325.0, t = 300.0, want = GetParam().num("value");
    const std::string q = GetParam()["quantity"];
    const double got = q == "cp"          ? od::thermodyn::cv_pt(p, t, m) + r_gas / od::mixinfo::mmol(m)
                       : q == "viscosity" ? tr::eta_t(t, m)
                                          : tr::lambda_pt(p, t, m);
    EXPECT_NEAR(got, want, GetParam().num("rel_tol") * want) << q;
}

INSTANTIATE_TEST_SUITE_P(Table, AirReference, ::testing::ValuesIn(table("air_reference.csv")), row_name);

using Transport = LoadedTable;

TEST_F(Transport, MixturesLongerThanTheGasTableAreStillMixed) {
    std::string n2_times_300;
    for (int i = 0; i < 300; ++i) n2_times_300 += "N2=0.0033333333333333335 ";
    const TestMix m(n2_times_300);
    const double eta = tr::viscosity(500.0, m.names[0]), lambda = tr::thermcond(1e5, 500.0, m.names[0]);
    EXPECT_NEAR(tr::eta_t(500.0, m.mix()), eta, 1e-13 * eta);  // every phi is 1 and the fractions sum to 1
    EXPECT_NEAR(tr::lambda_pt(1e5, 500.0, m.mix()), lambda, 1e-13 * lambda);
}

TEST_F(TestGas, MasslessComponentDropsOutOfTheTransportMixture) {
    const TestMix m("N2=0.5 ZM=0.5");
    const od::Mixture mix = m.mix();
    EXPECT_EQ(tr::viscosity(300.0, mix.names[1]), 0.0);
    EXPECT_TRUE(std::isnan(tr::thermcond(1e5, 300.0, mix.names[1])));  // documented: 0/0 in the Eucken term
    EXPECT_DOUBLE_EQ(tr::eta_t(300.0, mix), tr::viscosity(300.0, mix.names[0]));
    EXPECT_EQ(tr::lambda_pt(1e5, 300.0, mix), 0.0);  // every denominator NaN: every term left out
}

}  // namespace
