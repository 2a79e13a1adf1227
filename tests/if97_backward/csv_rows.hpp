// Reads the reference tables of tests/data: comment lines start with '#',
// the first other line names the columns, every further line is one row.
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
    std::string file;
    int line = 0;
    std::map<std::string, std::string> fields;

    const std::string& text(const std::string& column) const { return fields.at(column); }
    double value(const std::string& column) const { return std::strtod(text(column).c_str(), nullptr); }
};

inline std::ostream& operator<<(std::ostream& os, const Row& r) {
    return os << r.file << ':' << r.line;
}

inline std::vector<std::string> split(const std::string& line) {
    std::vector<std::string> out;
    std::stringstream ss(line);
    std::string cell;
    while (std::getline(ss, cell, ',')) out.push_back(cell);
    return out;
}

// Rows of tests/data/<subdir>/<name>; empty when the file cannot be read,
// which leaves the parameterised suite without cases and fails it.
inline std::vector<Row> read_rows(const std::string& subdir, const std::string& name) {
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + subdir + "/" + name);
    std::vector<Row> rows;
    std::vector<std::string> header;
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        const std::vector<std::string> cells = split(line);
        if (header.empty()) {
            header = cells;
            continue;
        }
        Row row{name, number, {}};
        for (std::size_t k = 0; k < header.size() && k < cells.size(); ++k)
            row.fields[header[k]] = cells[k];
        rows.push_back(row);
    }
    return rows;
}

// Half a unit in the last printed digit of a number written in plain
// decimal form ("391.798509" -> 5e-7): the tolerance of a value given "to
// the digits printed".
inline double half_last_digit(const std::string& printed) {
    const std::size_t dot = printed.find('.');
    const int decimals = dot == std::string::npos ? 0 : static_cast<int>(printed.size() - dot - 1);
    return 0.5 * std::pow(10.0, -decimals);
}

}  // namespace if97_test
