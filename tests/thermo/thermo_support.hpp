// Test support for the mixture thermodynamics: the CSV tables of
// tests/data/thermo, gas-table rows evaluated by direct power sums, mixtures
// owned by a test, the loaded-table fixture and the expected water values.
#pragma once
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_transport.hpp"

namespace thermo_test {

inline constexpr double r_gas = 8.3143;    // J/(mol K), the library's gas constant
inline constexpr double p_ref = 101325.0;  // Pa, reference pressure of entropies
inline constexpr double qnan = std::numeric_limits<double>::quiet_NaN();
inline constexpr double inf = std::numeric_limits<double>::infinity();
inline const std::string data_dir = ONDREL_TEST_DATA_DIR "thermo/";

// One data row of a CSV table (a comment line naming the source, a header, data):
// the cells by column name ("" for missing trailing cells); name is the first cell.
struct CsvRow : std::map<std::string, std::string> {
    std::string name;
    std::string operator[](const std::string& col) const { return at(col); }
    double num(const std::string& col) const { return std::stod(at(col)); }
};
inline void PrintTo(const CsvRow& r, std::ostream* os) { *os << r.name; }
inline std::string row_name(const ::testing::TestParamInfo<CsvRow>& info) { return info.param.name; }

inline std::vector<CsvRow> table(const std::string& file) {
    std::ifstream in(data_dir + file);
    if (!in) throw std::runtime_error("cannot open " + file);
    std::vector<std::string> header;
    std::vector<CsvRow> rows;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells;
        std::istringstream s(line);
        for (std::string c; std::getline(s, c, ',');) cells.push_back(c);
        if (header.empty()) { header = cells; continue; }
        CsvRow& r = rows.emplace_back();
        r.name = cells.at(0);
        for (std::size_t c = 0; c < header.size(); ++c) r.emplace(header[c], c < cells.size() ? cells[c] : "");
    }
    return rows;
}

// A gas-table row with its NASA polynomials (divided by R) as direct power sums.
struct Row {
    const od::fluiddata::TableRow& t;
    const std::array<double, 7>& a(double T) const {  // range 1 above 1000 K unless empty
        const int k = T > 1000.0 ? 0 : 1;
        return t.coef[k][0] != 0.0 ? t.coef[k] : t.coef[1 - k];
    }
    double cp(double T) const { double x = 0; for (int k = 0; k < 5; ++k) x += a(T)[k] * std::pow(T, k); return x; }
    double h(double T) const { double x = a(T)[5]; for (int k = 1; k < 6; ++k) x += a(T)[k - 1] * std::pow(T, k) / k; return x; }
    double s(double T) const {  // at the reference pressure
        double x = a(T)[0] * std::log(T) + a(T)[6];
        for (int k = 1; k < 5; ++k) x += a(T)[k] * std::pow(T, k) / k;
        return x;
    }
    double dcp(double T) const { double x = 0; for (int k = 1; k < 5; ++k) x += k * a(T)[k] * std::pow(T, k - 1); return x; }
};
inline Row row(std::string_view name) { return {od::fluiddata::table_row(od::fluiddata::getidx(od::CompName::from(name)))}; }

// A mixture owned by the test, from "N2=0.78 O2=0.21".
struct TestMix {
    std::vector<od::CompName> names;
    std::vector<std::string> text;
    std::vector<double> conc;
    explicit TestMix(const std::string& composition = "") {
        std::istringstream in(composition);
        for (std::string item; in >> item;) {
            text.push_back(item.substr(0, item.find('=')));
            names.push_back(od::CompName::from(text.back()));
            conc.push_back(std::stod(item.substr(item.find('=') + 1)));
        }
    }
    // Stores the names, as a caller does before evaluating, and views the mixture.
    od::Mixture mix() const { od::fluiddata::storeidx(names); return {names, conc}; }
};

// A gas table loaded afresh (the project's by default), every saved value forgotten.
class LoadedTable : public ::testing::Test {
protected:
    void SetUp() override { load(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat"); }
    void load(const std::string& path) {
        od::fluiddata::reset_for_tests();
        od::fluiddata::readgasfile(path);
        od::fluiddata::setdbread();
        TestMix("N2=1").mix();  // a stored mixture, through which the "H2O" and "H2O(L)" rows are found
        od::h2o::reset_for_tests();
        od::transport::reset_for_tests();
        ASSERT_GT(od::fluiddata::table_size(), 0) << "no gas table at " << path;
    }
};
class TableTest : public LoadedTable, public ::testing::WithParamInterface<CsvRow> {};
// test_gas.dat: a row of molar mass 0 and an "H2O(IF)" row that differs from "H2O".
class TestGas : public LoadedTable { void SetUp() override { load(data_dir + "test_gas.dat"); } };

// A value of the IF97 state `label` of if97_water.csv.
inline double if97(const std::string& label, const std::string& col) {
    static const std::vector<CsvRow> states = table("if97_water.csv");
    for (const CsvRow& r : states)
        if (r["label"] == label) return r.num(col);
    throw std::runtime_error("no IF97 state " + label);
}

// h/R (K), s/R, cp/R and molar volume (m3/mol) of one mole of water.
struct Part { double h = 0, s = 0, cp = 0, v = 0; };

// The IF97 state on the gas-table reference (matched to "H2O" at 1.01325 bar,
// 1073.15 K); outside 273.16..1073.15 K carried to t along the gas-table row `along`.
inline Part if97_part(const std::string& label, double t, std::string_view along) {
    const Row w = row("H2O");
    const double r = r_gas / w.t.mmol, ts = if97(label, "T_K");
    const double h_corr = w.h(1073.15) - if97("reference", "h_J_per_kg") / r;
    const double s_corr = w.s(1073.15) - if97("reference", "s_J_per_kgK") / r;
    Part q{if97(label, "h_J_per_kg") / r + h_corr, if97(label, "s_J_per_kgK") / r + s_corr,
           if97(label, "cp_J_per_kgK") / r, if97(label, "v_m3_per_kg") * w.t.mmol};
    if (t > 1073.15 || t < 273.16) {
        const Row e = row(along);
        q = {q.h + e.h(t) - e.h(ts), q.s + e.s(t) - e.s(ts), q.cp + e.cp(t) - e.cp(ts), q.v * t / ts};
    }
    return q;
}

// Water of fraction xw at (p, t) as its vapour and liquid parts: IF97 labels,
// "H2O" for the ideal gas of the gas table, "" for none.
inline Part water(double xw, double p, double t, const std::string& vap, const std::string& liq) {
    Part v, l;
    double p_h2o = xw * p;
    if (vap == "H2O") {
        v = {row("H2O").h(t), row("H2O").s(t) - std::log(p / p_ref), row("H2O").cp(t), r_gas * t / p};
    } else if (!vap.empty()) {
        v = if97_part(vap, t, "H2O");
        p_h2o = std::min(p_h2o, if97(vap, "p_Pa"));  // saturated vapour stays at psat
    }
    if (!liq.empty()) l = if97_part(liq, t, "H2O(L)");
    const double f = liq.empty() ? 0.0 : vap.empty() ? 1.0 : (xw - p_h2o / p) / xw;  // condensed share
    v.v *= p_h2o / p;  // the vapour fills the volume at its partial pressure
    return {(1 - f) * v.h + f * l.h, (1 - f) * v.s + f * l.s, (1 - f) * v.cp + f * l.cp, (1 - f) * v.v + f * l.v};
}

}  // namespace thermo_test
