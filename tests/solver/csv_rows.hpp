// Case tables under tests/data (a first comment line naming the source, a
// header line naming the columns, one case per line) and test mixtures.
#pragma once
#include <cmath>
#include <fstream>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fluiddata/od_types.hpp"

namespace od::test {

struct CsvRow {
    std::map<std::string, std::string> cells;
    // The text of a column; fallback when the table has no such column.
    std::string text(const std::string& column, const std::string& fallback = "") const {
        const auto it = cells.find(column);
        return it == cells.end() ? fallback : it->second;
    }
    // The number of a column; NaN for an empty cell, fallback without the column.
    double num(const std::string& column, double fallback = NAN) const {
        const auto it = cells.find(column);
        return it == cells.end() ? fallback : it->second.empty() ? NAN : std::stod(it->second);
    }
    friend std::ostream& operator<<(std::ostream& os, const CsvRow& r) {
        for (const auto& [column, cell] : r.cells) os << column << "=" << cell << " ";
        return os;
    }
};

inline std::vector<CsvRow> read_csv(const std::string& file) {
    std::ifstream in(ONDREL_TEST_DATA_DIR + file);
    std::vector<std::string> columns;
    std::vector<CsvRow> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> fields;
        std::stringstream ss(line + ",");
        for (std::string f; std::getline(ss, f, ',');) fields.push_back(f);
        if (columns.empty()) {
            columns = fields;
            continue;
        }
        CsvRow& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size() && i < fields.size(); ++i) row.cells[columns[i]] = fields[i];
    }
    return rows;
}

// The rows of a table as test parameters, and their test names row0, row1, ...
// (printed rows would make unwieldy test names).
inline auto rows_of(const std::string& file) { return ::testing::ValuesIn(read_csv(file)); }
inline std::string row_name(const ::testing::TestParamInfo<CsvRow>& info) { return "row" + std::to_string(info.index); }

// A mixture written as "N2:0.79;O2:0.21" (name:concentration, ';' between).
struct TestMixture {
    std::vector<CompName> names;
    std::vector<double> conc;
    explicit TestMixture(const std::string& text) {
        std::stringstream ss(text);
        for (std::string part; std::getline(ss, part, ';');) {
            names.push_back(CompName::from(part.substr(0, part.rfind(':'))));
            conc.push_back(std::stod(part.substr(part.rfind(':') + 1)));
        }
    }
    Mixture view() const { return {names, conc}; }
    // The names as a Fortran caller lays them out: texts of one width, blank-padded.
    std::string padded(std::size_t width) const {
        std::string s;
        for (const CompName& name : names) s += std::string(name.trimmed()).append(width, ' ').substr(0, width);
        return s;
    }
    int n() const { return static_cast<int>(names.size()); }
};

}  // namespace od::test
