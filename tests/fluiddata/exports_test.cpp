// The gas table operations in the host calling convention.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_fluiddb.hpp"
#include "host/od_host.hpp"
#include "ondrel/od_fluiddata.h"
#include "tests/fluiddata/gas_files.hpp"

namespace {

class Exports : public ::testing::Test {
protected:
    gasfiles::TempDir tmp;
    std::string text;
    void SetUp() override {
        od::fluiddata::reset_for_tests();
        od::host::reset_for_tests();
        text = gasfiles::header_line;
        double seed = 10.0;
        for (const char* name : {"N2", "H2O", "H2O(L)", "C(S)"}) {
            text += gasfiles::block_text(gasfiles::numbered_block(name, seed));
            seed += 10.0;
        }
        gasfiles::write_file(tmp.file("Ondrel.Dat"), text);
    }
    void TearDown() override { od::fluiddata::reset_for_tests(); }
    // The path as a blank-padded 256-character text.
    std::string path256() const {
        std::string p = tmp.file("Ondrel.Dat");
        p.resize(256, ' ');
        return p;
    }
};

TEST_F(Exports, ReadgasfileTakesABlankPaddedPath) {
    const std::string p = path256();
    EXPECT_EQ(dbread_(), 0);
    readgasfile_(p.data(), p.size());
    EXPECT_EQ(getidx_("C(S)    ", 8), 4);
    EXPECT_EQ(getidx_("H2O(L)", 6), 3);
    EXPECT_EQ(getidx_("AR", 2), -8888);
    EXPECT_EQ(dbread_(), 0);  // a loader alone does not mark the table loaded
    setdbread_();
    EXPECT_EQ(dbread_(), 1);
}

TEST_F(Exports, ReadgasdbTakesBlankPaddedTexts) {
    ASSERT_EQ(od::fluiddb::import_record(tmp.file("fluids.db"), "Ondrel.Dat", text), "");
    std::string dir = tmp.dir(), name = "Ondrel.Dat";
    dir.resize(256, ' ');
    name.resize(256, ' ');
    readgasdb_(dir.data(), name.data(), dir.size(), name.size());
    EXPECT_EQ(getidx_("C(S)", 4), 4);
}

TEST_F(Exports, StoreidxReadsAnArrayOfFixedWidthNames) {
    const std::string p = path256();
    readgasfile_(p.data(), p.size());
    const char names[] = "C(S)        N2          ";  // two names of width 12
    const int32_t n = 2;
    storeidx_(&n, names, 12);
    EXPECT_EQ(getstoredidx_("N2", 2), 1);
    EXPECT_EQ(getstoredidx_("C(S)", 4), 4);
    EXPECT_EQ(getstoredidx_("H2O", 3), 2);
    EXPECT_EQ(getstoredidx_("H2O(L)  ", 8), 3);
    EXPECT_EQ(getmmol_("N2", 2), od::fluiddata::table_row(1).mmol);
    EXPECT_EQ(gettmin_("N2", 2), 200.0);
    EXPECT_EQ(gettmax_("N2", 2), 6000.0);
    EXPECT_EQ(getsigma_("N2", 2), 3.621);
    EXPECT_EQ(geteps_("N2", 2), 97.53);
    EXPECT_EQ(getmmol_("AR", 2), -8888.8);
    std::array<double, 7> a{};
    const double t = 1500.0;
    getcoef_("C(S)", &t, a.data(), 4);
    EXPECT_EQ(a[0], od::fluiddata::table_row(4).coef[0][0]);
    EXPECT_EQ(a[6], od::fluiddata::table_row(4).coef[0][6]);
}

TEST_F(Exports, StoreidxTakesACountOutsideTheRangeSafely) {
    const std::string p = path256();
    readgasfile_(p.data(), p.size());
    const int32_t negative = -3;
    storeidx_(&negative, "N2", 2);
    EXPECT_EQ(od::fluiddata::stored_count(), 0);
    storeidx_(nullptr, nullptr, 0);
    EXPECT_EQ(od::fluiddata::stored_count(), 0);
    std::vector<char> many(300 * 8, ' ');
    for (std::size_t i = 0; i < 300; ++i) many[i * 8] = 'X';
    const int32_t big = 300;
    storeidx_(&big, many.data(), 8);
    EXPECT_EQ(od::fluiddata::stored_count(), 250);
}

TEST_F(Exports, GetphaseFillsTheResultBuffer) {
    char r = '?';
    getphase_(&r, 1, "SIO2(S)", 7);
    EXPECT_EQ(r, 'S');
    getphase_(&r, 1, "H2O(L)", 6);
    EXPECT_EQ(r, 'L');
    char wide[3] = {'?', '?', '?'};
    getphase_(wide, 3, "CO", 2);
    EXPECT_EQ(std::string(wide, 3), "G  ");
}

TEST_F(Exports, GetcompsetFillsAll250Slots) {
    const std::string p = path256();
    readgasfile_(p.data(), p.size());
    std::vector<char> names(250 * 10, '#');
    int32_t n = -1;
    getcompset_(&n, names.data(), 10);
    EXPECT_EQ(n, 4);
    EXPECT_EQ(std::string(names.data(), 20), "N2        H2O       ");
    EXPECT_EQ(std::string(names.data() + 40, 10), std::string(8, '\0') + "  ");
    EXPECT_EQ(names[249 * 10 + 9], ' ');
}

TEST_F(Exports, IscompLoadsThroughTheFluidPath) {
    gasfiles::ScopedEnv path("ONDREL_FLUIDPATH", tmp.dir());
    gasfiles::ScopedEnv source("ONDREL_GAS_SOURCE", std::nullopt);
    EXPECT_EQ(iscomp_("H2O(L)", 6), 1);
    EXPECT_EQ(iscomp_("h2o(l)", 6), 0);
    EXPECT_EQ(iscomp_(nullptr, 0), 0);
    EXPECT_EQ(dbread_(), 1);
    readgas_();  // already loaded: nothing happens
    EXPECT_EQ(od::fluiddata::table_size(), 4);
}

}  // namespace
