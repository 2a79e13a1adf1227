// Entry routine of the water-and-steam package (IFC-67): the properties named
// in a key list, for the state that an inverse routine finds from an input
// pair. Units: bar, degrees Celsius, m3/kg, kJ/kg, kJ/(kg K); CP kJ/(kg K),
// DV Pa s, TC kW/(m K); X is the dryness fraction.
#pragma once
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "pwsftn/pws_inverse.hpp"

namespace pws {

// The inverse routine handed to pwsftn: a routine of the pwsr* family (or any
// function of the same form), or any callable invoked as
// `std::int32_t(double& a, double& b, double eps)`. The exports use the second
// form to call a routine of the host's calling convention. Non-owning: the
// callable must outlive the call of pwsftn. An empty routine (a null function)
// places no state: its result is 0.
class InverseRoutine {
public:
    constexpr InverseRoutine(InverseFn fn) : fn_(fn) {}  // NOLINT: implicit by design
    template <class F>
        requires(!std::is_convertible_v<F&, InverseFn> &&
                 std::is_invocable_r_v<std::int32_t, F&, double&, double&, double>)
    constexpr InverseRoutine(F& callable)  // NOLINT: implicit by design
        : object_(&callable), thunk_([](void* o, double& a, double& b, double eps) -> std::int32_t {
              return (*static_cast<F*>(o))(a, b, eps);
          }) {}

    std::int32_t operator()(double& a, double& b, double eps) const {
        if (fn_ != nullptr) return fn_(a, b, eps);
        if (thunk_ != nullptr) return thunk_(object_, a, b, eps);
        return 0;
    }

private:
    InverseFn fn_ = nullptr;
    void* object_ = nullptr;
    std::int32_t (*thunk_)(void*, double&, double&, double) = nullptr;
};

// Evaluates the keys of `depend` for the state that xysub finds from (x, y).
// - xysub is called once with copies of x and y and eps = 1.0E-8.
// - depend: keys "P", "T", "V", "H", "S", "X", "CP", "DV", "TC" separated by
//   ",", the list ending at ".", a blank, the end of the text or any character
//   other than "," after a key; a key is cut to 4 characters.
// - result[k] receives the value of the k-th key; every key takes one entry,
//   also an illegal one (whose entry is left untouched). Keys beyond the end
//   of `result` are read and reported but not stored; key_count(depend)
//   entries always suffice.
// Reports on channel 13: an illegal region number (result untouched), each
// illegal key, and once CP, DV or TC asked in a wet state (those entries 0).
void pwsftn(InverseRoutine xysub, double x, double y, std::string_view depend,
            std::span<double> result);

// Number of keys (legal or not) that pwsftn reads from `depend`.
std::size_t key_count(std::string_view depend);

// The 4-character key buffer as the last call left it (blank-filled).
std::string_view last_key();

// Test hook: blanks the key buffer.
void reset_entry_for_tests();

}  // namespace pws
