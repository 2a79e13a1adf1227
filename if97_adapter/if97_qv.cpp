#include "if97_adapter/if97_qv.hpp"

#include <algorithm>
#include <utility>

#include "fluiddata/od_types.hpp"
#include "if97/if97.hpp"

namespace od::if97_qv {

namespace {

constexpr std::string_view msg_no_errors = "No errors";
constexpr std::string_view msg_no_info = "Error in Quintaver: for IF97 no info available for ";

constexpr std::string_view water_name = "H2O";
constexpr std::string_view unused_name = "?";
constexpr char list_end = '.';

// Fixed fluid data of IAPWS-IF97 in the interface units.
struct Info {
    std::string_view name;
    double value;
};
constexpr Info fluid_info[] = {
    {"M_mol", 0.018015257},  // kg/mol
    {"T_crit", 373.946},     // degrees Celsius
    {"P_crit", 220.64},      // bar
    {"T_min", 0.01000001},   // degrees Celsius: triple point raised by 1e-8
    {"T_max", 2000.0},       // degrees Celsius
};

// Host property names the library knows by another name.
struct Translation {
    std::string_view host;
    std::string_view library;
};
constexpr std::string_view density = "d";
constexpr Translation translations[] = {
    {density, "v"}, {"q", "x"}, {"c", "w"}, {"eta", "dv"}, {"lambda", "tc"}, {"sigma", "st"},
};

State& mutable_state() {
    static State s;
    return s;
}

std::string_view trim_right(std::string_view s) {
    while (!s.empty() && s.back() == ' ') s.remove_suffix(1);
    return s;
}

// Letter k of the two input letters; a short text reads as blank.
char spec_letter(std::string_view spec, std::size_t k) { return k < spec.size() ? spec[k] : ' '; }

// Translates the input letters into the module state and returns the values
// to send. Density becomes specific volume in either position; quality "q"
// becomes "x" in the second position only.
std::pair<double, double> translate_inputs(State& st, std::string_view spec, double value1, double value2) {
    st.code1 = spec_letter(spec, 0);
    st.code2 = spec_letter(spec, 1);
    if (st.code1 == 'd') {
        st.code1 = 'v';
        value1 = 1.0 / value1;  // Intended: a density of 0 is inverted unchecked; the library rejects it.
    }
    // Intended: a first letter "q" is passed on untranslated.
    if (st.code2 == 'q') {
        st.code2 = 'x';
    } else if (st.code2 == 'd') {
        st.code2 = 'v';
        value2 = 1.0 / value2;  // Intended: unchecked, as for the first letter.
    }
    return {value1, value2};
}

// Stores the property text for the library: the host name translated when
// the whole text is one of the translated names, else the text as it is;
// then a full stop, then blanks to the fixed width (longer text is cut).
void set_property_text(State& st, std::string_view property) {
    std::string_view text = trim_right(property);
    // Intended: a list is translated only as a whole, never name by name.
    for (const Translation& t : translations) {
        if (text == t.host) {
            text = t.library;
            break;
        }
    }
    std::string full(text);
    // Intended: a name that already ends in a full stop reaches the library with two.
    full += list_end;
    st.property_text.fill(' ');
    std::copy_n(full.begin(), std::min(full.size(), st.property_text.size()), st.property_text.begin());
}

// The common path of if97_prop, if97_props and if97_allprops: message and
// slots preset, inputs and names translated, library called.
void call_library(State& st, std::string_view spec, double value1, double value2, std::string_view property,
                  std::span<double> slots, std::string& message) {
    message = msg_no_errors;
    std::fill(slots.begin(), slots.end(), missing_value);
    const auto [v1, v2] = translate_inputs(st, spec, value1, value2);
    set_property_text(st, property);
    if97::if97_main(st.code1, v1, st.code2, v2, st.property(), slots, message);
    // Intended: inverted even when the library left the preset -8888.8.
    if (trim_right(property) == density && !slots.empty()) slots[0] = 1.0 / slots[0];
}

}  // namespace

const State& state() { return mutable_state(); }

void reset_for_tests() { mutable_state() = State{}; }

void if97_getfluid(std::int32_t& n, std::span<std::string> names, std::span<double> concentrations) {
    n = 1;
    for (std::size_t k = 0; k < names.size(); ++k) names[k] = k == 0 ? water_name : unused_name;
    for (std::size_t k = 0; k < concentrations.size(); ++k) concentrations[k] = k == 0 ? 1.0 : 0.0;
}

double if97_getinfo(std::string_view info, std::string& message) {
    const std::string_view name = trim_right(info);
    for (const Info& i : fluid_info) {
        if (name == i.name) {
            message = msg_no_errors;
            return i.value;
        }
    }
    message = std::string(msg_no_info) + std::string(name) + list_end;
    return 0.0;
}

double if97_prop(State& st, std::string_view spec, double value1, double value2, std::string_view property,
                 std::string& message) {
    call_library(st, spec, value1, value2, property, std::span<double>(&st.single_result, 1), message);
    return st.single_result;
}

double if97_prop(std::string_view spec, double value1, double value2, std::string_view property,
                 std::string& message) {
    return if97_prop(mutable_state(), spec, value1, value2, property, message);
}

std::size_t result_count(std::string_view properties) {
    return std::max<std::size_t>(1, if97::property_count(properties));
}

void if97_props(std::string_view spec, double value1, double value2, std::string_view properties,
                std::span<double> results, std::string& message) {
    call_library(mutable_state(), spec, value1, value2, properties, results, message);
}

AllProps if97_allprops(std::string_view spec, double value1, double value2, std::string& message) {
    State& st = mutable_state();
    call_library(st, spec, value1, value2, allprops_names, st.block, message);
    const auto& r = st.block;
    AllProps a;
    a.p = r[0];
    a.t = r[1];
    a.v = r[2];
    // Intended: inverted unchecked, so a volume left at -8888.8 gives d = 1/-8888.8.
    a.d = 1.0 / r[2];
    a.h = r[3];
    a.s = r[4];
    a.u = r[5];
    a.x = r[6];
    a.cv = r[7];
    a.eta = r[8];
    a.lambda = r[9];
    a.first.fill(missing_value);
    a.second.fill(missing_value);
    // Intended: formed from x even when the library left it at -8888.8.
    a.first[0] = 1.0 - r[6];
    a.second[0] = r[6];
    return a;
}

void if97_getversion(std::int32_t& major, std::int32_t& minor, std::int32_t& patch,
                     std::int32_t& build) {
    if97::getversion(major, minor, patch, build);
}

void if97_qv_sub() { if97::if97_sub(); }

}  // namespace od::if97_qv
