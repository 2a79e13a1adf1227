#include "host/od_host.hpp"

#include <dlfcn.h>
#include <link.h>

#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "host/od_fluiddb.hpp"

namespace od::host {
namespace {

constexpr const char* env_fluidpath = "ONDREL_FLUIDPATH";
constexpr const char* env_gas_source = "ONDREL_GAS_SOURCE";
constexpr std::string_view database_source = "database";
// The data directory configured at build time, and the way to the data
// directory from the library's own directory in the installed layout.
constexpr std::string_view configured_data_dir = ONDREL_DATA_DIR;
constexpr std::string_view data_dir_from_library = ONDREL_DATA_FROM_LIBRARY;
constexpr char path_separator = '/';

constexpr std::string_view origin_host = "host fluidpath";
constexpr std::string_view origin_environment = "ONDREL_FLUIDPATH";
constexpr std::string_view origin_beside = "beside the library";
constexpr std::string_view origin_configured = "configured directory";
constexpr const char* program_link = "/proc/self/exe";

// An object of the library, whose address tells which file holds the code.
constexpr char module_anchor = 0;

struct HostState {
    FluidpathHook fluidpath;
    GetfluidHook getfluid;
};

HostState& state() {
    static HostState s;
    return s;
}

std::string cut(std::string s) {
    if (s.size() > text_width) s.resize(text_width);
    return s;
}

std::string with_separator(std::string dir) {
    if (!dir.empty() && dir.back() != path_separator) dir.push_back(path_separator);
    return dir;
}

}  // namespace

std::string module_path() {
    Dl_info info{};
    link_map* map = nullptr;
    if (dladdr1(&module_anchor, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) == 0) return {};
    if (map != nullptr && map->l_name != nullptr && map->l_name[0] != '\0') return map->l_name;
    // The main program's link map has no name: the library is linked into it.
    std::error_code ec;
    const std::filesystem::path program = std::filesystem::read_symlink(program_link, ec);
    return ec ? std::string() : program.string();
}

std::string data_dir_beside(std::string_view module, std::string_view relative) {
    if (module.empty()) return {};
    const std::filesystem::path dir = std::filesystem::path(module).parent_path();
    return with_separator((dir / relative).lexically_normal().string());
}

std::string first_holding(std::span<const DataPlace> places, std::string_view file) {
    for (const DataPlace& place : places) {
        std::error_code ec;
        if (std::filesystem::is_regular_file(place.directory + std::string(file), ec)) return place.directory;
    }
    return places.empty() ? std::string() : places.front().directory;
}

std::vector<DataPlace> builtin_data_places() {
    const char* env = std::getenv(env_fluidpath);
    if (env != nullptr && *env != '\0') return {{cut(with_separator(env)), std::string(origin_environment)}};
    std::vector<DataPlace> places;
    const std::string beside = data_dir_beside(module_path(), data_dir_from_library);
    if (!beside.empty()) places.push_back({cut(beside), std::string(origin_beside)});
    const std::string configured = cut(with_separator(std::string(configured_data_dir)));
    if (places.empty() || places.front().directory != configured)
        places.push_back({configured, std::string(origin_configured)});
    return places;
}

std::string builtin_fluidpath(std::string_view /*library: one directory serves every library*/) {
    return first_holding(builtin_data_places(), source_file(gas_source()));
}

FluidRecord builtin_getfluid(std::string_view directory, std::string_view name) {
    const std::string db_path = std::string(directory) + std::string(fluiddb::file_name);
    auto lines = fluiddb::read_record(db_path, name);
    if (!lines || lines->empty()) return {};
    return {std::move(*lines), 1};
}

std::string fluidpath(std::string_view library) {
    const auto& hook = state().fluidpath;
    return hook ? cut(hook(library)) : builtin_fluidpath(library);
}

FluidRecord getfluid(std::string_view directory, std::string_view name) {
    const auto& hook = state().getfluid;
    return hook ? hook(directory, name) : builtin_getfluid(directory, name);
}

GasSource gas_source() {
    const char* env = std::getenv(env_gas_source);
    return (env != nullptr && std::string_view(env) == database_source) ? GasSource::database : GasSource::file;
}

std::string_view source_file(GasSource source) {
    return source == GasSource::database ? fluiddb::file_name : gas_data_file;
}

std::vector<DataPlace> data_places(std::string_view library) {
    const auto& hook = state().fluidpath;
    if (hook) return {{cut(hook(library)), std::string(origin_host)}};
    return builtin_data_places();
}

void set_hooks(FluidpathHook fluidpath_hook, GetfluidHook getfluid_hook) {
    state().fluidpath = std::move(fluidpath_hook);
    state().getfluid = std::move(getfluid_hook);
}

void reset_for_tests() { state() = HostState{}; }

}  // namespace od::host
