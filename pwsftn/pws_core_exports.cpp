// Host calling convention of the error reporting, saturation line, region
// equations and iterations of the water-and-steam package.
#include <cstddef>
#include <limits>
#include <type_traits>

#include "host/ftn_text.hpp"
#include "ondrel/pwsftn.h"
#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

// The host's error record: the common block /PWSERR/ of a Fortran host.
pwserr_record pwserr_ = {pws::initial_error_record.iunit, pws::initial_error_record.maxmsg,
                         pws::initial_error_record.maxerr, pws::initial_error_record.nerr};

namespace {

static_assert(std::is_standard_layout_v<pwserr_record> && std::is_standard_layout_v<pws::ErrorRecord>);
static_assert(sizeof(pwserr_record) == sizeof(pws::ErrorRecord));
static_assert(offsetof(pwserr_record, iunit) == offsetof(pws::ErrorRecord, iunit));
static_assert(offsetof(pwserr_record, maxmsg) == offsetof(pws::ErrorRecord, maxmsg));
static_assert(offsetof(pwserr_record, maxerr) == offsetof(pws::ErrorRecord, maxerr));
static_assert(offsetof(pwserr_record, nerr) == offsetof(pws::ErrorRecord, nerr));

// The default context reports through the host's record from the start.
[[maybe_unused]] const bool record_bound = (pws::bind_error_record(pws::default_context(), &pwserr_), true);

// A null argument places no state: the routine returns a quiet NaN.
constexpr double no_value = std::numeric_limits<double>::quiet_NaN();

double call(double (*f)(pws::Context&, double), const double* x) {
    return x != nullptr ? f(pws::default_context(), *x) : no_value;
}

double call(pws::RegionFn f, const double* x, const double* y) {
    return x != nullptr && y != nullptr ? f(pws::default_context(), *x, *y) : no_value;
}

double call_plain(double (*f)(double, double), const double* x, const double* y) {
    return x != nullptr && y != nullptr ? f(*x, *y) : no_value;
}

template <typename... P>
bool all_given(const P*... args) {
    return ((args != nullptr) && ...);
}

// A host procedure as the iterations call it: arguments by reference.
auto host2(pws_func2 f) {
    return [f](pws::Context&, double a, double b) { return f(&a, &b); };
}

}  // namespace

extern "C" {

void pwser_(const char* name, const int32_t* icode, const double* x1, const double* x2,
            size_t name_len) {
    if (icode == nullptr) return;
    // x2 is only shown for a two-quantity code; a caller may leave it out.
    pws::pwser(pws::default_context(), ftn::trimmed(name, name_len), *icode, x1 != nullptr ? *x1 : no_value,
               x2 != nullptr ? *x2 : no_value);
}

void pws_set_channel13_file_(const char* path, int32_t* ierr, size_t path_len) {
    const bool ok = pws::set_channel13_file(pws::default_context(), ftn::trimmed(path, path_len));
    if (ierr != nullptr) *ierr = ok ? 0 : 1;
}

void pws_set_channel13_callback_(pws_line_callback callback) {
    pws::set_channel13_callback(pws::default_context(), callback);
}

void pws_set_channel13_stderr_(void) { pws::set_channel13_stderr(pws::default_context()); }

double pws_pt_(const double* t) { return call(pws::pws_pt, t); }
double psl1_(const double* t) { return call(pws::psl1, t); }
double psl1_slope_(void) { return pws::psl1_slope(pws::default_context()); }
double pws_tp_(const double* p) { return call(pws::pws_tp, p); }
void comt1_(const double* p, const double* t) {
    if (all_given(p, t)) pws::comt1(pws::default_context(), *p, *t);
}
void comt2_(const double* p, const double* t) {
    if (all_given(p, t)) pws::comt2(pws::default_context(), *p, *t);
}
void comt3_(const double* v, const double* t) {
    if (all_given(v, t)) pws::comt3(pws::default_context(), *v, *t);
}

double pws_c1_(const double* p, const double* t) { return call(pws::pws_c1, p, t); }
double pws_c2_(const double* p, const double* t) { return call(pws::pws_c2, p, t); }
double pws_d1_(const double* p, const double* t) { return call(pws::pws_d1, p, t); }
double pws_d2_(const double* p, const double* t) { return call(pws::pws_d2, p, t); }
double pws_d3_(const double* v, const double* t) { return call(pws::pws_d3, v, t); }
double pws_e1_(const double* p, const double* t) { return call(pws::pws_e1, p, t); }
double pws_e2_(const double* p, const double* t) { return call(pws::pws_e2, p, t); }
double pws_e3_(const double* v, const double* t) { return call(pws::pws_e3, v, t); }
double pws_f1_(const double* p, const double* t) { return call(pws::pws_f1, p, t); }
double pws_f2_(const double* p, const double* t) { return call(pws::pws_f2, p, t); }
double pws_f3_(const double* v, const double* t) { return call(pws::pws_f3, v, t); }
double pws_h1_(const double* p, const double* t) { return call(pws::pws_h1, p, t); }
double pws_h2_(const double* p, const double* t) { return call(pws::pws_h2, p, t); }
double pws_h3_(const double* v, const double* t) { return call(pws::pws_h3, v, t); }
double pws_a3_(const double* v, const double* t) { return call(pws::pws_a3, v, t); }
double pws_ci_(const double* v, const double* t) { return call_plain(pws::pws_ci, v, t); }
double pws_cj_(const double* v, const double* t) { return call_plain(pws::pws_cj, v, t); }

double pws_i1_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    return pws::pws_i1(pws::default_context(), host2(f), *fixed, *target, *a, *b, *eps);
}

double pws_i2_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    return pws::pws_i2(pws::default_context(), host2(f), *fixed, *target, *a, *b, *eps);
}

double pws_i3_(pws_func3 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    const auto host3 = [f](pws::Context&, double x, double y, double e) { return f(&x, &y, &e); };
    return pws::pws_i3(pws::default_context(), host3, *fixed, *target, *a, *b, *eps);
}

double pws_it_(const double* p) { return call(pws::pws_it, p); }

void pws_id_(pws_func2 f1, const double* target1, pws_func2 f2, const double* target2,
             double* xa, double* xb, double* ya, double* yb, const double* eps) {
    if (f1 == nullptr || f2 == nullptr || !all_given(target1, target2, xa, xb, ya, yb, eps))
        return;
    pws::pws_id(pws::default_context(), host2(f1), *target1, host2(f2), *target2, *xa, *xb, *ya, *yb, *eps);
}

}  // extern "C"
