// Calls of the exported routines as a host makes them: mixtures as
// blank-padded names of one width, every argument by reference.
#pragma once
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "ondrel/od_thermo.h"
#include "ondrel/ondrel.h"

namespace robustness {

constexpr double missing = -8888.8;

// A mixture in the host layout: names of `width` characters one after the other.
struct HostMix {
    std::vector<std::string> names;
    std::vector<double> conc;
    std::size_t width = 8;

    std::string packed() const {
        std::string s;
        for (const std::string& n : names) s += (n + std::string(width, ' ')).substr(0, width);
        return s.empty() ? std::string(width, ' ') : s;
    }
    int32_t n() const { return static_cast<int32_t>(names.size()); }
};

inline const HostMix flue{{"N2", "CO2", "O2", "AR", "H2O(IF)"}, {0.71, 0.13, 0.035, 0.005, 0.12}};
inline const HostMix dry_flue{{"N2", "CO2", "H2O", "O2", "AR"}, {0.71, 0.13, 0.12, 0.035, 0.005}};
inline const HostMix water{{"H2O(IF)"}, {1.0}};
inline const HostMix air{{"N2", "O2", "AR"}, {0.7809, 0.2095, 0.0096}};

inline double prop(const char* spec, double a, double b, const HostMix& m, const char* out, int32_t& err) {
    const int32_t n = m.n();
    const std::string names = m.packed();
    return od_prop_(spec, &a, &b, &n, names.data(), m.conc.data(), out, &err, std::strlen(spec), m.width,
                    std::strlen(out));
}

inline std::array<double, 16> allprops(const char* spec, double a, double b, const HostMix& m, int32_t& err) {
    std::array<double, 16> o{};
    const int32_t n = m.n();
    const std::string names = m.packed();
    od_allprops_(spec, &a, &b, &n, names.data(), m.conc.data(), &o[0], &o[1], &o[2], &o[3], &o[4], &o[5], &o[6],
                 &o[7], &o[8], &o[9], &o[10], &o[11], &o[12], &o[13], &o[14], &o[15], &err, std::strlen(spec),
                 m.width);
    return o;
}

// get_p_ (Pa) or get_t_ (K) with the error variable as the caller holds it.
inline double solve(bool pressure, const char* spec, double a, double b, const HostMix& m, int32_t& ierr) {
    const int32_t n = m.n();
    const std::string names = m.packed();
    return (pressure ? get_p_ : get_t_)(spec, &a, &b, &n, names.data(), m.conc.data(), &ierr, std::strlen(spec),
                                        m.width);
}

}  // namespace robustness
