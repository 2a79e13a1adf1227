// Where the gas data is looked for, as the modern API reports it.
#include "ondrel/gas_data.hpp"

#include <algorithm>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>

#include "fluiddata/od_fluiddata.hpp"
#include "host/od_host.hpp"
#include "ondrel/c/gas_data.h"

namespace ondrel {
namespace {

constexpr std::string_view looked_for = "; looked for ";
constexpr std::string_view place_separator = ", ";
constexpr std::string_view present_text = "present";
constexpr std::string_view missing_text = "missing";

}  // namespace

std::vector<GasDataPlace> gas_data_places() {
    const std::string_view file = od::host::source_file(od::host::gas_source());
    std::vector<GasDataPlace> places;
    for (const od::host::DataPlace& place : od::host::data_places(od::fluiddata::library_name)) {
        GasDataPlace p{place.directory + std::string(file), place.origin, false};
        std::error_code ec;
        p.present = std::filesystem::is_regular_file(p.file, ec);
        places.push_back(std::move(p));
    }
    return places;
}

std::string describe(Status status) {
    std::string text(message(status));
    if (status != Status::gas_data_not_found) return text;
    const std::vector<GasDataPlace> places = gas_data_places();
    for (std::size_t i = 0; i < places.size(); ++i) {
        text += i == 0 ? looked_for : place_separator;
        text += places[i].file + " (" + places[i].origin + ", ";
        text += places[i].present ? present_text : missing_text;
        text += ')';
    }
    return text;
}

}  // namespace ondrel

extern "C" size_t ondrel_describe(int status, char* buffer, size_t size) {
    const std::string text = ondrel::describe(static_cast<ondrel::Status>(status));
    if (buffer != nullptr && size > 0) {
        const std::size_t n = std::min(text.size(), size - 1);
        std::memcpy(buffer, text.data(), n);
        buffer[n] = '\0';
    }
    return text.size();
}
