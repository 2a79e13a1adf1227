// Sub-region 1 of IFC-67 (compressed liquid up to 350 C): common terms from
// the characteristic Gibbs equation and the property routines at (p bar, t C).
#include <array>
#include <cmath>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pws_terms.hpp"

namespace pws {
namespace {

// IFC-67 sub-region 1, coefficients A0 ... A22.
constexpr std::array<double, 23> coef_a{
    6824.687741,     -542.2063673,    -20966.66205,    39412.86787,     -67332.77739,
    99023.81028,     -109391.1774,    85908.41667,     -45111.68742,    14181.38926,
    -2017.271113,    7.982692717,     -0.02616571843,  0.00152241179,   0.02284279054,
    242.1647003,     1.269716088e-10, 2.074838328e-7,  2.17402035e-8,   1.105710498e-9,
    12.93441934,     1.308119072e-5,  6.047626338e-14};

// IFC-67 sub-region 1, auxiliary constants a1 ... a12.
struct AuxConstants {
    double a1, a2, a3, a4, a5, a6, a7, a8, a9, a10, a11, a12;
};
constexpr AuxConstants aux{0.8438375405, 5.362162162e-4, 1.72,     0.07342278489,
                           0.0497585887, 0.65371543,     1.15e-6,  1.5108e-5,
                           0.14188,      7.002753165,    2.995284926e-4, 0.204};

detail::GibbsTerms evaluate(double p, double t) {
    const auto& A = coef_a;
    const AuxConstants& c = aux;
    detail::GibbsTerms r;
    const double th = reduced_temperature(t);
    const double be = p / crit_p;
    r.theta = th;
    r.beta = be;

    std::array<double, 10> thp{};  // theta^0 ... theta^9
    thp[0] = 1.0;
    for (std::size_t i = 1; i < thp.size(); ++i) thp[i] = thp[i - 1] * th;
    const double inv = 1.0 / th;
    const double inv6 = std::pow(inv, 6);
    const double th10 = thp[9] * th;
    const double th11 = th10 * th;
    const double th16 = th10 * thp[6];
    const double th17 = th16 * th;
    const double th18 = th17 * th;
    const double th19 = th18 * th;
    const double th20 = th19 * th;
    const double th36 = th18 * th18;
    const double inv20 = 1.0 / th20;

    const double y = 1.0 - c.a1 * th * th - c.a2 * inv6;
    const double yp = -2.0 * c.a1 * th + 6.0 * c.a2 * inv6 * inv;
    const double ypp = -2.0 * c.a1 - 42.0 * c.a2 * inv6 * inv * inv;
    const double w = c.a3 * y * y - 2.0 * c.a4 * th + 2.0 * c.a5 * be;
    const double rw = std::sqrt(w);  // NaN outside the sub-region's domain (w < 0)
    const double z = y + rw;
    const double zt = yp + (c.a3 * y * yp - c.a4) / rw;
    const double zm5 = std::pow(z, -5.0 / 17.0);
    const double hz = -5.0 / 12.0 * z * yp + (c.a3 - 1.0) * y * yp - c.a4;
    const double hzt = -5.0 / 12.0 * (zt * yp + z * ypp) + (c.a3 - 1.0) * (yp * yp + y * ypp);

    const double a6t = c.a6 - th;
    const double a6t8 = std::pow(a6t, 8);
    const double a6t9 = a6t8 * a6t;
    const double a6t10 = a6t9 * a6t;
    const double d16 = c.a7 + th19;
    const double g = A[12] + A[13] * th + A[14] * th * th + A[15] * a6t10 + A[16] / d16;
    const double pb = be * (A[17] + be * (A[18] + be * A[19]));
    const double pbp = A[17] + be * (2.0 * A[18] + 3.0 * be * A[19]);
    const double s = c.a8 + th11;
    const double a10b = c.a10 + be;
    const double a10b3 = 1.0 / (a10b * a10b * a10b);
    const double q = a10b3 + c.a11 * be;
    const double qp = -3.0 * a10b3 / a10b + c.a11;
    const double be2 = be * be;
    const double be3 = be2 * be;
    const double be4 = be3 * be;

    r.chi = A[11] * c.a5 * zm5 + g - pbp / s - A[20] * th18 * (c.a9 + th * th) * qp +
            3.0 * A[21] * (c.a12 - th) * be2 + 4.0 * A[22] * inv20 * be3;

    double sum_e = 0.0;  // sum of (nu - 2) A_nu theta^(nu - 1), nu = 1 ... 10
    double sum_s = 0.0;  // sum of (nu - 1) A_nu theta^(nu - 2), nu = 2 ... 10
    double sum_tt = 0.0; // sum of (nu - 1)(nu - 2) A_nu theta^(nu - 3), nu = 3 ... 10
    for (int nu = 1; nu <= 10; ++nu) {
        const double an = A[static_cast<std::size_t>(nu)];
        sum_e += (nu - 2) * an * thp[static_cast<std::size_t>(nu - 1)];
        if (nu >= 2) sum_s += (nu - 1) * an * thp[static_cast<std::size_t>(nu - 2)];
        if (nu >= 3) sum_tt += (nu - 1) * (nu - 2) * an * thp[static_cast<std::size_t>(nu - 3)];
    }

    r.eps = A[0] * th - sum_e +
            A[11] * zm5 *
                (z * (17.0 * (z / 29.0 - y / 12.0) + 5.0 * th * yp / 12.0) + c.a4 * th -
                 (c.a3 - 1.0) * th * y * yp) +
            be * (A[12] - A[14] * th * th + A[15] * (9.0 * th + c.a6) * a6t9 +
                  A[16] * (20.0 * th19 + c.a7) / (d16 * d16)) -
            (12.0 * th11 + c.a8) * pb / (s * s) + A[20] * th18 * (17.0 * c.a9 + 19.0 * th * th) * q +
            A[21] * c.a12 * be3 + 21.0 * A[22] * inv20 * be4;

    r.sigma = A[0] * std::log(th) - sum_s - A[11] * zm5 * hz -
              be * (A[13] + 2.0 * A[14] * th - 10.0 * A[15] * a6t9 -
                    19.0 * A[16] * th18 / (d16 * d16)) -
              11.0 * th10 * pb / (s * s) + A[20] * (18.0 * c.a9 * th17 + 20.0 * th19) * q +
              A[21] * be3 + 20.0 * A[22] * inv20 * inv * be4;

    r.zeta_tt = -A[0] * inv + sum_tt +
                A[11] * (-5.0 / 17.0 * zm5 / z * zt * hz + zm5 * hzt) +
                be * (2.0 * A[14] + 90.0 * A[15] * a6t8 - 342.0 * A[16] * th17 / (d16 * d16) +
                      722.0 * A[16] * th36 / (d16 * d16 * d16)) -
                pb * (-110.0 * thp[9] / (s * s) + 242.0 * th20 / (s * s * s)) -
                A[20] * q * (306.0 * c.a9 * th16 + 380.0 * th18) +
                420.0 * A[22] * inv20 * inv * inv * be4;
    return r;
}

const detail::GibbsTerms& terms(Context& ctx, double p, double t) {
    comt1(ctx, p, t);
    return ctx.region1.terms;
}

}  // namespace

void comt1(Context& ctx, double p, double t) {
    constexpr detail::StateCheck check{"COMT1", 12, false, p_min, p_max, t_sub1_min, t1_bound_max};
    KeptTerms<detail::GibbsTerms>& s = ctx.region1;
    if (detail::enter_state(ctx, check, p, t, s.a_prev, s.b_prev)) s.terms = evaluate(p, t);
}

double pws_c1(Context& ctx, double p, double t) { return detail::volume(terms(ctx, p, t)); }
double pws_d1(Context& ctx, double p, double t) { return detail::enthalpy(terms(ctx, p, t)); }
double pws_e1(Context& ctx, double p, double t) { return detail::entropy(terms(ctx, p, t)); }
double pws_f1(Context& ctx, double p, double t) { return detail::internal_energy(terms(ctx, p, t)); }
double pws_h1(Context& ctx, double p, double t) { return detail::heat_capacity(terms(ctx, p, t)); }

}  // namespace pws
