// The fixed-column field reader against an independent reading of the same
// field by the C library (strtod, strtol): every field is a fault for both
// or the same number, bit for bit.
//
// Input: one byte of implied decimals (0 to 9), then the field text.
#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "fluiddata/od_fieldread.hpp"
#include "tests/fuzz/fuzz_input.hpp"

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }
bool is_digits(std::string_view s) {
    for (char c : s)
        if (!is_digit(c)) return false;
    return !s.empty();
}

std::string without_blanks(std::string_view field) {
    std::string s;
    for (char c : field)
        if (c != ' ') s.push_back(c);
    return s;
}

// Fw.d / Ew.d read by rewriting the field as a C number: the implied
// decimal point put in, the exponent letter (E, D, Q or none before a sign)
// made an 'e', then strtod.
std::optional<double> reference_real(std::string_view field, int decimals) {
    const std::string s = without_blanks(field);
    std::size_t i = 0;
    const bool negative = !s.empty() && s[0] == '-';
    if (!s.empty() && (s[0] == '+' || s[0] == '-')) i = 1;
    if (i == s.size()) return 0.0;  // blank, or a sign alone
    std::size_t j = i;
    while (j < s.size() && (is_digit(s[j]) || s[j] == '.')) ++j;
    std::string mantissa = s.substr(i, j - i);
    const std::size_t points = static_cast<std::size_t>(std::count(mantissa.begin(), mantissa.end(), '.'));
    // No mantissa, or a second point (which no exponent can begin with): a fault.
    if (mantissa.empty() || points > 1) return std::nullopt;
    std::string exponent = s.substr(j);
    if (!exponent.empty()) {
        if (std::string_view("EeDdQq").find(exponent[0]) != std::string_view::npos) exponent.erase(0, 1);
        const std::size_t digits_from = !exponent.empty() && (exponent[0] == '+' || exponent[0] == '-') ? 1 : 0;
        if (!is_digits(std::string_view(exponent).substr(digits_from))) return std::nullopt;
    }
    if (mantissa == ".") return negative ? -0.0 : 0.0;
    if (points == 0) {
        if (mantissa.size() <= static_cast<std::size_t>(decimals))
            mantissa.insert(0, static_cast<std::size_t>(decimals) + 1 - mantissa.size(), '0');
        mantissa.insert(mantissa.size() - static_cast<std::size_t>(decimals), ".");
    }
    const std::string c_text = (negative ? "-" : "") + mantissa + (exponent.empty() ? "" : "e" + exponent);
    errno = 0;
    char* end = nullptr;
    const double value = std::strtod(c_text.c_str(), &end);
    if (end != c_text.c_str() + c_text.size()) fuzz::fail("reference text not read whole");
    if (errno == ERANGE && std::isinf(value)) return std::nullopt;  // overflow
    return value;
}

// Iw: an optional sign and digits, in the range of a 32-bit integer.
std::optional<int> reference_integer(std::string_view field) {
    const std::string s = without_blanks(field);
    if (s.empty()) return 0;
    const std::size_t digits_from = s[0] == '+' || s[0] == '-' ? 1 : 0;
    if (!is_digits(std::string_view(s).substr(digits_from))) return std::nullopt;
    errno = 0;
    const long long value = std::strtoll(s.c_str(), nullptr, 10);
    if (errno == ERANGE || value < INT_MIN || value > INT_MAX) return std::nullopt;
    return static_cast<int>(value);
}

bool same(std::optional<double> a, std::optional<double> b) {
    if (a.has_value() != b.has_value()) return false;
    return !a || std::memcmp(&*a, &*b, sizeof(double)) == 0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const int decimals = data[0] % 10;
    const std::string_view field(reinterpret_cast<const char*>(data) + 1, size - 1);
    const std::optional<double> real = od::fieldread::real(field, decimals);
    fuzz::check(same(real, reference_real(field, decimals)), "real differs from strtod");
    fuzz::check(!real || std::isfinite(*real), "real not finite");
    fuzz::check(od::fieldread::integer(field) == reference_integer(field), "integer differs from strtoll");

    // The same text as a line of fields of widths 1 to 16.
    od::fieldread::Cursor cursor{field};
    double x = 0.0;
    int n = 0;
    for (std::size_t w = 1; cursor.ok && cursor.column < field.size(); w = w % 16 + 1) {
        const std::size_t column = cursor.column;
        const std::string_view piece = field.substr(column, w);
        if (w % 3 == 0) {
            const bool ok = cursor.integer(w, n);
            fuzz::check(ok == reference_integer(piece).has_value(), "cursor integer");
        } else {
            const bool ok = cursor.real(w, decimals, x);
            fuzz::check(ok == reference_real(piece, decimals).has_value(), "cursor real");
        }
    }
    return 0;
}
