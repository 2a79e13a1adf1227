// The host calling convention: the shared error record, text lengths,
// procedure arguments and the host channel.
#include <cstring>

#include "ondrel/pwsftn.h"
#include "pwsftn/pws_regions.hpp"
#include "pws_test_support.hpp"

namespace {

using pws_test::PackageTest;
using ExportTest = PackageTest;

extern "C" double host_h2_of_t_p(const double* t, const double* p) { return pws_d2_(p, t); }
extern "C" double host_s2_of_t_p(const double* t, const double* p) { return pws_e2_(p, t); }
extern "C" double host_a3_eps(const double* v, const double* t, const double*) { return pws_a3_(v, t); }

TEST_F(ExportTest, HostRecordIsThePackageRecord) {
    EXPECT_EQ(pwserr_.iunit, 6);
    EXPECT_EQ(pwserr_.maxmsg, 1000000);
    EXPECT_EQ(pwserr_.maxerr, 1000000);
    pwserr_.iunit = 13;
    const int32_t code = 2;
    const double t = 380.0, zero = 0.0;
    pwser_("PWS_PT  ", &code, &t, &zero, 8);
    EXPECT_EQ(pwserr_.nerr, 1);
    EXPECT_EQ(pws::pwserr().nerr, 1);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].channel, 13);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, T=  3.80000000E+02 ***");
}

TEST_F(ExportTest, RoutinesTakeTheirArgumentsByReference) {
    const double t = 100.0, p = 10.0, v = 0.005, tv = 400.0;
    EXPECT_EQ(pws_pt_(&t), pws::pws_pt(t));
    EXPECT_EQ(psl1_(&t), pws::pws_pt(t));
    EXPECT_EQ(psl1_slope_(), pws::psl1_slope());
    EXPECT_EQ(pws_d1_(&p, &t), pws::pws_d1(p, t));
    EXPECT_EQ(pws_h2_(&p, &tv), pws::pws_h2(p, tv));
    EXPECT_EQ(pws_a3_(&v, &tv), pws::pws_a3(v, tv));
    EXPECT_EQ(pws_ci_(&v, &tv), pws::pws_ci(v, tv));
    EXPECT_EQ(pws_cj_(&v, &tv), pws::pws_cj(v, tv));
    const double ps = pws_pt_(&t);
    EXPECT_NEAR(pws_it_(&ps), t, 1e-7);
}

TEST_F(ExportTest, IterationsCallHostProcedures) {
    const double v = 0.005, t = 400.0, eps = 1e-10;
    const double p = pws_a3_(&v, &t);
    double a = 0.0045, b = 0.0052;
    EXPECT_NEAR(pws_i2_(pws_a3_, &t, &p, &a, &b, &eps), v, 1e-10);
    a = 0.0045;
    b = 0.0052;
    EXPECT_NEAR(pws_i3_(host_a3_eps, &t, &p, &a, &b, &eps), v, 1e-10);
    const double pf = 10.0, tf = 300.0, h = pws_d2_(&pf, &tf), s = pws_e2_(&pf, &tf);
    double ta = 250.0, tb = 400.0;
    EXPECT_NEAR(pws_i1_(pws_d2_, &pf, &h, &ta, &tb, &eps), tf, 1e-6);
    double xa = 200.0, xb = 500.0, ya = 1.0, yb = 50.0;
    const double eps9 = 1e-9;
    pws_id_(host_s2_of_t_p, &s, host_h2_of_t_p, &h, &xa, &xb, &ya, &yb, &eps9);
    EXPECT_NEAR(xa, tf, 1e-5);
    EXPECT_NEAR(ya, pf, 1e-6);
}

std::string& last_callback_line() {
    static std::string line;
    return line;
}

extern "C" void host_line(const char* text, size_t n) { last_callback_line().assign(text, n); }

TEST_F(ExportTest, HostChannelIsSetThroughTheExports) {
    pws::set_record_sink_for_tests({});
    pws_set_channel13_callback_(host_line);
    pws::write_record(13, "to the host");
    EXPECT_EQ(last_callback_line(), "to the host");
    const std::string path = ::testing::TempDir() + "pws_ch13_export.txt";
    std::remove(path.c_str());
    const std::string padded = path + "     ";  // a blank-padded Fortran text
    int32_t ierr = -1;
    pws_set_channel13_file_(padded.data(), &ierr, padded.size());
    EXPECT_EQ(ierr, 0);
    pws::write_record(13, "to the file");
    pws_set_channel13_stderr_();
    std::ifstream in(path);
    std::string line;
    std::getline(in, line);
    EXPECT_EQ(line, "to the file");
    std::remove(path.c_str());
    const char bad[] = "/nonexistent-dir/z.txt";
    pws_set_channel13_file_(bad, &ierr, std::strlen(bad));
    EXPECT_EQ(ierr, 1);
}

}  // namespace
