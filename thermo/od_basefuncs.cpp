// Pure-component functions: NASA 7-coefficient polynomials divided by the
// gas constant, ideal-gas and condensed molar volumes, missing-value tests.
#include "thermo/od_basefuncs.hpp"

#include <array>
#include <cmath>
#include <string_view>

#include "fluiddata/od_fluiddata.hpp"

namespace od::basefuncs {
namespace {

using Coefs = std::array<double, 7>;

inline constexpr double sentinel_tolerance = 0.1;

Coefs coefs(const CompName& name, double t) {
    Coefs a;
    fluiddata::getcoef(name, t, a);
    return a;
}

// Densities of the condensed species with a known molar volume, kg/m3,
// searched in this order.
struct Density {
    std::string_view name;
    double rho;
};
inline constexpr std::array<Density, 8> condensed_density{{
    {"AL2O3(L)", 3700.0},
    {"AL2O3(S)", 3700.0},
    {"C(S)", 2250.0},
    {"FE2O3(S)", 5200.0},
    {"S(L)", 2000.0},
    {"S(S)", 2000.0},
    {"SIO2(L)", 2400.0},
    {"SIO2(S)", 2400.0},
}};

}  // namespace

double cp_0(const CompName& name, double t) {
    const Coefs a = coefs(name, t);
    return a[0] + t * (a[1] + t * (a[2] + t * (a[3] + t * a[4])));
}

double h_0(const CompName& name, double t) {
    const Coefs a = coefs(name, t);
    // H/(RT) times T: a6 is added unscaled.
    return t * (a[0] + t * (a[1] / 2.0 + t * (a[2] / 3.0 + t * (a[3] / 4.0 + t * (a[4] / 5.0))))) + a[5];
}

double s_0(const CompName& name, double p, double t) {
    const Coefs a = coefs(name, t);
    const double s = a[0] * std::log(t) + t * (a[1] + t * (a[2] / 2.0 + t * (a[3] / 3.0 + t * (a[4] / 4.0)))) + a[6];
    // Condensed species carry no pressure term.
    if (fluiddata::getphase(name) != 'G') return s;
    return s - std::log(p / p_ref);
}

double dcv_dt_0(const CompName& name, double t) {
    const Coefs a = coefs(name, t);
    return a[1] + t * (2.0 * a[2] + t * (3.0 * a[3] + t * (4.0 * a[4])));
}

double v_0(double p, double t) { return r_gas * t / p; }

double v_sl(const CompName& name) {
    double rho = missing_value;
    if (!name.overlong) {
        const std::string_view n = name.trimmed();
        for (const Density& d : condensed_density)
            if (d.name == n) { rho = d.rho; break; }
    }
    // Intended: an unlisted species divides by the missing-value marker (small negative volume).
    return fluiddata::getmmol(name) / rho;
}

bool isinit(double x) { return std::fabs(x - missing_value) < sentinel_tolerance; }

bool isnotinit(double x) { return !isinit(x); }

}  // namespace od::basefuncs
