// The host calling convention: the shared error record, arguments by
// reference, procedure arguments, text lengths and the host channel.
#include <array>
#include <cstring>

#include "ondrel/pwsftn.h"
#include "pwsftn/pwsftn.hpp"
#include "tests/pwsftn/pws_support.hpp"

namespace {

using pws_test::near;
using pws_test::PackageTest;
using PwsExports = PackageTest;

constexpr double untouched = -12345.0;

extern "C" double host_h2_of_t_p(const double* t, const double* p) { return pws_d2_(p, t); }
extern "C" double host_s2_of_t_p(const double* t, const double* p) { return pws_e2_(p, t); }
extern "C" double host_a3_eps(const double* v, const double* t, const double*) { return pws_a3_(v, t); }
// A host inverse routine: (T, X) with the temperature in Fahrenheit.
extern "C" int32_t host_fahrenheit_x(double* a, double* b, const double* eps) {
    *a = (*a - 32.0) / 1.8;
    return pwsrtx_(a, b, eps);
}
std::string& callback_line() {
    static std::string line;
    return line;
}
extern "C" void host_line(const char* text, size_t n) { callback_line().assign(text, n); }

TEST_F(PwsExports, HostRecordIsThePackageRecord) {
    EXPECT_EQ(pwserr_.iunit, 6);
    EXPECT_EQ(pwserr_.maxmsg, 1000000);
    EXPECT_EQ(pwserr_.maxerr, 1000000);
    pwserr_.iunit = 13;
    const int32_t code = 2;
    const double t = 380.0, zero = 0.0;
    pwser_("PWS_PT  ", &code, &t, &zero, 8);
    EXPECT_EQ(pws::pwserr().nerr, 1);
    EXPECT_EQ(written(), std::vector<std::string>{"13| *** PWSFTN-ERROR: Out of range, T=  3.80000000E+02 ***"});
}

TEST_F(PwsExports, RoutinesTakeTheirArgumentsByReferenceInTheirOrder) {
    const double t = 100.0, p = 10.0, v = 0.005, tv = 400.0, eps = 1e-8;
    EXPECT_EQ(psl1_(&t), pws::pws_pt(t));
    EXPECT_EQ(psl1_slope_(), pws::psl1_slope());
    EXPECT_EQ(pws_d1_(&p, &t), pws::pws_d1(p, t));
    EXPECT_EQ(pws_h2_(&p, &tv), pws::pws_h2(p, tv));
    EXPECT_EQ(pws_ci_(&v, &tv), pws::pws_ci(v, tv));
    EXPECT_EQ(pws_cj_(&v, &tv), pws::pws_cj(v, tv));
    const double ps = pws_pt_(&t);
    EXPECT_NEAR(pws_it_(&ps), t, 1e-7);
    double a = 0.002, b = 2100.0, ca = a, cb = b;
    EXPECT_EQ(pwsrvh_(&a, &b, &eps), pws::pwsrvh(ca, cb, eps));
    EXPECT_EQ(a, ca);
    EXPECT_EQ(b, cb);
    EXPECT_EQ(pws_hp_(&a, &b, &eps), pws::pws_hp(a, b, eps));
    EXPECT_EQ(pwsrpt_(nullptr, &b, &eps), 0);  // a missing argument places no state
    EXPECT_TRUE(std::isnan(pws_ut_(&a, &b, nullptr)));
}

TEST_F(PwsExports, IterationsCallHostProcedures) {
    const double v = 0.005, t = 400.0, eps = 1e-10, p = pws_a3_(&v, &t);
    double a = 0.0045, b = 0.0052;
    EXPECT_NEAR(pws_i2_(pws_a3_, &t, &p, &a, &b, &eps), v, 1e-10);
    a = 0.0045, b = 0.0052;
    EXPECT_NEAR(pws_i3_(host_a3_eps, &t, &p, &a, &b, &eps), v, 1e-10);
    const double pf = 10.0, tf = 300.0, h = pws_d2_(&pf, &tf), s = pws_e2_(&pf, &tf), eps9 = 1e-9;
    double ta = 250.0, tb = 400.0;
    EXPECT_NEAR(pws_i1_(pws_d2_, &pf, &h, &ta, &tb, &eps), tf, 1e-6);
    double xa = 200.0, xb = 500.0, ya = 1.0, yb = 50.0;
    pws_id_(host_s2_of_t_p, &s, host_h2_of_t_p, &h, &xa, &xb, &ya, &yb, &eps9);
    EXPECT_NEAR(xa, tf, 1e-5);
    EXPECT_NEAR(ya, pf, 1e-6);
}

TEST_F(PwsExports, EntryTakesARoutineOfTheHostAndBlankPaddedOrNulEndedKeys) {
    const double p = 10.0, h = 3000.0;
    std::array<double, 4> r, core;
    r.fill(untouched), core.fill(untouched);
    pwsftn_(pwsrph_, &p, &h, "T,S,V     ", r.data(), 10);
    pws::pwsftn(pws::pwsrph, p, h, "T,S,V", core);
    EXPECT_EQ(r, core);
    EXPECT_TRUE(near(pws::pws_d2(p, r[0]), h, 1e-8));
    const double tf = 212.0, x = 0.25;
    pwsftn_(host_fahrenheit_x, &tf, &x, "T,X.", r.data(), 4);
    EXPECT_TRUE(near(r[0], 100.0, 1e-14));
    EXPECT_EQ(r[1], 0.25);
    char text[32];
    std::memset(text, 'Z', sizeof text);
    std::memcpy(text, "T,P", 4);  // with its NUL
    r.fill(untouched);
    pwsftn_(pwsrpt_, &tf, &x, text, r.data(), sizeof text);
    EXPECT_EQ(r, (std::array<double, 4>{0.25, 212.0, untouched, untouched}));
    EXPECT_TRUE(records.empty());
}

TEST_F(PwsExports, EntryRefusesMissingArgumentsSafely) {
    const double x = 1.0, y = 20.0;
    std::array<double, 2> r{untouched, untouched};
    pwsftn_(nullptr, &x, &y, "T", r.data(), 1);
    pwsftn_(pwsrpt_, nullptr, &y, "T", r.data(), 1);
    pwsftn_(pwsrpt_, &x, &y, "T", nullptr, 1);
    pwsftn_(pwsrpt_, &x, &y, nullptr, r.data(), 0);  // no text: one blank key
    EXPECT_EQ(r[0], untouched);
    EXPECT_EQ(written(), (std::vector<std::string>{
                             "13| *** PWSFTN-ERROR: illegal region calculated: IREG =            0  ***",
                             "13| *** PWSFTN-ERROR: illegal dependend property:      ***"}));
}

TEST_F(PwsExports, HostChannelIsStandardErrorAFileOrACallback) {
    pws::set_record_sink_for_tests({});
    pws_set_channel13_callback_(host_line);
    pws::write_record(13, "to the host");
    EXPECT_EQ(callback_line(), "to the host");
    const std::string path = ::testing::TempDir() + "pws_channel13.txt";
    std::remove(path.c_str());
    const std::string padded = path + "     ";  // a blank-padded Fortran text
    int32_t ierr = -1;
    pws_set_channel13_file_(padded.data(), &ierr, padded.size());
    EXPECT_EQ(ierr, 0);
    pws::write_record(13, "to the file");
    pws::write_record(42, "other channel");  // unknown numbers go to the host channel
    for (const char* bad : {"nonexistent-dir/z.txt", ""}) {  // the channel stays as it was
        pws_set_channel13_file_(bad, &ierr, std::strlen(bad));
        EXPECT_EQ(ierr, 1);
    }
    pws::write_record(13, "still the file");
    pws_set_channel13_stderr_();
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    EXPECT_EQ(lines, (std::vector<std::string>{"to the file", "other channel", "still the file"}));
    EXPECT_EQ(callback_line(), "to the host");
    std::remove(path.c_str());
}

}  // namespace
