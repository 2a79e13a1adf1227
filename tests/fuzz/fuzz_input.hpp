// The bytes of one fuzz input, read front to back into the arguments of a
// call. The encoding is the one tests/fuzz/make_seeds.py writes the seed
// corpus in; past the end of the input every read gives zeros.
#pragma once
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <limits>
#include <string>
#include <string_view>

namespace fuzz {

// Values that break arithmetic, and values of real requests, chosen by one tag byte.
inline constexpr double special_values[] = {
    NAN, -NAN, INFINITY, -INFINITY, 0.0, -0.0, 1e300, -1e300, 1e-300, 5e-324,
    std::numeric_limits<double>::max(), std::numeric_limits<double>::lowest(), 1e-35, -1.0, 1.0, -273.15,
    -273.16, 0.01, 1.01325, 10.0, 25.0, 50.0, 100.0, 220.64, 300.0, 373.946, 900.0, 1000.0, 2000.0, 2800.0,
    6.5, 7.5};
inline constexpr int special_count = static_cast<int>(std::size(special_values));
inline constexpr int raw_double_tag = 192;  // this tag and above: the next 8 bytes as a double

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    bool at_end() const { return pos_ >= size_; }

    std::uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }

    // A double: tag < special_count: a special value; below raw_double_tag: a
    // value of real requests, two bytes as a signed number of quarters
    // (-8192 to 8192); else the next 8 bytes as they are.
    double number() {
        const int tag = byte();
        if (tag < special_count) return special_values[tag];
        if (tag < raw_double_tag) {
            const auto q = static_cast<std::int16_t>(byte() | (byte() << 8));
            return q * 0.25;
        }
        std::uint64_t bits = 0;
        for (int k = 0; k < 8; ++k) bits |= static_cast<std::uint64_t>(byte()) << (8 * k);
        double x;
        std::memcpy(&x, &bits, sizeof x);
        return x;
    }

    // A text whose length is the next byte (cut to max), its bytes as they are.
    std::string text(std::size_t max) {
        std::string s;
        const std::size_t n = byte() % (max + 1);
        for (std::size_t k = 0; k < n && !at_end(); ++k) s.push_back(static_cast<char>(byte()));
        return s;
    }

    // Index byte k: item k of the list, or for an index past it a text of up to max bytes.
    std::string pick(std::initializer_list<std::string_view> items, std::size_t max) {
        const std::size_t k = byte();
        if (k < items.size()) return std::string(items.begin()[k]);
        return text(max);
    }

private:
    const std::uint8_t* data_;
    std::size_t size_;
    std::size_t pos_ = 0;
};

// A broken promise: say which, and stop so that libFuzzer keeps the input.
[[noreturn]] inline void fail(const char* what) {
    std::fprintf(stderr, "fuzz check failed: %s\n", what);
    std::abort();
}

inline void check(bool ok, const char* what) {
    if (!ok) fail(what);
}

}  // namespace fuzz
