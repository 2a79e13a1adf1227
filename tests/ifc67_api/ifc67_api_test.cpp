// The typed IFC-67 calls against the legacy entry routine, their statuses,
// the messages they collect and the error limit they never reach.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <map>

#include "ifc67_support.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pwsftn.hpp"

namespace {

using namespace ifc67_test;
namespace api = ondrel::ifc67;

// The package's units, as the typed calls convert to them.
constexpr double pa_per_bar = 1.0e5;
constexpr double kelvin_at_0c = 273.15;
constexpr double j_per_kj = 1.0e3;

double to_legacy(char letter, double value) {
    switch (letter) {
    case 'p': return value / pa_per_bar;
    case 'T': return value - kelvin_at_0c;
    case 'h':
    case 's':
    case 'u': return value / j_per_kj;
    default: return value;
    }
}

pws::InverseFn legacy_routine(const std::string& pair) {
    static const std::map<std::string, pws::InverseFn> by_pair{
        {"pT", pws::pwsrpt}, {"ph", pws::pwsrph}, {"ps", pws::pwsrps}, {"pu", pws::pwsrpu},
        {"pv", pws::pwsrpv}, {"px", pws::pwsrpx}, {"Tv", pws::pwsrtv}, {"Th", pws::pwsrth},
        {"Tx", pws::pwsrtx}, {"Tu", pws::pwsrtu}, {"Ts", pws::pwsrts}, {"sx", pws::pwsrsx},
        {"hs", pws::pwsrhs}, {"us", pws::pwsrus}, {"vh", pws::pwsrvh}, {"vs", pws::pwsrvs},
        {"vu", pws::pwsrvu}};
    return by_pair.at(pair);
}

// The legacy package on its default context: fresh common terms, every line
// captured, nothing written.
class Ifc67Legacy : public ::testing::Test {
protected:
    void SetUp() override {
        pws::reset_error_for_tests();
        pws::reset_terms_for_tests();
        pws::set_record_sink_for_tests([this](int, std::string_view line) { lines.emplace_back(line); });
    }
    void TearDown() override { pws::reset_error_for_tests(); }

    struct Outcome {
        std::int32_t ireg;                 // of the inverse routine
        std::array<double, 6> values;      // P, T, V, H, S, X of pwsftn
        std::vector<std::string> written;  // lines of pwsftn
        int errors;                        // errors counted by pwsftn
    };
    // The inverse routine of a pair, then pwsftn with it from fresh common terms.
    Outcome legacy(const std::string& pair, double a, double b) {
        const pws::InverseFn fn = legacy_routine(pair);
        Outcome o{};
        double x = a, y = b;
        o.ireg = fn(x, y, pws::entry_eps);
        pws::reset_terms_for_tests();
        lines.clear();
        const int before = pws::pwserr().nerr;
        o.values.fill(std::numeric_limits<double>::quiet_NaN());
        pws::pwsftn(fn, a, b, "P,T,V,H,S,X", o.values);
        o.written = lines;
        o.errors = pws::pwserr().nerr - before;
        return o;
    }
    std::vector<std::string> lines;
};

// The region a state placed by the routine ends in: a wet state the entry
// routine took as a saturated phase shows X exactly 0 or 1.
int settled_region(std::int32_t ireg, double x) {
    if (ireg == pws::ireg_wet && (x == 0.0 || x == 1.0)) return x == 0.0 ? 1 : 2;
    if (ireg == pws::ireg_wet_r3 && (x == 0.0 || x == 1.0)) return x == 0.0 ? 4 : 3;
    return ireg;
}

std::vector<std::string> texts(const api::Context& ctx) {
    std::vector<std::string> out;
    for (const api::Message& m : ctx.messages()) out.push_back(m.text);
    return out;
}

// Inputs of every pair: the quantities of states through every region, and
// of states outside the range of the formulation (above 800 C, below the
// lowest pressure).
std::vector<std::pair<double, double>> inputs_of(const Pair& pair, const std::vector<State>& states) {
    std::vector<std::pair<double, double>> out;
    for (const State& s : states) out.push_back(inputs(pair, s));
    return out;
}

TEST_F(Ifc67Legacy, TypedCallsEqualTheEntryRoutineBitForBitWithItsMessages) {
    std::vector<State> all = states();
    Context ctx;
    for (const State& outside :
         {api::from_pT(ctx, 1.0e8, 1100.0).value, api::from_pT(ctx, 300.0, 500.0).value})
        all.push_back(outside);
    int placed = 0, reported = 0;
    for (const Pair& pair : pairs()) {
        for (const auto& [in1, in2] : inputs_of(pair, all)) {
            SCOPED_TRACE(::testing::Message() << pair.name << " " << in1 << " " << in2);
            api::Context c;
            const Result<State> r = pair.call(c, in1, in2);
            const Outcome o = legacy(pair.name, to_legacy(pair.name[0], in1), to_legacy(pair.name[1], in2));
            EXPECT_EQ(texts(c), o.written);
            EXPECT_EQ(c.error_count(), o.errors);
            if (o.ireg < 1 || o.ireg > 6) {
                EXPECT_EQ(r.status, o.ireg == pws::ireg_above_critical ? Status::outside_data_range
                                                                       : Status::no_solution);
                EXPECT_EQ(r.value.region, 0);
                continue;
            }
            ++placed;
            const State& s = r.value;
            EXPECT_TRUE(same_bits(s.p, o.values[0] * pa_per_bar)) << s.p;
            EXPECT_TRUE(same_bits(s.T, o.values[1] + kelvin_at_0c)) << s.T;
            EXPECT_TRUE(same_bits(s.v, o.values[2])) << s.v;
            EXPECT_TRUE(same_bits(s.h, o.values[3] * j_per_kj)) << s.h;
            EXPECT_TRUE(same_bits(s.s, o.values[4] * j_per_kj)) << s.s;
            EXPECT_TRUE(same_bits(s.x, o.values[5])) << s.x;
            EXPECT_EQ(s.region, settled_region(o.ireg, o.values[5]));
            const bool on_line = pair.name == "pT" && (o.ireg == pws::ireg_wet || o.ireg == pws::ireg_wet_r3);
            if (!o.written.empty()) ++reported;
            EXPECT_EQ(r.status, !o.written.empty() ? Status::outside_data_range
                                : on_line          ? Status::not_unique
                                                   : Status::ok);
        }
    }
    EXPECT_GT(placed, 3000);
    EXPECT_GT(reported, 50);
}

TEST_F(Ifc67Legacy, PropertiesEqualTheRegionEquationsAtTheConvertedState) {
    Context ctx;
    int compared = 0, through_entry = 0;
    for (const State& s : states()) {
        SCOPED_TRACE(::testing::Message() << "p=" << s.p << " T=" << s.T << " region " << s.region);
        const Result<api::Properties> r = api::properties(ctx, s);
        if (s.region >= 5) {
            EXPECT_EQ(r.status, Status::not_available);
            continue;
        }
        ++compared;
        const double p = s.p / pa_per_bar, t = s.T - kelvin_at_0c;
        const double cp = s.region == 1   ? pws::pws_h1(p, t)
                          : s.region == 2 ? pws::pws_h2(p, t)
                                          : pws::pws_h3(s.v, t);
        EXPECT_TRUE(same_bits(r.value.cp, cp * j_per_kj)) << r.value.cp;
        EXPECT_TRUE(same_bits(r.value.viscosity, pws::pws_ci(s.v, t)));
        EXPECT_TRUE(same_bits(r.value.conductivity, pws::pws_cj(s.v, t)));
        EXPECT_EQ(r.status, lines.empty() ? Status::ok : Status::outside_data_range);
        EXPECT_EQ(ctx.messages().size(), lines.size());
        // The entry routine at the converted state, where its routine places
        // it in the same region (not on the saturation line): the same to
        // the rounding of the conversion.
        const pws::InverseFn fn = legacy_routine(s.region <= 2 ? "pT" : "Tv");
        const double a = s.region <= 2 ? p : t, b = s.region <= 2 ? t : s.v;
        double a_out = a, b_out = b;
        if (fn(a_out, b_out, pws::entry_eps) == s.region) {
            ++through_entry;
            std::array<double, 3> e{};
            pws::pwsftn(fn, a, b, "CP,DV,TC", e);
            EXPECT_NEAR(r.value.cp, e[0] * j_per_kj, 1e-12 * r.value.cp);
            EXPECT_NEAR(r.value.viscosity, e[1], 1e-14 * r.value.viscosity);
            EXPECT_NEAR(r.value.conductivity, e[2] / 1e-3, 1e-14 * r.value.conductivity);
        }
        ctx.clear_messages();
        lines.clear();
    }
    EXPECT_GT(compared, 150);
    EXPECT_GT(through_entry, 140);
}

TEST(Ifc67Inputs, AreCheckedBeforeThePackageIsCalled) {
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double inf = std::numeric_limits<double>::infinity();
    Context ctx;
    struct Case {
        Call call;
        double a, b;
        Status status;
    };
    const Case cases[] = {
        {api::from_pT, nan, 300.0, Status::invalid_input},
        {api::from_ph, 1.0e5, inf, Status::invalid_input},
        {api::from_vh, -inf, 1.0e6, Status::invalid_input},
        {api::from_pT, 0.0, 300.0, Status::non_positive_input},
        {api::from_ps, -1.0e5, 1.0e3, Status::non_positive_input},
        {api::from_Tv, 500.0, 0.0, Status::non_positive_input},
        {api::from_vs, -1.0e-3, 7.0e3, Status::non_positive_input},
        {api::from_px, 1.0e5, -0.01, Status::outside_data_range},
        {api::from_Tx, 400.0, 1.01, Status::outside_data_range},
        {api::from_sx, 5.0e3, 2.0, Status::outside_data_range},
    };
    for (const Case& c : cases) {
        const Result<State> r = c.call(ctx, c.a, c.b);
        EXPECT_EQ(r.status, c.status) << c.a << " " << c.b;
        EXPECT_EQ(r.value.region, 0);
    }
    EXPECT_TRUE(ctx.messages().empty());
}

TEST(Ifc67Statuses, TellStatesTheInputsDoNotFixOrThatHaveNoneFromTheRest) {
    Context ctx;
    // On the saturation line (p, T) fixes no state; the package reads the
    // pressure as a dryness fraction, one of at least 0.999999 bar as vapour.
    for (double T : {373.15, 303.15}) {
        const State sat = api::from_Tx(ctx, T, 0.0).value;
        const Result<State> r = api::from_pT(ctx, sat.p, T);
        EXPECT_EQ(r.status, Status::not_unique);
        EXPECT_EQ(r.value.region, sat.p >= 0.999999 * 1e5 ? 2 : 6);
    }
    EXPECT_TRUE(ctx.messages().empty());
    // A wet state above the critical temperature, and (T, h) that no state has.
    EXPECT_EQ(api::from_Tx(ctx, 700.0, 0.5).status, Status::outside_data_range);
    EXPECT_EQ(api::from_Th(ctx, 573.15, 1.0e5).status, Status::no_solution);
    EXPECT_EQ(api::from_sx(ctx, 100.0, 0.5).status, Status::no_solution);
    EXPECT_EQ(ctx.error_count(), 0);
    for (const api::Message& m : ctx.messages()) EXPECT_EQ(m.code, 0) << m.text;
    // Properties need a single-phase state of a known region.
    State wet = api::from_Tx(ctx, 373.15, 0.5).value;
    EXPECT_EQ(api::properties(ctx, wet).status, Status::not_available);
    for (int region : {0, 7}) {
        State s = api::from_pT(ctx, 1.0e5, 300.0).value;
        s.region = region;
        EXPECT_EQ(api::properties(ctx, s).status, Status::invalid_argument);
    }
    State s = api::from_pT(ctx, 1.0e5, 300.0).value;
    s.v = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(api::properties(ctx, s).status, Status::invalid_input);
}

TEST(Ifc67Messages, AreCollectedInOrderCountedAndNeverWritten) {
    const int legacy_errors = pws::pwserr().nerr;
    Context ctx;
    ::testing::internal::CaptureStdout();
    ::testing::internal::CaptureStderr();
    const Result<State> hot = api::from_pT(ctx, 1.0e8, 1100.0);   // region 2 above 800 C
    const Result<State> none = api::from_Th(ctx, 573.15, 1.0e5);  // below every enthalpy of the isotherm
    const Result<State> again = api::from_pT(ctx, 1.0e8, 1100.0);
    EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");

    const std::string hot_line =
        " *** PWSFTN-ERROR: Out of range, P=  1.00000000E+03, T=  8.26850000E+02 ***";
    ASSERT_EQ(ctx.messages().size(), 4u);
    EXPECT_EQ(ctx.messages()[0].code, 12);
    EXPECT_EQ(ctx.messages()[0].text, hot_line);
    EXPECT_EQ(ctx.messages()[1].code, 0);
    EXPECT_EQ(ctx.messages()[1].text,
              " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE T= 3.000000000E+02 H= 1.000000000E+02");
    EXPECT_EQ(ctx.messages()[2].code, 0);
    EXPECT_EQ(ctx.messages()[2].text,
              " *** PWSFTN-ERROR: illegal region calculated: IREG =            0  ***");
    // A call repeated reports again: its status does not depend on the call before.
    EXPECT_EQ(ctx.messages()[3].text, hot_line);
    EXPECT_EQ(hot.status, Status::outside_data_range);
    EXPECT_EQ(again.status, Status::outside_data_range);
    EXPECT_TRUE(same(hot, again));
    EXPECT_EQ(hot.value.region, 2);
    EXPECT_EQ(none.status, Status::no_solution);
    EXPECT_EQ(ctx.error_count(), 2);

    ctx.clear_messages();
    EXPECT_TRUE(ctx.messages().empty());
    EXPECT_EQ(ctx.error_count(), 0);
    EXPECT_EQ(api::from_pT(ctx, 1.0e5, 300.0).status, Status::ok);
    EXPECT_TRUE(ctx.messages().empty());
    // The legacy record counts nothing of this.
    EXPECT_EQ(pws::pwserr().nerr, legacy_errors);

    // A moved-to context keeps the messages; a moved-from one still works.
    api::from_pT(ctx, 1.0e8, 1100.0);
    Context moved = std::move(ctx);
    EXPECT_EQ(moved.error_count(), 1);
    EXPECT_EQ(api::from_pT(ctx, 1.0e8, 1100.0).status, Status::outside_data_range);  // NOLINT: use after move
}

// Past the stop limit of the package's error record (1,000,000 errors) the
// typed calls go on, and even a legacy record that would stop at its first
// error does not stop them. Run in a child: a stop there would end it with
// status 0, the loop's end ends it with 42.
TEST(Ifc67Messages, ErrorLimitNeverStopsTheProcess) {
    EXPECT_EXIT(
        {
            pws::set_pwserr({pws::stdout_channel, 0, 0, 0});
            Context ctx;
            int outside = 0;
            const int calls = 1000001;
            for (int i = 0; i < calls; ++i) {
                outside += api::from_pT(ctx, 1.0e8, i % 2 == 0 ? 1100.0 : 1200.0).status ==
                           Status::outside_data_range;
                if (ctx.messages().size() >= 1000) ctx.clear_messages();
            }
            const bool counted = outside == calls && ctx.error_count() == calls % 1000;
            std::exit(counted && pws::pwserr().nerr == 0 ? 42 : 1);
        },
        ::testing::ExitedWithCode(42), "^$");
}

}  // namespace
