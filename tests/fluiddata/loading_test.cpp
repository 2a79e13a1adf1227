// Fixed-column fields, and loading the gas table from the gas data file and from the fluid database.
#include <cmath>
#include <functional>
#include <iterator>
#include <random>
#include <tuple>

#include "fluiddata/od_fieldread.hpp"
#include "host/ftn_text.hpp"
#include "host/od_fluiddb.hpp"
#include "tests/fluiddata/gas_files.hpp"

namespace fd = od::fluiddata;
namespace fr = od::fieldread;
using gasfiles::CsvRow;
using gasfiles::GasTest;
using od::CompName;

namespace {

// Columns: edit descriptor (Fw.d, Ew.d or Iw), field text, value or "fault".
class FormattedFields : public ::testing::TestWithParam<CsvRow> {};

TEST_P(FormattedFields, ReadAsFormattedInput) {
    const CsvRow& c = GetParam();
    SCOPED_TRACE(c.text);
    std::optional<double> v;
    if (c[0][0] != 'I') v = fr::real(c[1], std::stoi(c[0].substr(c[0].find('.') + 1)));
    else if (const auto i = fr::integer(c[1])) v = *i;
    ASSERT_EQ(v.has_value(), c[2] != "fault");
    if (!v) return;
    EXPECT_EQ(std::pair(*v, std::signbit(*v)), std::pair(std::stod(c[2]), std::signbit(std::stod(c[2]))));
}

INSTANTIATE_TEST_SUITE_P(Gfortran, FormattedFields, ::testing::ValuesIn(gasfiles::read_csv("formatted_fields.csv")));

TEST(FieldRead, NonFiniteAndMalformedFieldsAreFaultsAndHugeNegativeExponentsUnderflow) {
    for (const char* f : {"Inf", "-Infinity", "NaN", "1E999", "1.0D+400", "9999999E400", "1E99999999999999999999",
                          "E5", "--1", "\t1.5", "1.5\r"})
        EXPECT_FALSE(fr::real(f, 3)) << f;
    EXPECT_FALSE(fr::real(std::string_view("1\0" "5", 3), 3));
    EXPECT_EQ(*fr::real("-1E-99999999999999999999", 0), 0.0);
}

// Checks the field of a row (or the row count, "size") named by a case table column against its text there.
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
                         : c == "size"            ? fd::table_size()
                                                  : std::nan("");
        EXPECT_EQ(v, std::stod(want)) << c;
    }
}

class GasFileEdits : public GasTest, public ::testing::WithParamInterface<CsvRow> {};

// The two-block file G1, G2 with one edit, loaded from the file or as a database record.
TEST_P(GasFileEdits, ReadWithTheFixedColumnLayout) {
    const CsvRow& e = GetParam();
    SCOPED_TRACE(e.text);
    auto lines = od::fluiddb::split_lines(gasfiles::blocks(2));
    const std::size_t l = std::stoul(e[1]), column = std::stoul(e[2]);
    if (e[0] == "set") lines.at(l - 1).replace(column - 1, e[3].size(), e[3]);
    if (e[0] == "cut" || e[0] == "end") lines.at(l - 1).resize(column);
    if (e[0] == "end" || e[0] == "record") lines.resize(l);
    std::string text;
    for (const auto& line : lines) text += line + "\n";
    if (e[0] == "record") {
        od::host::set_hooks({}, [&](auto, auto) { return od::host::FluidRecord{lines, std::stoi(e[3])}; });
        fd::readgasdb("unused/", "Ondrel.Dat");
    } else {
        load_text(e[0] == "end" ? text.substr(0, text.size() - 1) : text);
    }
    expect_field(fd::table_row(std::stoi(e[4])), e[5], e[6]);
}

INSTANTIATE_TEST_SUITE_P(EditedBlocks, GasFileEdits, ::testing::ValuesIn(gasfiles::read_csv("gas_file_edits.csv")));

TEST_F(GasTest, FileLoadsAtMost250Blocks) {
    for (int count : {250, 251, 300}) {
        load_text(gasfiles::blocks(count));
        EXPECT_EQ(fd::table_size(), 250) << count;
        EXPECT_EQ(fd::table_row(250).name, CompName::from("G250")) << count;
    }
}

TEST_F(GasTest, VeryLongLinesKeepTheirLeadingColumnsAndBinaryGarbageNeverCrashes) {
    std::string text = gasfiles::blocks(2);
    text.insert(text.find("\nG2"), std::string(3'000'000, 'x'));
    load_text(text);
    EXPECT_EQ(fd::table_row(1).eps, 1.75);
    EXPECT_EQ(fd::table_row(2).mmol, 0.002);
    std::mt19937 rng(12345);
    for (int trial = 0; trial < 20; ++trial) {
        text.resize(1 + rng() % 200'000);
        for (char& c : text) c = static_cast<char>(trial % 2 == 0 && rng() % 50 == 0 ? '\n' : rng() % 256);
        load_text(text);
        EXPECT_LE(fd::table_size(), 250);
    }
}

// The row count and every field of every row (1..250).
auto whole_table() {
    const auto fields = [](const fd::TableRow& r) {
        return std::tuple(r.name.text, r.namato, r.numato, r.tmin, r.tmax, r.mmol, r.coef, r.sigma, r.eps);
    };
    std::vector<decltype(fields(fd::table_row(1)))> rows;
    for (int i = 1; i <= od::max_components; ++i) rows.push_back(fields(fd::table_row(i)));
    return std::pair(fd::table_size(), rows);
}

TEST_F(GasTest, BothSourcesGiveTheSameTable) {
    std::ifstream in(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat", std::ios::binary);
    std::string faulty;  // CR LF, the CR inside the fields of mmol and eps as 000 is cut from them
    for (const auto& l : od::fluiddb::split_lines(gasfiles::blocks(5)))
        faulty += l.substr(0, l.size() - (l.ends_with("000") ? 3 : 0)) + "\r\n";
    faulty.replace(faulty.find("G2") + 50, 6, "?bad?!");   // a name line fault
    faulty.replace(faulty.find("G3") + 100, 6, "?bad?!");  // a coefficient fault
    env("ONDREL_FLUIDPATH", dir());
    for (const std::string& text : {std::string(std::istreambuf_iterator<char>(in), {}), faulty}) {
        gasfiles::write_file(file("Ondrel.Dat"), text);
        ASSERT_EQ(od::fluiddb::import_record(file("fluids.db"), "Ondrel.Dat", text), "");
        env("ONDREL_GAS_SOURCE", std::nullopt);
        reset();
        fd::readgas();
        const auto from_file = whole_table();
        EXPECT_GT(from_file.first, 0);
        env("ONDREL_GAS_SOURCE", "database");
        reset();
        fd::readgas();
        EXPECT_TRUE(whole_table() == from_file);
    }
}

TEST_F(GasTest, TheTableIsLoadedOnceFromTheConfiguredSourceEvenWhenThatFails) {
    env("ONDREL_FLUIDPATH", dir());
    env("ONDREL_GAS_SOURCE", std::nullopt);
    fd::readgasfile(dir());  // a directory, an endless device and no path at all: nothing
    fd::readgasfile("/dev/zero");
    fd::readgasfile("");
    EXPECT_FALSE(fd::iscomp(CompName::from("G1")));  // no gas data file yet
    EXPECT_TRUE(fd::dbread());
    gasfiles::write_file(file("Ondrel.Dat"), gasfiles::blocks(2));
    fd::readgas();
    EXPECT_FALSE(fd::iscomp(CompName::from("G1")));  // not retried
    reset();
    EXPECT_EQ(fd::iscomp(CompName::from("G2")) + fd::iscomp(CompName::from("G3")), 1);
}

TEST_F(GasTest, ALoadThatReadsRowsForgetsTheStoredCompositionFromEitherSource) {
    // G1..G3 stored from one table; another table has G3 first, and H2O rows.
    const std::vector<CompName> mix = {CompName::from("G1"), CompName::from("G3")};
    const std::string other = gasfiles::blocks(4, {"G3", "H2O", "H2O(L)", "G1"});
    struct Source { std::string name; std::function<void()> load; };
    const Source sources[] = {
        {"file", [&] { load_text(other); }},
        {"database", [&] {
             od::host::set_hooks({}, [&](std::string_view, std::string_view) {
                 return od::host::FluidRecord{od::fluiddb::split_lines(other), 1};
             });
             fd::readgasdb(dir(), "Ondrel.Dat");
         }},
    };
    for (const Source& source : sources) {
        SCOPED_TRACE(source.name);
        reset();
        load_text(gasfiles::blocks(3));
        fd::storeidx(mix);
        ASSERT_EQ(fd::getstoredidx(mix[1]), 3);
        const unsigned generation = fd::table_generation();
        fd::readgasfile(file("missing.dat"));  // reads nothing: the composition stays
        EXPECT_EQ((std::tuple{fd::stored_count(), fd::table_generation()}), (std::tuple{2, generation}));
        source.load();
        EXPECT_EQ(fd::table_generation(), generation + 1);
        EXPECT_EQ(fd::stored_count(), 0);
        EXPECT_FALSE(fd::same_as_stored(mix));
        EXPECT_EQ(fd::getstoredidx(mix[1]), od::missing_row);  // not row 3 of the old table
        EXPECT_EQ(fd::getmmol(mix[0]), od::missing_value);
        fd::storeidx(mix);
        EXPECT_EQ((std::tuple{fd::getstoredidx(mix[0]), fd::getstoredidx(mix[1])}), (std::tuple{4, 1}));
        EXPECT_EQ(fd::getstoredidx(CompName::from("H2O")), 2);
    }
}

TEST(GasDataFile, EveryRowReadsBackToTheValuesWritten) {
    fd::readgasfile(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat");
    const auto csv = gasfiles::read_csv("../gasdata/ondrel_dat_rows.csv", true);
    EXPECT_EQ(fd::table_size() + 1, static_cast<int>(csv.size()));
    for (std::size_t r = 1; r < csv.size(); ++r)
        for (std::size_t c = 1; c < csv[0].f.size(); ++c)
            expect_field(fd::table_row(std::stoi(csv[r][0])), csv[0][c], csv[r][c]);
    fd::reset_for_tests();
}

}  // namespace
