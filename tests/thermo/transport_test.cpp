// Viscosity and thermal conductivity of components and mixtures.
#include <cmath>
#include <limits>

#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace tr = od::transport;
using od::CompName;

// Chapman-Enskog viscosity with the Neufeld-Janzen-Aziz collision integral, from the gas data.
double eta_of(const Row& r, double t) {
    const double ts = t / r.eps;
    const double omega = 1.16145 * std::pow(ts, -0.14874) + 0.52487 * std::exp(-0.7732 * ts) +
                         2.16178 * std::exp(-2.43787 * ts);
    return 8.44012e-5 * std::sqrt(r.mmol * t) / (r.sigma * r.sigma * omega);
}

// Modified Eucken conductivity: eta (cv + 9R/(4M)).
double lambda_of(const Row& r, double t) {
    const double cv = (r.cp(t) - 1.0) * r_gas / r.mmol;
    return eta_of(r, t) * (cv + 9.0 * r_gas / (4.0 * r.mmol));
}

// Wilke sum; mass_exponent_sign +1 weighs by (Mj/Mi)^(1/4), -1 by (Mi/Mj)^(1/4).
double wilke(const std::vector<double>& c, const std::vector<double>& x, const std::vector<double>& m, int sign) {
    double total = 0;
    for (std::size_t i = 0; i < c.size(); ++i) {
        double d = 0;
        for (std::size_t j = 0; j < c.size(); ++j) {
            const double ratio = sign > 0 ? m[j] / m[i] : m[i] / m[j];
            const double b = 1 + std::sqrt(x[i] / x[j]) * std::pow(ratio, 0.25);
            d += c[j] * b * b / std::sqrt(8 * (1 + m[i] / m[j]));
        }
        total += c[i] * x[i] / d;
    }
    return total;
}

using Transport = LoadedTable;

TEST_F(Transport, ComponentViscosityAndConductivityFollowKineticTheory) {
    TestMix{{"N2", 1}, {"CO2", 1}, {"AR", 1}, {"CH4", 1}}.store();
    for (const char* n : {"N2", "CO2", "AR", "CH4"})
        for (double t : {250.0, 300.0, 1200.0}) {
            EXPECT_NEAR(tr::viscosity(t, CompName::from(n)), eta_of(row(n), t), 1e-12 * eta_of(row(n), t)) << n;
            EXPECT_NEAR(tr::thermcond(1e5, t, CompName::from(n)), lambda_of(row(n), t), 1e-10 * lambda_of(row(n), t))
                << n;
        }
}

TEST_F(Transport, SingleComponentMixtureEqualsTheComponent) {
    const TestMix m{{"CO2", 1.0}};
    m.store();
    EXPECT_DOUBLE_EQ(tr::eta_t(500.0, m.mix()), tr::viscosity(500.0, CompName::from("CO2")));
    EXPECT_DOUBLE_EQ(tr::lambda_pt(1e5, 500.0, m.mix()), tr::thermcond(1e5, 500.0, CompName::from("CO2")));
}

TEST_F(Transport, EqualComponentsWeighEachOtherByOne) {
    const TestMix m{{"N2", 0.3}, {"N2", 0.7}};
    m.store();
    const double eta = tr::viscosity(400.0, CompName::from("N2"));
    const double lambda = tr::thermcond(1e5, 400.0, CompName::from("N2"));
    EXPECT_NEAR(tr::eta_t(400.0, m.mix()), eta, 1e-15 * eta * 4);
    EXPECT_NEAR(tr::lambda_pt(1e5, 400.0, m.mix()), lambda, 1e-15 * lambda * 4);
}

TEST_F(Transport, ConductivityRuleInvertsTheMassRatioOfTheViscosityRule) {
    const TestMix m{{"H2", 0.4}, {"CO2", 0.6}};
    m.store();
    const double t = 600.0;
    const std::vector<double> c{0.4, 0.6}, mm{row("H2").mmol, row("CO2").mmol};
    const std::vector<double> eta{eta_of(row("H2"), t), eta_of(row("CO2"), t)};
    const std::vector<double> lam{lambda_of(row("H2"), t), lambda_of(row("CO2"), t)};
    EXPECT_NEAR(tr::eta_t(t, m.mix()), wilke(c, eta, mm, +1), 1e-10 * eta[1]);
    const double inverted = wilke(c, lam, mm, -1);
    EXPECT_NEAR(tr::lambda_pt(1e5, t, m.mix()), inverted, 1e-9 * inverted);
    EXPECT_GT(std::fabs(wilke(c, lam, mm, +1) - inverted), 1e-3 * inverted);
}

TEST_F(Transport, ConcentrationAtThresholdIsLeftOutAndJustAboveCounts) {
    const double t = 350.0;
    const TestMix at{{"N2", 1.0}, {"H2", 1e-6}};
    at.store();
    const double eta = tr::viscosity(t, CompName::from("N2"));
    const double lambda = tr::thermcond(1e5, t, CompName::from("N2"));
    EXPECT_EQ(tr::eta_t(t, at.mix()), eta);
    EXPECT_EQ(tr::lambda_pt(1e5, t, at.mix()), lambda);
    const TestMix above{{"N2", 1.0}, {"H2", 1.1e-6}};
    above.store();
    EXPECT_NE(tr::eta_t(t, above.mix()), eta);
    EXPECT_NE(tr::lambda_pt(1e5, t, above.mix()), lambda);
}

TEST_F(Transport, ComponentWithoutLennardJonesDataIsIgnored) {
    const TestMix m{{"N2", 0.8}, {"C(S)", 0.2}};
    m.store();
    EXPECT_EQ(tr::viscosity(300.0, CompName::from("C(S)")), 0.0);
    EXPECT_EQ(tr::thermcond(1e5, 300.0, CompName::from("C(S)")), 0.0);
    EXPECT_DOUBLE_EQ(tr::eta_t(300.0, m.mix()), tr::viscosity(300.0, CompName::from("N2")));
    EXPECT_DOUBLE_EQ(tr::lambda_pt(1e5, 300.0, m.mix()), tr::thermcond(1e5, 300.0, CompName::from("N2")));
    const TestMix none{{"C(S)", 1.0}};
    none.store();
    EXPECT_EQ(tr::eta_t(300.0, none.mix()), 0.0);
    EXPECT_EQ(tr::lambda_pt(1e5, 300.0, none.mix()), 0.0);
}

TEST_F(Transport, EmptyMixtureGivesZero) {
    const TestMix m;
    EXPECT_EQ(tr::eta_t(300.0, m.mix()), 0.0);
    EXPECT_EQ(tr::lambda_pt(1e5, 300.0, m.mix()), 0.0);
}

TEST_F(Transport, ZeroMolarMassComponentDropsOutOfTheMixture) {
    od::fluiddata::reset_for_tests();
    od::fluiddata::readgasfile(data_dir() + "zero_mass_gas.dat");
    od::fluiddata::setdbread();
    const TestMix m{{"N2", 0.5}, {"ZM", 0.5}};
    m.store();
    EXPECT_EQ(tr::viscosity(300.0, CompName::from("ZM")), 0.0);
    // Documented: 0/0 in the Eucken term of a massless component gives NaN.
    EXPECT_TRUE(std::isnan(tr::thermcond(1e5, 300.0, CompName::from("ZM"))));
    EXPECT_DOUBLE_EQ(tr::eta_t(300.0, m.mix()), tr::viscosity(300.0, CompName::from("N2")));
    EXPECT_EQ(tr::lambda_pt(1e5, 300.0, m.mix()), 0.0);
    const TestMix alone{{"ZM", 1.0}};
    alone.store();
    EXPECT_EQ(od::thermodyn::h_pt(1e5, 300.0, alone.mix()), 0.0);
}

TEST_F(Transport, BadStatesNeverCrash) {
    const TestMix m{{"N2", 0.7}, {"CO2", 0.2}, {"H2O(IF)", 0.1}};
    m.store();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double p : {nan, inf, 0.0, -1e5, 1e5})
        for (double t : {nan, inf, 0.0, -10.0, 300.0}) {
            (void)tr::eta_t(t, m.mix());
            (void)tr::lambda_pt(p, t, m.mix());
        }
    // Every denominator is NaN, so every term is left out.
    EXPECT_EQ(tr::eta_t(nan, m.mix()), 0.0);
}

class AirReference : public LoadedTable, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(AirReference, DryAirIsCloseToHandbookValues) {
    static const Csv csv = read_csv("air_reference.csv");
    const std::size_t r = GetParam();
    const TestMix air{{"N2", 0.7809}, {"O2", 0.2095}, {"AR", 0.0093}, {"CO2", 0.0003}};
    air.store();
    const double p = 101325.0, t = 300.0;
    const std::string q = csv.get(r, "quantity");
    double value = 0;
    if (q == "cp") {
        const double m = 0.7809 * row("N2").mmol + 0.2095 * row("O2").mmol + 0.0093 * row("AR").mmol +
                         0.0003 * row("CO2").mmol;
        value = od::thermodyn::cv_pt(p, t, air.mix()) + r_gas / m;
    } else if (q == "viscosity") {
        value = tr::eta_t(t, air.mix());
    } else if (q == "conductivity") {
        value = tr::lambda_pt(p, t, air.mix());
    } else {
        FAIL() << "unknown quantity " << q;
    }
    const double want = csv.num(r, "value");
    EXPECT_NEAR(value, want, csv.num(r, "rel_tol") * want) << q;
}

INSTANTIATE_TEST_SUITE_P(Table, AirReference, ::testing::ValuesIn(row_numbers("air_reference.csv")));

}  // namespace
