#include "host/od_host.hpp"

#include <cstdlib>

#include "host/od_fluiddb.hpp"

namespace od::host {
namespace {

constexpr const char* env_fluidpath = "ONDREL_FLUIDPATH";
constexpr const char* env_gas_source = "ONDREL_GAS_SOURCE";
constexpr std::string_view database_source = "database";
constexpr std::string_view installed_data_dir = ONDREL_DATA_DIR;
constexpr char path_separator = '/';

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

}  // namespace

std::string builtin_fluidpath(std::string_view /*library: one directory serves every library*/) {
    const char* env = std::getenv(env_fluidpath);
    std::string dir = (env != nullptr && *env != '\0') ? std::string(env) : std::string(installed_data_dir);
    if (!dir.empty() && dir.back() != path_separator) dir.push_back(path_separator);
    return cut(std::move(dir));
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

void set_hooks(FluidpathHook fluidpath_hook, GetfluidHook getfluid_hook) {
    state().fluidpath = std::move(fluidpath_hook);
    state().getfluid = std::move(getfluid_hook);
}

void reset_for_tests() { state() = HostState{}; }

}  // namespace od::host
