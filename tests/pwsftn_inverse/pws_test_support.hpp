// Shared helpers of the inverse-routine and entry-routine tests: reference
// tables, captured message records and state properties by region.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pwsftn.hpp"

namespace pwstest {

// One row of a reference table, by column name.
struct Row {
    std::map<std::string, double> value;
    std::string text;  // the row as written, for messages
    double operator[](const std::string& column) const { return value.at(column); }
};

inline void PrintTo(const Row& row, std::ostream* os) { *os << row.text; }

// Reads tests/data/pwsftn_inverse/<name>: comment lines start with '#', then
// a header of column names, then rows of numbers (text columns are skipped).
inline std::vector<Row> load_table(const std::string& name) {
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + "pwsftn_inverse/" + name);
    std::vector<Row> rows;
    std::vector<std::string> header;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells;
        std::stringstream ss(line);
        for (std::string cell; std::getline(ss, cell, ',');) cells.push_back(cell);
        if (header.empty()) {
            header = cells;
            continue;
        }
        Row row;
        row.text = line;
        for (std::size_t k = 0; k < cells.size() && k < header.size(); ++k) {
            char* end = nullptr;
            const double x = std::strtod(cells[k].c_str(), &end);
            if (end != cells[k].c_str() && *end == '\0') row.value[header[k]] = x;
        }
        rows.push_back(row);
    }
    return rows;
}

struct Record {
    int channel;
    std::string line;
};

// Resets the package and captures every record it writes.
class PackageTest : public ::testing::Test {
protected:
    std::vector<Record> records;

    void SetUp() override {
        pws::reset_error_for_tests();
        pws::reset_terms_for_tests();
        pws::reset_entry_for_tests();
        pws::set_record_sink_for_tests(
            [this](int channel, std::string_view line) { records.push_back({channel, std::string(line)}); });
    }
    void TearDown() override { pws::reset_error_for_tests(); }

    std::int32_t errors() const { return pws::pwserr().nerr; }
};

// Relative closeness with an absolute floor.
inline ::testing::AssertionResult close(double actual, double expected, double rel, double abs = 0.0) {
    const double tol = std::max(std::fabs(expected) * rel, abs);
    if (std::fabs(actual - expected) <= tol) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << actual << " differs from " << expected << " by "
                                         << actual - expected << " (tolerance " << tol << ")";
}

enum class Q { p, t, v, h, s, u };

// A property of a placed state (IREG, a, b), from the region equations.
inline double state_property(Q q, std::int32_t ireg, double a, double b) {
    if (q == Q::t) return b;
    if (q == Q::p) {
        if (ireg == 1 || ireg == 2) return a;
        if (ireg == 3 || ireg == 4) return pws::pws_a3(a, b);
        return pws::pws_pt(b);
    }
    auto r1 = [&](double p, double t) {
        switch (q) {
        case Q::v: return pws::pws_c1(p, t);
        case Q::h: return pws::pws_d1(p, t);
        case Q::s: return pws::pws_e1(p, t);
        default: return pws::pws_f1(p, t);
        }
    };
    auto r2 = [&](double p, double t) {
        switch (q) {
        case Q::v: return pws::pws_c2(p, t);
        case Q::h: return pws::pws_d2(p, t);
        case Q::s: return pws::pws_e2(p, t);
        default: return pws::pws_f2(p, t);
        }
    };
    auto r3 = [&](double v, double t) {
        switch (q) {
        case Q::v: return v;
        case Q::h: return pws::pws_d3(v, t);
        case Q::s: return pws::pws_e3(v, t);
        default: return pws::pws_f3(v, t);
        }
    };
    switch (ireg) {
    case 1: return r1(a, b);
    case 2: return r2(a, b);
    case 3:
    case 4: return r3(a, b);
    case 5: {
        const pws::SaturatedVolumes sv = pws::saturated_volumes3(pws::pws_pt(b), b);
        return r3(sv.liquid, b) + a * (r3(sv.vapour, b) - r3(sv.liquid, b));
    }
    case 6: {
        const double ps = pws::pws_pt(b);
        return r1(ps, b) + a * (r2(ps, b) - r1(ps, b));
    }
    default: return NAN;
    }
}

}  // namespace pwstest
