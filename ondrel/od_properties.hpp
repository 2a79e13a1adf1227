// The names of the mixture model's sixteen properties and twenty input
// pairs, spelled once for the exported routines, the modern API and the docs.
#pragma once
#include <array>
#include <string_view>

namespace od::ondrel {

// In the order of od_allprops.
inline constexpr std::array<std::string_view, 16> property_names = {
    "P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda",
};

// The input pairs the solver knows, each in its one letter order.
inline constexpr std::array<std::string_view, 20> pair_names = {
    "PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts", "Tu", "vh", "vs", "vu", "dh", "ds", "du", "hs", "su",
};

}  // namespace od::ondrel
