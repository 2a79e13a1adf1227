// The C interface of the mixture model: handles over the C++ API; no
// exception leaves it.
#include <cstring>
#include <new>
#include <string>
#include <vector>

#include "ondrel/c/mixture.h"
#include "ondrel/mixture.hpp"

struct ondrel_mixture {
    ondrel::Mixture mix;
};
struct ondrel_context {
    ondrel::Context ctx;
};

namespace {

int code(ondrel::Status s) { return static_cast<int>(s); }

void copy_detail(const std::string& text, char* detail, std::size_t len) {
    if (detail == nullptr || len == 0) return;
    const std::size_t n = std::min(text.size(), len - 1);
    std::memcpy(detail, text.data(), n);
    detail[n] = '\0';
}

}  // namespace

extern "C" {

int ondrel_mixture_create(int n, const char* const* names, const double* x, ondrel_mixture** out, char* detail,
                          size_t detail_len) {
    if (out == nullptr) return ONDREL_INVALID_ARGUMENT;
    *out = nullptr;
    if (n < 0 || (n > 0 && (names == nullptr || x == nullptr))) return ONDREL_INVALID_ARGUMENT;
    try {
        std::vector<ondrel::Fraction> f;
        f.reserve(static_cast<std::size_t>(n));
        for (int i = 0; i < n; ++i) {
            if (names[i] == nullptr) return ONDREL_INVALID_ARGUMENT;
            f.push_back({names[i], x[i]});
        }
        std::string why;
        auto m = ondrel::Mixture::make(f, &why);
        if (!m) {
            copy_detail(why, detail, detail_len);
            return code(m.status);
        }
        *out = new ondrel_mixture{std::move(m.value)};
        return ONDREL_OK;
    } catch (const std::bad_alloc&) {
        copy_detail("out of memory", detail, detail_len);
        return ONDREL_OUT_OF_MEMORY;
    }
}

void ondrel_mixture_free(ondrel_mixture* mix) { delete mix; }

double ondrel_mixture_molar_mass(const ondrel_mixture* mix) { return mix ? mix->mix.molar_mass() : 0.0; }
double ondrel_mixture_t_min(const ondrel_mixture* mix) { return mix ? mix->mix.t_min() : 0.0; }
double ondrel_mixture_t_max(const ondrel_mixture* mix) { return mix ? mix->mix.t_max() : 0.0; }

ondrel_context* ondrel_context_create(void) { return new (std::nothrow) ondrel_context{}; }

void ondrel_context_free(ondrel_context* ctx) { delete ctx; }

int ondrel_solve(ondrel_context* ctx, const ondrel_mixture* mix, const char* pair, double in1, double in2, double* p,
                 double* T) {
    if (ctx == nullptr || mix == nullptr || pair == nullptr || p == nullptr || T == nullptr)
        return ONDREL_INVALID_ARGUMENT;
    const auto which = ondrel::pair_from_name(pair);
    if (!which) return code(which.status);
    const auto st = ondrel::solve(ctx->ctx, mix->mix, which.value, in1, in2);
    *p = st.value.p;
    *T = st.value.T;
    return code(st.status);
}

int ondrel_property(ondrel_context* ctx, const ondrel_mixture* mix, double p, double T, const char* name,
                    double* value) {
    if (ctx == nullptr || mix == nullptr || name == nullptr || value == nullptr) return ONDREL_INVALID_ARGUMENT;
    const auto prop = ondrel::property_from_name(name);
    if (!prop) return code(prop.status);
    const auto v = ondrel::property(ctx->ctx, mix->mix, {p, T}, prop.value);
    if (v) *value = v.value;
    return code(v.status);
}

int ondrel_evaluate(const ondrel_mixture* mix, const char* pair, size_t n, const double* in1, const double* in2,
                    size_t nprops, const char* const* props, double* out, int* status, unsigned threads) {
    if (mix == nullptr || pair == nullptr || (n > 0 && (in1 == nullptr || in2 == nullptr || status == nullptr)) ||
        (n > 0 && nprops > 0 && (props == nullptr || out == nullptr)))
        return ONDREL_INVALID_ARGUMENT;
    const auto which = ondrel::pair_from_name(pair);
    if (!which) return code(which.status);
    try {
        std::vector<ondrel::Property> list;
        for (size_t k = 0; k < nprops; ++k) {
            const auto p = props[k] ? ondrel::property_from_name(props[k])
                                    : ondrel::Result<ondrel::Property>{ondrel::Property::P, ondrel::Status::unknown_property};
            if (!p) return code(p.status);
            list.push_back(p.value);
        }
        std::vector<ondrel::Status> st(n);
        const ondrel::Status s = ondrel::evaluate(mix->mix, which.value, {in1, n}, {in2, n}, list,
                                                  {out, n * nprops}, st, threads);
        if (s != ondrel::Status::ok) return code(s);
        for (size_t i = 0; i < n; ++i) status[i] = code(st[i]);
        return ONDREL_OK;
    } catch (const std::exception&) {
        return ONDREL_OUT_OF_MEMORY;  // the lists of properties and statuses could not be had
    }
}

}  // extern "C"
