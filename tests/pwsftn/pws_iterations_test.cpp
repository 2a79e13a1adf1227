// PwsIterations used with the region equations, and behaviour on absurd inputs.
#include <chrono>
#include <limits>

#include "ondrel/pwsftn.h"
#include "pws_support.hpp"

namespace {

using pws_test::near;
using pws_test::PackageTest;
using pws_test::Row;
using pws_test::table;
using PwsIterations = PackageTest;

// Property routines in the argument orders the iterations expect.
double h2_of_t_p(double t, double p) { return pws::pws_d2(p, t); }
double s2_of_t_p(double t, double p) { return pws::pws_e2(p, t); }
double a3_with_eps(double v, double t, double /*eps*/) { return pws::pws_a3(v, t); }
int evaluations = 0;  // calls of `step`
double step(double x, double /*y*/) {
    ++evaluations;
    return x < 0.3 ? -1.0 : 1.0;
}
double step_in_second(double /*fixed*/, double x) { return step(x, 0.0); }

TEST_F(PwsIterations, VolumeIterationsRecoverRegionThreeVolumes) {
    for (const Row& r : table("pwsftn/region3.csv")) {
        SCOPED_TRACE(r.line);
        const double v = r["v_m3_per_kg"], t = r["t_C"], p = r["p_bar"];
        // A bracket on the branch of v: the loop below 374.15 C has three roots.
        double a = v * 0.97, b = v * 1.03;
        EXPECT_TRUE(near(pws::pws_i2(pws::pws_a3, t, p, a, b, 1e-10), v, 1e-8));
        a = v * 0.97, b = v * 1.03;
        EXPECT_TRUE(near(pws::pws_i3(a3_with_eps, t, p, a, b, 1e-10), v, 1e-8));
        a = v * 1.05, b = v * 1.1;  // both on one side: secant steps
        if (t > 400.0) {
            EXPECT_TRUE(near(pws::pws_i2(pws::pws_a3, t, p, a, b, 1e-10), v, 1e-8));
        }
    }
    EXPECT_EQ(errors(), 0);
    const double v = 0.005, p = pws::pws_a3(v, 400.0);
    double a = v, b = 0.006;  // a starting value within the tolerance is the answer
    EXPECT_EQ(pws::pws_i2(pws::pws_a3, 400.0, p, a, b, 1e-8), v);
    a = 0.004, b = v;
    EXPECT_EQ(pws::pws_i2(pws::pws_a3, 400.0, p, a, b, 1e-8), v);
    a = 0.2, b = 1.0, evaluations = 0;  // target 0: |fa| equals the tolerance 0 and is accepted
    EXPECT_EQ(pws::pws_i2([](double x, double y) { return step(x, y) + 1.0; }, 0.0, 0.0, a, b, 1e-8), 0.2);
    EXPECT_EQ(evaluations, 1);
}

TEST_F(PwsIterations, OneDimensionalAndTwoLevelIterationsSolveQuietly) {
    double a = 300.0, b = 700.0;
    EXPECT_NEAR(pws::pws_i1(pws::pws_d2, 50.0, pws::pws_d2(50.0, 412.5), a, b, 1e-10), 412.5, 1e-6);
    const double p = 10.0, t = 300.0;
    double xa = 200.0, xb = 500.0, ya = 1.0, yb = 50.0;
    pws::pws_id(s2_of_t_p, pws::pws_e2(p, t), h2_of_t_p, pws::pws_d2(p, t), xa, xb, ya, yb, 1e-9);
    EXPECT_NEAR(xa, t, 1e-5);
    EXPECT_EQ(xa, xb);
    EXPECT_NEAR(ya, p, 1e-6);
    EXPECT_EQ(ya, yb);
    EXPECT_TRUE(records.empty());
}

// A step has no root: each iteration takes both ends, then a trial and a
// halving point in each of its 40 steps.
TEST_F(PwsIterations, RunOutAfterFortyStepsWithOrWithoutAWarning) {
    double a = 0.0, b = 1.0;
    evaluations = 0;
    EXPECT_EQ(pws::pws_i1(step_in_second, 0.0, 0.0, a, b, 1e-30), 0.0);
    EXPECT_LT(std::fabs(b - a), 1e-6);  // the interval was narrowed and handed back
    EXPECT_EQ(evaluations, 82);
    a = 0.0, b = 1.0, evaluations = 0;
    EXPECT_NEAR(pws::pws_i2(step, 0.0, 0.0, a, b, 1e-30), 0.3, 1e-6);  // quietly: the midpoint
    EXPECT_EQ(evaluations, 82);
    a = 0.5, b = 1.0, evaluations = 0;  // one side: secant steps evaluate their first point afresh
    pws::pws_i2(step, 0.0, 0.0, a, b, 1e-30);
    EXPECT_EQ(evaluations, 82);
    double xa = -10.0, xb = 10.0, ya = 0.0, yb = 1.0;
    evaluations = 0;
    // Inner: x + y = 1; outer: the step in x, which no y brings to zero.
    pws::pws_id(step, 0.0, [](double x, double y) { return x + y; }, 1.0, xa, xb, ya, yb, 1e-30);
    EXPECT_NEAR(xa + ya, 1.0, 1e-9);
    EXPECT_EQ(evaluations, 82);
    EXPECT_EQ(written(), (std::vector<std::string>{
                             "6| *** PWSFTN-WARNING: Maximum number of iterations exceeded (code: PWS_I1) ***",
                             "6| *** PWSFTN-WARNING: Maximum number of iterations exceeded (code: PWS_ID) ***"}));
    EXPECT_EQ(errors(), 0);
}

TEST_F(PwsIterations, AbsurdInputsNeitherCrashNorHang) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    const double values[] = {nan, inf, -inf, 0.0, -1.0, 1e300, -1e300, 1e-300};
    pws::set_pwserr({6, 0, 1000000, 0});  // count, but write no lines
    const auto start = std::chrono::steady_clock::now();
    for (double x : values) {
        for (double y : values) {
            pws::pws_pt(x);
            pws::psl1(x);
            pws::pws_tp(x);
            pws::pws_it(x);
            for (pws::Func2 f : {pws::pws_c1, pws::pws_c2, pws::pws_d1, pws::pws_d2, pws::pws_d3,
                                 pws::pws_e1, pws::pws_e2, pws::pws_e3, pws::pws_f1, pws::pws_f2,
                                 pws::pws_f3, pws::pws_h1, pws::pws_h2, pws::pws_h3, pws::pws_a3,
                                 pws::pws_ci, pws::pws_cj})
                f(x, y);
            double a = x, b = y;
            pws::pws_i1(pws::pws_d2, 10.0, x, a, b, 1e-8);
            a = x, b = y;
            pws::pws_i2(pws::pws_a3, 400.0, y, a, b, 1e-8);
            a = x, b = y;
            pws::pws_i3(a3_with_eps, 400.0, y, a, b, 1e-8);
            double xa = x, xb = y, ya = 1.0, yb = 50.0;
            pws::pws_id(s2_of_t_p, x, h2_of_t_p, y, xa, xb, ya, yb, 1e-8);
        }
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_GT(errors(), 0);
}

TEST_F(PwsIterations, ExportsTakeNullPointersWithoutCrashing) {
    double t = 20.0, a = 0.001, b = 0.002, eps = 1e-8;
    const std::int32_t code = 2;
    EXPECT_TRUE(std::isnan(pws_pt_(nullptr)));
    EXPECT_TRUE(std::isnan(pws_c1_(&t, nullptr)));
    EXPECT_TRUE(std::isnan(pws_i2_(nullptr, &t, &t, &a, &b, &eps)));
    EXPECT_TRUE(std::isnan(pws_i1_(pws_d2_, &t, &t, &a, nullptr, &eps)));
    comt3_(nullptr, &t);
    pws_id_(pws_e2_, &t, pws_d2_, nullptr, &a, &b, &a, &b, &eps);
    pwser_("X", nullptr, &t, &t, 1);
    pwser_("X", &code, &t, nullptr, 1);  // one quantity: x2 is not needed
    EXPECT_EQ(written(), (std::vector<std::string>{"6| *** PWSFTN-ERROR: Out of range, T=  2.00000000E+01 ***"}));
    EXPECT_EQ(errors(), 1);
}

}  // namespace
