#include <cmath>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

namespace {

// IAPWS-IF97, table 38: residual part of the region 5 Gibbs equation.
constexpr Term region5_residual_terms[] = {
    {1, 1, 0.0015736404855259}, {1, 2, 0.00090153761673944}, {1, 3, -0.0050270077677648},
    {2, 3, 2.2440037409485e-06}, {2, 9, -4.1163275453471e-06}, {3, 7, 3.7919454822955e-08},
};
// IAPWS-IF97, table 37: ideal-gas part of the region 5 Gibbs equation.
constexpr IdealTerm region5_ideal_terms[] = {
    {0, -13.179983674201}, {1, 6.8540841634434}, {-3, -0.024805148933466}, {-2, 0.36901534980333},
    {-1, -3.1161318213925}, {2, -0.32961626538917},
};

constexpr double region5_t_star = 1000.0;  // K; p* = 1 MPa

// IAPWS-IF97 (2007 revision), equation 32: ideal part ln(pi) + sum n·tau^J
// plus the residual series in pi and tau, pi = p/1 MPa, tau = 1000 K/T;
// the sums named by Parts.
template <unsigned Parts>
Series region5_gamma(double pi, double tau) {
    Series g = sum_series<0, 3, 0, 9, Parts>(region5_residual_terms, pi, tau);
    if constexpr ((Parts & part_f) != 0) g.f += std::log(pi);
    if constexpr ((Parts & part_fa) != 0) g.fa += 1.0 / pi;
    if constexpr ((Parts & part_faa) != 0) g.faa -= 1.0 / (pi * pi);
    if constexpr ((Parts & (part_f | part_fb | part_fbb)) != 0) {
        const Powers<-5, 2> tp(tau);
        for (const IdealTerm& term : region5_ideal_terms) {
            const double j = term.j;
            if constexpr ((Parts & part_f) != 0) g.f += term.n * tp[term.j];
            if constexpr ((Parts & part_fb) != 0) g.fb += j * term.n * tp[term.j - 1];
            if constexpr ((Parts & part_fbb) != 0) g.fbb += j * (j - 1.0) * term.n * tp[term.j - 2];
        }
    }
    return g;
}
}  // namespace

Properties region5(double p, double t) {
    const double pi = p;
    const double tau = region5_t_star / t;
    return from_gibbs(region5_gamma<all_parts>(pi, tau), pi, tau, p, t);
}

double region5_single(GibbsProperty q, double p, double t) {
    const double pi = p;
    const double tau = region5_t_star / t;
    return gibbs_single(q, pi, tau, p, t, [pi, tau]<unsigned Parts>() { return region5_gamma<Parts>(pi, tau); });
}

}  // namespace if97
