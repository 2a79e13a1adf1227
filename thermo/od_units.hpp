// Unit conversions between the interface units (bar, degrees Celsius, kJ)
// and the units of the mixture model (Pa, K, J). Each factor is spelled once.
#pragma once

namespace od::units {

inline constexpr double bar_to_pa = 100000.0;   // bar -> Pa
inline constexpr double pa_to_bar = 1e-5;       // Pa -> bar
inline constexpr double celsius_offset = 273.15;  // degrees Celsius + offset = K
inline constexpr double kj_to_j = 1000.0;       // kJ -> J
inline constexpr double j_to_kj = 0.001;        // J -> kJ

}  // namespace od::units
