// A flue gas with condensing water cooled at atmospheric pressure from
// 1200 C to 20 C, through the modern API: a table of its properties with
// the heat capacities, the condensate and the dew point, and a check that
// "Ph" and "Ps" give back each temperature.
#include <cmath>
#include <cstdio>
#include <iterator>
#include <string>

#include "ondrel/mixture.hpp"

namespace {

using ondrel::Property;

constexpr double p = 101325.0;             // Pa
constexpr double celsius_offset = 273.15;  // K
constexpr double t_match = 1e-6;           // K: a temperature "given back"

// One property at (p, T); prints the fault and returns NaN when there is none.
double value(ondrel::Context& ctx, const ondrel::Mixture& gas, double t, Property q) {
    const auto r = ondrel::property(ctx, gas, {p, t}, q);
    if (!r) std::printf("  %s at %.2f K: error %s\n", std::string(ondrel::name(q)).c_str(), t,
                        std::string(ondrel::message(r.status)).c_str());
    return r ? r.value : std::nan("");
}

// A pair from p and the given value back to T; false (and a line) when it does not come back.
bool comes_back(ondrel::Context& ctx, const ondrel::Mixture& gas, ondrel::Pair pair, double t, double given) {
    std::string why;
    const auto st = ondrel::solve(ctx, gas, pair, p, given, &why);
    if (st && std::fabs(st.value.T - t) <= t_match) return true;
    std::printf("  %s at %.2f C: %s\n", std::string(ondrel::name(pair)).c_str(), t - celsius_offset,
                st ? ("T = " + std::to_string(st.value.T - celsius_offset) + " C").c_str() : why.c_str());
    return false;
}

}  // namespace

int main() {
    std::string why;
    const auto made = ondrel::Mixture::make(
        {{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}}, &why);
    if (!made) {
        std::printf("mixture: %s %s\n", std::string(ondrel::message(made.status)).c_str(), why.c_str());
        return 1;
    }
    const ondrel::Mixture& gas = made.value;
    ondrel::Context ctx;

    std::printf("Flue gas N2 0.71, CO2 0.13, H2O(IF) 0.12, O2 0.035, AR 0.005 at %.0f Pa\n\n", p);
    std::printf("%8s %11s %10s %10s %10s %10s %9s %12s %12s\n", "T", "h", "s", "cp", "cp_eq", "density",
                "condensed", "viscosity", "conductivity");
    std::printf("%8s %11s %10s %10s %10s %10s %9s %12s %12s\n", "C", "kJ/kg", "kJ/(kg K)", "kJ/(kg K)",
                "kJ/(kg K)", "kg/m3", "mol/mol", "uPa s", "mW/(m K)");

    const double temps_c[] = {1200, 1000, 800, 600, 400, 300, 200, 150, 100, 80,
                              60,   55,   50,  45,  40,  35,  30,  25,  20};
    int failures = 0;
    for (double t_c : temps_c) {
        const double t = t_c + celsius_offset;
        const Property want[] = {Property::h, Property::s, Property::cp, Property::cp_eq, Property::d,
                                 Property::x_condensed, Property::eta, Property::lambda};
        double v[std::size(want)];
        for (std::size_t k = 0; k < std::size(want); ++k) v[k] = value(ctx, gas, t, want[k]);
        for (double x : v) failures += std::isnan(x) ? 1 : 0;
        std::printf("%8.2f %11.4f %10.6f %10.6f %10.6f %10.6f %9.6f %12.4f %12.4f\n", t_c, v[0] * 1e-3, v[1] * 1e-3,
                    v[2] * 1e-3, v[3] * 1e-3, v[4], v[5], v[6] * 1e6, v[7] * 1e3);
    }

    const double dew = value(ctx, gas, 300.0, Property::T_dew);
    std::printf("\ndew point: %.4f C (water condenses below it)\n", dew - celsius_offset);

    std::printf("\nCheck: \"Ph\" and \"Ps\" give back each temperature (within %g K)\n", t_match);
    int mismatches = 0;
    for (double t_c : temps_c) {
        const double t = t_c + celsius_offset;
        mismatches += comes_back(ctx, gas, ondrel::Pair::Ph, t, value(ctx, gas, t, Property::h)) ? 0 : 1;
        mismatches += comes_back(ctx, gas, ondrel::Pair::Ps, t, value(ctx, gas, t, Property::s)) ? 0 : 1;
    }
    if (mismatches == 0) std::printf("  all %zu temperatures given back by both\n", std::size(temps_c));
    std::printf("\nchecks: %d table errors, %d not given back\n", failures, mismatches);
    return failures == 0 && mismatches == 0 ? 0 : 1;
}
