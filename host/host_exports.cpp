// Platform functions in the host calling convention (see
// include/ondrel/od_fluiddata.h) and the registration of a host's own.
#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "host/ftn_text.hpp"
#include "host/od_host.hpp"
#include "ondrel/od_fluiddata.h"

namespace {

constexpr std::size_t record_lines = 255;
constexpr std::size_t record_width = 255;

// A text in a blank-padded buffer of the 256 characters a host routine may declare.
std::array<char, od::host::text_width> padded(std::string_view text) {
    std::array<char, od::host::text_width> buffer;
    buffer.fill(' ');
    if (!text.empty()) ftn::store(buffer.data(), buffer.size(), text);  // an empty view may have no data
    return buffer;
}

// Calls a host fluidpath with a 256-character buffer; the trimmed result.
std::string call_fluidpath(ondrel_fluidpath_fn fn, std::string_view library) {
    std::array<char, od::host::text_width> buffer = padded({});
    fn(buffer.data(), library.data(), buffer.size(), library.size());
    return std::string(ftn::trimmed(buffer.data(), buffer.size()));
}

// Calls a host getfluid with the directory and name as 256-character texts
// and a buffer of 255 lines of 255 characters.
od::host::FluidRecord call_getfluid(ondrel_getfluid_fn fn, std::string_view directory, std::string_view name) {
    const auto dir_text = padded(directory), name_text = padded(name);
    std::vector<char> buffer(record_lines * record_width, ' ');
    std::int32_t status = 0;
    const std::int32_t count = fn(dir_text.data(), name_text.data(), buffer.data(), &status, dir_text.size(),
                                  name_text.size(), record_width);
    const std::size_t n = static_cast<std::size_t>(std::clamp<std::int32_t>(count, 0, record_lines));
    od::host::FluidRecord record;
    record.status = status;
    for (std::size_t i = 0; i < n; ++i)
        record.lines.emplace_back(ftn::view(buffer.data() + i * record_width, record_width));
    return record;
}

}  // namespace

extern "C" {

void fluidpath_(char* buffer, const char* library, size_t buffer_len, size_t library_len) {
    ftn::store(buffer, buffer_len, od::host::builtin_fluidpath(ftn::trimmed(library, library_len)));
}

int32_t getfluid_(const char* directory, const char* name, char* lines, int32_t* status, size_t directory_len,
                  size_t name_len, size_t line_len) {
    const od::host::FluidRecord record =
        od::host::builtin_getfluid(ftn::trimmed(directory, directory_len), ftn::trimmed(name, name_len));
    const std::size_t n = lines == nullptr ? 0 : std::min(record.lines.size(), record_lines);
    for (std::size_t i = 0; i < n; ++i) ftn::store(lines + i * line_len, line_len, record.lines[i]);
    if (status != nullptr) *status = n > 0 ? record.status : 0;
    return static_cast<int32_t>(n);
}

void ondrel_set_host_functions_(ondrel_fluidpath_fn fluidpath, ondrel_getfluid_fn getfluid) {
    od::host::FluidpathHook path_hook;
    od::host::GetfluidHook fluid_hook;
    if (fluidpath != nullptr)
        path_hook = [fluidpath](std::string_view library) { return call_fluidpath(fluidpath, library); };
    if (getfluid != nullptr)
        fluid_hook = [getfluid](std::string_view directory, std::string_view name) {
            return call_getfluid(getfluid, directory, name);
        };
    od::host::set_hooks(std::move(path_hook), std::move(fluid_hook));
}

}  // extern "C"
