// Writes tests/data/pwsftn_legacy/legacy_outputs.csv: the outputs of the
// exported inverse routines and of the exported entry routine for a fixed
// sequence of calls, every double as a hex float, with the lines written and
// the error count after each call. The calls run in one process in table
// order, so the common-term caches carry from one row to the next as they do
// for a host.
//
// Run once to pin the package's behaviour:
//   record_legacy_outputs > tests/data/pwsftn_legacy/legacy_outputs.csv
// Each row: the routine is called directly with (x, y, 1.0E-8), then pwsftn_
// with the same routine, inputs and key list.
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "ondrel/pwsftn.h"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pwsftn.hpp"

namespace {

struct Routine {
    const char* name;
    pws_inverse_routine fn;
};

constexpr std::array<Routine, 17> routines{{
    {"pwsrpt", pwsrpt_},
    {"pwsrph", pwsrph_},
    {"pwsrps", pwsrps_},
    {"pwsrpu", pwsrpu_},
    {"pwsrpv", pwsrpv_},
    {"pwsrpx", pwsrpx_},
    {"pwsrtv", pwsrtv_},
    {"pwsrth", pwsrth_},
    {"pwsrtx", pwsrtx_},
    {"pwsrtu", pwsrtu_},
    {"pwsrts", pwsrts_},
    {"pwsrsx", pwsrsx_},
    {"pwsrhs", pwsrhs_},
    {"pwsrus", pwsrus_},
    {"pwsrvh", pwsrvh_},
    {"pwsrvs", pwsrvs_},
    {"pwsrvu", pwsrvu_},
}};

constexpr std::string_view all_keys = "P,T,V,H,S,X,CP,DV,TC";
constexpr double untouched = -12345.0;
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

std::vector<std::string> lines;

std::string hex(double x) {
    char buf[64];
    std::snprintf(buf, sizeof buf, "%a", x);
    return buf;
}

// A state with every quantity an input pair can name (bar, C, m3/kg, kJ/kg, kJ/(kg K)).
struct State {
    double p, t, v, h, s, u, x;
};

State state_of(pws_inverse_routine fn, double a, double b) {
    std::array<double, 6> r{};
    pwsftn_(fn, &a, &b, "P,T,V,H,S,X", r.data(), 11);
    return {r[0], r[1], r[2], r[3], r[4], r[3] - 100.0 * r[0] * r[2], r[5]};
}

int row_number = 0;

void row(const Routine& r, double x, double y, std::string_view depend = all_keys) {
    lines.clear();
    double a = x, b = y;
    const double eps = 1.0E-8;
    const std::int32_t ireg = r.fn(&a, &b, &eps);
    std::array<double, 24> res;
    res.fill(untouched);
    pwsftn_(r.fn, &x, &y, depend.data(), res.data(), depend.size());
    std::string values;
    const std::size_t n = pws::key_count(depend);
    for (std::size_t k = 0; k < n; ++k) {
        if (k > 0) values += ' ';
        values += res[k] == untouched ? std::string("-") : hex(res[k]);
    }
    std::string joined;
    for (std::size_t k = 0; k < lines.size(); ++k) {
        if (k > 0) joined += ';';
        joined += lines[k];
    }
    std::printf("%d,%s,%s,%s,\"%.*s\",%d,%s,%s,%s,%d,\"%s\"\n", ++row_number, r.name, hex(x).c_str(),
                hex(y).c_str(), static_cast<int>(depend.size()), depend.data(), ireg, hex(a).c_str(),
                hex(b).c_str(), values.c_str(), pwserr_.nerr, joined.c_str());
}

}  // namespace

int main() {
    pws::set_record_sink_for_tests([](int channel, std::string_view line) {
        lines.push_back(std::to_string(channel) + "|" + std::string(line));
    });
    // Single-phase states on a grid through every region and next to its
    // edges, and wet states through both wet regions.
    const double ps = [] {
        double t = 350.0;
        return pws_pt_(&t);
    }();
    const double pressures[] = {0.006112444, 0.01,  0.1,   1.0,   10.0,  50.0,  100.0,
                                ps,          200.0, 221.2, 250.0, 300.0, 500.0, 1000.0};
    const double temperatures[] = {0.01,  5.0,   20.0,  50.0,  100.0, 150.0, 200.0, 250.0, 300.0,
                                   340.0, 350.0, 352.0, 356.0, 362.0, 368.0, 372.0, 374.0, 374.15,
                                   380.0, 400.0, 450.0, 500.0, 590.0, 600.0, 700.0, 800.0};
    std::vector<State> single;
    for (double p : pressures)
        for (double t : temperatures) single.push_back(state_of(pwsrpt_, p, t));
    std::vector<State> wet;
    for (double t : {0.01, 100.0, 300.0, 350.0, 355.0, 372.0, 374.15})
        for (double x : {0.0, 1.0E-6, 0.4, 0.999999, 1.0}) wet.push_back(state_of(pwsrtx_, t, x));

    std::printf(
        "# Source: the exported inverse routines and pwsftn_ of this library before the reentrant "
        "core (record_legacy_outputs.cpp), calls in table order in one process\n");
    std::printf(
        "# Units: bar, C, m3/kg, kJ/kg, kJ/(kg K); doubles as hex floats; results '-' = entry "
        "untouched; nerr = pwserr_.nerr after the row; lines = channel|text, ';' between\n");
    std::printf("row,routine,x,y,depend,ireg,a,b,results,nerr,lines\n");

    // The inputs of a routine from a state, by the letters of its name.
    const auto value = [](char letter, const State& st) {
        switch (letter) {
        case 'p': return st.p;
        case 't': return st.t;
        case 'v': return st.v;
        case 'h': return st.h;
        case 's': return st.s;
        case 'u': return st.u;
        default: return st.x;
        }
    };
    for (std::size_t k = 0; k < routines.size(); ++k) {
        const Routine& r = routines[k];
        const char c1 = r.name[4], c2 = r.name[5];
        // Every sixth grid state, a different sixth for each routine; every
        // wet state; the full grid for the region selection.
        for (std::size_t i = 0; i < single.size(); ++i)
            if (k == 0 || i % 6 == k % 6) row(r, value(c1, single[i]), value(c2, single[i]));
        for (const State& st : wet) row(r, value(c1, st), value(c2, st));
        // Absurd and out-of-range inputs.
        const double edge[][2] = {{not_a_number, 1.0}, {1.0, not_a_number}, {inf, 1.0},     {-inf, 1.0},
                                  {0.0, 0.0},          {-5.0, 100.0},       {1e300, 1e300}, {2000.0, 3000.0},
                                  {0.001, 900.0},      {500.0, -100.0},     {3000.0, 20.0}, {1e-300, 5.0}};
        for (const auto& e : edge) row(r, e[0], e[1]);
        // The same out-of-range call twice in a row: the second finds the kept terms.
        const State& hot = single[single.size() - 1];
        row(r, value(c1, hot) * 1.01, value(c2, hot) * 1.01);
        row(r, value(c1, hot) * 1.01, value(c2, hot) * 1.01);
    }
    // pwsrpt on and beside the saturation line, on the selection boundary.
    for (double t : {0.01, 100.0, 200.0, 349.99, 350.0, 350.01, 360.0, 374.0, 374.15}) {
        const double p = pws_pt_(&t);
        for (double f : {1.0, 1.0 + 5e-9, 1.0 - 5e-9, 1.0 + 2e-8, 1.0 - 2e-8}) row(routines[0], p * f, t);
    }
    // Key lists.
    const std::string_view lists[] = {"H,S,V",    "T",
                                      "CP,H",     "ABCDE,H",
                                      "h",        "H.S",
                                      "H S",      ".",
                                      "H,,S",     "",
                                      "DV,TC,DV", "TC,CP,DV,X,P",
                                      "X",        "P,T,V,H,S,X,CP,DV,TC,"};
    for (std::string_view list : lists) {
        row(routines[1], 10.0, 3000.0, list);  // vapour
        row(routines[1], 1.0, 1500.0, list);   // wet
        row(routines[8], 360.0, 0.5, list);    // wet above 350 C
        row(routines[8], 380.0, 0.5, list);    // refused: illegal region
    }
    return 0;
}
