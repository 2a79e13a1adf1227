// Helpers of the gas table tests: a temporary directory, environment
// settings restored on exit, and gas data blocks in the fixed-column layout.
#pragma once
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>
#include <random>
#include <string>

namespace gasfiles {

// A fresh directory under the system's temporary directory, removed on exit.
struct TempDir {
    std::filesystem::path path;
    TempDir() {
        std::random_device rd;
        const auto base = std::filesystem::temp_directory_path();
        do path = base / ("ondrel-test-" + std::to_string(rd()));
        while (!std::filesystem::create_directory(path));
    }
    ~TempDir() {
        std::error_code ec;
        std::filesystem::remove_all(path, ec);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    // The directory as a fluid path: ending with '/'.
    std::string dir() const { return path.string() + "/"; }
    std::string file(const std::string& name) const { return (path / name).string(); }
};

// Sets (or with nullopt unsets) an environment variable until the end of the scope.
struct ScopedEnv {
    std::string name;
    std::optional<std::string> old;
    ScopedEnv(std::string n, std::optional<std::string> value) : name(std::move(n)) {
        if (const char* v = std::getenv(name.c_str())) old = v;
        if (value) setenv(name.c_str(), value->c_str(), 1);
        else unsetenv(name.c_str());
    }
    ~ScopedEnv() {
        if (old) setenv(name.c_str(), old->c_str(), 1);
        else unsetenv(name.c_str());
    }
    ScopedEnv(const ScopedEnv&) = delete;
    ScopedEnv& operator=(const ScopedEnv&) = delete;
};

inline void write_file(const std::string& path, const std::string& content) {
    std::ofstream out(path, std::ios::binary);
    out << content;
}

// One component: range 1 (above 1000 K) a1..a7, then range 2 a1..a7.
struct Block {
    std::string name = "N2";
    std::string elements = "N  2";  // four 5-column slots of symbol, count, skipped column
    double tmin = 200.0, tmax = 6000.0, mmol = 0.02801348;
    std::array<double, 14> coef{};
    double sigma = 3.621, eps = 97.53;
};

// A block whose every coefficient is distinct: range r, coefficient k gives seed + r + k / 8.
inline Block numbered_block(const std::string& name, double seed) {
    Block b;
    b.name = name;
    for (int i = 0; i < 14; ++i) b.coef[i] = seed + (i / 7) + (i % 7 + 1) / 8.0;
    b.mmol = seed / 1000.0;
    return b;
}

// The four lines of a block in the fixed-column layout, each ending in eol.
inline std::string block_text(const Block& b, const char* eol = "\n") {
    char line[256];
    std::string s;
    std::snprintf(line, sizeof line, "%-8.8s%16s%-20.20s%1s%10.3f%10.3f%12.8f", b.name.c_str(), "",
                  b.elements.c_str(), "G", b.tmin, b.tmax, b.mmol);
    s += line;
    s += eol;
    for (int l = 0; l < 3; ++l) {
        const int first = l * 5, count = l < 2 ? 5 : 4;
        for (int k = first; k < first + count; ++k) {
            std::snprintf(line, sizeof line, "%15.8E", b.coef[k]);
            s += line;
        }
        if (l == 2) {
            std::snprintf(line, sizeof line, "%10.5f%10.5f", b.sigma, b.eps);
            s += line;
        }
        s += eol;
    }
    return s;
}

inline const char* header_line = "Ondrel test gas data\n";

}  // namespace gasfiles
