// Entry routine of the water-and-steam package: inverse routine, wet-state
// handling, then the key list in text order.
#include "pwsftn/pwsftn.hpp"

#include <array>
#include <string>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"

namespace pws {
namespace {

constexpr std::size_t key_width = 4;

// The key texts in the order of Key, compared with the blank-filled key buffer.
constexpr std::array<std::string_view, 9> key_table{"P   ", "T   ", "V   ", "H   ", "S   ",
                                                    "X   ", "CP  ", "DV  ", "TC  "};

// Channel-13 messages (list-directed lines).
constexpr std::string_view illegal_region_head = "*** PWSFTN-ERROR: illegal region calculated: ";
constexpr std::string_view illegal_region_label = "IREG = ";
// Intended: "dependend" is the message's own spelling.
constexpr std::string_view illegal_key_head = "*** PWSFTN-ERROR: illegal dependend property: ";
constexpr std::string_view wet_transport_head = "*** PWSFTN-ERROR: CP, DV, TC cannot be calculated ";
constexpr std::string_view wet_transport_tail = "in wet region ***";
constexpr std::string_view message_tail = " ***";
// Blank that list-directed output puts between a number and the next item.
constexpr std::string_view item_separator = " ";

constexpr std::string_view name_pws_pt = "PWS_PT";
constexpr std::int32_t code_t = 2;

// A wet state this close to one phase is taken as that saturated phase.
constexpr double snap_liquid = 1.0E-6;
constexpr double snap_vapour = 0.999999;
constexpr double w_to_kw = 0.001;  // W/(m K) to kW/(m K)

// The character at 1-based position i; past the end reads as a blank.
char at(std::string_view text, std::size_t i) { return i >= 1 && i <= text.size() ? text[i - 1] : ' '; }

bool ends_key(char c) { return c == '.' || c == ',' || c == ' '; }

// read_key, lookup and value_of are marked inline so that the key loop of
// the entry routine stays one piece of code (the legacy (p, T) call costs
// about 180 ns, and calls between them would add a tenth).

// Reads the key that starts after position i into `buffer`; i is left on the
// character that ended it.
inline void read_key(std::string_view text, std::size_t& i, std::array<char, key_width>& buffer) {
    buffer.fill(' ');
    ++i;  // step over the separator (for the first key: onto the first character)
    // Intended: a longer key is cut to 4 characters, and since its fifth
    // character is not "," the list ends there.
    for (std::size_t n = 0; n < key_width && !ends_key(at(text, i)); ++n, ++i) buffer[n] = at(text, i);
}

inline Key lookup(const std::array<char, key_width>& buffer) {
    const std::string_view key(buffer.data(), buffer.size());
    for (std::size_t k = 0; k < key_table.size(); ++k)
        if (key_table[k] == key) return static_cast<Key>(k);
    return Key::illegal;
}

double mix(double liquid, double vapour, double x) { return liquid + x * (vapour - liquid); }

// Wet state: saturation pressure, region-3 volumes, snapping to one phase.
void settle_wet(Context& ctx, PlacedState& st) {
    if (st.t > crit_t) {
        // Intended: reported, then evaluated on with a saturation pressure of 0.
        pwser(ctx, name_pws_pt, code_t, st.t, 0.0);
        st.ps = 0.0;
    } else {
        st.ps = pws_pt(ctx, st.t);
    }
    if (st.ireg == ireg_wet_r3) st.sat = saturated_volumes3(ctx, st.ps, st.t);
    // Intended: nearly single-phase wet states are evaluated as the saturated
    // phase, so that CP, DV and TC become available.
    if (st.ireg == ireg_wet) {
        if (st.f <= snap_liquid) st.ireg = ireg_liquid, st.f = st.ps;
        else if (st.f >= snap_vapour) st.ireg = ireg_vapour, st.f = st.ps;
    } else {
        if (st.f <= snap_liquid) st.ireg = ireg_r3_liquid, st.f = st.sat.liquid;
        else if (st.f >= snap_vapour) st.ireg = ireg_r3_vapour, st.f = st.sat.vapour;
    }
}

double volume(Context& ctx, PlacedState& st) {
    if (!st.have_v) {
        st.v = st.ireg == ireg_liquid ? pws_c1(ctx, st.f, st.t) : pws_c2(ctx, st.f, st.t);
        st.have_v = true;
    }
    return st.v;
}

// Volume, enthalpy or entropy by region, from the routines of sub-region 1,
// region 2 and region 3 (the region-3 volume is the first value itself).
struct ByRegion {
    RegionFn r1, r2, r3;
};
constexpr ByRegion volume_fns{pws_c1, pws_c2, [](Context&, double v, double) { return v; }};
constexpr ByRegion enthalpy_fns{pws_d1, pws_d2, pws_d3};
constexpr ByRegion entropy_fns{pws_e1, pws_e2, pws_e3};

double by_region(Context& ctx, const ByRegion& fn, const PlacedState& st) {
    const double f = st.f, t = st.t;
    switch (st.ireg) {
    case ireg_liquid: return fn.r1(ctx, f, t);
    case ireg_vapour: return fn.r2(ctx, f, t);
    case ireg_wet_r3: return mix(fn.r3(ctx, st.sat.liquid, t), fn.r3(ctx, st.sat.vapour, t), f);
    case ireg_wet: return mix(fn.r1(ctx, st.ps, t), fn.r2(ctx, st.ps, t), f);
    default: return fn.r3(ctx, f, t);
    }
}

// Value of one legal key, by region.
inline double value_of(Context& ctx, Key key, PlacedState& st) {
    const double f = st.f, t = st.t;
    const std::int32_t ireg = st.ireg;
    const bool wet = ireg == ireg_wet_r3 || ireg == ireg_wet;
    switch (key) {
    case Key::p:
        if (ireg == ireg_liquid || ireg == ireg_vapour) return f;
        return wet ? st.ps : pws_a3(ctx, f, t);
    case Key::t: return t;
    case Key::v: return by_region(ctx, volume_fns, st);
    case Key::h: return by_region(ctx, enthalpy_fns, st);
    case Key::s: return by_region(ctx, entropy_fns, st);
    case Key::x:
        if (wet) return f;
        // Intended: 0 for the liquid regions and 1 for the vapour regions, whatever the state.
        return ireg == ireg_liquid || ireg == ireg_r3_liquid ? 0.0 : 1.0;
    case Key::cp:
    case Key::dv:
    case Key::tc:
        if (wet) {
            st.wet_asked = true;
            return 0.0;
        }
        if (key == Key::cp)
            return ireg == ireg_liquid   ? pws_h1(ctx, f, t)
                   : ireg == ireg_vapour ? pws_h2(ctx, f, t)
                                         : pws_h3(ctx, f, t);
        if (key == Key::dv) return pws_ci(volume(ctx, st), t);
        return pws_cj(volume(ctx, st), t) * w_to_kw;
    case Key::illegal: break;
    }
    return 0.0;
}

// The inverse routine's state, settled for evaluation; false for an illegal region.
template <class Routine>
bool place_state(Context& ctx, const Routine& xysub, double x, double y, PlacedState& st) {
    st = PlacedState{};
    st.f = x;
    st.t = y;
    st.ireg = xysub(ctx, st.f, st.t, entry_eps);
    if (st.ireg < ireg_liquid || st.ireg > ireg_wet) return false;
    if (st.ireg == ireg_wet_r3 || st.ireg == ireg_wet) settle_wet(ctx, st);
    if (st.ireg == ireg_r3_vapour || st.ireg == ireg_r3_liquid) st.v = st.f, st.have_v = true;
    return true;
}

// The entry routine for any inverse routine called as xysub(ctx, a, b, eps).
template <class Routine>
void evaluate_keys(Context& ctx, const Routine& xysub, double x, double y, std::string_view depend,
                   std::span<double> result) {
    PlacedState st;
    if (!place_state(ctx, xysub, x, y, st)) {
        report_illegal_region(ctx, st.ireg);
        return;
    }

    std::array<char, key_width>& buffer = ctx.entry.depend;
    std::size_t i = 0;
    std::size_t k = 0;
    do {
        read_key(depend, i, buffer);
        const Key key = lookup(buffer);
        if (key == Key::illegal) {
            write_record(ctx, host_channel,
                         list_directed({illegal_key_head, std::string_view(buffer.data(), key_width),
                                        message_tail}));
        } else {
            const double value = value_of(ctx, key, st);
            if (k < result.size()) result[k] = value;
        }
        ++k;
    } while (at(depend, i) == ',');

    if (st.wet_asked)
        write_record(ctx, host_channel, list_directed({wet_transport_head, wet_transport_tail}));
}

}  // namespace

void report_illegal_region(Context& ctx, std::int32_t ireg) {
    write_record(ctx, host_channel, list_directed({illegal_region_head, illegal_region_label,
                                                   list_integer(ireg), item_separator, message_tail}));
}

bool place(Context& ctx, Inverse xysub, double x, double y, PlacedState& st) {
    return place_state(ctx, xysub, x, y, st);
}

double evaluate(Context& ctx, Key key, PlacedState& st) { return value_of(ctx, key, st); }

std::size_t key_count(std::string_view depend) {
    std::array<char, key_width> buffer{};
    std::size_t i = 0;
    std::size_t count = 0;
    do {
        read_key(depend, i, buffer);
        ++count;
    } while (at(depend, i) == ',');
    return count;
}

void pwsftn(Context& ctx, Inverse xysub, double x, double y, std::string_view depend,
            std::span<double> result) {
    evaluate_keys(ctx, xysub, x, y, depend, result);
}

void pwsftn(InverseRoutine xysub, double x, double y, std::string_view depend, std::span<double> result) {
    const auto routine = [&xysub](Context&, double& a, double& b, double eps) { return xysub(a, b, eps); };
    evaluate_keys(default_context(), routine, x, y, depend, result);
}

std::string_view last_key(const Context& ctx) {
    const std::array<char, key_width>& b = ctx.entry.depend;
    return {b.data(), b.size()};
}

void reset_entry_for_tests() { default_context().entry.depend.fill(' '); }

}  // namespace pws
