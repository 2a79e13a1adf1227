// IAPWS-IF97 water and steam offered in the host's convention: two-letter
// input specification, host property names, message text.
#pragma once
#include <span>
#include <string>
#include <string_view>

namespace od::if97_qv {

// One property at the state given by spec and the two values (bar, degrees
// Celsius, kJ/kg, ...). message receives "No errors" or the library's message.
double if97_prop(std::string_view spec, double value1, double value2,
                 std::string_view property, std::string& message);

}  // namespace od::if97_qv
