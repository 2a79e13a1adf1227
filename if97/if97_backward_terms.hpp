// Building blocks shared by the backward equations: a term n·a^I·b^J of a
// published table and the sum over such a table.
#pragma once
#include <span>

namespace if97::backward::detail {

struct Term {
    int i;
    int j;
    double n;
};

// x^k for an integer exponent by repeated squaring; a negative k gives
// 1/x^|k|. Much cheaper than std::pow for the exponents of the tables.
constexpr double ipow(double x, int k) {
    const bool negative = k < 0;
    unsigned e = negative ? static_cast<unsigned>(-k) : static_cast<unsigned>(k);
    double result = 1.0;
    while (e != 0) {
        if ((e & 1U) != 0) result *= x;
        x *= x;
        e >>= 1U;
    }
    return negative ? 1.0 / result : result;
}

// Sum of n·a^I·b^J over the terms of a table, in table order.
inline double sum_terms(std::span<const Term> terms, double a, double b) {
    double sum = 0.0;
    for (const Term& t : terms) sum += t.n * ipow(a, t.i) * ipow(b, t.j);
    return sum;
}

}  // namespace if97::backward::detail
