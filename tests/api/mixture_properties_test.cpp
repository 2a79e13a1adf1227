// The condensing flue gas through the modern API: every pair over its
// condensing range gives a state that reproduces its inputs or an error, and
// the properties beyond the sixteen (heat capacities with condensation, dew
// point, humidity, condensate, speed of sound) hold what they promise.
#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "ondrel/if97.hpp"
#include "ondrel/mixture.hpp"

namespace {

using ondrel::Pair;
using ondrel::Property;
using ondrel::Status;

const ondrel::Mixture& flue() {
    static const ondrel::Mixture m =
        ondrel::Mixture::make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}}).value;
    return m;
}

const ondrel::Mixture& air() {
    static const ondrel::Mixture m = ondrel::Mixture::make({{"N2", 0.7809}, {"O2", 0.2095}, {"AR", 0.0096}}).value;
    return m;
}

double prop(ondrel::Context& ctx, const ondrel::Mixture& m, double p, double t, Property q) {
    const auto r = ondrel::property(ctx, m, {p, t}, q);
    EXPECT_TRUE(r) << ondrel::name(q) << " at " << p << " Pa " << t << " K: " << ondrel::message(r.status);
    return r.value;
}

// The value of a pair letter at a state, through the single-property calls.
double letter_value(ondrel::Context& ctx, const ondrel::Mixture& m, char l, double p, double t) {
    switch (l) {
    case 'P': return p;
    case 'T': return t;
    case 'v': return prop(ctx, m, p, t, Property::v);
    case 'd': return prop(ctx, m, p, t, Property::d);
    case 'h': return prop(ctx, m, p, t, Property::h);
    case 's': return prop(ctx, m, p, t, Property::s);
    default: return prop(ctx, m, p, t, Property::u);
    }
}

// Every pair from 10 C to 60 C at three pressures, across the dew point:
// an answer is a state in the data range that reproduces both inputs, or an
// error; never a state that reproduces neither.
TEST(CondensingFlueGas, EveryPairReproducesItsInputsOrFails) {
    ondrel::Context ctx;
    const ondrel::Mixture& m = flue();
    int solved = 0;
    for (double p : {0.5e5, 1.01325e5, 5e5}) {
        for (double t_c = 10.0; t_c <= 60.0; t_c += 5.0) {
            const double t = t_c + 273.15;
            for (int k = 0; k < ondrel::pair_count; ++k) {
                const auto pair = static_cast<Pair>(k);
                const std::string spec(ondrel::name(pair));
                const double a = letter_value(ctx, m, spec[0], p, t), b = letter_value(ctx, m, spec[1], p, t);
                const auto st = ondrel::solve(ctx, m, pair, a, b);
                const std::string where = spec + " at " + std::to_string(p) + " Pa, " + std::to_string(t_c) + " C";
                if (!st) {
                    ADD_FAILURE() << where << ": " << ondrel::message(st.status);
                    continue;
                }
                ++solved;
                EXPECT_GE(st.value.T, m.t_min()) << where;
                EXPECT_LE(st.value.T, m.t_max()) << where;
                for (int side = 0; side < 2; ++side) {
                    const char l = spec[static_cast<std::size_t>(side)];
                    const double want = side == 0 ? a : b;
                    const double got = letter_value(ctx, m, l, st.value.p, st.value.T);
                    const double scale = std::fabs(want) + (l == 'h' || l == 'u' ? 1e3 * t : l == 's' ? 1e3 : 0.0);
                    EXPECT_LE(std::fabs(got - want), 1e-9 * scale) << where << " letter " << l;
                }
            }
        }
    }
    EXPECT_EQ(solved, 3 * 11 * ondrel::pair_count);
}

// Below 273.16 K the condensate is carried as ice-like and the enthalpy
// jumps: the enthalpy of 40 C is reached again near -32 C, and the answer is
// the state at 40 C, flagged as not the only one.
TEST(CondensingFlueGas, ASecondRootBelowTheTriplePointIsFlagged) {
    ondrel::Context ctx;
    const double h = prop(ctx, flue(), 1.01325e5, 313.15, Property::h);
    const auto st = ondrel::solve(ctx, flue(), Pair::Ph, 1.01325e5, h);
    ASSERT_TRUE(st) << ondrel::message(st.status);
    EXPECT_NEAR(st.value.T, 313.15, 1e-9);
    EXPECT_TRUE(st.value.not_unique);
}

TEST(CondensingFlueGas, DewPointIsWhereTheSaturationPressureMeetsTheWatersPartialPressure) {
    ondrel::Context ctx;
    for (double p : {0.5e5, 1.01325e5, 5e5}) {
        const double t_dew = prop(ctx, flue(), p, 300.0, Property::T_dew);
        // Independently: the IF97 saturation line at the partial pressure of 12 % water.
        const auto sat = ondrel::if97::from_px(0.12 * p, 0.0);
        ASSERT_TRUE(sat);
        EXPECT_NEAR(t_dew, sat.value.T, 1e-6) << p;
        // Just above it nothing is condensed and the gas is saturated; below, water condenses.
        EXPECT_EQ(prop(ctx, flue(), p, t_dew + 0.01, Property::x_condensed), 0.0);
        EXPECT_NEAR(prop(ctx, flue(), p, t_dew + 1e-7, Property::rh), 1.0, 1e-6);
        EXPECT_LT(prop(ctx, flue(), p, t_dew + 5.0, Property::rh), 1.0);
        EXPECT_GT(prop(ctx, flue(), p, t_dew - 5.0, Property::x_condensed), 0.0);
        EXPECT_NEAR(prop(ctx, flue(), p, t_dew - 5.0, Property::rh), 1.0, 1e-9);
        const double x_gas = prop(ctx, flue(), p, t_dew - 5.0, Property::x_gas);
        const double x_cond = prop(ctx, flue(), p, t_dew - 5.0, Property::x_condensed);
        EXPECT_NEAR(x_gas + x_cond, 1.0, 1e-12);
    }
}

// Equilibrium heat capacities against differences of the model's own h and
// u over 0.1 K, on both sides of the dew point: above it they are the
// frozen ones, below it the latent heat makes them several times larger.
TEST(CondensingFlueGas, EquilibriumHeatCapacitiesFollowTheModelsOwnSurfaces) {
    ondrel::Context ctx;
    const double p = 1.01325e5;
    const double t_dew = prop(ctx, flue(), p, 300.0, Property::T_dew);
    for (double dt : {-15.0, -3.0, -0.5, 0.5, 3.0, 15.0}) {
        const double t = t_dew + dt;
        const double step = 0.05;
        const double h_slope = (prop(ctx, flue(), p, t + step, Property::h) - prop(ctx, flue(), p, t - step, Property::h)) / (2 * step);
        const double cp_eq = prop(ctx, flue(), p, t, Property::cp_eq);
        EXPECT_NEAR(cp_eq, h_slope, 1e-3 * h_slope) << dt;
        const double cp = prop(ctx, flue(), p, t, Property::cp);
        if (dt > 0)
            EXPECT_NEAR(cp_eq, cp, 1e-4 * cp) << dt;
        else
            EXPECT_GT(cp_eq, 2.0 * cp) << dt;
        // (du/dT) at constant v: u along the isochore through (p, t).
        const double v = prop(ctx, flue(), p, t, Property::v);
        auto u_on_isochore = [&](double tt) {
            const auto st = ondrel::solve(ctx, flue(), Pair::Tv, tt, v);
            EXPECT_TRUE(st);
            return prop(ctx, flue(), st.value.p, tt, Property::u);
        };
        const double u_slope = (u_on_isochore(t + step) - u_on_isochore(t - step)) / (2 * step);
        EXPECT_NEAR(prop(ctx, flue(), p, t, Property::cv_eq), u_slope, 1e-3 * std::fabs(u_slope)) << dt;
    }
}

TEST(MixtureProperties, AirHasItsKnownSoundSpeedAndGasConstant) {
    ondrel::Context ctx;
    EXPECT_NEAR(prop(ctx, air(), 1e5, 300.0, Property::w), 347.2, 0.5);
    EXPECT_NEAR(prop(ctx, air(), 1e5, 300.0, Property::kappa), 1.400, 0.002);
    EXPECT_NEAR(prop(ctx, air(), 1e5, 300.0, Property::M), 0.028963, 1e-5);
    EXPECT_NEAR(prop(ctx, air(), 1e5, 300.0, Property::R), 287.07, 0.05);
    const double cp = prop(ctx, air(), 1e5, 300.0, Property::cp);
    EXPECT_NEAR(cp, 1005.0, 3.0);
    EXPECT_EQ(prop(ctx, air(), 1e5, 300.0, Property::cp_eq), cp);  // no condensation: one and the same
    EXPECT_NEAR(prop(ctx, air(), 1e5, 300.0, Property::cv_eq), prop(ctx, air(), 1e5, 300.0, Property::cv), 1e-9 * cp);
    EXPECT_EQ(prop(ctx, air(), 1e5, 300.0, Property::x_gas), 1.0);
    EXPECT_EQ(prop(ctx, air(), 1e5, 300.0, Property::x_condensed), 0.0);
    // Without condensing water there is no dew point and no humidity.
    EXPECT_EQ(ondrel::property(ctx, air(), {1e5, 300.0}, Property::T_dew).status, Status::not_available);
    EXPECT_EQ(ondrel::property(ctx, air(), {1e5, 300.0}, Property::rh).status, Status::not_available);
    // Above the critical temperature of water there is no saturation pressure.
    EXPECT_EQ(ondrel::property(ctx, flue(), {1e5, 700.0}, Property::rh).status, Status::not_available);
}

TEST(MixtureProperties, EveryNameReadsBack) {
    for (int k = 0; k < ondrel::property_count; ++k) {
        const auto q = static_cast<Property>(k);
        EXPECT_EQ(ondrel::property_from_name(ondrel::name(q)).value, q);
    }
    EXPECT_EQ(ondrel::property_from_name("T_dew").value, Property::T_dew);
}

}  // namespace
