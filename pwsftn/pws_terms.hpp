// Internal to the water-and-steam package: shared pieces of the region modules.
#pragma once
#include <bit>
#include <cmath>
#include <cstdint>

namespace pws::detail {

// Relative widening of the region bounds in the common-term checks.
inline constexpr double bound_low_factor = 0.99999;
inline constexpr double bound_high_factor = 1.00001;
// Value of the kept state before the first call (no real state has it).
inline constexpr double no_state = -999.0;

// The kept pair matches the new one: both bitwise equal, neither NaN.
inline bool same_state(double a, double b, double a_prev, double b_prev) {
    if (std::isnan(a) || std::isnan(b)) return false;
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(a_prev) &&
           std::bit_cast<std::uint64_t>(b) == std::bit_cast<std::uint64_t>(b_prev);
}

// The value lies outside [low, high] widened by the relative bound factors.
inline bool out_of_bounds(double x, double low, double high) {
    return x < low * bound_low_factor || x > high * bound_high_factor;
}

// Forget the kept states of comt1, comt2, comt3 (test hook helpers).
void reset_region1();
void reset_region2();
void reset_region3();

}  // namespace pws::detail
