// fluiddb: keeps text records in a fluid database file (fluids.db), and
// tells where the library finds its gas data.
//   fluiddb import <database> <name> <text file>   store the file as record <name>
//   fluiddb list <database>                        names and line counts of the records
//   fluiddb show <database> <name>                 print a record
//   fluiddb where                                  where the library looks for its gas data
//   fluiddb --help                                 this summary
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "host/od_fluiddb.hpp"
#include "ondrel/gas_data.hpp"

namespace {

constexpr std::string_view msg_usage =
    "usage: fluiddb import <database> <name> <text file>\n"
    "       fluiddb list <database>\n"
    "       fluiddb show <database> <name>\n"
    "       fluiddb where\n"
    "       fluiddb --help\n";
constexpr std::string_view msg_help =
    "Keeps text records in a fluid database file (fluids.db), and tells where\n"
    "the Ondrel library finds its gas data.\n"
    "  import   store a text file as a record, replacing one of the same name\n"
    "  list     names and line counts of the records\n"
    "  show     print a record\n"
    "  where    the places the library looks for its gas data, in search order;\n"
    "           exit status 1 when none holds it\n"
    "The library reads the record \"Ondrel.Dat\" of <data directory>/fluids.db\n"
    "when ONDREL_GAS_SOURCE=database, else the file <data directory>/Ondrel.Dat.\n";
constexpr std::string_view msg_where_header = "the library looks for its gas data in, in order:\n";
constexpr std::string_view msg_reads = "it reads ";
constexpr std::string_view msg_present = "present";
constexpr std::string_view msg_missing = "missing";
constexpr std::string_view msg_cannot_read_file = "fluiddb: cannot read ";
constexpr std::string_view msg_cannot_read_db = "fluiddb: cannot read the database ";
constexpr std::string_view msg_no_record = "fluiddb: no record named ";
constexpr std::string_view msg_import_failed = "fluiddb: import failed: ";
constexpr std::string_view msg_imported = "imported ";

int usage() {
    std::cerr << msg_usage;
    return 2;
}

// Every place the library looks for its gas data; which one it reads, or
// that none holds the data (exit status 1).
int where() {
    const std::vector<ondrel::GasDataPlace> places = ondrel::gas_data_places();
    std::cout << msg_where_header;
    for (const auto& p : places)
        std::cout << "  " << p.file << "  (" << p.origin << ", " << (p.present ? msg_present : msg_missing)
                  << ")\n";
    for (const auto& p : places) {
        if (p.present) {
            std::cout << msg_reads << p.file << '\n';
            return 0;
        }
    }
    std::cout << ondrel::message(ondrel::Status::gas_data_not_found) << '\n';
    return 1;
}

int import_file(const std::string& db, const std::string& name, const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) {
        std::cerr << msg_cannot_read_file << file << '\n';
        return 1;
    }
    std::ostringstream text;
    text << in.rdbuf();
    const std::string error = od::fluiddb::import_record(db, name, text.str());
    if (!error.empty()) {
        std::cerr << msg_import_failed << error << '\n';
        return 1;
    }
    std::cout << msg_imported << name << " (" << od::fluiddb::split_lines(text.str()).size() << " lines)\n";
    return 0;
}

int list(const std::string& db) {
    const auto records = od::fluiddb::list_records(db);
    if (!records) {
        std::cerr << msg_cannot_read_db << db << '\n';
        return 1;
    }
    for (const auto& r : *records) std::cout << r.name << '\t' << r.lines << '\n';
    return 0;
}

int show(const std::string& db, const std::string& name) {
    const auto lines = od::fluiddb::read_record(db, name);
    if (!lines) {
        std::cerr << msg_no_record << name << '\n';
        return 1;
    }
    for (const auto& line : *lines) std::cout << line << '\n';
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view command = argc > 1 ? argv[1] : "";
    if ((command == "--help" || command == "-h") && argc == 2) {
        std::cout << msg_usage << msg_help;
        return 0;
    }
    if (command == "where" && argc == 2) return where();
    if (argc < 3) return usage();
    if (command == "import" && argc == 5) return import_file(argv[2], argv[3], argv[4]);
    if (command == "list" && argc == 3) return list(argv[2]);
    if (command == "show" && argc == 4) return show(argv[2], argv[3]);
    return usage();
}
