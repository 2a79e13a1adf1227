// Host calling convention of the IF97 library: arguments by reference,
// hidden trailing text lengths. Converts and calls the core.
#include <limits>
#include <span>
#include <string>

#include "host/ftn_text.hpp"
#include "if97/if97.h"
#include "if97/if97.hpp"

namespace {
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
}

extern "C" {

void if97_main_(const char* code1, const double* value1, const char* code2, const double* value2,
                const char* properties, double* results, char* message, size_t code1_len,
                size_t code2_len, size_t properties_len, size_t message_len) {
    const std::string_view c1 = ftn::view(code1, code1_len);
    const std::string_view c2 = ftn::view(code2, code2_len);
    const std::string_view props = ftn::view(properties, properties_len);
    std::string msg;
    const std::size_t n = results != nullptr ? if97::property_count(props) : 0;
    if97::if97_main(c1.empty() ? ' ' : c1.front(), value1 != nullptr ? *value1 : nan,
                    c2.empty() ? ' ' : c2.front(), value2 != nullptr ? *value2 : nan, props,
                    std::span<double>(results, n), msg);
    ftn::store(message, message_len, msg);
}

void getversion_(int32_t* major, int32_t* minor, int32_t* patch, int32_t* build) {
    int32_t a = 0, b = 0, c = 0, d = 0;
    if97::getversion(a, b, c, d);
    if (major != nullptr) *major = a;
    if (minor != nullptr) *minor = b;
    if (patch != nullptr) *patch = c;
    if (build != nullptr) *build = d;
}

void if97_sub_(void) { if97::if97_sub(); }

}  // extern "C"
