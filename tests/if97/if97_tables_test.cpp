// Every verification table of the releases, each row reproduced to the
// digits printed; then the boundaries and limits of the forward equations.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_state.hpp"
#include "if97/if97_transport.hpp"
#include "if97_csv.hpp"

namespace {
using if97_test::Row;
using if97_test::Compute;
using if97_test::Out;
using Outputs = std::vector<Out>;

Outputs props(const if97::Properties& st) {
    return {{"v_m3_per_kg", st.v}, {"h_kJ_per_kg", st.h}, {"u_kJ_per_kg", st.u}, {"s_kJ_per_kgK", st.s},
            {"cp_kJ_per_kgK", st.cp}, {"w_m_per_s", st.w}, {"p_MPa", st.p}};
}
Compute pt(if97::Properties (*f)(double, double)) {
    return [f](const Row& r) { return props(f(r.num("p_MPa"), r.num("T_K"))); };
}

std::vector<if97_test::Case> tables() {
    const std::map<std::string, Compute> tables{
        {"if97_region1_pT.csv", pt(if97::region1)},
        {"if97_region2_pT.csv", pt(if97::region2)},
        {"if97_region2_metastable_pT.csv", pt(if97::region2_metastable)},
        {"if97_region5_pT.csv", pt(if97::region5)},
        // Region 3 from (rho, T), and its density found again from (p, T).
        {"if97_region3_rhoT.csv",
         [](const Row& r) {
             Outputs o = props(if97::region3(r.num("rho_kg_per_m3"), r.num("T_K")));
             o.push_back({"rho_kg_per_m3", if97::region3_density(r.num("p_MPa"), r.num("T_K")),
                          1e-6 * r.num("rho_kg_per_m3")});
             return o;
         }},
        {"if97_region4_psat_T.csv", [](const Row& r) { return Outputs{{"psat_MPa", if97::psat(r.num("T_K"))}}; }},
        {"if97_region4_Tsat_p.csv", [](const Row& r) { return Outputs{{"Tsat_K", if97::tsat(r.num("p_MPa"))}}; }},
        {"if97_b23_pT.csv",
         [](const Row& r) {
             return Outputs{{"p_MPa", if97::p_b23(r.num("T_K"))}, {"T_K", if97::t_b23(r.num("p_MPa"))}};
         }},
        {"visc2008_mu_rhoT.csv",
         [](const Row& r) {
             return Outputs{{"mu_uPa_s", 1e6 * if97::viscosity(r.num("rho_kg_per_m3"), r.num("T_K"))}};
         }},
        {"thcond2011_lambda_rhoT.csv",
         [](const Row& r) {
             const double l = if97::conductivity_background(r.num("rho_kg_per_m3"), r.num("T_K"));
             return Outputs{{"lambda_mW_per_mK", 1e3 * l}};
         }},
        // Industrial formulation: IF97 properties at (T, p) in regions 1 and
        // 2, at (T, rho) in region 3, with the simplified critical enhancement.
        {"thcond2011_industrial.csv",
         [](const Row& r) {
             const double t = r.num("T_K");
             const if97::Properties st = r.has("p_MPa") ? if97::state_pt(r.num("p_MPa"), t).state.props
                                                        : if97::region3(r.num("rho_kg_per_m3"), t);
             return Outputs{{"lambda_mW_per_mK", 1e3 * if97::thermal_conductivity(st)}};
         }},
        {"surftens2014_sigma_T.csv",
         [](const Row& r) { return Outputs{{"sigma_mN_per_m", 1e3 * if97::surface_tension(r.num("T_K"))}}; }}};
    return if97_test::cases("if97/", tables);
}

class VerificationTable : public testing::TestWithParam<if97_test::Case> {};
TEST_P(VerificationTable, RowIsReproducedToItsPrintedDigits) { if97_test::expect_row(GetParam()); }
INSTANTIATE_TEST_SUITE_P(If97, VerificationTable, testing::ValuesIn(tables()));

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

// Regions on either side of each boundary, and states outside the range
// with the bound they cross.
TEST(RegionSelection, ChoosesTheRegionOrNamesTheBoundCrossed) {
    struct Pick {
        double p, t;
        int region;
        if97::Error error;
    };
    const Pick picks[] = {
        {50.0, 623.15, 1, if97::Error::none},
        {50.0, 623.16, 3, if97::Error::none},
        {50.0, if97::t_b23(50.0) - 0.01, 3, if97::Error::none},
        {50.0, if97::t_b23(50.0) + 0.01, 2, if97::Error::none},
        {1.0, if97::tsat(1.0) - 0.01, 1, if97::Error::none},
        {1.0, if97::tsat(1.0) + 0.01, 2, if97::Error::none},
        {50.0, 1073.15, 2, if97::Error::none},
        {50.0, 1073.16, 5, if97::Error::none},
        {0.0003, 273.15, 2, if97::Error::none},  // below the triple-point pressure
        {1.0, 273.0, 0, if97::Error::t_below_min},
        {100.1, 300.0, 0, if97::Error::p_above_max},
        {50.1, 1100.0, 0, if97::Error::t_above_max},
        {1.0, 2273.2, 0, if97::Error::t_above_max},
        {0.0, 300.0, 0, if97::Error::p_below_min},
        {std::nan(""), 300.0, 0, if97::Error::not_finite}};
    for (const Pick& k : picks) {
        if97::Error e = if97::Error::none;
        EXPECT_EQ(if97::region_pt(k.p, k.t, e), k.region) << k.p << " MPa " << k.t << " K";
        EXPECT_EQ(e, k.error) << k.p << " MPa " << k.t << " K";
    }
}

TEST(SurfaceTension, VanishesAtTheCriticalPointAndIsUndefinedBeyondTheSaturationLine) {
    EXPECT_EQ(if97::surface_tension(if97::critical_temperature), 0.0);
    EXPECT_TRUE(std::isnan(if97::surface_tension(if97::critical_temperature + 0.1)));
    EXPECT_TRUE(std::isnan(if97::surface_tension(270.0)));
    EXPECT_TRUE(std::isnan(if97::surface_tension(std::nan(""))));
}

}  // namespace
