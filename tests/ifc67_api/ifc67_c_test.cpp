// The C interface of the IFC-67 calls: the same results as the C++ calls,
// statuses by number, messages through the context, null arguments refused.
#include <gtest/gtest.h>

#include <string>

#include "ifc67_support.hpp"
#include "ondrel/c/ifc67.h"
#include "ondrel/c/status.h"
#include "tests/ifc67_api/ifc67_c_calls.h"

namespace {

using namespace ifc67_test;
namespace api = ondrel::ifc67;

static_assert(ONDREL_NOT_UNIQUE == static_cast<int>(Status::not_unique));
static_assert(ONDREL_OUT_OF_MEMORY == static_cast<int>(Status::out_of_memory));
static_assert(ONDREL_OUTSIDE_DATA_RANGE == static_cast<int>(Status::outside_data_range));

bool same_state(const ondrel_ifc67_state& c, const State& s) {
    return c.region == s.region && same_bits(c.p, s.p) && same_bits(c.T, s.T) && same_bits(c.v, s.v) &&
           same_bits(c.h, s.h) && same_bits(c.s, s.s) && same_bits(c.x, s.x);
}

TEST(Ifc67C, CallsFromCGiveTheResultsOfTheCppCalls) {
    for (const auto& [p, T] : {std::pair{1.0e5, 300.0}, {1.0e7, 700.0}, {2.5e7, 650.0}}) {
        SCOPED_TRACE(::testing::Message() << p << " " << T);
        ondrel_ifc67_state c[3];
        ondrel_ifc67_properties props;
        ASSERT_EQ(c_round_trip(p, T, c, &props), ONDREL_OK);
        Context ctx;
        const State s = api::from_pT(ctx, p, T).value;
        EXPECT_TRUE(same_state(c[0], s));
        EXPECT_TRUE(same_state(c[1], api::from_ph(ctx, p, s.h).value));
        EXPECT_TRUE(same_state(c[2], api::from_ps(ctx, p, s.s).value));
        const api::Properties q = api::properties(ctx, s).value;
        EXPECT_TRUE(same_bits(props.cp, q.cp) && same_bits(props.viscosity, q.viscosity) &&
                    same_bits(props.conductivity, q.conductivity));
    }
}

TEST(Ifc67C, MessagesAreReadAndClearedThroughTheContext) {
    char text[128];
    int code = -1, errors = -1;
    EXPECT_EQ(c_messages_out_of_range(text, sizeof text, &code, &errors), ONDREL_OUTSIDE_DATA_RANGE);
    EXPECT_EQ(std::string(text),
              " *** PWSFTN-ERROR: Out of range, P=  1.00000000E+03, T=  8.26850000E+02 ***");
    EXPECT_EQ(code, 12);
    EXPECT_EQ(errors, 1);
    EXPECT_EQ(std::string(ondrel_message(ONDREL_NOT_UNIQUE)), ondrel::message(Status::not_unique));
}

TEST(Ifc67C, StateIsZeroWhenNoneIsPlacedAndNullArgumentsAreRefused) {
    ondrel_ifc67_context* ctx = ondrel_ifc67_context_create();
    ASSERT_NE(ctx, nullptr);
    ondrel_ifc67_state s{1, 2, 3, 4, 5, 6, 7};
    EXPECT_EQ(ondrel_ifc67_from_Th(ctx, 573.15, 1.0e5, &s), ONDREL_NO_SOLUTION);
    EXPECT_EQ(s.region, 0);
    EXPECT_EQ(s.p, 0.0);
    EXPECT_EQ(ondrel_ifc67_message_count(ctx), 2u);
    EXPECT_EQ(ondrel_ifc67_message_code(ctx, 5), 0);  // out of range
    EXPECT_EQ(std::string(ondrel_ifc67_message_text(ctx, 2)), "");

    EXPECT_EQ(ondrel_ifc67_from_pT(nullptr, 1.0e5, 300.0, &s), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_ifc67_from_vu(ctx, 1.0, 2.0e6, nullptr), ONDREL_INVALID_ARGUMENT);
    ondrel_ifc67_properties props;
    EXPECT_EQ(ondrel_ifc67_state_properties(ctx, nullptr, &props), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_ifc67_state_properties(ctx, &s, nullptr), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_ifc67_state_properties(nullptr, &s, &props), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_ifc67_message_count(nullptr), 0u);
    EXPECT_EQ(ondrel_ifc67_error_count(nullptr), 0);
    EXPECT_EQ(ondrel_ifc67_message_code(nullptr, 0), 0);
    EXPECT_EQ(std::string(ondrel_ifc67_message_text(nullptr, 0)), "");
    ondrel_ifc67_clear_messages(nullptr);
    ondrel_ifc67_context_free(ctx);
    ondrel_ifc67_context_free(nullptr);
}

}  // namespace
