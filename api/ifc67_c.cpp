// The C interface of the IFC-67 typed calls: handles, null checks and
// structs in, the C++ calls, statuses out; no exception gets through.
#include "ondrel/c/ifc67.h"

#include <new>

#include "ondrel/c/status.h"
#include "ondrel/ifc67.hpp"

struct ondrel_ifc67_context {
    ondrel::ifc67::Context cpp;
};

namespace {

using ondrel::Result;
using ondrel::Status;
using ondrel::ifc67::Context;
using ondrel::ifc67::State;

ondrel_ifc67_state to_c(const State& s) { return {s.p, s.T, s.v, s.h, s.s, s.x, s.region}; }
State to_cpp(const ondrel_ifc67_state& s) { return {s.p, s.T, s.v, s.h, s.s, s.x, s.region}; }

// One input pair: the C++ call, its state copied out.
int pair(Result<State> (*call)(Context&, double, double), ondrel_ifc67_context* ctx, double first,
         double second, ondrel_ifc67_state* state) {
    if (ctx == nullptr || state == nullptr) return ONDREL_INVALID_ARGUMENT;
    try {
        const Result<State> r = call(ctx->cpp, first, second);
        *state = to_c(r.value);
        return static_cast<int>(r.status);
    } catch (const std::bad_alloc&) {
        *state = ondrel_ifc67_state{};
        return ONDREL_OUT_OF_MEMORY;
    }
}

const ondrel::ifc67::Message* message_at(const ondrel_ifc67_context* ctx, size_t index) {
    if (ctx == nullptr || index >= ctx->cpp.messages().size()) return nullptr;
    return &ctx->cpp.messages()[index];
}

}  // namespace

extern "C" {

ondrel_ifc67_context* ondrel_ifc67_context_create(void) {
    try {
        return new ondrel_ifc67_context{};
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void ondrel_ifc67_context_free(ondrel_ifc67_context* ctx) { delete ctx; }

int ondrel_ifc67_from_pT(ondrel_ifc67_context* ctx, double p, double T, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_pT, ctx, p, T, state);
}
int ondrel_ifc67_from_ph(ondrel_ifc67_context* ctx, double p, double h, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_ph, ctx, p, h, state);
}
int ondrel_ifc67_from_ps(ondrel_ifc67_context* ctx, double p, double s, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_ps, ctx, p, s, state);
}
int ondrel_ifc67_from_pu(ondrel_ifc67_context* ctx, double p, double u, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_pu, ctx, p, u, state);
}
int ondrel_ifc67_from_pv(ondrel_ifc67_context* ctx, double p, double v, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_pv, ctx, p, v, state);
}
int ondrel_ifc67_from_px(ondrel_ifc67_context* ctx, double p, double x, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_px, ctx, p, x, state);
}
int ondrel_ifc67_from_Tv(ondrel_ifc67_context* ctx, double T, double v, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_Tv, ctx, T, v, state);
}
int ondrel_ifc67_from_Th(ondrel_ifc67_context* ctx, double T, double h, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_Th, ctx, T, h, state);
}
int ondrel_ifc67_from_Tx(ondrel_ifc67_context* ctx, double T, double x, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_Tx, ctx, T, x, state);
}
int ondrel_ifc67_from_Tu(ondrel_ifc67_context* ctx, double T, double u, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_Tu, ctx, T, u, state);
}
int ondrel_ifc67_from_Ts(ondrel_ifc67_context* ctx, double T, double s, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_Ts, ctx, T, s, state);
}
int ondrel_ifc67_from_sx(ondrel_ifc67_context* ctx, double s, double x, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_sx, ctx, s, x, state);
}
int ondrel_ifc67_from_hs(ondrel_ifc67_context* ctx, double h, double s, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_hs, ctx, h, s, state);
}
int ondrel_ifc67_from_us(ondrel_ifc67_context* ctx, double u, double s, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_us, ctx, u, s, state);
}
int ondrel_ifc67_from_vh(ondrel_ifc67_context* ctx, double v, double h, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_vh, ctx, v, h, state);
}
int ondrel_ifc67_from_vs(ondrel_ifc67_context* ctx, double v, double s, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_vs, ctx, v, s, state);
}
int ondrel_ifc67_from_vu(ondrel_ifc67_context* ctx, double v, double u, ondrel_ifc67_state* state) {
    return pair(ondrel::ifc67::from_vu, ctx, v, u, state);
}

int ondrel_ifc67_state_properties(ondrel_ifc67_context* ctx, const ondrel_ifc67_state* state,
                                  ondrel_ifc67_properties* properties) {
    if (ctx == nullptr || state == nullptr || properties == nullptr) return ONDREL_INVALID_ARGUMENT;
    try {
        const Result<ondrel::ifc67::Properties> r = ondrel::ifc67::properties(ctx->cpp, to_cpp(*state));
        *properties = {r.value.cp, r.value.viscosity, r.value.conductivity};
        return static_cast<int>(r.status);
    } catch (const std::bad_alloc&) {
        *properties = ondrel_ifc67_properties{};
        return ONDREL_OUT_OF_MEMORY;
    }
}

size_t ondrel_ifc67_message_count(const ondrel_ifc67_context* ctx) {
    return ctx == nullptr ? 0 : ctx->cpp.messages().size();
}

int ondrel_ifc67_error_count(const ondrel_ifc67_context* ctx) {
    return ctx == nullptr ? 0 : ctx->cpp.error_count();
}

int ondrel_ifc67_message_code(const ondrel_ifc67_context* ctx, size_t index) {
    const ondrel::ifc67::Message* m = message_at(ctx, index);
    return m == nullptr ? 0 : m->code;
}

const char* ondrel_ifc67_message_text(const ondrel_ifc67_context* ctx, size_t index) {
    const ondrel::ifc67::Message* m = message_at(ctx, index);
    return m == nullptr ? "" : m->text.c_str();
}

void ondrel_ifc67_clear_messages(ondrel_ifc67_context* ctx) {
    if (ctx != nullptr) ctx->cpp.clear_messages();
}

}  // extern "C"
