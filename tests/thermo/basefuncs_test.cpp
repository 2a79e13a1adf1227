// Pure-component polynomials, molar volumes and the missing-value tests.
#include <cmath>
#include <limits>

#include "thermo/od_basefuncs.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace bf = od::basefuncs;
using od::CompName;

class Basefuncs : public LoadedTable {
protected:
    void SetUp() override {
        LoadedTable::SetUp();
        TestMix{{"N2", 1}, {"CO2", 1}, {"C(S)", 1}, {"SIO2(S)", 1}, {"AR", 1}, {"S(L)", 1}, {"FE2O3(S)", 1}}.store();
    }
};

TEST_F(Basefuncs, PolynomialsMatchTheGasDataCoefficients) {
    for (const char* name : {"N2", "CO2", "AR", "C(S)", "SIO2(S)", "H2O", "H2O(L)"}) {
        const CompName n = CompName::from(name);
        for (double t : {250.0, 298.15, 700.0, 1000.0, 1000.0001, 1800.0, 3000.0}) {
            const Row& r = row(name);
            EXPECT_NEAR(bf::cp_0(n, t), r.cp(t), 1e-12 * std::fabs(r.cp(t))) << name << " " << t;
            EXPECT_NEAR(bf::h_0(n, t), r.h(t), 1e-11 * (std::fabs(r.h(t)) + std::fabs(r.at(t)[5]) + t)) << name << t;
            EXPECT_NEAR(bf::dcv_dt_0(n, t), r.dcp(t), 1e-11 * (std::fabs(r.dcp(t)) + 1e-6)) << name << t;
        }
    }
}

TEST_F(Basefuncs, CpAtAndAbove1000KUsesLowerAndUpperRange) {
    auto poly = [](const std::array<double, 7>& a, double t) {
        return a[0] + t * (a[1] + t * (a[2] + t * (a[3] + t * a[4])));
    };
    const double t = 1000.0, u = 1000.0001;
    int told_apart = 0;
    for (const auto& [name, r] : gas_rows()) {
        if (r.coef[0][0] == 0.0 || r.coef[1][0] == 0.0) continue;
        TestMix{{name.c_str(), 1.0}}.store();
        const od::CompName n = CompName::from(name);
        const double low = poly(r.coef[1], u), high = poly(r.coef[0], u);
        EXPECT_NEAR(bf::cp_0(n, t), poly(r.coef[1], t), 1e-12 * std::fabs(low)) << name;
        EXPECT_NEAR(bf::cp_0(n, u), high, 1e-12 * std::fabs(high)) << name;
        if (std::fabs(low - high) > 1e-9 * std::fabs(high)) ++told_apart;
    }
    EXPECT_GT(told_apart, 5) << "too few gases whose ranges differ at 1000 K";
}

TEST_F(Basefuncs, EntropyOfAGasFallsByLn10PerDecadeOfPressure) {
    const CompName n2 = CompName::from("N2");
    const double at_ref = bf::s_0(n2, 101325.0, 500.0);
    EXPECT_NEAR(at_ref, row("N2").s(500.0), 1e-12 * std::fabs(at_ref));
    EXPECT_NEAR(bf::s_0(n2, 1013250.0, 500.0), at_ref - std::log(10.0), 1e-12);
}

TEST_F(Basefuncs, EntropyOfACondensedSpeciesIgnoresPressure) {
    for (const char* name : {"C(S)", "S(L)"}) {
        const CompName n = CompName::from(name);
        const double s = bf::s_0(n, 101325.0, 400.0);
        EXPECT_NEAR(s, row(name).s(400.0), 1e-12 * std::fabs(s));
        EXPECT_EQ(bf::s_0(n, 1e7, 400.0), s);
        EXPECT_EQ(bf::s_0(n, 1.0, 400.0), s);
    }
}

TEST_F(Basefuncs, IdealGasMolarVolume) {
    EXPECT_NEAR(bf::v_0(100000.0, 300.0), 0.0249429, 1e-9);
    EXPECT_EQ(bf::v_0(2e5, 300.0), 8.3143 * 300.0 / 2e5);
}

TEST_F(Basefuncs, CondensedMolarVolumeUsesTheSpeciesDensity) {
    EXPECT_DOUBLE_EQ(bf::v_sl(CompName::from("SIO2(S)")), row("SIO2(S)").mmol / 2400.0);
    EXPECT_DOUBLE_EQ(bf::v_sl(CompName::from("C(S)")), row("C(S)").mmol / 2250.0);
    EXPECT_DOUBLE_EQ(bf::v_sl(CompName::from("FE2O3(S)")), row("FE2O3(S)").mmol / 5200.0);
    EXPECT_DOUBLE_EQ(bf::v_sl(CompName::from("S(L)")), row("S(L)").mmol / 2000.0);
}

TEST_F(Basefuncs, UnlistedSpeciesDividesByTheMissingValueMarker) {
    EXPECT_DOUBLE_EQ(bf::v_sl(CompName::from("N2")), row("N2").mmol / -8888.8);
    EXPECT_LT(bf::v_sl(CompName::from("N2")), 0.0);
}

TEST(BasefuncsMarker, ToleranceOfOneTenth) {
    EXPECT_TRUE(bf::isinit(-8888.8));
    EXPECT_TRUE(bf::isinit(-8888.75));
    EXPECT_FALSE(bf::isinit(-8888.6));
    EXPECT_FALSE(bf::isinit(0.0));
    EXPECT_FALSE(bf::isnotinit(-8888.85));
    EXPECT_TRUE(bf::isnotinit(-8888.6));
    EXPECT_TRUE(bf::isnotinit(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_FALSE(bf::isinit(std::numeric_limits<double>::quiet_NaN()));
}

TEST_F(Basefuncs, BadTemperaturesAndPressuresGiveNonFiniteValuesWithoutCrashing) {
    const CompName n2 = CompName::from("N2");
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double inf = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(bf::cp_0(n2, nan)));
    EXPECT_TRUE(std::isnan(bf::s_0(n2, -1.0, 300.0)));
    EXPECT_TRUE(std::isinf(bf::s_0(n2, 0.0, 300.0)));
    EXPECT_FALSE(std::isfinite(bf::h_0(n2, inf)));
    EXPECT_TRUE(std::isinf(bf::v_0(0.0, 300.0)));
}

TEST_F(Basefuncs, UnknownNameGetsTheTableMissingValues) {
    const CompName xx = CompName::from("XX");
    // Every coefficient is the marker: cp/R = a1 + ... at T = 0 is a1.
    EXPECT_DOUBLE_EQ(bf::cp_0(xx, 0.0), od::missing_value);
}

}  // namespace
