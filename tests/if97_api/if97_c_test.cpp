// The IF97 C interface, called from C (if97_c_calls.c): the same states
// and values as the C++ calls, the same statuses, and on failure the
// caller's struct or double left as it was.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <string>

#include "if97_c_calls.h"
#include "ondrel/if97.hpp"

namespace {
namespace api = ondrel::if97;
using ondrel::Status;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

ondrel::Result<api::State> (*const cpp_pairs[])(double, double) = {
    api::from_pT, api::from_ph, api::from_ps, api::from_pu, api::from_pv, api::from_px, api::from_Th,
    api::from_Ts, api::from_Tv, api::from_Tx, api::from_vh, api::from_vs, api::from_vu, api::from_hs};
ondrel::Result<double> (*const cpp_singles[])(double, double) = {api::v_pT, api::h_pT, api::u_pT, api::s_pT,
                                                                 api::cp_pT};

bool same(double a, double b) { return a == b || (std::isnan(a) && std::isnan(b)); }

void expect_same_state(const ondrel_if97_state& c, const api::State& s, const std::string& what) {
    EXPECT_TRUE(same(c.p, s.p)) << what;
    EXPECT_TRUE(same(c.T, s.T)) << what;
    EXPECT_TRUE(same(c.v, s.v)) << what;
    EXPECT_TRUE(same(c.rho, s.rho)) << what;
    EXPECT_TRUE(same(c.h, s.h)) << what;
    EXPECT_TRUE(same(c.s, s.s)) << what;
    EXPECT_TRUE(same(c.u, s.u)) << what;
    EXPECT_TRUE(same(c.cp, s.cp)) << what;
    EXPECT_TRUE(same(c.cv, s.cv)) << what;
    EXPECT_TRUE(same(c.w, s.w)) << what;
    EXPECT_TRUE(same(c.alpha, s.alpha)) << what;
    EXPECT_TRUE(same(c.kappa, s.kappa)) << what;
    EXPECT_TRUE(same(c.x, s.x)) << what;
    EXPECT_EQ(c.region, s.region) << what;
}

TEST(If97C, TablesListEveryPairAndSingleProperty) {
    ASSERT_EQ(c_pair_count, std::size(cpp_pairs));
    ASSERT_EQ(c_single_count, std::size(cpp_singles));
}

// Each pair from the values of states in every region and of a wet state:
// the C struct holds the C++ state field for field.
TEST(If97C, EveryPairFillsTheSameStateAsTheCppCall) {
    const api::State states[] = {api::from_pT(3e6, 300.0).value, api::from_pT(3.5e3, 700.0).value,
                                 api::from_pT(25e6, 650.0).value, api::from_pT(30e6, 1500.0).value,
                                 api::from_Tx(450.0, 0.3).value};
    for (const api::State& st : states) {
        const double in[] = {st.p, st.T, st.h, st.s, st.u, st.v, st.x};
        auto value = [&](char c) { return in[std::string("pThsuvx").find(c)]; };
        for (std::size_t k = 0; k < c_pair_count; ++k) {
            const std::string name = c_pairs[k].name;
            const std::string what = name + " region " + std::to_string(st.region);
            const double a = value(name[0]);
            const double b = value(name[1]);
            ondrel_if97_state c{};
            const int rc = c_pairs[k].fn(a, b, &c);
            const ondrel::Result<api::State> cpp = cpp_pairs[k](a, b);
            ASSERT_EQ(rc, static_cast<int>(cpp.status)) << what;
            if (rc == ONDREL_OK) expect_same_state(c, cpp.value, what);
        }
    }
}

TEST(If97C, SinglePropertiesAndTransportGiveTheCppValues) {
    for (std::size_t k = 0; k < c_single_count; ++k) {
        double c = 0.0;
        ASSERT_EQ(c_singles[k].fn(3e6, 300.0, &c), ONDREL_OK) << c_singles[k].name;
        EXPECT_EQ(c, cpp_singles[k](3e6, 300.0).value) << c_singles[k].name;
    }
    double eta = 0.0;
    double lambda = 0.0;
    int region = 0;
    ASSERT_EQ(c_transport_pT(3e6, 300.0, &eta, &lambda, &region), ONDREL_OK);
    const api::State st = api::from_pT(3e6, 300.0).value;
    EXPECT_EQ(region, 1);
    EXPECT_EQ(eta, api::viscosity(st).value);
    EXPECT_EQ(lambda, api::conductivity(st).value);
    double sigma = 0.0;
    ASSERT_EQ(ondrel_if97_surface_tension(300.0, &sigma), ONDREL_OK);
    EXPECT_EQ(sigma, api::surface_tension(300.0).value);
}

// Failures keep the caller's results; null pointers are refused.
TEST(If97C, FailuresLeaveTheResultsAsTheyWere) {
    for (std::size_t k = 0; k < c_pair_count; ++k) {
        ondrel_if97_state c;
        std::memset(&c, 0x5a, sizeof c);
        ondrel_if97_state before;
        std::memcpy(&before, &c, sizeof c);
        EXPECT_EQ(c_pairs[k].fn(nan, 1.0, &c), ONDREL_INVALID_INPUT) << c_pairs[k].name;
        EXPECT_EQ(std::memcmp(&c, &before, sizeof c), 0) << c_pairs[k].name;
        EXPECT_EQ(c_pairs[k].fn(1.0, 1.0, nullptr), ONDREL_INVALID_ARGUMENT) << c_pairs[k].name;
    }
    for (std::size_t k = 0; k < c_single_count; ++k) {
        double c = 42.0;
        EXPECT_EQ(c_singles[k].fn(1e5, 3000.0, &c), ONDREL_OUTSIDE_DATA_RANGE) << c_singles[k].name;
        EXPECT_EQ(c, 42.0) << c_singles[k].name;
        EXPECT_EQ(c_singles[k].fn(1e5, 300.0, nullptr), ONDREL_INVALID_ARGUMENT) << c_singles[k].name;
    }
    ondrel_if97_state wet{};
    ASSERT_EQ(ondrel_if97_from_Tx(400.0, 0.5, &wet), ONDREL_OK);
    double value = 42.0;
    EXPECT_EQ(ondrel_if97_viscosity(&wet, &value), ONDREL_NOT_AVAILABLE);
    EXPECT_EQ(ondrel_if97_conductivity(&wet, &value), ONDREL_NOT_AVAILABLE);
    EXPECT_EQ(ondrel_if97_surface_tension(700.0, &value), ONDREL_OUTSIDE_DATA_RANGE);
    EXPECT_EQ(value, 42.0);
    EXPECT_EQ(ondrel_if97_viscosity(nullptr, &value), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_if97_viscosity(&wet, nullptr), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_if97_conductivity(nullptr, &value), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_if97_conductivity(&wet, nullptr), ONDREL_INVALID_ARGUMENT);
    EXPECT_EQ(ondrel_if97_surface_tension(300.0, nullptr), ONDREL_INVALID_ARGUMENT);
}

}  // namespace
