// Shared by the IFC-67 API tests: the input pairs with their typed calls,
// states through every region, and the input values of a pair at a state.
#pragma once
#include <bit>
#include <cstdint>
#include <string>
#include <vector>

#include "ondrel/ifc67.hpp"

namespace ifc67_test {

using ondrel::Result;
using ondrel::Status;
using ondrel::ifc67::Context;
using ondrel::ifc67::State;

using Call = Result<State> (*)(Context&, double, double);

// An input pair: its letters in argument order (p, T, v, h, s, u, x) and its call.
struct Pair {
    std::string name;
    Call call;
};

inline const std::vector<Pair>& pairs() {
    namespace api = ondrel::ifc67;
    static const std::vector<Pair> all{{"pT", api::from_pT}, {"ph", api::from_ph}, {"ps", api::from_ps},
                                       {"pu", api::from_pu}, {"pv", api::from_pv}, {"px", api::from_px},
                                       {"Tv", api::from_Tv}, {"Th", api::from_Th}, {"Tx", api::from_Tx},
                                       {"Tu", api::from_Tu}, {"Ts", api::from_Ts}, {"sx", api::from_sx},
                                       {"hs", api::from_hs}, {"us", api::from_us}, {"vh", api::from_vh},
                                       {"vs", api::from_vs}, {"vu", api::from_vu}};
    return all;
}

// A quantity of a state by its letter (u = h - p v), SI units.
inline double quantity(char letter, const State& s) {
    switch (letter) {
    case 'p': return s.p;
    case 'T': return s.T;
    case 'v': return s.v;
    case 'h': return s.h;
    case 's': return s.s;
    case 'u': return s.h - s.p * s.v;
    default: return s.x;
    }
}

// The two input values of a pair at a state.
inline std::pair<double, double> inputs(const Pair& pair, const State& s) {
    return {quantity(pair.name[0], s), quantity(pair.name[1], s)};
}

// States through every region, beside the region edges, from (p, T) and
// wet states from (T, x), as the package gives them; the statuses of these
// calls are not looked at.
inline std::vector<State> states() {
    Context ctx;
    std::vector<State> out;
    for (double p : {1.0e3, 1.0e5, 1.0e6, 5.0e6, 1.0e7, 1.6535e7, 2.0e7, 2.5e7, 3.0e7, 5.0e7, 1.0e8})
        for (double T : {278.15, 323.15, 373.15, 473.15, 573.15, 613.15, 625.15, 633.15, 641.15, 646.15,
                         653.15, 673.15, 723.15, 773.15, 873.15, 1063.15})
            out.push_back(ondrel::ifc67::from_pT(ctx, p, T).value);
    for (double T : {273.16, 373.15, 573.15, 623.15, 628.15, 645.15, 647.3})
        for (double x : {0.0, 1.0e-6, 0.4, 0.999999, 1.0})
            out.push_back(ondrel::ifc67::from_Tx(ctx, T, x).value);
    return out;
}

inline bool same_bits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// Two results equal bit for bit: status, region and every value.
inline bool same(const Result<State>& a, const Result<State>& b) {
    const State &x = a.value, &y = b.value;
    return a.status == b.status && x.region == y.region && same_bits(x.p, y.p) && same_bits(x.T, y.T) &&
           same_bits(x.v, y.v) && same_bits(x.h, y.h) && same_bits(x.s, y.s) && same_bits(x.x, y.x);
}

}  // namespace ifc67_test
