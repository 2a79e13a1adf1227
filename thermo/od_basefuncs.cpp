// Pure-component functions: NASA 7-coefficient polynomials divided by the
// gas constant, ideal-gas and condensed molar volumes, missing-value tests.
#include "thermo/od_basefuncs.hpp"

#include <array>
#include <cmath>
#include <string_view>

#include "fluiddata/od_fluiddata.hpp"
#include "thermo/od_component.hpp"

namespace od::basefuncs {
namespace {

using component::Coefs;

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

double cp_0(const fluiddata::TableRow* row, double t) { return component::cp_of(component::coefs(row, t), t); }

double h_0(const fluiddata::TableRow* row, double t) { return component::h_of(component::coefs(row, t), t); }

double s_0(const fluiddata::TableRow* row, char phase, double p, double t) {
    const double s = component::s_of(component::coefs(row, t), t, std::log(t));
    // Condensed species carry no pressure term.
    if (phase != 'G') return s;
    return s - std::log(p / p_ref);
}

double cp_0(const CompName& name, double t) { return component::cp_of(coefs(name, t), t); }

double h_0(const CompName& name, double t) { return component::h_of(coefs(name, t), t); }

double s_0(const CompName& name, double p, double t) {
    return s_0(fluiddata::stored_table_row(name), fluiddata::getphase(name), p, t);
}

double dcv_dt_0(const CompName& name, double t) { return component::dcp_of(coefs(name, t), t); }

double v_0(double p, double t) { return r_gas * t / p; }

double v_sl(const CompName& name) { return v_sl(name, fluiddata::stored_table_row(name)); }

double v_sl(const CompName& name, const fluiddata::TableRow* row) {
    double rho = missing_value;
    if (!name.overlong) {
        const std::string_view n = name.trimmed();
        for (const Density& d : condensed_density)
            if (d.name == n) { rho = d.rho; break; }
    }
    // Intended: an unlisted species divides by the missing-value marker (small negative volume).
    return component::mmol(row) / rho;
}

// Intended: values within 0.1 of the marker, such as -8888.75, count as the marker.
bool isinit(double x) { return std::fabs(x - missing_value) < sentinel_tolerance; }

bool isnotinit(double x) { return !isinit(x); }

}  // namespace od::basefuncs
