// Component functions, mixture sums at given (p, T), molar mass and limits,
// pressure derivatives, and the condensing water "H2O(IF)": the IF97 gateway,
// the condensed fraction and the branches at 273.16 K and 1073.15 K.
#include <bit>
#include <cstdint>

#include "thermo/od_basefuncs.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace bf = od::basefuncs;
namespace td = od::thermodyn;
namespace w = od::h2o;

double density(const std::string& name) {  // kg/m3 of a condensed species
    for (const CsvRow& r : table("condensed_density.csv"))
        if (r["name"] == name) return r.num("rho_kg_per_m3");
    return od::missing_value;  // Intended quirk: an unlisted species divides by the marker.
}
bool condensed(const std::string& n) { return n.ends_with("(S)") || n.ends_with("(L)"); }

TEST(BasefuncsMarker, CountsValuesWithinOneTenthOfTheMarker) {
    for (double x : {-8888.8, -8888.75, -8888.89}) EXPECT_TRUE(bf::isinit(x) && !bf::isnotinit(x)) << x;
    for (double x : {-8888.69, -8888.95, 0.0, qnan}) EXPECT_TRUE(!bf::isinit(x) && bf::isnotinit(x)) << x;
}

class MixtureStates : public TableTest {};

// Everything computed here from the gas-table coefficients and the IF97 states.
TEST_P(MixtureStates, MatchTheSumsOfTheGasDataAndIf97) {
    const CsvRow& c = GetParam();
    const TestMix m(c["composition"]);
    const double p = c.num("p_Pa"), t = c.num("T_K"), tol = c.num("rel_tol");
    const std::string vap = c["vapour"], liq = c["liquid"];
    double gas = 0, y = 0, mm = 0, tmin = 0, tmax = 1e10;
    for (std::size_t i = 0; i < m.text.size(); ++i) {
        if (!condensed(m.text[i])) gas += m.conc[i];
        if (m.text[i] == "H2O(IF)" && y == 0 && m.conc[i] > 1e-10) y = m.conc[i];
    }
    // Condensing water leaves vapour at psat/p of the gas phase.
    const double g = !liq.empty() && !vap.empty() ? (gas - y) / (1 - if97(vap, "p_Pa") / p) : gas == 0 ? 1 : gas;
    Part sum, scale;
    double dcp = 0;
    const od::Mixture mix = m.mix();
    for (std::size_t i = 0; i < m.text.size(); ++i) {
        const std::string& n = m.text[i];
        const double x = m.conc[i], ln_p = condensed(n) ? 0 : std::log(p / p_ref);  // gases only
        const Row r = row(n == "H2O(IF)" ? "H2O" : n);
        EXPECT_NEAR(bf::cp_0(mix.names[i], t), r.cp(t), 1e-12 * std::fabs(r.cp(t))) << n;
        EXPECT_NEAR(bf::h_0(mix.names[i], t), r.h(t), 1e-11 * (std::fabs(r.h(t)) + std::fabs(r.a(t)[5]) + t)) << n;
        EXPECT_NEAR(bf::s_0(mix.names[i], p, t), r.s(t) - ln_p, 1e-11 * (std::fabs(r.s(t)) + std::fabs(ln_p) + 1)) << n;
        EXPECT_NEAR(bf::dcv_dt_0(mix.names[i], t), r.dcp(t), 1e-11 * (std::fabs(r.dcp(t)) + 1e-6)) << n;
        mm += x * r.t.mmol;
        tmin = std::max(tmin, r.t.tmin);
        tmax = std::min(tmax, r.t.tmax);
        dcp += x * r.dcp(t);
        if (x <= 1e-10) continue;
        const Part q = n == "H2O(IF)" ? water(x / g, p, t, vap, liq)
                       : condensed(n) ? Part{r.h(t), r.s(t), r.cp(t), r.t.mmol / density(n)}
                                      : Part{r.h(t), r.s(t) - ln_p - std::log(x / g), r.cp(t), r_gas * t / p};
        sum = {sum.h + x * q.h, sum.s + x * q.s, sum.cp + x * q.cp, sum.v + x * q.v};
        scale = {scale.h + std::fabs(x * q.h) + std::fabs(x * r.a(t)[5]), scale.s + std::fabs(x * q.s) + 1};
    }
    const double k = mm > 0 ? r_gas / mm : 0.0;  // a molar mass not above 0 gives 0
    EXPECT_NEAR(bf::v_0(p, t), r_gas * t / p, 1e-14 * r_gas * t / p);
    EXPECT_NEAR(od::mixinfo::mmol(mix), mm, 1e-15);
    EXPECT_EQ(od::mixinfo::tmin(mix), tmin);
    EXPECT_EQ(od::mixinfo::tmax(mix), tmax);
    EXPECT_NEAR(td::x_gas(p, t, mix), g, tol * g);
    EXPECT_NEAR(td::h_pt(p, t, mix), sum.h * k, tol * scale.h * k);
    EXPECT_NEAR(td::s_pt(p, t, mix), sum.s * k, tol * scale.s * k);
    EXPECT_NEAR(td::cv_pt(p, t, mix), (sum.cp - 1) * k, tol * std::fabs(sum.cp * k));
    EXPECT_NEAR(td::v_pt(p, t, mix), sum.v * k / r_gas, tol * std::fabs(sum.v * k / r_gas));
    EXPECT_NEAR(td::u_pt(p, t, mix), (sum.h * k - p * sum.v * k / r_gas), tol * (scale.h * k + std::fabs(p * sum.v * k / r_gas)));
    EXPECT_NEAR(od::derivative::dcv_dt(t, mix), dcp * k, 1e-10 * std::fabs(dcp * k) + 1e-15);
    // The whole mixture as the ideal gas p = R T / (M v) of its specific volume v.
    const double v = r_gas * t / (mm * p);
    EXPECT_NEAR(od::derivative::dp_dv(p, t, mix), -p / v, 1e-12 * p / v);
    EXPECT_NEAR(od::derivative::d2p_dv2(p, t, mix), 2 * p / (v * v), 1e-12 * p / (v * v));
    EXPECT_NEAR(od::derivative::d2p_dtdv(p, t, mix), -p / (v * t), 1e-12 * p / (v * t));
    EXPECT_DOUBLE_EQ(od::derivative::dp_dt(p, t), p / t);
    EXPECT_EQ(od::derivative::d2p_dt2(), 0.0);
}

INSTANTIATE_TEST_SUITE_P(Table, MixtureStates, ::testing::ValuesIn(table("mixture_states.csv")), row_name);

TEST_F(TestGas, DcvDtReadsCondensingWaterAsIdealGasWater) {
    const double with_if = od::derivative::dcv_dt(320.0, TestMix("N2=0.7 H2O(IF)=0.3").mix());
    EXPECT_EQ(with_if, od::derivative::dcv_dt(320.0, TestMix("N2=0.7 H2O=0.3").mix()));
}

class If97States : public TableTest {};

// Pa and K in, SI values out; (T, p) is the order the water functions never use.
TEST_P(If97States, GatewayConvertsUnitsBothWays) {
    const CsvRow& r = GetParam();
    const double p = r.num("p_Pa"), t = r.num("T_K");
    const std::string kind = r["kind"];
    // Intended quirk: below 273.16 K the sublimation pressure is scaled by the bar factor as well.
    const double want = kind == "sub" ? 1e5 * p : kind == "Tx" ? p : r.num("h_J_per_kg");
    const double got = kind == "pT"   ? w::h2o('T', t, 'P', p, "H.")
                       : kind == "px" ? w::h2o('P', p, 'X', r.num("x"), "H.")
                                      : w::h2o('T', t, 'X', 0.5, "P.");
    EXPECT_NEAR(got, want, (kind == "sub" ? 2e-3 : 1e-8) * want);
}

INSTANTIATE_TEST_SUITE_P(Table, If97States, ::testing::ValuesIn(table("if97_water.csv")), row_name);

class WaterStates : public TableTest {};

TEST_P(WaterStates, SplitIntoIf97VapourAndCondensate) {
    const CsvRow& r = GetParam();
    const double xw = r.num("xw"), p = r.num("p_Pa"), t = r.num("T_K");
    const Part e = water(xw, p, t, r["vapour"], r["liquid"]);
    EXPECT_NEAR(w::h_h2o(xw, p, t), e.h, 1e-8 * std::fabs(e.h));
    EXPECT_NEAR(w::s_h2o(xw, p, t), e.s, 1e-8 * std::fabs(e.s));
    EXPECT_NEAR(w::cp_h2o(xw, p, t), e.cp, 1e-8 * std::fabs(e.cp));
    EXPECT_NEAR(w::v_h2o(xw, p, t), e.v, 1e-8 * std::fabs(e.v));
}

INSTANTIATE_TEST_SUITE_P(Table, WaterStates, ::testing::ValuesIn(table("water_states.csv")), row_name);

using Water = LoadedTable;

TEST_F(Water, SaturationPressureExistsOnlyBetweenOneKelvinAndTheCriticalPoint) {
    EXPECT_EQ(w::h2o('T', 647.1, 'X', 0.0, "P."), od::missing_value);
    EXPECT_EQ(w::h2o('T', inf, 'X', 0.0, "P."), od::missing_value);
    // Intended quirk: a temperature of 0 K or less is evaluated at 1 K.
    EXPECT_EQ(w::h2o('T', -40.0, 'X', 0.0, "P."), w::h2o('T', 1.0, 'X', 0.0, "P."));
}

TEST_F(Water, GasFractionAtTheEdgesOfCondensation) {
    const double t = 303.15, psat = w::h2o('T', t, 'X', 0.0, "P.");
    const TestMix half("N2=0.5 H2O(IF)=0.5"), steam("H2O(IF)=1.2");
    EXPECT_EQ(td::x_gas(2.0 * psat, t, half.mix()), 1.0);  // y p == psat does not condense
    EXPECT_NEAR(td::x_gas(2.002 * psat, t, half.mix()), 0.5 / (1 - 1 / 2.002), 1e-12);
    EXPECT_EQ(td::x_gas(psat, t, steam.mix()), 1.2);  // psat == p does not condense
}

TEST_F(Water, ReferenceCorrectionIsFixedByTheFirstCall) {
    const double first = w::h_h2o(1.0, 1e5, 303.15), cp = w::cp_h2o(1.0, 1e5, 303.15);
    od::fluiddata::reset_for_tests();  // the table loses its "H2O" row: the correction stays,
    EXPECT_EQ(w::h_h2o(1.0, 1e5, 303.15), first);
    EXPECT_NE(w::cp_h2o(1.0, 1e5, 303.15), cp);  // while cp takes the molar mass afresh on every call
}

// IF97 measures entropy from the liquid at the triple point; matched to the
// gas table's "H2O" at 1073.15 K and 101325 Pa, it becomes absolute. With the
// gas rows on the 101325 Pa standard state, liquid water at 298.15 K then has
// its tabulated entropy (a liquid's entropy moves by about 1e-5 J/(mol K)
// between 1 bar and 101325 Pa). Left on 1 bar, the gas rows would put it
// 0.11 J/(mol K) high.
TEST_F(Water, CondensedWaterHasItsTabulatedStandardEntropy) {
    constexpr double r_tables = 8.31451;  // J/(mol K), the gas constant of the tables
    for (const CsvRow& r : table("../gasdata/standard_entropy_298.csv")) {
        if (r.name != "H2O(L)") continue;
        EXPECT_NEAR(w::s_h2o(1.0, 1e5, 298.15) * r_tables, r.num("S_J_per_mol_K"), r.num("uncertainty_J_per_mol_K"));
        return;
    }
    FAIL() << "no H2O(L) row in standard_entropy_298.csv";
}

TEST_F(Water, AllCondensedWaterIgnoresAVapourValueSavedFromAnAbsurdState) {
    // At 10 bar and 50 C pure water is all liquid: the saved vapour value of
    // the last call with vapour is weighted by zero. A finite saved value
    // gives the liquid value bit for bit; an infinite or NaN one, left by an
    // absurd temperature, must give the same and not 0 * inf = NaN.
    const double p = 10e5, t = 323.15;
    for (auto f : {w::h_h2o, w::s_h2o, w::cp_h2o}) {
        (void)f(0.1, 1e5, 400.0);  // a finite saved vapour value
        const double liquid = f(1.0, p, t);
        ASSERT_TRUE(std::isfinite(liquid));
        for (double absurd : {1e300, inf, qnan, -1e300}) {
            const double saved = f(0.12, 1e5, absurd);
            EXPECT_EQ(std::bit_cast<std::uint64_t>(f(1.0, p, t)), std::bit_cast<std::uint64_t>(liquid))
                << absurd << " left " << saved;
        }
    }
}

using Robustness = LoadedTable;

// Documented answers: NaN through the polynomials and logarithms, 0 where a guard drops the value.
TEST_F(Robustness, BadStatesGiveNanOrZeroWithoutCrashing) {
    const TestMix m("N2=0.7 CO2=0.2 H2O(IF)=0.1");
    const od::Mixture mix = m.mix();
    for (double p : {qnan, inf, 0.0, -1e5, 1e5})
        for (double t : {qnan, inf, 0.0, -10.0, 300.0, 2000.0}) {
            for (auto f : {td::h_pt, td::s_pt, td::cv_pt, td::v_pt, td::u_pt, td::x_gas, od::transport::lambda_pt})
                (void)f(p, t, mix);
            for (auto f : {w::h_h2o, w::s_h2o, w::cp_h2o, w::v_h2o})
                for (double xw : {qnan, inf, 0.0, -1.0, 1.0}) (void)f(xw, p, t);
            (void)od::transport::eta_t(t, mix);
        }
    EXPECT_TRUE(std::isnan(td::h_pt(1e5, qnan, mix)));
    EXPECT_TRUE(std::isnan(bf::s_0(od::CompName::from("N2"), -1.0, 300.0)));
    EXPECT_EQ(od::transport::eta_t(qnan, mix), 0.0);  // every denominator NaN: every term left out
    EXPECT_EQ(td::h_pt(1e5, 300.0, TestMix("N2=nan").mix()), 0.0);  // molar mass not above 0
    EXPECT_EQ(bf::cp_0(od::CompName::from("XX"), 0.0), od::missing_value);  // unknown: the marker coefficients
}

}  // namespace
