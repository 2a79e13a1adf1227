// The IF97 adapter: what it sends to the IF97 library (codes, values,
// property text), what it does with the answers, and its own fluid data.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "if97_adapter/if97_qv.hpp"

namespace qv = od::if97_qv;

namespace {

constexpr double missing = -8888.8;
constexpr std::string_view no_errors = "No errors";

// The property text sent to the library, trailing blanks removed.
std::string sent_text() {
    std::string_view t = qv::state().property();
    while (!t.empty() && t.back() == ' ') t.remove_suffix(1);
    return std::string(t);
}

class If97Qv : public ::testing::Test {
protected:
    void SetUp() override { qv::reset_for_tests(); }
    std::string message = "unchanged";
};

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

TEST_F(If97Qv, QualityAsSecondLetterIsSentAsXAndNameWithFullStopGetsTwo) {
    // Saturation pressure at 100 degrees Celsius: 1.01418 bar.
    const double p = qv::if97_prop("Tq", 100.0, 0.0, "P.", message);
    EXPECT_EQ(qv::state().code1, 'T');
    EXPECT_EQ(qv::state().code2, 'x');
    EXPECT_EQ(sent_text(), "P..");
    EXPECT_NEAR(p, 1.01418, 1e-5);
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, QualityAsFirstLetterIsPassedOnUntranslated) {
    const double t = qv::if97_prop("qP", 0.5, 1.0, "T", message);
    EXPECT_EQ(qv::state().code1, 'q');
    EXPECT_EQ(qv::state().code2, 'P');
    // The library does not know "q": the result keeps its preset.
    EXPECT_EQ(t, missing);
    EXPECT_NE(message, no_errors);
}

TEST_F(If97Qv, DensityAsFirstLetterIsSentAsSpecificVolume) {
    const double p_d = qv::if97_prop("dT", 1000.0, 20.0, "P", message);
    EXPECT_EQ(qv::state().code1, 'v');
    EXPECT_EQ(qv::state().code2, 'T');
    const double p_v = qv::if97_prop("vT", 1.0 / 1000.0, 20.0, "P", message);
    EXPECT_EQ(p_d, p_v);
    EXPECT_GT(p_d, 1.0);  // water compressed above 1000 kg/m3 at 20 degrees Celsius
}

TEST_F(If97Qv, DensityAsSecondLetterIsSentAsSpecificVolume) {
    const double t_d = qv::if97_prop("Pd", 10.0, 2.0, "T", message);
    EXPECT_EQ(qv::state().code1, 'P');
    EXPECT_EQ(qv::state().code2, 'v');
    EXPECT_EQ(t_d, qv::if97_prop("Pv", 10.0, 0.5, "T", message));
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, DensityOfZeroIsInvertedAndLeftToTheLibraryToReject) {
    const double t = qv::if97_prop("Pd", 10.0, 0.0, "T", message);
    EXPECT_EQ(qv::state().code2, 'v');
    EXPECT_EQ(t, missing);
    EXPECT_NE(message, no_errors);
}

TEST_F(If97Qv, PropertyDReturnsTheReciprocalOfTheSpecificVolume) {
    const double d = qv::if97_prop("PT", 1.0, 20.0, "d", message);
    EXPECT_EQ(sent_text(), "v.");
    const double v = qv::if97_prop("PT", 1.0, 20.0, "v", message);
    EXPECT_EQ(d, 1.0 / v);
    EXPECT_NEAR(d, 998.2, 0.1);
}

TEST_F(If97Qv, PropertyDIsInvertedEvenWhenTheLibraryFails) {
    const double d = qv::if97_prop("PT", -1.0, 20.0, "d", message);
    EXPECT_NE(message, no_errors);
    EXPECT_EQ(d, 1.0 / missing);
}

TEST_F(If97Qv, HostNamesAreTranslatedOnlyAsAWholeText) {
    const std::array<std::pair<std::string_view, std::string_view>, 9> cases{{
        {"q", "x."}, {"c", "w."}, {"eta", "dv."}, {"lambda   ", "tc."}, {"sigma", "st."},
        {"Eta", "Eta."}, {"h", "h."}, {"eta,c", "eta,c."}, {" d", " d."},
    }};
    for (const auto& [host, sent] : cases) {
        qv::if97_prop("PT", 1.0, 20.0, host, message);
        EXPECT_EQ(sent_text(), sent) << host;
    }
}

TEST_F(If97Qv, TranslatedNamesReachTheRightLibraryProperty) {
    // Values of python3-iapws 1.5.2 at 1 bar, 20 degrees Celsius.
    EXPECT_NEAR(qv::if97_prop("PT", 1.0, 20.0, "c", message), 1483.41677, 1e-4);  // m/s
    EXPECT_NEAR(qv::if97_prop("PT", 1.0, 20.0, "eta", message), 1.00159726e-3, 1e-11);  // Pa s
    EXPECT_NEAR(qv::if97_prop("PT", 1.0, 20.0, "lambda", message), 0.598010215, 1e-8);  // W/(m K)
    EXPECT_NEAR(qv::if97_prop("Tq", 20.0, 0.0, "sigma", message), 0.0727361404, 1e-9);  // N/m
    EXPECT_NEAR(qv::if97_prop("Pq", 1.0, 0.25, "q", message), 0.25, 1e-12);
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

TEST_F(If97Qv, LibraryMessagesArePassedOnWithTheResultLeftAtThePreset) {
    EXPECT_EQ(qv::if97_prop("PT", 1.0, 20.0, "foo", message), missing);
    EXPECT_NE(message, no_errors);
    EXPECT_FALSE(message.empty());
    EXPECT_EQ(qv::if97_prop("PT", 1.0, 20.0, "h", message) > 0.0, true);
    EXPECT_EQ(message, no_errors);
}

TEST_F(If97Qv, NonFiniteInputsGiveAMessageAndThePreset) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_EQ(qv::if97_prop("PT", nan, 20.0, "h", message), missing);
    EXPECT_NE(message, no_errors);
    EXPECT_EQ(qv::if97_prop("Ph", 1.0, inf, "T", message), missing);
    EXPECT_NE(message, no_errors);
    EXPECT_EQ(qv::if97_prop("", 1.0, 20.0, "h", message), missing);
    EXPECT_EQ(qv::state().code1, ' ');
    EXPECT_NE(message, no_errors);
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

TEST_F(If97Qv, ResetForTestsRestoresTheStateAtLoad) {
    qv::if97_prop("Tq", 100.0, 0.0, "P.", message);
    qv::reset_for_tests();
    EXPECT_EQ(qv::state().code1, ' ');
    EXPECT_EQ(qv::state().code2, ' ');
    EXPECT_EQ(qv::state().property(), std::string(80, ' '));
    EXPECT_EQ(qv::state().single_result, 0.0);
}

}  // namespace
