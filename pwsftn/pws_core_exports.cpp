// Host calling convention of the error reporting, saturation line, region
// equations and iterations of the water-and-steam package.
#include <cstddef>
#include <limits>
#include <type_traits>

#include "host/ftn_text.hpp"
#include "ondrel/pwsftn.h"
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

// The package reports through the host's record from the start.
[[maybe_unused]] const bool record_bound =
    (pws::bind_error_record(&pwserr_), true);

// Host procedures handed to the iterations, reached from the core through
// plain functions. A nested call saves and restores the slot it uses.
struct HostProcedures {
    pws_func2 f2[3] = {nullptr, nullptr, nullptr};  // pws_i1_/pws_i2_, pws_id_ f1, pws_id_ f2
    pws_func3 f3 = nullptr;                         // pws_i3_
};

HostProcedures& host() {
    static HostProcedures h;
    return h;
}

template <int Slot>
double call2(double a, double b) {
    return host().f2[Slot](&a, &b);
}

double call3(double a, double b, double c) { return host().f3(&a, &b, &c); }

// A null argument places no state: the routine returns a quiet NaN.
constexpr double no_value = std::numeric_limits<double>::quiet_NaN();

double call(double (*f)(double), const double* x) { return x != nullptr ? f(*x) : no_value; }

double call(pws::Func2 f, const double* x, const double* y) {
    return x != nullptr && y != nullptr ? f(*x, *y) : no_value;
}

template <typename... P>
bool all_given(const P*... args) {
    return ((args != nullptr) && ...);
}

template <typename T>
class SlotGuard {
public:
    SlotGuard(T& slot, T value) : slot_(slot), saved_(slot) { slot_ = value; }
    ~SlotGuard() { slot_ = saved_; }
    SlotGuard(const SlotGuard&) = delete;
    SlotGuard& operator=(const SlotGuard&) = delete;

private:
    T& slot_;
    T saved_;
};

}  // namespace

extern "C" {

void pwser_(const char* name, const int32_t* icode, const double* x1, const double* x2,
            size_t name_len) {
    if (icode == nullptr) return;
    // x2 is only shown for a two-quantity code; a caller may leave it out.
    pws::pwser(ftn::trimmed(name, name_len), *icode, x1 != nullptr ? *x1 : no_value,
               x2 != nullptr ? *x2 : no_value);
}

void pws_set_channel13_file_(const char* path, int32_t* ierr, size_t path_len) {
    const bool ok = pws::set_channel13_file(ftn::trimmed(path, path_len));
    if (ierr != nullptr) *ierr = ok ? 0 : 1;
}

void pws_set_channel13_callback_(pws_line_callback callback) { pws::set_channel13_callback(callback); }

void pws_set_channel13_stderr_(void) { pws::set_channel13_stderr(); }

double pws_pt_(const double* t) { return call(pws::pws_pt, t); }
double psl1_(const double* t) { return call(pws::psl1, t); }
double psl1_slope_(void) { return pws::psl1_slope(); }
double pws_tp_(const double* p) { return call(pws::pws_tp, p); }
void comt1_(const double* p, const double* t) {
    if (all_given(p, t)) pws::comt1(*p, *t);
}
void comt2_(const double* p, const double* t) {
    if (all_given(p, t)) pws::comt2(*p, *t);
}
void comt3_(const double* v, const double* t) {
    if (all_given(v, t)) pws::comt3(*v, *t);
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
double pws_ci_(const double* v, const double* t) { return call(pws::pws_ci, v, t); }
double pws_cj_(const double* v, const double* t) { return call(pws::pws_cj, v, t); }

double pws_i1_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    SlotGuard<pws_func2> guard(host().f2[0], f);
    return pws::pws_i1(call2<0>, *fixed, *target, *a, *b, *eps);
}

double pws_i2_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    SlotGuard<pws_func2> guard(host().f2[0], f);
    return pws::pws_i2(call2<0>, *fixed, *target, *a, *b, *eps);
}

double pws_i3_(pws_func3 f, const double* fixed, const double* target, double* a, double* b,
               const double* eps) {
    if (f == nullptr || !all_given(fixed, target, a, b, eps)) return no_value;
    SlotGuard<pws_func3> guard(host().f3, f);
    return pws::pws_i3(call3, *fixed, *target, *a, *b, *eps);
}

double pws_it_(const double* p) { return call(pws::pws_it, p); }

void pws_id_(pws_func2 f1, const double* target1, pws_func2 f2, const double* target2,
             double* xa, double* xb, double* ya, double* yb, const double* eps) {
    if (f1 == nullptr || f2 == nullptr || !all_given(target1, target2, xa, xb, ya, yb, eps))
        return;
    SlotGuard<pws_func2> guard1(host().f2[1], f1);
    SlotGuard<pws_func2> guard2(host().f2[2], f2);
    pws::pws_id(call2<1>, *target1, call2<2>, *target2, *xa, *xb, *ya, *yb, *eps);
}

}  // extern "C"
