#include <gtest/gtest.h>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"
#include "if97/if97_state.hpp"
#include "if97/if97_transport.hpp"
#include "if97_csv.hpp"

namespace {
using if97_test::load_table;
using if97_test::Row;

class ViscosityTable : public testing::TestWithParam<Row> {};
TEST_P(ViscosityTable, MatchesReleaseDigits) {
    const Row& r = GetParam();
    const double mu = if97::viscosity(r.num("rho_kg_per_m3"), r.num("T_K"));
    EXPECT_NEAR(mu * 1e6, r.num("mu_uPa_s"), r.half_last_digit("mu_uPa_s"));
}
INSTANTIATE_TEST_SUITE_P(If97, ViscosityTable, testing::ValuesIn(load_table("visc2008_mu_rhoT.csv")));

class ConductivityTable : public testing::TestWithParam<Row> {};
TEST_P(ConductivityTable, BackgroundMatchesReleaseDigits) {
    const Row& r = GetParam();
    const double lambda = if97::conductivity_background(r.num("rho_kg_per_m3"), r.num("T_K"));
    EXPECT_NEAR(lambda * 1e3, r.num("lambda_mW_per_mK"), r.half_last_digit("lambda_mW_per_mK"));
}
INSTANTIATE_TEST_SUITE_P(If97, ConductivityTable,
                         testing::ValuesIn(load_table("thcond2011_lambda_rhoT.csv")));

// Industrial formulation: IF97 properties at (T, p) in regions 1 and 2, at
// (T, rho) in region 3, with the simplified critical enhancement.
class IndustrialConductivityTable : public testing::TestWithParam<Row> {};
TEST_P(IndustrialConductivityTable, MatchesReleaseDigits) {
    const Row& r = GetParam();
    const double t = r.num("T_K");
    const if97::Properties st = r.has("p_MPa") ? if97::state_pt(r.num("p_MPa"), t).state.props
                                               : if97::region3(r.num("rho_kg_per_m3"), t);
    const double lambda = if97::thermal_conductivity(st);
    EXPECT_NEAR(lambda * 1e3, r.num("lambda_mW_per_mK"), r.half_last_digit("lambda_mW_per_mK"));
}
INSTANTIATE_TEST_SUITE_P(If97, IndustrialConductivityTable,
                         testing::ValuesIn(load_table("thcond2011_industrial.csv")));

class SurfaceTensionTable : public testing::TestWithParam<Row> {};
TEST_P(SurfaceTensionTable, MatchesReleaseToTheTabulatedHundredthOfAMillinewton) {
    const Row& r = GetParam();
    EXPECT_NEAR(if97::surface_tension(r.num("T_K")) * 1e3, r.num("sigma_mN_per_m"), 0.005);
}
INSTANTIATE_TEST_SUITE_P(If97, SurfaceTensionTable,
                         testing::ValuesIn(load_table("surftens2014_sigma_T.csv")));

TEST(SurfaceTension, VanishesAtTheCriticalPointAndIsUndefinedBeyondTheSaturationLine) {
    EXPECT_EQ(if97::surface_tension(if97::critical_temperature), 0.0);
    EXPECT_TRUE(std::isnan(if97::surface_tension(if97::critical_temperature + 0.1)));
    EXPECT_TRUE(std::isnan(if97::surface_tension(270.0)));
    EXPECT_TRUE(std::isnan(if97::surface_tension(std::nan(""))));
}

}  // namespace
