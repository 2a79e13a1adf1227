// The backward equations against the forward equations over grids of
// states in each region: every backward value must lie within the
// consistency limits of its release, not only at the published points.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "if97/if97_backward.hpp"
#include "if97/if97_forward.hpp"

namespace bw = if97::backward;

namespace {

constexpr double t_tolerance = 0.025;  // K, regions 1, 2 and 3
constexpr double v3_tolerance = 1e-4;  // relative, v(p,h), v(p,s) and p(h,s) of region 3
constexpr double p2_hs_tolerance = 1e-4;  // relative, p(h,s) of region 2
constexpr double p1_hs_tolerance = 0.015;  // MPa, p(h,s) of region 1
constexpr double t_623 = 623.15;
constexpr double t_873 = 863.15;

TEST(BackwardConsistency, Region1AgreesWithTheForwardEquation) {
    int checked = 0;
    for (double p : {0.001, 0.1, 1.0, 5.0, 16.5, 30.0, 60.0, 100.0}) {
        for (double t = 273.15; t <= t_623; t += 10.0) {
            if (p < if97::psat(t)) continue;
            const if97::Properties st = if97::region1(p, t);
            EXPECT_NEAR(bw::t_ph_region1(p, st.h), t, t_tolerance) << p << " MPa " << t << " K";
            EXPECT_NEAR(bw::t_ps_region1(p, st.s), t, t_tolerance) << p << " MPa " << t << " K";
            EXPECT_NEAR(bw::p_hs_region1(st.h, st.s), p, p1_hs_tolerance) << p << " MPa " << t << " K";
            ++checked;
        }
    }
    EXPECT_GT(checked, 150);
}

TEST(BackwardConsistency, Region2AgreesWithTheForwardEquation) {
    int checked = 0;
    for (double p : {0.001, 0.01, 0.1, 1.0, 3.9, 4.1, 6.0, 10.0, 16.0, 20.0, 40.0, 70.0, 100.0}) {
        const double t_low = p <= 16.5291643 ? if97::tsat(p) + 0.5 : if97::t_b23(p) + 0.5;
        for (double t = t_low; t <= 1073.15; t += 12.5) {
            const if97::Properties st = if97::region2(p, t);
            EXPECT_NEAR(bw::t_ph_region2(p, st.h), t, t_tolerance) << p << " MPa " << t << " K";
            EXPECT_NEAR(bw::t_ps_region2(p, st.s), t, t_tolerance) << p << " MPa " << t << " K";
            EXPECT_NEAR(bw::p_hs_region2(st.h, st.s) / p, 1.0, p2_hs_tolerance) << p << " MPa " << t << " K";
            ++checked;
        }
    }
    EXPECT_GT(checked, 500);
}

TEST(BackwardConsistency, Region3AgreesWithTheForwardEquation) {
    int checked = 0;
    for (double t = t_623 + 1.0; t < t_873; t += 7.0) {
        for (double rho = 40.0; rho <= 760.0; rho += 20.0) {
            // Below the critical temperature stay clear of the two-phase
            // dome (rho' >= 322, rho'' <= 322 kg/m3 there; the grid keeps
            // to compressed liquid and dilute vapour).
            if (t < 647.096 && rho > 110.0 && rho < 640.0) continue;
            const if97::Properties st = if97::region3(rho, t);
            const double p = st.p;
            if (p < if97::p_b23(t) || p > 100.0) continue;
            if (t < 647.096 && p < if97::psat(t)) continue;
            const std::string at = std::to_string(rho) + " kg/m3 " + std::to_string(t) + " K";
            EXPECT_NEAR(bw::t_ph_region3(p, st.h), t, t_tolerance) << at;
            EXPECT_NEAR(bw::v_ph_region3(p, st.h) * rho, 1.0, v3_tolerance) << at;
            EXPECT_NEAR(bw::t_ps_region3(p, st.s), t, t_tolerance) << at;
            EXPECT_NEAR(bw::v_ps_region3(p, st.s) * rho, 1.0, v3_tolerance) << at;
            EXPECT_NEAR(bw::p_hs_region3(st.h, st.s) / p, 1.0, v3_tolerance) << at;
            ++checked;
        }
    }
    EXPECT_GT(checked, 300);
}

TEST(BackwardConsistency, Region3VptAgreesWithTheForwardEquation) {
    // 1e-5 away from the critical point; 1e-3 in 21-23.5 MPa, 640-660 K.
    int checked = 0;
    for (double t = t_623 + 0.3; t < t_873; t += 1.7) {
        for (double rho = 60.0; rho <= 760.0; rho += 7.0) {
            const if97::Properties st = if97::region3(rho, t);
            const double p = st.p;
            if (p < if97::p_b23(t) || p > 100.0 || st.kappa <= 0.0) continue;
            const double ts = p < 22.064 ? if97::tsat(p) : 0.0;
            // Only states on their own side of the saturation line.
            if (p < 22.064 && ((t <= ts && rho < 322.0) || (t > ts && rho > 322.0))) continue;
            if (std::abs(p - 22.064) < 0.2 && std::abs(t - 647.096) < 1.0) continue;
            const bool near_critical = p > 21.0 && p < 23.5 && t > 640.0 && t < 660.0;
            EXPECT_NEAR(bw::v_pt_region3(p, t, ts) * rho, 1.0, near_critical ? 1e-3 : 1e-5)
                << rho << " kg/m3 " << t << " K " << p << " MPa, sub-region "
                << bw::subregion3_pt(p, t, ts);
            ++checked;
        }
    }
    EXPECT_GT(checked, 5000);
}

TEST(BackwardConsistency, TsatHsAgreesOnTheSaturationLine) {
    int checked = 0;
    for (double t = 273.16; t <= t_623; t += 5.0) {
        const double p = if97::psat(t);
        const if97::Properties liquid = if97::region1(p, t);
        const if97::Properties vapour = if97::region2(p, t);
        for (double x : {0.1, 0.4, 0.7, 1.0}) {
            const double h = liquid.h + x * (vapour.h - liquid.h);
            const double s = liquid.s + x * (vapour.s - liquid.s);
            if (s < 5.210887825) continue;
            EXPECT_NEAR(bw::tsat_hs(h, s), t, 0.002) << t << " K, x " << x;
            ++checked;
        }
    }
    EXPECT_GT(checked, 100);
}

}  // namespace
