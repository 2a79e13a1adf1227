// Brent's root finder on synthetic functions: closed-form roots and the edge
// cases of its step rules, one table row each.
#include <bit>
#include <cmath>
#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "solver/od_solver.hpp"
#include "tests/solver/csv_rows.hpp"

namespace {

using od::test::CsvRow;

const std::map<std::string, std::function<double(double, double)>> functions = {
    {"identity", [](double x, double) { return x; }},
    {"step", [](double x, double) { return x < 2.5 ? -1.0 : 1.0; }},
    {"sign", [](double x, double) { return x < 0.0 ? -1.0 : 1.0; }},
    {"nan", [](double, double) { return NAN; }},
    {"cube", [](double x, double) { return x * x * x; }},
    {"cosine", [](double x, double) { return std::cos(x) - x; }},
    {"exponential", [](double x, double) { return std::exp(x); }},
    {"quadratic", [](double x, double) { return x * x - 4.0; }},
    {"reciprocal", [](double x, double) { return 1.0 / x; }},
    {"linear", [](double x1, double x2) { return x1 - 3.0 * x2; }},
};

class Brent : public ::testing::TestWithParam<CsvRow> {};

TEST_P(Brent, GivesTheTabulatedRootCodeAndEvaluations) {
    const CsvRow& c = GetParam();
    SCOPED_TRACE(c.text("case"));
    const auto& f = functions.at(c.text("function"));
    const int which = static_cast<int>(c.num("which"));
    std::vector<double> evaluated;  // the unknown at each call
    auto counted = [&](double x1, double x2, const od::Mixture&) {
        evaluated.push_back(which == 1 ? x1 : x2);
        return f(x1, x2);
    };
    const double a0 = c.num("a"), b0 = c.num("b");
    double a = a0, b = b0;
    int ierr = static_cast<int>(c.num("ierr_in"));
    const double x = od::solver::brent(counted, which, c.num("fixed"), c.num("target"), a, b,
                                       c.num("tol"), od::Mixture{}, ierr);
    EXPECT_NEAR(x, c.num("root"), c.num("x_tol"));
    EXPECT_EQ(ierr, c.num("ierr"));
    const double count = c.num("evaluations");
    EXPECT_TRUE(std::isnan(count) || evaluated.size() == count) << evaluated.size() << " evaluations";
    EXPECT_LE(evaluated.size(), 102u);
    for (double e : evaluated) {
        EXPECT_GE(e, std::fmin(a0, b0));
        EXPECT_LE(e, std::fmax(a0, b0));
    }
    const std::string ends = c.text("ends");
    EXPECT_TRUE(ends != "kept" || (a == a0 && b == b0)) << a << " " << b;
    EXPECT_TRUE(ends != "moved" || (a != a0 && b != b0)) << a << " " << b;
    // On success after the loop has run, b holds the root.
    EXPECT_TRUE(ierr != 0 || evaluated.size() <= 2 || b == x) << b;
}

INSTANTIATE_TEST_SUITE_P(Cases, Brent, od::test::rows_of("solver/brent_cases.csv"), od::test::row_name);

// solve_pair: brent with the failures of the input pairs added.

// One solution with the unknown at each evaluation recorded.
struct Solution {
    double x, a, b;
    int ierr;
    std::vector<double> evaluated;
};

// The case of a brent_cases.csv row solved by brent or by solve_pair.
Solution run_case(const CsvRow& c, bool guarded) {
    const auto& f = functions.at(c.text("function"));
    const int which = static_cast<int>(c.num("which"));
    const double fixed = c.num("fixed"), target = c.num("target"), tol = c.num("tol");
    Solution r{0.0, c.num("a"), c.num("b"), static_cast<int>(c.num("ierr_in")), {}};
    auto counted = [&](double x1, double x2, const od::Mixture&) {
        r.evaluated.push_back(which == 1 ? x1 : x2);
        return f(x1, x2);
    };
    r.x = guarded ? od::solver::solve_pair(counted, which, fixed, target, r.a, r.b, tol, true, od::Mixture{}, r.ierr)
                  : od::solver::brent(counted, which, fixed, target, r.a, r.b, tol, od::Mixture{}, r.ierr);
    return r;
}

// solve_pair of f(x) = 0 over [a, b] with tol 1e-6.
Solution solve_pair(const std::function<double(double)>& f, double a, double b, bool finite_inputs = true) {
    Solution r{0.0, a, b, 0, {}};
    auto counted = [&](double x, double, const od::Mixture&) {
        r.evaluated.push_back(x);
        return f(x);
    };
    r.x = od::solver::solve_pair(counted, 1, 0.0, 0.0, r.a, r.b, 1e-6, finite_inputs, od::Mixture{}, r.ierr);
    return r;
}

std::uint64_t bits(double x) { return std::bit_cast<std::uint64_t>(x); }

TEST(SolvePair, WithoutNaNGivesBrentsRootEndsCodeAndEvaluationsBitForBit) {
    for (const CsvRow& c : od::test::read_csv("solver/brent_cases.csv")) {
        if (c.text("function") == "nan") continue;
        SCOPED_TRACE(c.text("case"));
        const Solution plain = run_case(c, false), guarded = run_case(c, true);
        EXPECT_EQ((std::tuple{bits(guarded.x), bits(guarded.a), bits(guarded.b), guarded.ierr}),
                  (std::tuple{bits(plain.x), bits(plain.a), bits(plain.b), plain.ierr}));
        EXPECT_EQ(guarded.evaluated, plain.evaluated);
    }
}

TEST(SolvePair, InputsThatAreNotFiniteFailWithCode5WithoutEvaluating) {
    const Solution r = solve_pair([](double x) { return x - 3.0; }, 0.0, 10.0, false);
    EXPECT_EQ((std::tuple{r.x, r.ierr, r.a, r.b}), (std::tuple{-8888.8, 5, 0.0, 10.0}));
    EXPECT_TRUE(r.evaluated.empty());
}

// brent alone on f(x) = 0 over [a, b] with tol 1e-6, for comparison.
Solution brent(const std::function<double(double)>& f, double a, double b) {
    Solution r{0.0, a, b, 0, {}};
    auto counted = [&](double x, double, const od::Mixture&) {
        r.evaluated.push_back(x);
        return f(x);
    };
    r.x = od::solver::brent(counted, 1, 0.0, 0.0, r.a, r.b, 1e-6, od::Mixture{}, r.ierr);
    return r;
}

TEST(SolvePair, ASuccessAfterANaNAtAnEndFailsWithCode5AndTheEndsAsGiven) {
    // brent alone walks onto the NaN at 0 (hand-traced: no sign is known
    // there, so it bisects towards it) or returns the NaN at 10 at once,
    // both with no code.
    for (const double nan_at : {0.0, 10.0}) {
        const auto f = [&](double x) { return x == nan_at ? NAN : x - 3.0; };
        const Solution plain = brent(f, 0.0, 10.0), r = solve_pair(f, 0.0, 10.0);
        EXPECT_EQ(plain.ierr, 0) << nan_at;
        EXPECT_EQ((std::tuple{r.x, r.ierr, r.a, r.b}), (std::tuple{-8888.8, 5, 0.0, 10.0})) << nan_at;
        EXPECT_EQ(r.evaluated, plain.evaluated);
    }
}

TEST(SolvePair, ASuccessAfterANaNInsideFailsWithCode4AndBrentsLastIterates) {
    // Hand-traced: the ends give -1 and +1 with equal magnitude, so the first
    // step bisects onto 5, where f is NaN.
    const auto f = [](double x) { return std::fabs(x - 5.0) < 0.1 ? NAN : x < 2.5 ? -1.0 : 1.0; };
    const Solution plain = brent(f, 0.0, 10.0), r = solve_pair(f, 0.0, 10.0);
    ASSERT_GE(plain.evaluated.size(), 3u);
    EXPECT_EQ(plain.evaluated[2], 5.0);
    EXPECT_EQ(plain.ierr, 0);
    EXPECT_EQ((std::tuple{r.x, r.ierr, r.a, r.b}), (std::tuple{-8888.8, 4, plain.a, plain.b}));
}

TEST(SolvePair, AFailureOfBrentItselfKeepsItsCodeAndValueAlsoWithANaN) {
    // An infinite upper end (a volume of 0 makes the pressure bracket end so)
    // gives a NaN residual and a NaN half-interval: brent takes NaN steps
    // until it gives up after 100 loop evaluations with 0.0.
    const auto f = [](double x) { return std::isfinite(x) ? x - 3.0 : NAN; };
    const Solution plain = brent(f, 0.0, INFINITY), r = solve_pair(f, 0.0, INFINITY);
    EXPECT_EQ((std::tuple{plain.x, plain.ierr, plain.evaluated.size()}), (std::tuple{0.0, 4, std::size_t{102}}));
    EXPECT_EQ(bits(r.x), bits(plain.x));
    EXPECT_EQ(r.ierr, 4);
}

}  // namespace
