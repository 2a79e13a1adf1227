#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "if97/if97.h"
#include "if97/if97.hpp"

namespace {
constexpr double preset = -8888.8;

struct Call {
    std::vector<double> res;
    std::string msg;
};

Call call(char c1, double v1, char c2, double v2, std::string_view props, std::size_t n = 4) {
    Call c{std::vector<double>(n, preset), {}};
    if97::if97_main(c1, v1, c2, v2, props, c.res, c.msg);
    return c;
}

TEST(If97Main, ListEndsAtTheFirstFullStopSoDoubleStopsReadAsOneName) {
    const Call c = call('T', 100.0, 'x', 0.0, "P..");
    EXPECT_EQ(c.msg, "No errors");
    EXPECT_NEAR(c.res[0], 1.01417978, 1e-8);
    EXPECT_EQ(c.res[1], preset);
}

TEST(If97Main, NamesAreCaseInsensitiveAndBlanksAroundThemAreIgnored) {
    const Call c = call('P', 10.0, 'T', 100.0, " H , CP,s .");
    EXPECT_EQ(c.msg, "No errors");
    EXPECT_NEAR(c.res[0], 419.7741519, 1e-6);
    EXPECT_NEAR(c.res[1], 4.214577262, 1e-8);
    EXPECT_NEAR(c.res[2], 1.306311051, 1e-8);
}

TEST(If97Main, LettersOfThePairMayComeInEitherOrder) {
    const Call a = call('P', 10.0, 'h', 500.0, "t");
    const Call b = call('h', 500.0, 'P', 10.0, "t");
    EXPECT_EQ(a.msg, "No errors");
    EXPECT_EQ(a.res[0], b.res[0]);
    EXPECT_NEAR(a.res[0], 118.9753994, 1e-6);
}

TEST(If97Main, UnknownNameLeavesItsSlotAndNamesItWhileTheOthersAreFilled) {
    const Call c = call('P', 10.0, 'T', 100.0, "h,enthalpy,s");
    EXPECT_EQ(c.msg, "Unknown property name: enthalpy.");
    EXPECT_NE(c.res[0], preset);
    EXPECT_EQ(c.res[1], preset);
    EXPECT_NE(c.res[2], preset);
    const Call e = call('P', 10.0, 'T', 100.0, "h,,s");  // an empty name between commas
    EXPECT_EQ(e.msg, "Unknown property name: .");
    EXPECT_EQ(e.res[1], preset);
}

TEST(If97Main, UnknownPairsAreRejectedWithoutTouchingResults) {
    for (auto [a, b] : {std::pair{'P', 'P'}, {'h', 'u'}, {'q', 'T'}, {'d', 'T'}, {'s', 'x'}}) {
        const Call c = call(a, 1.0, b, 1.0, "h");
        EXPECT_EQ(c.msg, std::string("Unknown input pair: ") + a + b + ".");
        EXPECT_EQ(c.res[0], preset);
    }
}

TEST(If97Main, TwoPhaseMixtureLeavesPhaseDerivativesUnsetButGivesTheRest) {
    const Call c = call('T', 100.0, 'x', 0.5, "h,cp,w,dv,tc,kv,pr,st,x", 9);
    EXPECT_EQ(c.msg, "Property undefined in the two-phase region: cp.");
    EXPECT_NEAR(c.res[0], 1547.335592, 1e-5);
    for (int k = 1; k <= 6; ++k) EXPECT_EQ(c.res[k], preset) << k;
    EXPECT_NEAR(c.res[7], 0.05891186859, 1e-10);
    EXPECT_EQ(c.res[8], 0.5);
}

TEST(If97Main, QualityOfSinglePhaseStatesIsZeroForLiquidAndOneForVapour) {
    EXPECT_EQ(call('P', 10.0, 'T', 20.0, "x").res[0], 0.0);
    EXPECT_EQ(call('P', 10.0, 'T', 200.0, "x").res[0], 1.0);
    EXPECT_EQ(call('P', 1000.0, 'T', 380.0, "x").res[0], 0.0);  // dense region 3
    EXPECT_EQ(call('P', 300.0, 'T', 420.0, "x").res[0], 1.0);   // light region 3
}

TEST(If97Main, KinematicViscosityAndPrandtlNumberFollowFromTheirParts) {
    const Call c = call('P', 10.0, 'T', 100.0, "dv,d,tc,cp,kv,pr", 6);
    EXPECT_NEAR(c.res[4], c.res[0] / c.res[1], 1e-15);
    EXPECT_NEAR(c.res[5], c.res[0] * c.res[3] * 1e3 / c.res[2], 1e-12);
}

TEST(If97Main, OutOfRangeStatesNameTheirBound) {
    const std::string t_min = "Temperature below 0 degrees Celsius, the lower limit of IAPWS-IF97.";
    const std::string t_max =
        "Temperature above the upper limit of IAPWS-IF97 (800 degrees Celsius, or 2000 degrees Celsius up to 500 bar).";
    EXPECT_EQ(call('P', 10.0, 'T', -1.0, "h").msg, t_min);
    EXPECT_EQ(call('P', 1.0, 'h', -100.0, "t").msg, t_min);
    EXPECT_EQ(call('P', 600.0, 'T', 900.0, "h").msg, t_max);
    EXPECT_EQ(call('P', 1.0, 'h', 1e5, "t").msg, t_max);
    EXPECT_EQ(call('P', 1001.0, 'T', 20.0, "h").msg,
              "Pressure above the upper limit of IAPWS-IF97 (1000 bar, or 500 bar above 800 degrees Celsius).");
    EXPECT_EQ(call('T', 400.0, 'x', 0.5, "p").msg, "Temperature outside the saturation line (0 to 373.946 degrees Celsius).");
    EXPECT_EQ(call('P', 300.0, 'x', 0.5, "t").msg, "Pressure outside the saturation line (0.00611213 to 220.64 bar).");
}

TEST(If97Main, QualitiesOutsideZeroToOneAreRejected) {
    for (double x : {-0.01, 1.01, 1e300}) {
        const Call c = call('T', 100.0, 'x', x, "p");
        EXPECT_EQ(c.msg, "Vapour quality outside 0 to 1.");
        EXPECT_EQ(c.res[0], preset);
    }
}

TEST(If97Main, NonFiniteInputsGiveAMessageForEveryPair) {
    const double bad[] = {std::numeric_limits<double>::quiet_NaN(),
                          std::numeric_limits<double>::infinity(),
                          -std::numeric_limits<double>::infinity()};
    const char* pairs[] = {"PT", "Ph", "Ps", "Pu", "Pv", "Px", "Th", "Ts",
                           "Tv", "Tx", "hs", "vh", "vs", "vu"};
    for (const char* pr : pairs) {
        for (double b : bad) {
            const Call c1 = call(pr[0], b, pr[1], 1.0, "p,t");
            const Call c2 = call(pr[0], 1.0, pr[1], b, "p,t");
            EXPECT_EQ(c1.msg, "Input value is not a finite number.") << pr;
            EXPECT_EQ(c2.msg, "Input value is not a finite number.") << pr;
            EXPECT_EQ(c1.res[0], preset);
        }
    }
}

TEST(If97Main, AbsurdInputsEndWithAMessageAndNoResult) {
    const char* pairs[] = {"Ph", "Ps", "Pu", "Pv", "Th", "Ts", "Tv", "hs", "vh", "vs", "vu"};
    for (const char* pr : pairs) {
        for (auto [a, b] : {std::pair{1e300, 1e300}, {-1e300, 5.0}, {5.0, -1e300}, {-1e300, -1e300}}) {
            const Call c = call(pr[0], a, pr[1], b, "p,t");
            EXPECT_NE(c.msg, "No errors") << pr << " " << a << " " << b;
            EXPECT_EQ(c.res[1], preset) << pr;
        }
    }
}

TEST(If97Main, ShortResultsSpanIsNeverWrittenPastItsEnd) {
    std::vector<double> res(1, preset);
    std::string msg;
    if97::if97_main('P', 10.0, 'T', 100.0, "h,s,v", std::span<double>(res.data(), 1), msg);
    EXPECT_EQ(msg, "No errors");
    EXPECT_NEAR(res[0], 419.7741519, 1e-6);
}

TEST(If97Main, PropertyCountCountsNamesUpToTheFullStop) {
    EXPECT_EQ(if97::property_count("p,t,v,h,s,u,x,cv,dv,tc."), 10u);
    EXPECT_EQ(if97::property_count("P.."), 1u);
    EXPECT_EQ(if97::property_count("   "), 0u);
    EXPECT_EQ(if97::property_count(".h,s"), 0u);
}

TEST(If97Exports, MainTakesBlankPaddedTextWithHiddenLengths) {
    const char props[16] = {'h', ',', 's', '.', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' ', ' '};
    char message[40];
    double res[2] = {preset, preset};
    const double p = 10.0;
    const double t = 100.0;
    if97_main_("P", &p, "T", &t, props, res, message, 1, 1, sizeof props, sizeof message);
    EXPECT_EQ(std::string(message, sizeof message), std::string("No errors") + std::string(31, ' '));
    EXPECT_NEAR(res[0], 419.7741519, 1e-6);
    EXPECT_NEAR(res[1], 1.306311051, 1e-8);
}

TEST(If97Exports, LongMessagesAreCutToTheCallersWidth) {
    char message[10];
    double res[1] = {preset};
    const double p = 10.0;
    const double t = 100.0;
    if97_main_("P", &p, "T", &t, "zz", res, message, 1, 1, 2, sizeof message);
    EXPECT_EQ(std::string(message, sizeof message), "Unknown pr");
    EXPECT_EQ(res[0], preset);
}

TEST(If97Exports, VersionComesAsFourIntegers) {
    int32_t v[4] = {-1, -1, -1, -1};
    getversion_(&v[0], &v[1], &v[2], &v[3]);
    for (int32_t x : v) EXPECT_GE(x, 0);
}

}  // namespace
