// C interface of the IF97 calls: each function only checks its pointers,
// calls the C++ function and copies its result out.
#include "ondrel/c/if97.h"

#include "ondrel/if97.hpp"

namespace {
namespace api = ondrel::if97;

int code(ondrel::Status s) { return static_cast<int>(s); }

void copy(const api::State& in, ondrel_if97_state& out) {
    out.p = in.p;
    out.T = in.T;
    out.v = in.v;
    out.rho = in.rho;
    out.h = in.h;
    out.s = in.s;
    out.u = in.u;
    out.cp = in.cp;
    out.cv = in.cv;
    out.w = in.w;
    out.alpha = in.alpha;
    out.kappa = in.kappa;
    out.x = in.x;
    out.region = in.region;
}

api::State copy(const ondrel_if97_state& in) {
    return {in.p, in.T, in.v, in.rho, in.h, in.s, in.u, in.cp, in.cv, in.w, in.alpha, in.kappa, in.x, in.region};
}

int state_out(ondrel::Result<api::State> (*from)(double, double), double a, double b, ondrel_if97_state* out) {
    if (out == nullptr) return ONDREL_INVALID_ARGUMENT;
    const ondrel::Result<api::State> r = from(a, b);
    if (r) copy(r.value, *out);
    return code(r.status);
}

int value_out(const ondrel::Result<double>& r, double* out) {
    if (r) *out = r.value;
    return code(r.status);
}

int single_out(ondrel::Result<double> (*fn)(double, double), double p, double t, double* out) {
    if (out == nullptr) return ONDREL_INVALID_ARGUMENT;
    return value_out(fn(p, t), out);
}

int transport_out(ondrel::Result<double> (*fn)(const api::State&), const ondrel_if97_state* state, double* out) {
    if (state == nullptr || out == nullptr) return ONDREL_INVALID_ARGUMENT;
    return value_out(fn(copy(*state)), out);
}
}  // namespace

extern "C" {

int ondrel_if97_from_pT(double p, double T, ondrel_if97_state* state) { return state_out(api::from_pT, p, T, state); }
int ondrel_if97_from_ph(double p, double h, ondrel_if97_state* state) { return state_out(api::from_ph, p, h, state); }
int ondrel_if97_from_ps(double p, double s, ondrel_if97_state* state) { return state_out(api::from_ps, p, s, state); }
int ondrel_if97_from_pu(double p, double u, ondrel_if97_state* state) { return state_out(api::from_pu, p, u, state); }
int ondrel_if97_from_pv(double p, double v, ondrel_if97_state* state) { return state_out(api::from_pv, p, v, state); }
int ondrel_if97_from_Th(double T, double h, ondrel_if97_state* state) { return state_out(api::from_Th, T, h, state); }
int ondrel_if97_from_Ts(double T, double s, ondrel_if97_state* state) { return state_out(api::from_Ts, T, s, state); }
int ondrel_if97_from_Tv(double T, double v, ondrel_if97_state* state) { return state_out(api::from_Tv, T, v, state); }
int ondrel_if97_from_vh(double v, double h, ondrel_if97_state* state) { return state_out(api::from_vh, v, h, state); }
int ondrel_if97_from_vs(double v, double s, ondrel_if97_state* state) { return state_out(api::from_vs, v, s, state); }
int ondrel_if97_from_vu(double v, double u, ondrel_if97_state* state) { return state_out(api::from_vu, v, u, state); }
int ondrel_if97_from_hs(double h, double s, ondrel_if97_state* state) { return state_out(api::from_hs, h, s, state); }
int ondrel_if97_from_Tx(double T, double x, ondrel_if97_state* state) { return state_out(api::from_Tx, T, x, state); }
int ondrel_if97_from_px(double p, double x, ondrel_if97_state* state) { return state_out(api::from_px, p, x, state); }

int ondrel_if97_v_pT(double p, double T, double* value) { return single_out(api::v_pT, p, T, value); }
int ondrel_if97_h_pT(double p, double T, double* value) { return single_out(api::h_pT, p, T, value); }
int ondrel_if97_u_pT(double p, double T, double* value) { return single_out(api::u_pT, p, T, value); }
int ondrel_if97_s_pT(double p, double T, double* value) { return single_out(api::s_pT, p, T, value); }
int ondrel_if97_cp_pT(double p, double T, double* value) { return single_out(api::cp_pT, p, T, value); }

int ondrel_if97_viscosity(const ondrel_if97_state* state, double* value) {
    return transport_out(api::viscosity, state, value);
}
int ondrel_if97_conductivity(const ondrel_if97_state* state, double* value) {
    return transport_out(api::conductivity, state, value);
}

int ondrel_if97_surface_tension(double T, double* value) {
    if (value == nullptr) return ONDREL_INVALID_ARGUMENT;
    return value_out(api::surface_tension(T), value);
}

}  // extern "C"
