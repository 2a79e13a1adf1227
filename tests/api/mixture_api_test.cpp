// The modern API of the mixture model: its states and properties agree with
// the exported routines, every fault is named, and arrays equal single calls.
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "fluiddata/od_types.hpp"
#include "ondrel/mixture.hpp"
#include "ondrel/ondrel_core.hpp"

namespace {

using ondrel::Fraction;
using ondrel::Pair;
using ondrel::Property;
using ondrel::Status;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

struct Case {
    const char* label;
    std::vector<Fraction> fractions;
};

const std::vector<Case>& cases() {
    static const std::vector<Case> c = {
        {"air", {{"N2", 0.7809}, {"O2", 0.2095}, {"AR", 0.0096}}},
        {"dry flue gas", {{"N2", 0.71}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.035}, {"AR", 0.005}}},
        {"condensing flue gas", {{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12}, {"O2", 0.035}, {"AR", 0.005}}},
        {"ash-laden flue gas",
         {{"N2", 0.70}, {"CO2", 0.13}, {"H2O", 0.12}, {"O2", 0.03}, {"AL2O3(S)", 0.012}, {"SIO2(S)", 0.008}}},
    };
    return c;
}

ondrel::Mixture make(const Case& c) {
    auto m = ondrel::Mixture::make(c.fractions);
    EXPECT_TRUE(m) << c.label << ": " << ondrel::message(m.status);
    return m.value;
}

// The legacy request of the same state, through the core of od_allprops_.
od::ondrel::AllProps legacy(const Case& c, const char* spec, double a, double b, int& err) {
    std::vector<od::CompName> names;
    std::vector<double> conc;
    for (const Fraction& f : c.fractions) {
        names.push_back(od::CompName::from(f.name));
        conc.push_back(f.x);
    }
    return od::ondrel::od_allprops(spec, a, b, static_cast<int>(names.size()), names, conc, err);
}

bool close(double modern, double old, double rel = 1e-12) {
    if (modern == old) return true;
    return std::fabs(modern - old) <= rel * std::fabs(old);
}

// SI value of a letter's quantity among the legacy properties (interface units).
double si(char letter, const od::ondrel::AllProps& r) {
    switch (letter) {
    case 'P': return r.P * 1e5;
    case 'T': return r.T + 273.15;
    case 'v': return r.v;
    case 'd': return r.d;
    case 'h': return r.h * 1e3;
    case 's': return r.s * 1e3;
    default: return r.u * 1e3;
    }
}

// Every pair, over a grid of states of four mixtures: the state is found
// again from the pair's values at it (within 1e-9, where the exported
// routines' searches stop within 5e-7 K or 1e-6 of the matched quantity),
// or the pair does not fix the state (an ideal gas's h or u and T), or
// several states reproduce the values and the answer says so.
TEST(MixtureApi, FindsTheStateAgainFromEveryPair) {
    ondrel::Context ctx;
    int found = 0, several = 0;
    for (const Case& c : cases()) {
        const ondrel::Mixture mix = make(c);
        for (double p : {0.5e5, 1.01325e5, 5e5}) {
            for (double t : {283.15, 318.15, 373.15, 873.15, 1673.15}) {
                const auto all = ondrel::properties(ctx, mix, {p, t});
                if (t < mix.t_min()) {
                    // Below the data of a solid: no properties, and no pair reaches the state.
                    EXPECT_EQ(all.status, Status::outside_data_range);
                    EXPECT_EQ(ondrel::solve(ctx, mix, Pair::PT, p, t).status, Status::outside_data_range);
                    continue;
                }
                ASSERT_TRUE(all);
                for (int k = 0; k < ondrel::pair_count; ++k) {
                    const auto pair = static_cast<Pair>(k);
                    const std::string spec(ondrel::name(pair));
                    auto value = [&](char l) {
                        const ondrel::AllProperties& a = all.value;
                        return l == 'P' ? a.P : l == 'T' ? a.T : l == 'v' ? a.v : l == 'd' ? a.d
                             : l == 'h' ? a.h : l == 's' ? a.s : a.u;
                    };
                    const auto st = ondrel::solve(ctx, mix, pair, value(spec[0]), value(spec[1]));
                    const std::string where = std::string(c.label) + " " + spec + " at " + std::to_string(p) +
                                              " Pa " + std::to_string(t) + " K";
                    if (!mix.condensing() && (spec == "Th" || spec == "Tu")) {
                        EXPECT_EQ(st.status, Status::pressure_undetermined) << where;
                        continue;
                    }
                    ASSERT_TRUE(st) << where << ": " << ondrel::message(st.status);
                    if (st.value.not_unique) {
                        ++several;
                        continue;
                    }
                    ++found;
                    EXPECT_TRUE(close(st.value.p, p, 1e-9)) << where << " p " << st.value.p;
                    EXPECT_TRUE(close(st.value.T, t, 1e-9)) << where << " T " << st.value.T;
                }
            }
        }
    }
    EXPECT_GT(found, 1000);
    EXPECT_LT(several, found / 20);
}

// Where the exported routines give a state that reproduces the inputs, the
// modern API gives the same state; the exported routines stop their
// searches within 5e-7 K or 1e-6 of the matched quantity (their nested
// searches compound it), hence 1e-7.
TEST(MixtureApi, AgreesWithTheExportedRoutinesWhereTheyReproduceTheInputs) {
    ondrel::Context ctx;
    int compared = 0;
    for (const Case& c : cases()) {
        const ondrel::Mixture mix = make(c);
        for (double p_bar : {0.5, 1.01325, 5.0}) {
            for (double t_c : {45.0, 100.0, 600.0, 1400.0}) {
                if (t_c + 273.15 < mix.t_min()) continue;
                int err = 0;
                const od::ondrel::AllProps base = legacy(c, "PT", p_bar, t_c, err);
                for (const char* spec : {"Ph", "Ps", "Pv", "Tv", "Ts", "vh", "vu", "hs"}) {
                    const double a = si(spec[0], base), b = si(spec[1], base);
                    auto interface = [&](char l, double x) {
                        return l == 'P' ? x * 1e-5 : l == 'T' ? x - 273.15 : (l == 'v' || l == 'd') ? x : x * 1e-3;
                    };
                    int e = 0;
                    const od::ondrel::AllProps old = legacy(c, spec, interface(spec[0], a), interface(spec[1], b), e);
                    const bool old_reproduces = e == 0 && close(si(spec[0], old), a, 1e-8) && close(si(spec[1], old), b, 1e-8);
                    if (!old_reproduces) continue;
                    const auto st = ondrel::solve(ctx, mix, ondrel::pair_from_name(spec).value,
                                                  a, b);
                    ASSERT_TRUE(st) << c.label << " " << spec;
                    if (st.value.not_unique) continue;  // the exported routines may hold another of the roots
                    ++compared;
                    EXPECT_TRUE(close(st.value.p, old.P * 1e5, 1e-7))
                        << c.label << " " << spec << " " << p_bar << " bar " << t_c << " C: p " << st.value.p << " T "
                        << st.value.T << ", exported " << old.P << " bar " << old.T << " C";
                    EXPECT_TRUE(close(st.value.T, old.T + 273.15, 1e-7)) << c.label << " " << spec;
                }
            }
        }
    }
    EXPECT_GT(compared, 300);
}

// At one state the sixteen properties, one by one and all at once, equal the
// exported routines' values converted to SI units (the conversion is the
// only difference).
TEST(MixtureApi, PropertiesEqualTheExportedOnesInSiUnits) {
    ondrel::Context ctx;
    for (const Case& c : cases()) {
        const ondrel::Mixture mix = make(c);
        int err = 0;
        const od::ondrel::AllProps old = legacy(c, "PT", 1.01325, 30.0, err);
        const ondrel::State st{101325.0, 303.15};
        const auto all = ondrel::properties(ctx, mix, st);
        ASSERT_TRUE(all);
        const double expected[] = {101325.0, 303.15, old.v, old.d, old.h * 1e3, old.s * 1e3, old.u * 1e3,
                                   old.cv * 1e3, old.dP_dT, old.dP_dv, old.d2P_dT2, old.d2P_dv2, old.d2P_dTdv,
                                   old.dCv_dT, old.eta, old.lambda};
        const double* got = &all.value.P;
        for (int k = 0; k < ondrel::legacy_property_count; ++k) {
            const auto one = ondrel::property(ctx, mix, st, static_cast<Property>(k));
            ASSERT_TRUE(one);
            EXPECT_EQ(one.value, got[k]) << c.label << " " << ondrel::name(static_cast<Property>(k));
            EXPECT_TRUE(close(got[k], expected[k], 1e-15)) << c.label << " " << ondrel::name(static_cast<Property>(k));
        }
    }
}

// State functions work for any mixture, with no earlier request of it.
TEST(MixtureApi, PropertiesNeedNoEarlierRequest) {
    ondrel::Context ctx;
    const ondrel::Mixture fuel = ondrel::Mixture::make({{"CH4", 0.9}, {"C2H6", 0.1}}).value;
    ASSERT_TRUE(fuel.valid());
    const auto h = ondrel::property(ctx, fuel, {1e5, 298.15}, Property::h);
    ASSERT_TRUE(h);
    EXPECT_LT(h.value, -3e6);  // methane's heat of formation dominates: about -4.5 MJ/kg
    EXPECT_GT(h.value, -5e6);
}

TEST(MixtureApi, MixtureFaultsAreNamed) {
    std::string detail;
    auto unknown = ondrel::Mixture::make({{"N2", 0.5}, {"XYZ", 0.5}}, &detail);
    EXPECT_EQ(unknown.status, Status::unknown_component);
    EXPECT_EQ(detail, "XYZ");
    EXPECT_EQ(ondrel::Mixture::make({{"N2", 0.5}, {"O2", 0.4}}).status, Status::invalid_composition);
    EXPECT_EQ(ondrel::Mixture::make({{"N2", 1.2}, {"O2", -0.2}}).status, Status::invalid_composition);
    EXPECT_EQ(ondrel::Mixture::make({{"N2", nan}}).status, Status::invalid_composition);
    EXPECT_EQ(ondrel::Mixture::make(std::span<const Fraction>()).status, Status::invalid_composition);
    EXPECT_EQ(ondrel::Mixture::make({{"N2LONGNAME", 1.0}}).status, Status::unknown_component);
    std::vector<Fraction> many(251, Fraction{"N2", 1.0 / 251});
    EXPECT_EQ(ondrel::Mixture::make(many).status, Status::too_many_components);
    const auto air = ondrel::Mixture::make({{"N2", 0.79}, {"O2", 0.21}});
    ASSERT_TRUE(air);
    EXPECT_NEAR(air.value.molar_mass(), 0.0288, 1e-4);
    EXPECT_FALSE(air.value.condensing());
}

TEST(MixtureApi, InputFaultsAreNamedAndNeverSolved) {
    ondrel::Context ctx;
    const ondrel::Mixture mix = make(cases()[2]);
    struct Bad {
        Pair pair;
        double a, b;
        Status want;
    };
    const Bad bad[] = {
        {Pair::Ph, 1e5, nan, Status::invalid_input},   {Pair::hs, nan, nan, Status::invalid_input},
        {Pair::Ps, inf, 7000.0, Status::invalid_input}, {Pair::PT, -1e5, 300.0, Status::non_positive_input},
        {Pair::Pv, 0.0, 1.0, Status::non_positive_input}, {Pair::Td, 300.0, -1.0, Status::non_positive_input},
        {Pair::Ph, 1e5, 1e12, Status::no_solution},
    };
    for (const Bad& b : bad) {
        const auto st = ondrel::solve(ctx, mix, b.pair, b.a, b.b);
        EXPECT_EQ(st.status, b.want) << ondrel::name(b.pair) << " " << b.a << " " << b.b;
    }
    std::string detail;
    EXPECT_EQ(ondrel::solve(ctx, mix, Pair::Ph, 1e5, 1e12, &detail).status, Status::no_solution);
    EXPECT_EQ(detail, "no state between 200 K and 6000 K reproduces Ph = (100000 Pa, 1000000000000 J/kg)");
    const ondrel::Mixture dry = make(cases()[1]);
    EXPECT_EQ(ondrel::solve(ctx, dry, Pair::Th, 300.0, 1e5).status, Status::pressure_undetermined);
    EXPECT_EQ(ondrel::solve(ctx, ondrel::Mixture{}, Pair::PT, 1e5, 300.0).status, Status::invalid_argument);
    EXPECT_EQ(ondrel::property(ctx, mix, {nan, 300.0}, Property::h).status, Status::invalid_input);
    EXPECT_EQ(ondrel::property(ctx, mix, {1e5, 0.0}, Property::h).status, Status::non_positive_input);
    EXPECT_EQ(ondrel::property(ctx, mix, {1e5, 300.0}, static_cast<Property>(99)).status, Status::unknown_property);
}

TEST(MixtureApi, NamesRoundTripAndUnknownNamesAreRefused) {
    for (int k = 0; k < ondrel::pair_count; ++k) {
        const auto p = static_cast<Pair>(k);
        EXPECT_EQ(ondrel::pair_from_name(ondrel::name(p)).value, p);
    }
    for (int k = 0; k < ondrel::property_count; ++k) {
        const auto p = static_cast<Property>(k);
        EXPECT_EQ(ondrel::property_from_name(ondrel::name(p)).value, p);
    }
    EXPECT_EQ(ondrel::pair_from_name("hP").status, Status::unknown_pair);
    EXPECT_EQ(ondrel::property_from_name("cp ").status, Status::unknown_property);
    EXPECT_EQ(ondrel::message(Status::unknown_component), "unknown component");
    EXPECT_EQ(ondrel::message(static_cast<Status>(1000)), "unknown status");
}

TEST(MixtureApi, GasTableFromAMissingFileSaysWhereItLooked) {
    std::string detail;
    const auto t = ondrel::load_gas_table_file("no/such/Ondrel.Dat", &detail);
    EXPECT_EQ(t.status, Status::gas_data_not_found);
    EXPECT_NE(detail.find("no/such/Ondrel.Dat"), std::string::npos);
    const auto own = ondrel::load_gas_table_file(ONDREL_SOURCE_DATA_DIR "Ondrel.Dat");
    ASSERT_TRUE(own);
    EXPECT_EQ(ondrel::component_count(*own.value), ondrel::component_count(*ondrel::default_gas_table().value));
}

// Arrays: bitwise the single calls, whatever the thread count; a failed
// point has NaN and its status, the others are untouched by it.
TEST(MixtureBatch, EqualsSingleCallsBitwiseForAnyThreadCount) {
    const ondrel::Mixture mix = make(cases()[2]);
    const std::size_t n = 3000;
    std::vector<double> p(n), h(n);
    ondrel::Context ctx;
    for (std::size_t i = 0; i < n; ++i) {
        p[i] = 0.5e5 + 1e3 * static_cast<double>(i % 400);
        const double t = 290.0 + 0.5 * static_cast<double>(i);
        h[i] = ondrel::property(ctx, mix, {p[i], t}, Property::h).value;
    }
    h[17] = nan;  // one bad point
    const Property props[] = {Property::T, Property::s, Property::cv, Property::lambda};
    std::vector<double> want(n * 4);
    std::vector<Status> want_status(n);
    for (std::size_t i = 0; i < n; ++i) {
        const auto st = ondrel::solve(ctx, mix, Pair::Ph, p[i], h[i]);
        want_status[i] = st.status;
        for (int k = 0; k < 4; ++k)
            want[i * 4 + k] = st ? ondrel::property(ctx, mix, st.value, props[k]).value : nan;
    }
    EXPECT_EQ(want_status[17], Status::invalid_input);
    for (unsigned threads : {1u, 2u, 8u}) {
        std::vector<double> out(n * 4);
        std::vector<Status> status(n);
        ASSERT_EQ(ondrel::evaluate(mix, Pair::Ph, p, h, props, out, status, threads), Status::ok);
        for (std::size_t i = 0; i < n; ++i) {
            ASSERT_EQ(status[i], want_status[i]) << i;
            for (int k = 0; k < 4; ++k) {
                const double a = out[i * 4 + k], b = want[i * 4 + k];
                ASSERT_TRUE(std::memcmp(&a, &b, sizeof a) == 0 || (std::isnan(a) && std::isnan(b)))
                    << threads << " threads, point " << i << " property " << k;
            }
        }
    }
}

TEST(MixtureBatch, MismatchedSizesAreRefusedUntouched) {
    const ondrel::Mixture mix = make(cases()[0]);
    std::vector<double> a(10, 1e5), b(9, 300.0), out(10, 42.0);
    std::vector<Status> status(10, Status::ok);
    const Property props[] = {Property::h};
    EXPECT_EQ(ondrel::evaluate(mix, Pair::PT, a, b, props, out, status), Status::invalid_argument);
    EXPECT_EQ(out[0], 42.0);
    EXPECT_EQ(ondrel::evaluate(ondrel::Mixture{}, Pair::PT, a, a, props, out, status), Status::invalid_argument);
}

}  // namespace
