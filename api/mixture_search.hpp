// The search of a mixture state from an input pair, and what the solver and
// the properties share with it: the value of a pair letter's quantity at a
// state and the scale its residual is measured against.
#pragma once
#include <limits>
#include <string_view>

#include "api/mixture_data.hpp"
#include "ondrel/mixture.hpp"
#include "solver/od_pair_search.hpp"
#include "thermo/od_context.hpp"

namespace ondrel::detail {

inline constexpr double residual_tolerance = 1e-9;  // relative residual of a solved state
// Scale of an energy residual per unit of R T / M, and of an entropy residual per unit of R / M:
// a heat capacity of four gas constants keeps the test meaningful where h or s pass through zero.
inline constexpr double residual_floor = 4.0;

// The temperature at which the condensing water's terms jump: below it the
// condensate is carried as ice-like, above it is liquid.
inline constexpr double t_triple = 273.16;  // K

// The value of a letter's quantity (P, T, v, d, h, s or u) at (p, T), SI units.
double quantity(od::Context& c, const MixtureData& m, char letter, double p, double t);
// The scale a residual of the letter's quantity is measured against.
double residual_scale(const MixtureData& m, char letter, double target, double t);

// Saturation pressure of the condensing water as the model forms it (IF97
// above the triple point, the sublimation line below), Pa; NaN above the
// critical temperature.
double saturation_pressure(od::Context& c, double t);

// How a state is searched. fast: by the quickest search that settles (for
// the condensing water a search corrected by the model's own values, the
// sampled one where it does not settle); sampled: by the sampled searches
// alone, every temperature piece and pressure decade sampled and each
// bracket closed.
enum class SearchMode { fast, sampled };

struct Search {
    State state;
    Status status = Status::ok;
    // The quantities of the pair's two letters at the state, where the search
    // evaluated them at exactly that state (NaN otherwise): the check of the
    // state takes them instead of evaluating them again.
    double at_state[2] = {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::quiet_NaN()};
};

// The corrected search of a temperature at a given pressure, for a mixture
// with condensing water (below): whether it serves the mixture (one
// "H2O(IF)" entry beside other gas-phase components), and the temperature
// in [lo, hi] where the letter's quantity (v, d, h, s or u) equals target,
// with the quantity there and the evaluations of the model it took; t is
// NaN where the search did not settle (the caller then samples).
bool corrected_search_serves(const MixtureData& m);
struct Settled {
    double t = std::numeric_limits<double>::quiet_NaN();
    double value = std::numeric_limits<double>::quiet_NaN();  // the quantity at t, as quantity() gives it
    int evaluations = 0;
};
Settled corrected_search(od::Context& c, const MixtureData& m, char letter, double target, double p, double lo,
                         double hi);

// The state of the pair spec with values a, b (SI units), not yet checked.
Search search_state(od::Context& c, const MixtureData& m, std::string_view spec, double a, double b,
                    SearchMode mode = SearchMode::fast);

// The pressure at temperature t where the quantity `letter` (v, d, h, s or
// u) equals target (the lowest where several do).
od::search::Root pressure_at(od::Context& c, const MixtureData& m, char letter, double target, double t,
                             SearchMode mode = SearchMode::fast);

// The checked solve of the modern API with the given search (the fast one
// for the API's callers; the sampled one is the reference the fast one is
// tested against).
Result<State> solve_state(Context& ctx, const Mixture& mix, Pair pair, double in1, double in2, SearchMode mode);

}  // namespace ondrel::detail
