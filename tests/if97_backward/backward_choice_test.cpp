// Sub-region choice of the backward equations on both sides of the lines
// that separate the sub-regions, and behaviour on NaN input.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "if97/if97_backward.hpp"

namespace bw = if97::backward;

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double eps = 1e-6;

TEST(Region2Choice, UsesSubregion2aUpToFourMegapascal) {
    EXPECT_EQ(bw::t_ph_region2(4.0, 3000.0), bw::t_ph_region2a(4.0, 3000.0));
    EXPECT_EQ(bw::t_ps_region2(4.0, 5.9), bw::t_ps_region2a(4.0, 5.9));
    EXPECT_EQ(bw::t_ph_region2(4.0 + eps, 3000.0), bw::t_ph_region2b(4.0 + eps, 3000.0));
    EXPECT_EQ(bw::t_ps_region2(4.0 + eps, 6.0), bw::t_ps_region2b(4.0 + eps, 6.0));
}

TEST(Region2Choice, UsesSubregion2bBelowTheStartOfB2bc) {
    // B2bc starts at 6.5467 MPa; from 4 MPa up to there every state is 2b,
    // including enthalpies below the 2778.27 kJ/kg of the B2bc start.
    EXPECT_EQ(bw::t_ph_region2(5.0, 2790.0), bw::t_ph_region2b(5.0, 2790.0));
    EXPECT_EQ(bw::t_ph_region2(6.5, 2780.0), bw::t_ph_region2b(6.5, 2780.0));
}

TEST(Region2Choice, SplitsAtB2bcAbove6Point5Megapascal) {
    for (double p : {10.0, 40.0, 90.0}) {
        const double h = bw::h_b2bc_p(p);
        EXPECT_EQ(bw::t_ph_region2(p, h + eps), bw::t_ph_region2b(p, h + eps)) << p;
        EXPECT_EQ(bw::t_ph_region2(p, h - eps), bw::t_ph_region2c(p, h - eps)) << p;
    }
}

TEST(Region2Choice, SplitsTpsAtEntropy5Point85) {
    EXPECT_EQ(bw::t_ps_region2(20.0, 5.85), bw::t_ps_region2b(20.0, 5.85));
    EXPECT_EQ(bw::t_ps_region2(20.0, 5.85 - eps), bw::t_ps_region2c(20.0, 5.85 - eps));
}

TEST(Region2Choice, SplitsPhsAtH2abThenAtEntropy5Point85) {
    for (double s : {6.0, 7.0, 8.5}) {
        const double h = bw::h_2ab_s(s);
        EXPECT_EQ(bw::p_hs_region2(h - eps, s), bw::p_hs_region2a(h - eps, s)) << s;
        EXPECT_EQ(bw::p_hs_region2(h + eps, s), bw::p_hs_region2b(h + eps, s)) << s;
    }
    EXPECT_EQ(bw::p_hs_region2(3000.0, 5.85), bw::p_hs_region2b(3000.0, 5.85));
    EXPECT_EQ(bw::p_hs_region2(3000.0, 5.85 - eps), bw::p_hs_region2c(3000.0, 5.85 - eps));
}

TEST(Region3Choice, SplitsPhAtH3ab) {
    for (double p : {25.0, 50.0, 100.0}) {
        const double h = bw::h_3ab_p(p);
        EXPECT_EQ(bw::t_ph_region3(p, h), bw::t_ph_region3a(p, h)) << p;
        EXPECT_EQ(bw::v_ph_region3(p, h), bw::v_ph_region3a(p, h)) << p;
        EXPECT_EQ(bw::t_ph_region3(p, h + eps), bw::t_ph_region3b(p, h + eps)) << p;
        EXPECT_EQ(bw::v_ph_region3(p, h + eps), bw::v_ph_region3b(p, h + eps)) << p;
    }
}

TEST(Region3Choice, SplitsPsAndHsAtTheCriticalEntropy) {
    const double sc = bw::s_crit;
    EXPECT_EQ(bw::t_ps_region3(30.0, sc), bw::t_ps_region3a(30.0, sc));
    EXPECT_EQ(bw::v_ps_region3(30.0, sc), bw::v_ps_region3a(30.0, sc));
    EXPECT_EQ(bw::t_ps_region3(30.0, sc + eps), bw::t_ps_region3b(30.0, sc + eps));
    EXPECT_EQ(bw::v_ps_region3(30.0, sc + eps), bw::v_ps_region3b(30.0, sc + eps));
    EXPECT_EQ(bw::p_hs_region3(2100.0, sc), bw::p_hs_region3a(2100.0, sc));
    EXPECT_EQ(bw::p_hs_region3(2100.0, sc + eps), bw::p_hs_region3b(2100.0, sc + eps));
}

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
