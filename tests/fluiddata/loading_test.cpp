// Loading the gas table from the gas data file and from the fluid database.
#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_fluiddb.hpp"
#include "host/od_host.hpp"
#include "tests/fluiddata/gas_files.hpp"

namespace fd = od::fluiddata;
using od::CompName;
using gasfiles::Block;

namespace {

class Loading : public ::testing::Test {
protected:
    gasfiles::TempDir tmp;
    void SetUp() override {
        fd::reset_for_tests();
        od::host::reset_for_tests();
    }
    void TearDown() override {
        fd::reset_for_tests();
        od::host::reset_for_tests();
    }
    // Writes text as the gas data file and loads it.
    void load_text(const std::string& text) {
        gasfiles::write_file(tmp.file("Ondrel.Dat"), text);
        fd::readgasfile(tmp.file("Ondrel.Dat"));
    }
    // A record served by the host function, loaded through readgasdb.
    void load_record(std::vector<std::string> lines, int status = 1) {
        od::host::set_hooks({}, [lines, status](std::string_view, std::string_view) {
            return od::host::FluidRecord{lines, status};
        });
        fd::readgasdb(tmp.dir(), "Ondrel.Dat");
    }
};

std::string blocks(int count, const char* eol = "\n") {
    std::string s;
    for (int i = 1; i <= count; ++i) s += gasfiles::block_text(gasfiles::numbered_block("G" + std::to_string(i), i), eol);
    return s;
}

std::vector<std::string> lines_of(const std::string& text) { return od::fluiddb::split_lines(text); }

std::string read_file(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

// Every field of every row (1..250) and the row count are equal.
void expect_same_table(const std::vector<fd::TableRow>& a, int na, const std::vector<fd::TableRow>& b, int nb) {
    ASSERT_EQ(na, nb);
    for (std::size_t r = 0; r < a.size(); ++r) {
        const fd::TableRow &x = a[r], &y = b[r];
        EXPECT_EQ(x.name.text, y.name.text) << r + 1;
        EXPECT_EQ(x.namato, y.namato) << r + 1;
        EXPECT_EQ(x.numato, y.numato) << r + 1;
        EXPECT_EQ(x.tmin, y.tmin) << r + 1;
        EXPECT_EQ(x.tmax, y.tmax) << r + 1;
        EXPECT_EQ(x.mmol, y.mmol) << r + 1;
        EXPECT_EQ(x.coef, y.coef) << r + 1;
        EXPECT_EQ(x.sigma, y.sigma) << r + 1;
        EXPECT_EQ(x.eps, y.eps) << r + 1;
    }
}

std::vector<fd::TableRow> snapshot() {
    std::vector<fd::TableRow> rows;
    for (int r = 1; r <= od::max_components; ++r) rows.push_back(fd::table_row(r));
    return rows;
}

bool table_row_is_empty(int row) {
    const fd::TableRow& r = fd::table_row(row);
    return r.name == CompName{} && r.tmin == 0.0 && r.mmol == 0.0 && r.coef[0][0] == 0.0 && r.eps == 0.0;
}

// --- the gas data file ----------------------------------------------------

TEST_F(Loading, FileFillsEveryFieldOfABlock) {
    Block b = gasfiles::numbered_block("H2O", 18);
    b.elements = "H  2 O  1";
    b.tmin = 273.15;
    b.tmax = 3500.0;
    b.mmol = 0.01801528;
    b.sigma = 2.641;
    b.eps = 809.1;
    load_text(gasfiles::header_line + gasfiles::block_text(b));
    ASSERT_EQ(fd::table_size(), 1);
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.name, CompName::from("H2O"));
    EXPECT_EQ(r.namato[0], (std::array<char, 2>{'H', ' '}));
    EXPECT_EQ(r.namato[1], (std::array<char, 2>{'O', ' '}));
    EXPECT_EQ(r.namato[2], (std::array<char, 2>{' ', ' '}));
    EXPECT_EQ(r.numato, (std::array<int, 4>{2, 1, 0, 0}));
    EXPECT_EQ(r.tmin, 273.15);
    EXPECT_EQ(r.tmax, 3500.0);
    EXPECT_EQ(r.mmol, 0.01801528);
    for (int k = 0; k < 7; ++k) {
        EXPECT_EQ(r.coef[0][k], 18 + (k + 1) / 8.0);
        EXPECT_EQ(r.coef[1][k], 19 + (k + 1) / 8.0);
    }
    EXPECT_EQ(r.sigma, 2.641);
    EXPECT_EQ(r.eps, 809.1);
}

TEST_F(Loading, HeaderOnlyOrEmptyOrMissingFileLoadsNothing) {
    load_text("Ondrel gas data\n");
    EXPECT_EQ(fd::table_size(), 0);
    load_text("Ondrel gas data");
    EXPECT_EQ(fd::table_size(), 0);
    load_text("");
    EXPECT_EQ(fd::table_size(), 0);
    fd::readgasfile(tmp.file("no such file"));
    fd::readgasfile(tmp.dir());  // a directory
    fd::readgasfile("");
    EXPECT_EQ(fd::table_size(), 0);
    EXPECT_TRUE(table_row_is_empty(1));
}

TEST_F(Loading, FileLoadsAtMost250Blocks) {
    for (int count : {250, 251, 300}) {
        fd::reset_for_tests();
        load_text(gasfiles::header_line + blocks(count));
        EXPECT_EQ(fd::table_size(), 250) << count;
        EXPECT_EQ(fd::table_row(250).name, CompName::from("G250")) << count;
        EXPECT_EQ(fd::getidx(CompName::from("G251")), od::missing_row) << count;
    }
}

TEST_F(Loading, CrLfLinesGiveTheSameTable) {
    load_text(gasfiles::header_line + blocks(5));
    const auto unix_rows = snapshot();
    fd::reset_for_tests();
    load_text(std::string("header\r\n") + blocks(5, "\r\n"));
    expect_same_table(unix_rows, 5, snapshot(), fd::table_size());
}

TEST_F(Loading, BlockCutOffAfterItsNameLineStillCounts) {
    std::string text = gasfiles::header_line + blocks(2);
    text += "CO       cut off                                  300.000  5000.000  0.02801000\n";
    load_text(text);
    ASSERT_EQ(fd::table_size(), 3);
    EXPECT_EQ(fd::table_row(3).name, CompName::from("CO"));
    EXPECT_EQ(fd::table_row(3).tmin, 300.0);
    EXPECT_EQ(fd::table_row(3).coef[0][0], 0.0);
}

TEST_F(Loading, TruncatedFileKeepsWhatWasRead) {
    const std::string full = gasfiles::header_line + blocks(3);
    // Cut inside the third coefficient line of block 3, after " 4." of its second field.
    const std::size_t cut = full.size() - 81 + 15 + 3;
    load_text(full.substr(0, cut));
    ASSERT_EQ(fd::table_size(), 3);
    const fd::TableRow& r = fd::table_row(3);
    EXPECT_EQ(r.coef[1][2], 4 + 3 / 8.0);  // range 2 a3, on the second coefficient line
    EXPECT_EQ(r.coef[1][3], 4 + 4 / 8.0);  // first field of the cut line
    EXPECT_EQ(r.coef[1][4], 4.0);          // the cut field reads only its leading columns
    EXPECT_EQ(r.sigma, 0.0);
}

TEST_F(Loading, ShortLinesReadAsPaddedWithBlanks) {
    load_text(gasfiles::header_line + std::string("N2\n 1.0\n\n 2.0\n"));
    ASSERT_EQ(fd::table_size(), 1);
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.name, CompName::from("N2"));
    EXPECT_EQ(r.tmax, 0.0);
    EXPECT_EQ(r.coef[0][0], 1.0);
    EXPECT_EQ(r.coef[0][5], 0.0);
    EXPECT_EQ(r.coef[1][3], 2.0);
}

TEST_F(Loading, NameLineFaultKeepsTheFieldsBeforeItAndGoesOn) {
    Block bad = gasfiles::numbered_block("CO", 7);
    std::string text = gasfiles::block_text(bad);
    text.replace(55, 10, "  garbage ");  // tmax
    load_text(gasfiles::header_line + text + blocks(1));
    ASSERT_EQ(fd::table_size(), 2);
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.name, CompName::from("CO"));
    EXPECT_EQ(r.tmin, 200.0);
    EXPECT_EQ(r.tmax, 0.0);
    EXPECT_EQ(r.mmol, 0.0);                  // after the fault: not read
    EXPECT_EQ(r.coef[0][0], 7.125);          // the coefficient lines are still read
    EXPECT_EQ(fd::table_row(2).name, CompName::from("G1"));  // blocks stay aligned
    EXPECT_EQ(fd::table_row(2).coef[0][0], 1.125);
}

TEST_F(Loading, ElementCountFaultStopsTheNameLine) {
    Block b;
    b.elements = "N  x";
    load_text(gasfiles::header_line + gasfiles::block_text(b));
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.name, CompName::from("N2"));
    EXPECT_EQ(r.namato[0], (std::array<char, 2>{'N', ' '}));
    EXPECT_EQ(r.tmin, 0.0);
    EXPECT_EQ(r.sigma, 3.621);
}

TEST_F(Loading, AtomCountInTheThirdColumnIsNotSeen) {
    Block b;
    b.elements = "N   2O  1 C   1H 12";
    load_text(gasfiles::header_line + gasfiles::block_text(b));
    EXPECT_EQ(fd::table_row(1).numato, (std::array<int, 4>{0, 1, 0, 12}));
    EXPECT_EQ(fd::table_row(1).tmin, 200.0);
}

TEST_F(Loading, CoefficientFaultsAreIgnored) {
    std::string text = gasfiles::block_text(gasfiles::numbered_block("CO", 7));
    const std::size_t line3 = text.find('\n', text.find('\n', text.find('\n') + 1) + 1) + 1;
    text.replace(line3 + 15, 15, "   not-a-number");  // range 2 a5
    load_text(gasfiles::header_line + text + blocks(1));
    ASSERT_EQ(fd::table_size(), 2);
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.coef[1][3], 8.5);
    EXPECT_EQ(r.coef[1][4], 0.0);
    EXPECT_EQ(r.coef[1][6], 0.0);
    EXPECT_EQ(r.sigma, 0.0);
    EXPECT_EQ(r.eps, 0.0);
    EXPECT_EQ(fd::table_row(2).coef[1][6], 2.875);
}

TEST_F(Loading, FieldsWithoutDecimalPointsAndWithDExponents) {
    const auto rjust = [](std::string s, std::size_t w) { return std::string(w - s.size(), ' ') + s; };
    std::string text = gasfiles::header_line;
    text += "CH4" + std::string(21, ' ') + "C  1 H  4 " + std::string(10, ' ') + "G" + rjust("300000", 10) +
            rjust("5000000", 10) + rjust("16042460", 12) + "\n";
    text += rjust("12345678E+01", 15) + rjust("0.50000000D+01", 15) + rjust("-0.25000000d-02", 15) +
            rjust("1.00000000+05", 15) + rjust("1.0000000-005", 15) + "\n";
    text += rjust("123456789", 15) + rjust("0.1000000D0", 15) + std::string(45, ' ') + "\n";
    text += std::string(60, ' ') + rjust("3.7 46", 10) + rjust("14140000", 10) + "\n";
    load_text(text);
    const fd::TableRow& r = fd::table_row(1);
    EXPECT_EQ(r.numato, (std::array<int, 4>{1, 4, 0, 0}));
    EXPECT_EQ(r.tmin, 300.0);
    EXPECT_EQ(r.tmax, 5000.0);
    EXPECT_EQ(r.mmol, 0.1604246);
    EXPECT_EQ(r.coef[0][0], 1.2345678);
    EXPECT_EQ(r.coef[0][1], 5.0);
    EXPECT_EQ(r.coef[0][2], -0.0025);
    EXPECT_EQ(r.coef[0][3], 1.0e5);
    EXPECT_EQ(r.coef[0][4], 1.0e-5);
    EXPECT_EQ(r.coef[0][5], 1.23456789);
    EXPECT_EQ(r.coef[0][6], 0.1);
    EXPECT_EQ(r.coef[1][0], 0.0);  // all-blank fields
    EXPECT_EQ(r.sigma, 3.746);
    EXPECT_EQ(r.eps, 141.4);
}

TEST_F(Loading, VeryLongLinesKeepTheirLeadingColumns) {
    std::string text = gasfiles::block_text(gasfiles::numbered_block("CO", 7));
    const std::size_t eol = text.find('\n');
    text.insert(eol, std::string(3'000'000, 'x'));
    load_text(gasfiles::header_line + text + blocks(1));
    ASSERT_EQ(fd::table_size(), 2);
    EXPECT_EQ(fd::table_row(1).mmol, 0.007);
    EXPECT_EQ(fd::table_row(1).coef[1][6], 8.875);
    EXPECT_EQ(fd::table_row(2).name, CompName::from("G1"));
}

TEST_F(Loading, BinaryGarbageNeverCrashes) {
    std::mt19937 rng(12345);
    for (int trial = 0; trial < 20; ++trial) {
        std::string text(1 + rng() % 200'000, '\0');
        for (char& c : text) c = static_cast<char>(rng() % 256);
        if (trial % 2 == 0)  // many short lines as well as few long ones
            for (std::size_t i = 0; i < text.size(); i += 1 + rng() % 100) text[i] = '\n';
        fd::reset_for_tests();
        load_text(text);
        EXPECT_GE(fd::table_size(), 0);
        EXPECT_LE(fd::table_size(), 250);
    }
}

// --- the database record ---------------------------------------------------

TEST_F(Loading, RecordGivesOneRowPerFullBlock) {
    const auto nine = lines_of(gasfiles::header_line + blocks(2));
    ASSERT_EQ(nine.size(), 9u);
    load_record(nine);
    EXPECT_EQ(fd::table_size(), 2);
    EXPECT_EQ(fd::table_row(2).name, CompName::from("G2"));

    fd::reset_for_tests();
    load_record(std::vector<std::string>(nine.begin(), nine.begin() + 8));
    EXPECT_EQ(fd::table_size(), 1);  // the last three lines are ignored
    EXPECT_TRUE(table_row_is_empty(2));

    fd::reset_for_tests();
    load_record(std::vector<std::string>(nine.begin(), nine.begin() + 4));
    EXPECT_EQ(fd::table_size(), 0);
}

TEST_F(Loading, RecordWithoutLinesOrWithStatusZeroLoadsNothing) {
    load_record(lines_of(gasfiles::header_line + blocks(2)), 0);
    EXPECT_EQ(fd::table_size(), 0);
    load_record({}, 1);
    EXPECT_EQ(fd::table_size(), 0);
    EXPECT_TRUE(table_row_is_empty(1));
}

TEST_F(Loading, RecordIsCutTo255LinesOf255Characters) {
    auto lines = lines_of(gasfiles::header_line + blocks(70));
    lines[1] += std::string(400, '7');
    load_record(lines);
    EXPECT_EQ(fd::table_size(), 63);
    EXPECT_EQ(fd::table_row(63).name, CompName::from("G63"));
    EXPECT_EQ(fd::table_row(1).mmol, 0.001);
}

TEST_F(Loading, RecordFromTheSqliteDatabase) {
    const std::string text = gasfiles::header_line + blocks(3);
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", text), "");
    fd::readgasdb(tmp.dir(), "Ondrel.Dat");
    EXPECT_EQ(fd::table_size(), 3);
    fd::reset_for_tests();
    fd::readgasdb(tmp.dir(), "Other.Dat");
    EXPECT_EQ(fd::table_size(), 0);
}

// --- both sources -------------------------------------------------------------

// Loads text through the gas data file and through the database, and
// compares the two tables field by field.
void expect_sources_agree(const gasfiles::TempDir& tmp, const std::string& text, int expected_rows) {
    gasfiles::write_file(tmp.file("Ondrel.Dat"), text);
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", text), "");
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    {
        gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", std::nullopt);
        fd::reset_for_tests();
        fd::readgas();
    }
    const auto file_rows = snapshot();
    const int file_count = fd::table_size();
    {
        gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", "database");
        fd::reset_for_tests();
        fd::readgas();
    }
    EXPECT_EQ(file_count, expected_rows);
    expect_same_table(file_rows, file_count, snapshot(), fd::table_size());
}

TEST_F(Loading, BothSourcesGiveTheSameTableForTheGasDataFile) {
    const std::string text = read_file(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat");
    ASSERT_FALSE(text.empty());
    expect_sources_agree(tmp, text, static_cast<int>((lines_of(text).size() - 1) / 4));
    EXPECT_GT(fd::table_size(), 0);
}

TEST_F(Loading, BothSourcesGiveTheSameTableForFaultyBlocks) {
    std::string text = gasfiles::header_line + blocks(4, "\r\n");
    text.replace(text.find("G2") + 50, 6, "?bad?!");  // a name line fault
    text.replace(text.find("G3") + 90, 6, "?bad?!");  // a coefficient fault
    expect_sources_agree(tmp, text, 4);
}

TEST_F(Loading, ReadgasLoadsOnceFromTheConfiguredSource) {
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", "database");
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::header_line + blocks(2));
    fd::readgas();  // no database: nothing, and not retried
    EXPECT_TRUE(fd::dbread());
    EXPECT_EQ(fd::table_size(), 0);
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", gasfiles::header_line + blocks(3)), "");
    fd::readgas();
    EXPECT_EQ(fd::table_size(), 0);
}

TEST_F(Loading, ReadgasAsksTheRegisteredHostForThePath) {
    std::string asked;
    const std::string dir = tmp.dir();
    od::host::set_hooks([&](std::string_view library) { asked = library; return dir + "   "; }, {});
    gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", std::nullopt);
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::header_line + blocks(2));
    fd::readgas();
    EXPECT_EQ(asked, "Ondrel");
    EXPECT_EQ(fd::table_size(), 2);  // trailing blanks of the directory removed
}

// --- every row of the gas data file reads back to the values written ----------------

struct CsvRow {
    std::vector<std::string> f;
};

std::vector<std::string> split_csv(const std::string& line) {
    std::vector<std::string> out;
    std::string cur;
    for (char c : line) {
        if (c == ',') {
            out.push_back(cur);
            cur.clear();
        } else if (c != '\r') {
            cur.push_back(c);
        }
    }
    out.push_back(cur);
    return out;
}

std::vector<std::vector<std::string>> gasdata_rows() {
    std::ifstream in(ONDREL_TEST_DATA_DIR "gasdata/ondrel_dat_rows.csv");
    std::vector<std::vector<std::string>> rows;
    std::string line;
    while (std::getline(in, line))
        if (!line.empty() && line[0] != '#' && line.rfind("row,", 0) != 0) rows.push_back(split_csv(line));
    return rows;
}

TEST(GasDataFile, EveryRowReadsBackToTheValuesWritten) {
    fd::reset_for_tests();
    fd::readgasfile(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat");
    const auto rows = gasdata_rows();
    ASSERT_FALSE(rows.empty());
    EXPECT_EQ(fd::table_size(), static_cast<int>(rows.size()));
    for (const auto& f : rows) {
        ASSERT_EQ(f.size(), 29u);
        const int row = std::stoi(f[0]);
        const fd::TableRow& r = fd::table_row(row);
        EXPECT_EQ(r.name.trimmed(), f[1]) << row;
        for (int k = 0; k < 4; ++k) {
            std::string sym(r.namato[k].data(), 2);
            while (!sym.empty() && sym.back() == ' ') sym.pop_back();
            EXPECT_EQ(sym, f[2 + 2 * k]) << row << " element " << k + 1;
            EXPECT_EQ(r.numato[k], std::stoi(f[3 + 2 * k])) << row << " element " << k + 1;
        }
        EXPECT_EQ(r.tmin, std::stod(f[10])) << row;
        EXPECT_EQ(r.tmax, std::stod(f[11])) << row;
        EXPECT_EQ(r.mmol, std::stod(f[12])) << row;
        for (int k = 0; k < 14; ++k) EXPECT_EQ(r.coef[k / 7][k % 7], std::stod(f[13 + k])) << row << " coef " << k;
        EXPECT_EQ(r.sigma, std::stod(f[27])) << row;
        EXPECT_EQ(r.eps, std::stod(f[28])) << row;
    }
    fd::reset_for_tests();
}

}  // namespace
