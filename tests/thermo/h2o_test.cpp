// Condensing water "H2O(IF)": the IF97 gateway, the condensed fraction, the
// branches at 273.16 K and 1073.15 K, and the gas fraction of humid mixtures.
#include "thermo/od_h2o.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace w = od::h2o;
using od::thermodyn::x_gas;

class If97States : public TableTest {};

TEST_P(If97States, GatewayConvertsUnitsBothWays) {
    const CsvRow& r = GetParam();
    const double p = r.num("p_Pa"), t = r.num("T_K");
    if (r["kind"] == "sub") {  // Intended quirk: the sublimation pressure is scaled by the bar factor too
        EXPECT_NEAR(w::h2o('T', t, 'X', 0.5, "P."), 1e5 * p, 2e-3 * 1e5 * p);
        return;
    }
    if (r["kind"] == "Tx") {
        EXPECT_NEAR(w::h2o('T', t, 'X', 0.5, "P."), p, 1e-8 * p);
        return;
    }
    const bool pt = r["kind"] == "pT";
    for (const auto& [prop, col] : {std::pair{"H.", "h_J_per_kg"}, std::pair{"S.", "s_J_per_kgK"},
                                    std::pair{"CP.", "cp_J_per_kgK"}, std::pair{"V.", "v_m3_per_kg"}})
        EXPECT_NEAR(w::h2o('P', p, pt ? 'T' : 'X', pt ? t : r.num("x"), prop), r.num(col), 1e-8 * std::fabs(r.num(col)) + 1e-9) << prop;
}

INSTANTIATE_TEST_SUITE_P(Table, If97States, ::testing::ValuesIn(table("if97_water.csv")), row_name);

class WaterStates : public TableTest {};

TEST_P(WaterStates, SplitIntoIf97VapourAndCondensate) {
    const CsvRow& r = GetParam();
    const double xw = r.num("xw"), p = r.num("p_Pa"), t = r.num("T_K");
    const Part e = water(xw, p, t, r["vapour"], r["liquid"]);
    EXPECT_NEAR(w::h_h2o(xw, p, t), e.h, 1e-8 * std::fabs(e.h));
    EXPECT_NEAR(w::s_h2o(xw, p, t), e.s, 1e-8 * std::fabs(e.s));
    EXPECT_NEAR(w::cp_h2o(xw, p, t), e.cp, 1e-8 * std::fabs(e.cp));
    EXPECT_NEAR(w::v_h2o(xw, p, t), e.v, 1e-8 * std::fabs(e.v));
}

INSTANTIATE_TEST_SUITE_P(Table, WaterStates, ::testing::ValuesIn(table("water_states.csv")), row_name);

using Water = LoadedTable;

TEST_F(Water, SaturationPressureExistsOnlyBetweenOneKelvinAndTheCriticalPoint) {
    EXPECT_EQ(w::h2o('T', 647.1, 'X', 0.0, "P."), od::missing_value);
    EXPECT_EQ(w::h2o('T', inf, 'X', 0.0, "P."), od::missing_value);
    EXPECT_NEAR(w::h2o('T', 647.096, 'X', 0.0, "P."), 22.064e6, 1e3);
    // Intended quirk: a temperature of 0 K or less is evaluated at 1 K.
    EXPECT_EQ(w::h2o('T', -40.0, 'X', 0.0, "P."), w::h2o('T', 1.0, 'X', 0.0, "P."));
}

TEST_F(Water, GasFractionAtTheEdgesOfCondensation) {
    const double t = 303.15, psat = w::h2o('T', t, 'X', 0.0, "P.");
    const TestMix half("N2=0.5 H2O(IF)=0.5"), steam("H2O(IF)=1.2");
    EXPECT_EQ(x_gas(2.0 * psat, t, half.mix()), 1.0);  // y p == psat does not condense
    EXPECT_NEAR(x_gas(2.002 * psat, t, half.mix()), 0.5 / (1 - 1 / 2.002), 1e-12);
    EXPECT_EQ(x_gas(psat, t, steam.mix()), 1.2);  // psat == p does not condense
    EXPECT_TRUE(std::isfinite(od::thermodyn::h_pt(psat, t, steam.mix())));
    EXPECT_EQ(x_gas(1e8, 700.0, TestMix("N2=0.1 H2O(IF)=0.9").mix()), 1.0);  // above the critical point
}

TEST_F(Water, ReferenceCorrectionIsFixedByTheFirstCall) {
    const double first = w::h_h2o(1.0, 1e5, 303.15), cp = w::cp_h2o(1.0, 1e5, 303.15);
    EXPECT_NEAR(first, water(1.0, 1e5, 303.15, "", "liquid_1bar_30C").h, 1e-6);
    // A table that loses its "H2O" row afterwards leaves the correction as it was,
    od::fluiddata::reset_for_tests();
    EXPECT_EQ(w::h_h2o(1.0, 1e5, 303.15), first);
    // while cp takes the molar mass afresh on every call.
    EXPECT_NE(w::cp_h2o(1.0, 1e5, 303.15), cp);
}

}  // namespace
