// The names of the mixture model's sixteen properties and twenty input
// pairs, spelled once for the exported routines, the modern API and the docs.
#pragma once
#include <array>
#include <cstddef>
#include <string_view>

namespace od::ondrel {

// The first sixteen in the order of od_allprops: the properties of the
// exported routines. The modern API has the rest as well.
inline constexpr std::size_t legacy_property_count = 16;
inline constexpr std::array<std::string_view, 27> property_names = {
    "P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda",
    "cp", "cp_eq", "cv_eq", "w", "kappa", "x_gas", "x_condensed", "T_dew", "rh", "M", "R",
};

// The input pairs the solver knows, each in its one letter order.
inline constexpr std::array<std::string_view, 20> pair_names = {
    "PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td", "Th", "Ts", "Tu", "vh", "vs", "vu", "dh", "ds", "du", "hs", "su",
};

}  // namespace od::ondrel
