// Saturation line, saturation temperature, L function and the bound checks
// and caches of the common-term routines.
#include <limits>

#include "pwsftn/pws_regions.hpp"
#include "pws_test_support.hpp"

namespace {

using pws_test::near;
using pws_test::PackageTest;
using pws_test::read_table;
using pws_test::row_label;
using SaturationTest = PackageTest;

// Scale of the slope kept by psl1 against dps/dT in bar/K.
constexpr double slope_factor = 647.3 / 80.3334;

TEST_F(SaturationTest, PressureAndSlopeReproduceCheckValues) {
    for (const auto& r : read_table("psat.csv")) {
        SCOPED_TRACE(row_label(r, {"t_C"}));
        const double t = r["t_C"];
        EXPECT_TRUE(near(pws::pws_pt(t), r["psat_bar"], 1e-9));
        EXPECT_TRUE(near(pws::psl1(t), r["psat_bar"], 1e-9));
        EXPECT_TRUE(near(pws::psl1_slope(), r["dpsat_dT_bar_per_K"] * slope_factor, 1e-9));
    }
    EXPECT_EQ(errors(), 0);
}

TEST_F(SaturationTest, CriticalTemperatureIsEvaluatedAndAboveItIsReported) {
    EXPECT_DOUBLE_EQ(pws::pws_pt(374.15), 221.2);
    EXPECT_EQ(errors(), 0);
    EXPECT_EQ(pws::pws_pt(374.16), 0.0);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, T=  3.74160000E+02 ***");
    EXPECT_GT(pws::pws_pt(-10.0), 0.0);  // no lower bound
    EXPECT_EQ(errors(), 1);
}

TEST_F(SaturationTest, NewtonSaturationTemperatureFindsTheTableTemperatures) {
    for (const auto& r : read_table("psat.csv")) {
        SCOPED_TRACE(row_label(r, {"t_C"}));
        const double p = r["psat_bar"];
        const int before = errors();
        // The residual tolerance is 1e-4 up to 186.1581 bar.
        EXPECT_NEAR(pws::pws_tp(p), r["t_C"], 0.01);
        if (p <= 186.1581) {
            EXPECT_EQ(errors(), before);
        }
    }
    EXPECT_DOUBLE_EQ(pws::pws_tp(221.2), 374.15);
}

TEST_F(SaturationTest, NewtonSaturationTemperatureRefusesSupercriticalPressure) {
    EXPECT_EQ(pws::pws_tp(221.3), 0.0);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, P=  2.21300000E+02 ***");
}

TEST_F(SaturationTest, BracketingSaturationTemperatureFindsTheTableTemperatures) {
    for (const auto& r : read_table("psat.csv")) {
        SCOPED_TRACE(row_label(r, {"t_C"}));
        EXPECT_NEAR(pws::pws_it(r["psat_bar"]), r["t_C"], 1e-7);
    }
    EXPECT_EQ(errors(), 0);
    EXPECT_NEAR(pws::pws_it(221.2), 374.15, 1e-9);
    pws::pws_it(300.0);  // reported, then trials beyond the critical point are reported too
    ASSERT_GE(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, P=  3.00000000E+02 ***");
}

TEST_F(SaturationTest, LFunctionReproducesCheckValuesAndInverts) {
    for (const auto& r : read_table("boundary_L.csv")) {
        SCOPED_TRACE(row_label(r, {"t_C"}));
        const double t = r["t_C"];
        EXPECT_TRUE(near(pws::pws_cl(t), r["betaL"], 1e-9));
        EXPECT_TRUE(near(pws::boundary_pressure(t), r["pL_bar"], 1e-9));
        EXPECT_TRUE(near(pws::pws_cl_slope(t) * pws::crit_p / pws::crit_tk, r["dpL_dT_bar_per_K"], 1e-9));
        EXPECT_NEAR(pws::boundary_temperature(r["pL_bar"]), t, 1e-8);
    }
    // The boundary meets the saturation line at 350 C.
    EXPECT_NEAR(pws::boundary_pressure(350.0), pws::pws_pt(350.0), 1e-6);
}

TEST_F(SaturationTest, BoundsAreWidenedByARelativeHundredThousandth) {
    pws::comt1(100.0, 350.003);
    EXPECT_EQ(errors(), 0);
    pws::comt1(100.0, 350.004);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line,
              " *** PWSFTN-ERROR: Out of range, P=  1.00000000E+02, T=  3.50004000E+02 ***");
    pws::comt1(0.006112444 * 0.999991, 20.0);
    EXPECT_EQ(errors(), 1);
    pws::comt1(0.006112444 * 0.99998, 20.0);
    EXPECT_EQ(errors(), 2);
    pws::comt2(1000.0, 800.007);
    EXPECT_EQ(errors(), 2);
    pws::comt2(1000.011, 800.0);
    EXPECT_EQ(errors(), 3);
    pws::comt3(0.00879, 590.0);
    EXPECT_EQ(errors(), 3);
    pws::comt3(0.0089, 349.99);
    EXPECT_EQ(errors(), 5);  // one report per violated quantity
    EXPECT_EQ(records.back().line,
              " *** PWSFTN-ERROR: Out of range, V=  8.90000000E-03, T=  3.49990000E+02 ***");
}

TEST_F(SaturationTest, SameStateIsCheckedAndEvaluatedOnce) {
    const double v1 = pws::pws_c1(200.0, 352.0);
    const double h1 = pws::pws_d1(200.0, 352.0);
    EXPECT_EQ(errors(), 1);
    pws::pws_c2(100.0, 900.0);
    pws::pws_e2(100.0, 900.0);
    pws::pws_a3(0.01, 600.0);
    pws::pws_d3(0.01, 600.0);
    EXPECT_EQ(errors(), 1 + 1 + 2);
    // Another state in between: checked again.
    pws::pws_c1(100.0, 20.0);
    EXPECT_EQ(pws::pws_c1(200.0, 352.0), v1);
    EXPECT_EQ(pws::pws_d1(200.0, 352.0), h1);
    EXPECT_EQ(errors(), 5);
}

TEST_F(SaturationTest, NotANumberIsNeverTakenFromTheCache) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(std::isnan(pws::pws_c1(nan, 20.0)));
    EXPECT_TRUE(std::isnan(pws::pws_c1(nan, 20.0)));
    EXPECT_TRUE(std::isnan(pws::pws_d2(10.0, nan)));
    EXPECT_TRUE(std::isnan(pws::pws_a3(nan, 400.0)));
    EXPECT_GT(pws::pws_c1(1.0, 20.0), 0.0);
}

}  // namespace
