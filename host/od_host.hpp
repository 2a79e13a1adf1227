// Platform functions of the host framework as the library uses them:
// `fluidpath`, the directory of a library's data files, and `getfluid`, a
// stored text record of the host's fluid database. Built-in versions serve
// a stand-alone installation; a host puts its own in place with set_hooks
// (exported: ondrel_set_host_functions_) without rebuilding the library.
#pragma once
#include <cstddef>
#include <functional>
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

// Built-in fluidpath: ONDREL_FLUIDPATH when set and not empty ('/' appended
// if missing), else the installed data directory.
std::string builtin_fluidpath(std::string_view library);
// Built-in getfluid: the record from the SQLite file fluids.db in directory;
// no database, no record or a read error give no lines and status 0.
FluidRecord builtin_getfluid(std::string_view directory, std::string_view name);

// The gas source: database when ONDREL_GAS_SOURCE is "database", else the file.
GasSource gas_source();

using FluidpathHook = std::function<std::string(std::string_view library)>;
using GetfluidHook = std::function<FluidRecord(std::string_view directory, std::string_view name)>;
// Puts host functions in place of the built-in ones; an empty hook restores
// the built-in function.
void set_hooks(FluidpathHook fluidpath_hook, GetfluidHook getfluid_hook);

// Test hook: removes registered host functions.
void reset_for_tests();

}  // namespace od::host
