// Lookups and getters of the gas table and the stored composition, through the
// core functions and through the exports with blank-padded, fixed-width texts.
#include <array>
#include <vector>

#include "host/od_fluiddb.hpp"
#include "ondrel/od_fluiddata.h"
#include "tests/fluiddata/gas_files.hpp"

namespace fd = od::fluiddata;
using gasfiles::GasTest;
using gasfiles::padded;
using od::CompName;

namespace {

void store(std::initializer_list<std::string_view> names) {
    std::vector<CompName> list;
    for (auto n : names) list.push_back(CompName::from(n));
    fd::storeidx(list);
}

// The table and stored composition of gas_table_queries.csv.
class GasTable : public GasTest {
protected:
    void SetUp() override {
        GasTest::SetUp();
        std::string text = gasfiles::blocks(0);
        int seed = 0;
        for (const char* name : {"H2O", "N2", "H2O", "H2O(L)", "H2O", "H2O(L)", "CO", "C(S)", "AL2O3(L)", "S(S)"})
            text += gasfiles::block(name, seed += 10);
        const std::size_t al = text.find("AL2O3(L)"), s = text.find("S(S)");
        text.replace(text.find('\n', al) + 1, 15, " 0.00000000E+00");  // range 1 a1
        text.replace(text.find('\n', text.find('\n', s) + 1) + 31, 15, " 0.00000000E+00");  // range 2 a1
        gasfiles::write_file(file("Ondrel.Dat"), text);
        const std::string path = padded(file("Ondrel.Dat"));
        readgasfile_(path.data(), path.size());
        EXPECT_EQ(dbread_(), 0);  // a loader alone does not mark the table loaded
        setdbread_();
        const int32_t n = 4;
        storeidx_(&n, "N2          CO          AL2O3(L)    S(S)        ", 12);
    }
};

// The answer to a query through the export (the name passed with its full width) and through the core.
std::pair<double, double> answers(const std::string& query, const std::string& s, const std::string& t) {
    const CompName n = CompName::from(s);
    const char* p = s.data();
    if (query == "getidx") return {getidx_(p, s.size()), fd::getidx(n)};
    if (query == "iscomp") return {iscomp_(p, s.size()), fd::iscomp(n)};
    if (query == "getstoredidx") return {getstoredidx_(p, s.size()), fd::getstoredidx(n)};
    if (query == "getmmol") return {getmmol_(p, s.size()), fd::getmmol(n)};
    if (query == "gettmin") return {gettmin_(p, s.size()), fd::gettmin(n)};
    if (query == "gettmax") return {gettmax_(p, s.size()), fd::gettmax(n)};
    if (query == "getsigma") return {getsigma_(p, s.size()), fd::getsigma(n)};
    if (query == "geteps") return {geteps_(p, s.size()), fd::geteps(n)};
    if (query == "getphase") {
        char phase = '?';
        getphase_(&phase, 1, p, s.size());
        return {phase, fd::getphase(n)};
    }
    const double temperature = std::stod(t);
    std::array<double, 7> a{}, b{};
    getcoef_(p, &temperature, a.data(), s.size());
    fd::getcoef(n, temperature, b);
    return query == "coef_a1" ? std::pair(a[0], b[0]) : std::pair(a[6], b[6]);
}

class GasTableQueries : public GasTable, public ::testing::WithParamInterface<gasfiles::CsvRow> {};

TEST_P(GasTableQueries, AnswerAsWorkedOut) {
    const gasfiles::CsvRow& q = GetParam();
    SCOPED_TRACE(q.text);
    const double want = q[0] == "getphase" ? q[3].at(0) : std::stod(q[3]);
    const auto [exported, core] = answers(q[0], q[1], q[2]);
    EXPECT_EQ(exported, want);
    EXPECT_EQ(core, want);
}

INSTANTIATE_TEST_SUITE_P(TestTable, GasTableQueries, ::testing::ValuesIn(gasfiles::read_csv("gas_table_queries.csv")));

TEST_F(GasTable, StoreidxKeepsTheFormerRowOfANameNotInTheTable) {
    store({"CO      X", "XX"});  // neither is a table name; the first is cut to "CO" when stored
    EXPECT_EQ(fd::stored_name(1), CompName::from("CO"));
    EXPECT_EQ(fd::getstoredidx(CompName::from("CO")), 2);  // N2's row, left over
    EXPECT_EQ(fd::getstoredidx(CompName::from("XX")), 7);  // CO's row, left over
    fd::storeidx(std::vector<CompName>(300, CompName::from("CO")));
    EXPECT_EQ(fd::stored_count(), od::max_components);
    EXPECT_EQ(fd::getstoredidx(CompName::from("H2O")), 3);
}

TEST_F(GasTable, SameAsStoredMatchesOnlyTheStoredNamesInCountAndOrder) {
    const std::vector<CompName> co_n2 = {CompName::from("CO"), CompName::from("N2  ")};
    store({"CO", "N2"});
    EXPECT_TRUE(fd::same_as_stored(co_n2));
    EXPECT_FALSE(fd::same_as_stored(std::vector<CompName>{co_n2[1], co_n2[0]}));
    EXPECT_FALSE(fd::same_as_stored(std::span(co_n2).first(1)));
    EXPECT_FALSE(fd::same_as_stored({}));
    store({});
    EXPECT_TRUE(fd::same_as_stored({}));
    EXPECT_FALSE(fd::same_as_stored(co_n2));
}

TEST_F(GasTable, WaterRowsComeFromTheCurrentTableAndGiveTheSentinelsWithoutOne) {
    store({});
    EXPECT_EQ(fd::getstoredidx(CompName::from("H2O")), od::missing_row);  // nothing stored
    store({"N2"});
    EXPECT_EQ(fd::getstoredidx(CompName::from("H2O")), 3);
    load_text(gasfiles::blocks(3));  // rows 1..3 replaced, none of them water
    store({"G1"});
    // The former rows 3 and 4 are now G3 and no row: a load forgets them.
    EXPECT_EQ(fd::getstoredidx(CompName::from("H2O")), 0);
    EXPECT_EQ(fd::getstoredidx(CompName::from("H2O(L)")), 0);
    EXPECT_EQ(fd::getmmol(CompName::from("H2O")), od::missing_value);
}

TEST_F(GasTable, ExportsReadTextsAndCountsSafelyAndFillTheCallersBuffers) {
    EXPECT_EQ(iscomp_("N2\0junk", 7), 1);  // a NUL ends a C caller's text
    EXPECT_EQ(iscomp_(nullptr, 0), 0);
    int32_t n = 2;
    storeidx_(nullptr, "N2", 2);  // a missing argument changes nothing
    storeidx_(&n, nullptr, 0);
    EXPECT_EQ(fd::stored_count(), 4);
    n = -3;
    storeidx_(&n, "N2", 2);
    EXPECT_EQ(fd::stored_count(), 0);
    char phase[3] = {'?', '?', '?'};
    getphase_(phase, 3, "SIO2(S)", 7);
    EXPECT_EQ(std::string(phase, 3), "S  ");
    std::string names(250 * 10, '#');
    getcompset_(&n, names.data(), 10);
    EXPECT_EQ(n, 10);
    EXPECT_EQ(names.substr(0, 20), "H2O       N2        ");
    EXPECT_EQ(names.substr(100, 10), std::string(8, '\0') + "  ");  // an unfilled slot
    EXPECT_EQ(names.substr(2490), std::string(8, '\0') + "  ");
    ASSERT_EQ(od::fluiddb::import_record(file("fluids.db"), "Ondrel.Dat", gasfiles::blocks(3)), "");
    const std::string directory = padded(dir()), name = padded("Ondrel.Dat");
    readgasdb_(directory.data(), name.data(), directory.size(), name.size());
    EXPECT_EQ(getidx_("G3", 2), 3);
}

}  // namespace
