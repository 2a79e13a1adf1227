// The ideal-gas mixture model for C++ callers: typed, reentrant, SI units.
//
//   auto gas = ondrel::Mixture::make({{"N2", 0.71}, {"CO2", 0.13}, {"H2O(IF)", 0.12},
//                                     {"O2", 0.035}, {"AR", 0.005}});
//   ondrel::Context ctx;                       // one per thread
//   auto st = ondrel::solve(ctx, gas.value, ondrel::Pair::Ph, 1.0e5, 2.0e5);
//   if (st) auto cp = ondrel::property(ctx, gas.value, st.value, ondrel::Property::cv);
//
// Units: pressure Pa, temperature K, specific volume m3/kg, density kg/m3,
// enthalpy and internal energy J/kg, entropy and heat capacities J/(kg K),
// viscosity Pa s, conductivity W/(m K). Enthalpies and entropies are those
// of the gas data: h = 0 for the elements in their standard state at
// 298.15 K; entropies are absolute, referred to 101325 Pa.
//
// Threads: a GasTable and a Mixture are immutable and may be shared freely;
// a Context holds what a call changes and belongs to one thread at a time.
// No call throws; every fault comes back as a Status.
#pragma once
#include <array>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ondrel/export.h"
#include "ondrel/status.hpp"

namespace od {
struct Context;
}

namespace ondrel {

// ---------------------------------------------------------------------------
// Gas table: every component of the gas data. Immutable once loaded.
class GasTable;

// The gas table of the configured source (the gas data file "Ondrel.Dat" in
// the fluid path, or the database record of that name), loaded exactly once
// per process however many threads ask first. gas_data_not_found when the
// source holds no component; detail (when given) then says where it looked.
ONDREL_API Result<std::shared_ptr<const GasTable>> default_gas_table(std::string* detail = nullptr);
// A gas table read from a gas data file.
ONDREL_API Result<std::shared_ptr<const GasTable>> load_gas_table_file(std::string_view path,
                                                                      std::string* detail = nullptr);
// A gas table read from the fluid database record "Ondrel.Dat" in directory.
ONDREL_API Result<std::shared_ptr<const GasTable>> load_gas_table_database(std::string_view directory,
                                                                          std::string* detail = nullptr);
// Number of components of a table.
ONDREL_API int component_count(const GasTable& table);

// ---------------------------------------------------------------------------
// Mixture: names resolved to table rows and per-mixture constants computed
// once; copying a Mixture is cheap (its data is shared and immutable).
struct Fraction {
    std::string_view name;  // gas-table name: "N2", "H2O(IF)" (condensing water), "AL2O3(S)", ...
    double x;               // mole fraction
};

namespace detail {
struct MixtureData;
}

class ONDREL_API Mixture {
public:
    // Fractions are checked: at least one component, at most 250, every
    // fraction finite and not negative, their sum one within 1e-6 (they are
    // used as given, never normalised). Faults: too_many_components,
    // invalid_composition, unknown_component (detail: the name),
    // gas_data_not_found (detail: where the data was looked for).
    static Result<Mixture> make(std::span<const Fraction> fractions, std::string* detail = nullptr);
    static Result<Mixture> make(std::initializer_list<Fraction> fractions, std::string* detail = nullptr);
    static Result<Mixture> make(std::shared_ptr<const GasTable> table, std::span<const Fraction> fractions,
                                std::string* detail = nullptr);

    Mixture() = default;  // an empty mixture: every call with it answers invalid_argument
    int size() const;                  // number of components
    double molar_mass() const;         // kg/mol
    double t_min() const;              // K, lower limit of the gas data of every component
    double t_max() const;              // K, upper limit
    bool condensing() const;           // holds "H2O(IF)"
    bool valid() const { return data_ != nullptr; }
    const detail::MixtureData& data() const { return *data_; }

private:
    std::shared_ptr<const detail::MixtureData> data_;
};

// ---------------------------------------------------------------------------
// Context: the mutable state of the mixture calls (saved values of the
// condensing water, the IF97 adapter's buffers). Cheap; one per thread.
class ONDREL_API Context {
public:
    Context();
    ~Context();
    Context(Context&&) noexcept;
    Context& operator=(Context&&) noexcept;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    od::Context& core() { return *core_; }

private:
    std::unique_ptr<od::Context> core_;
};

// ---------------------------------------------------------------------------
// Input pairs and properties.
enum class Pair { PT, TP, Pv, Pd, Ph, Ps, Pu, Tv, Td, Th, Ts, Tu, vh, vs, vu, dh, ds, du, hs, su };
inline constexpr int pair_count = 20;

// The properties of the mixture model: the sixteen of the exported routines,
// in their order, then those of the modern API alone.
//   cv        isochoric heat capacity with the phase amounts held, as the exported routines form it
//             (one R per mole of mixture subtracted from the cp sum, however much is condensed)
//   cp        isobaric heat capacity with the phase amounts held: cv + R/M
//   cp_eq     (dh/dT) at constant p of the model's h, condensation included; at the dew point the
//             derivative on the condensing side
//   cv_eq     (du/dT) at constant v of the model's u, condensation included
//   w         speed of sound of the gas phase (ideal gas, frozen composition, gas-table cp), m/s
//   kappa     isentropic exponent of the gas phase, cp/cv of its ideal-gas terms
//   x_gas     moles of gas phase (vapour included) per mole of mixture
//   x_condensed  moles of condensed water per mole of mixture
//   T_dew     dew point of "H2O(IF)" at the state's pressure, K (not_available without it, and
//             where the water's partial pressure is below that of the triple point: the model's
//             water condenses only from 273.16 K up)
//   rh        relative humidity of the gas phase: vapour partial pressure / saturation pressure
//             (not_available without "H2O(IF)" and above the critical temperature of water)
//   M         molar mass of the mixture, kg/mol;  R  its gas constant R/M, J/(kg K)
enum class Property {
    P, T, v, d, h, s, u, cv, dP_dT, dP_dv, d2P_dT2, d2P_dv2, d2P_dTdv, dCv_dT, eta, lambda,
    cp, cp_eq, cv_eq, w, kappa, x_gas, x_condensed, T_dew, rh, M, R
};
inline constexpr int property_count = 27;
inline constexpr int legacy_property_count = 16;  // P to lambda: the properties of the exported routines

// Names as the exported routines spell them: "PT", "Ph", ...; "h", "dP_dv", ...
ONDREL_API Result<Pair> pair_from_name(std::string_view name);
ONDREL_API std::string_view name(Pair pair);
ONDREL_API Result<Property> property_from_name(std::string_view name);
ONDREL_API std::string_view name(Property property);

// A state of the mixture: pressure and temperature. not_unique: solve found
// several states in the data range that reproduce the inputs and returned
// the one at the highest temperature (for a pair with a given temperature,
// the lowest pressure: the gas-like state, where the condensate's enthalpy
// rising with pressure gives a second one).
struct State {
    double p = 0.0;  // Pa
    double T = 0.0;  // K
    bool not_unique = false;
};

// The sixteen properties of the exported routines at one state, SI units, in the order of Property.
struct AllProperties {
    double P, T, v, d, h, s, u, cv;
    double dP_dT, dP_dv, d2P_dT2, d2P_dv2, d2P_dTdv, dCv_dT, eta, lambda;
};

// The state given by an input pair (values in SI units, in the pair's letter
// order), searched inside the mixture's data range [t_min, t_max] (pressures
// from 1 Pa to 1e8 Pa): a temperature alone with Newton's method (without
// condensing water; with it, from a cheap model of the mixture corrected by
// the model's values) or by sampling the range and closing each bracket; the
// pairs that give neither pressure nor temperature as one problem, both
// inputs at once. The state is checked: it reproduces both inputs within a
// relative 1e-9 of a scale of the input's kind, or the answer is
// no_solution (no state in the data range reproduces them).
// Faults: invalid_argument (empty mixture), unknown_pair, invalid_input (NaN
// or infinite), non_positive_input (pressure, volume or density at or below
// zero), pressure_undetermined ("Th", "Tu" without "H2O(IF)"), no_solution,
// not_converged.
// detail (when given) receives, on failure, a sentence naming the pair, its
// inputs and the data range, e.g. "no state between 200 K and 6000 K
// reproduces Ph = (100000 Pa, 1e+12 J/kg)".
ONDREL_API Result<State> solve(Context& ctx, const Mixture& mix, Pair pair, double in1, double in2,
                               std::string* detail = nullptr);

// One property at a state; all sixteen at once (one pass where they share work).
// A temperature outside the mixture's data range [t_min, t_max] is refused
// (outside_data_range): the gas data are not extrapolated.
// Without condensing water, v, d, s and u come from one pass over the
// components and may differ from the exported routines' sums in the last bits.
ONDREL_API Result<double> property(Context& ctx, const Mixture& mix, const State& state, Property prop);
ONDREL_API Result<AllProperties> properties(Context& ctx, const Mixture& mix, const State& state);
// The properties props at a state into out (same size): one pass over the
// components for all of them, the same bits as the single calls.
ONDREL_API Status properties(Context& ctx, const Mixture& mix, const State& state, std::span<const Property> props,
                             std::span<double> out);

// ---------------------------------------------------------------------------
// Arrays: point i has the inputs in1[i], in2[i]; out receives n rows of
// props.size() values (row-major), status n entries. A failed point has NaN
// in its row and its status. The points are split across `threads` threads
// (0: all cores), each with its own context; the results are bitwise those
// of a loop of single calls, whatever the thread count. Returns
// invalid_argument (and touches nothing) when the sizes do not match.
ONDREL_API Status evaluate(const Mixture& mix, Pair pair, std::span<const double> in1, std::span<const double> in2,
                           std::span<const Property> props, std::span<double> out, std::span<Status> status,
                           unsigned threads = 0);

}  // namespace ondrel
