// Error reporting: line layouts, count, print and stop limits, channels.
#include <cstdio>
#include <fstream>
#include <limits>

#include "pws_test_support.hpp"

namespace {

using pws_test::PackageTest;
using ErrorTest = PackageTest;

TEST(FortranFormat, WritesScientificValuesWithScaleFactorOne) {
    EXPECT_EQ(pws::fortran_e(380.0, 16, 8, 1), "  3.80000000E+02");
    EXPECT_EQ(pws::fortran_e(-0.00317, 16, 8, 1), " -3.17000000E-03");
    EXPECT_EQ(pws::fortran_e(0.0, 16, 8, 1), "  0.00000000E+00");
    EXPECT_EQ(pws::fortran_e(9.999999999, 16, 8, 1), "  1.00000000E+01");  // rounding carries
    EXPECT_EQ(pws::fortran_e(1.0e100, 16, 8, 1), "  1.00000000+100");      // three-digit exponent
    EXPECT_EQ(pws::fortran_e(-350.0, 16, 9, 1), "-3.500000000E+02");
}

TEST(FortranFormat, WritesScientificValuesWithScaleFactorZero) {
    EXPECT_EQ(pws::fortran_e(350.0, 16, 9, 0), " 0.350000000E+03");
    EXPECT_EQ(pws::fortran_e(0.0, 16, 9, 0), " 0.000000000E+00");
    EXPECT_EQ(pws::fortran_e(-0.5, 16, 9, 0), "-0.500000000E+00");
    EXPECT_EQ(pws::fortran_e(-350.0, 15, 9, 0), "-.350000000E+03");  // the optional zero goes first
}

TEST(FortranFormat, WritesSpecialValuesAndOverflowsLikeTheEditDescriptor) {
    EXPECT_EQ(pws::fortran_e(std::numeric_limits<double>::quiet_NaN(), 16, 8, 1), "             NaN");
    EXPECT_EQ(pws::fortran_e(std::numeric_limits<double>::infinity(), 16, 8, 1), "        Infinity");
    EXPECT_EQ(pws::fortran_e(-std::numeric_limits<double>::infinity(), 16, 8, 1), "       -Infinity");
    EXPECT_EQ(pws::fortran_e(-380.0, 10, 8, 1), "**********");
    EXPECT_EQ(pws::fortran_i(42, 5), "   42");
    EXPECT_EQ(pws::fortran_i(1000001, 5), "*****");
    EXPECT_EQ(pws::list_integer(7), "           7");
}

TEST_F(ErrorTest, OneQuantityCodeShowsItsLabelAndValue) {
    pws::pwser("PWS_PT", 2, 380.0, 0.0);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].channel, pws::stdout_channel);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, T=  3.80000000E+02 ***");
    EXPECT_EQ(errors(), 1);
}

TEST_F(ErrorTest, TwoDigitCodeShowsTensLabelFirstAndNegativeCodeSaysNonConvergence) {
    pws::pwser("COMT1", 12, 1000.5, 20.0);
    pws::pwser("X", -35, 2500.0, -6.5);
    pws::pwser("X", -1, 221.3, 0.0);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].line,
              " *** PWSFTN-ERROR: Out of range, P=  1.00050000E+03, T=  2.00000000E+01 ***");
    EXPECT_EQ(records[1].line,
              " *** PWSFTN-ERROR: Non converg., H=  2.50000000E+03, S= -6.50000000E+00 ***");
    EXPECT_EQ(records[2].line, " *** PWSFTN-ERROR: Non converg., P=  2.21300000E+02 ***");
}

TEST_F(ErrorTest, RoutineNameIsNeverPrinted) {
    pws::pwser("MYNAME", 4, 0.1, 0.0);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].line.find("MYNAME"), std::string::npos);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, V=  1.00000000E-01 ***");
}

TEST_F(ErrorTest, CodesWithoutLabelsAreWrittenWithoutHarm) {
    pws::pwser("X", 0, 1.0, 0.0);
    pws::pwser("X", std::numeric_limits<std::int32_t>::min(), 1.0, 2.0);
    pws::pwser("X", 99, 1.0, 2.0);
    ASSERT_EQ(records.size(), 3u);
    EXPECT_EQ(records[0].line, " *** PWSFTN-ERROR: Out of range, ?=  1.00000000E+00 ***");
    EXPECT_EQ(records[2].line,
              " *** PWSFTN-ERROR: Out of range, ?=  1.00000000E+00, ?=  2.00000000E+00 ***");
    EXPECT_EQ(errors(), 3);
}

TEST_F(ErrorTest, LinesGoToTheChannelOfTheRecordAndStopAfterThePrintLimit) {
    pws::ErrorRecord r = pws::pwserr();
    r.iunit = pws::host_channel;
    r.maxmsg = 2;
    pws::set_pwserr(r);
    for (int i = 0; i < 4; ++i) pws::pwser("X", 1, 1.0, 0.0);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].channel, pws::host_channel);
    EXPECT_EQ(errors(), 4);  // counted all the same
}

TEST_F(ErrorTest, IterationWarningIsWrittenButNotCounted) {
    pws::warn_iterations("PWS_I1");
    pws::warn_iterations("PWS_ID");
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].channel, pws::stdout_channel);
    EXPECT_EQ(records[0].line,
              " *** PWSFTN-WARNING: Maximum number of iterations exceeded (code: PWS_I1) ***");
    EXPECT_EQ(records[1].line,
              " *** PWSFTN-WARNING: Maximum number of iterations exceeded (code: PWS_ID) ***");
    EXPECT_EQ(errors(), 0);
}

// In the child of a death test the records go to standard error, tagged with their channel.
void records_to_stderr() {
    pws::set_record_sink_for_tests([](int channel, std::string_view line) {
        std::fprintf(stderr, "[%d]%.*s\n", channel, static_cast<int>(line.size()), line.data());
    });
}

TEST_F(ErrorTest, ErrorAtTheLimitIsWrittenAndTheNextOneStopsTheProcess) {
    pws::ErrorRecord r = pws::pwserr();
    r.nerr = 999999;
    pws::set_pwserr(r);
    pws::pwser("X", 2, 380.0, 0.0);  // the 1,000,000th: written, survived
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(errors(), 1000000);
    EXPECT_EXIT(
        {
            records_to_stderr();
            pws::pwser("X", 2, 380.0, 0.0);
        },
        ::testing::ExitedWithCode(0),
        "^\\[6\\]\n\\[6\\] Execution inhibited due to PWSFTN-ERROR count!\n"
        "\\[6\\] Number of diagnosed errors: \\*\\*\\*\\*\\*\n\\[6\\]\n$");
}

TEST_F(ErrorTest, StopSummaryShowsTheCountInFiveColumns) {
    pws::ErrorRecord r = pws::pwserr();
    r.maxerr = 2;
    r.iunit = pws::host_channel;
    pws::set_pwserr(r);
    pws::pwser("X", 2, 380.0, 0.0);
    pws::pwser("X", 2, 380.0, 0.0);
    EXPECT_EXIT(
        {
            records_to_stderr();
            pws::pwser("X", 1, 5.0, 0.0);
        },
        ::testing::ExitedWithCode(0),
        "^\\[13\\] \\*\\*\\* PWSFTN-ERROR: Out of range, P=  5.00000000E\\+00 \\*\\*\\*\n\\[13\\]\n"
        "\\[13\\] Execution inhibited due to PWSFTN-ERROR count!\n"
        "\\[13\\] Number of diagnosed errors:     3\n\\[13\\]\n$");
}

std::vector<std::string>& callback_lines() {
    static std::vector<std::string> lines;
    return lines;
}

TEST_F(ErrorTest, HostChannelCanBeAFileOrACallback) {
    pws::set_record_sink_for_tests({});
    const std::string path = ::testing::TempDir() + "pws_channel13.txt";
    std::remove(path.c_str());
    ASSERT_TRUE(pws::set_channel13_file(path));
    pws::write_record(pws::host_channel, "first line");
    pws::write_record(42, "other channel");  // unknown numbers go to the host channel
    callback_lines().clear();
    pws::set_channel13_callback([](const char* text, std::size_t n) { callback_lines().emplace_back(text, n); });
    pws::write_record(pws::host_channel, "to callback");
    pws::set_channel13_stderr();
    std::ifstream in(path);
    std::string a, b, c;
    std::getline(in, a);
    std::getline(in, b);
    EXPECT_EQ(a, "first line");
    EXPECT_EQ(b, "other channel");
    EXPECT_FALSE(std::getline(in, c));
    EXPECT_EQ(callback_lines(), std::vector<std::string>{"to callback"});
    std::remove(path.c_str());
}

TEST_F(ErrorTest, UnopenableFileLeavesTheHostChannelUnchanged) {
    EXPECT_FALSE(pws::set_channel13_file("/nonexistent-dir/x/y.txt"));
    EXPECT_FALSE(pws::set_channel13_file(""));
}

}  // namespace
