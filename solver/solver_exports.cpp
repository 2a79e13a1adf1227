// The inverse solution in the host calling convention: C linkage, every
// argument by reference, text lengths as trailing hidden size_t arguments.
// Except in brent_, which hands the mixture to its function unread, a mixture
// whose count is outside 0..250 or that names a component missing from the
// gas table gives -8888.8 (and error code 1 where there is one).
#include <cstddef>

#include "ondrel/od_thermo.h"
#include "host/host_mixture.hpp"
#include "solver/od_solver.hpp"

namespace {

constexpr int err_unknown_component = 1;

// A property function of the host: f(p, t, n, cmp, cnc) with cmp's width hidden.
using HostFn = double (*)(const double*, const double*, const int*, const char*, const double*,
                          std::size_t);

// Converts the mixture and makes it the stored composition; invalid() on failure.
od::HostMixture usable_mixture(const int* n, const char* cmp, std::size_t cmp_len, const double* cnc) {
    od::HostMixture m = od::host_mixture(n, cmp, cmp_len, cnc);
    if (m.valid() && !od::solver::select_mixture(m.mixture())) m.n = -1;
    return m;
}

// The host function as a core property function, called with the caller's buffers.
auto host_callable(HostFn f, const int* n, const char* cmp, const double* cnc, std::size_t cmp_len) {
    return [=](double x1, double x2, const od::Mixture&) { return f(&x1, &x2, n, cmp, cnc, cmp_len); };
}

using Member = double (*)(double, double, const od::Mixture&);

double member(Member g, const double* x, const double* y, const int* n, const char* cmp,
              const double* cnc, std::size_t cmp_len) {
    const od::HostMixture m = usable_mixture(n, cmp, cmp_len, cnc);
    if (!m.valid() || x == nullptr || y == nullptr) return od::missing_value;
    return g(*x, *y, m.mixture());
}

using PairFn = double (*)(std::string_view, double, double, const od::Mixture&, int&);

double pair_solution(PairFn g, const char* spec, const double* in1,
                     const double* in2, const int* n, const char* cmp, const double* cnc, int* ierr,
                     std::size_t spec_len, std::size_t cmp_len) {
    if (ierr == nullptr) return od::missing_value;
    const od::HostMixture m = usable_mixture(n, cmp, cmp_len, cnc);
    if (!m.valid() || in1 == nullptr || in2 == nullptr) {
        *ierr = err_unknown_component;
        return od::missing_value;
    }
    return g(ftn::view(spec, spec_len), *in1, *in2, m.mixture(), *ierr);
}

template <class Composed>
double f_member(Composed g, HostFn f, const double* x, const double* y, const int* n,
                const char* cmp, const double* cnc, std::size_t cmp_len) {
    const od::HostMixture m = usable_mixture(n, cmp, cmp_len, cnc);
    if (f == nullptr || !m.valid() || x == nullptr || y == nullptr) return od::missing_value;
    return g(host_callable(f, n, cmp, cnc, cmp_len), *x, *y, m.mixture());
}

}  // namespace

extern "C" {

double get_p_(const char* inputspec, const double* input1, const double* input2, const int* n,
              const char* cmp, const double* cnc, int* ierr, std::size_t inputspec_len,
              std::size_t cmp_len) {
    return pair_solution(od::solver::get_p, inputspec, input1, input2, n, cmp, cnc, ierr,
                         inputspec_len, cmp_len);
}

double get_t_(const char* inputspec, const double* input1, const double* input2, const int* n,
              const char* cmp, const double* cnc, int* ierr, std::size_t inputspec_len,
              std::size_t cmp_len) {
    return pair_solution(od::solver::get_t, inputspec, input1, input2, n, cmp, cnc, ierr,
                         inputspec_len, cmp_len);
}

double brent_(HostFn f, const int* which, const double* fixed, const double* target, double* a,
              double* b, const double* tol, const int* n, const char* cmp, const double* cnc,
              int* ierr, std::size_t cmp_len) {
    if (f == nullptr || which == nullptr || fixed == nullptr || target == nullptr ||
        a == nullptr || b == nullptr || tol == nullptr || ierr == nullptr)
        return od::missing_value;
    // The mixture goes to f exactly as the caller gave it; the root finder reads none of it.
    return od::solver::brent(host_callable(f, n, cmp, cnc, cmp_len), *which, *fixed, *target, *a,
                             *b, *tol, od::Mixture{}, *ierr);
}

#define OD_MEMBER(name)                                                                       \
    double name##_(const double* x, const double* y, const int* n, const char* cmp,           \
                   const double* cnc, std::size_t cmp_len) {                                  \
        return member(od::solver::name, x, y, n, cmp, cnc, cmp_len);                          \
    }
OD_MEMBER(h_pv)
OD_MEMBER(s_pv)
OD_MEMBER(u_pv)
OD_MEMBER(h_tv)
OD_MEMBER(s_tv)
OD_MEMBER(u_tv)
OD_MEMBER(h_ps)
OD_MEMBER(u_ps)
OD_MEMBER(v_ps)
OD_MEMBER(h_ts)
OD_MEMBER(u_ts)
OD_MEMBER(v_ts)
OD_MEMBER(p_tv)
OD_MEMBER(t_pv)
#undef OD_MEMBER

#define OD_F_MEMBER(name)                                                                     \
    double name##_(HostFn f, const double* x, const double* y, const int* n, const char* cmp, \
                   const double* cnc, std::size_t cmp_len) {                                  \
        return f_member([](auto&& g, double u, double w, const od::Mixture& mix) {            \
            return od::solver::name(g, u, w, mix);                                            \
        }, f, x, y, n, cmp, cnc, cmp_len);                                                    \
    }
OD_F_MEMBER(f_pv)
OD_F_MEMBER(f_tv)
OD_F_MEMBER(f_ps)
OD_F_MEMBER(f_ts)
#undef OD_F_MEMBER

}  // extern "C"
