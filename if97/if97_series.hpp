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

// x^k for Lo <= k <= Hi, built by repeated multiplication (far cheaper than
// std::pow for the exponents of the tables). For x = 0 the negative powers
// are set to 0: they only ever multiply terms whose derivative factor is 0.
template <int Lo, int Hi>
class Powers {
public:
    explicit Powers(double x) {
        v_[index(0)] = 1.0;
        for (int k = 1; k <= Hi; ++k) v_[index(k)] = v_[index(k - 1)] * x;
        const double inv = x != 0.0 ? 1.0 / x : 0.0;
        for (int k = -1; k >= Lo; --k) v_[index(k)] = v_[index(k + 1)] * inv;
    }
    double operator[](int k) const { return v_[index(k)]; }

private:
    static constexpr std::size_t index(int k) { return static_cast<std::size_t>(k - Lo); }
    std::array<double, static_cast<std::size_t>(Hi - Lo + 1)> v_{};
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

// Sum of n·a^I·b^J over a table, with derivatives in a and b. ALo..AHi and
// BLo..BHi must cover the exponents of the table lowered by 2.
template <int ALo, int AHi, int BLo, int BHi>
Series sum_series(std::span<const Term> terms, double a, double b) {
    const Powers<ALo, AHi> pa(a);
    const Powers<BLo, BHi> pb(b);
    Series s;
    for (const Term& t : terms) {
        const double i = t.i;
        const double j = t.j;
        const double na = t.n * pa[t.i];
        const double na1 = t.n * pa[t.i - 1];
        const double bj = pb[t.j];
        const double bj1 = pb[t.j - 1];
        s.f += na * bj;
        s.fa += i * na1 * bj;
        s.faa += i * (i - 1.0) * t.n * pa[t.i - 2] * bj;
        s.fb += j * na * bj1;
        s.fbb += j * (j - 1.0) * na * pb[t.j - 2];
        s.fab += i * j * na1 * bj1;
    }
    return s;
}

}  // namespace if97
