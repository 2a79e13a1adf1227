// The mixture model's entry points in the host calling convention: C linkage,
// every argument by reference, text lengths as trailing hidden size_t
// arguments in argument order. Each routine converts and calls the core.
#include <cstddef>
#include <cstdint>

#include "host/ftn_text.hpp"
#include "ondrel/ondrel.h"
#include "ondrel/ondrel_core.hpp"
#include "host/host_mixture.hpp"

namespace {

// The core's count: the caller's value, or -1 (refused) when it is missing.
int count_of(const int* ncomp) { return ncomp != nullptr ? *ncomp : -1; }

double value_of(const double* x) { return x != nullptr ? *x : 0.0; }

void put(double* out, double value) {
    if (out != nullptr) *out = value;
}

}  // namespace

extern "C" {

double od_prop_(const char* inputspec, const double* input1, const double* input2,
                const int* ncomp, const char* names, const double* conc, const char* outname,
                int* errcode, std::size_t inputspec_len, std::size_t names_len,
                std::size_t outname_len) {
    const od::HostMixture m = od::host_mixture(ncomp, names, names_len, conc);
    int err = 0;
    const double value = od::ondrel::od_prop(
        ftn::view(inputspec, inputspec_len), value_of(input1), value_of(input2),
        m.valid() ? m.n : count_of(ncomp), m.mixture().names, m.mixture().conc,
        ftn::view(outname, outname_len), err);
    if (errcode != nullptr) *errcode = err;
    return value;
}

void od_allprops_(const char* inputspec, const double* input1, const double* input2,
                  const int* ncomp, const char* names, const double* conc, double* P, double* T,
                  double* v, double* d, double* h, double* s, double* u, double* cv,
                  double* dP_dT, double* dP_dv, double* d2P_dT2, double* d2P_dv2,
                  double* d2P_dTdv, double* dCv_dT, double* eta, double* lambda, int* errcode,
                  std::size_t inputspec_len, std::size_t names_len) {
    const od::HostMixture m = od::host_mixture(ncomp, names, names_len, conc);
    int err = 0;
    const od::ondrel::AllProps r = od::ondrel::od_allprops(
        ftn::view(inputspec, inputspec_len), value_of(input1), value_of(input2),
        m.valid() ? m.n : count_of(ncomp), m.mixture().names, m.mixture().conc, err);
    put(P, r.P);
    put(T, r.T);
    put(v, r.v);
    put(d, r.d);
    put(h, r.h);
    put(s, r.s);
    put(u, r.u);
    put(cv, r.cv);
    put(dP_dT, r.dP_dT);
    put(dP_dv, r.dP_dv);
    put(d2P_dT2, r.d2P_dT2);
    put(d2P_dv2, r.d2P_dv2);
    put(d2P_dTdv, r.d2P_dTdv);
    put(dCv_dT, r.dCv_dT);
    put(eta, r.eta);
    put(lambda, r.lambda);
    if (errcode != nullptr) *errcode = err;
}

double od_info_(const int* ncomp, const char* names, const double* conc, const char* infoname,
                int* errcode, std::size_t names_len, std::size_t infoname_len) {
    const od::HostMixture m = od::host_mixture(ncomp, names, names_len, conc);
    int err = 0;
    const double value = od::ondrel::od_info(m.valid() ? m.n : count_of(ncomp), m.mixture().names,
                                             m.mixture().conc, ftn::view(infoname, infoname_len),
                                             err);
    if (errcode != nullptr) *errcode = err;
    return value;
}

// names: 250 texts of names_len characters each.
void od_compset_(std::int32_t* n, char* names, std::size_t names_len) {
    std::array<od::CompName, od::max_components> slots{};
    const int count = od::ondrel::od_compset(slots);
    if (n != nullptr) *n = count;
    if (names == nullptr) return;
    for (std::size_t i = 0; i < slots.size(); ++i)
        ftn::store(names + i * names_len, names_len,
                   std::string_view(slots[i].text.data(), slots[i].text.size()));
}

void od_getversion_(std::int32_t* version) {
    if (version == nullptr) return;
    const std::array<int, 4> v = od::ondrel::od_getversion();
    for (std::size_t i = 0; i < v.size(); ++i) version[i] = v[i];
}

void ondrel_sub_() { od::ondrel::ondrel_sub(); }

}  // extern "C"
