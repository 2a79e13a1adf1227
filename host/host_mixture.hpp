// A mixture given in the host calling convention (count, n blank-padded names
// of the hidden width, n concentrations) converted once into the core's view.
// Used by the exported layers only.
#pragma once
#include <array>
#include <cstddef>
#include <new>
#include <span>

#include "fluiddata/od_types.hpp"
#include "host/ftn_text.hpp"

namespace od {

struct HostMixture {
    // Room for 250 names of which only the first n are written: the slots
    // are left unconstructed, sparing a clearing of 250 names on every call.
    union Slots {
        Slots() {}
        CompName items[max_components];
    } slots;
    std::span<const double> conc;
    int n = -1;  // -1: the count is outside 0..250 or a buffer is missing

    bool valid() const { return n >= 0; }
    Mixture mixture() const {
        const std::size_t k = valid() ? static_cast<std::size_t>(n) : 0;
        return {std::span<const CompName>(slots.items, k), conc.first(k)};
    }
};

// What a count below 0 means to the caller's routine: a refused mixture (the
// property requests), or the empty mixture (the state functions, which treat
// every count below 1 alike).
enum class NegativeCount { refused, empty };

// names holds ncomp texts of name_len characters each, one after the other.
inline HostMixture host_mixture(const int* ncomp, const char* names, std::size_t name_len,
                                const double* conc,
                                NegativeCount negative = NegativeCount::refused) {
    HostMixture m;
    if (ncomp == nullptr || *ncomp > max_components) return m;
    if (*ncomp < 0 && negative == NegativeCount::refused) return m;
    const int n = *ncomp < 0 ? 0 : *ncomp;
    if (n > 0 && (names == nullptr || conc == nullptr)) return m;
    for (int i = 0; i < n; ++i)
        new (&m.slots.items[i])
            CompName(CompName::from(ftn::view(names + static_cast<std::size_t>(i) * name_len, name_len)));
    m.conc = n > 0 ? std::span<const double>(conc, static_cast<std::size_t>(n)) : std::span<const double>();
    m.n = n;
    return m;
}

}  // namespace od
