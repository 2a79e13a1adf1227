// Platform functions, the fluid database and the registration of host functions.
#include <array>
#include <cstring>
#include <span>

#include "host/ftn_text.hpp"
#include "host/od_fluiddb.hpp"
#include "ondrel/c/gas_data.h"
#include "ondrel/gas_data.hpp"
#include "ondrel/od_fluiddata.h"
#include "tests/fluiddata/gas_files.hpp"

namespace host = od::host;
namespace db = od::fluiddb;
using Host = gasfiles::GasTest;

namespace {

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

TEST_F(Host, FluidpathAndGasSourceComeFromTheEnvironment) {
    const std::string long_dir = "/" + std::string(400, 'd');
    for (const auto& [value, want] : std::vector<std::pair<std::string, std::string>>{
             {"some/dir/", "some/dir/"}, {"some/dir", "some/dir/"}, {long_dir, long_dir.substr(0, 256)}}) {
        env("ONDREL_FLUIDPATH", value);
        EXPECT_EQ(host::fluidpath("Ondrel"), want) << value;
        ASSERT_EQ(host::builtin_data_places().size(), 1u);  // the setting alone is looked in
        EXPECT_EQ(host::builtin_data_places()[0].origin, "ONDREL_FLUIDPATH");
    }
    env("ONDREL_GAS_SOURCE", "Database");
    EXPECT_EQ(host::gas_source(), host::GasSource::file);
    EXPECT_EQ(host::source_file(host::gas_source()), "Ondrel.Dat");
    env("ONDREL_GAS_SOURCE", "database");
    EXPECT_EQ(host::gas_source(), host::GasSource::database);
    EXPECT_EQ(host::source_file(host::gas_source()), "fluids.db");
}

// Without ONDREL_FLUIDPATH the library looks beside the file that holds its
// code (here the test program, which links it statically), then in the
// directory configured at build time.
TEST_F(Host, WithoutTheSettingTheDataIsLookedForBesideTheLibraryThenInTheConfiguredDirectory) {
    std::error_code ec;
    EXPECT_EQ(host::module_path(), std::filesystem::canonical("/proc/self/exe", ec).string());
    for (const char* value : {"", static_cast<const char*>(nullptr)}) {
        env("ONDREL_FLUIDPATH", value ? std::optional<std::string>(value) : std::nullopt);
        const std::vector<host::DataPlace> places = host::builtin_data_places();
        ASSERT_EQ(places.size(), 2u);
        EXPECT_EQ(places[0].directory, host::data_dir_beside(host::module_path(), ONDREL_DATA_FROM_LIBRARY));
        EXPECT_EQ(places[0].origin, "beside the library");
        EXPECT_EQ(places[1].directory, ONDREL_DATA_DIR);
        EXPECT_EQ(places[1].origin, "configured directory");
        EXPECT_EQ(host::fluidpath("Ondrel"), host::first_holding(places, "Ondrel.Dat"));
    }
}

TEST_F(Host, DataDirectoryBesideTheLibraryFollowsTheLibrarysLocation) {
    for (const auto& [module, relative, want] : std::vector<std::array<std::string, 3>>{
             {"/opt/ondrel/lib/libondrel.so.3", "../share/ondrel/", "/opt/ondrel/share/ondrel/"},
             {"/usr/lib/x86_64-linux-gnu/libondrel.so.3", "../../share/ondrel/", "/usr/share/ondrel/"},
             {"/moved/here/lib/libondrel.so.3", "../share/ondrel", "/moved/here/share/ondrel/"},
             {"/opt/ondrel/bin/../lib/libondrel.so.3", "../share/ondrel/", "/opt/ondrel/share/ondrel/"},
             {"lib/libondrel.so", "../share/ondrel/", "share/ondrel/"},
             {"", "../share/ondrel/", ""}})
        EXPECT_EQ(host::data_dir_beside(module, relative), want) << module << " " << relative;
}

TEST_F(Host, TheFirstPlaceHoldingTheSourcesFileIsChosenElseTheFirstPlace) {
    const std::string a = dir() + "a/", b = dir() + "b/", c = dir() + "c/";
    for (const std::string& d : {a, b, c}) std::filesystem::create_directory(d);
    gasfiles::write_file(b + "Ondrel.Dat", "header\n");
    gasfiles::write_file(c + "fluids.db", "");
    std::filesystem::create_directory(a + "Ondrel.Dat");  // a directory of that name holds no data
    const std::vector<host::DataPlace> places = {{a, "first"}, {b, "second"}, {c, "third"}};
    EXPECT_EQ(host::first_holding(places, "Ondrel.Dat"), b);
    EXPECT_EQ(host::first_holding(places, "fluids.db"), c);
    EXPECT_EQ(host::first_holding(std::span(places).first(1), "Ondrel.Dat"), a);
    EXPECT_EQ(host::first_holding({}, "Ondrel.Dat"), "");
}

// The modern API's report of where the gas data is looked for.
TEST_F(Host, DescribeNamesEveryPlaceLookedInWhenTheGasDataIsNotFound) {
    env("ONDREL_FLUIDPATH", dir());
    EXPECT_EQ(ondrel::describe(ondrel::Status::gas_data_not_found),
              "gas data not found; looked for " + dir() + "Ondrel.Dat (ONDREL_FLUIDPATH, missing)");
    gasfiles::write_file(file("Ondrel.Dat"), "header\n");
    env("ONDREL_GAS_SOURCE", "database");
    const std::vector<ondrel::GasDataPlace> db_places = ondrel::gas_data_places();
    ASSERT_EQ(db_places.size(), 1u);
    EXPECT_EQ(db_places[0].file, dir() + "fluids.db");
    EXPECT_FALSE(db_places[0].present);
    env("ONDREL_GAS_SOURCE", std::nullopt);
    EXPECT_TRUE(ondrel::gas_data_places().at(0).present);
    EXPECT_EQ(ondrel::describe(ondrel::Status::unknown_component), "unknown component");  // no places

    env("ONDREL_FLUIDPATH", std::nullopt);
    const std::vector<ondrel::GasDataPlace> places = ondrel::gas_data_places();
    const std::string text = ondrel::describe(ondrel::Status::gas_data_not_found);
    ASSERT_EQ(places.size(), 2u);
    for (const auto& p : places) EXPECT_NE(text.find(p.file + " (" + p.origin + ", "), std::string::npos) << text;
    EXPECT_LT(text.find(places[0].file), text.find(places[1].file));

    g_dir = dir();
    ondrel_set_host_functions_(host_fluidpath, nullptr);
    ASSERT_EQ(ondrel::gas_data_places().size(), 1u);
    EXPECT_EQ(ondrel::gas_data_places()[0].origin, "host fluidpath");
    EXPECT_TRUE(ondrel::gas_data_places()[0].present);
    ondrel_set_host_functions_(nullptr, nullptr);
}

TEST_F(Host, DescribeForCCallersCutsTheTextToTheBufferAndReturnsItsLength) {
    env("ONDREL_FLUIDPATH", dir());
    const std::string whole = ondrel::describe(ondrel::Status::gas_data_not_found);
    char buffer[8];
    std::memset(buffer, '#', sizeof buffer);
    EXPECT_EQ(ondrel_describe(1, buffer, sizeof buffer), whole.size());
    EXPECT_EQ(std::string(buffer), whole.substr(0, 7));
    EXPECT_EQ(ondrel_describe(1, nullptr, 0), whole.size());
    EXPECT_EQ(ondrel_describe(1, buffer, 0), whole.size());
    EXPECT_EQ(buffer[0], whole[0]);  // size 0: nothing written
    EXPECT_EQ(ondrel_describe(-3, buffer, sizeof buffer), std::string("unknown status").size());
    EXPECT_EQ(std::string(buffer), "unknown");
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
