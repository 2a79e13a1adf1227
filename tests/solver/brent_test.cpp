// Brent's root finder on synthetic property functions.
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "solver/od_solver.hpp"

namespace {

using od::Mixture;
using od::solver::brent;

const Mixture empty_mix{};
int evaluations = 0;
std::vector<double> evaluated_at;

double counted(double x) {
    ++evaluations;
    evaluated_at.push_back(x);
    return x;
}

double identity(double x, double, const Mixture&) { return counted(x); }
double step(double x, double, const Mixture&) { ++evaluations; return x < 2.5 ? -1.0 : 1.0; }
double sign_at_zero(double x, double, const Mixture&) { ++evaluations; return x < 0.0 ? -1.0 : 1.0; }
double not_a_number(double, double, const Mixture&) {
    ++evaluations;
    return std::numeric_limits<double>::quiet_NaN();
}
// x1 - 3 x2: a root in x1 or in x2 depending on which argument is unknown.
double first_minus_three_second(double x1, double x2, const Mixture&) { return x1 - 3.0 * x2; }

class BrentTest : public ::testing::Test {
protected:
    void SetUp() override {
        evaluations = 0;
        evaluated_at.clear();
    }
};

TEST_F(BrentTest, ReturnsLowerEndWithoutEvaluatingUpper) {
    double a = 2.0, b = 10.0;
    int ierr = 0;
    const double x = brent(identity, 1, 0.0, 2.0 + 5e-7, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(x, 2.0);
    EXPECT_EQ(evaluations, 1);
    EXPECT_EQ(a, 2.0);
    EXPECT_EQ(b, 10.0);
    EXPECT_EQ(ierr, 0);
}

TEST_F(BrentTest, ReturnsUpperEndWhenItsResidualIsBelowTolEvenForAWideBracket) {
    double a = -1e6, b = 10.0;
    int ierr = 0;
    const double x = brent(identity, 1, 0.0, 10.0 - 9e-7, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(evaluations, 2);
    EXPECT_EQ(ierr, 0);
}

TEST_F(BrentTest, ResidualEqualToTolIsNotAnEarlyReturn) {
    double a = 0.0, b = 4.0;
    int ierr = 0;
    const double x = brent(identity, 1, 0.0, 0.5, a, b, 0.5, empty_mix, ierr);
    EXPECT_GT(evaluations, 1);
    EXPECT_NEAR(x, 0.5, 0.25 + 1e-15);
}

TEST_F(BrentTest, SameSignAtBothEndsGivesCode5AndLeavesTheEndsUnchanged) {
    double a = 1.0, b = 3.0;
    int ierr = 0;
    const double x = brent(identity, 1, 0.0, -5.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(x, -8888.8);
    EXPECT_EQ(ierr, 5);
    EXPECT_EQ(a, 1.0);
    EXPECT_EQ(b, 3.0);
    EXPECT_EQ(evaluations, 2);
}

TEST_F(BrentTest, ExactRootAtAnIterateReturnsAtOnce) {
    // Residuals -5 and +5: the first step bisects onto 5, where the residual is 0.
    double a = 0.0, b = 10.0;
    int ierr = 0;
    const double x = brent(identity, 1, 0.0, 5.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(x, 5.0);
    EXPECT_EQ(evaluations, 3);
    EXPECT_EQ(b, 5.0);
}

TEST_F(BrentTest, StepFunctionConvergesToTheJumpByBisection) {
    double a = 0.0, b = 10.0;
    int ierr = 0;
    const double x = brent(step, 1, 0.0, 0.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_NEAR(x, 2.5, 1e-6);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(b, x);
    EXPECT_LT(evaluations, 60);
}

TEST_F(BrentTest, GivesCode4AndZeroAfterOneHundredLoopEvaluations) {
    // Bisection from 3e300 down to 1e-6 would need about a thousand halvings.
    double a = -1e300, b = 2e300;
    int ierr = 0;
    const double x = brent(sign_at_zero, 1, 0.0, 0.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(x, 0.0);
    EXPECT_EQ(ierr, 4);
    EXPECT_EQ(evaluations, 102);
    EXPECT_NE(a, -1e300);  // the last two iterates
    EXPECT_NE(b, 2e300);
}

TEST_F(BrentTest, NeverClearsAnEarlierErrorCode) {
    double a = 0.0, b = 10.0;
    int ierr = 5;
    const double x = brent(identity, 1, 0.0, 3.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_NEAR(x, 3.0, 1e-6);
    EXPECT_EQ(ierr, 5);
}

TEST_F(BrentTest, NotANumberResidualGivesNoCodeOfItsOwn) {
    double a = 0.0, b = 10.0;
    int ierr = 0;
    const double x = brent(not_a_number, 1, 0.0, 0.0, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(ierr, 0);
    EXPECT_EQ(x, 10.0);  // no sign change is seen, so the bracket collapses onto b
    EXPECT_LE(evaluations, 102);
}

TEST_F(BrentTest, WhichOnePassesTheUnknownFirstAndAnyOtherValueSecond) {
    int ierr = 0;
    double a = -100.0, b = 100.0;
    // which 1: x - 3*2 = 0 -> x = 6
    EXPECT_NEAR(brent(first_minus_three_second, 1, 2.0, 0.0, a, b, 1e-9, empty_mix, ierr), 6.0, 1e-8);
    for (int which : {2, 0, -1, 7}) {
        a = -100.0;
        b = 100.0;
        // 12 - 3x = 0 -> x = 4
        EXPECT_NEAR(brent(first_minus_three_second, which, 12.0, 0.0, a, b, 1e-9, empty_mix, ierr),
                    4.0, 1e-8) << "which = " << which;
    }
    EXPECT_EQ(ierr, 0);
}

TEST_F(BrentTest, MakesAtMost102EvaluationsAndCallsOnlyInsideTheBracket) {
    double a = 0.0, b = 1e8;
    int ierr = 0;
    brent(identity, 1, 0.0, 12345.678, a, b, 1e-6, empty_mix, ierr);
    EXPECT_LE(evaluations, 102);
    for (double x : evaluated_at) {
        EXPECT_GE(x, 0.0);
        EXPECT_LE(x, 1e8);
    }
}

// --- reference roots -------------------------------------------------------

struct RootCase {
    std::string function;
    double target, a, b, root;
};

std::vector<RootCase> load_roots() {
    std::ifstream in(ONDREL_TEST_DATA_DIR "solver/brent_roots.csv");
    std::vector<RootCase> cases;
    std::string line;
    std::getline(in, line);  // source
    std::getline(in, line);  // header
    while (std::getline(in, line)) {
        if (line.empty()) continue;
        std::stringstream ss(line);
        RootCase c;
        std::string field;
        std::getline(ss, c.function, ',');
        std::getline(ss, field, ','); c.target = std::stod(field);
        std::getline(ss, field, ','); c.a = std::stod(field);
        std::getline(ss, field, ','); c.b = std::stod(field);
        std::getline(ss, field, ','); c.root = std::stod(field);
        cases.push_back(c);
    }
    return cases;
}

double cube(double x, double, const Mixture&) { return x * x * x; }
double cosine(double x, double, const Mixture&) { return std::cos(x) - x; }
double exponential(double x, double, const Mixture&) { return std::exp(x); }
double quadratic(double x, double, const Mixture&) { return x * x - 4.0; }
double reciprocal(double x, double, const Mixture&) { return 1.0 / x; }
double three_times_second(double, double x, const Mixture&) { return 3.0 * x; }

class BrentRoots : public ::testing::TestWithParam<RootCase> {};

TEST_P(BrentRoots, FindsTheReferenceRootWithinTol) {
    const RootCase& c = GetParam();
    od::PropertyFn f = c.function == "cube" ? cube
                     : c.function == "cosine" ? cosine
                     : c.function == "exponential" ? exponential
                     : c.function == "quadratic" ? quadratic
                     : c.function == "reciprocal" ? reciprocal
                     : three_times_second;
    const int which = c.function == "linear_which2" ? 2 : 1;
    double a = c.a, b = c.b;
    int ierr = 0;
    const double x = brent(f, which, 0.0, c.target, a, b, 1e-6, empty_mix, ierr);
    EXPECT_EQ(ierr, 0);
    EXPECT_NEAR(x, c.root, 1e-6);
    EXPECT_EQ(b, x);
}

INSTANTIATE_TEST_SUITE_P(Table, BrentRoots, ::testing::ValuesIn(load_roots()),
                         [](const auto& info) { return info.param.function; });

TEST(BrentRootsTable, IsNotEmpty) { EXPECT_EQ(load_roots().size(), 6u); }

}  // namespace
