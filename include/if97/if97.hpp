// IAPWS-IF97 properties of water and steam for C++ callers: the functions
// behind the C entries of if97/if97.h, with texts as views and results as a
// span. Host units throughout: pressure in bar, temperature in degrees
// Celsius, kJ/kg, kJ/(kg K), m3/kg, kg/m3. Exported from libif97 (the IF97
// adapter of libondrel calls the library through them).
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "ondrel/export.h"

namespace if97 {

// Properties from an input pair. code1/code2: 'P', 'T', 'h', 's', 'u', 'v',
// 'x' or 'X'; properties: names separated by commas, case-insensitive, the
// list ending at the first full stop. results[k] receives the k-th name's
// value; a value that cannot be computed is left as the caller preset it.
// message receives "No errors" or one sentence naming the fault.
ONDREL_API void if97_main(char code1, double value1, char code2, double value2,
                          std::string_view properties, std::span<double> results,
                          std::string& message);

// Number of names in a property list (names separated by commas, the list
// ending at the first full stop): the room results needs.
ONDREL_API std::size_t property_count(std::string_view properties);

// Library version as four numbers: major, minor, patch, build.
ONDREL_API void getversion(std::int32_t& major, std::int32_t& minor, std::int32_t& patch,
                           std::int32_t& build);

// Set-up call of the host: prints a one-line banner to standard output.
ONDREL_API void if97_sub();

}  // namespace if97
