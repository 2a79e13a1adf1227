// Reader of the reference tables in tests/data/if97: a first comment line
// naming the source, a header naming columns and units, then rows.
#pragma once
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <map>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace if97_test {

struct Row {
    std::string label;
    std::map<std::string, std::string> cells;

    bool has(const std::string& col) const {
        auto it = cells.find(col);
        return it != cells.end() && !it->second.empty();
    }
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

inline void PrintTo(const Row& r, std::ostream* os) { *os << r.label; }

inline std::vector<Row> load_table(const std::string& file) {
    std::vector<Row> rows;
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + "if97/" + file);
    std::string line;
    std::vector<std::string> header;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> fields;
        std::stringstream ss(line);
        std::string f;
        while (std::getline(ss, f, ',')) fields.push_back(f);
        if (!line.empty() && line.back() == ',') fields.emplace_back();
        if (header.empty()) {
            header = fields;
            continue;
        }
        Row r;
        r.label = file + " row " + std::to_string(rows.size() + 1);
        for (std::size_t k = 0; k < header.size() && k < fields.size(); ++k) r.cells[header[k]] = fields[k];
        rows.push_back(r);
    }
    return rows;
}

}  // namespace if97_test
