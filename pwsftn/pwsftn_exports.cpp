// Host calling convention of the inverse routines and of the entry routine of
// the water-and-steam package.
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "host/ftn_text.hpp"
#include "ondrel/pwsftn.h"
#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_inverse.hpp"
#include "pwsftn/pwsftn.hpp"

namespace {

// A missing argument places no state.
std::int32_t call(std::int32_t (*fn)(pws::Context&, double&, double&, double), double* a, double* b,
                  const double* eps) {
    if (a == nullptr || b == nullptr || eps == nullptr) return 0;
    return fn(pws::default_context(), *a, *b, *eps);
}

// A missing argument gives a quiet NaN, as in the other functions of the package.
double call_aux(double (*fn)(pws::Context&, double, double, double), const double* x, const double* fixed,
                const double* eps) {
    if (x == nullptr || fixed == nullptr || eps == nullptr) return std::numeric_limits<double>::quiet_NaN();
    return fn(pws::default_context(), *x, *fixed, *eps);
}

}  // namespace

extern "C" {

int32_t pwsrpt_(double* a, double* b, const double* eps) { return call(pws::pwsrpt, a, b, eps); }
int32_t pwsrph_(double* a, double* b, const double* eps) { return call(pws::pwsrph, a, b, eps); }
int32_t pwsrps_(double* a, double* b, const double* eps) { return call(pws::pwsrps, a, b, eps); }
int32_t pwsrpu_(double* a, double* b, const double* eps) { return call(pws::pwsrpu, a, b, eps); }
int32_t pwsrpv_(double* a, double* b, const double* eps) { return call(pws::pwsrpv, a, b, eps); }
int32_t pwsrpx_(double* a, double* b, const double* eps) { return call(pws::pwsrpx, a, b, eps); }
int32_t pwsrtv_(double* a, double* b, const double* eps) { return call(pws::pwsrtv, a, b, eps); }
int32_t pwsrth_(double* a, double* b, const double* eps) { return call(pws::pwsrth, a, b, eps); }
int32_t pwsrtx_(double* a, double* b, const double* eps) { return call(pws::pwsrtx, a, b, eps); }
int32_t pwsrtu_(double* a, double* b, const double* eps) { return call(pws::pwsrtu, a, b, eps); }
int32_t pwsrts_(double* a, double* b, const double* eps) { return call(pws::pwsrts, a, b, eps); }
int32_t pwsrsx_(double* a, double* b, const double* eps) { return call(pws::pwsrsx, a, b, eps); }
int32_t pwsrhs_(double* a, double* b, const double* eps) { return call(pws::pwsrhs, a, b, eps); }
int32_t pwsrus_(double* a, double* b, const double* eps) { return call(pws::pwsrus, a, b, eps); }
int32_t pwsrvh_(double* a, double* b, const double* eps) { return call(pws::pwsrvh, a, b, eps); }
int32_t pwsrvs_(double* a, double* b, const double* eps) { return call(pws::pwsrvs, a, b, eps); }
int32_t pwsrvu_(double* a, double* b, const double* eps) { return call(pws::pwsrvu, a, b, eps); }

double pws_hp_(const double* p, const double* v, const double* eps) {
    return call_aux(pws::pws_hp, p, v, eps);
}
double pws_sp_(const double* p, const double* v, const double* eps) {
    return call_aux(pws::pws_sp, p, v, eps);
}
double pws_up_(const double* p, const double* v, const double* eps) {
    return call_aux(pws::pws_up, p, v, eps);
}
double pws_ht_(const double* t, const double* s, const double* eps) {
    return call_aux(pws::pws_ht, t, s, eps);
}
double pws_ut_(const double* t, const double* s, const double* eps) {
    return call_aux(pws::pws_ut, t, s, eps);
}

void pwsftn_(pws_inverse_routine xysub, const double* x, const double* y, const char* depend,
             double* result, size_t depend_len) {
    if (x == nullptr || y == nullptr || result == nullptr) return;
    // The host's routine, called in the host convention (a null routine places no state).
    auto host_routine = [xysub](pws::Context&, double& a, double& b, double eps) -> std::int32_t {
        return xysub == nullptr ? 0 : xysub(&a, &b, &eps);
    };
    const std::string_view text = ftn::view(depend, depend_len);
    pws::pwsftn(pws::default_context(), host_routine, *x, *y, text,
                std::span<double>(result, pws::key_count(text)));
}

}  // extern "C"
