// Reader of the reference tables in tests/data: comment lines start with
// '#', the first other line names the columns and units, then one row a line.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace if97_test {

struct Row {
    std::string label;
    std::map<std::string, std::string> cells;

    bool has(const std::string& col) const { return cells.contains(col) && !cells.at(col).empty(); }
    double num(const std::string& col) const { return std::strtod(cells.at(col).c_str(), nullptr); }
    const std::string& text(const std::string& col) const { return cells.at(col); }

    // Half a unit in the last printed digit of a cell, slightly widened for
    // the rounding of the computation itself.
    double half_last_digit(const std::string& col) const {
        const std::string& s = cells.at(col);
        const std::size_t e = s.find_first_of("eE");
        const std::string mant = s.substr(0, e);
        const int exponent = e == std::string::npos ? 0 : std::atoi(s.c_str() + e + 1);
        const std::size_t dot = mant.find('.');
        const int decimals = dot == std::string::npos ? 0 : static_cast<int>(mant.size() - dot - 1);
        return 0.51 * std::pow(10.0, exponent - decimals);
    }
};

inline std::ostream& operator<<(std::ostream& os, const Row& r) { return os << r.label; }

// Rows of tests/data/<path>; an unreadable file gives no rows, which leaves
// its parameterised suite without cases and fails it.
inline std::vector<Row> load_table(const std::string& path) {
    std::vector<Row> rows;
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + path);
    std::string line;
    std::vector<std::string> header;
    for (int number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> fields;
        std::stringstream ss(line);
        for (std::string f; std::getline(ss, f, ',');) fields.push_back(f);
        if (line.back() == ',') fields.emplace_back();
        if (header.empty()) {
            header = fields;
            continue;
        }
        Row r{path + ":" + std::to_string(number), {}};
        for (std::size_t k = 0; k < header.size() && k < fields.size(); ++k) r.cells[header[k]] = fields[k];
        rows.push_back(r);
    }
    return rows;
}

// A reference table's rows, each with the function giving the values its
// columns must reproduce: a negative tolerance means half a unit in the
// last digit printed in the table.
struct Out {
    std::string col;
    double value;
    double tol = -1.0;
};
using Compute = std::function<std::vector<Out>(const Row&)>;
struct Case {
    Row row;
    Compute compute;
};
inline std::ostream& operator<<(std::ostream& os, const Case& c) { return os << c.row; }

inline std::vector<Case> cases(const std::string& dir, const std::map<std::string, Compute>& tables) {
    std::vector<Case> out;
    for (const auto& [file, compute] : tables) {
        for (Row& r : load_table(dir + file)) out.push_back({r, compute});
    }
    return out;
}

inline void expect_row(const Case& c) {
    int checked = 0;
    for (const Out& o : c.compute(c.row)) {
        if (!c.row.has(o.col)) continue;
        EXPECT_NEAR(o.value, c.row.num(o.col), o.tol < 0 ? c.row.half_last_digit(o.col) : o.tol) << o.col;
        ++checked;
    }
    EXPECT_GT(checked, 0) << "no column of the row was checked";
}

}  // namespace if97_test
