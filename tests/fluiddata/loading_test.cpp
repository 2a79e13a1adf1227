// Loading the gas table from the gas data file and from the fluid database.
#include <cmath>
#include <iterator>
#include <random>
#include <tuple>

#include "host/ftn_text.hpp"
#include "host/od_fluiddb.hpp"
#include "tests/fluiddata/gas_files.hpp"

namespace fd = od::fluiddata;
using gasfiles::CsvRow;
using gasfiles::GasTest;
using od::CompName;

namespace {

// Checks the field of a row named by a case table column against its text there.
void expect_field(const fd::TableRow& r, const std::string& c, const std::string& want) {
    if (c == "name") {
        EXPECT_EQ(r.name.trimmed(), want);
    } else if (c.rfind("element", 0) == 0) {
        EXPECT_EQ(ftn::trim({r.namato.at(c[7] - '1').data(), 2}), want) << c;
    } else {
        const double v = c.rfind("count", 0) == 0 ? r.numato.at(c[5] - '1')
                         : c[0] == 'r'            ? r.coef.at(c[1] - '1').at(c[4] - '1')  // rR_aK
                         : c == "tmin_K"          ? r.tmin
                         : c == "tmax_K"          ? r.tmax
                         : c == "mmol_kg_per_mol" ? r.mmol
                         : c == "sigma_angstrom"  ? r.sigma
                         : c == "eps_over_k_K"    ? r.eps
                                                  : std::nan("");
        EXPECT_EQ(v, std::stod(want)) << c;
    }
}

// The row count and every field of every row (1..250).
using Snapshot = std::pair<int, std::vector<fd::TableRow>>;
Snapshot snapshot() {
    Snapshot s{fd::table_size(), {}};
    for (int r = 1; r <= od::max_components; ++r) s.second.push_back(fd::table_row(r));
    return s;
}
void expect_same(const Snapshot& a, const Snapshot& b) {
    const auto fields = [](const fd::TableRow& r) {
        return std::tie(r.name.text, r.namato, r.numato, r.tmin, r.tmax, r.mmol, r.coef, r.sigma, r.eps);
    };
    ASSERT_EQ(a.first, b.first);
    for (std::size_t i = 0; i < a.second.size(); ++i) EXPECT_TRUE(fields(a.second[i]) == fields(b.second[i])) << i + 1;
}

// --- the gas data file ----------------------------------------------------

// The two-block file G1, G2 with the edit of a case table row.
std::string edited_file(const CsvRow& e) {
    auto lines = od::fluiddb::split_lines(gasfiles::blocks(2));
    const std::size_t l = std::stoul(e[1]) - 1, column = std::stoul(e[2]);
    if (e[0] == "set") lines.at(l).replace(column - 1, e[3].size(), e[3]);
    else lines.at(l).resize(column);
    if (e[0] == "end") lines.resize(l + 1);
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    if (e[0] == "end") text.pop_back();
    return text;
}

class GasFileEdits : public GasTest, public ::testing::WithParamInterface<CsvRow> {};

TEST_P(GasFileEdits, ReadWithTheFixedColumnLayout) {
    const CsvRow& e = GetParam();
    SCOPED_TRACE(e.text);
    load_text(edited_file(e));
    if (e[5] == "size") {
        EXPECT_EQ(fd::table_size(), std::stoi(e[6]));
    } else {
        expect_field(fd::table_row(std::stoi(e[4])), e[5], e[6]);
    }
}

INSTANTIATE_TEST_SUITE_P(EditedBlocks, GasFileEdits, ::testing::ValuesIn(gasfiles::cases("fluiddata/gas_file_edits.csv")));

TEST_F(GasTest, MissingFileOrDirectoryLoadsNothing) {
    for (const std::string& path : {tmp.file("none"), tmp.dir(), std::string()}) fd::readgasfile(path);
    EXPECT_EQ(fd::table_size(), 0);
}

TEST_F(GasTest, FileLoadsAtMost250Blocks) {
    for (int count : {250, 251, 300}) {
        load_text(gasfiles::blocks(count));
        EXPECT_EQ(fd::table_size(), 250) << count;
        EXPECT_EQ(fd::table_row(250).name, CompName::from("G250")) << count;
        EXPECT_EQ(fd::getidx(CompName::from("G251")), od::missing_row) << count;
    }
}

TEST_F(GasTest, VeryLongLinesKeepTheirLeadingColumnsAndBinaryGarbageNeverCrashes) {
    std::string text = gasfiles::blocks(2);
    text.insert(text.find("\nG2"), std::string(3'000'000, 'x'));
    load_text(text);
    EXPECT_EQ(fd::table_size(), 2);
    EXPECT_EQ(fd::table_row(1).eps, 1.75);
    EXPECT_EQ(fd::table_row(2).mmol, 0.002);
    std::mt19937 rng(12345);
    for (int trial = 0; trial < 20; ++trial) {
        text.resize(1 + rng() % 200'000);
        for (std::size_t i = 0; i < text.size(); ++i)  // many short lines in half the trials
            text[i] = static_cast<char>(trial % 2 == 0 && rng() % 50 == 0 ? '\n' : rng() % 256);
        load_text(text);
        EXPECT_LE(fd::table_size(), 250);
    }
}

// --- the database record and both sources ------------------------------------

TEST_F(GasTest, RecordGivesOneRowPerFullBlockOfItsFirst255Lines) {
    const auto all = od::fluiddb::split_lines(gasfiles::blocks(70));
    const auto load_record = [](std::vector<std::string> lines, int status) {
        fd::reset_for_tests();
        od::host::set_hooks({}, [=](auto, auto) { return od::host::FluidRecord{lines, status}; });
        fd::readgasdb("/unused/", "Ondrel.Dat");
    };
    for (const auto& [lines, rows] : std::vector<std::pair<int, int>>{{9, 2}, {8, 1}, {5, 1}, {4, 0}, {0, 0}, {281, 63}}) {
        load_record({all.begin(), all.begin() + lines}, 1);
        EXPECT_EQ(fd::table_size(), rows) << lines;
    }
    EXPECT_EQ(fd::table_row(63).name, CompName::from("G63"));
    load_record(all, 0);
    EXPECT_EQ(fd::table_size(), 0);
}

// Loads text through readgas from the gas data file and from the database record; compares the tables.
void expect_sources_agree(const gasfiles::TempDir& tmp, const std::string& text) {
    gasfiles::write_file(tmp.file("Ondrel.Dat"), text);
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", text), "");
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir()), source("ONDREL_GAS_SOURCE", std::nullopt);
    fd::readgas();
    const Snapshot file = snapshot();
    EXPECT_GT(file.first, 0);
    source.set("database");
    fd::reset_for_tests();
    fd::readgas();
    expect_same(file, snapshot());
    fd::reset_for_tests();
}

TEST_F(GasTest, BothSourcesGiveTheSameTable) {
    std::ifstream in(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat", std::ios::binary);
    expect_sources_agree(tmp, std::string(std::istreambuf_iterator<char>(in), {}));
    std::string faulty = gasfiles::blocks(5, "\r\n");  // cutting 000 puts the CR inside the fields of mmol and eps
    for (std::size_t p; (p = faulty.find("000\r\n")) != std::string::npos;) faulty.erase(p, 3);
    faulty.replace(faulty.find("G2") + 50, 6, "?bad?!");   // a name line fault
    faulty.replace(faulty.find("G3") + 100, 6, "?bad?!");  // a coefficient fault
    expect_sources_agree(tmp, faulty);
}

TEST_F(GasTest, TheTableIsLoadedOnceFromTheConfiguredSourceEvenWhenThatFails) {
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir()), source("ONDREL_GAS_SOURCE", "database");
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::blocks(2));
    EXPECT_FALSE(fd::iscomp(CompName::from("G1")));  // no database yet
    EXPECT_TRUE(fd::dbread());
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", gasfiles::blocks(3)), "");
    fd::readgas();
    EXPECT_FALSE(fd::iscomp(CompName::from("G1")));  // not retried
    fd::reset_for_tests();
    EXPECT_TRUE(fd::iscomp(CompName::from("G3")));
    source.set(std::nullopt);
    fd::reset_for_tests();
    EXPECT_EQ(fd::iscomp(CompName::from("G2")) + fd::iscomp(CompName::from("G3")), 1);  // the file has two rows
    fd::reset_for_tests();
    fd::setdbread();
    EXPECT_FALSE(fd::iscomp(CompName::from("G1")));  // marked loaded: nothing is read
}

TEST(GasDataFile, EveryRowReadsBackToTheValuesWritten) {
    fd::readgasfile(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat");
    const auto csv = gasfiles::read_csv("gasdata/ondrel_dat_rows.csv");
    EXPECT_EQ(fd::table_size() + 1, static_cast<int>(csv.size()));
    for (std::size_t r = 1; r < csv.size(); ++r)
        for (std::size_t c = 1; c < csv[0].f.size(); ++c)
            expect_field(fd::table_row(std::stoi(csv[r][0])), csv[0][c], csv[r][c]);
    fd::reset_for_tests();
}

}  // namespace
