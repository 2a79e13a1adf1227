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

#include "pwsftn/pws_context_fwd.hpp"
#include "pwsftn/pws_inverse.hpp"

namespace pws {

// The inverse routine handed to the legacy pwsftn: a routine of the pwsr*
// family of the legacy form (or any function of that form), or any callable
// invoked as `std::int32_t(double& a, double& b, double eps)`. Non-owning: the
// callable must outlive the call of pwsftn. An empty routine (a null function)
// places no state: its result is 0.
class InverseRoutine {
public:
    constexpr InverseRoutine(InverseFn fn) : fn_(fn) {}  // NOLINT: implicit by design
    template <class F>
        requires(!std::is_convertible_v<F&, InverseFn> &&
                 !std::is_same_v<std::remove_cv_t<F>, InverseRoutine> &&
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

// Property keys, in the order the entry routine compares them: "P", "T",
// "V", "H", "S", "X", "CP", "DV", "TC".
enum class Key { p, t, v, h, s, x, cp, dv, tc, illegal };

// The state as the entry routine evaluates it: the region and values an
// inverse routine placed, a wet state settled.
struct PlacedState {
    std::int32_t ireg = 0;
    double f = 0;            // first value: pressure, volume or dryness fraction
    double t = 0;            // temperature, C
    double ps = 0;           // saturation pressure of a wet state, bar
    SaturatedVolumes sat{};  // IREG 5: saturated region-3 volumes
    double v = 0;            // volume for DV and TC
    bool have_v = false;     // v already known (IREG 3 and 4 at entry)
    bool wet_asked = false;  // CP, DV or TC met a wet state
};

// Calls xysub once with copies of x and y and eps = 1.0E-8. A region 1 to 6
// is settled for evaluation (a wet state gets its saturation pressure, its
// region-3 volumes above 350 C, and is taken as the saturated phase when its
// dryness fraction is within 1.0E-6 of 0 or 1) and the result is true; any
// other region number is left in st.ireg, nothing reported, and the result is
// false.
bool place(Context& ctx, Inverse xysub, double x, double y, PlacedState& st);
// The line of the entry routine for an inverse routine's region number
// outside 1 to 6, on channel 13.
void report_illegal_region(Context& ctx, std::int32_t ireg);
// The value of a legal key for a placed state, in the units of the package
// (TC in kW/(m K)). CP, DV and TC of a wet state are 0 and set st.wet_asked.
double evaluate(Context& ctx, Key key, PlacedState& st);

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
// The context's key buffer holds the last key read.
void pwsftn(Context& ctx, Inverse xysub, double x, double y, std::string_view depend,
            std::span<double> result);

// Number of keys (legal or not) that pwsftn reads from `depend`.
std::size_t key_count(std::string_view depend);

// The 4-character key buffer as the context's last call left it (blank-filled).
std::string_view last_key(const Context& ctx);

// ---------------------------------------------------------------------------
// The legacy routines: the same over the default context.

void pwsftn(InverseRoutine xysub, double x, double y, std::string_view depend, std::span<double> result);
inline std::string_view last_key() { return last_key(default_context()); }

// Test hook: blanks the default context's key buffer.
void reset_entry_for_tests();

}  // namespace pws
