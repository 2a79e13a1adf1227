// Gas table operations in the host calling convention (see
// include/ondrel/od_fluiddata.h): arguments by reference, text widths as
// trailing hidden lengths. Each function converts and calls the core.
#include <algorithm>
#include <vector>

#include "fluiddata/od_fluiddata.hpp"
#include "host/ftn_text.hpp"
#include "ondrel/od_fluiddata.h"

namespace {

namespace fd = od::fluiddata;

// A missing text (null pointer) is an empty name.
od::CompName name_of(const char* text, std::size_t len) {
    return text == nullptr ? od::CompName::from("") : od::CompName::from(ftn::view(text, len));
}

}  // namespace

extern "C" {

int32_t iscomp_(const char* name, size_t name_len) { return fd::iscomp(name_of(name, name_len)) ? 1 : 0; }

int32_t getidx_(const char* name, size_t name_len) { return fd::getidx(name_of(name, name_len)); }

void storeidx_(const int32_t* n, const char* names, size_t names_len) {
    if (n == nullptr) return;  // no count: the stored composition stays as it is
    const int count = std::clamp<int32_t>(*n, 0, od::max_components);
    if (count > 0 && names == nullptr) return;
    std::vector<od::CompName> list;
    list.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) list.push_back(name_of(names + static_cast<std::size_t>(i) * names_len, names_len));
    fd::storeidx(list);
}

int32_t getstoredidx_(const char* name, size_t name_len) { return fd::getstoredidx(name_of(name, name_len)); }

void getcoef_(const char* name, const double* t, double* a, size_t name_len) {
    if (t == nullptr || a == nullptr) return;
    fd::getcoef(name_of(name, name_len), *t, std::span<double, 7>(a, 7));
}

double gettmin_(const char* name, size_t name_len) { return fd::gettmin(name_of(name, name_len)); }
double gettmax_(const char* name, size_t name_len) { return fd::gettmax(name_of(name, name_len)); }
double getmmol_(const char* name, size_t name_len) { return fd::getmmol(name_of(name, name_len)); }
double geteps_(const char* name, size_t name_len) { return fd::geteps(name_of(name, name_len)); }
double getsigma_(const char* name, size_t name_len) { return fd::getsigma(name_of(name, name_len)); }

void getphase_(char* result, size_t result_len, const char* name, size_t name_len) {
    const char phase = fd::getphase(name_of(name, name_len));
    ftn::store(result, result_len, std::string_view(&phase, 1));
}

void getcompset_(int32_t* n, char* names, size_t names_len) {
    std::array<od::CompName, od::max_components> set;
    const int count = fd::getcompset(set);
    if (n != nullptr) *n = count;
    if (names == nullptr) return;
    for (std::size_t j = 0; j < set.size(); ++j)
        ftn::store(names + j * names_len, names_len, std::string_view(set[j].text.data(), set[j].text.size()));
}

void setdbread_(void) { fd::setdbread(); }

int32_t dbread_(void) { return fd::dbread() ? 1 : 0; }

void readgas_(void) { fd::readgas(); }

void readgasfile_(const char* path, size_t path_len) { fd::readgasfile(ftn::trimmed(path, path_len)); }

void readgasdb_(const char* directory, const char* name, size_t directory_len, size_t name_len) {
    fd::readgasdb(ftn::trimmed(directory, directory_len), ftn::trimmed(name, name_len));
}

}  // extern "C"
