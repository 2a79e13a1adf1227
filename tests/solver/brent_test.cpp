// Brent's root finder on synthetic functions: closed-form roots and the edge
// cases of its step rules, one table row each.
#include <cmath>
#include <functional>
#include <map>
#include <string>
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

}  // namespace
