// The adapter's exported routines called as a Fortran program calls them:
// blank-padded fixed-width texts with hidden lengths, values by reference.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string>

#include "if97/if97.hpp"
#include "if97_adapter/if97_qv.hpp"
#include "ondrel/if97_qv.h"
#include "tests/if97_adapter/prop_cases.hpp"

namespace {

constexpr double missing = -8888.8;

// A Fortran CHARACTER(len=N) variable.
template <std::size_t N>
struct Text {
    std::array<char, N> c;
    explicit Text(std::string_view s = "") {
        c.fill(' ');
        std::memcpy(c.data(), s.data(), std::min(s.size(), N));
    }
    char* data() { return c.data(); }
    std::size_t len() const { return N; }
    std::string str() const { return std::string(c.data(), N); }
};

std::string padded(std::string_view s, std::size_t n) {
    std::string out(s.substr(0, std::min(s.size(), n)));
    out.resize(n, ' ');
    return out;
}

class ExportedPropCases : public ::testing::TestWithParam<od::test::CsvRow> {};

TEST_P(ExportedPropCases, GiveTheCoresResultAndMessageInBlankPaddedBuffers) {
    const if97_adapter_test::PropCase c(GetParam());
    std::string core_message;
    const double core = od::if97_qv::if97_prop(c.spec, c.value1, c.value2, c.property, core_message);
    const std::string spec = padded(c.spec, 2);
    const std::string property = padded(c.property, 16);
    std::string message(80, '#');
    const double exported = if97_prop_(spec.data(), &c.value1, &c.value2, property.data(), message.data(),
                                       spec.size(), property.size(), message.size());
    EXPECT_EQ(std::memcmp(&exported, &core, sizeof core), 0) << exported << " " << core;
    EXPECT_EQ(message, padded(core_message, 80));
}

INSTANTIATE_TEST_SUITE_P(Table, ExportedPropCases, od::test::rows_of("if97_adapter/prop_cases.csv"),
                         od::test::row_name);

TEST(If97QvExports, MessageIsCutToAShortBuffer) {
    Text<2> spec("PT");
    Text<4> property("foo");
    Text<6> message;
    const double v1 = 1.0, v2 = 20.0;
    EXPECT_EQ(if97_prop_(spec.data(), &v1, &v2, property.data(), message.data(), spec.len(),
                         property.len(), message.len()),
              missing);
    std::string full;
    od::if97_qv::if97_prop("PT", 1.0, 20.0, "foo", full);
    EXPECT_EQ(message.str(), padded(full, 6));
}

TEST(If97QvExports, PropsFillsOneSlotPerNameAndLeavesTheRestOfTheCallersList) {
    Text<2> spec("PT");
    Text<20> list("h,s,d");
    Text<40> message;
    const double v1 = 1.0, v2 = 20.0;
    std::array<double, 5> r{1.0, 2.0, 3.0, 4.0, 5.0};
    if97_props_(spec.data(), &v1, &v2, list.data(), r.data(), message.data(), spec.len(),
                list.len(), message.len());
    EXPECT_NEAR(r[0], 84.0, 0.1);
    EXPECT_NEAR(r[1], 0.296, 1e-3);
    EXPECT_NEAR(r[2], 998.2, 0.1);
    EXPECT_EQ(r[3], 4.0);
    EXPECT_EQ(r[4], 5.0);
    EXPECT_EQ(message.str(), padded("No errors", 40));
}

TEST(If97QvExports, GetfluidFillsAsManyEntriesAsTheCallerCounts) {
    std::int32_t n = 3;
    Text<24> names("N2      O2      AR      ");
    std::array<double, 4> conc{0.2, 0.3, 0.5, 9.0};
    if97_getfluid_(&n, names.data(), conc.data(), 8);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(names.str(), "H2O     ?       ?       ");
    EXPECT_EQ(conc, (std::array<double, 4>{1.0, 0.0, 0.0, 9.0}));
}

TEST(If97QvExports, GetfluidWithAnUnsetCountFillsOneEntry) {
    std::int32_t n = 0;
    Text<16> names("N2      O2");
    std::array<double, 2> conc{0.2, 0.8};
    if97_getfluid_(&n, names.data(), conc.data(), 8);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(names.str(), "H2O     O2      ");
    EXPECT_EQ(conc[1], 0.8);
}

TEST(If97QvExports, GetinfoWritesTheMessageWithTheTrimmedName) {
    Text<12> info("t_max");
    Text<80> message;
    EXPECT_EQ(if97_getinfo_(info.data(), message.data(), info.len(), message.len()), 0.0);
    EXPECT_EQ(message.str(), padded("Error in Quintaver: for IF97 no info available for t_max.", 80));
}

TEST(If97QvExports, AllpropsWritesEveryOutput) {
    Text<2> spec("Pq");
    Text<80> message;
    const double v1 = 1.0, v2 = 1.0;
    double p = 0, t = 0, v = 0, d = 0, h = 0, s = 0, u = 0, x = 0, cv = 0, eta = 0, lambda = 0;
    std::array<double, 20> first{}, second{};
    if97_allprops_(spec.data(), &v1, &v2, &p, &t, &v, &d, &h, &s, &u, &x, first.data(),
                   second.data(), &cv, &eta, &lambda, message.data(), spec.len(), message.len());
    EXPECT_EQ(p, 1.0);
    EXPECT_NEAR(t, 99.606, 1e-3);
    EXPECT_EQ(d, 1.0 / v);
    EXPECT_NEAR(h, 2674.9, 0.1);  // saturated vapour at 1 bar
    EXPECT_EQ(x, 1.0);
    EXPECT_EQ(first[0], 0.0);
    EXPECT_EQ(second[0], 1.0);
    EXPECT_EQ(first[19], missing);
    EXPECT_EQ(second[19], missing);
    EXPECT_GT(cv, 1.0);
    EXPECT_GT(eta, 0.0);
    EXPECT_GT(lambda, 0.0);
    EXPECT_EQ(message.str(), padded("No errors", 80));
}

TEST(If97QvExports, VersionAndSetUpAreForwardedToTheLibrary) {
    std::int32_t a = -1, b = -1, c = -1, e = -1;
    if97_getversion_(&a, &b, &c, &e);
    std::int32_t la = 0, lb = 0, lc = 0, le = 0;
    if97::getversion(la, lb, lc, le);
    const std::array<std::int32_t, 4> forwarded{a, b, c, e};
    const std::array<std::int32_t, 4> library{la, lb, lc, le};
    EXPECT_EQ(forwarded, library);
    testing::internal::CaptureStdout();
    if97_qv_sub_();
    const std::string adapter = testing::internal::GetCapturedStdout();
    testing::internal::CaptureStdout();
    if97::if97_sub();
    EXPECT_EQ(adapter, testing::internal::GetCapturedStdout());
    EXPECT_FALSE(adapter.empty());
}

TEST(If97QvExports, MissingValuePointersAreRefusedWithoutACrash) {
    Text<2> spec("PT");
    Text<4> property("h");
    Text<20> message;
    EXPECT_EQ(if97_prop_(spec.data(), nullptr, nullptr, property.data(), message.data(), spec.len(),
                         property.len(), message.len()),
              missing);
    if97_prop_(spec.data(), nullptr, nullptr, property.data(), nullptr, spec.len(), property.len(), 0);
    // A missing quality is not taken as 0: the library refuses it.
    Text<2> saturation("Tq");
    const double t = 100.0;
    EXPECT_EQ(if97_prop_(saturation.data(), &t, nullptr, property.data(), message.data(),
                         saturation.len(), property.len(), message.len()),
              missing);
}

}  // namespace
