// Error reporting: edit formats, line layouts, the count, the print and stop
// limits and the channel of the lines.
#include <cstdio>

#include "pws_support.hpp"

namespace {

using pws_test::PackageTest;
using pws_test::Row;
using pws_test::table;
using PwsMessages = PackageTest;

TEST(PwsFortranFormat, WritesValuesLikeTheEditDescriptors) {
    for (const Row& r : table("pwsftn/fortran_e.csv")) {
        SCOPED_TRACE(r.line);
        const auto field = [&](const char* c) { return static_cast<int>(r[c]); };
        EXPECT_EQ(pws::fortran_e(r["value"], field("width"), field("digits"), field("scale")), r.text("text"));
    }
    EXPECT_EQ(pws::fortran_i(42, 5), "   42");
    EXPECT_EQ(pws::fortran_i(1000001, 5), "*****");
    EXPECT_EQ(pws::list_integer(7), "           7");
}

TEST_F(PwsMessages, ErrorLineShowsTheTextAndLabelsOfTheCodeButNotTheRoutine) {
    std::size_t n = 0;
    for (const Row& r : table("pwsftn/error_lines.csv")) {
        SCOPED_TRACE(r.line);
        pws::pwser("MYNAME", std::stoi(r.text("icode")), r["x1"], r["x2"]);
        ASSERT_EQ(records.size(), ++n);
        EXPECT_EQ(written().back(), "6|" + r.text("line"));
    }
    EXPECT_EQ(errors(), static_cast<int>(n));
}

TEST_F(PwsMessages, LinesGoToTheRecordsChannelUpToThePrintLimitAndAreAllCounted) {
    pws::set_pwserr({pws::host_channel, 2, 1000000, 0});
    for (int i = 0; i < 4; ++i) pws::pwser("X", 1, 1.0, 0.0);
    pws::warn_iterations("PWS_I1");  // written past the print limit, not counted
    EXPECT_EQ(written(), (std::vector<std::string>{
                             "13| *** PWSFTN-ERROR: Out of range, P=  1.00000000E+00 ***",
                             "13| *** PWSFTN-ERROR: Out of range, P=  1.00000000E+00 ***",
                             "13| *** PWSFTN-WARNING: Maximum number of iterations exceeded (code: PWS_I1) ***"}));
    EXPECT_EQ(errors(), 4);
}

// In the child of a death test the records go to standard error, tagged with their channel.
void records_to_stderr() {
    pws::set_record_sink_for_tests([](int channel, std::string_view line) {
        std::fprintf(stderr, "[%d]%.*s\n", channel, static_cast<int>(line.size()), line.data());
    });
}

TEST_F(PwsMessages, ErrorAtTheStopLimitIsWrittenAndTheNextOneStopsTheProcess) {
    pws::set_pwserr({6, 1000000, 1000000, 999999});
    pws::pwser("X", 2, 380.0, 0.0);  // the 1,000,000th: written, survived
    EXPECT_EQ(records.size(), 1u);
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

TEST_F(PwsMessages, StopSummaryShowsTheCountInFiveColumnsOnTheRecordsChannel) {
    pws::set_pwserr({pws::host_channel, 1000000, 2, 2});
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

}  // namespace
