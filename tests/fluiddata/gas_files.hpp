// Helpers of the gas table tests: a temporary directory, environment settings
// restored on exit, case tables, gas data blocks in the fixed-column layout
// and a fixture that starts and ends with an empty, unloaded gas table.
#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"

namespace gasfiles {

// A fresh directory under the system's temporary directory, removed on exit.
struct TempDir {
    std::string path = (std::filesystem::temp_directory_path() / "ondrel-test-XXXXXX").string();
    TempDir() { EXPECT_NE(mkdtemp(path.data()), nullptr); }
    ~TempDir() { std::error_code ec; std::filesystem::remove_all(path, ec); }
    std::string dir() const { return path + "/"; }  // as a fluid path
    std::string file(const std::string& name) const { return dir() + name; }
};

// Sets (with nullopt: unsets) an environment variable until the end of the scope.
struct ScopedEnv {
    std::string name;
    std::optional<std::string> old;
    ScopedEnv(std::string n, const std::optional<std::string>& value) : name(std::move(n)) {
        if (const char* v = std::getenv(name.c_str())) old = v;
        set(value);
    }
    ~ScopedEnv() { set(old); }
    void set(const std::optional<std::string>& v) { v ? setenv(name.c_str(), v->c_str(), 1) : unsetenv(name.c_str()); }
};

inline void write_file(const std::string& path, const std::string& content) {
    std::ofstream(path, std::ios::binary) << content;
}

// A line of a case table in tests/data and its comma-separated fields ("..." may hold commas).
struct CsvRow {
    int line = 0;
    std::string text;
    std::vector<std::string> f{""};
    const std::string& operator[](std::size_t i) const { return f.at(i); }
};
inline void PrintTo(const CsvRow& r, std::ostream* os) { *os << "line" << r.line; }

// The lines of a case table after its source comment: the column names, then the cases.
inline std::vector<CsvRow> read_csv(const std::string& name) {
    std::ifstream in(ONDREL_TEST_DATA_DIR + name);
    std::vector<CsvRow> rows;
    std::string text;
    for (int n = 1; std::getline(in, text); ++n) {
        if (n == 1) continue;
        CsvRow& row = rows.emplace_back(CsvRow{n, text});
        bool quoted = false;
        for (char c : text) {
            if (c == '"') quoted = !quoted;
            else if (c == ',' && !quoted) row.f.emplace_back();
            else if (c != '\r') row.f.back() += c;
        }
    }
    EXPECT_GT(rows.size(), 1u) << name;
    return rows;
}
inline std::vector<CsvRow> cases(const std::string& name) {
    auto rows = read_csv(name);
    return {rows.begin() + 1, rows.end()};
}

// One component whose values follow from seed: elements N 2, tmin seed + 200 K,
// tmax seed + 5000 K, mmol seed / 1000 kg/mol, range r (1, 2) coefficient k
// (1..7) seed + r - 1 + k / 8, sigma seed / 10 + 0.5 Angstrom, eps seed + 0.75 K.
inline std::string block(const std::string& name, double seed, const char* eol = "\n") {
    char buf[128];
    std::snprintf(buf, sizeof buf, "%-8.8s%16sN  2%16sG%10.3f%10.3f%12.8f", name.c_str(), "", "", seed + 200,
                  seed + 5000, seed / 1000);
    std::string s = buf + std::string(eol);
    for (int k = 0; k < 14; ++k) {
        std::snprintf(buf, sizeof buf, "%15.8E", seed + k / 7 + (k % 7 + 1) / 8.0);
        s += buf + std::string(k == 4 || k == 9 ? eol : "");
    }
    std::snprintf(buf, sizeof buf, "%10.5f%10.5f", seed / 10 + 0.5, seed + 0.75);
    return s + buf + eol;
}

inline const std::string header = "Ondrel test gas data\n";

// The header and blocks G1..Gcount with seeds 1..count.
inline std::string blocks(int count, const char* eol = "\n") {
    std::string s = header;
    for (int i = 1; i <= count; ++i) s += block("G" + std::to_string(i), i, eol);
    return s;
}

class GasTest : public ::testing::Test {
protected:
    TempDir tmp;
    void SetUp() override { reset(); }
    void TearDown() override { reset(); }
    static void reset() {
        od::fluiddata::reset_for_tests();
        od::host::reset_for_tests();
    }
    // Writes text as the gas data file in tmp and loads it.
    void load_text(const std::string& text) {
        write_file(tmp.file("Ondrel.Dat"), text);
        od::fluiddata::readgasfile(tmp.file("Ondrel.Dat"));
    }
};

}  // namespace gasfiles
