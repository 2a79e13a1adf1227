// Property requests, mixture information and the exported entry points of
// the mixture model, on the project's gas data.
#include <array>
#include <cstring>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fluiddata/od_fluiddata.hpp"
#include "ondrel/ondrel.h"
#include "ondrel/ondrel.hpp"
#include "ondrel/ondrel_core.hpp"
#include "tests/solver/csv_rows.hpp"

namespace {

using od::CompName;
using od::test::CsvRow;
using Mix = od::test::TestMixture;
namespace on = od::ondrel;

constexpr double missing = -8888.8;
const std::string air_text = "N2:0.7809;O2:0.2095;AR:0.0096";
const Mix air(air_text);
const Mix wet_flue("N2:0.71;CO2:0.13;H2O(IF):0.12;O2:0.035;AR:0.005");

double prop(const char* spec, double a, double b, const Mix& m, const char* out, int& err) {
    return on::od_prop(spec, a, b, m.n(), m.names, m.conc, out, err);
}

const char* const property_names[] = {"P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv",
                                      "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda"};

std::array<double, 16> as_array(const on::AllProps& r) {
    return {r.P, r.T, r.v, r.d, r.h, r.s, r.u, r.cv, r.dP_dT, r.dP_dv, r.d2P_dT2, r.d2P_dv2,
            r.d2P_dTdv, r.dCv_dT, r.eta, r.lambda};
}

std::array<double, 16> exported_allprops(const char* spec, double a, double b, int32_t n,
                                         const std::string& names, std::size_t width, const double* conc,
                                         int32_t& err) {
    std::array<double, 16> o{};
    od_allprops_(spec, &a, &b, &n, names.data(), conc, &o[0], &o[1], &o[2], &o[3], &o[4], &o[5], &o[6],
                 &o[7], &o[8], &o[9], &o[10], &o[11], &o[12], &o[13], &o[14], &o[15], &err,
                 std::strlen(spec), width);
    return o;
}

class Ondrel : public ::testing::Test {
protected:
    void SetUp() override { on::reset_for_tests(); }
};

class Requests : public ::testing::TestWithParam<CsvRow> {};

TEST_P(Requests, GiveTheTabulatedValueAndCode) {
    const CsvRow& r = GetParam();
    SCOPED_TRACE(r.text("why"));
    on::reset_for_tests();
    const Mix m(r.text("mixture", air_text));
    int err = -1;
    const double x = r.text("spec") == "info"
                         ? on::od_info(m.n(), m.names, m.conc, r.text("property"), err)
                         : on::od_prop(r.text("spec"), r.num("input1"), r.num("input2"), m.n(), m.names,
                                       m.conc, r.text("property"), err);
    EXPECT_NEAR(x, r.num("value"), r.num("tolerance"));
    EXPECT_EQ(err, r.num("code", 0.0));
}

INSTANTIATE_TEST_SUITE_P(Rules, Requests, od::test::rows_of("ondrel/requests.csv"), od::test::row_name);
INSTANTIATE_TEST_SUITE_P(AirReference, Requests, od::test::rows_of("ondrel/air_reference.csv"), od::test::row_name);

TEST_F(Ondrel, PropAllpropsAndTheirExportsAgreeOnAllSixteenProperties) {
    struct Case { const char* spec; double a, b; const Mix& m; };
    for (const Case& c : {Case{"PT", 1.01325, 25.0, air}, Case{"Ph", 20.0, 900.0, air}, Case{"Ts", 400.0, 7.5, air},
                          Case{"PT", 1.01325, 30.0, wet_flue}, Case{"PT", 5.0, 800.0, wet_flue}}) {
        SCOPED_TRACE(c.spec + std::to_string(c.b));
        int err = -1;
        int32_t err_export = -1;
        const auto all = as_array(on::od_allprops(c.spec, c.a, c.b, c.m.n(), c.m.names, c.m.conc, err));
        const auto exported =
            exported_allprops(c.spec, c.a, c.b, c.m.n(), c.m.padded(8), 8, c.m.conc.data(), err_export);
        EXPECT_EQ(err + err_export, 0);
        for (std::size_t k = 0; k < 16; ++k) {
            EXPECT_DOUBLE_EQ(prop(c.spec, c.a, c.b, c.m, property_names[k], err), all[k]) << property_names[k];
            EXPECT_EQ(err, 0) << property_names[k];
            EXPECT_DOUBLE_EQ(exported[k], all[k]) << property_names[k];
        }
        EXPECT_TRUE(all[14] != 0.0 && all[15] != 0.0);  // eta and lambda are evaluated
    }
}

TEST_F(Ondrel, OnlyAllZeroConcentrationsMatchTheNeverWrittenStore) {
    // Air asked twice is solved twice (a reused state would give code 0). The
    // store holds 0.0: a zero mixture of the stored names with the same inputs
    // is the same request and is not solved again (solving gives code 5, as
    // its enthalpy is 0.0 everywhere) until the inputs change.
    const Mix zero("N2:0;O2:0");
    struct Step { const Mix& m; double h; int code; };
    for (const Step& step : {Step{air, 1e9, 5}, Step{air, 1e9, 5}, Step{zero, 500.0, 5}, Step{zero, 500.0, 0},
                             Step{zero, 500.5, 5}}) {
        int err = -1;
        prop("Ph", 1.0, step.h, step.m, "T", err);
        EXPECT_EQ(err, step.code) << step.h;
    }
}

TEST_F(Ondrel, ChangingOnlyConcentrationsKeepsTheStoredNamesAndSolvesAgain) {
    int err = 0;
    const double h1 = prop("PT", 1.0, 500.0, air, "h", err);
    const double h2 = prop("PT", 1.0, 500.0, Mix("N2:0.6;O2:0.39;AR:0.01"), "h", err);
    EXPECT_EQ(err, 0);
    EXPECT_NE(h1, h2);
    ASSERT_EQ(od::fluiddata::stored_count(), 3);
    EXPECT_EQ(od::fluiddata::stored_name(2), CompName::from("O2"));
    prop("PT", 1.0, 500.0, wet_flue, "h", err);  // other names replace the list
    EXPECT_EQ(od::fluiddata::stored_count(), 5);
    EXPECT_EQ(od::fluiddata::stored_name(3), CompName::from("H2O(IF)"));
}

TEST_F(Ondrel, UnknownComponentKeepsThePreviousStateAndInfoLeavesItAlone) {
    int err = 0;
    prop("Ph", 2.0, 300.0, air, "T", err);
    const on::LastState before = on::last_state();
    const Mix bad("N2:0.5;UNOBTAIN:0.5");
    EXPECT_EQ(prop("PT", 9.0, 9.0, bad, "T", err), missing);
    for (double x : as_array(on::od_allprops("PT", 1.0, 20.0, 2, bad.names, bad.conc, err))) EXPECT_EQ(x, missing);
    EXPECT_EQ(err, 1);
    EXPECT_EQ(od::fluiddata::stored_count(), 3);
    on::od_info(wet_flue.n(), wet_flue.names, wet_flue.conc, "M_mol", err);
    const on::LastState after = on::last_state();
    EXPECT_EQ((std::tuple{after.p, after.t, after.input1, after.input2, after.inputspec}),
              (std::tuple{before.p, before.t, 2.0, 300.0, std::array<char, 2>{'P', 'h'}}));
}

TEST_F(Ondrel, CountsOutsideTheCapacityFailWithCode1) {
    const std::vector<CompName> names(251, CompName::from("N2"));
    const std::vector<double> conc(251, 1.0 / 251);
    const std::string packed(251 * 2, ' ');
    int err = 0;
    od::fluiddata::reset_for_tests();  // a refused first call still loads the gas table
    on::od_info(-1, names, conc, "M_mol", err);
    EXPECT_TRUE(od::fluiddata::dbread());
    EXPECT_NEAR(on::od_prop("PT", 1.0, 20.0, 250, names, conc, "P", err), 1.0, 1e-15);  // within
    EXPECT_EQ(err, 0);
    const double a = 1.0, b = 20.0;
    for (int32_t n : {-1, 251, 100000, INT32_MIN}) {
        int32_t e[5] = {};
        EXPECT_EQ(on::od_prop("PT", a, b, n, names, conc, "h", e[0]), missing);
        EXPECT_EQ(on::od_info(n, names, conc, "M_mol", e[1]), missing);
        EXPECT_EQ(od_prop_("PT", &a, &b, &n, packed.data(), conc.data(), "h", &e[2], 2, 2, 1), missing);
        EXPECT_EQ(od_info_(&n, packed.data(), conc.data(), "M_mol", &e[3], 2, 5), missing);
        for (double x : exported_allprops("PT", a, b, n, packed, 2, conc.data(), e[4])) EXPECT_EQ(x, missing);
        EXPECT_EQ((std::vector<int32_t>(e, e + 5)), std::vector<int32_t>(5, 1)) << n;
    }
}

TEST_F(Ondrel, ExportsReadBlankPaddedNamesOfAnyWidthAndCTexts) {
    const int32_t n = 3;
    const double p = 1.01325, t = 25.0;
    int err = -1;
    const double h = prop("PT", p, t, air, "h", err);
    const char c_names[3][16] = {"N2", "O2", "AR"};  // NUL-terminated texts in a generous buffer
    const std::pair<std::string, std::size_t> layouts[] = {
        {air.padded(2), 2}, {air.padded(20), 20}, {std::string(&c_names[0][0], sizeof c_names), 16}};
    for (const auto& [names, width] : layouts) {
        int32_t e = -1;
        EXPECT_EQ(od_prop_("PT\0junk", &p, &t, &n, names.data(), air.conc.data(), "h       ", &e, 7, width, 8), h);
        EXPECT_EQ(e, 0) << width;
    }
}

TEST_F(Ondrel, CompsetFillsEverySlotAndTheGreetingIsExact) {
    std::string slots(250 * 10, '#');
    int32_t n = 0;
    od_compset_(&n, slots.data(), 10);
    EXPECT_EQ(n, 63);
    EXPECT_EQ(slots.substr(0, 10), "N2        ");
    EXPECT_EQ(slots.substr(50, 10), "H2O(IF)   ");
    EXPECT_EQ(slots.find('#'), std::string::npos);  // every slot of the caller's width is written
    ::testing::internal::CaptureStdout();
    on::ondrel_sub();
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), " ****** Hello from the Ondrel      ******\n");
}

TEST_F(Ondrel, CppApiGivesValueAndCode) {
    const std::string_view names[] = {"N2", "O2", "AR"};
    const ondrel::legacy::Result h = ondrel::legacy::prop("PT", 1.01325, 25.0, names, air.conc, "h");
    int err = -1;
    EXPECT_TRUE(h && h.value == prop("PT", 1.01325, 25.0, air, "h", err)) << h.error;
    EXPECT_EQ(ondrel::legacy::prop("PT", 1.0, 25.0, names, air.conc, "enthalpy").error, ondrel::legacy::unknown_property);
    const double two[] = {0.5, 0.5};  // lists of unequal length
    const ondrel::legacy::Result mismatch = ondrel::legacy::prop("PT", 1.0, 25.0, names, two, "h");
    EXPECT_TRUE(!mismatch && mismatch.error == ondrel::legacy::unknown_component && mismatch.value == missing);
    const ondrel::legacy::Properties all = ondrel::legacy::allprops("PT", 1.01325, 25.0, names, air.conc);
    EXPECT_TRUE(all && all.h == h.value);
    EXPECT_NEAR(ondrel::legacy::info(names, air.conc, "M_mol").value, 0.028962975932, 1e-12);
    const std::vector<std::string> set = ondrel::legacy::compset();
    EXPECT_TRUE(set.size() == 63 && set[5] == "H2O(IF)") << set.size();
    EXPECT_EQ(ondrel::legacy::version(), (std::array<int, 4>{3, 0, 1, 24}));
}

}  // namespace
