// Constants of IAPWS-IF97 and the unit conversions between the host units
// (bar, degrees Celsius) and the formulation units (MPa, K, kJ/kg).
#pragma once

namespace if97 {

// Specific gas constant of IF97, kJ/(kg K).
inline constexpr double gas_constant = 0.461526;
// Critical point: K, MPa, kg/m3.
inline constexpr double critical_temperature = 647.096;
inline constexpr double critical_pressure = 22.064;
inline constexpr double critical_density = 322.0;
// Triple-point temperature, K.
inline constexpr double triple_temperature = 273.16;

// Range of validity: 273.15 K <= T <= 1073.15 K at p <= 100 MPa, and
// 1073.15 K < T <= 2273.15 K at p <= 50 MPa.
inline constexpr double t_min = 273.15;
inline constexpr double t_max_region2 = 1073.15;
inline constexpr double t_max_region5 = 2273.15;
inline constexpr double p_max = 100.0;
inline constexpr double p_max_region5 = 50.0;
// Round-off allowed on the temperature limits, K: host temperatures pass
// through degrees Celsius and back.
inline constexpr double t_slack = 1e-9;
// Temperature separating regions 1 and 3 (and the low end of B23), K.
inline constexpr double t_region13 = 623.15;
// Lowest pressure accepted anywhere, MPa; region 2 is valid down to 0.
inline constexpr double p_min = 1e-6;

// Unit conversions at the host boundary.
inline constexpr double celsius_offset = 273.15;  // K = degrees Celsius + offset
inline constexpr double bar_per_mpa = 10.0;        // bar = MPa * bar_per_mpa
// p*v with p in MPa and v in m3/kg gives kJ/kg after this factor.
inline constexpr double kj_per_mpa_m3 = 1000.0;

}  // namespace if97
