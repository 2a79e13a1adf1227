// Shared helpers of the water-and-steam package tests: reference tables,
// captured channel records and a clean package state per test.
#pragma once
#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws_test {

// One row of a reference table: column name -> value (text columns as text).
struct Row {
    std::map<std::string, std::string> text;
    double operator[](const std::string& column) const { return std::stod(text.at(column)); }
};

// Reads tests/data/pwsftn/<name>: '#' comment lines, a header, comma-separated rows.
inline std::vector<Row> read_table(const std::string& name) {
    std::ifstream in(std::string(ONDREL_TEST_DATA_DIR) + "pwsftn/" + name);
    std::vector<Row> rows;
    std::vector<std::string> header;
    std::string line;
    while (std::getline(in, line)) {
        if (!line.empty() && line.back() == '\r') line.pop_back();
        if (line.empty() || line[0] == '#') continue;
        std::vector<std::string> cells;
        std::stringstream ss(line);
        std::string cell;
        while (std::getline(ss, cell, ',')) cells.push_back(cell);
        if (header.empty()) {
            header = cells;
            continue;
        }
        Row r;
        for (std::size_t i = 0; i < cells.size() && i < header.size(); ++i) r.text[header[i]] = cells[i];
        rows.push_back(r);
    }
    return rows;
}

inline std::string row_label(const Row& r, std::initializer_list<const char*> cols) {
    std::string s;
    for (const char* c : cols) s += std::string(c) + "=" + r.text.at(c) + " ";
    return s;
}

// |actual - expected| within rel * |expected| + abs.
inline ::testing::AssertionResult near(double actual, double expected, double rel, double abs = 0.0) {
    const double diff = std::fabs(actual - expected);
    if (diff <= rel * std::fabs(expected) + abs) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "actual " << actual << " expected " << expected
                                         << " relative difference " << diff / std::fabs(expected);
}

struct Record {
    int channel;
    std::string line;
};

// Fixture: fresh error record, caches and channels; captures every record.
class PackageTest : public ::testing::Test {
protected:
    void SetUp() override {
        pws::reset_error_for_tests();
        pws::reset_terms_for_tests();
        pws::set_record_sink_for_tests(
            [this](int channel, std::string_view line) { records.push_back({channel, std::string(line)}); });
    }
    void TearDown() override {
        pws::reset_error_for_tests();
        pws::reset_terms_for_tests();
    }
    int errors() const { return pws::pwserr().nerr; }
    std::vector<Record> records;
};

}  // namespace pws_test
