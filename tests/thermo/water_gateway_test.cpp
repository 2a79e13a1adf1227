// The condensing water's gateway to the IF97 library: asked directly (as the
// modern API's contexts ask it), a saturated phase has the bits of the
// library's own saturated state.
#include <bit>
#include <cmath>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "fluiddata/od_types.hpp"
#include "if97/if97_state.hpp"
#include "thermo/od_h2o.hpp"

namespace {

// The gateway asking the IF97 library directly gives a saturated phase with
// the bits of the library's full saturated state: over the saturation line
// from its lowest pressure to the critical one (both sides of the corner of
// regions 1 and 3, where the phases come from region 3), for each property,
// and the missing-value marker outside the line and for a wet quality.
TEST(WaterGateway, DirectSaturatedPhasesEqualTheFullSaturatedStates) {
    od::h2o::State st;
    st.direct = true;
    const double p623 = if97::psat_623() * 1e6;
    std::vector<double> ps = {611.657, 1e3, 7.0e3, 1e5, 1e6, 1e7, std::nextafter(p623, 0.0), p623,
                              std::nextafter(p623, 1e9), 2e7, 22.064e6};
    for (double p = 650.0; p < 22e6; p *= 1.37) ps.push_back(p);
    const std::pair<const char*, double if97::Properties::*> props[] = {
        {"H.", &if97::Properties::h}, {"S.", &if97::Properties::s}, {"V.", &if97::Properties::v},
        {"CP.", &if97::Properties::cp}};
    for (double p : ps) {
        for (double x : {0.0, 1.0}) {
            const if97::StateResult full = if97::state_px(p / 1e6, x);
            ASSERT_EQ(full.error, if97::Error::none) << p;
            for (const auto& [name, member] : props) {
                const double got = od::h2o::core::h2o(st, 'P', p, 'X', x, name);
                // kJ are turned into J by the gateway; v passes as it is.
                const double want = std::string_view(name) == "V." ? full.state.props.*member
                                                                    : full.state.props.*member * 1e3;
                EXPECT_EQ(std::bit_cast<std::uint64_t>(got), std::bit_cast<std::uint64_t>(want))
                    << name << " at " << p << " Pa, x = " << x << ": " << got << " vs " << want;
            }
        }
    }
    using od::h2o::core::h2o;
    EXPECT_EQ(h2o(st, 'P', 23e6, 'X', 1.0, "H."), od::missing_value);          // above the critical pressure
    EXPECT_EQ(h2o(st, 'P', 1e5, 'X', 0.5, "CP."), od::missing_value);          // no cp of a wet mixture
    EXPECT_EQ(h2o(st, 'P', 1e5, 'X', 1.0, "U."), od::missing_value);           // not a gateway property
    EXPECT_EQ(h2o(st, 'P', std::nan(""), 'X', 1.0, "H."), od::missing_value);  // no pressure
    // A wet state is the library's mixture of the two phases.
    const if97::StateResult wet = if97::state_px(0.1, 0.25);
    EXPECT_EQ(h2o(st, 'P', 1e5, 'X', 0.25, "H."), wet.state.props.h * 1e3);
}

}  // namespace
