// Entry routine: check values of full states, the key list, wet states and
// their snapping, and the channel-13 messages.
#include <array>
#include <limits>

#include "pws_test_support.hpp"

namespace {

using pwstest::close;
using pwstest::load_table;
using pwstest::PackageTest;
using pwstest::Row;

constexpr double untouched = -12345.0;

std::array<double, 8> fresh() {
    std::array<double, 8> r;
    r.fill(untouched);
    return r;
}

// Reference rows of sub-region 1 and region 2: properties from (P, T), and
// the temperature back from (P, H) and (P, S).
class EntryRegion12 : public PackageTest, public ::testing::WithParamInterface<Row> {};

TEST_P(EntryRegion12, ReproducesTheReferenceStateFromPressureAndTemperature) {
    const Row& row = GetParam();
    const double p = row["p_bar"], t = row["t_C"];
    auto r = fresh();
    if (t <= pws::crit_t && std::fabs(p - pws::pws_pt(t)) < 1e-8 * p) {
        // On the saturation line the pressure is read as a dryness fraction.
        pws::pwsftn(pws::pwsrpt, p, t, "X", r);
        EXPECT_EQ(r[0], p < 0.999999 ? p : 1.0);
        return;
    }
    pws::pwsftn(pws::pwsrpt, p, t, "P,T,V,H,S,CP.", r);
    EXPECT_EQ(r[0], p);
    EXPECT_EQ(r[1], t);
    EXPECT_TRUE(close(r[2], row["v_m3_per_kg"], 1e-9));
    EXPECT_TRUE(close(r[3], row["h_kJ_per_kg"], 1e-9, 1e-6));
    EXPECT_TRUE(close(r[4], row["s_kJ_per_kgK"], 1e-9, 1e-6));
    EXPECT_TRUE(close(r[5], row["cp_kJ_per_kgK"], 1e-9));

    // Off the saturation line, the pairs (P, H) and (P, S) lead back to t.
    if (t <= pws::crit_t && std::fabs(p - pws::pws_pt(t)) < 1e-3 * p) return;
    r = fresh();
    pws::pwsftn(pws::pwsrph, p, row["h_kJ_per_kg"], "T,V", r);
    EXPECT_TRUE(close(r[0], t, 1e-7, 1e-4));
    EXPECT_TRUE(close(r[1], row["v_m3_per_kg"], 1e-6));
    r = fresh();
    pws::pwsftn(pws::pwsrps, p, row["s_kJ_per_kgK"], "T", r);
    EXPECT_TRUE(close(r[0], t, 1e-7, 1e-4));
}

INSTANTIATE_TEST_SUITE_P(Region1, EntryRegion12, ::testing::ValuesIn(load_table("region1.csv")));
INSTANTIATE_TEST_SUITE_P(Region2, EntryRegion12, ::testing::ValuesIn(load_table("region2.csv")));

// Reference rows of region 3 above 350 C: properties from (T, V).
class EntryRegion3 : public PackageTest, public ::testing::WithParamInterface<Row> {};

TEST_P(EntryRegion3, ReproducesTheReferenceStateFromTemperatureAndVolume) {
    const Row& row = GetParam();
    const double v = row["v_m3_per_kg"], t = row["t_C"];
    if (t <= pws::t_sub1_max) GTEST_SKIP() << "sub-region 1 holds every state up to 350 C";
    auto r = fresh();
    pws::pwsftn(pws::pwsrtv, t, v, "P,V,H,S,CP,X", r);
    EXPECT_TRUE(close(r[0], row["p_bar"], 1e-9));
    EXPECT_EQ(r[1], v);
    EXPECT_TRUE(close(r[2], row["h_kJ_per_kg"], 1e-9));
    EXPECT_TRUE(close(r[3], row["s_kJ_per_kgK"], 1e-9));
    EXPECT_TRUE(close(r[4], row["cp_kJ_per_kgK"], 1e-8));
    EXPECT_EQ(r[5], v < pws::crit_v && t <= pws::crit_t ? 0.0 : 1.0);
}

INSTANTIATE_TEST_SUITE_P(Region3, EntryRegion3, ::testing::ValuesIn(load_table("region3.csv")));

// Saturated liquid and vapour: dryness 0 and 1 are snapped to the
// single-phase equations.
class EntrySaturation : public PackageTest, public ::testing::WithParamInterface<Row> {};

TEST_P(EntrySaturation, GivesTheSaturatedPhasesAtDrynessZeroAndOne) {
    const Row& row = GetParam();
    const double t = row["t_C"];
    auto r = fresh();
    // Above 350 C the saturated volumes come from an iteration (eps 1e-8 on
    // the pressure) and the pressure is the region-3 pressure at them.
    const bool r3 = t > pws::t_sub1_max;
    const double tol = r3 ? (t > 373.0 ? 1e-6 : 2e-7) : 1e-9;
    pws::pwsftn(pws::pwsrtx, t, 0.0, "P,V,H,S,X", r);
    EXPECT_TRUE(close(r[0], row["psat_bar"], r3 ? 1e-7 : 1e-12));
    EXPECT_TRUE(close(r[1], row["v_liq_m3_per_kg"], tol));
    EXPECT_TRUE(close(r[2], row["h_liq_kJ_per_kg"], tol, 1e-6));
    EXPECT_TRUE(close(r[3], row["s_liq_kJ_per_kgK"], tol, 1e-6));
    EXPECT_EQ(r[4], 0.0);
    r = fresh();
    pws::pwsftn(pws::pwsrtx, t, 1.0, "P,V,H,S,X", r);
    EXPECT_TRUE(close(r[0], row["psat_bar"], r3 ? 1e-7 : 1e-12));
    EXPECT_TRUE(close(r[1], row["v_vap_m3_per_kg"], tol));
    EXPECT_TRUE(close(r[2], row["h_vap_kJ_per_kg"], tol));
    EXPECT_TRUE(close(r[3], row["s_vap_kJ_per_kgK"], tol));
    EXPECT_EQ(r[4], 1.0);
    // Half way: the mixture of the two.
    r = fresh();
    pws::pwsftn(pws::pwsrtx, t, 0.5, "V,H,X", r);
    EXPECT_TRUE(close(r[0], 0.5 * (row["v_liq_m3_per_kg"] + row["v_vap_m3_per_kg"]), tol));
    EXPECT_TRUE(close(r[1], 0.5 * (row["h_liq_kJ_per_kg"] + row["h_vap_kJ_per_kg"]), tol));
    EXPECT_EQ(r[2], 0.5);
    EXPECT_TRUE(records.empty());
}

INSTANTIATE_TEST_SUITE_P(Saturation, EntrySaturation, ::testing::ValuesIn(load_table("saturation.csv")));

// Viscosity and conductivity (kW/(m K)) of single-phase states.
class EntryTransport : public PackageTest, public ::testing::WithParamInterface<Row> {};

TEST_P(EntryTransport, GivesViscosityAndConductivityInKilowatt) {
    const Row& row = GetParam();
    auto r = fresh();
    if (row["region"] == 3)
        pws::pwsftn(pws::pwsrtv, row["t_C"], row["v_m3_per_kg"], "DV,TC,DV", r);
    else
        pws::pwsftn(pws::pwsrpt, row["p_bar"], row["t_C"], "DV,TC,DV", r);
    EXPECT_TRUE(close(r[0], row["viscosity_Pa_s"], 1e-9));
    EXPECT_TRUE(close(r[1], row["conductivity_W_per_mK"] * 0.001, 1e-9));
    EXPECT_EQ(r[2], r[0]);
}

INSTANTIATE_TEST_SUITE_P(Transport, EntryTransport, ::testing::ValuesIn(load_table("transport.csv")));

// --- key list -------------------------------------------------------------

TEST_F(PackageTest, KeyListEndsAtAFullStopABlankOrAnOverlongKey) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "H.S", r);
    EXPECT_TRUE(close(r[0], pws::pws_d1(1.0, 20.0), 1e-12));
    EXPECT_EQ(r[1], untouched);
    r = fresh();
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "H S", r);
    EXPECT_NE(r[0], untouched);
    EXPECT_EQ(r[1], untouched);
    EXPECT_TRUE(records.empty());

    r = fresh();
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "ABCDE,H", r);
    EXPECT_EQ(r[0], untouched);
    EXPECT_EQ(r[1], untouched);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].channel, 13);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal dependend property: ABCD ***");
    EXPECT_EQ(pws::last_key(), "ABCD");
    EXPECT_EQ(errors(), 0);
}

TEST_F(PackageTest, EveryKeyTakesAnEntryEvenAnIllegalOne) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "H,,S", r);
    EXPECT_TRUE(close(r[0], pws::pws_d1(1.0, 20.0), 1e-12));
    EXPECT_EQ(r[1], untouched);
    EXPECT_TRUE(close(r[2], pws::pws_e1(1.0, 20.0), 1e-12));
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal dependend property:      ***");
    EXPECT_EQ(pws::key_count("H,,S"), 3u);
}

TEST_F(PackageTest, LeadingBlankOrFullStopGivesOneIllegalBlankKey) {
    for (std::string_view text : {" H,S", ".H", "", " "}) {
        SCOPED_TRACE(std::string(text));
        records.clear();
        auto r = fresh();
        pws::pwsftn(pws::pwsrpt, 1.0, 20.0, text, r);
        EXPECT_EQ(r[0], untouched);
        EXPECT_EQ(r[1], untouched);
        ASSERT_EQ(records.size(), 1u);
        EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal dependend property:      ***");
        EXPECT_EQ(pws::key_count(text), 1u);
    }
}

TEST_F(PackageTest, KeysAreComparedExactly) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "h,Cp,CP", r);
    EXPECT_EQ(r[0], untouched);
    EXPECT_EQ(r[1], untouched);
    EXPECT_TRUE(close(r[2], pws::pws_h1(1.0, 20.0), 1e-12));
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal dependend property: h    ***");
    EXPECT_EQ(records[1].line, " *** PWSFTN-ERROR: illegal dependend property: Cp   ***");
}

TEST_F(PackageTest, ListWithoutEndReadsToTheEndOfTheText) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrpt, 10.0, 300.0, "T,X,P", r);
    EXPECT_EQ(r[0], 300.0);
    EXPECT_EQ(r[1], 1.0);
    EXPECT_EQ(r[2], 10.0);
    EXPECT_EQ(r[3], untouched);
    EXPECT_EQ(pws::key_count("T,X,P"), 3u);
    EXPECT_EQ(pws::key_count(",,,"), 4u);
}

TEST_F(PackageTest, KeysBeyondTheResultAreReadButNotStored) {
    std::array<double, 2> r{untouched, untouched};
    pws::pwsftn(pws::pwsrpt, 1.0, 20.0, "T,P,H,BAD", r);
    EXPECT_EQ(r[0], 20.0);
    EXPECT_EQ(r[1], 1.0);
    ASSERT_EQ(records.size(), 1u);  // the illegal fourth key is still reported
}

// --- regions and wet states ----------------------------------------------

TEST_F(PackageTest, TemperatureAloneIsTheSecondStateValueInEveryRegion) {
    struct C {
        pws::InverseFn fn;
        double x, y, t;
    };
    const C cases[] = {{pws::pwsrpt, 10.0, 100.0, 100.0},   {pws::pwsrpt, 1.0, 300.0, 300.0},
                       {pws::pwsrpt, 300.0, 400.0, 400.0},  {pws::pwsrpt, 300.0, 360.0, 360.0},
                       {pws::pwsrtx, 360.0, 0.5, 360.0},    {pws::pwsrtx, 100.0, 0.5, 100.0}};
    for (const C& c : cases) {
        auto r = fresh();
        pws::pwsftn(c.fn, c.x, c.y, "T", r);
        EXPECT_EQ(r[0], c.t);
    }
}

TEST_F(PackageTest, DrynessIsZeroOrOneOutsideTheWetRegion) {
    struct C {
        double p, t, x;
    };
    for (const C& c : {C{10.0, 100.0, 0.0}, C{1.0, 300.0, 1.0}, C{300.0, 400.0, 1.0}, C{300.0, 360.0, 0.0}}) {
        auto r = fresh();
        pws::pwsftn(pws::pwsrpt, c.p, c.t, "X", r);
        EXPECT_EQ(r[0], c.x);
    }
}

TEST_F(PackageTest, NearlySinglePhaseWetStatesAreSnapped) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrtx, 200.0, 1.0E-6, "X,CP,P", r);
    const double ps = pws::pws_pt(200.0);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_TRUE(close(r[1], pws::pws_h1(ps, 200.0), 1e-12));
    EXPECT_EQ(r[2], ps);
    r = fresh();
    pws::pwsftn(pws::pwsrtx, 200.0, 0.999999, "X,CP", r);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_TRUE(close(r[1], pws::pws_h2(ps, 200.0), 1e-12));
    r = fresh();
    pws::pwsftn(pws::pwsrtx, 200.0, 1.1E-6, "X", r);
    EXPECT_EQ(r[0], 1.1E-6);
    EXPECT_TRUE(records.empty());

    const pws::SaturatedVolumes sv = pws::saturated_volumes3(pws::pws_pt(365.0), 365.0);
    r = fresh();
    pws::pwsftn(pws::pwsrtx, 365.0, 1.0E-6, "X,V,CP", r);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_EQ(r[1], sv.liquid);
    EXPECT_TRUE(close(r[2], pws::pws_h3(sv.liquid, 365.0), 1e-12));
    r = fresh();
    pws::pwsftn(pws::pwsrtx, 365.0, 0.999999, "X,V", r);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_EQ(r[1], sv.vapour);
}

TEST_F(PackageTest, SaturationPressureFromPressureTemperatureIsReadAsDryness) {
    // The pressure left in the first value is read as a dryness fraction:
    // at least 0.999999 is saturated vapour, less is a wet state.
    auto r = fresh();
    const double ps100 = pws::pws_pt(100.0);
    pws::pwsftn(pws::pwsrpt, ps100, 100.0, "X,P,H", r);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_EQ(r[1], ps100);
    EXPECT_TRUE(close(r[2], pws::pws_d2(ps100, 100.0), 1e-12));
    r = fresh();
    const double ps20 = pws::pws_pt(20.0);
    pws::pwsftn(pws::pwsrpt, ps20, 20.0, "X", r);
    EXPECT_EQ(r[0], ps20);
}

TEST_F(PackageTest, TransportKeysInAWetStateGiveZeroAndOneMessage) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrtx, 100.0, 0.5, "CP,H,DV,TC", r);
    const double ps = pws::pws_pt(100.0);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_TRUE(close(r[1], 0.5 * (pws::pws_d1(ps, 100.0) + pws::pws_d2(ps, 100.0)), 1e-12));
    EXPECT_EQ(r[2], 0.0);
    EXPECT_EQ(r[3], 0.0);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].channel, 13);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: CP, DV, TC cannot be calculated in wet region ***");
    EXPECT_EQ(errors(), 0);
}

TEST_F(PackageTest, IllegalRegionLeavesTheResultUntouched) {
    auto r = fresh();
    pws::pwsftn(pws::pwsrtx, 380.0, 0.5, "T,H", r);
    EXPECT_EQ(r[0], untouched);
    EXPECT_EQ(r[1], untouched);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].channel, 13);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal region calculated: IREG =            7  ***");
    // A missing routine places no state.
    records.clear();
    pws::pwsftn(pws::InverseFn{nullptr}, 1.0, 20.0, "T", r);
    EXPECT_EQ(r[0], untouched);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal region calculated: IREG =            0  ***");
}

TEST_F(PackageTest, WetStateAboveTheCriticalTemperatureIsReportedAndUsesZeroPressure) {
    auto above = [](double& a, double& b, double) -> std::int32_t {
        a = 0.5;
        b = 380.0;
        return 6;
    };
    pws::ErrorRecord rec = pws::pwserr();
    rec.maxmsg = 1;  // only the first error line (the state itself is out of range)
    pws::set_pwserr(rec);
    auto r = fresh();
    pws::pwsftn(pws::InverseRoutine(above), 0.0, 0.0, "P,T,X", r);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_EQ(r[1], 380.0);
    EXPECT_EQ(r[2], 0.5);
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(records[0].channel, 6);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, T=  3.80000000E+02 ***");
    EXPECT_GE(errors(), 1);
}

TEST_F(PackageTest, EntryRoutineSurvivesAbsurdInputs) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    pws::ErrorRecord rec = pws::pwserr();
    rec.maxmsg = 0;
    pws::set_pwserr(rec);
    for (pws::InverseFn fn : {pws::pwsrpt, pws::pwsrph, pws::pwsrvh, pws::pwsrhs, pws::pwsrsx}) {
        for (double x : {nan, inf, -inf, -1.0E300, 0.0, 1.0E300}) {
            for (bool first : {true, false}) {
                SCOPED_TRACE(::testing::Message() << x << (first ? " first" : " second"));
                records.clear();
                auto r = fresh();
                pws::pwsftn(fn, first ? x : 100.0, first ? 100.0 : x, "P,T,V,H,S,X,CP,DV,TC", r);
                for (const pwstest::Record& rc : records)
                    EXPECT_EQ(rc.line.find("illegal dependend"), std::string::npos);
                if (std::isfinite(x)) continue;
                // A value that is not finite places no state.
                for (double v : r) EXPECT_EQ(v, untouched);
                ASSERT_EQ(records.size(), 1u);
                EXPECT_NE(records[0].line.find("illegal region calculated"), std::string::npos);
            }
        }
    }
}

}  // namespace
