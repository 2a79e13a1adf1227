// Condensing water "H2O(IF)": the IF97 gateway, the condensed fraction, the
// branches at 273.16 K and 1073.15 K, and the gas fraction of humid mixtures.
#include <cmath>
#include <limits>

#include "thermo/od_basefuncs.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace w = od::h2o;
namespace td = od::thermodyn;

// IF97 values moved onto the gas-table reference, formed from the IF97
// states of if97_water.csv and the "H2O" row of the gas data.
struct WaterRef {
    double m = row("H2O").mmol;
    double r = r_gas / m;  // J/(kg K)
    double h_corr = row("H2O").h(1073.15) - if97("reference", "h_J_per_kg") / r;
    double s_corr = row("H2O").s(1073.15) - if97("reference", "s_J_per_kgK") / r;
    double h(const std::string& s) const { return if97(s, "h_J_per_kg") / r + h_corr; }
    double s(const std::string& s) const { return if97(s, "s_J_per_kgK") / r + s_corr; }
    double cp(const std::string& s) const { return if97(s, "cp_J_per_kgK") / r; }
    double v(const std::string& s) const { return if97(s, "v_m3_per_kg") * m; }
};

// Goff-Gratch form of the sublimation pressure with the library's constants, hPa.
double sublimation_hpa(double t) {
    const double r = 273.16 / t;
    return std::pow(10.0, -0.213856 - 3.56654 * std::log10(r) - 9.09685 * (r - 1) + 0.87682 * (1 - t / 273.16));
}

constexpr double rel = 1e-8;  // IF97 here against the python oracle

class Water : public LoadedTable {
protected:
    void SetUp() override {
        LoadedTable::SetUp();
        TestMix{{"N2", 0.75}, {"O2", 0.2}, {"H2O(IF)", 0.05}}.store();
    }
};

class If97States : public Water, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(If97States, GatewayConvertsUnitsBothWays) {
    static const Csv csv = read_csv("if97_water.csv");
    const std::size_t r = GetParam();
    SCOPED_TRACE(csv.get(r, "label"));
    const std::string kind = csv.get(r, "kind");
    const double p = csv.num(r, "p_Pa"), t = csv.num(r, "T_K"), x = csv.num(r, "x");
    if (kind == "Tx") {
        EXPECT_NEAR(w::h2o('T', t, 'X', 0.5, "P."), p, rel * p);
        return;
    }
    const char c2 = kind == "pT" ? 'T' : 'X';
    const double v2 = kind == "pT" ? t : x;
    for (const auto& [prop, col] : {std::pair{"H.", "h_J_per_kg"}, std::pair{"S.", "s_J_per_kgK"},
                                    std::pair{"CP.", "cp_J_per_kgK"}, std::pair{"V.", "v_m3_per_kg"}}) {
        const double want = csv.num(r, col);
        EXPECT_NEAR(w::h2o('P', p, c2, v2, prop), want, rel * std::fabs(want) + 1e-9) << prop;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, If97States, ::testing::ValuesIn(row_numbers("if97_water.csv")));

TEST_F(Water, FirstPressureIsClippedToTheTriplePoint) {
    EXPECT_EQ(w::h2o('P', 100.0, 'T', 300.0, "H."), w::h2o('P', 611.657, 'T', 300.0, "H."));
    EXPECT_NEAR(w::h2o('P', 100.0, 'T', 300.0, "H."), if97("vapour_clip_300K", "h_J_per_kg"), 1e-3);
}

TEST_F(Water, SaturationPressureBelowTheTriplePointIsScaledByTheBarFactor) {
    const double below = std::nextafter(273.16, 0.0);
    EXPECT_NEAR(w::h2o('T', below, 'X', 0.0, "P."), 1e5 * 1000.0 * sublimation_hpa(below), 1e-3);
    EXPECT_GT(w::h2o('T', below, 'X', 0.0, "P."), 6e7);
    EXPECT_NEAR(w::h2o('T', 273.16, 'X', 0.0, "P."), 611.657, 1e-3);
    EXPECT_NEAR(w::h2o('T', 250.0, 'X', 0.0, "P."), 1e8 * sublimation_hpa(250.0), 1e-6 * 1e8 * sublimation_hpa(250.0));
}

TEST_F(Water, NonPositiveSaturationTemperatureIsEvaluatedAtOneKelvin) {
    EXPECT_EQ(w::h2o('T', 0.0, 'X', 0.0, "P."), w::h2o('T', 1.0, 'X', 0.0, "P."));
    EXPECT_EQ(w::h2o('T', -40.0, 'X', 0.0, "P."), w::h2o('T', 1.0, 'X', 0.0, "P."));
    EXPECT_TRUE(std::isfinite(w::h2o('T', -40.0, 'X', 0.0, "P.")));
}

TEST_F(Water, NoSaturationAboveTheCriticalTemperature) {
    EXPECT_EQ(w::h2o('T', 647.1, 'X', 0.0, "P."), od::missing_value);
    EXPECT_NEAR(w::h2o('T', 647.096, 'X', 0.0, "P."), 22.064e6, 1e3);
}

TEST_F(Water, AllWaterAbovePsatIsIf97Liquid) {
    const WaterRef ref;
    const double p = 1e5, t = 303.15;
    EXPECT_NEAR(w::h_h2o(1.0, p, t), ref.h("liquid_1bar_30C"), 1e-6);
    EXPECT_NEAR((w::h_h2o(1.0, p, t) - ref.h_corr) * ref.r, if97("liquid_1bar_30C", "h_J_per_kg"), 1e-3);
    EXPECT_NEAR(w::s_h2o(1.0, p, t), ref.s("liquid_1bar_30C"), 1e-8);
    EXPECT_NEAR(w::cp_h2o(1.0, p, t), ref.cp("liquid_1bar_30C"), 1e-8);
    EXPECT_NEAR(w::v_h2o(1.0, p, t), ref.v("liquid_1bar_30C"), 1e-14);
}

TEST_F(Water, AllWaterBelowPsatIsIf97Vapour) {
    const WaterRef ref;
    const double p = 3000.0, t = 303.15;
    EXPECT_NEAR(w::h_h2o(1.0, p, t), ref.h("vapour_3kPa_30C"), 1e-5);
    EXPECT_NEAR(w::s_h2o(1.0, p, t), ref.s("vapour_3kPa_30C"), 1e-8);
    EXPECT_NEAR(w::cp_h2o(1.0, p, t), ref.cp("vapour_3kPa_30C"), 1e-8);
    EXPECT_NEAR(w::v_h2o(1.0, p, t), ref.v("vapour_3kPa_30C"), 1e-9);
}

TEST_F(Water, PartialPressureExactlyAtPsatGivesSaturatedVapourOnly) {
    const WaterRef ref;
    const double t = 303.15;
    const double psat = w::h2o('T', t, 'X', 0.5, "P.");
    const double p = 2.0 * psat;  // xw p == psat exactly
    EXPECT_NEAR(w::h_h2o(0.5, p, t), ref.h("vapour_sat_30C"), 1e-5);
    EXPECT_NEAR(w::v_h2o(0.5, p, t), ref.v("vapour_sat_30C") * 0.5, 1e-9);
}

TEST_F(Water, SupersaturatedWaterSplitsIntoLiquidAndSaturatedVapour) {
    const WaterRef ref;
    const double p = 1e5, t = 303.15, xw = 0.05;
    const double psat = if97("saturation_30C", "p_Pa");
    const double f = (xw - psat / p) / xw;
    EXPECT_NEAR(w::h_h2o(xw, p, t), (1 - f) * ref.h("vapour_sat_30C") + f * ref.h("liquid_1bar_30C"), 1e-5);
    EXPECT_NEAR(w::s_h2o(xw, p, t), (1 - f) * ref.s("vapour_sat_30C") + f * ref.s("liquid_1bar_30C"), 1e-8);
    EXPECT_NEAR(w::cp_h2o(xw, p, t), (1 - f) * ref.cp("vapour_sat_30C") + f * ref.cp("liquid_1bar_30C"), 1e-7);
    const double v = (1 - f) * ref.v("vapour_sat_30C") * psat / p + f * ref.v("liquid_1bar_30C");
    EXPECT_NEAR(w::v_h2o(xw, p, t), v, 1e-9 * v);
}

TEST_F(Water, CondensateAtOrBelowItsSaturationPressureIsSaturatedLiquid) {
    // xw > 1 (other components condensed) with p under psat: liquid at (p, x = 0).
    const WaterRef ref;
    const double p = 3000.0, t = 303.15, xw = 1.5;
    const double psat = if97("saturation_30C", "p_Pa");
    const double f = (xw - psat / p) / xw;
    ASSERT_GT(f, 0.0);
    EXPECT_NEAR(w::h_h2o(xw, p, t), (1 - f) * ref.h("vapour_sat_30C") + f * ref.h("liquid_3kPa_sat"), 1e-5);
}

TEST_F(Water, DilutedVapourIsIf97AtItsPartialPressure) {
    const WaterRef ref;
    EXPECT_NEAR(w::h_h2o(0.1, 1e5, 573.15), ref.h("vapour_10kPa_300C"), 1e-5);
    EXPECT_NEAR(w::s_h2o(0.1, 1e5, 573.15), ref.s("vapour_10kPa_300C"), 1e-8);
    EXPECT_NEAR(w::v_h2o(0.1, 1e5, 573.15), ref.v("vapour_10kPa_300C") * 0.1, 1e-9);
    // Partial pressures under the triple-point pressure are clipped to it.
    EXPECT_NEAR(w::h_h2o(0.001, 1e5, 573.15), ref.h("vapour_clip_300C"), 1e-5);
}

TEST_F(Water, At1073_15KIf97AndAboveTheGasTableExtension) {
    const WaterRef ref;
    const Row& h2o = row("H2O");
    EXPECT_NEAR(w::h_h2o(0.1, 1e5, 1073.15), ref.h("vapour_10kPa_800C"), 1e-5);
    const double t = 1073.16;
    EXPECT_NEAR(w::h_h2o(0.1, 1e5, t), ref.h("vapour_10kPa_800C") + h2o.h(t) - h2o.h(1073.15), 1e-5);
    EXPECT_NEAR(w::s_h2o(0.1, 1e5, t),
                ref.s("vapour_10kPa_800C") + h2o.s(t) - h2o.s(1073.15), 1e-8);
    EXPECT_NEAR(w::cp_h2o(0.1, 1e5, t), ref.cp("vapour_10kPa_800C") + h2o.cp(t) - h2o.cp(1073.15), 1e-8);
    EXPECT_NEAR(w::v_h2o(0.1, 1e5, t), ref.v("vapour_10kPa_800C") * t / 1073.15 * 0.1, 1e-9);
}

TEST_F(Water, AtTheTriplePointIf97AndJustBelowTheGasTable) {
    const WaterRef ref;
    const double p = 1e5, xw = 0.1;
    const double f = (xw - 611.657 / p) / xw;
    EXPECT_NEAR(w::h_h2o(xw, p, 273.16), (1 - f) * ref.h("vapour_sat_triple") + f * ref.h("liquid_1bar_triple"),
                1e-4);
    // Below 273.16 K no water condenses: ideal-gas water of the gas table at the total pressure.
    const double t = 273.159;
    const Row& h2o = row("H2O");
    EXPECT_NEAR(w::h_h2o(xw, p, t), h2o.h(t), 1e-9 * std::fabs(h2o.h(t)));
    EXPECT_NEAR(w::s_h2o(xw, p, t), h2o.s(t) - std::log(p / 101325.0), 1e-10);
    EXPECT_NEAR(w::cp_h2o(xw, p, t), h2o.cp(t), 1e-10);
    EXPECT_NEAR(w::v_h2o(xw, p, t), r_gas * t / p * xw, 1e-15);
}

TEST_F(Water, CondensedBelowTheTriplePointFollowsTheLiquidRow) {
    // The scaled sublimation pressure at 260 K is about 2e7 Pa: all water condenses at 2.5e7 Pa.
    const WaterRef ref;
    const double p = 2e7, t = 260.0;
    ASSERT_LT(w::h2o('T', t, 'X', 0.0, "P."), p);
    const Row& liq = row("H2O(L)");
    EXPECT_NEAR(w::h_h2o(1.0, p, t), ref.h("liquid_200bar_triple") + liq.h(t) - liq.h(273.16), 1e-5);
    EXPECT_NEAR(w::s_h2o(1.0, p, t), ref.s("liquid_200bar_triple") + liq.s(t) - liq.s(273.16), 1e-8);
    EXPECT_NEAR(w::cp_h2o(1.0, p, t), ref.cp("liquid_200bar_triple") + liq.cp(t) - liq.cp(273.16), 1e-8);
    EXPECT_NEAR(w::v_h2o(1.0, p, t), ref.v("liquid_200bar_triple") * t / 273.16, 1e-14);
}

TEST_F(Water, NoCondensationAboveTheCriticalTemperature) {
    const TestMix m{{"N2", 0.1}, {"H2O(IF)", 0.9}};
    m.store();
    EXPECT_DOUBLE_EQ(td::x_gas(1e8, 700.0, m.mix()), 1.0);
}

// Humid air at 1 bar and 30 C with more water than saturation allows.
TEST_F(Water, HumidAirKeepsVapourAtPsatOverP) {
    const TestMix m{{"N2", 0.75}, {"O2", 0.2}, {"H2O(IF)", 0.05}};
    m.store();
    const double p = 1e5, t = 303.15;
    const double psat = if97("saturation_30C", "p_Pa");
    const double g = td::x_gas(p, t, m.mix());
    EXPECT_NEAR((g - 0.95) / g, psat / p, 1e-10);
    EXPECT_NEAR(g, 0.95 / (1 - psat / p), 1e-10);

    const WaterRef ref;
    const double xw = 0.05 / g;
    const double f = (xw - psat / p) / xw;
    const double hw = (1 - f) * ref.h("vapour_sat_30C") + f * ref.h("liquid_1bar_30C");
    const double mm = 0.75 * row("N2").mmol + 0.2 * row("O2").mmol + 0.05 * row("H2O(IF)").mmol;
    const double h = (0.75 * row("N2").h(t) + 0.2 * row("O2").h(t) + 0.05 * hw) * r_gas / mm;
    EXPECT_NEAR(td::h_pt(p, t, m.mix()), h, 1e-6 * std::fabs(h));

    const double sw = (1 - f) * ref.s("vapour_sat_30C") + f * ref.s("liquid_1bar_30C");
    const double lnp = std::log(p / 101325.0);
    const double s = (0.75 * (row("N2").s(t) - lnp - std::log(0.75 / g)) +
                      0.2 * (row("O2").s(t) - lnp - std::log(0.2 / g)) + 0.05 * sw) * r_gas / mm;
    EXPECT_NEAR(td::s_pt(p, t, m.mix()), s, 1e-8 * std::fabs(s));
}

TEST_F(Water, PartialPressureEqualToPsatDoesNotCondense) {
    const double t = 303.15;
    const double psat = w::h2o('T', t, 'X', 0.0, "P.");
    const TestMix m{{"N2", 0.5}, {"H2O(IF)", 0.5}};
    m.store();
    EXPECT_EQ(td::x_gas(2.0 * psat, t, m.mix()), 1.0);
    EXPECT_LT(td::x_gas(2.0 * psat * 1.001, t, m.mix()), 1.0);
}

TEST_F(Water, PsatEqualToTotalPressureDoesNotCondense) {
    const double t = 303.15;
    const double psat = w::h2o('T', t, 'X', 0.0, "P.");
    const TestMix m{{"H2O(IF)", 1.2}};
    m.store();
    EXPECT_EQ(td::x_gas(psat, t, m.mix()), 1.2);
    EXPECT_TRUE(std::isfinite(td::h_pt(psat, t, m.mix())));
}

TEST_F(Water, TriplePointIsTheEdgeOfCondensationInMixtures) {
    const TestMix m{{"N2", 0.9}, {"H2O(IF)", 0.1}};
    m.store();
    EXPECT_NEAR(td::x_gas(1e5, 273.16, m.mix()), 0.9 / (1 - 611.657 / 1e5), 1e-9);
    EXPECT_EQ(td::x_gas(1e5, std::nextafter(273.16, 0.0), m.mix()), 1.0);
}

TEST_F(Water, WaterListedTwiceUsesTheFirstPresentEntryForTheGasFraction) {
    const double p = 1e5, t = 303.15;
    const double psat = if97("saturation_30C", "p_Pa");
    const TestMix m{{"N2", 0.8}, {"H2O(IF)", 1e-10}, {"H2O(IF)", 0.05}, {"H2O(IF)", 0.15}};
    m.store();
    const double g_total = 0.8 + 1e-10 + 0.05 + 0.15;
    const double g = g_total * (1 - 0.05 / g_total) / (1 - psat / p);
    EXPECT_NEAR(td::x_gas(p, t, m.mix()), g, 1e-9);

    // Each entry weights its own term with its own water ratio.
    const double mm = od::fluiddata::getmmol(od::CompName::from("H2O(IF)"));
    const double hm = 0.8 * row("N2").h(t) + 0.05 * w::h_h2o(0.05 / g, p, t) + 0.15 * w::h_h2o(0.15 / g, p, t);
    const double m_mix = 0.8 * row("N2").mmol + (1e-10 + 0.05 + 0.15) * mm;
    EXPECT_NEAR(td::h_pt(p, t, m.mix()), hm * r_gas / m_mix, 1e-6);
}

TEST_F(Water, ReferenceCorrectionIsFixedByTheFirstCall) {
    const WaterRef ref;
    const double first = w::h_h2o(1.0, 1e5, 303.15);
    EXPECT_NEAR(first, ref.h("liquid_1bar_30C"), 1e-6);
    // A table that loses its "H2O" row afterwards leaves the correction as it was.
    const double cp_before = w::cp_h2o(1.0, 1e5, 303.15);
    od::fluiddata::reset_for_tests();
    EXPECT_EQ(w::h_h2o(1.0, 1e5, 303.15), first);
    // cp takes the molar mass afresh on every call.
    EXPECT_NE(w::cp_h2o(1.0, 1e5, 303.15), cp_before);
}

TEST_F(Water, BadStatesNeverCrash) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    for (double xw : {nan, 0.0, -1.0, 1.0, inf})
        for (double p : {nan, inf, 0.0, -1e5, 1e5})
            for (double t : {nan, inf, 0.0, -10.0, 300.0, 2000.0}) {
                (void)w::h_h2o(xw, p, t);
                (void)w::s_h2o(xw, p, t);
                (void)w::cp_h2o(xw, p, t);
                (void)w::v_h2o(xw, p, t);
            }
    EXPECT_EQ(w::h2o('T', inf, 'X', 0.0, "P."), od::missing_value);
}

}  // namespace
