// Ondrel ideal-gas mixture model for C++ callers: a thin layer over the
// exported routines of ondrel.h with names as std::string_view, lists as
// std::span and results as a value with its error code.
//
//   const std::string_view names[] = {"N2", "O2", "AR"};
//   const double conc[] = {0.7809, 0.2095, 0.0096};
//   ondrel::legacy::Result h = ondrel::legacy::prop("PT", 1.01325, 25.0, names, conc, "h");
//   if (h) use(h.value);   // kJ/kg
//
// Units and error codes are those of ondrel.h (bar, degrees Celsius, m3/kg,
// kg/m3, kJ/kg, kJ/(kg K)). Like the routines below it, this layer keeps the
// library's last mixture and state: one calling thread at a time.
#pragma once
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ondrel/ondrel.h"

// In namespace ondrel::legacy, beside the modern API (ondrel/mixture.hpp),
// whose Result<T> and Status are the types of namespace ondrel.
namespace ondrel::legacy {

// Error codes of the mixture model.
enum Error : int {
    ok = 0,
    unknown_component = 1,       // also: a list longer than 250 or lists of unequal length
    unknown_input_spec = 2,
    unknown_property = 3,
    not_converged = 4,
    not_bracketed = 5,
    unknown_info = 6,
    pressure_undetermined = 7,
};

inline constexpr double missing_value = -8888.8;
inline constexpr std::size_t max_components = 250;

// A value with the error code of its request; true when the code is 0.
struct Result {
    double value = missing_value;
    int error = unknown_component;
    explicit operator bool() const { return error == ok; }
};

// The sixteen properties of one state (units as ondrel.h) and the error code.
struct Properties {
    double P, T, v, d, h, s, u, cv;
    double dP_dT, dP_dv, d2P_dT2, d2P_dv2, d2P_dTdv, dCv_dT, eta, lambda;
    int error;
    explicit operator bool() const { return error == ok; }
};

namespace detail {

// Names laid out as the routines expect them: one blank-padded text of a
// common width per component. A name longer than 8 characters keeps its
// length and so matches no gas table entry.
struct PackedNames {
    std::string text;
    std::size_t width = 8;
    std::int32_t count = 0;
    bool valid = false;
};

inline PackedNames pack(std::span<const std::string_view> names, std::size_t n_conc) {
    PackedNames p;
    if (names.size() != n_conc || names.size() > max_components) return p;
    for (std::string_view name : names) p.width = std::max(p.width, name.size());
    p.text.assign(names.size() * p.width, ' ');
    for (std::size_t i = 0; i < names.size(); ++i)
        std::copy(names[i].begin(), names[i].end(), p.text.begin() + static_cast<std::ptrdiff_t>(i * p.width));
    p.count = static_cast<std::int32_t>(names.size());
    p.valid = true;
    return p;
}

}  // namespace detail

// One property ("P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv",
// "d2P_dT2", "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda") at the state
// given by the input specification ("PT", "Ph", "Ts", ...) and two values.
inline Result prop(std::string_view inputspec, double input1, double input2,
                   std::span<const std::string_view> names, std::span<const double> conc,
                   std::string_view property) {
    const detail::PackedNames packed = detail::pack(names, conc.size());
    if (!packed.valid) return {};
    std::int32_t err = 0;
    const double value = od_prop_(inputspec.data(), &input1, &input2, &packed.count,
                                  packed.text.data(), conc.data(), property.data(), &err,
                                  inputspec.size(), packed.width, property.size());
    return {value, err};
}

// All sixteen properties at once.
inline Properties allprops(std::string_view inputspec, double input1, double input2,
                           std::span<const std::string_view> names, std::span<const double> conc) {
    Properties r{};
    const detail::PackedNames packed = detail::pack(names, conc.size());
    if (!packed.valid) {
        r = {missing_value, missing_value, missing_value, missing_value, missing_value,
             missing_value, missing_value, missing_value, missing_value, missing_value,
             missing_value, missing_value, missing_value, missing_value, missing_value,
             missing_value, unknown_component};
        return r;
    }
    std::int32_t err = 0;
    od_allprops_(inputspec.data(), &input1, &input2, &packed.count, packed.text.data(),
                 conc.data(), &r.P, &r.T, &r.v, &r.d, &r.h, &r.s, &r.u, &r.cv, &r.dP_dT,
                 &r.dP_dv, &r.d2P_dT2, &r.d2P_dv2, &r.d2P_dTdv, &r.dCv_dT, &r.eta, &r.lambda,
                 &err, inputspec.size(), packed.width);
    r.error = err;
    return r;
}

// "M_mol" (kg/mol), "T_min" or "T_max" (degrees Celsius) of a mixture.
inline Result info(std::span<const std::string_view> names, std::span<const double> conc,
                   std::string_view infoname) {
    const detail::PackedNames packed = detail::pack(names, conc.size());
    if (!packed.valid) return {};
    std::int32_t err = 0;
    const double value = od_info_(&packed.count, packed.text.data(), conc.data(),
                                  infoname.data(), &err, packed.width, infoname.size());
    return {value, err};
}

// The names of the gas table's components, in table order.
inline std::vector<std::string> compset() {
    constexpr std::size_t width = 8;
    std::string slots(max_components * width, ' ');
    std::int32_t n = 0;
    od_compset_(&n, slots.data(), width);
    std::vector<std::string> names;
    for (std::size_t i = 0; i < static_cast<std::size_t>(std::max<std::int32_t>(n, 0)) && i < max_components; ++i) {
        std::string name = slots.substr(i * width, width);
        name.erase(name.find_last_not_of(' ') + 1);
        names.push_back(std::move(name));
    }
    return names;
}

// Version: major, minor, patch, build.
inline std::array<int, 4> version() {
    std::int32_t v[4] = {0, 0, 0, 0};
    od_getversion_(v);
    return {v[0], v[1], v[2], v[3]};
}

}  // namespace ondrel::legacy
