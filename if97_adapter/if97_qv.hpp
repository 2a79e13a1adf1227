// IAPWS-IF97 water and steam offered in the host's convention: two-letter
// input code, host property names, message text. The properties
// come from the IF97 library (if97::if97_main); units pass through
// unchanged: bar, degrees Celsius, m3/kg, kg/m3, kJ/kg, kJ/(kg K), quality.
#pragma once
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace od::if97_qv {

// Width of the property text handed to the IF97 library.
inline constexpr std::size_t property_text_width = 80;
// Entries of each of the two phase lists of if97_allprops.
inline constexpr std::size_t phase_list_size = 20;
// Names requested by if97_allprops, in the order of its result block.
inline constexpr std::string_view allprops_names = "p,t,v,h,s,u,x,cv,dv,tc";
inline constexpr std::size_t allprops_count = 10;

// A property text of blanks only.
constexpr std::array<char, property_text_width> blank_property_text() {
    std::array<char, property_text_width> a{};
    a.fill(' ');
    return a;
}

// Module state: what the last call sent to the IF97 library and the result
// slots it handed over. Every call overwrites it.
struct State {
    char code1 = ' ';  // translated first input letter
    char code2 = ' ';  // translated second input letter
    std::array<char, property_text_width> property_text = blank_property_text();
    double single_result = 0.0;                             // slot of if97_prop
    std::array<double, allprops_count> block{};             // slots of if97_allprops

    std::string_view property() const { return {property_text.data(), property_text.size()}; }
};

// The module state of the exported routines, for reading.
const State& state();
// Test hook: the state as at load (blank codes and text, zero slots).
void reset_for_tests();

// Defines the fluid as pure water: n = 1, names "H2O", "?", "?", ...,
// concentrations 1.0, 0.0, 0.0, ... over the whole of the caller's lists.
void if97_getfluid(std::int32_t& n, std::span<std::string> names, std::span<double> concentrations);

// Fixed fluid data by name ("M_mol" kg/mol, "T_crit" degrees Celsius,
// "P_crit" bar, "T_min", "T_max" degrees Celsius). message: "No errors", or
// for any other name 0.0 and a message naming it.
double if97_getinfo(std::string_view info, std::string& message);

// One property at the state given by spec and the two values (bar, degrees
// Celsius, kJ/kg, ...). message receives "No errors" or the library's message.
// A property the library does not deliver reads -8888.8.
double if97_prop(std::string_view spec, double value1, double value2,
                 std::string_view property, std::string& message);
// The same on the caller's state instead of the module's (one per thread).
double if97_prop(State& st, std::string_view spec, double value1, double value2,
                 std::string_view property, std::string& message);

// Entries of a result list that if97_props fills for the caller's property
// list: one per name (names separated by commas, the list ending at the
// first full stop), and at least one.
std::size_t result_count(std::string_view properties);

// Like if97_prop for a list of names separated by commas: every entry of
// results is set to -8888.8, then the library fills one entry per name.
void if97_props(std::string_view spec, double value1, double value2,
                std::string_view properties, std::span<double> results, std::string& message);

// The main properties at once.
struct AllProps {
    double p = 0.0;  // bar
    double t = 0.0;  // degrees Celsius
    double v = 0.0;  // m3/kg
    double d = 0.0;  // kg/m3
    double h = 0.0;  // kJ/kg
    double s = 0.0;  // kJ/(kg K)
    double u = 0.0;  // kJ/kg
    double x = 0.0;  // vapour quality
    std::array<double, phase_list_size> first{};   // entry 1: liquid fraction 1 - x
    std::array<double, phase_list_size> second{};  // entry 1: vapour fraction x
    double cv = 0.0;      // kJ/(kg K)
    double eta = 0.0;     // dynamic viscosity, Pa s
    double lambda = 0.0;  // thermal conductivity, W/(m K)
};
AllProps if97_allprops(std::string_view spec, double value1, double value2, std::string& message);

// Version of the IF97 library, forwarded unchanged.
void if97_getversion(std::int32_t& major, std::int32_t& minor, std::int32_t& patch,
                     std::int32_t& build);
// Set-up call of the host, forwarded unchanged to the IF97 library.
void if97_qv_sub();

}  // namespace od::if97_qv
