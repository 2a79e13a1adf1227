#include "fluiddata/od_fieldread.hpp"

#include <charconv>
#include <cmath>
#include <string>

namespace od::fieldread {
namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

// Exponents beyond this magnitude over- or underflow any double anyway;
// saturating keeps the digit loop free of integer overflow.
constexpr int exponent_limit = 100000;

// Reads a run of digits from s at p into value, saturating; returns the count.
std::size_t read_digits(std::string_view s, std::size_t& p, int& value) {
    const std::size_t start = p;
    value = 0;
    for (; p < s.size() && is_digit(s[p]); ++p)
        if (value < exponent_limit) value = value * 10 + (s[p] - '0');
    return p - start;
}

// The field with its blanks removed.
std::string without_blanks(std::string_view field) {
    std::string s;
    s.reserve(field.size());
    for (char c : field)
        if (c != ' ') s.push_back(c);
    return s;
}

}  // namespace

std::optional<double> real(std::string_view field, int decimals) {
    const std::string s = without_blanks(field);
    std::size_t p = 0;
    bool negative = false;
    if (p < s.size() && (s[p] == '+' || s[p] == '-')) negative = s[p++] == '-';
    const double zero = negative ? -0.0 : 0.0;
    if (p == s.size()) return 0.0;  // an all-blank field, or a lone sign, reads as zero

    // Mantissa: digits with an optional decimal point.
    std::string digits;
    int scale = -decimals;  // implied decimals apply when the text has no point
    bool point = false;
    for (; p < s.size(); ++p) {
        if (is_digit(s[p])) {
            digits.push_back(s[p]);
            if (point) --scale;
        } else if (s[p] == '.' && !point) {
            point = true;
            scale = 0;
        } else {
            break;
        }
    }
    if (digits.empty() && !point) return std::nullopt;  // no mantissa at all

    // Exponent: a letter E, D or Q with an optional sign, or a bare sign.
    int exponent = 0;
    if (p < s.size()) {
        const char c = s[p];
        const bool letter = c == 'E' || c == 'e' || c == 'D' || c == 'd' || c == 'Q' || c == 'q';
        if (!letter && c != '+' && c != '-') return std::nullopt;
        if (letter) ++p;
        bool exp_negative = false;
        if (p < s.size() && (s[p] == '+' || s[p] == '-')) exp_negative = s[p++] == '-';
        if (read_digits(s, p, exponent) == 0) return std::nullopt;
        if (exp_negative) exponent = -exponent;
    }
    if (p != s.size()) return std::nullopt;  // characters after the number
    if (digits.empty()) return zero;         // "." or "-." alone

    // The decimal text digits * 10^(scale + exponent), converted with correct rounding.
    const std::string text = digits + 'e' + std::to_string(scale + exponent);
    double value = 0.0;
    const auto [end, ec] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (ec == std::errc::result_out_of_range && scale + exponent < 0) return zero;  // underflow
    if (ec != std::errc() || end != text.data() + text.size() || !std::isfinite(value))
        return std::nullopt;
    return negative ? -value : value;
}

std::optional<int> integer(std::string_view field) {
    const std::string s = without_blanks(field);
    if (s.empty()) return 0;  // an all-blank field reads as zero
    std::size_t p = 0;
    bool negative = false;
    if (s[p] == '+' || s[p] == '-') negative = s[p++] == '-';
    if (p == s.size()) return std::nullopt;  // a sign needs digits
    // The magnitudes a 32-bit integer holds: one more below zero than above.
    const long long limit = negative ? 2147483648LL : 2147483647LL;
    long long value = 0;
    for (; p < s.size(); ++p) {
        if (!is_digit(s[p])) return std::nullopt;
        value = value * 10 + (s[p] - '0');
        if (value > limit) return std::nullopt;
    }
    return static_cast<int>(negative ? -value : value);
}

std::string_view Cursor::take(std::size_t width) {
    const std::size_t start = column < line.size() ? column : line.size();
    column += width;
    return line.substr(start, width);
}

bool Cursor::text(std::size_t width, std::string_view& out) {
    if (!ok) return false;
    out = take(width);
    return true;
}

bool Cursor::real(std::size_t width, int decimals, double& out) {
    if (!ok) return false;
    const auto v = fieldread::real(take(width), decimals);
    if (!v) return ok = false;
    out = *v;
    return true;
}

bool Cursor::integer(std::size_t width, int& out) {
    if (!ok) return false;
    const auto v = fieldread::integer(take(width));
    if (!v) return ok = false;
    out = *v;
    return true;
}

}  // namespace od::fieldread
