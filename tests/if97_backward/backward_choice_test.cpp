// Sub-region choice of the backward equations on both sides of the lines
// that separate the sub-regions, and behaviour on NaN input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <map>
#include <string>

#include "if97/if97_backward.hpp"
#include "tests/if97/if97_csv.hpp"

namespace bw = if97::backward;
using if97_test::Row;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

using Fn2 = double (*)(double, double);
struct Chooser {
    Fn2 chosen;
    std::map<std::string, Fn2> named;
};

// Each point must get exactly the answer of the sub-region's own equation,
// on the line itself and on either side of it.
class SubregionChoice : public testing::TestWithParam<Row> {};
TEST_P(SubregionChoice, UsesTheEquationOfTheSideThePointIsOn) {
    const std::map<std::string, Chooser> choosers{
        {"t_ph_region2", {bw::t_ph_region2, {{"2a", bw::t_ph_region2a}, {"2b", bw::t_ph_region2b}, {"2c", bw::t_ph_region2c}}}},
        {"t_ps_region2", {bw::t_ps_region2, {{"2a", bw::t_ps_region2a}, {"2b", bw::t_ps_region2b}, {"2c", bw::t_ps_region2c}}}},
        {"p_hs_region2", {bw::p_hs_region2, {{"2a", bw::p_hs_region2a}, {"2b", bw::p_hs_region2b}, {"2c", bw::p_hs_region2c}}}},
        {"t_ph_region3", {bw::t_ph_region3, {{"3a", bw::t_ph_region3a}, {"3b", bw::t_ph_region3b}}}},
        {"v_ph_region3", {bw::v_ph_region3, {{"3a", bw::v_ph_region3a}, {"3b", bw::v_ph_region3b}}}},
        {"t_ps_region3", {bw::t_ps_region3, {{"3a", bw::t_ps_region3a}, {"3b", bw::t_ps_region3b}}}},
        {"v_ps_region3", {bw::v_ps_region3, {{"3a", bw::v_ps_region3a}, {"3b", bw::v_ps_region3b}}}},
        {"p_hs_region3", {bw::p_hs_region3, {{"3a", bw::p_hs_region3a}, {"3b", bw::p_hs_region3b}}}}};
    const Row& r = GetParam();
    const Chooser& c = choosers.at(r.text("function"));
    const double a = r.num("a_MPa_or_kJ_per_kg");
    const double b = r.num("b_kJ_per_kg_or_kJ_per_kgK");
    EXPECT_EQ(c.chosen(a, b), c.named.at(r.text("subregion"))(a, b));
}
INSTANTIATE_TEST_SUITE_P(Rows, SubregionChoice,
                         testing::ValuesIn(if97_test::load_table("if97_backward/subregion_choice.csv")));

TEST(Region3Choice, SubregionsMeetContinuouslyAtTheirBoundaries) {
    // Equations of neighbouring sub-regions agree on the boundary within the
    // releases' consistency limits; a swapped table or shift breaks this.
    const double h = bw::h_3ab_p(50.0);
    EXPECT_NEAR(bw::t_ph_region3a(50.0, h), bw::t_ph_region3b(50.0, h), 0.05);
    EXPECT_NEAR(bw::v_ph_region3a(50.0, h) / bw::v_ph_region3b(50.0, h), 1.0, 1e-3);
    const double p = 30.0;
    const double t = bw::t_3cd_p(p);
    EXPECT_NEAR(bw::v_pt_region3('c', p, t) / bw::v_pt_region3('d', p, t), 1.0, 1e-3);
    const double t_ef = bw::t_3ef_p(p);
    EXPECT_NEAR(bw::v_pt_region3('e', p, t_ef) / bw::v_pt_region3('f', p, t_ef), 1.0, 1e-3);
}

TEST(Region3Vpt, AnswersNaNForAnUnknownSubregionLetter) {
    EXPECT_TRUE(std::isnan(bw::v_pt_region3('A', 50.0, 650.0)));
    EXPECT_TRUE(std::isnan(bw::v_pt_region3('{', 50.0, 650.0)));
    EXPECT_TRUE(std::isnan(bw::v_pt_region3('\0', 50.0, 650.0)));
}

TEST(BackwardEquations, PropagateNaNInput) {
    EXPECT_TRUE(std::isnan(bw::t_ph_region1(nan, 500.0)));
    EXPECT_TRUE(std::isnan(bw::t_ph_region2(nan, 3000.0)));
    EXPECT_TRUE(std::isnan(bw::t_ph_region2(10.0, nan)));
    EXPECT_TRUE(std::isnan(bw::t_ps_region2(10.0, nan)));
    EXPECT_TRUE(std::isnan(bw::p_hs_region2(nan, 7.0)));
    EXPECT_TRUE(std::isnan(bw::t_ph_region3(nan, 2000.0)));
    EXPECT_TRUE(std::isnan(bw::v_ps_region3(30.0, nan)));
    EXPECT_TRUE(std::isnan(bw::p_hs_region3(2000.0, nan)));
    EXPECT_TRUE(std::isnan(bw::tsat_hs(nan, 6.0)));
    EXPECT_TRUE(std::isnan(bw::v_pt_region3(nan, 650.0, 640.0)));
    EXPECT_TRUE(std::isnan(bw::v_pt_region3(30.0, nan, nan)));
}

}  // namespace
