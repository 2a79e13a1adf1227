// The IF97 library's entry and the adapter in the host's convention, with
// arbitrary input letters, values, property lists and message widths.
// Checked: a call that reports "No errors" delivers a finite value in every
// result slot it was asked to fill (the slots are preset to NaN).
#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "if97/if97.h"
#include "ondrel/if97_qv.h"
#include "tests/fuzz/fuzz_input.hpp"

namespace {

const std::initializer_list<std::string_view> letters_list = {"P", "T", "h", "s", "u", "v", "x", "X", "d", "q", "p", "t"};
const std::initializer_list<std::string_view> properties_list = {
    "p", "t", "v", "d", "h", "s", "u", "x", "cp", "cv", "w", "dv", "tc", "st", "kv", "pr",
    "P.", "H.", "S.", "CP.", "V.", "q", "c", "eta", "lambda", "sigma", "p,t,v,h,s,u,x,cv,dv,tc", "h,s.", "P..", ""};

// "No errors" in a message buffer of the caller's width, blank-padded after it.
bool no_errors(const std::string& message) {
    constexpr std::string_view ok = "No errors";
    if (message.size() < ok.size() || message.compare(0, ok.size(), ok) != 0) return false;
    return message.find_first_not_of(' ', ok.size()) == std::string::npos;
}

// Names in a property list up to its first full stop (a NUL ends the text
// before it); a list of blanks and tabs has none: nothing filled, no error.
std::size_t names_in(const std::string& list) {
    const std::string text = list.substr(0, list.find('\0'));
    const std::string head = text.substr(0, text.find('.'));
    if (head.find_first_not_of(" \t") == std::string::npos) return 0;
    return 1 + static_cast<std::size_t>(std::count(head.begin(), head.end(), ','));
}

void all_finite(const std::vector<double>& values, std::size_t count, const char* what) {
    for (std::size_t k = 0; k < count; ++k) fuzz::check(std::isfinite(values[k]), what);
}

void library(fuzz::Input& in) {
    const std::string c1 = in.pick(letters_list, 2), c2 = in.pick(letters_list, 2);
    const double v1 = in.number(), v2 = in.number();
    const std::string list = in.pick(properties_list, 40);
    std::string message(in.byte() % 100, '#');
    std::vector<double> results(names_in(list) + 1, NAN);
    if97_main_(c1.data(), &v1, c2.data(), &v2, list.data(), results.data(), message.data(), c1.size(), c2.size(),
               list.size(), message.size());
    if (no_errors(message)) all_finite(results, names_in(list), "if97_main_: no error but a value not finite");
}

void adapter(fuzz::Input& in) {
    const std::string spec = in.pick(letters_list, 2) + in.pick(letters_list, 2);
    const double v1 = in.number(), v2 = in.number();
    const std::string property = in.pick(properties_list, 40);
    std::string message(in.byte() % 100, '#');
    switch (in.byte() % 4) {
    case 0: {
        const double x = if97_prop_(spec.data(), &v1, &v2, property.data(), message.data(), spec.size(),
                                    property.size(), message.size());
        if (no_errors(message)) fuzz::check(std::isfinite(x), "if97_prop_: no error but a value not finite");
        break;
    }
    case 1: {
        std::vector<double> results(names_in(property) + 1, NAN);
        if97_props_(spec.data(), &v1, &v2, property.data(), results.data(), message.data(), spec.size(),
                    property.size(), message.size());
        if (no_errors(message)) all_finite(results, names_in(property), "if97_props_: no error but a value not finite");
        break;
    }
    case 2: {
        std::vector<double> o(11, NAN), first(20, NAN), second(20, NAN);
        if97_allprops_(spec.data(), &v1, &v2, &o[0], &o[1], &o[2], &o[3], &o[4], &o[5], &o[6], &o[7], first.data(),
                       second.data(), &o[8], &o[9], &o[10], message.data(), spec.size(), message.size());
        if (no_errors(message)) {
            all_finite(o, o.size(), "if97_allprops_: no error but a value not finite");
            all_finite(first, first.size(), "if97_allprops_: no error but a fraction not finite");
            all_finite(second, second.size(), "if97_allprops_: no error but a fraction not finite");
        }
        break;
    }
    default: {
        const double x = if97_getinfo_(property.data(), message.data(), property.size(), message.size());
        fuzz::check(std::isfinite(x), "if97_getinfo_ not finite");
        int32_t n = static_cast<int32_t>(in.byte()) - 8;
        const std::size_t slots = static_cast<std::size_t>(std::clamp(n, 1, 250));
        const std::size_t width = in.byte() % 12;
        std::string names(slots * width + 1, '#');
        std::vector<double> conc(slots, NAN);
        if97_getfluid_(&n, names.data(), conc.data(), width);
        fuzz::check(n == 1 && conc[0] == 1.0, "if97_getfluid_");
        break;
    }
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzz::Input in(data, size);
    const int calls = 1 + in.byte() % 4;
    for (int k = 0; k < calls && !in.at_end(); ++k) {
        if (in.byte() % 2 == 0)
            library(in);
        else
            adapter(in);
    }
    return 0;
}
