// Types and markers shared by the mixture model: component names, mixtures,
// property functions and the missing-value markers.
#pragma once
#include <array>
#include <cstdint>
#include <cstring>
#include <span>
#include <string_view>

namespace od {

inline constexpr double missing_value = -8888.8;  // a value that is not available
inline constexpr int missing_row = -8888;         // a gas table row that does not exist
inline constexpr int max_components = 250;        // rows of the gas table, entries of a mixture
inline constexpr int name_width = 8;              // significant characters of a component name

// Component name: 8 characters, blank-padded. Two names are equal when their
// texts are equal after trailing blanks are removed, case-sensitively.
// A default-constructed name is all NUL, like an unfilled table slot.
struct CompName {
    std::array<char, name_width> text{};
    // The source text had non-blank characters past column 8: such a name
    // can never equal a stored (8-character) name.
    bool overlong = false;

    // From caller text of any width: cut or blank-padded to 8 characters.
    static CompName from(std::string_view s) {
        CompName c;
        c.text.fill(' ');
        const std::size_t n = s.size() < c.text.size() ? s.size() : c.text.size();
        if (n > 0) std::memcpy(c.text.data(), s.data(), n);
        for (std::size_t i = n; i < s.size(); ++i)
            if (s[i] != ' ') { c.overlong = true; break; }
        return c;
    }
    // The 8-character text as stored (cut, blank-padded; overlong flag dropped).
    CompName stored() const { CompName c = *this; c.overlong = false; return c; }
    // The text with trailing blanks removed.
    std::string_view trimmed() const {
        std::size_t n = text.size();
        while (n > 0 && text[n - 1] == ' ') --n;
        return {text.data(), n};
    }
    // The 8 bytes as one integer, for quick comparisons.
    std::uint64_t key() const {
        std::uint64_t k;
        std::memcpy(&k, text.data(), sizeof k);
        return k;
    }
};

inline bool operator==(const CompName& a, const CompName& b) {
    return !a.overlong && !b.overlong && a.key() == b.key();
}

// A mixture: n = names.size() components with their concentrations (mole
// fractions, used as given, never normalised). names and conc have equal size.
struct Mixture {
    std::span<const CompName> names;
    std::span<const double> conc;
    int n() const { return static_cast<int>(names.size()); }
};

// A state function of two state variables and a mixture, e.g. h_pt(p, t, mix).
using PropertyFn = double (*)(double x1, double x2, const Mixture& mix);

}  // namespace od
