// The IF97 adapter: what it sends to the IF97 library (codes, values,
// property text), what it does with the answers, and its own fluid data.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "if97_adapter/if97_qv.hpp"
#include "tests/if97_adapter/prop_cases.hpp"

namespace qv = od::if97_qv;

namespace {

constexpr double missing = -8888.8;
constexpr std::string_view no_errors = "No errors";

using if97_adapter_test::sent_text;

class If97Qv : public ::testing::Test {
protected:
    void SetUp() override { qv::reset_for_tests(); }
    std::string message = "unchanged";
};

class PropCases : public ::testing::TestWithParam<od::test::CsvRow> {
protected:
    void SetUp() override { qv::reset_for_tests(); }
};

TEST_P(PropCases, SendTheTranslatedLettersValuesAndTextAndGiveTheResult) {
    const if97_adapter_test::PropCase c(GetParam());
    std::string message = "unchanged";
    const double x = qv::if97_prop(c.spec, c.value1, c.value2, c.property, message);
    EXPECT_EQ(qv::state().code1, c.code1);
    EXPECT_EQ(qv::state().code2, c.code2);
    EXPECT_EQ(sent_text(), c.sent);
    EXPECT_NEAR(x, c.value, c.tolerance);
    EXPECT_EQ(message == no_errors, c.ok) << message;
    EXPECT_FALSE(message.empty());
}

INSTANTIATE_TEST_SUITE_P(Table, PropCases, od::test::rows_of("if97_adapter/prop_cases.csv"),
                         od::test::row_name);

TEST_F(If97Qv, GetinfoReturnsTheFixedFluidData) {
    EXPECT_EQ(qv::if97_getinfo("M_mol", message), 0.018015257);
    EXPECT_EQ(qv::if97_getinfo("T_crit", message), 373.946);
    EXPECT_EQ(qv::if97_getinfo("P_crit", message), 220.64);
    EXPECT_EQ(qv::if97_getinfo("T_min", message), 0.01000001);
    EXPECT_EQ(qv::if97_getinfo("T_max   ", message), 2000.0);
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, GetinfoRefusesAnyOtherNameCaseSensitively) {
    EXPECT_EQ(qv::if97_getinfo("t_max", message), 0.0);
    EXPECT_EQ(message, "Error in Quintaver: for IF97 no info available for t_max.");
    EXPECT_EQ(qv::if97_getinfo("M_mol2    ", message), 0.0);
    EXPECT_EQ(message, "Error in Quintaver: for IF97 no info available for M_mol2.");
    EXPECT_EQ(qv::if97_getinfo("", message), 0.0);
    EXPECT_EQ(message, "Error in Quintaver: for IF97 no info available for .");
}

TEST_F(If97Qv, GetfluidDefinesPureWaterOverTheWholeLists) {
    std::int32_t n = 3;
    std::vector<std::string> names{"N2", "O2", "AR"};
    std::vector<double> conc{0.2, 0.3, 0.5};
    qv::if97_getfluid(n, names, conc);
    EXPECT_EQ(n, 1);
    EXPECT_EQ(names, (std::vector<std::string>{"H2O", "?", "?"}));
    EXPECT_EQ(conc, (std::vector<double>{1.0, 0.0, 0.0}));
}

TEST_F(If97Qv, PropertyTextIsBlankPaddedAndCutToEightyCharacters) {
    qv::if97_prop("PT", 1.0, 20.0, "h", message);
    const std::string_view full = qv::state().property();
    ASSERT_EQ(full.size(), 80U);
    EXPECT_EQ(full.substr(0, 2), "h.");
    EXPECT_EQ(full.find_first_not_of(' ', 2), std::string_view::npos);
    const std::string long_list(100, 'h');
    qv::if97_prop("PT", 1.0, 20.0, long_list, message);
    EXPECT_EQ(qv::state().property(), std::string(80, 'h'));
}

TEST_F(If97Qv, PropsPresetsEveryEntryAndSendsListsUntranslated) {
    std::vector<double> r(4, 1.0);
    qv::if97_props("PT", 1.0, 20.0, "d,h", r, message);
    EXPECT_EQ(sent_text(), "d,h.");
    EXPECT_NEAR(r[0], 998.2, 0.1);  // the library's own density, not inverted
    EXPECT_NEAR(r[1], 84.0, 0.1);
    EXPECT_EQ(r[2], missing);
    EXPECT_EQ(r[3], missing);
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, PropsInvertsTheResultWhenTheWholeListIsD) {
    std::vector<double> r(2, 1.0);
    qv::if97_props("PT", 1.0, 20.0, "d", r, message);
    EXPECT_EQ(sent_text(), "v.");
    EXPECT_NEAR(r[0], 998.2, 0.1);
    EXPECT_EQ(r[1], missing);
}

TEST_F(If97Qv, AllpropsFillsTheOutputsFromTheFixedList) {
    const qv::AllProps a = qv::if97_allprops("PT", 1.0, 20.0, message);
    EXPECT_EQ(sent_text(), "p,t,v,h,s,u,x,cv,dv,tc.");
    EXPECT_EQ(message, no_errors);
    EXPECT_EQ(a.p, 1.0);
    EXPECT_EQ(a.t, 20.0);
    EXPECT_EQ(a.d, 1.0 / a.v);
    EXPECT_NEAR(a.h, 84.0, 0.1);
    EXPECT_NEAR(a.u, a.h - 100.0 * a.p * a.v, 1e-9);  // u = h - p v, bar m3/kg = 100 kJ/kg
    EXPECT_NEAR(a.cv, 4.157, 0.01);
    EXPECT_NEAR(a.eta, 1.0016e-3, 2e-6);
    EXPECT_NEAR(a.lambda, 0.598, 2e-3);
    EXPECT_EQ(a.first[0], 1.0 - a.x);
    EXPECT_EQ(a.second[0], a.x);
    for (std::size_t k = 1; k < a.first.size(); ++k) {
        EXPECT_EQ(a.first[k], missing);
        EXPECT_EQ(a.second[k], missing);
    }
}

TEST_F(If97Qv, AllpropsSplitsATwoPhaseStateIntoLiquidAndVapourFractions) {
    const qv::AllProps a = qv::if97_allprops("Pq", 1.0, 0.3, message);
    EXPECT_EQ(qv::state().code2, 'x');
    EXPECT_NEAR(a.x, 0.3, 1e-12);
    EXPECT_NEAR(a.first[0], 0.7, 1e-12);
    EXPECT_NEAR(a.second[0], 0.3, 1e-12);
    EXPECT_NEAR(a.t, 99.606, 1e-3);
}

TEST_F(If97Qv, AllpropsOfARefusedStateInvertsAndSplitsThePresets) {
    const qv::AllProps a = qv::if97_allprops("PT", -1.0, 20.0, message);
    EXPECT_NE(message, no_errors);
    EXPECT_EQ(a.v, missing);
    EXPECT_EQ(a.d, 1.0 / missing);
    EXPECT_EQ(a.first[0], 1.0 - missing);
    EXPECT_EQ(a.second[0], missing);
    EXPECT_EQ(a.lambda, missing);
}

TEST_F(If97Qv, ResetForTestsRestoresTheStateAtLoad) {
    qv::if97_prop("Tq", 100.0, 0.0, "P.", message);
    qv::reset_for_tests();
    EXPECT_EQ(qv::state().code1, ' ');
    EXPECT_EQ(qv::state().code2, ' ');
    EXPECT_EQ(qv::state().property(), std::string(80, ' '));
    EXPECT_EQ(qv::state().single_result, 0.0);
}

}  // namespace
