// The ideal-gas mixture functions in the host calling convention: C linkage,
// every argument by reference, hidden text lengths last.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "host/ftn_text.hpp"
#include "host/host_mixture.hpp"
#include "ondrel/od_thermo.h"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"

namespace {

using od::CompName;
using od::Mixture;

CompName name_of(const char* text, std::size_t len) { return CompName::from(ftn::view(text, len)); }

char code_of(const char* text, std::size_t len) {
    const std::string_view v = ftn::view(text, len);
    return v.empty() ? ' ' : v.front();
}

// Concentrations of the functions that take names only.
constexpr std::array<double, od::max_components> no_conc{};

// True when every value argument is given.
template <class... T>
bool given(const T*... p) {
    return ((p != nullptr) && ...);
}

// Calls f(mixture), or returns the missing-value marker for a bad mixture or
// a missing value argument (values_given false).
template <class F>
double with_mixture(bool values_given, const std::int32_t* n, const char* names, const double* conc,
                    std::size_t len, F f) {
    if (!values_given) return od::missing_value;
    // Intended: a negative count is the empty mixture, as a count of 0.
    const od::HostMixture m = od::host_mixture(n, names, len, conc, od::NegativeCount::empty);
    if (!m.valid()) return od::missing_value;
    return f(m.mixture());
}

// f(values...) of the given values, or the missing-value marker.
template <class F, class... T>
double with_values(F f, const T*... p) {
    if (!given(p...)) return od::missing_value;
    return f(*p...);
}

}  // namespace

extern "C" {

double cp_0_(const char* name, const double* t, std::size_t len) {
    return with_values([&](double tk) { return od::basefuncs::cp_0(name_of(name, len), tk); }, t);
}
double h_0_(const char* name, const double* t, std::size_t len) {
    return with_values([&](double tk) { return od::basefuncs::h_0(name_of(name, len), tk); }, t);
}
double s_0_(const char* name, const double* p, const double* t, std::size_t len) {
    return with_values([&](double pa, double tk) { return od::basefuncs::s_0(name_of(name, len), pa, tk); }, p, t);
}
double dcv_dt_0_(const char* name, const double* t, std::size_t len) {
    return with_values([&](double tk) { return od::basefuncs::dcv_dt_0(name_of(name, len), tk); }, t);
}
double v_0_(const double* p, const double* t) { return with_values(od::basefuncs::v_0, p, t); }
double v_sl_(const char* name, std::size_t len) { return od::basefuncs::v_sl(name_of(name, len)); }
std::int32_t isinit_(const double* x) { return given(x) && od::basefuncs::isinit(*x) ? 1 : 0; }
std::int32_t isnotinit_(const double* x) { return given(x) && od::basefuncs::isnotinit(*x) ? 1 : 0; }

double tmin_(const std::int32_t* n, const char* names, std::size_t len) {
    return with_mixture(true, n, names, no_conc.data(), len, [](const Mixture& m) { return od::mixinfo::tmin(m); });
}
double tmax_(const std::int32_t* n, const char* names, std::size_t len) {
    return with_mixture(true, n, names, no_conc.data(), len, [](const Mixture& m) { return od::mixinfo::tmax(m); });
}
double mmol_(const std::int32_t* n, const char* names, const double* conc, std::size_t len) {
    return with_mixture(true, n, names, conc, len, [](const Mixture& m) { return od::mixinfo::mmol(m); });
}

// f(p, t, n, names, conc) of a mixture state, by the core function of the same name.
#define OD_STATE_EXPORT(ns, fn)                                                                    \
    double fn##_(const double* p, const double* t, const std::int32_t* n, const char* names,       \
                 const double* conc, std::size_t len) {                                            \
        return with_mixture(given(p, t), n, names, conc, len,                                      \
                            [&](const Mixture& m) { return od::ns::fn(*p, *t, m); });              \
    }
OD_STATE_EXPORT(thermodyn, h_pt)
OD_STATE_EXPORT(thermodyn, s_pt)
OD_STATE_EXPORT(thermodyn, cv_pt)
OD_STATE_EXPORT(thermodyn, v_pt)
OD_STATE_EXPORT(thermodyn, u_pt)
OD_STATE_EXPORT(thermodyn, x_gas)
OD_STATE_EXPORT(derivative, dp_dv)
OD_STATE_EXPORT(derivative, d2p_dv2)
OD_STATE_EXPORT(derivative, d2p_dtdv)
OD_STATE_EXPORT(transport, lambda_pt)
#undef OD_STATE_EXPORT

double h2o_(const char* spec1, const double* value1, const char* spec2, const double* value2,
            const char* property, std::size_t len1, std::size_t len2, std::size_t len3) {
    return with_values([&](double v1, double v2) {
        return od::h2o::h2o(code_of(spec1, len1), v1, code_of(spec2, len2), v2, ftn::trimmed(property, len3));
    }, value1, value2);
}
double h_h2o_(const double* xw, const double* p, const double* t) { return with_values(od::h2o::h_h2o, xw, p, t); }
double s_h2o_(const double* xw, const double* p, const double* t) { return with_values(od::h2o::s_h2o, xw, p, t); }
double cp_h2o_(const double* xw, const double* p, const double* t) { return with_values(od::h2o::cp_h2o, xw, p, t); }
double v_h2o_(const double* xw, const double* p, const double* t) { return with_values(od::h2o::v_h2o, xw, p, t); }

double dp_dt_(const double* p, const double* t) { return with_values(od::derivative::dp_dt, p, t); }
double d2p_dt2_() { return od::derivative::d2p_dt2(); }
double dcv_dt_(const double* t, const std::int32_t* n, const char* names, const double* conc, std::size_t len) {
    return with_mixture(given(t), n, names, conc, len, [&](const Mixture& m) { return od::derivative::dcv_dt(*t, m); });
}

double viscosity_(const double* t, const char* name, std::size_t len) {
    return with_values([&](double tk) { return od::transport::viscosity(tk, name_of(name, len)); }, t);
}
double thermcond_(const double* p, const double* t, const char* name, std::size_t len) {
    return with_values([&](double pa, double tk) { return od::transport::thermcond(pa, tk, name_of(name, len)); }, p, t);
}
double eta_t_(const double* t, const std::int32_t* n, const char* names, const double* conc, std::size_t len) {
    return with_mixture(given(t), n, names, conc, len, [&](const Mixture& m) { return od::transport::eta_t(*t, m); });
}

}  // extern "C"
