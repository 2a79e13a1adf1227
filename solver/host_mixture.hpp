// A mixture given in the host calling convention (count, n blank-padded names
// of the hidden width, n concentrations) converted once into the core's view.
// Used by the exported layers only.
#pragma once
#include <array>
#include <cstddef>
#include <span>

#include "fluiddata/od_types.hpp"
#include "host/ftn_text.hpp"

namespace od {

struct HostMixture {
    std::array<CompName, max_components> names{};
    std::span<const double> conc;
    int n = -1;  // -1: the count is outside 0..250 or a buffer is missing

    bool valid() const { return n >= 0; }
    Mixture mixture() const {
        const std::size_t k = valid() ? static_cast<std::size_t>(n) : 0;
        return {std::span<const CompName>(names.data(), k), conc.first(k)};
    }
};

// names holds ncomp texts of name_len characters each, one after the other.
inline HostMixture host_mixture(const int* ncomp, const char* names, std::size_t name_len,
                                const double* conc) {
    HostMixture m;
    if (ncomp == nullptr || *ncomp < 0 || *ncomp > max_components) return m;
    const int n = *ncomp;
    if (n > 0 && (names == nullptr || conc == nullptr)) return m;
    for (int i = 0; i < n; ++i)
        m.names[static_cast<std::size_t>(i)] =
            CompName::from(ftn::view(names + static_cast<std::size_t>(i) * name_len, name_len));
    m.conc = n > 0 ? std::span<const double>(conc, static_cast<std::size_t>(n)) : std::span<const double>();
    m.n = n;
    return m;
}

}  // namespace od
