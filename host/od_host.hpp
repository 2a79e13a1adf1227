// Platform functions of the host framework as the library uses them:
// `fluidpath`, the directory of a library's data files, and `getfluid`, a
// stored text record of the host's fluid database. Built-in versions serve
// a stand-alone installation; a host puts its own in place with set_hooks
// (exported: ondrel_set_host_functions_) without rebuilding the library.
#pragma once
#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace od::host {

inline constexpr std::size_t text_width = 256;  // width of directory, path and name texts

// A record of the fluid database: its lines (at most 255 of at most 255
// characters) and the status: 0 when no record is available.
struct FluidRecord {
    std::vector<std::string> lines;
    int status = 0;
};

// Where the gas table is loaded from (installation setting ONDREL_GAS_SOURCE).
enum class GasSource { file, database };

// The data directory of `library`, ending with its path separator, at most
// 256 characters: the registered host function, else the built-in one.
std::string fluidpath(std::string_view library);
// The record `name` from the fluid database in `directory`: the registered
// host function, else the built-in one.
FluidRecord getfluid(std::string_view directory, std::string_view name);

// The gas data file in a data directory, also the name of its record in the
// fluid database.
inline constexpr std::string_view gas_data_file = "Ondrel.Dat";

// One directory the built-in fluidpath looks in, and why.
struct DataPlace {
    std::string directory;  // ends with '/'
    std::string origin;     // "host fluidpath", "ONDREL_FLUIDPATH", "beside the library",
                            // "configured directory"
};

// Where the built-in fluidpath looks, in this order: the directory named by
// ONDREL_FLUIDPATH alone when it is set and not empty; else the data
// directory beside the library, then the one configured at build time
// (each cut to 256 characters).
std::vector<DataPlace> builtin_data_places();
// Built-in fluidpath: the first of builtin_data_places() whose directory
// holds the file of the gas source (Ondrel.Dat, or fluids.db), else the first.
std::string builtin_fluidpath(std::string_view library);
// Built-in getfluid: the record from the SQLite file fluids.db in directory;
// no database, no record or a read error give no lines and status 0.
FluidRecord builtin_getfluid(std::string_view directory, std::string_view name);

// The gas source: database when ONDREL_GAS_SOURCE is "database", else the file.
GasSource gas_source();
// The file a data directory must hold for a source: Ondrel.Dat or fluids.db.
std::string_view source_file(GasSource source);
// Every directory the next load of `library`'s data looks in, in order: the
// one a registered host fluidpath returns, else builtin_data_places().
std::vector<DataPlace> data_places(std::string_view library);

// --- pieces of the built-in search, for the tests ---------------------------
// Path of the file that holds the library's code: the shared library, or
// the program it is linked into statically; empty when unknown.
std::string module_path();
// The data directory of an installation beside the file module: its
// directory joined with relative (the way from the library directory to the
// data directory, e.g. "../share/ondrel/"), made lexically normal, ending
// with '/'; empty when module is empty.
std::string data_dir_beside(std::string_view module, std::string_view relative);
// The directory of the first place that holds file, else of the first place;
// empty when there is no place.
std::string first_holding(std::span<const DataPlace> places, std::string_view file);

using FluidpathHook = std::function<std::string(std::string_view library)>;
using GetfluidHook = std::function<FluidRecord(std::string_view directory, std::string_view name)>;
// Puts host functions in place of the built-in ones; an empty hook restores
// the built-in function.
void set_hooks(FluidpathHook fluidpath_hook, GetfluidHook getfluid_hook);

// Test hook: removes registered host functions.
void reset_for_tests();

}  // namespace od::host
