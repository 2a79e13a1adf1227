// Shared helpers of the water-and-steam package tests: reference tables,
// closeness, properties by region and state, and a clean package state per
// test with every written record captured.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws_test {

// One row of a table by column name; `line` is the row as written.
struct Row {
    std::map<std::string, std::string> cell;
    std::string line;
    const std::string& text(const std::string& column) const { return cell.at(column); }
    double operator[](const std::string& column) const { return std::stod(cell.at(column)); }
};
inline void PrintTo(const Row& row, std::ostream* os) { *os << row.line; }

// Reads tests/data/<name>: '#' comment lines, a header, comma-separated rows;
// a field in double quotes may hold commas and keeps its blanks.
inline std::vector<Row> table(const std::string& name) {
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + name);
    if (!in) throw std::runtime_error("missing table " + name);
    std::vector<Row> rows;
    std::vector<std::string> header;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells(1);
        bool quoted = false;
        for (char c : line) {
            if (c == '"') quoted = !quoted;
            else if (c == ',' && !quoted) cells.emplace_back();
            else cells.back() += c;
        }
        if (header.empty()) {
            header = cells;
            continue;
        }
        Row row{{}, line};
        for (std::size_t k = 0; k < cells.size() && k < header.size(); ++k) row.cell[header[k]] = cells[k];
        rows.push_back(row);
    }
    return rows;
}

// |actual - expected| within max(rel |expected|, abs); NaN is never near.
inline ::testing::AssertionResult near(double actual, double expected, double rel, double abs = 0.0) {
    if (std::fabs(actual - expected) <= std::max(rel * std::fabs(expected), abs))
        return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << actual << " differs from " << expected << " by "
                                         << actual - expected;
}

enum class Q { p, t, v, h, s, u, cp, x };

// A property from the region equations: sub-region 1 and region 2 at (p, t),
// region 3 at (v, t).
inline double region_property(Q q, int region, double a, double b) {
    if (q == Q::t) return b;
    if (q == (region == 3 ? Q::v : Q::p)) return a;
    static constexpr pws::Func2 f[][3] = {
        {nullptr, nullptr, pws::pws_a3},     {nullptr, nullptr, nullptr},
        {pws::pws_c1, pws::pws_c2, nullptr}, {pws::pws_d1, pws::pws_d2, pws::pws_d3},
        {pws::pws_e1, pws::pws_e2, pws::pws_e3}, {pws::pws_f1, pws::pws_f2, pws::pws_f3},
        {pws::pws_h1, pws::pws_h2, pws::pws_h3}};
    return f[static_cast<int>(q)][region - 1](a, b);
}

// A property of the state (IREG, a, b) that an inverse routine placed.
inline double state_property(Q q, std::int32_t ireg, double a, double b) {
    if (ireg < 5) {
        if (q == Q::x) return ireg == 1 || ireg == 4 ? 0.0 : 1.0;
        return region_property(q, ireg < 3 ? ireg : 3, a, b);
    }
    const double ps = pws::pws_pt(b);
    if (q == Q::x) return a;
    if (q == Q::p) return ps;
    const pws::SaturatedVolumes sv =
        ireg == 5 ? pws::saturated_volumes3(ps, b) : pws::SaturatedVolumes{ps, ps};
    const double liquid = region_property(q, ireg == 5 ? 3 : 1, sv.liquid, b);
    return liquid + a * (region_property(q, ireg == 5 ? 3 : 2, sv.vapour, b) - liquid);
}

// The inverse routine of a name ("none": no routine).
inline pws::InverseFn routine(const std::string& name) {
    static const std::map<std::string, pws::InverseFn> by_name{
        {"pwsrpt", pws::pwsrpt}, {"pwsrph", pws::pwsrph}, {"pwsrps", pws::pwsrps}, {"pwsrpu", pws::pwsrpu},
        {"pwsrpv", pws::pwsrpv}, {"pwsrpx", pws::pwsrpx}, {"pwsrtv", pws::pwsrtv}, {"pwsrth", pws::pwsrth},
        {"pwsrtx", pws::pwsrtx}, {"pwsrtu", pws::pwsrtu}, {"pwsrts", pws::pwsrts}, {"pwsrsx", pws::pwsrsx},
        {"pwsrhs", pws::pwsrhs}, {"pwsrus", pws::pwsrus}, {"pwsrvh", pws::pwsrvh}, {"pwsrvs", pws::pwsrvs},
        {"pwsrvu", pws::pwsrvu}, {"none", nullptr}};
    return by_name.at(name);
}

// Fresh error record, caches and channels per test; records are captured.
class PackageTest : public ::testing::Test {
protected:
    void SetUp() override {
        pws::reset_error_for_tests();
        pws::reset_terms_for_tests();
        pws::set_record_sink_for_tests(
            [this](int channel, std::string_view line) { records.push_back({channel, std::string(line)}); });
    }
    void TearDown() override { pws::reset_error_for_tests(); }
    static int errors() { return pws::pwserr().nerr; }
    // The records written so far, each as "<channel>|<line>".
    std::vector<std::string> written() const {
        std::vector<std::string> out;
        for (const auto& [channel, line] : records) out.push_back(std::to_string(channel) + "|" + line);
        return out;
    }
    struct Record {
        int channel;
        std::string line;
    };
    std::vector<Record> records;
};

}  // namespace pws_test
