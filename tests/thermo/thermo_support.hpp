// Test support for the mixture thermodynamics: an independent reader of the
// gas data file, mixtures owned by a test, the loaded-table fixture and the
// CSV tables of tests/data/thermo.
#pragma once
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "fluiddata/od_types.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_transport.hpp"

namespace thermo_test {

inline constexpr double r_gas = 8.3143;
inline std::string gas_file() { return std::string(ONDREL_SOURCE_DATA_DIR) + "Ondrel.Dat"; }
inline std::string data_dir() { return std::string(ONDREL_TEST_DATA_DIR) + "thermo/"; }

// One component block of the gas data file, read by fixed columns.
struct Row {
    double tmin = 0, tmax = 0, mmol = 0, sigma = 0, eps = 0;
    std::array<std::array<double, 7>, 2> coef{};  // range 1 (above 1000 K), range 2

    const std::array<double, 7>& at(double t) const {
        const int r = t > 1000.0 ? 0 : 1;
        return coef[r][0] != 0.0 ? coef[r] : coef[1 - r];
    }
    // Direct power sums of the NASA polynomials, divided by R.
    double cp(double t) const {
        const auto& a = at(t);
        return a[0] + a[1] * t + a[2] * t * t + a[3] * std::pow(t, 3) + a[4] * std::pow(t, 4);
    }
    double h(double t) const {
        const auto& a = at(t);
        return a[0] * t + a[1] * t * t / 2 + a[2] * std::pow(t, 3) / 3 + a[3] * std::pow(t, 4) / 4 +
               a[4] * std::pow(t, 5) / 5 + a[5];
    }
    double s(double t) const {  // without the pressure term
        const auto& a = at(t);
        return a[0] * std::log(t) + a[1] * t + a[2] * t * t / 2 + a[3] * std::pow(t, 3) / 3 +
               a[4] * std::pow(t, 4) / 4 + a[6];
    }
    double dcp(double t) const {
        const auto& a = at(t);
        return a[1] + 2 * a[2] * t + 3 * a[3] * t * t + 4 * a[4] * std::pow(t, 3);
    }
};

inline double field(const std::string& line, std::size_t col, std::size_t width) {
    if (col >= line.size()) return 0.0;
    const std::string f = line.substr(col, width);
    if (f.find_first_not_of(' ') == std::string::npos) return 0.0;
    return std::stod(f);
}

// name -> row of the project's gas data file.
inline std::map<std::string, Row> read_gas_file(const std::string& path) {
    std::ifstream in(path);
    if (!in) throw std::runtime_error("cannot open " + path);
    std::map<std::string, Row> rows;
    std::string line, l2, l3, l4;
    std::getline(in, line);  // header
    while (std::getline(in, line) && std::getline(in, l2) && std::getline(in, l3) && std::getline(in, l4)) {
        std::string name = line.substr(0, 8);
        name.erase(name.find_last_not_of(' ') + 1);
        Row r;
        r.tmin = field(line, 45, 10);
        r.tmax = field(line, 55, 10);
        r.mmol = field(line, 65, 12);
        std::array<double, 14> c{};
        for (int k = 0; k < 14; ++k) {
            const std::string& l = k < 5 ? l2 : k < 10 ? l3 : l4;
            c[k] = field(l, 15 * (k % 5), 15);
        }
        for (int k = 0; k < 14; ++k) r.coef[k / 7][k % 7] = c[k];
        r.sigma = field(l4, 60, 10);
        r.eps = field(l4, 70, 10);
        rows.emplace(name, r);
    }
    return rows;
}

inline const std::map<std::string, Row>& gas_rows() {
    static const std::map<std::string, Row> rows = read_gas_file(gas_file());
    return rows;
}
inline const Row& row(const std::string& name) { return gas_rows().at(name); }

// A mixture owned by the test.
struct TestMix {
    std::vector<od::CompName> names;
    std::vector<std::string> text;
    std::vector<double> conc;

    TestMix() = default;
    TestMix(std::initializer_list<std::pair<const char*, double>> comps) {
        for (const auto& [n, c] : comps) add(n, c);
    }
    void add(const std::string& n, double c) {
        text.push_back(n);
        names.push_back(od::CompName::from(n));
        conc.push_back(c);
    }
    od::Mixture mix() const { return {names, conc}; }
    void store() const { od::fluiddata::storeidx(names); }
};

// "N2=0.78 O2=0.21" -> mixture.
inline TestMix parse_mix(const std::string& spec) {
    TestMix m;
    std::istringstream in(spec);
    std::string item;
    while (in >> item) {
        const auto eq = item.find('=');
        m.add(item.substr(0, eq), std::stod(item.substr(eq + 1)));
    }
    return m;
}

// Rows of a CSV table: a comment line naming the source, a header, then data.
struct Csv {
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
    std::string get(std::size_t r, const std::string& col) const {
        for (std::size_t c = 0; c < header.size(); ++c)
            if (header[c] == col) return rows.at(r).at(c);
        throw std::runtime_error("no column " + col);
    }
    double num(std::size_t r, const std::string& col) const { return std::stod(get(r, col)); }
};

inline std::vector<std::string> split_csv(const std::string& line) {
    std::vector<std::string> out;
    std::string cell;
    std::istringstream in(line);
    while (std::getline(in, cell, ',')) out.push_back(cell);
    return out;
}

inline Csv read_csv(const std::string& file) {
    std::ifstream in(data_dir() + file);
    if (!in) throw std::runtime_error("cannot open " + file);
    Csv csv;
    std::string line;
    while (std::getline(in, line)) {
        if (line.empty() || line[0] == '#') continue;
        if (csv.header.empty())
            csv.header = split_csv(line);
        else
            csv.rows.push_back(split_csv(line));
    }
    return csv;
}

// The project's gas table loaded afresh, every saved value forgotten.
class LoadedTable : public ::testing::Test {
protected:
    void SetUp() override {
        od::fluiddata::reset_for_tests();
        od::fluiddata::readgasfile(gas_file());
        od::fluiddata::setdbread();
        od::h2o::reset_for_tests();
        od::transport::reset_for_tests();
        ASSERT_GT(od::fluiddata::table_size(), 0) << "no gas table at " << gas_file();
    }
};

// Row numbers 0..n-1 of a CSV table, for a parameterised test walking it.
inline std::vector<std::size_t> row_numbers(const std::string& file) {
    std::vector<std::size_t> r(read_csv(file).rows.size());
    for (std::size_t i = 0; i < r.size(); ++i) r[i] = i;
    return r;
}

// The value of an IF97 state of if97_water.csv by label and column.
inline double if97(const std::string& label, const std::string& column) {
    static const Csv csv = read_csv("if97_water.csv");
    for (std::size_t r = 0; r < csv.rows.size(); ++r)
        if (csv.get(r, "label") == label) return csv.num(r, column);
    throw std::runtime_error("no IF97 state " + label);
}

}  // namespace thermo_test
