// Platform functions, the fluid database and the registration of host functions.
#include <cstring>

#include "host/ftn_text.hpp"
#include "host/od_fluiddb.hpp"
#include "ondrel/od_fluiddata.h"
#include "tests/fluiddata/gas_files.hpp"

namespace host = od::host;
namespace db = od::fluiddb;
using Host = gasfiles::GasTest;

namespace {

TEST_F(Host, FluidpathAndGasSourceComeFromTheEnvironment) {
    const std::string long_dir = "/" + std::string(400, 'd');
    for (const auto& [value, want] : std::vector<std::pair<std::optional<std::string>, std::string>>{
             {"some/dir/", "some/dir/"}, {"some/dir", "some/dir/"}, {std::nullopt, ONDREL_DATA_DIR},
             {"", ONDREL_DATA_DIR}, {long_dir, long_dir.substr(0, 256)}}) {
        env("ONDREL_FLUIDPATH", value);
        EXPECT_EQ(host::fluidpath("Ondrel"), want) << value.value_or("(unset)");
    }
    env("ONDREL_GAS_SOURCE", "Database");
    EXPECT_EQ(host::gas_source(), host::GasSource::file);
    env("ONDREL_GAS_SOURCE", "database");
    EXPECT_EQ(host::gas_source(), host::GasSource::database);
}

TEST_F(Host, GetfluidReadsAStoredRecordAndNothingElse) {
    EXPECT_EQ(host::getfluid(dir(), "Ondrel.Dat").status, 0);
    EXPECT_FALSE(std::filesystem::exists(file("fluids.db")));  // reading never creates the database
    ASSERT_EQ(db::import_record(file("fluids.db"), "Ondrel.Dat", "header\r\nline 2\n\nline 4\n"), "");
    ASSERT_EQ(db::import_record(file("fluids.db"), "Empty", ""), "");
    const host::FluidRecord r = host::getfluid(dir(), "Ondrel.Dat");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.lines, (std::vector<std::string>{"header", "line 2", "", "line 4"}));
    for (const char* name : {"Other", "Empty", "ondrel.dat"})
        EXPECT_EQ(host::getfluid(dir(), name).status + host::getfluid(dir(), name).lines.size(), 0u) << name;
    gasfiles::write_file(file("fluids.db"), std::string(5000, '\x7f') + "SQLite format 3");  // not a database
    EXPECT_EQ(host::getfluid(dir(), "Ondrel.Dat").status, 0);
    EXPECT_FALSE(db::list_records(file("fluids.db")));
}

TEST_F(Host, ImportRefusesRecordsBeyond255LinesOf255CharactersAndReplacesByName) {
    const std::string db_file = file("fluids.db"), line255(255, 'x');
    std::string full;
    for (int i = 0; i < 255; ++i) full += line255 + "\n";
    EXPECT_EQ(db::import_record(db_file, std::string(256, 'n'), full), "");
    EXPECT_EQ(host::getfluid(dir(), std::string(256, 'n')).lines, std::vector<std::string>(255, line255));
    EXPECT_EQ(db::import_record(db_file, "TooMany", full + "x\n"), "record has more than 255 lines");
    EXPECT_EQ(db::import_record(db_file, "TooWide", "ok\n" + line255 + "x\n"),
              "record has a line longer than 255 characters, line 2");
    EXPECT_EQ(db::import_record(db_file, "", "x"), "record name is empty");
    EXPECT_EQ(db::import_record(db_file, std::string(257, 'n'), "x"), "record name is longer than 256 characters");
    ASSERT_EQ(db::import_record(db_file, "B", "one\n"), "");
    ASSERT_EQ(db::import_record(db_file, "B", "1\n2\n3"), "");
    EXPECT_EQ(host::getfluid(dir(), "B").lines.size(), 3u);
}

TEST_F(Host, ExportsFillTheCallersFixedWidthBuffers) {
    env("ONDREL_FLUIDPATH", "data");
    std::string buf(12, '#');
    fluidpath_(buf.data(), "Ondrel", buf.size(), 6);
    EXPECT_EQ(buf, "data/       ");
    fluidpath_(buf.data(), "Ondrel", 3, 6);
    EXPECT_EQ(buf, "data/       ");
    ASSERT_EQ(db::import_record(file("fluids.db"), "Ondrel.Dat", "abc\nde\n"), "");
    const std::string directory = dir() + "   ";
    std::string lines(255 * 10, '#');
    int32_t status = -1;
    EXPECT_EQ(getfluid_(directory.data(), "Ondrel.Dat  ", lines.data(), &status, directory.size(), 12, 10), 2);
    EXPECT_EQ(status, 1);
    EXPECT_EQ(lines.substr(0, 21), "abc       de        #");
    EXPECT_EQ(getfluid_(directory.data(), "Nothing", lines.data(), &status, directory.size(), 7, 10), 0);
    EXPECT_EQ(status, 0);
}

// Host functions in the host calling convention, as a host would supply them.
std::string g_dir, g_library;
int32_t g_count = 0;

void host_fluidpath(char* buffer, const char* library, size_t buffer_len, size_t library_len) {
    g_library.assign(library, library_len);
    ftn::store(buffer, buffer_len, g_dir);
}

int32_t host_getfluid(const char* directory, const char* name, char* lines, int32_t* status, size_t directory_len,
                      size_t name_len, size_t line_len) {
    // Texts as wide as a host routine may declare them: 256 characters blank-padded, lines of 255.
    EXPECT_EQ(std::string(directory, directory_len) + std::string(name, name_len) + std::to_string(line_len),
              gasfiles::padded(g_dir) + gasfiles::padded("Ondrel.Dat") + "255");
    const auto rows = db::split_lines(gasfiles::blocks(2, {"N2", "CO"}));
    for (std::size_t i = 0; i < rows.size(); ++i) std::memcpy(lines + i * line_len, rows[i].data(), rows[i].size());
    *status = 1;
    return g_count;
}

TEST_F(Host, RegisteredHostFunctionsServeTheLoaderUntilNullRestoresTheBuiltInOnes) {
    g_dir = dir();
    gasfiles::write_file(file("Ondrel.Dat"), gasfiles::blocks(1, {"N2"}));
    ondrel_set_host_functions_(host_fluidpath, host_getfluid);
    env("ONDREL_GAS_SOURCE", "database");
    for (const auto& [count, rows] : std::vector<std::pair<int32_t, int>>{{9, 2}, {100000, 63}, {-5, 0}}) {
        g_count = count;
        od::fluiddata::reset_for_tests();
        EXPECT_EQ(iscomp_("CO", 2), rows > 0) << count;
        EXPECT_EQ(od::fluiddata::table_size(), rows) << count;  // line counts outside the buffer are clamped
    }
    EXPECT_EQ(g_library, "Ondrel");
    env("ONDREL_GAS_SOURCE", "file");
    od::fluiddata::reset_for_tests();
    EXPECT_EQ(iscomp_("CO", 2), 0);  // the file in the host's blank-padded directory has N2 only
    EXPECT_EQ(iscomp_("N2", 2), 1);
    ondrel_set_host_functions_(nullptr, nullptr);
    env("ONDREL_FLUIDPATH", "elsewhere");
    EXPECT_EQ(host::fluidpath("Ondrel"), "elsewhere/");
    EXPECT_EQ(host::getfluid(dir(), "Ondrel.Dat").status, 0);
}

}  // namespace
