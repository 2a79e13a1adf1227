// Molar mass and temperature limits of mixtures.
#include "thermo/od_mixinfo.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace mi = od::mixinfo;

using Mixinfo = LoadedTable;

TEST_F(Mixinfo, OneComponentGivesItsOwnLimitsAndScaledMass) {
    const TestMix m{{"CO2", 0.4}};
    m.store();
    EXPECT_EQ(mi::tmin(m.mix()), row("CO2").tmin);
    EXPECT_EQ(mi::tmax(m.mix()), row("CO2").tmax);
    EXPECT_DOUBLE_EQ(mi::mmol(m.mix()), 0.4 * row("CO2").mmol);
}

TEST_F(Mixinfo, LimitsAreTheNarrowestOfTheComponents) {
    const TestMix m{{"N2", 0.5}, {"H2O(L)", 0.2}, {"SIO2(S)", 0.3}};
    m.store();
    const double lo = std::max({row("N2").tmin, row("H2O(L)").tmin, row("SIO2(S)").tmin});
    const double hi = std::min({row("N2").tmax, row("H2O(L)").tmax, row("SIO2(S)").tmax});
    EXPECT_EQ(mi::tmin(m.mix()), lo);
    EXPECT_EQ(mi::tmax(m.mix()), hi);
}

TEST_F(Mixinfo, ConcentrationsAreNotNormalised) {
    const TestMix m{{"N2", 0.5}, {"N2", 0.6}};
    m.store();
    EXPECT_DOUBLE_EQ(mi::mmol(m.mix()), 1.1 * row("N2").mmol);
}

TEST_F(Mixinfo, EmptyMixture) {
    const TestMix m;
    EXPECT_EQ(mi::tmin(m.mix()), 0.0);
    EXPECT_EQ(mi::tmax(m.mix()), 1e10);
    EXPECT_EQ(mi::mmol(m.mix()), 0.0);
}

}  // namespace
