// The pairs solved by a 2-D Newton ((p,h) and (p,s) in region 3, (h,s),
// (v,h), (v,s), (v,u)) against the forward equations, on states hugging
// every region boundary, where a start value from one region's backward
// equation or an extrapolated region equation could end on the wrong
// state; and the derivatives those iterations rely on.
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_solve.hpp"

namespace {

struct Point {
    double p;  // MPa
    double t;  // K
};

// States a little to either side of each boundary: 623.15 K (regions 1
// and 3), B23 (regions 2 and 3), 1073.15 K (regions 2 and 5), the
// saturation line in regions 1, 2 and 3, and around the critical point.
std::vector<Point> boundary_points() {
    std::vector<Point> pts;
    for (double p : {17.0, 25.0, 40.0, 70.0, 100.0}) {
        for (double d : {-0.3, 0.3}) pts.push_back({p, if97::t_region13 + d});
    }
    for (double p : {17.0, 22.0, 30.0, 50.0, 90.0}) {
        for (double d : {-0.5, 0.5}) pts.push_back({p, if97::t_b23(p) + d});
    }
    for (double p : {0.01, 1.0, 10.0, 30.0, 50.0}) {
        for (double d : {-0.5, 0.5}) pts.push_back({p, if97::t_max_region2 + d});
    }
    for (double p : {0.001, 0.1, 5.0, 15.0, 17.0, 19.0, 21.0, 21.9}) {
        for (double d : {-0.2, 0.2}) pts.push_back({p, if97::tsat(p) + d});
    }
    for (double d : {-2.0, 2.0}) pts.push_back({if97::critical_pressure + 1.0, if97::critical_temperature + d});
    return pts;
}

class DirectPairs : public testing::TestWithParam<Point> {};

TEST_P(DirectPairs, EveryPairGivesBackTheStateInItsRegion) {
    const auto [p, t] = GetParam();
    const if97::StateResult ref = if97::state_pt(p, t);
    ASSERT_EQ(ref.error, if97::Error::none);
    const if97::Properties& st = ref.state.props;
    const double tt = 1e-9 * t;
    // Pressure fixed by a volume or by (h, s) of a stiff liquid is known
    // only to the resolution of that quantity.
    const double tp = 1e-9 * p + 1e-11 / st.kappa + 1e-11 * (std::fabs(st.h) + 1.0) / (st.v * 1e3);
    auto check = [&](const char* pair, const if97::StateResult& got) {
        ASSERT_EQ(got.error, if97::Error::none) << pair;
        EXPECT_EQ(got.state.region, ref.state.region) << pair;
        EXPECT_NEAR(got.state.props.t, t, tt) << pair;
        EXPECT_NEAR(got.state.props.p, p, tp) << pair;
        EXPECT_NEAR(got.state.props.h, st.h, 1e-9 * (std::fabs(st.h) + 1.0)) << pair;
    };
    check("ph", if97::state_ph(p, st.h));
    check("ps", if97::state_ps(p, st.s));
    check("hs", if97::state_hs(st.h, st.s));
    check("vh", if97::state_vh(st.v, st.h));
    check("vs", if97::state_vs(st.v, st.s));
    check("vu", if97::state_vu(st.v, st.u));
}
INSTANTIATE_TEST_SUITE_P(RegionBoundaries, DirectPairs, testing::ValuesIn(boundary_points()));

// Wet states have no single-phase solution: the direct iterations must
// reject their metastable or extrapolated roots and leave the mixture to
// the saturation line.
TEST(DirectPairs, WetStatesStayWetWithTheirQuality) {
    for (double t : {300.0, 450.0, 600.0, 630.0, 645.0}) {
        for (double x : {0.05, 0.5, 0.95}) {
            const if97::StateResult ref = if97::state_tx(t, x);
            ASSERT_EQ(ref.error, if97::Error::none);
            const if97::Properties& st = ref.state.props;
            const if97::StateResult got[] = {
                if97::state_ph(st.p, st.h), if97::state_ps(st.p, st.s), if97::state_hs(st.h, st.s),
                if97::state_vh(st.v, st.h), if97::state_vs(st.v, st.s), if97::state_vu(st.v, st.u)};
            for (const if97::StateResult& r : got) {
                ASSERT_EQ(r.error, if97::Error::none) << t << " K, x = " << x;
                EXPECT_EQ(r.state.region, 4) << t << " K, x = " << x;
                EXPECT_NEAR(r.state.props.t, t, 1e-8 * t) << t << " K, x = " << x;
                EXPECT_NEAR(r.state.x, x, 1e-7) << t << " K, x = " << x;
            }
        }
    }
}

// Pairs with no state in the range still end with the bound they cross.
TEST(DirectPairs, PairsOutsideTheRangeNameTheirBound) {
    EXPECT_EQ(if97::state_vh(1e-4, 500.0).error, if97::Error::p_above_max);
    EXPECT_EQ(if97::state_vh(1e6, 2500.0).error, if97::Error::p_below_min);
    EXPECT_NE(if97::state_hs(9000.0, 6.0).error, if97::Error::none);
    EXPECT_EQ(if97::state_vu(0.001, std::nan("")).error, if97::Error::not_finite);
}

// d/drho at constant T and d/dT at constant rho of p, h, s, u in region 3
// against central differences of the Helmholtz equation.
TEST(Region3Derivatives, MatchCentralDifferences) {
    for (const auto& [rho, t] : {std::pair{500.0, 650.0}, std::pair{200.0, 750.0}, std::pair{700.0, 630.0}}) {
        const if97::Properties st = if97::region3(rho, t);
        const double dr = 1e-4 * rho;
        const double dt = 1e-4 * t;
        const if97::Properties r_up = if97::region3(rho + dr, t);
        const if97::Properties r_dn = if97::region3(rho - dr, t);
        const if97::Properties t_up = if97::region3(rho, t + dt);
        const if97::Properties t_dn = if97::region3(rho, t - dt);
        auto d = [](double up, double dn, double step) { return (up - dn) / (2.0 * step); };
        auto near = [](double got, double want) { EXPECT_NEAR(got, want, 1e-6 * std::fabs(want) + 1e-12); };
        near(if97::dp_drho_t(st), d(r_up.p, r_dn.p, dr));
        near(if97::dp_dt_rho(st), d(t_up.p, t_dn.p, dt));
        near(if97::dh_drho_t(st), d(r_up.h, r_dn.h, dr));
        near(if97::dh_dt_rho(st), d(t_up.h, t_dn.h, dt));
        near(if97::ds_drho_t(st), d(r_up.s, r_dn.s, dr));
        near(if97::ds_dt_rho(st), d(t_up.s, t_dn.s, dt));
        near(if97::du_drho_t(st), d(r_up.u, r_dn.u, dr));
        near(if97::du_dt_rho(st), d(t_up.u, t_dn.u, dt));
    }
}

// The light isobar evaluations give the full equations' h, s and cp, and
// dcp/dT as the difference of cp.
TEST(IsobarEvaluation, AgreesWithTheFullGibbsEquations) {
    struct Case {
        if97::Isobar (*light)(double, double);
        if97::Properties (*full)(double, double);
        double p;
        double t;
    };
    const Case cases[] = {{if97::region1_isobar, if97::region1, 3.0, 300.0},
                          {if97::region1_isobar, if97::region1, 80.0, 600.0},
                          {if97::region2_isobar, if97::region2, 0.0035, 700.0},
                          {if97::region2_isobar, if97::region2, 30.0, 800.0}};
    for (const Case& c : cases) {
        const if97::Isobar got = c.light(c.p, c.t);
        const if97::Properties want = c.full(c.p, c.t);
        EXPECT_NEAR(got.h, want.h, 1e-12 * std::fabs(want.h));
        EXPECT_NEAR(got.s, want.s, 1e-12 * std::fabs(want.s));
        EXPECT_NEAR(got.cp, want.cp, 1e-12 * want.cp);
        const double dt = 1e-4 * c.t;
        const double diff = (c.full(c.p, c.t + dt).cp - c.full(c.p, c.t - dt).cp) / (2.0 * dt);
        EXPECT_NEAR(got.dcp_dt, diff, 1e-6 * std::fabs(diff) + 1e-12) << c.p << " MPa " << c.t << " K";
    }
}

}  // namespace
