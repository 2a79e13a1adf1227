// Lookups and getters of the gas table and the stored composition.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"
#include "tests/fluiddata/gas_files.hpp"

namespace fd = od::fluiddata;
using od::CompName;

namespace {

CompName nm(std::string_view s) { return CompName::from(s); }

void store(std::initializer_list<std::string_view> names) {
    std::vector<CompName> list;
    for (auto n : names) list.push_back(nm(n));
    fd::storeidx(list);
}

// Loads a table made of the given blocks from a temporary file.
void load(const std::vector<gasfiles::Block>& blocks) {
    gasfiles::TempDir tmp;
    std::string text = gasfiles::header_line;
    for (const auto& b : blocks) text += gasfiles::block_text(b);
    gasfiles::write_file(tmp.file("Ondrel.Dat"), text);
    fd::readgasfile(tmp.file("Ondrel.Dat"));
}

class GasTable : public ::testing::Test {
protected:
    void SetUp() override {
        fd::reset_for_tests();
        od::host::reset_for_tests();
    }
    void TearDown() override { fd::reset_for_tests(); }
};

// Rows: 1 H2O, 2 N2, 3 H2O, 4 H2O(L), 5 H2O, 6 H2O(L), 7 CO, 8 C(S)
std::vector<gasfiles::Block> water_table() {
    return {gasfiles::numbered_block("H2O", 10), gasfiles::numbered_block("N2", 20),
            gasfiles::numbered_block("H2O", 30), gasfiles::numbered_block("H2O(L)", 40),
            gasfiles::numbered_block("H2O", 50), gasfiles::numbered_block("H2O(L)", 60),
            gasfiles::numbered_block("CO", 70),  gasfiles::numbered_block("C(S)", 80)};
}

TEST_F(GasTable, GetidxFindsTheFirstRowOfAName) {
    EXPECT_EQ(fd::getidx(nm("N2")), od::missing_row);  // empty table
    load(water_table());
    EXPECT_EQ(fd::getidx(nm("H2O")), 1);
    EXPECT_EQ(fd::getidx(nm("H2O(L)")), 4);
    EXPECT_EQ(fd::getidx(nm("C(S)")), 8);
    EXPECT_EQ(fd::getidx(nm("AR")), od::missing_row);
}

TEST_F(GasTable, NamesIgnoreTrailingBlanksButNotCase) {
    load(water_table());
    EXPECT_EQ(fd::getidx(nm("N2      ")), 2);
    EXPECT_EQ(fd::getidx(nm("N2                 ")), 2);
    EXPECT_EQ(fd::getidx(nm("n2")), od::missing_row);
    EXPECT_EQ(fd::getidx(nm("h2o")), od::missing_row);
    EXPECT_EQ(fd::getidx(nm(" N2")), od::missing_row);
    // Longer than 8 characters: never a table name, not even cut to 8.
    EXPECT_EQ(fd::getidx(nm("H2O(L)   X")), od::missing_row);
    EXPECT_FALSE(fd::iscomp(nm("H2O(L)   X")));
    EXPECT_TRUE(fd::iscomp(nm("CO  ")));
    EXPECT_FALSE(fd::iscomp(nm("co")));
}

TEST_F(GasTable, WaterRowsComeFromTheScanThatStopsAtTheFirstLiquidRow) {
    load(water_table());
    store({"N2", "CO"});
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), 3);     // last "H2O" before the first "H2O(L)"
    EXPECT_EQ(fd::getstoredidx(nm("H2O(L)")), 4);  // first "H2O(L)"
    EXPECT_EQ(fd::getstoredidx(nm("N2")), 2);
    EXPECT_EQ(fd::getstoredidx(nm("CO")), 7);
    // A stored "H2O" component is still served from the scanned water row.
    store({"H2O"});
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), 3);
    EXPECT_EQ(fd::getmmol(nm("H2O")), 30 / 1000.0);
}

TEST_F(GasTable, WaterRowsKeepTheirOldValueWhenTheTableHasNone) {
    load(water_table());
    store({"N2"});
    ASSERT_EQ(fd::getstoredidx(nm("H2O(L)")), 4);
    // Rows 1..3 replaced by a table without water; its liquid row stays where it was.
    load({gasfiles::numbered_block("N2", 1), gasfiles::numbered_block("CO", 2), gasfiles::numbered_block("AR", 3)});
    store({"N2"});
    EXPECT_EQ(fd::getstoredidx(nm("N2")), 1);
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), 3);
    EXPECT_EQ(fd::getstoredidx(nm("H2O(L)")), 4);
}

TEST_F(GasTable, StoreidxKeepsTheFormerRowOfAnUnknownName) {
    load(water_table());
    store({"CO", "N2"});
    store({"XX", "N2"});
    EXPECT_EQ(fd::stored_count(), 2);
    EXPECT_EQ(fd::stored_name(1), nm("XX"));
    EXPECT_EQ(fd::getstoredidx(nm("XX")), 7);  // CO's row, left over
    EXPECT_EQ(fd::getstoredidx(nm("CO")), od::missing_row);
}

TEST_F(GasTable, StoredNamesAreCutToEightCharacters) {
    load(water_table());
    store({"N2", "CO      trailing"});
    EXPECT_EQ(fd::stored_name(2), nm("CO"));
    // The caller's longer name matched no table row, so its row is the old one (0).
    EXPECT_EQ(fd::getstoredidx(nm("CO")), 0);
    EXPECT_EQ(fd::stored_name(3), CompName{});
    EXPECT_EQ(fd::stored_name(0), CompName{});
    EXPECT_EQ(fd::stored_conc(1), 0.0);
    EXPECT_EQ(fd::stored_conc(251), 0.0);
}

TEST_F(GasTable, GetstoredidxGivesTheSentinelWithoutAStoredComposition) {
    load(water_table());
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), od::missing_row);
    store({});
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), od::missing_row);
    store({"N2"});
    EXPECT_EQ(fd::getstoredidx(nm("AR")), od::missing_row);
    EXPECT_EQ(fd::getstoredidx(nm("C(S)")), od::missing_row);  // in the table, but not stored
}

TEST_F(GasTable, StoreidxIgnoresNamesPastTheCapacity) {
    load(water_table());
    std::vector<CompName> many(300, nm("CO"));
    fd::storeidx(many);
    EXPECT_EQ(fd::stored_count(), od::max_components);
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), 3);
}

TEST_F(GasTable, GettersReadTheRowOfTheStoredName) {
    auto b = gasfiles::numbered_block("CO", 70);
    b.tmin = 300.0;
    b.tmax = 5000.0;
    b.sigma = 3.69;
    b.eps = 91.7;
    load({gasfiles::numbered_block("N2", 20), b});
    store({"N2", "CO"});
    EXPECT_EQ(fd::gettmin(nm("CO")), 300.0);
    EXPECT_EQ(fd::gettmax(nm("CO")), 5000.0);
    EXPECT_EQ(fd::getmmol(nm("CO")), 0.07);
    EXPECT_EQ(fd::getsigma(nm("CO")), 3.69);
    EXPECT_EQ(fd::geteps(nm("CO")), 91.7);
    EXPECT_EQ(fd::getmmol(nm("N2")), 0.02);
}

TEST_F(GasTable, GettersGiveTheMissingValueForAnUnknownName) {
    load(water_table());
    store({"N2"});
    EXPECT_EQ(fd::gettmin(nm("AR")), od::missing_value);
    EXPECT_EQ(fd::gettmax(nm("AR")), od::missing_value);
    EXPECT_EQ(fd::getmmol(nm("AR")), od::missing_value);
    EXPECT_EQ(fd::geteps(nm("AR")), od::missing_value);
    EXPECT_EQ(fd::getsigma(nm("AR")), od::missing_value);
    std::array<double, 7> a{};
    fd::getcoef(nm("AR"), 500.0, a);
    for (double v : a) EXPECT_EQ(v, od::missing_value);
    // A water name whose row was never found (row 0) is missing as well.
    fd::reset_for_tests();
    load({gasfiles::numbered_block("N2", 20)});
    store({"N2"});
    EXPECT_EQ(fd::getstoredidx(nm("H2O")), 0);
    EXPECT_EQ(fd::getmmol(nm("H2O")), od::missing_value);
}

TEST_F(GasTable, GetcoefSplitsTheRangesAtExactly1000K) {
    load({gasfiles::numbered_block("CO", 70)});
    store({"CO"});
    std::array<double, 7> a{};
    fd::getcoef(nm("CO"), 1000.0, a);
    for (int k = 0; k < 7; ++k) EXPECT_EQ(a[k], 71 + (k + 1) / 8.0) << k;  // range 2
    fd::getcoef(nm("CO"), 1000.0001, a);
    for (int k = 0; k < 7; ++k) EXPECT_EQ(a[k], 70 + (k + 1) / 8.0) << k;  // range 1
    fd::getcoef(nm("CO"), 200.0, a);
    EXPECT_EQ(a[0], 71.125);
    fd::getcoef(nm("CO"), std::nan(""), a);  // not above 1000 K: range 2
    EXPECT_EQ(a[0], 71.125);
}

TEST_F(GasTable, GetcoefServesAnAbsentRangeFromTheOtherOne) {
    auto liquid = gasfiles::numbered_block("H2O(L)", 40);
    liquid.coef[0] = 0.0;  // range 1 absent
    auto solid = gasfiles::numbered_block("C(S)", 80);
    solid.coef[7] = 0.0;  // range 2 absent
    load({liquid, solid});
    store({"C(S)"});
    std::array<double, 7> a{};
    for (double t : {300.0, 1000.0, 1500.0, 5000.0}) {
        fd::getcoef(nm("H2O(L)"), t, a);
        EXPECT_EQ(a[0], 41.125) << t;
        EXPECT_EQ(a[6], 41.875) << t;
        fd::getcoef(nm("C(S)"), t, a);
        EXPECT_EQ(a[0], 80.125) << t;
        EXPECT_EQ(a[6], 80.875) << t;
    }
}

TEST_F(GasTable, GetphaseReadsTheNameSuffix) {
    EXPECT_EQ(fd::getphase(nm("C(S)")), 'S');
    EXPECT_EQ(fd::getphase(nm("SIO2(S)")), 'S');
    EXPECT_EQ(fd::getphase(nm("H2O(L)")), 'L');
    EXPECT_EQ(fd::getphase(nm("(L)")), 'L');
    EXPECT_EQ(fd::getphase(nm("CO")), 'G');
    EXPECT_EQ(fd::getphase(nm("N2")), 'G');
    EXPECT_EQ(fd::getphase(nm("H2O(IF)")), 'G');
    EXPECT_EQ(fd::getphase(nm("C(s)")), 'G');
    EXPECT_EQ(fd::getphase(nm("C(S)  ")), 'S');
    EXPECT_EQ(fd::getphase(nm("")), 'G');
}

TEST_F(GasTable, GetcompsetCopiesAllSlots) {
    std::array<CompName, od::max_components> names;
    names.fill(nm("junk"));
    load(water_table());
    EXPECT_EQ(fd::getcompset(names), 8);
    EXPECT_EQ(names[0], nm("H2O"));
    EXPECT_EQ(names[7], nm("C(S)"));
    EXPECT_EQ(names[8], CompName{});  // an unfilled slot: NUL characters
    EXPECT_EQ(names[8].text[0], '\0');
    EXPECT_EQ(names[249], CompName{});
}

TEST_F(GasTable, IscompLoadsTheTableOnce) {
    gasfiles::TempDir tmp;
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", std::nullopt);
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::header_line + gasfiles::block_text({}));
    EXPECT_FALSE(fd::dbread());
    EXPECT_TRUE(fd::iscomp(nm("N2")));
    EXPECT_TRUE(fd::dbread());
    EXPECT_EQ(fd::table_size(), 1);
}

TEST_F(GasTable, AMissingFileIsLoadedOnceOnly) {
    gasfiles::TempDir tmp;
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", std::nullopt);
    EXPECT_FALSE(fd::iscomp(nm("N2")));
    EXPECT_TRUE(fd::dbread());
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::header_line + gasfiles::block_text({}));
    EXPECT_FALSE(fd::iscomp(nm("N2")));  // not retried
    fd::readgas();
    EXPECT_EQ(fd::table_size(), 0);
}

TEST_F(GasTable, SetdbreadPreventsLoading) {
    gasfiles::TempDir tmp;
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    gasfiles::write_file(tmp.file("Ondrel.Dat"), gasfiles::header_line + gasfiles::block_text({}));
    fd::setdbread();
    EXPECT_FALSE(fd::iscomp(nm("N2")));
    EXPECT_EQ(fd::table_size(), 0);
}

}  // namespace
