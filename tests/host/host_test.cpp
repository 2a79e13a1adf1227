// Platform functions, the fluid database and the registration of host functions.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_fluiddb.hpp"
#include "host/od_host.hpp"
#include "ondrel/od_fluiddata.h"
#include "tests/fluiddata/gas_files.hpp"

namespace host = od::host;
namespace db = od::fluiddb;
using gasfiles::ScopedEnv;
using gasfiles::TempDir;

namespace {

class Host : public ::testing::Test {
protected:
    TempDir tmp;
    void SetUp() override {
        host::reset_for_tests();
        od::fluiddata::reset_for_tests();
    }
    void TearDown() override {
        host::reset_for_tests();
        od::fluiddata::reset_for_tests();
    }
    std::string db_file() const { return tmp.file("fluids.db"); }
};

// --- fluidpath ---------------------------------------------------------------

TEST_F(Host, FluidpathTakesTheEnvironmentAndEndsWithTheSeparator) {
    {
        ScopedEnv env("ONDREL_FLUIDPATH", "/some/dir/");
        EXPECT_EQ(host::fluidpath("Ondrel"), "/some/dir/");
    }
    {
        ScopedEnv env("ONDREL_FLUIDPATH", "/some/dir");
        EXPECT_EQ(host::fluidpath("Ondrel"), "/some/dir/");
    }
    for (const std::optional<std::string>& unset : {std::optional<std::string>(), std::optional<std::string>("")}) {
        ScopedEnv env("ONDREL_FLUIDPATH", unset);
        EXPECT_EQ(host::fluidpath("Ondrel"), ONDREL_DATA_DIR);
    }
}

TEST_F(Host, FluidpathIsCutTo256Characters) {
    ScopedEnv env("ONDREL_FLUIDPATH", "/" + std::string(400, 'd'));
    EXPECT_EQ(host::fluidpath("Ondrel").size(), host::text_width);
}

TEST_F(Host, GasSourceIsTheFileUnlessDatabaseIsSelected) {
    {
        ScopedEnv env("ONDREL_GAS_SOURCE", std::nullopt);
        EXPECT_EQ(host::gas_source(), host::GasSource::file);
    }
    {
        ScopedEnv env("ONDREL_GAS_SOURCE", "database");
        EXPECT_EQ(host::gas_source(), host::GasSource::database);
    }
    for (const char* other : {"file", "Database", "database ", ""}) {
        ScopedEnv env("ONDREL_GAS_SOURCE", other);
        EXPECT_EQ(host::gas_source(), host::GasSource::file) << other;
    }
}

// --- the fluid database ----------------------------------------------------------

TEST_F(Host, GetfluidReadsAStoredRecord) {
    ASSERT_EQ(db::import_record(db_file(), "Ondrel.Dat", "header\r\nline 2\n\nline 4\n"), "");
    const host::FluidRecord r = host::getfluid(tmp.dir(), "Ondrel.Dat");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.lines, (std::vector<std::string>{"header", "line 2", "", "line 4"}));
}

TEST_F(Host, GetfluidGivesNothingWithoutDatabaseOrRecord) {
    EXPECT_EQ(host::getfluid(tmp.dir(), "Ondrel.Dat").status, 0);
    EXPECT_FALSE(std::filesystem::exists(db_file()));  // reading never creates the database
    ASSERT_EQ(db::import_record(db_file(), "Other", "x"), "");
    host::FluidRecord r = host::getfluid(tmp.dir(), "Ondrel.Dat");
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.lines.empty());
    ASSERT_EQ(db::import_record(db_file(), "Empty", ""), "");
    r = host::getfluid(tmp.dir(), "Empty");
    EXPECT_EQ(r.status, 0);
    EXPECT_TRUE(r.lines.empty());
}

TEST_F(Host, GetfluidGivesNothingForAFileThatIsNoDatabase) {
    gasfiles::write_file(db_file(), std::string(5000, '\x7f') + "SQLite format 3");
    EXPECT_EQ(host::getfluid(tmp.dir(), "Ondrel.Dat").status, 0);
    EXPECT_FALSE(db::list_records(db_file()).has_value());
    gasfiles::write_file(db_file(), "");
    EXPECT_EQ(host::getfluid(tmp.dir(), "Ondrel.Dat").status, 0);
}

TEST_F(Host, ImportRefusesRecordsBeyond255LinesOf255Characters) {
    const std::string line255(255, 'x');
    std::string full;
    for (int i = 0; i < 255; ++i) full += line255 + "\n";
    EXPECT_EQ(db::import_record(db_file(), "Full", full), "");
    EXPECT_EQ(host::getfluid(tmp.dir(), "Full").lines.size(), 255u);
    EXPECT_NE(db::import_record(db_file(), "TooMany", full + "x\n"), "");
    EXPECT_NE(db::import_record(db_file(), "TooWide", "ok\n" + line255 + "x\n"), "");
    EXPECT_NE(db::import_record(db_file(), "", "x"), "");
    EXPECT_NE(db::import_record(db_file(), std::string(257, 'n'), "x"), "");
    EXPECT_EQ(host::getfluid(tmp.dir(), "TooMany").status, 0);
    EXPECT_NE(db::import_record(tmp.file("no/such/dir/fluids.db"), "X", "x"), "");
}

TEST_F(Host, ImportReplacesARecordAndListShowsAll) {
    ASSERT_EQ(db::import_record(db_file(), "B", "one\ntwo\n"), "");
    ASSERT_EQ(db::import_record(db_file(), "A", "one\n"), "");
    ASSERT_EQ(db::import_record(db_file(), "B", "1\n2\n3"), "");
    const auto records = db::list_records(db_file());
    ASSERT_TRUE(records.has_value());
    ASSERT_EQ(records->size(), 2u);
    EXPECT_EQ((*records)[0].name, "A");
    EXPECT_EQ((*records)[0].lines, 1u);
    EXPECT_EQ((*records)[1].name, "B");
    EXPECT_EQ((*records)[1].lines, 3u);
    EXPECT_EQ(host::getfluid(tmp.dir(), "B").lines.back(), "3");
    EXPECT_FALSE(db::list_records(tmp.file("missing.db")).has_value());
}

// --- exports ----------------------------------------------------------------------

TEST_F(Host, FluidpathExportBlankPadsTheCallersBuffer) {
    ScopedEnv env("ONDREL_FLUIDPATH", "/data");
    std::array<char, 12> buf;
    buf.fill('#');
    fluidpath_(buf.data(), "Ondrel", buf.size(), 6);
    EXPECT_EQ(std::string(buf.data(), buf.size()), "/data/      ");
    std::array<char, 3> small;
    fluidpath_(small.data(), "Ondrel", small.size(), 6);
    EXPECT_EQ(std::string(small.data(), small.size()), "/da");
}

TEST_F(Host, GetfluidExportFillsFixedWidthLines) {
    ASSERT_EQ(db::import_record(db_file(), "Ondrel.Dat", "abc\nde\n"), "");
    const std::string dir = tmp.dir() + "   ";
    std::vector<char> lines(255 * 10, '#');
    int32_t status = -1;
    EXPECT_EQ(getfluid_(dir.data(), "Ondrel.Dat  ", lines.data(), &status, dir.size(), 12, 10), 2);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(std::string(lines.data(), 20), "abc       de        ");
    EXPECT_EQ(lines[20], '#');
    EXPECT_EQ(getfluid_(dir.data(), "Nothing", lines.data(), &status, dir.size(), 7, 10), 0);
    EXPECT_EQ(status, 0);
}

// Host functions in the host calling convention, as a host would supply them.
std::string g_host_dir;
int32_t g_host_count = 0;
std::string g_host_lib;

void host_fluidpath(char* buffer, const char* library, size_t buffer_len, size_t library_len) {
    g_host_lib.assign(library, library_len);
    std::memset(buffer, ' ', buffer_len);
    std::memcpy(buffer, g_host_dir.data(), std::min(buffer_len, g_host_dir.size()));
}

int32_t host_getfluid(const char* /*directory*/, const char* name, char* lines, int32_t* status,
                      size_t /*directory_len*/, size_t name_len, size_t line_len) {
    const std::string text = std::string(gasfiles::header_line) + gasfiles::block_text({}) +
                             gasfiles::block_text(gasfiles::numbered_block("CO", 2));
    const auto rows = db::split_lines(text);
    EXPECT_EQ(std::string(name, name_len), "Ondrel.Dat");
    EXPECT_EQ(line_len, 255u);
    for (std::size_t i = 0; i < rows.size(); ++i) std::memcpy(lines + i * line_len, rows[i].data(), rows[i].size());
    *status = 1;
    return g_host_count;
}

TEST_F(Host, RegisteredHostFunctionsServeTheLoader) {
    g_host_dir = tmp.dir();
    g_host_count = 9;
    gasfiles::write_file(tmp.file("Ondrel.Dat"), std::string(gasfiles::header_line) + gasfiles::block_text({}));
    ondrel_set_host_functions(host_fluidpath, host_getfluid);
    {
        ScopedEnv source("ONDREL_GAS_SOURCE", "database");
        EXPECT_EQ(iscomp_("CO", 2), 1);
        EXPECT_EQ(g_host_lib, "Ondrel");
        EXPECT_EQ(od::fluiddata::table_size(), 2);
    }
    od::fluiddata::reset_for_tests();
    {
        ScopedEnv source("ONDREL_GAS_SOURCE", "file");
        EXPECT_EQ(iscomp_("CO", 2), 0);  // the file in the host's directory has N2 only
        EXPECT_EQ(iscomp_("N2", 2), 1);
    }
}

TEST_F(Host, HostLineCountsOutsideTheBufferAreClamped) {
    g_host_dir = tmp.dir();
    ondrel_set_host_functions(nullptr, host_getfluid);
    g_host_count = 100000;
    od::fluiddata::readgasdb(tmp.dir(), "Ondrel.Dat");
    EXPECT_EQ(od::fluiddata::table_size(), 63);  // 255 lines, most of them blank
    od::fluiddata::reset_for_tests();
    g_host_count = -5;
    od::fluiddata::readgasdb(tmp.dir(), "Ondrel.Dat");
    EXPECT_EQ(od::fluiddata::table_size(), 0);
}

TEST_F(Host, NullRestoresTheBuiltInFunctions) {
    g_host_dir = "/nowhere/";
    ondrel_set_host_functions(host_fluidpath, host_getfluid);
    EXPECT_EQ(host::fluidpath("Ondrel"), "/nowhere/");
    ondrel_set_host_functions(nullptr, nullptr);
    ScopedEnv env("ONDREL_FLUIDPATH", tmp.dir());
    EXPECT_EQ(host::fluidpath("Ondrel"), tmp.dir());
    EXPECT_EQ(host::getfluid(tmp.dir(), "Ondrel.Dat").status, 0);
}

}  // namespace
