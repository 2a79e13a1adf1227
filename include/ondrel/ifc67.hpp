// Water and steam by the 1967 IFC formulation for industrial use (IFC-67):
// one typed call per input pair, in SI units throughout.
//
// Units: pressure Pa, temperature K, specific volume m3/kg, specific enthalpy
// and internal energy J/kg, specific entropy and heat capacity J/(kg K),
// dynamic viscosity Pa s, thermal conductivity W/(m K); x is the dryness
// fraction (vapour mass fraction).
//
// Every call takes a Context, the mutable state of the package (its kept
// common terms and the messages of its calls). A context is cheap to create
// and serves one thread at a time; threads that each use their own context
// run concurrently, without locks, and get the same bits as one thread would.
//
// Messages: what the package reports (a state outside the range of the
// formulation, an iteration that ran out of steps, an input pair that no
// state has) is kept in the context, in order, and counted; nothing is
// written to any stream and the process is never stopped, however many
// errors are counted. The caller reads and clears them.
//
// Results: a value with a status. A state the package reports as outside its
// range gives Status::outside_data_range, an iteration that ran out of steps
// Status::not_converged; the value then holds the state as the package
// computed it (the equations evaluated outside their range, or the last
// iterate) and the messages tell the details. No value field ever carries a
// marker, and no call throws (except std::bad_alloc when memory runs out).
//
// The values equal those of the legacy entry routine pwsftn with the inverse
// routine of the pair, for the inputs converted to bar, degrees Celsius and
// kJ, to the rounding of that unit conversion.
#pragma once
#include <memory>
#include <string>
#include <vector>

#include "ondrel/export.h"
#include "ondrel/status.hpp"

namespace ondrel::ifc67 {

// A message of the package: the error code of a counted error (not 0; above
// 0 "Out of range", below 0 "Non converg.", the digits naming the quantities
// shown: 1 P, 2 T, 3 H, 4 V, 5 S), or 0 for a line that is not counted (an
// iteration warning, or a report that no state has the inputs). The text is
// the package's line, values in bar, degrees Celsius, m3/kg and kJ, e.g.
// " *** PWSFTN-ERROR: Out of range, P=  1.00000000E+03, T=  8.10000000E+02 ***".
struct Message {
    int code;
    std::string text;
};

// The package's mutable state and the messages of its calls.
struct Context {
    ONDREL_API Context();
    ONDREL_API ~Context();
    ONDREL_API Context(Context&& other) noexcept;
    ONDREL_API Context& operator=(Context&& other) noexcept;
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;

    // The messages of the calls since the last clear, in the order reported.
    const std::vector<Message>& messages() const noexcept { return messages_; }
    // The errors counted since the last clear (the messages whose code is not 0).
    int error_count() const noexcept { return errors_; }
    // Forgets the messages and the count (the kept common terms stay).
    void clear_messages() noexcept {
        messages_.clear();
        errors_ = 0;
    }

    struct Access;  // the calls' way in, defined with them

private:
    struct Package;
    std::unique_ptr<Package> package_;
    std::vector<Message> messages_;
    int errors_ = 0;
};

// A state of water or steam, with the region of the formulation it lies in:
//   1  sub-region 1, compressed liquid up to 350 C (623.15 K)
//   2  region 2, superheated vapour
//   3  region 3, vapour side of the critical region
//   4  region 3, liquid side (liquid between 623.15 K and 647.3 K)
//   5  wet, saturation temperature above 623.15 K (saturated phases from region 3)
//   6  wet, saturation temperature up to 623.15 K
// A wet state within 1e-6 of either saturated phase is that phase (region 1
// or 2, 4 or 3). x is 0 in regions 1 and 4 and 1 in regions 2 and 3.
struct State {
    double p;    // pressure, Pa
    double T;    // temperature, K
    double v;    // specific volume, m3/kg
    double h;    // specific enthalpy, J/kg
    double s;    // specific entropy, J/(kg K)
    double x;    // dryness fraction
    int region;  // 1 to 6, as above
};

// Properties of a single-phase state beyond those of State.
struct Properties {
    double cp;            // isobaric specific heat capacity, J/(kg K)
    double viscosity;     // dynamic viscosity, Pa s
    double conductivity;  // thermal conductivity, W/(m K)
};

// The state from an input pair. Inputs are checked first: NaN or infinite
// gives Status::invalid_input, a pressure or volume at or below zero
// Status::non_positive_input, a dryness fraction outside 0 to 1
// Status::outside_data_range; the package is not called then. A pair that
// no state has gives Status::no_solution (from_Th, from_Tu, from_us, from_sx),
// a wet state above the critical temperature Status::outside_data_range
// (from_Tx). Other pairs outside the range of the formulation are taken at
// the nearest state inside it, with Status::outside_data_range.
ONDREL_API Result<State> from_pT(Context& ctx, double p, double T);  // on the saturation line: not_unique
ONDREL_API Result<State> from_ph(Context& ctx, double p, double h);
ONDREL_API Result<State> from_ps(Context& ctx, double p, double s);
ONDREL_API Result<State> from_pu(Context& ctx, double p, double u);
ONDREL_API Result<State> from_pv(Context& ctx, double p, double v);
ONDREL_API Result<State> from_px(Context& ctx, double p, double x);
ONDREL_API Result<State> from_Tv(Context& ctx, double T, double v);
ONDREL_API Result<State> from_Th(Context& ctx, double T, double h);
ONDREL_API Result<State> from_Tx(Context& ctx, double T, double x);
ONDREL_API Result<State> from_Tu(Context& ctx, double T, double u);
ONDREL_API Result<State> from_Ts(Context& ctx, double T, double s);
ONDREL_API Result<State> from_sx(Context& ctx, double s, double x);
ONDREL_API Result<State> from_hs(Context& ctx, double h, double s);
ONDREL_API Result<State> from_us(Context& ctx, double u, double s);
ONDREL_API Result<State> from_vh(Context& ctx, double v, double h);
ONDREL_API Result<State> from_vs(Context& ctx, double v, double s);
ONDREL_API Result<State> from_vu(Context& ctx, double v, double u);

// Heat capacity, viscosity and conductivity of a single-phase state (regions
// 1 to 4), from its region's equations at (p, T) (regions 1, 2) or (v, T)
// (regions 3, 4); the viscosity and conductivity at (v, T). A wet state
// (regions 5, 6) gives Status::not_available, a region outside 1 to 6
// Status::invalid_argument, a NaN or infinite p, T or v Status::invalid_input.
ONDREL_API Result<Properties> properties(Context& ctx, const State& state);

}  // namespace ondrel::ifc67
