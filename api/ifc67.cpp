// IFC-67 water and steam through typed calls: SI inputs converted to the
// package's units once, the package's inverse routine and entry evaluation
// on the caller's context, the package's values converted back, and the
// messages it collected turned into the call's status.
#include "ondrel/ifc67.hpp"

#include <cmath>
#include <cstdint>
#include <utility>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pwsftn.hpp"

namespace ondrel::ifc67 {

// The package's context, collecting its lines instead of writing them.
struct Context::Package {
    pws::Context core{pws::Output::collect};
};

struct Context::Access {
    // The package context (a moved-from context gets a fresh one).
    static pws::Context& package(Context& ctx) {
        if (!ctx.package_) ctx.package_ = std::make_unique<Package>();
        return ctx.package_->core;
    }

    // The package context at the start of a call, its kept common terms
    // forgotten: the package reports a state out of range only when it
    // evaluates the state afresh, so a call that found the state of the call
    // before would miss the report. So a call's value, status and messages
    // depend on its inputs alone.
    static pws::Context& begin(Context& ctx) {
        pws::Context& core = package(ctx);
        pws::forget_terms(core);
        return core;
    }

    // Moves the lines the package kept during a call into the context's
    // messages; the status they amount to: an error of a state out of range,
    // else any other line (a non-convergence or an iteration that ran out of
    // steps), else ok.
    static Status collect(Context& ctx) {
        Status status = Status::ok;
        for (pws::Message& m : pws::take_messages(package(ctx))) {
            if (m.code > 0) status = Status::outside_data_range;
            else if (status == Status::ok) status = Status::not_converged;
            if (m.code != 0) ++ctx.errors_;
            ctx.messages_.push_back({m.code, std::move(m.text)});
        }
        return status;
    }
};

Context::Context() : package_(std::make_unique<Package>()) {}
Context::~Context() = default;
Context::Context(Context&& other) noexcept = default;
Context& Context::operator=(Context&& other) noexcept = default;

namespace {

// Units of the package: bar, degrees Celsius, kJ.
constexpr double bar_to_pa = 1.0e5;
constexpr double celsius_offset = pws::celsius_offset;  // K at 0 C
constexpr double kilo = 1.0e3;                          // J per kJ

enum class Quantity { p, T, v, h, s, u, x };

// An input value in the package's unit.
double to_package(Quantity q, double value) {
    switch (q) {
    case Quantity::p: return value / bar_to_pa;
    case Quantity::T: return value - celsius_offset;
    case Quantity::h:
    case Quantity::s:
    case Quantity::u: return value / kilo;
    case Quantity::v:
    case Quantity::x: break;
    }
    return value;
}

// The checks made before the package is called.
Status check(Quantity q, double value) {
    if (!std::isfinite(value)) return Status::invalid_input;
    if ((q == Quantity::p || q == Quantity::v) && value <= 0.0) return Status::non_positive_input;
    if (q == Quantity::x && (value < 0.0 || value > 1.0)) return Status::outside_data_range;
    return Status::ok;
}

// The state of a placed state, in SI units: the keys P, T, V, H, S, X of the
// entry routine.
State state_of(pws::Context& core, pws::PlacedState& st) {
    const auto value = [&](pws::Key key) { return pws::evaluate(core, key, st); };
    State s{};
    s.p = value(pws::Key::p) * bar_to_pa;
    s.T = value(pws::Key::t) + celsius_offset;
    s.v = value(pws::Key::v);
    s.h = value(pws::Key::h) * kilo;
    s.s = value(pws::Key::s) * kilo;
    s.x = value(pws::Key::x);
    s.region = st.ireg;
    return s;
}

// The state of an input pair by the package's inverse routine for it.
Result<State> solve(Context& ctx, pws::Inverse routine, Quantity q1, double in1, Quantity q2, double in2) {
    for (const Status s : {check(q1, in1), check(q2, in2)})
        if (s != Status::ok) return {State{}, s};
    pws::Context& core = Context::Access::begin(ctx);
    pws::PlacedState st;
    Result<State> r;
    const bool placed = pws::place(core, routine, to_package(q1, in1), to_package(q2, in2), st);
    if (placed) r.value = state_of(core, st);
    else pws::report_illegal_region(core, st.ireg);
    const Status reported = Context::Access::collect(ctx);
    if (!placed)
        r.status = st.ireg == pws::ireg_above_critical ? Status::outside_data_range : Status::no_solution;
    else
        r.status = reported;
    return r;
}

bool is_wet(int region) { return region == pws::ireg_wet || region == pws::ireg_wet_r3; }

}  // namespace

Result<State> from_pT(Context& ctx, double p, double T) {
    bool on_saturation_line = false;
    const auto routine = [&](pws::Context& core, double& a, double& b, double eps) {
        const std::int32_t ireg = pws::pwsrpt(core, a, b, eps);
        on_saturation_line = is_wet(ireg);
        return ireg;
    };
    Result<State> r = solve(ctx, routine, Quantity::p, p, Quantity::T, T);
    // Intended: on the saturation line (p, T) fixes no state. The value is
    // what the package makes of it: the pressure read as a dryness fraction,
    // one of at least 0.999999 bar as saturated vapour.
    if (on_saturation_line && r.status == Status::ok) r.status = Status::not_unique;
    return r;
}
Result<State> from_ph(Context& ctx, double p, double h) {
    return solve(ctx, pws::pwsrph, Quantity::p, p, Quantity::h, h);
}
Result<State> from_ps(Context& ctx, double p, double s) {
    return solve(ctx, pws::pwsrps, Quantity::p, p, Quantity::s, s);
}
Result<State> from_pu(Context& ctx, double p, double u) {
    return solve(ctx, pws::pwsrpu, Quantity::p, p, Quantity::u, u);
}
Result<State> from_pv(Context& ctx, double p, double v) {
    return solve(ctx, pws::pwsrpv, Quantity::p, p, Quantity::v, v);
}
Result<State> from_px(Context& ctx, double p, double x) {
    return solve(ctx, pws::pwsrpx, Quantity::p, p, Quantity::x, x);
}
Result<State> from_Tv(Context& ctx, double T, double v) {
    return solve(ctx, pws::pwsrtv, Quantity::T, T, Quantity::v, v);
}
Result<State> from_Th(Context& ctx, double T, double h) {
    return solve(ctx, pws::pwsrth, Quantity::T, T, Quantity::h, h);
}
Result<State> from_Tx(Context& ctx, double T, double x) {
    return solve(ctx, pws::pwsrtx, Quantity::T, T, Quantity::x, x);
}
Result<State> from_Tu(Context& ctx, double T, double u) {
    return solve(ctx, pws::pwsrtu, Quantity::T, T, Quantity::u, u);
}
Result<State> from_Ts(Context& ctx, double T, double s) {
    return solve(ctx, pws::pwsrts, Quantity::T, T, Quantity::s, s);
}
Result<State> from_sx(Context& ctx, double s, double x) {
    return solve(ctx, pws::pwsrsx, Quantity::s, s, Quantity::x, x);
}
Result<State> from_hs(Context& ctx, double h, double s) {
    return solve(ctx, pws::pwsrhs, Quantity::h, h, Quantity::s, s);
}
Result<State> from_us(Context& ctx, double u, double s) {
    return solve(ctx, pws::pwsrus, Quantity::u, u, Quantity::s, s);
}
Result<State> from_vh(Context& ctx, double v, double h) {
    return solve(ctx, pws::pwsrvh, Quantity::v, v, Quantity::h, h);
}
Result<State> from_vs(Context& ctx, double v, double s) {
    return solve(ctx, pws::pwsrvs, Quantity::v, v, Quantity::s, s);
}
Result<State> from_vu(Context& ctx, double v, double u) {
    return solve(ctx, pws::pwsrvu, Quantity::v, v, Quantity::u, u);
}

Result<Properties> properties(Context& ctx, const State& state) {
    const int region = state.region;
    if (region < pws::ireg_liquid || region > pws::ireg_wet) return {Properties{}, Status::invalid_argument};
    if (is_wet(region)) return {Properties{}, Status::not_available};
    for (const double q : {state.p, state.T, state.v})
        if (!std::isfinite(q)) return {Properties{}, Status::invalid_input};
    pws::Context& core = Context::Access::begin(ctx);
    const double t = to_package(Quantity::T, state.T);
    const double p = to_package(Quantity::p, state.p);
    Properties r{};
    switch (region) {
    case pws::ireg_liquid: r.cp = pws::pws_h1(core, p, t); break;
    case pws::ireg_vapour: r.cp = pws::pws_h2(core, p, t); break;
    default: r.cp = pws::pws_h3(core, state.v, t); break;
    }
    r.cp *= kilo;
    r.viscosity = pws::pws_ci(state.v, t);
    r.conductivity = pws::pws_cj(state.v, t);
    return {r, Context::Access::collect(ctx)};
}

}  // namespace ondrel::ifc67
