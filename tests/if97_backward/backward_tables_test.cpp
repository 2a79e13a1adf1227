// The backward equations against the check values published with them:
// every row of every table reproduced to the digits printed.
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

#include "if97/if97_backward.hpp"
#include "tests/if97_backward/csv_rows.hpp"

namespace bw = if97::backward;
using if97_test::half_last_digit;
using if97_test::read_rows;
using if97_test::Row;

namespace {

class RowTest : public ::testing::TestWithParam<Row> {};

// Expects `actual` to equal the table's column to half a unit in its last
// printed digit.
void expect_digits(double actual, const Row& row, const std::string& column) {
    EXPECT_NEAR(actual, row.value(column), half_last_digit(row.text(column)))
        << row << " column " << column;
}

#define BACKWARD_TABLE(Suite, file)                                                    \
    class Suite : public RowTest {};                                                   \
    INSTANTIATE_TEST_SUITE_P(Rows, Suite, ::testing::ValuesIn(read_rows("if97_backward", file)))

using Fn1 = std::function<double(double)>;
using Fn2 = std::function<double(double, double)>;
using Named = std::map<std::string, Fn2>;

// Expects f of the row's input column(s) to reproduce its column `out`.
void expect_fn(const Row& r, const Fn1& f, const std::string& in, const std::string& out) {
    expect_digits(f(r.value(in)), r, out);
}
void expect_fn(const Row& r, const Fn2& f, const std::string& a, const std::string& b,
               const std::string& out) {
    expect_digits(f(r.value(a), r.value(b)), r, out);
}

// Expects both the equation of the sub-region the row names and the
// function that chooses the sub-region itself to reproduce column `out`.
void expect_named_and_chosen(const Row& r, const Named& named, const Fn2& chosen,
                             const std::string& a, const std::string& b, const std::string& out) {
    expect_fn(r, named.at(r.text("subregion")), a, b, out);
    expect_fn(r, chosen, a, b, out);
}

BACKWARD_TABLE(Region1Tph, "if97_region1_T_ph.csv");
TEST_P(Region1Tph, ReproducesCheckValue) {
    expect_fn(GetParam(), bw::t_ph_region1, "p_MPa", "h_kJ_per_kg", "T_K");
}

BACKWARD_TABLE(Region1Tps, "if97_region1_T_ps.csv");
TEST_P(Region1Tps, ReproducesCheckValue) {
    expect_fn(GetParam(), bw::t_ps_region1, "p_MPa", "s_kJ_per_kgK", "T_K");
}

BACKWARD_TABLE(B2bc, "if97_b2bc_ph.csv");
TEST_P(B2bc, ReproducesCheckValueInBothDirections) {
    expect_fn(GetParam(), bw::p_b2bc_h, "h_kJ_per_kg", "p_MPa");
    expect_fn(GetParam(), bw::h_b2bc_p, "p_MPa", "h_kJ_per_kg");
}

BACKWARD_TABLE(Region2Tph, "if97_region2_T_ph.csv");
TEST_P(Region2Tph, ReproducesCheckValueWithNamedAndChosenSubregion) {
    const Named named{{"2a", bw::t_ph_region2a}, {"2b", bw::t_ph_region2b}, {"2c", bw::t_ph_region2c}};
    expect_named_and_chosen(GetParam(), named, bw::t_ph_region2, "p_MPa", "h_kJ_per_kg", "T_K");
}

BACKWARD_TABLE(Region2Tps, "if97_region2_T_ps.csv");
TEST_P(Region2Tps, ReproducesCheckValueWithNamedAndChosenSubregion) {
    const Named named{{"2a", bw::t_ps_region2a}, {"2b", bw::t_ps_region2b}, {"2c", bw::t_ps_region2c}};
    expect_named_and_chosen(GetParam(), named, bw::t_ps_region2, "p_MPa", "s_kJ_per_kgK", "T_K");
}

BACKWARD_TABLE(Region1Phs, "supp_phs12_region1_p_hs.csv");
TEST_P(Region1Phs, ReproducesCheckValue) {
    expect_fn(GetParam(), bw::p_hs_region1, "h_kJ_per_kg", "s_kJ_per_kgK", "p_MPa");
}

BACKWARD_TABLE(Region2Phs, "supp_phs12_region2_p_hs.csv");
TEST_P(Region2Phs, ReproducesCheckValueWithNamedAndChosenSubregion) {
    const Named named{{"2a", bw::p_hs_region2a}, {"2b", bw::p_hs_region2b}, {"2c", bw::p_hs_region2c}};
    expect_named_and_chosen(GetParam(), named, bw::p_hs_region2, "h_kJ_per_kg", "s_kJ_per_kgK", "p_MPa");
}

BACKWARD_TABLE(H2ab, "supp_phs12_h2ab_s.csv");
TEST_P(H2ab, ReproducesCheckValue) { expect_fn(GetParam(), bw::h_2ab_s, "s_kJ_per_kgK", "h_kJ_per_kg"); }

BACKWARD_TABLE(Region3Tvph, "supp_tv3_region3_Tv_ph.csv");
TEST_P(Region3Tvph, ReproducesCheckValuesWithNamedAndChosenSubregion) {
    const Named t{{"3a", bw::t_ph_region3a}, {"3b", bw::t_ph_region3b}};
    const Named v{{"3a", bw::v_ph_region3a}, {"3b", bw::v_ph_region3b}};
    expect_named_and_chosen(GetParam(), t, bw::t_ph_region3, "p_MPa", "h_kJ_per_kg", "T_K");
    expect_named_and_chosen(GetParam(), v, bw::v_ph_region3, "p_MPa", "h_kJ_per_kg", "v_m3_per_kg");
}

BACKWARD_TABLE(Region3Tvps, "supp_tv3_region3_Tv_ps.csv");
TEST_P(Region3Tvps, ReproducesCheckValuesWithNamedAndChosenSubregion) {
    const Named t{{"3a", bw::t_ps_region3a}, {"3b", bw::t_ps_region3b}};
    const Named v{{"3a", bw::v_ps_region3a}, {"3b", bw::v_ps_region3b}};
    expect_named_and_chosen(GetParam(), t, bw::t_ps_region3, "p_MPa", "s_kJ_per_kgK", "T_K");
    expect_named_and_chosen(GetParam(), v, bw::v_ps_region3, "p_MPa", "s_kJ_per_kgK", "v_m3_per_kg");
}

BACKWARD_TABLE(H3ab, "supp_tv3_h3ab_p.csv");
TEST_P(H3ab, ReproducesCheckValue) { expect_fn(GetParam(), bw::h_3ab_p, "p_MPa", "h_kJ_per_kg"); }

BACKWARD_TABLE(P3satH, "supp_tv3_psat_h.csv");
TEST_P(P3satH, ReproducesCheckValue) { expect_fn(GetParam(), bw::p_3sat_h, "h_kJ_per_kg", "psat_MPa"); }

BACKWARD_TABLE(P3satS, "supp_tv3_psat_s.csv");
TEST_P(P3satS, ReproducesCheckValue) { expect_fn(GetParam(), bw::p_3sat_s, "s_kJ_per_kgK", "psat_MPa"); }

BACKWARD_TABLE(Region3Phs, "supp_phs3_region3_p_hs.csv");
TEST_P(Region3Phs, ReproducesCheckValueWithNamedAndChosenSubregion) {
    const Named named{{"3a", bw::p_hs_region3a}, {"3b", bw::p_hs_region3b}};
    expect_named_and_chosen(GetParam(), named, bw::p_hs_region3, "h_kJ_per_kg", "s_kJ_per_kgK", "p_MPa");
}

BACKWARD_TABLE(BoundariesHs, "supp_phs3_boundaries_h_s.csv");
TEST_P(BoundariesHs, ReproducesCheckValue) {
    const Row& r = GetParam();
    const std::map<std::string, Fn1> boundary{
        {"h1_sat_liquid", bw::h_1_liquid_s},       {"h3a_sat_liquid", bw::h_3a_liquid_s},
        {"h2ab_sat_vapour", bw::h_2ab_vapour_s},   {"h2c3b_sat_vapour", bw::h_2c3b_vapour_s},
        {"hB13", bw::h_b13_s}};
    expect_fn(r, boundary.at(r.text("boundary")), "s_kJ_per_kgK", "h_kJ_per_kg");
}

BACKWARD_TABLE(TB23hs, "supp_phs3_TB23_hs.csv");
TEST_P(TB23hs, ReproducesCheckValue) {
    expect_fn(GetParam(), bw::t_b23_hs, "h_kJ_per_kg", "s_kJ_per_kgK", "T_K");
}

BACKWARD_TABLE(TsatHs, "supp_phs3_region4_Tsat_hs.csv");
TEST_P(TsatHs, ReproducesCheckValue) {
    expect_fn(GetParam(), bw::tsat_hs, "h_kJ_per_kg", "s_kJ_per_kgK", "Tsat_K");
}

BACKWARD_TABLE(Vpt3Boundaries, "supp_vpt3_boundaries_T_p.csv");
TEST_P(Vpt3Boundaries, ReproducesCheckValue) {
    const Row& r = GetParam();
    const std::map<std::string, Fn1> boundary{
        {"ab", bw::t_3ab_p}, {"cd", bw::t_3cd_p}, {"ef", bw::t_3ef_p}, {"gh", bw::t_3gh_p},
        {"ij", bw::t_3ij_p}, {"jk", bw::t_3jk_p}, {"mn", bw::t_3mn_p}, {"op", bw::t_3op_p},
        {"qu", bw::t_3qu_p}, {"rx", bw::t_3rx_p}, {"uv", bw::t_3uv_p}, {"wx", bw::t_3wx_p}};
    expect_fn(r, boundary.at(r.text("boundary")), "p_MPa", "T_K");
}

BACKWARD_TABLE(Vpt3, "supp_vpt3_region3_v_pT.csv");
TEST_P(Vpt3, ReproducesCheckValueOfNamedSubregion) {
    const Row& r = GetParam();
    const char letter = r.text("subregion").at(1);
    expect_digits(bw::v_pt_region3(letter, r.value("p_MPa"), r.value("T_K")), r, "v_m3_per_kg");
}

BACKWARD_TABLE(Vpt3Choice, "vpt3_subregion_choice.csv");
TEST_P(Vpt3Choice, PicksTheSubregionOfTheBandAndBoundaries) {
    const Row& r = GetParam();
    const char chosen = bw::subregion3_pt(r.value("p_MPa"), r.value("T_K"), r.value("Tsat_K"));
    EXPECT_EQ(std::string(1, chosen), r.text("subregion")) << r << " (" << r.text("case") << ")";
}

}  // namespace
