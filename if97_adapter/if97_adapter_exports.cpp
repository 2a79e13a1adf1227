// The IF97 adapter's entry points in the host calling convention: C linkage,
// every argument by reference, text lengths as trailing hidden size_t
// arguments in argument order. Each routine converts and calls the core.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "fluiddata/od_types.hpp"
#include "host/ftn_text.hpp"
#include "if97_adapter/if97_qv.hpp"
#include "ondrel/if97_qv.h"

namespace {

namespace qv = od::if97_qv;

// Largest list length taken from the caller's count in if97_getfluid_: the
// host's largest mixture.
constexpr std::int32_t max_list_entries = od::max_components;

// A missing input value reads as NaN, which the IF97 library refuses with a
// message, so that no state is computed from a value the caller never gave.
double value_of(const double* x) { return x != nullptr ? *x : std::numeric_limits<double>::quiet_NaN(); }

void put(double* out, double value) {
    if (out != nullptr) *out = value;
}

}  // namespace

extern "C" {

void if97_getfluid_(std::int32_t* n, char* names, double* concentrations, std::size_t names_len) {
    const std::int32_t given = n != nullptr ? *n : 1;
    const auto entries = static_cast<std::size_t>(std::clamp(given, 1, max_list_entries));
    std::vector<std::string> name_list(names != nullptr ? entries : 0);
    std::vector<double> conc_list(concentrations != nullptr ? entries : 0);
    std::int32_t count = 0;
    qv::if97_getfluid(count, name_list, conc_list);
    for (std::size_t k = 0; k < name_list.size(); ++k)
        ftn::store(names + k * names_len, names_len, name_list[k]);
    std::copy(conc_list.begin(), conc_list.end(), concentrations);
    if (n != nullptr) *n = count;
}

double if97_getinfo_(const char* info, char* message, std::size_t info_len, std::size_t message_len) {
    std::string msg;
    const double value = qv::if97_getinfo(ftn::view(info, info_len), msg);
    ftn::store(message, message_len, msg);
    return value;
}

double if97_prop_(const char* spec, const double* value1, const double* value2, const char* property,
                  char* message, std::size_t spec_len, std::size_t property_len,
                  std::size_t message_len) {
    std::string msg;
    const double value = qv::if97_prop(ftn::view(spec, spec_len), value_of(value1), value_of(value2),
                                       ftn::view(property, property_len), msg);
    ftn::store(message, message_len, msg);
    return value;
}

void if97_props_(const char* spec, const double* value1, const double* value2,
                 const char* properties, double* results, char* message, std::size_t spec_len,
                 std::size_t properties_len, std::size_t message_len) {
    const std::string_view list = ftn::view(properties, properties_len);
    std::vector<double> slots(results != nullptr ? qv::result_count(list) : 0);
    std::string msg;
    qv::if97_props(ftn::view(spec, spec_len), value_of(value1), value_of(value2), list, slots, msg);
    std::copy(slots.begin(), slots.end(), results);
    ftn::store(message, message_len, msg);
}

void if97_allprops_(const char* spec, const double* value1, const double* value2, double* p,
                    double* t, double* v, double* d, double* h, double* s, double* u, double* x,
                    double* first, double* second, double* cv, double* eta, double* lambda,
                    char* message, std::size_t spec_len, std::size_t message_len) {
    std::string msg;
    const qv::AllProps r =
        qv::if97_allprops(ftn::view(spec, spec_len), value_of(value1), value_of(value2), msg);
    put(p, r.p);
    put(t, r.t);
    put(v, r.v);
    put(d, r.d);
    put(h, r.h);
    put(s, r.s);
    put(u, r.u);
    put(x, r.x);
    if (first != nullptr) std::copy(r.first.begin(), r.first.end(), first);
    if (second != nullptr) std::copy(r.second.begin(), r.second.end(), second);
    put(cv, r.cv);
    put(eta, r.eta);
    put(lambda, r.lambda);
    ftn::store(message, message_len, msg);
}

// Version and set-up are the IF97 library's own, reached through its C++
// entries: a program's own routine named getversion or if97_sub cannot
// stand in for them.
void if97_getversion_(std::int32_t* major, std::int32_t* minor, std::int32_t* patch,
                      std::int32_t* build) {
    std::int32_t v[4] = {0, 0, 0, 0};
    qv::if97_getversion(v[0], v[1], v[2], v[3]);
    std::int32_t* const out[4] = {major, minor, patch, build};
    for (int k = 0; k < 4; ++k)
        if (out[k] != nullptr) *out[k] = v[k];
}

void if97_qv_sub_(void) { qv::if97_qv_sub(); }

}  // extern "C"
