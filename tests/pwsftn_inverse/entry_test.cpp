// Entry routine: check values of full states, the key list, wet states and
// their snapping, and the channel-13 messages.
#include <limits>
#include <sstream>

#include "pwsftn/pwsftn.hpp"
#include "tests/pwsftn/pws_support.hpp"

namespace {

using pws_test::near;
using pws_test::PackageTest;
using pws_test::Row;
using pws_test::table;
using PwsEntryCases = PackageTest;

constexpr double untouched = -12345.0;

// The first n entries of the result of pwsftn (entries it does not write stay `untouched`).
std::vector<double> entry(pws::InverseRoutine fn, double x, double y, std::string_view keys, std::size_t n) {
    std::vector<double> r(n, untouched);
    pws::pwsftn(fn, x, y, keys, r);
    return r;
}

class PwsEntry : public PackageTest, public ::testing::WithParamInterface<Row> {};

// Sub-region 1 and region 2: properties from (P, T), the temperature back from (P, H) and (P, S).
TEST_P(PwsEntry, ReproducesTheStateFromPressureAndTemperature) {
    const Row& row = GetParam();
    const double p = row["p_bar"], t = row["t_C"];
    const double off_line = t > pws::crit_t ? 1.0 : std::fabs(p - pws::pws_pt(t)) / p;
    if (off_line < 1e-8) {  // on the saturation line the pressure is read as a dryness fraction
        EXPECT_EQ(entry(pws::pwsrpt, p, t, "X", 1)[0], p < 0.999999 ? p : 1.0);
        return;
    }
    const auto r = entry(pws::pwsrpt, p, t, "P,T,V,H,S,CP.", 6);
    EXPECT_EQ(r[0], p);
    EXPECT_EQ(r[1], t);
    const char* columns[] = {"v_m3_per_kg", "h_kJ_per_kg", "s_kJ_per_kgK", "cp_kJ_per_kgK"};
    for (std::size_t k = 0; k < 4; ++k) EXPECT_TRUE(near(r[k + 2], row[columns[k]], 1e-9, 1e-6)) << columns[k];
    if (off_line < 1e-3) return;
    const auto th = entry(pws::pwsrph, p, row["h_kJ_per_kg"], "T,V", 2);
    EXPECT_TRUE(near(th[0], t, 1e-7, 1e-4));
    EXPECT_TRUE(near(th[1], row["v_m3_per_kg"], 1e-6));
    EXPECT_TRUE(near(entry(pws::pwsrps, p, row["s_kJ_per_kgK"], "T", 1)[0], t, 1e-7, 1e-4));
}
INSTANTIATE_TEST_SUITE_P(Region1, PwsEntry, ::testing::ValuesIn(table("pwsftn/region1.csv")));
INSTANTIATE_TEST_SUITE_P(Region2, PwsEntry, ::testing::ValuesIn(table("pwsftn/region2.csv")));

class PwsEntryRegion3 : public PwsEntry {};

TEST_P(PwsEntryRegion3, ReproducesTheStateFromTemperatureAndVolume) {
    const Row& row = GetParam();
    const double v = row["v_m3_per_kg"], t = row["t_C"];
    if (t <= pws::t_sub1_max) return;  // sub-region 1 holds every state up to 350 C
    const auto r = entry(pws::pwsrtv, t, v, "P,V,H,S,CP,X", 6);
    EXPECT_TRUE(near(r[0], row["p_bar"], 1e-9));
    EXPECT_EQ(r[1], v);
    EXPECT_TRUE(near(r[2], row["h_kJ_per_kg"], 1e-9));
    EXPECT_TRUE(near(r[3], row["s_kJ_per_kgK"], 1e-9));
    EXPECT_TRUE(near(r[4], row["cp_kJ_per_kgK"], 1e-8));
    EXPECT_EQ(r[5], v < pws::crit_v && t <= pws::crit_t ? 0.0 : 1.0);
}
INSTANTIATE_TEST_SUITE_P(Region3, PwsEntryRegion3, ::testing::ValuesIn(table("pwsftn/region3.csv")));

class PwsEntrySaturation : public PwsEntry {};

TEST_P(PwsEntrySaturation, GivesTheSaturatedPhasesAndTheirMixture) {
    const Row& row = GetParam();
    const double t = row["t_C"];
    // Above 350 C the saturated volumes come from an iteration (eps 1e-8 on
    // the pressure) and the pressure is the region-3 pressure at them.
    const bool r3 = t > pws::t_sub1_max;
    const double tol = r3 ? (t > 373.0 ? 1e-6 : 2e-7) : 1e-9;
    // Above about 373.1 C the vapour volume is the root pws_i2 reaches from
    // its starting pair, not the saturated one (a row of entry_cases.csv).
    const bool vapour_root = t < 373.0;
    for (const char* phase : {"liq", "vap"}) {
        const std::string tail = phase;
        if (!vapour_root && tail == "vap") continue;
        const auto r = entry(pws::pwsrtx, t, phase[0] == 'l' ? 0.0 : 1.0, "P,V,H,S,X", 5);
        EXPECT_TRUE(near(r[0], row["psat_bar"], r3 ? 1e-7 : 1e-12));
        EXPECT_TRUE(near(r[1], row["v_" + tail + "_m3_per_kg"], tol));
        EXPECT_TRUE(near(r[2], row["h_" + tail + "_kJ_per_kg"], tol, 1e-6));
        EXPECT_TRUE(near(r[3], row["s_" + tail + "_kJ_per_kgK"], tol, 1e-6));
        EXPECT_EQ(r[4], phase[0] == 'l' ? 0.0 : 1.0);
    }
    if (!vapour_root) return;
    const auto r = entry(pws::pwsrtx, t, 0.5, "V,H", 2);
    EXPECT_TRUE(near(r[0], 0.5 * (row["v_liq_m3_per_kg"] + row["v_vap_m3_per_kg"]), tol));
    EXPECT_TRUE(near(r[1], 0.5 * (row["h_liq_kJ_per_kg"] + row["h_vap_kJ_per_kg"]), tol));
    EXPECT_TRUE(records.empty());
}
INSTANTIATE_TEST_SUITE_P(Saturation, PwsEntrySaturation, ::testing::ValuesIn(table("pwsftn/saturation.csv")));

class PwsEntryTransport : public PwsEntry {};

TEST_P(PwsEntryTransport, GivesViscosityAndConductivityInKilowatt) {
    const Row& row = GetParam();
    const auto r = row["region"] == 3 ? entry(pws::pwsrtv, row["t_C"], row["v_m3_per_kg"], "DV,TC", 2)
                                      : entry(pws::pwsrpt, row["p_bar"], row["t_C"], "DV,TC", 2);
    EXPECT_TRUE(near(r[0], row["viscosity_Pa_s"], 1e-9));
    EXPECT_TRUE(near(r[1], row["conductivity_W_per_mK"] * 0.001, 1e-9));
}
INSTANTIATE_TEST_SUITE_P(Transport, PwsEntryTransport, ::testing::ValuesIn(table("pwsftn/transport.csv")));

// Splits `text` at `separator`; an empty text gives no items.
std::vector<std::string> split(const std::string& text, char separator) {
    std::vector<std::string> items;
    std::stringstream in(text);
    for (std::string item; std::getline(in, item, separator);) items.push_back(item);
    return items;
}

TEST_F(PwsEntryCases, ReadsTheKeyListAndReportsOnTheHostChannel) {
    for (const Row& r : table("pwsftn_inverse/entry_cases.csv")) {
        SCOPED_TRACE(r.line);
        records.clear();
        pws::reset_entry_for_tests();
        const std::vector<std::string> want = split(r.text("values"), ' ');
        const std::string keys = r.text("depend");
        const auto got = entry(pws_test::routine(r.text("routine")), r["x"], r["y"], keys, want.size());
        for (std::size_t k = 0; k < want.size(); ++k) {
            const double expected = want[k] == "-" ? untouched : std::stod(want[k]);
            EXPECT_TRUE(near(got[k], expected, 1e-9, 1e-15)) << k;
        }
        EXPECT_EQ(pws::key_count(keys), static_cast<std::size_t>(r["count"]));
        EXPECT_EQ(pws::last_key(), r.text("last_key"));
        std::vector<std::string> lines = split(r.text("lines"), ';');
        for (std::string& line : lines) line = "13|" + line;
        EXPECT_EQ(written(), lines);
    }
    EXPECT_EQ(errors(), 0);
}

TEST_F(PwsEntryCases, SnapsNearlySinglePhaseWetStatesToTheSaturatedPhase) {
    const double ps = pws::pws_pt(200.0);
    auto r = entry(pws::pwsrtx, 200.0, 1.0E-6, "X,CP,P", 3);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_TRUE(near(r[1], pws::pws_h1(ps, 200.0), 1e-12));
    EXPECT_EQ(r[2], ps);
    r = entry(pws::pwsrtx, 200.0, 0.999999, "X,CP", 2);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_TRUE(near(r[1], pws::pws_h2(ps, 200.0), 1e-12));
    const pws::SaturatedVolumes sv = pws::saturated_volumes3(pws::pws_pt(365.0), 365.0);
    r = entry(pws::pwsrtx, 365.0, 1.0E-6, "X,V,CP", 3);
    EXPECT_EQ(r[0], 0.0);
    EXPECT_EQ(r[1], sv.liquid);
    EXPECT_TRUE(near(r[2], pws::pws_h3(sv.liquid, 365.0), 1e-12));
    r = entry(pws::pwsrtx, 365.0, 0.999999, "X,V", 2);
    EXPECT_EQ(r[0], 1.0);
    EXPECT_EQ(r[1], sv.vapour);
    EXPECT_TRUE(records.empty());
}

TEST_F(PwsEntryCases, ReportsAWetStateAboveTheCriticalTemperatureAndUsesZeroPressure) {
    auto above = [](double& a, double& b, double) -> std::int32_t {
        a = 0.5, b = 380.0;
        return 6;
    };
    pws::set_pwserr({6, 1, 1000000, 0});  // only the first error line (the state itself)
    const auto r = entry(pws::InverseRoutine(above), 0.0, 0.0, "P,T,X", 3);
    EXPECT_EQ(r, (std::vector<double>{0.0, 380.0, 0.5}));
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(written()[0], "6| *** PWSFTN-ERROR: Out of range, T=  3.80000000E+02 ***");
}

}  // namespace
