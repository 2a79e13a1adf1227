// The exported inverse routines and entry routine repeat, bit for bit, the
// outputs recorded in legacy_outputs.csv: states and regions of every input
// pair through every region, the region edges, absurd and out-of-range
// inputs, key lists, the lines on channels 6 and 13 and the error count. The
// rows run in table order from a fresh package, so the common-term caches
// carry from row to row as they did when the table was recorded.
#include <array>
#include <bit>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <sstream>

#include "ondrel/pwsftn.h"
#include "pwsftn/pwsftn.hpp"
#include "tests/pwsftn/pws_support.hpp"

namespace {

using pws_test::PackageTest;
using pws_test::Row;
using pws_test::table;
using PwsLegacyOutputs = PackageTest;

constexpr double untouched = -12345.0;

pws_inverse_routine exported(const std::string& name) {
    static const std::map<std::string, pws_inverse_routine> by_name{
        {"pwsrpt", pwsrpt_}, {"pwsrph", pwsrph_}, {"pwsrps", pwsrps_}, {"pwsrpu", pwsrpu_},
        {"pwsrpv", pwsrpv_}, {"pwsrpx", pwsrpx_}, {"pwsrtv", pwsrtv_}, {"pwsrth", pwsrth_},
        {"pwsrtx", pwsrtx_}, {"pwsrtu", pwsrtu_}, {"pwsrts", pwsrts_}, {"pwsrsx", pwsrsx_},
        {"pwsrhs", pwsrhs_}, {"pwsrus", pwsrus_}, {"pwsrvh", pwsrvh_}, {"pwsrvs", pwsrvs_},
        {"pwsrvu", pwsrvu_}};
    return by_name.at(name);
}

double hex(const std::string& text) { return std::strtod(text.c_str(), nullptr); }

// Equal bit for bit; any NaN matches any NaN (the text keeps no payload).
bool same(double actual, double expected) {
    if (std::isnan(expected)) return std::isnan(actual);
    return std::bit_cast<std::uint64_t>(actual) == std::bit_cast<std::uint64_t>(expected);
}

std::string shown(double x) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%a", x);
    return buf;
}

TEST_F(PwsLegacyOutputs, RepeatTheRecordedCallSequenceBitForBit) {
    pws::reset_entry_for_tests();
    std::vector<std::string> faults;
    const auto fault = [&](const Row& r, const std::string& what) {
        faults.push_back("row " + r.text("row") + " (" + r.text("routine") + "): " + what);
    };
    const std::vector<Row> rows = table("pwsftn_legacy/legacy_outputs.csv");
    for (const Row& r : rows) {
        records.clear();
        const pws_inverse_routine fn = exported(r.text("routine"));
        const double x = hex(r.text("x")), y = hex(r.text("y")), eps = 1.0E-8;
        double a = x, b = y;
        const std::int32_t ireg = fn(&a, &b, &eps);
        if (ireg != std::stoi(r.text("ireg"))) fault(r, "ireg " + std::to_string(ireg));
        if (!same(a, hex(r.text("a")))) fault(r, "a " + shown(a));
        if (!same(b, hex(r.text("b")))) fault(r, "b " + shown(b));

        const std::string depend = r.text("depend");
        std::array<double, 24> res;
        res.fill(untouched);
        pwsftn_(fn, &x, &y, depend.data(), res.data(), depend.size());
        std::istringstream values(r.text("results"));
        std::size_t k = 0;
        for (std::string v; values >> v; ++k) {
            const double expected = v == "-" ? untouched : hex(v);
            if (!same(res[k], expected)) fault(r, "result " + std::to_string(k) + " " + shown(res[k]));
        }
        if (k != pws::key_count(depend)) fault(r, "key count");

        if (pwserr_.nerr != std::stoi(r.text("nerr"))) fault(r, "nerr " + std::to_string(pwserr_.nerr));
        std::string joined;
        for (const std::string& line : written()) joined += (joined.empty() ? "" : ";") + line;
        if (joined != r.text("lines")) fault(r, "lines " + joined);
    }
    EXPECT_GT(rows.size(), 2000u);
    EXPECT_TRUE(faults.empty()) << faults.size() << " differences, the first: " << faults.front();
}

}  // namespace
