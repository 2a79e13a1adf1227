// fluiddb: keeps text records in a fluid database file (fluids.db).
//   fluiddb import <database> <name> <text file>   store the file as record <name>
//   fluiddb list <database>                        names and line counts of the records
//   fluiddb show <database> <name>                 print a record
#include <cstdio>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <string_view>

#include "host/od_fluiddb.hpp"

namespace {

constexpr std::string_view msg_usage =
    "usage: fluiddb import <database> <name> <text file>\n"
    "       fluiddb list <database>\n"
    "       fluiddb show <database> <name>\n";
constexpr std::string_view msg_cannot_read_file = "fluiddb: cannot read ";
constexpr std::string_view msg_cannot_read_db = "fluiddb: cannot read the database ";
constexpr std::string_view msg_no_record = "fluiddb: no record named ";
constexpr std::string_view msg_import_failed = "fluiddb: import failed: ";
constexpr std::string_view msg_imported = "imported ";

int usage() {
    std::cerr << msg_usage;
    return 2;
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
    if (argc < 3) return usage();
    const std::string_view command = argv[1];
    if (command == "import" && argc == 5) return import_file(argv[2], argv[3], argv[4]);
    if (command == "list" && argc == 3) return list(argv[2]);
    if (command == "show" && argc == 4) return show(argv[2], argv[3]);
    return usage();
}
