#include <gtest/gtest.h>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_state.hpp"
#include "if97_csv.hpp"

namespace {
using if97_test::load_table;
using if97_test::Row;

// Compares one property with a table cell to half a unit in its last digit.
void expect_cell(const Row& row, const std::string& col, double value) {
    if (!row.has(col)) return;
    EXPECT_NEAR(value, row.num(col), row.half_last_digit(col)) << col;
}

void expect_properties(const Row& row, const if97::Properties& st) {
    expect_cell(row, "v_m3_per_kg", st.v);
    expect_cell(row, "h_kJ_per_kg", st.h);
    expect_cell(row, "u_kJ_per_kg", st.u);
    expect_cell(row, "s_kJ_per_kgK", st.s);
    expect_cell(row, "cp_kJ_per_kgK", st.cp);
    expect_cell(row, "w_m_per_s", st.w);
    expect_cell(row, "p_MPa", st.p);
}

class Region1Table : public testing::TestWithParam<Row> {};
TEST_P(Region1Table, MatchesReleaseDigits) {
    expect_properties(GetParam(), if97::region1(GetParam().num("p_MPa"), GetParam().num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, Region1Table, testing::ValuesIn(load_table("if97_region1_pT.csv")));

class Region2Table : public testing::TestWithParam<Row> {};
TEST_P(Region2Table, MatchesReleaseDigits) {
    expect_properties(GetParam(), if97::region2(GetParam().num("p_MPa"), GetParam().num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, Region2Table, testing::ValuesIn(load_table("if97_region2_pT.csv")));

class MetastableTable : public testing::TestWithParam<Row> {};
TEST_P(MetastableTable, MatchesReleaseDigits) {
    const Row& r = GetParam();
    expect_properties(r, if97::region2_metastable(r.num("p_MPa"), r.num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, MetastableTable,
                         testing::ValuesIn(load_table("if97_region2_metastable_pT.csv")));

class Region3Table : public testing::TestWithParam<Row> {};
TEST_P(Region3Table, MatchesReleaseDigits) {
    const Row& r = GetParam();
    expect_properties(r, if97::region3(r.num("rho_kg_per_m3"), r.num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, Region3Table, testing::ValuesIn(load_table("if97_region3_rhoT.csv")));

// The same rows from (p, T): the density iteration must find the release's
// density again.
TEST_P(Region3Table, DensityFromPressureAndTemperatureReturnsTheTabulatedDensity) {
    const Row& r = GetParam();
    const double rho = if97::region3_density(r.num("p_MPa"), r.num("T_K"));
    EXPECT_NEAR(rho, r.num("rho_kg_per_m3"), 1e-6 * r.num("rho_kg_per_m3"));
}

class Region5Table : public testing::TestWithParam<Row> {};
TEST_P(Region5Table, MatchesReleaseDigits) {
    expect_properties(GetParam(), if97::region5(GetParam().num("p_MPa"), GetParam().num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, Region5Table, testing::ValuesIn(load_table("if97_region5_pT.csv")));

class SaturationPressureTable : public testing::TestWithParam<Row> {};
TEST_P(SaturationPressureTable, MatchesReleaseDigits) {
    expect_cell(GetParam(), "psat_MPa", if97::psat(GetParam().num("T_K")));
}
INSTANTIATE_TEST_SUITE_P(If97, SaturationPressureTable,
                         testing::ValuesIn(load_table("if97_region4_psat_T.csv")));

class SaturationTemperatureTable : public testing::TestWithParam<Row> {};
TEST_P(SaturationTemperatureTable, MatchesReleaseDigits) {
    expect_cell(GetParam(), "Tsat_K", if97::tsat(GetParam().num("p_MPa")));
}
INSTANTIATE_TEST_SUITE_P(If97, SaturationTemperatureTable,
                         testing::ValuesIn(load_table("if97_region4_Tsat_p.csv")));

class B23Table : public testing::TestWithParam<Row> {};
TEST_P(B23Table, MatchesReleaseDigitsBothWays) {
    const Row& r = GetParam();
    expect_cell(r, "p_MPa", if97::p_b23(r.num("T_K")));
    expect_cell(r, "T_K", if97::t_b23(r.num("p_MPa")));
}
INSTANTIATE_TEST_SUITE_P(If97, B23Table, testing::ValuesIn(load_table("if97_b23_pT.csv")));

TEST(Saturation, PressureAndTemperatureEquationsInvertEachOther) {
    for (double t = 273.15; t < 647.096; t += 7.3) {
        EXPECT_NEAR(if97::tsat(if97::psat(t)), t, 1e-9) << t;
    }
}

TEST(Saturation, Region3PhasesLieOnEitherSideOfTheCriticalDensityUpToTheCriticalPoint) {
    for (double t : {623.16, 630.0, 640.0, 645.0, 647.0, 647.09, 647.0959}) {
        const double p = if97::psat(t);
        const if97::Saturation sat = if97::saturation(p, t);
        ASSERT_TRUE(sat.ok) << t;
        EXPECT_GT(sat.liquid.rho, if97::critical_density) << t;
        EXPECT_LT(sat.vapour.rho, if97::critical_density) << t;
        EXPECT_NEAR(sat.liquid.p, p, 1e-12 * p);
        EXPECT_NEAR(if97::region3(sat.liquid.rho, t).p, p, 1e-11 * p) << t;
        EXPECT_NEAR(if97::region3(sat.vapour.rho, t).p, p, 1e-11 * p) << t;
    }
}

TEST(Saturation, Region3PhasesJoinRegions1And2AtTheirCornerWithinTheFormulationsConsistency) {
    const double t = 623.15;
    const double p = if97::psat(t);
    const if97::Saturation low = if97::saturation(p, t);
    const if97::Saturation high = if97::saturation(p, t + 1e-7);
    EXPECT_NEAR(low.liquid.h, high.liquid.h, 0.05);
    EXPECT_NEAR(low.vapour.h, high.vapour.h, 0.05);
}

TEST(RegionSelection, ChoosesRegionsOnEitherSideOfEachBoundary) {
    if97::Error e;
    EXPECT_EQ(if97::region_pt(50.0, 623.15, e), 1);
    EXPECT_EQ(if97::region_pt(50.0, 623.16, e), 3);
    EXPECT_EQ(if97::region_pt(50.0, if97::t_b23(50.0) - 0.01, e), 3);
    EXPECT_EQ(if97::region_pt(50.0, if97::t_b23(50.0) + 0.01, e), 2);
    EXPECT_EQ(if97::region_pt(1.0, if97::tsat(1.0) - 0.01, e), 1);
    EXPECT_EQ(if97::region_pt(1.0, if97::tsat(1.0) + 0.01, e), 2);
    EXPECT_EQ(if97::region_pt(50.0, 1073.15, e), 2);
    EXPECT_EQ(if97::region_pt(50.0, 1073.16, e), 5);
    EXPECT_EQ(if97::region_pt(0.0003, 273.15, e), 2);  // below the triple-point pressure
    EXPECT_EQ(e, if97::Error::none);
}

TEST(RegionSelection, RejectsStatesOutsideTheRangeNamingTheBound) {
    if97::Error e;
    EXPECT_EQ(if97::region_pt(1.0, 273.0, e), 0);
    EXPECT_EQ(e, if97::Error::t_below_min);
    EXPECT_EQ(if97::region_pt(100.1, 300.0, e), 0);
    EXPECT_EQ(e, if97::Error::p_above_max);
    EXPECT_EQ(if97::region_pt(50.1, 1100.0, e), 0);
    EXPECT_EQ(e, if97::Error::t_above_max);
    EXPECT_EQ(if97::region_pt(1.0, 2273.2, e), 0);
    EXPECT_EQ(e, if97::Error::t_above_max);
    EXPECT_EQ(if97::region_pt(0.0, 300.0, e), 0);
    EXPECT_EQ(e, if97::Error::p_below_min);
    EXPECT_EQ(if97::region_pt(std::nan(""), 300.0, e), 0);
    EXPECT_EQ(e, if97::Error::not_finite);
}

}  // namespace
