// The message texts of the modern API's status codes, each spelled once.
#include "ondrel/status.hpp"

#include "ondrel/c/status.h"

#include <array>

namespace ondrel {
namespace {

constexpr std::array<std::string_view, 17> messages = {
    "no error",
    "gas data not found",
    "unknown component",
    "too many components (at most 250)",
    "invalid composition: fractions must be finite, not negative, and sum to one",
    "unknown input pair",
    "unknown property",
    "input is NaN or infinite",
    "pressure, volume or density at or below zero",
    "outside the data range",
    "no state in the data range reproduces the inputs",
    "no convergence",
    "pressure undetermined: enthalpy and internal energy of an ideal gas do not depend on it",
    "property not available at this state",
    "invalid argument",
    "the inputs do not fix one state",
    "out of memory",
};

}  // namespace

std::string_view message(Status status) {
    const auto i = static_cast<std::size_t>(status);
    return i < messages.size() ? messages[i] : std::string_view("unknown status");
}

}  // namespace ondrel

// Every text above is a literal, so its view ends in a NUL.
extern "C" const char* ondrel_message(int status) {
    if (status < 0) return "unknown status";
    return ondrel::message(static_cast<ondrel::Status>(status)).data();
}
