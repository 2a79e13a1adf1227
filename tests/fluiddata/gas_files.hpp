// Helpers of the gas table tests: case tables, gas data in the fixed-column layout, and
// a fixture with a temporary directory and an empty, unloaded gas table.
#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"

namespace gasfiles {

inline void write_file(const std::string& path, const std::string& text) { std::ofstream(path) << text; }
// The text blank-padded to the 256 characters of a directory, path or name argument.
inline std::string padded(std::string s) { return s.append(256 - s.size(), ' '); }

// A line of a case table in tests/data and its comma-separated fields ("..." may hold commas).
struct CsvRow {
    int line = 0;
    std::string text;
    std::vector<std::string> f{""};
    const std::string& operator[](std::size_t i) const { return f.at(i); }
};
inline void PrintTo(const CsvRow& r, std::ostream* os) { *os << "line" << r.line; }

// The cases of a table in tests/data/fluiddata/, after the source comment and (unless header) the column names.
inline std::vector<CsvRow> read_csv(const std::string& name, bool header = false) {
    std::ifstream in(ONDREL_TEST_DATA_DIR "fluiddata/" + name);
    std::vector<CsvRow> rows;
    std::string text;
    for (int n = 1; std::getline(in, text); ++n) {
        if (n == 1 || (n == 2 && !header)) continue;
        CsvRow& row = rows.emplace_back(CsvRow{n, text});
        bool quoted = false;
        for (char c : text) {
            if (c == '"') quoted = !quoted;
            else if (c == ',' && !quoted) row.f.emplace_back();
            else if (c != '\r') row.f.back() += c;
        }
    }
    EXPECT_FALSE(rows.empty()) << name;
    return rows;
}

// A component whose values follow from seed: elements N 2, tmin seed + 200 K, tmax seed + 5000 K,
// mmol seed / 1000 kg/mol, range r (1, 2) coefficient k (1..7) seed + r - 1 + k / 8,
// sigma seed / 10 + 0.5 Angstrom, eps seed + 0.75 K.
inline std::string block(const std::string& name, double seed) {
    char buf[128];
    std::snprintf(buf, sizeof buf, "%-8.8s%16sN  2%16sG%10.3f%10.3f%12.8f\n", name.c_str(), "", "", seed + 200,
                  seed + 5000, seed / 1000);
    std::string s = buf;
    for (int k = 0; k < 14; ++k) {
        std::snprintf(buf, sizeof buf, k == 4 || k == 9 ? "%15.8E\n" : "%15.8E", seed + k / 7 + (k % 7 + 1) / 8.0);
        s += buf;
    }
    std::snprintf(buf, sizeof buf, "%10.5f%10.5f\n", seed / 10 + 0.5, seed + 0.75);
    return s + buf;
}

// A gas data file: a header line, then the blocks of names with seeds 1, 2, ... (by default G1..Gcount).
inline std::string blocks(int count, std::vector<std::string> names = {}) {
    std::string s = "Ondrel test gas data\n";
    for (int i = 1; i <= count; ++i) s += block(names.empty() ? "G" + std::to_string(i) : names.at(i - 1), i);
    return s;
}

// Each test runs with a fresh temporary directory, an empty, unloaded gas table and the built-in
// host functions; the settings ONDREL_FLUIDPATH and ONDREL_GAS_SOURCE are restored after it.
class GasTest : public ::testing::Test {
protected:
    std::string path = (std::filesystem::temp_directory_path() / "ondrel-test-XXXXXX").string();
    std::map<std::string, std::optional<std::string>> saved{{"ONDREL_FLUIDPATH", {}}, {"ONDREL_GAS_SOURCE", {}}};
    void SetUp() override {
        ASSERT_NE(mkdtemp(path.data()), nullptr);
        for (auto& [name, value] : saved)
            if (const char* v = std::getenv(name.c_str())) value = v;
        reset();
    }
    void TearDown() override {
        reset();
        for (const auto& [name, value] : saved) env(name.c_str(), value);
        std::filesystem::remove_all(path);
    }
    static void reset() { od::fluiddata::reset_for_tests(); od::host::reset_for_tests(); }
    // Sets (with nullopt: unsets) an environment variable.
    static void env(const char* n, const std::optional<std::string>& v) { v ? setenv(n, v->c_str(), 1) : unsetenv(n); }
    std::string dir() const { return path + "/"; }  // as a fluid path
    std::string file(const std::string& name) const { return dir() + name; }
    // Writes text as the gas data file and loads it.
    void load_text(const std::string& text) {
        write_file(file("Ondrel.Dat"), text);
        od::fluiddata::readgasfile(file("Ondrel.Dat"));
    }
};

}  // namespace gasfiles
