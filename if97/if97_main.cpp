// Entry point of the library: input pair and property list in host units
// (bar, degrees Celsius, kJ/kg, kJ/(kg K), m3/kg), results and a message.
#include <array>
#include <cctype>
#include <cmath>
#include <string>

#include "if97/if97.hpp"
#include "if97/if97_constants.hpp"
#include "if97/if97_solve.hpp"
#include "if97/if97_transport.hpp"

namespace if97 {

namespace {
constexpr std::string_view msg_no_errors = "No errors";
constexpr std::string_view msg_unknown_property = "Unknown property name: ";
constexpr std::string_view msg_unknown_pair = "Unknown input pair: ";
constexpr std::string_view msg_not_finite = "Input value is not a finite number.";
constexpr std::string_view msg_t_below_min =
    "Temperature below 0 degrees Celsius, the lower limit of IAPWS-IF97.";
constexpr std::string_view msg_t_above_max =
    "Temperature above the upper limit of IAPWS-IF97 (800 degrees Celsius, or 2000 degrees "
    "Celsius up to 500 bar).";
constexpr std::string_view msg_p_below_min = "Pressure below 1e-5 bar, the lowest pressure accepted.";
constexpr std::string_view msg_p_above_max =
    "Pressure above the upper limit of IAPWS-IF97 (1000 bar, or 500 bar above 800 degrees "
    "Celsius).";
constexpr std::string_view msg_v_not_positive = "Specific volume not positive.";
constexpr std::string_view msg_quality_range = "Vapour quality outside 0 to 1.";
constexpr std::string_view msg_p_not_saturation =
    "Pressure outside the saturation line (0.00611213 to 220.64 bar).";
constexpr std::string_view msg_t_not_saturation =
    "Temperature outside the saturation line (0 to 373.946 degrees Celsius).";
constexpr std::string_view msg_no_convergence = "No convergence of the iteration for the input pair.";
constexpr std::string_view msg_two_phase = "Property undefined in the two-phase region: ";
constexpr std::string_view msg_st_supercritical =
    "Surface tension undefined above the critical temperature.";
constexpr char list_end = '.';
constexpr char list_separator = ',';
constexpr double kpa_per_mpa = 1000.0;

std::string_view error_message(Error e) {
    switch (e) {
        case Error::none: return msg_no_errors;
        case Error::not_finite: return msg_not_finite;
        case Error::t_below_min: return msg_t_below_min;
        case Error::t_above_max: return msg_t_above_max;
        case Error::p_below_min: return msg_p_below_min;
        case Error::p_above_max: return msg_p_above_max;
        case Error::v_not_positive: return msg_v_not_positive;
        case Error::quality_range: return msg_quality_range;
        case Error::p_not_saturation: return msg_p_not_saturation;
        case Error::t_not_saturation: return msg_t_not_saturation;
        case Error::no_convergence: return msg_no_convergence;
    }
    return msg_no_convergence;
}

// Input letters, case-insensitive: P (bar), T (degrees Celsius), h, s, u,
// v, x; 0 for any other letter.
char input_kind(char c) {
    const char l = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    switch (l) {
        case 'p': case 't': case 'h': case 's': case 'u': case 'v': case 'x': return l;
        default: return 0;
    }
}

// The list up to its first full stop.
std::string_view list_part(std::string_view properties) {
    const std::size_t end = properties.find(list_end);
    return end == std::string_view::npos ? properties : properties.substr(0, end);
}

std::string_view trim_blanks(std::string_view s) {
    while (!s.empty() && (s.front() == ' ' || s.front() == '\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == ' ' || s.back() == '\t')) s.remove_suffix(1);
    return s;
}

std::string lower(std::string_view s) {
    std::string out(s);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

// The state for the pair (in either letter order), in formulation units.
StateResult solve_pair(char a, double va, char b, double vb, bool& known) {
    known = true;
    if (a > b) {
        std::swap(a, b);
        std::swap(va, vb);
    }
    // Letters now in ASCII order: h < p < s < t < u < v < x.
    const std::string pair{a, b};
    const double p_of = 1.0 / bar_per_mpa;
    if (pair == "pt") return state_pt(va * p_of, vb + celsius_offset);
    if (pair == "hp") return state_ph(vb * p_of, va);
    if (pair == "ps") return state_ps(va * p_of, vb);
    if (pair == "pu") return state_pu(va * p_of, vb);
    if (pair == "pv") return state_pv(va * p_of, vb);
    if (pair == "px") return state_px(va * p_of, vb);
    if (pair == "ht") return state_th(vb + celsius_offset, va);
    if (pair == "st") return state_ts(vb + celsius_offset, va);
    if (pair == "tv") return state_tv(va + celsius_offset, vb);
    if (pair == "tx") return state_tx(va + celsius_offset, vb);
    if (pair == "hs") return state_hs(va, vb);
    if (pair == "hv") return state_vh(vb, va);
    if (pair == "sv") return state_vs(vb, va);
    if (pair == "uv") return state_vu(vb, va);
    known = false;
    return {};
}

// The value of one property name (lower case) at the state; false with
// `fault` set when it cannot be given.
bool property_value(const std::string& name, const State& st, double& out, std::string& fault) {
    const Properties& pr = st.props;
    const bool mixture = st.region == 4;
    auto two_phase = [&]() {
        fault = std::string(msg_two_phase) + name + list_end;
        return false;
    };
    if (name == "p") { out = pr.p * bar_per_mpa; return true; }
    if (name == "t") { out = pr.t - celsius_offset; return true; }
    if (name == "v") { out = pr.v; return true; }
    if (name == "d") { out = 1.0 / pr.v; return true; }
    if (name == "h") { out = pr.h; return true; }
    if (name == "s") { out = pr.s; return true; }
    if (name == "u") { out = pr.u; return true; }
    if (name == "x") { out = st.x; return true; }
    // Intended: cp, cv, w and the transport properties of a wet mixture
    // (0 < x < 1) are left as preset, with a message; x = 0 and x = 1 give
    // those of the saturated phase.
    if (name == "cp") { if (mixture) return two_phase(); out = pr.cp; return true; }
    if (name == "cv") { if (mixture) return two_phase(); out = pr.cv; return true; }
    if (name == "w") { if (mixture) return two_phase(); out = pr.w; return true; }
    if (name == "dv") { if (mixture) return two_phase(); out = viscosity(pr.rho, pr.t); return true; }
    if (name == "kv") {
        if (mixture) return two_phase();
        out = viscosity(pr.rho, pr.t) / pr.rho;
        return true;
    }
    if (name == "tc") { if (mixture) return two_phase(); out = thermal_conductivity(pr); return true; }
    if (name == "pr") {
        if (mixture) return two_phase();
        out = viscosity(pr.rho, pr.t) * pr.cp * kpa_per_mpa / thermal_conductivity(pr);
        return true;
    }
    if (name == "st") {
        const double sigma = surface_tension(pr.t);
        if (std::isnan(sigma)) {
            fault = msg_st_supercritical;
            return false;
        }
        out = sigma;
        return true;
    }
    fault = std::string(msg_unknown_property) + name + list_end;
    return false;
}
}  // namespace

std::size_t property_count(std::string_view properties) {
    const std::string_view list = list_part(properties);
    if (trim_blanks(list).empty()) return 0;
    std::size_t n = 1;
    for (char c : list) n += c == list_separator ? 1 : 0;
    return n;
}

void if97_main(char code1, double value1, char code2, double value2, std::string_view properties,
               std::span<double> results, std::string& message) {
    message = msg_no_errors;
    const char a = input_kind(code1);
    const char b = input_kind(code2);
    bool known = a != 0 && b != 0 && a != b;
    StateResult r;
    if (known) r = solve_pair(a, value1, b, value2, known);
    if (!known) {
        message = std::string(msg_unknown_pair) + code1 + code2 + list_end;
        return;
    }
    if (r.error != Error::none) {
        message = error_message(r.error);
        return;
    }
    std::string_view rest = list_part(properties);
    if (trim_blanks(rest).empty()) return;
    for (std::size_t k = 0;; ++k) {
        const std::size_t comma = rest.find(list_separator);
        const std::string name = lower(trim_blanks(rest.substr(0, comma)));
        double value = 0.0;
        std::string fault;
        if (property_value(name, r.state, value, fault)) {
            if (k < results.size()) results[k] = value;
        } else if (message == msg_no_errors) {
            message = fault;
        }
        if (comma == std::string_view::npos) break;
        rest.remove_prefix(comma + 1);
    }
}

}  // namespace if97
