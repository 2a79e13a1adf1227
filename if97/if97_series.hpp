// Building blocks of the forward equations: the term n·a^I·b^J of a
// published table, integer powers of one variable computed once per state,
// and the sum of a table with its first and second partial derivatives.
#pragma once
#include <array>
#include <span>

namespace if97 {

struct Term {
    int i;
    int j;
    double n;
};

// Ideal-gas part of the Gibbs equations: n·τ^J.
struct IdealTerm {
    int j;
    double n;
};

// x^k for Lo <= k <= Hi (Lo <= 0 <= Hi), each power the product of two
// lower ones, x^k = x^(k/2)·x^(k-k/2), so that the chain of dependent
// multiplications stays short; far cheaper than std::pow for the exponents
// of the tables.
template <int Lo, int Hi>
class Powers {
    static_assert(Lo <= 0 && Hi >= 0);
public:
    explicit Powers(double x) {
        v_[index(0)] = 1.0;
        if constexpr (Hi >= 1) v_[index(1)] = x;
        // For x = 0 the negative powers are set to 0 rather than divided
        // out; no state in the range of validity has x = 0.
        if constexpr (Lo <= -1) v_[index(-1)] = x != 0.0 ? 1.0 / x : 0.0;
        for (int k = 2; k <= Hi; ++k) v_[index(k)] = v_[index(k / 2)] * v_[index(k - k / 2)];
        for (int k = -2; k >= Lo; --k) v_[index(k)] = v_[index(k / 2)] * v_[index(k - k / 2)];
    }
    double operator[](int k) const { return v_[index(k)]; }

private:
    static constexpr std::size_t index(int k) { return static_cast<std::size_t>(k - Lo); }
    std::array<double, static_cast<std::size_t>(Hi - Lo + 1)> v_;  // every entry set above
};

// A function f(a, b) with its partial derivatives up to the second order.
struct Series {
    double f = 0.0;
    double fa = 0.0;
    double faa = 0.0;
    double fb = 0.0;
    double fbb = 0.0;
    double fab = 0.0;
};

// The sums of a Series, as bits: a caller that needs one property asks for
// the sums of that property alone (h needs f_b only); the others stay 0.
enum SeriesPart : unsigned {
    part_f = 1u << 0,
    part_fa = 1u << 1,
    part_faa = 1u << 2,
    part_fb = 1u << 3,
    part_fbb = 1u << 4,
    part_fab = 1u << 5,
};
inline constexpr unsigned all_parts = part_f | part_fa | part_faa | part_fb | part_fbb | part_fab;

// Sum of n·a^I·b^J over a table, with derivatives in a and b (those named
// by Parts). ALo..AHi and BLo..BHi must cover the exponents of the table; a
// and b must not be 0. Each term x = n·a^I·b^J is formed once: its
// derivatives are I·x/a, I(I-1)·x/a², J·x/b, J(J-1)·x/b² and I·J·x/(a·b),
// so the divisions are done once on the sums. A sum comes out the same,
// bit for bit, whichever other sums are asked for with it.
template <int ALo, int AHi, int BLo, int BHi, unsigned Parts = all_parts>
Series sum_series(std::span<const Term> terms, double a, double b) {
    const Powers<ALo, AHi> pa(a);
    const Powers<BLo, BHi> pb(b);
    Series s;
    for (const Term& t : terms) {
        const double i = t.i;
        const double j = t.j;
        const double x = t.n * pa[t.i] * pb[t.j];
        if constexpr ((Parts & part_f) != 0) s.f += x;
        if constexpr ((Parts & part_fa) != 0) s.fa += i * x;
        if constexpr ((Parts & part_faa) != 0) s.faa += i * (i - 1.0) * x;
        if constexpr ((Parts & part_fb) != 0) s.fb += j * x;
        if constexpr ((Parts & part_fbb) != 0) s.fbb += j * (j - 1.0) * x;
        if constexpr ((Parts & part_fab) != 0) s.fab += i * j * x;
    }
    // Guarded too: the compiler may not drop 0·(1/a) on its own.
    const double inv_a = (Parts & (part_fa | part_faa | part_fab)) != 0 ? 1.0 / a : 0.0;
    const double inv_b = (Parts & (part_fb | part_fbb | part_fab)) != 0 ? 1.0 / b : 0.0;
    if constexpr ((Parts & part_fa) != 0) s.fa *= inv_a;
    if constexpr ((Parts & part_faa) != 0) s.faa *= inv_a * inv_a;
    if constexpr ((Parts & part_fb) != 0) s.fb *= inv_b;
    if constexpr ((Parts & part_fbb) != 0) s.fbb *= inv_b * inv_b;
    if constexpr ((Parts & part_fab) != 0) s.fab *= inv_a * inv_b;
    return s;
}

// A function of b at fixed a with its first three derivatives in b.
struct SeriesB {
    double f = 0.0;
    double fb = 0.0;
    double fbb = 0.0;
    double fbbb = 0.0;
};

// Sum of n·a^I·b^J over a table with derivatives in b up to the third, for
// the iterations along an isobar that need no derivative in a.
template <int ALo, int AHi, int BLo, int BHi>
SeriesB sum_series_b(std::span<const Term> terms, double a, double b) {
    const Powers<ALo, AHi> pa(a);
    const Powers<BLo, BHi> pb(b);
    SeriesB s;
    for (const Term& t : terms) {
        const double j = t.j;
        const double x = t.n * pa[t.i] * pb[t.j];
        s.f += x;
        s.fb += j * x;
        s.fbb += j * (j - 1.0) * x;
        s.fbbb += j * (j - 1.0) * (j - 2.0) * x;
    }
    const double inv_b = 1.0 / b;
    s.fb *= inv_b;
    s.fbb *= inv_b * inv_b;
    s.fbbb *= inv_b * inv_b * inv_b;
    return s;
}

}  // namespace if97
