// Host calling convention of the inverse routines and the entry routine.
#include <array>
#include <cstring>

#include "ondrel/pwsftn.h"
#include "pws_test_support.hpp"

namespace {

using pwstest::close;
using pwstest::PackageTest;

constexpr double untouched = -12345.0;

// A host inverse routine: (T, X) with the temperature in Fahrenheit.
extern "C" int32_t host_fahrenheit_x(double* a, double* b, const double* eps) {
    double t = (*a - 32.0) / 1.8;
    double x = *b;
    const int32_t ireg = pwsrtx_(&t, &x, eps);
    *a = t;
    *b = x;
    return ireg;
}

TEST_F(PackageTest, ExportedInverseRoutinesMatchTheCore) {
    const double eps = 1.0E-8;
    double a = 10.0, b = 3000.0;
    double ca = a, cb = b;
    EXPECT_EQ(pwsrph_(&a, &b, &eps), pws::pwsrph(ca, cb, eps));
    EXPECT_EQ(a, ca);
    EXPECT_EQ(b, cb);
    a = 0.002, b = 2100.0;
    ca = a, cb = b;
    EXPECT_EQ(pwsrvh_(&a, &b, &eps), pws::pwsrvh(ca, cb, eps));
    EXPECT_EQ(a, ca);
    EXPECT_EQ(b, cb);
    EXPECT_EQ(pws_hp_(&a, &b, &eps), pws::pws_hp(a, b, eps));
    EXPECT_EQ(pwsrpt_(nullptr, &b, &eps), 0);
}

TEST_F(PackageTest, ExportedEntryTakesAnExportedRoutineAndBlankPaddedKeys) {
    const double p = 10.0, h = 3000.0;
    std::array<double, 4> r;
    r.fill(untouched);
    const char keys[] = "T,S,V     ";  // fixed width 10, blank padded
    pwsftn_(pwsrph_, &p, &h, keys, r.data(), 10);
    std::array<double, 4> core;
    core.fill(untouched);
    pws::pwsftn(pws::pwsrph, p, h, "T,S,V", core);
    EXPECT_EQ(r, core);
    EXPECT_TRUE(close(pws::pws_d2(p, r[0]), h, 1e-8));
    EXPECT_TRUE(records.empty());
}

TEST_F(PackageTest, ExportedEntryCallsAHostRoutine) {
    const double tf = 212.0, x = 0.25;
    std::array<double, 2> r{untouched, untouched};
    pwsftn_(host_fahrenheit_x, &tf, &x, "T,X.", r.data(), 4);
    EXPECT_TRUE(close(r[0], 100.0, 1e-14));
    EXPECT_EQ(r[1], 0.25);
}

TEST_F(PackageTest, ExportedEntryRefusesMissingArgumentsSafely) {
    const double x = 1.0, y = 20.0;
    std::array<double, 2> r{untouched, untouched};
    pwsftn_(nullptr, &x, &y, "T", r.data(), 1);
    EXPECT_EQ(r[0], untouched);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: illegal region calculated: IREG =            0  ***");
    pwsftn_(pwsrpt_, nullptr, &y, "T", r.data(), 1);
    pwsftn_(pwsrpt_, &x, &y, "T", nullptr, 1);
    pwsftn_(pwsrpt_, &x, &y, nullptr, r.data(), 0);  // no text: one blank key
    EXPECT_EQ(r[0], untouched);
    EXPECT_EQ(records.size(), 2u);
}

TEST_F(PackageTest, ExportedEntryStopsTheTextAtANul) {
    const double x = 1.0, y = 20.0;
    std::array<double, 3> r{untouched, untouched, untouched};
    char text[32];
    std::memset(text, 'Z', sizeof text);
    std::memcpy(text, "T,P", 4);  // with its NUL
    pwsftn_(pwsrpt_, &x, &y, text, r.data(), sizeof text);
    EXPECT_EQ(r[0], 20.0);
    EXPECT_EQ(r[1], 1.0);
    EXPECT_EQ(r[2], untouched);
    EXPECT_TRUE(records.empty());
}

}  // namespace
