// The quick searches of a state against the sampled ones they stand in for:
// the same status, the same root and the same not_unique flag for every
// pair over the condensing range of mixtures with "H2O(IF)", and the
// corrected search in temperature settling where it serves.
#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "api/mixture_data.hpp"
#include "api/mixture_search.hpp"
#include "ondrel/mixture.hpp"

namespace {

using ondrel::Pair;
using ondrel::Status;
using ondrel::detail::SearchMode;

ondrel::Mixture make(std::initializer_list<ondrel::Fraction> f) {
    auto m = ondrel::Mixture::make(f);
    EXPECT_TRUE(m) << ondrel::message(m.status);
    return m.value;
}

const ondrel::Mixture& flue() {
    static const ondrel::Mixture m = make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}});
    return m;
}

double letter_value(const ondrel::AllProperties& a, char l) {
    switch (l) {
    case 'P': return a.P;
    case 'T': return a.T;
    case 'v': return a.v;
    case 'd': return a.d;
    case 'h': return a.h;
    case 's': return a.s;
    default: return a.u;
    }
}

bool close(double a, double b, double rel) { return a == b || std::fabs(a - b) <= rel * std::fabs(b); }

// Both searches on one input pair: the same status; where both answer, the
// same flag and the same state (each closes its root far inside the check's
// 1e-9, so 1e-10 tells one root from another).
void expect_same(ondrel::Context& ctx, const ondrel::Mixture& mix, Pair pair, double a, double b,
                 const std::string& where, int& compared) {
    const auto fast = ondrel::detail::solve_state(ctx, mix, pair, a, b, SearchMode::fast);
    const auto sampled = ondrel::detail::solve_state(ctx, mix, pair, a, b, SearchMode::sampled);
    ASSERT_EQ(fast.status, sampled.status) << where << ": " << ondrel::message(fast.status) << " / "
                                           << ondrel::message(sampled.status);
    if (!fast) return;
    ++compared;
    EXPECT_EQ(fast.value.not_unique, sampled.value.not_unique) << where;
    EXPECT_TRUE(close(fast.value.T, sampled.value.T, 1e-10))
        << where << ": T " << fast.value.T << " / " << sampled.value.T;
    EXPECT_TRUE(close(fast.value.p, sampled.value.p, 1e-10))
        << where << ": p " << fast.value.p << " / " << sampled.value.p;
}

// Every pair from states over the condensing range and beyond it (the
// triple point, the dew point, the vapour, the IF97 limit of 1073.15 K), at
// pressures from where water never condenses above the triple point to
// where it condenses below it and where the dew point nears the corner of
// IF97's regions.
TEST(QuickSearch, AgreesWithTheSampledSearchForEveryPair) {
    ondrel::Context ctx;
    const ondrel::Mixture& m = flue();
    int compared = 0;
    const double temperatures[] = {205.0, 240.0, 273.0, 273.17, 283.15, 298.15, 313.15, 318.15, 322.0, 323.15,
                                   333.15, 373.15, 500.0, 1073.15, 1500.0};
    for (double p : {3e3, 0.5e5, 1.01325e5, 5e5, 4e7}) {
        for (double t : temperatures) {
            const auto all = ondrel::properties(ctx, m, {p, t});
            ASSERT_TRUE(all);
            for (int k = 0; k < ondrel::pair_count; ++k) {
                const auto pair = static_cast<Pair>(k);
                const std::string spec(ondrel::name(pair));
                // The pairs without p or T: their cases are below.
                if (spec[0] != 'P' && spec[0] != 'T') continue;
                expect_same(ctx, m, pair, letter_value(all.value, spec[0]), letter_value(all.value, spec[1]),
                            spec + " at " + std::to_string(p) + " Pa, " + std::to_string(t) + " K", compared);
            }
        }
    }
    EXPECT_GT(compared, 800);
}

// The pairs without pressure or temperature: the cheap model's samples far
// from zero carry the sampled search's signs, and the brackets close on the
// same roots; inputs no state reproduces fail in both.
TEST(QuickSearch, AgreesWithTheSampledSearchWithoutPressureOrTemperature) {
    ondrel::Context ctx;
    const ondrel::Mixture& m = flue();
    int compared = 0;
    for (double p : {0.5e5, 1.01325e5, 5e5}) {
        for (double t : {260.0, 283.15, 313.15, 320.0, 323.15, 373.15, 800.0, 2000.0}) {
            const auto all = ondrel::properties(ctx, m, {p, t});
            ASSERT_TRUE(all);
            for (int k = 0; k < ondrel::pair_count; ++k) {
                const auto pair = static_cast<Pair>(k);
                const std::string spec(ondrel::name(pair));
                if (spec[0] == 'P' || spec[0] == 'T') continue;
                const double a = letter_value(all.value, spec[0]), b = letter_value(all.value, spec[1]);
                const std::string at = " at " + std::to_string(p) + " Pa, " + std::to_string(t) + " K";
                expect_same(ctx, m, pair, a, b, spec + at, compared);
                // A second input a tenth of its scale off: another state, or none.
                const double scale = spec[1] == 'h' || spec[1] == 'u' ? 1e3 * t : spec[1] == 's' ? 1e3 : std::fabs(b);
                expect_same(ctx, m, pair, a, b + 0.1 * scale, spec + " moved" + at, compared);
            }
        }
    }
    EXPECT_GT(compared, 250);
}

// Inputs no state reproduces, and inputs reached only below the triple point.
TEST(QuickSearch, AgreesWhereTheRootIsOutsideOrBelowTheUpperPiece) {
    ondrel::Context ctx;
    const ondrel::Mixture& m = flue();
    int compared = 0;
    for (double p : {0.5e5, 1.01325e5, 5e5}) {
        const auto cold = ondrel::properties(ctx, m, {p, 260.0}).value;
        const auto hot = ondrel::properties(ctx, m, {p, 5900.0}).value;
        const std::string at = " at " + std::to_string(p) + " Pa";
        for (Pair pair : {Pair::Ph, Pair::Ps, Pair::Pu, Pair::Pv, Pair::Pd}) {
            const char l = ondrel::name(pair)[1];
            const double lowest = letter_value(ondrel::properties(ctx, m, {p, m.t_min()}).value, l);
            const double highest = letter_value(ondrel::properties(ctx, m, {p, m.t_max()}).value, l);
            const std::string n(ondrel::name(pair));
            expect_same(ctx, m, pair, p, letter_value(cold, l), n + " at 260 K" + at, compared);
            expect_same(ctx, m, pair, p, letter_value(hot, l), n + " at 5900 K" + at, compared);
            // Beyond either end of the data: no solution, however each search gets there.
            const double below = lowest - 0.1 * std::fabs(highest - lowest);
            const double above = highest + 0.1 * std::fabs(highest - lowest);
            expect_same(ctx, m, pair, p, below, n + " below the data" + at, compared);
            expect_same(ctx, m, pair, p, above, n + " above the data" + at, compared);
        }
    }
    EXPECT_GT(compared, 20);
}

// Mixtures the corrected search does not serve take the sampled one, and
// those it serves with little or much water agree with it.
TEST(QuickSearch, AgreesForOtherMixtures) {
    ondrel::Context ctx;
    const std::vector<ondrel::Mixture> mixtures = {
        make({{"N2", 0.98}, {"H2O(IF)", 0.02}}),
        make({{"N2", 0.1}, {"H2O(IF)", 0.9}}),
        make({{"H2O(IF)", 1.0}}),
        make({{"N2", 0.7}, {"H2O(IF)", 0.1}, {"CO2", 0.1}, {"H2O(IF)", 0.1}}),
        make({{"N2", 0.70}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.03}, {"AL2O3(S)", 0.02}}),
    };
    EXPECT_TRUE(ondrel::detail::corrected_search_serves(mixtures[0].data()));
    EXPECT_TRUE(ondrel::detail::corrected_search_serves(mixtures[1].data()));
    EXPECT_FALSE(ondrel::detail::corrected_search_serves(mixtures[2].data()));  // no other gas
    EXPECT_FALSE(ondrel::detail::corrected_search_serves(mixtures[3].data()));  // two water entries
    EXPECT_TRUE(ondrel::detail::corrected_search_serves(mixtures[4].data()));
    int compared = 0;
    for (std::size_t i = 0; i < mixtures.size(); ++i) {
        const ondrel::Mixture& m = mixtures[i];
        for (double p : {0.2e5, 1e5, 1e6}) {
            for (double t : {280.0, 305.0, 330.0, 360.0, 400.0, 800.0}) {
                if (t < m.t_min()) continue;
                const auto all = ondrel::properties(ctx, m, {p, t});
                ASSERT_TRUE(all);
                for (Pair pair : {Pair::Ph, Pair::Ps, Pair::Pu, Pair::Pv, Pair::Pd}) {
                    const char l = ondrel::name(pair)[1];
                    expect_same(ctx, m, pair, p, letter_value(all.value, l),
                                "mixture " + std::to_string(i) + " " + std::string(ondrel::name(pair)) + " at " +
                                    std::to_string(p) + " Pa, " + std::to_string(t) + " K",
                                compared);
                }
            }
        }
    }
    EXPECT_GT(compared, 400);
}

// A state at the lowest temperature of the data (the solid's 300 K) is found
// from its own enthalpy and internal energy, though the residual there is
// zero only to rounding: the corrected search closes on it from inside.
TEST(QuickSearch, FindsAStateAtTheLowEndOfTheData) {
    ondrel::Context ctx;
    const ondrel::Mixture m = make({{"N2", 0.70}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.03}, {"AL2O3(S)", 0.02}});
    ASSERT_EQ(m.t_min(), 300.0);
    for (double p : {1e5, 1e6}) {
        const auto all = ondrel::properties(ctx, m, {p, m.t_min()}).value;
        for (Pair pair : {Pair::Ph, Pair::Pu}) {
            const auto st = ondrel::solve(ctx, m, pair, p, letter_value(all, ondrel::name(pair)[1]));
            ASSERT_TRUE(st) << ondrel::name(pair) << " at " << p << " Pa: " << ondrel::message(st.status);
            EXPECT_NEAR(st.value.T, m.t_min(), 1e-9 * m.t_min());
            EXPECT_FALSE(st.value.not_unique);
        }
    }
}

// Where it serves, the corrected search settles on the upper piece from
// every state of the condensing range and the vapour above it: the cheap
// model's slopes and the fitted difference hold, with no fall back to the
// sampled search. Each answer reproduces its target to 1e-12 of its scale.
TEST(CorrectedSearch, SettlesInAFewEvaluationsOverTheUpperPiece) {
    ondrel::Context ctx;
    const ondrel::Mixture& m = flue();
    const ondrel::detail::MixtureData& d = m.data();
    int worst = 0;  // at the flue gas's pressures
    for (double p : {0.5e5, 1.01325e5, 5e5, 4e7}) {
        for (double t = 274.0; t < 1200.0; t *= 1.03) {
            const auto all = ondrel::properties(ctx, m, {p, t}).value;
            for (char l : {'h', 's', 'u', 'v', 'd'}) {
                const double target = letter_value(all, l);
                const ondrel::detail::Settled s =
                    ondrel::detail::corrected_search(ctx.core(), d, l, target, p, ondrel::detail::t_triple, d.t_max);
                ASSERT_TRUE(std::isfinite(s.t)) << l << " at " << p << " Pa, " << t << " K";
                EXPECT_NEAR(s.t, t, 1e-9 * t) << l << " at " << p << " Pa, " << t << " K";
                EXPECT_EQ(s.value, ondrel::detail::quantity(ctx.core(), d, l, p, s.t));
                EXPECT_LE(std::fabs(s.value - target),
                          1e-12 * ondrel::detail::residual_scale(d, l, target, s.t) * (1 + 1e-12));
                // At 400 bar the water's vapour is far from the cheap model's ideal gas: more rounds.
                if (p < 1e6) worst = std::max(worst, s.evaluations);
            }
        }
    }
    // Eight would be the most it takes before it gives up.
    EXPECT_LE(worst, 5);
}

}  // namespace

namespace {

// Newton's method from the mixture's start grid, without condensing water:
// every temperature of the data range comes back from its h, s and u at
// several pressures, to the conditioning of the sums (their terms cancel to
// a few parts in 1e12 of the temperature), for a gas and for a gas
// laden with a condensed species (whose p v enters u); grid nodes, points
// between them, both sides of the polynomials' common temperature and both ends.
TEST(NewtonSearch, ReturnsEveryTemperatureOfTheDataRangeFromItsGrid) {
    const ondrel::Mixture gas = make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.035}, {"AR", 0.005}});
    const ondrel::Mixture ash = make({{"N2", 0.7}, {"CO2", 0.15}, {"H2O", 0.1}, {"AL2O3(S)", 0.05}});
    ondrel::Context ctx;
    for (const ondrel::Mixture* mix : {&gas, &ash}) {
        const auto& grid = mix->data().start;
        ASSERT_EQ(grid.h.size(), 256u);
        std::vector<double> temps = {mix->t_min(), mix->t_max(), 999.5, 1000.5};
        for (int k = 0; k < 255; k += 7) {
            temps.push_back(grid.t0 + k * grid.dt);
            temps.push_back(grid.t0 + (k + 0.37) * grid.dt);
        }
        for (double p : {1.0e3, 1.0e5, 3.0e7}) {
            for (double t : temps) {
                t = std::clamp(t, mix->t_min(), mix->t_max());
                const auto a = ondrel::properties(ctx, *mix, {p, t});
                ASSERT_TRUE(a);
                for (const Pair pair : {Pair::Ph, Pair::Ps, Pair::Pu}) {
                    const char l = std::string(ondrel::name(pair))[1];
                    const auto st = ondrel::solve(ctx, *mix, pair, p, letter_value(a.value, l));
                    ASSERT_TRUE(st) << ondrel::name(pair) << " at " << p << " Pa, " << t << " K: "
                                    << ondrel::message(st.status);
                    EXPECT_TRUE(close(st.value.T, t, 1e-10))
                        << ondrel::name(pair) << " at " << p << " Pa: " << st.value.T << " for " << t << " K";
                }
            }
        }
    }
}

}  // namespace
