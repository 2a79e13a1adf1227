// The IF97 adapter: what it sends to the IF97 library (codes, values,
// property text), what it does with the answers, its own fluid data, and its
// exports called as a Fortran program calls them (blank-padded fixed-width
// texts with hidden lengths, values by reference).
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "if97/if97.hpp"
#include "if97_adapter/if97_qv.hpp"
#include "ondrel/if97_qv.h"
#include "tests/solver/csv_rows.hpp"

namespace qv = od::if97_qv;

namespace {

constexpr double missing = -8888.8;
constexpr std::string_view no_errors = "No errors";

// A Fortran CHARACTER(len=n) variable holding s; ';' in a table cell stands for ','.
std::string padded(std::string_view s, std::size_t n) {
    std::string out(s.substr(0, std::min(s.size(), n)));
    std::replace(out.begin(), out.end(), ';', ',');
    out.resize(n, ' ');
    return out;
}

// The property text the adapter sent to the library, trailing blanks removed.
std::string sent_text() {
    const std::string_view t = qv::state().property();
    return std::string(t.substr(0, t.find_last_not_of(' ') + 1));
}

class If97Qv : public ::testing::Test {
protected:
    void SetUp() override { qv::reset_for_tests(); }
    std::string message = "unchanged";
};

class PropCases : public ::testing::TestWithParam<od::test::CsvRow> {};

TEST_P(PropCases, SendTheTranslatedLettersValuesAndTextAndGiveTheResultThroughCoreAndExport) {
    const od::test::CsvRow& c = GetParam();
    const std::string spec = c.text("spec"), property = padded(c.text("property"), c.text("property").size());
    const double v1 = c.num("value1"), v2 = c.num("value2");
    std::string core_message = "unchanged";
    const double core = qv::if97_prop(spec, v1, v2, property, core_message);
    EXPECT_EQ(std::string(1, qv::state().code2), padded(c.text("code2"), 1));
    EXPECT_EQ(std::string(1, qv::state().code1), padded(c.text("code1"), 1));
    EXPECT_EQ(sent_text(), padded(c.text("sent"), c.text("sent").size()));
    EXPECT_NEAR(core, c.num("value"), c.num("tolerance"));
    EXPECT_EQ(core_message == no_errors, c.num("ok") == 1.0) << core_message;

    const std::string fspec = padded(spec, 2), fproperty = padded(property, 16);
    std::string message(80, '#');
    const double exported = if97_prop_(fspec.data(), &v1, &v2, fproperty.data(), message.data(),
                                       fspec.size(), fproperty.size(), message.size());
    EXPECT_EQ(std::memcmp(&exported, &core, sizeof core), 0) << exported << " " << core;
    EXPECT_EQ(message, padded(core_message, 80));
}

INSTANTIATE_TEST_SUITE_P(Table, PropCases, od::test::rows_of("if97_adapter/prop_cases.csv"),
                         od::test::row_name);

class GetinfoCases : public ::testing::TestWithParam<od::test::CsvRow> {};

TEST_P(GetinfoCases, ReturnTheFixedDataOrNameTheUnknownEntryThroughCoreAndExport) {
    const od::test::CsvRow& c = GetParam();
    std::string message;
    EXPECT_EQ(qv::if97_getinfo(c.text("name"), message), c.num("value"));
    EXPECT_EQ(message, c.text("message"));
    std::string info = padded(c.text("name"), 12), fmessage(80, '#');
    EXPECT_EQ(if97_getinfo_(info.data(), fmessage.data(), info.size(), fmessage.size()), c.num("value"));
    EXPECT_EQ(fmessage, padded(c.text("message"), 80));
}

INSTANTIATE_TEST_SUITE_P(Table, GetinfoCases, od::test::rows_of("if97_adapter/getinfo_cases.csv"),
                         od::test::row_name);

TEST_F(If97Qv, PropertyTextIsBlankPaddedAndCutToEightyCharacters) {
    qv::if97_prop("PT", 1.0, 20.0, "h", message);
    EXPECT_EQ(qv::state().property(), padded("h.", 80));
    qv::if97_prop("PT", 1.0, 20.0, std::string(100, 'h'), message);
    EXPECT_EQ(qv::state().property(), std::string(80, 'h'));
}

TEST_F(If97Qv, PropsPresetsEveryEntryAndSendsListsUntranslated) {
    std::vector<double> r(4, 1.0);
    qv::if97_props("PT", 1.0, 20.0, "d,h", r, message);
    EXPECT_EQ(sent_text(), "d,h.");
    EXPECT_NEAR(r[0], 998.2, 0.1);  // the library's own density, not inverted
    EXPECT_NEAR(r[1], 84.0, 0.1);
    EXPECT_EQ(r[2], missing);
    EXPECT_EQ(r[3], missing);
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, AllpropsFillsTheOutputsFromTheFixedList) {
    const qv::AllProps a = qv::if97_allprops("PT", 1.0, 20.0, message);
    EXPECT_EQ(sent_text(), "p,t,v,h,s,u,x,cv,dv,tc.");
    EXPECT_EQ(message, no_errors);
    EXPECT_EQ(a.p, 1.0);
    EXPECT_EQ(a.t, 20.0);
    EXPECT_NEAR(a.d, 998.2054863776968, 1e-7);  // python3-iapws 1.5.2
    EXPECT_NEAR(a.h, 84.01181116713626, 1e-6);
    EXPECT_NEAR(a.cv, 4.157, 0.01);
    EXPECT_NEAR(a.eta, 1.0016e-3, 2e-6);
    EXPECT_NEAR(a.lambda, 0.598, 2e-3);
}

TEST_F(If97Qv, AllpropsOfARefusedStateInvertsAndSplitsThePresets) {
    const qv::AllProps a = qv::if97_allprops("PT", -1.0, 20.0, message);
    EXPECT_NE(message, no_errors);
    EXPECT_EQ(a.v, missing);
    EXPECT_EQ(a.d, 1.0 / missing);
    EXPECT_EQ(a.first[0], 1.0 - missing);
    EXPECT_EQ(a.second[0], missing);
    EXPECT_EQ(a.lambda, missing);
}

TEST(If97QvExports, MessageIsCutToAShortBuffer) {
    std::string spec = "PT", property = "foo ", message(6, '#');
    const double v1 = 1.0, v2 = 20.0;
    EXPECT_EQ(if97_prop_(spec.data(), &v1, &v2, property.data(), message.data(), 2, 4, 6), missing);
    std::string full;
    qv::if97_prop("PT", 1.0, 20.0, "foo", full);
    EXPECT_EQ(message, full.substr(0, 6));
}

TEST(If97QvExports, PropsFillsOneSlotPerNameAndLeavesTheRestOfTheCallersList) {
    std::string spec = "PT", list = padded("h,s,d", 20), message(40, '#');
    const double v1 = 1.0, v2 = 20.0;
    std::array<double, 5> r{1.0, 2.0, 3.0, 4.0, 5.0};
    if97_props_(spec.data(), &v1, &v2, list.data(), r.data(), message.data(), 2, 20, 40);
    EXPECT_NEAR(r[0], 84.0, 0.1);
    EXPECT_NEAR(r[1], 0.296, 1e-3);
    EXPECT_NEAR(r[2], 998.2, 0.1);
    EXPECT_EQ(r[3], 4.0);
    EXPECT_EQ(r[4], 5.0);
    EXPECT_EQ(message, padded("No errors", 40));
}

TEST(If97QvExports, GetfluidFillsAsManyEntriesAsTheCallerCountsAndOneWhenTheCountIsUnset) {
    std::int32_t n = 3;
    std::string names = "N2      O2      AR      ";
    std::array<double, 4> conc{0.2, 0.3, 0.5, 9.0};
    if97_getfluid_(&n, names.data(), conc.data(), 8);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(names, "H2O     ?       ?       ");
    EXPECT_EQ(conc, (std::array<double, 4>{1.0, 0.0, 0.0, 9.0}));
    n = 0;  // an unset count fills one entry
    names = "N2      O2      ";
    conc = {0.2, 0.8, 0.0, 0.0};
    if97_getfluid_(&n, names.data(), conc.data(), 8);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(names, "H2O     O2      ");
    EXPECT_EQ(conc[1], 0.8);
}

TEST(If97QvExports, AllpropsSplitsATwoPhaseStateIntoLiquidAndVapourFractions) {
    std::string spec = "Pq", message(80, '#');
    const double v1 = 1.0, v2 = 0.3;
    double p = 0, t = 0, v = 0, d = 0, h = 0, s = 0, u = 0, x = 0, cv = 0, eta = 0, lambda = 0;
    std::array<double, 20> first{}, second{};
    if97_allprops_(spec.data(), &v1, &v2, &p, &t, &v, &d, &h, &s, &u, &x, first.data(),
                   second.data(), &cv, &eta, &lambda, message.data(), 2, 80);
    EXPECT_EQ(p, 1.0);
    EXPECT_NEAR(t, 99.606, 1e-3);
    EXPECT_EQ(d, 1.0 / v);
    EXPECT_NEAR(x, 0.3, 1e-12);
    EXPECT_NEAR(first[0], 0.7, 1e-12);
    EXPECT_NEAR(second[0], 0.3, 1e-12);
    EXPECT_EQ(first[19], missing);
    EXPECT_EQ(second[19], missing);
    EXPECT_EQ(cv, missing);  // undefined inside the two-phase region: left preset, with the library's message
    EXPECT_NE(message, padded("No errors", 80));
}

TEST(If97QvExports, VersionAndSetUpAreForwardedToTheLibrary) {
    std::array<std::int32_t, 4> a{-1, -1, -1, -1}, l{};
    if97_getversion_(&a[0], &a[1], &a[2], &a[3]);
    if97::getversion(l[0], l[1], l[2], l[3]);
    EXPECT_EQ(a, l);
    testing::internal::CaptureStdout();
    if97_qv_sub_();
    const std::string adapter = testing::internal::GetCapturedStdout();
    testing::internal::CaptureStdout();
    if97::if97_sub();
    EXPECT_EQ(adapter, testing::internal::GetCapturedStdout());
    EXPECT_FALSE(adapter.empty());
}

TEST(If97QvExports, MissingValuePointersAreRefusedWithoutACrash) {
    std::string spec = "PT", property = "h   ", message(20, '#');
    EXPECT_EQ(if97_prop_(spec.data(), nullptr, nullptr, property.data(), message.data(), 2, 4, 20), missing);
    if97_prop_(spec.data(), nullptr, nullptr, property.data(), nullptr, 2, 4, 0);
    // A missing quality is not taken as 0: the library refuses it.
    const double t = 100.0;
    EXPECT_EQ(if97_prop_("Tq", &t, nullptr, property.data(), message.data(), 2, 4, 20), missing);
}

}  // namespace
