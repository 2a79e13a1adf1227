// Region 2 of IFC-67 (superheated vapour): common terms from the
// characteristic Gibbs equation and the property routines at (p bar, t C).
#include <array>
#include <cmath>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pws_terms.hpp"

namespace pws {
namespace {

// IFC-67 region 2: B0, B01 ... B05 and the exponent factor b.
constexpr double coef_b0 = 16.83599274;
constexpr std::array<double, 5> coef_b0l{28.56067796, -54.38923329, 0.4330662834,
                                         -0.6547711697, 0.08565182058};
constexpr double coef_b = 0.7633333333;

// IFC-67 region 2, numerator terms B(mu, lambda) X^z(mu, lambda).
struct Term {
    int mu;
    int z;
    double n;
};
constexpr std::array<Term, 18> terms_b{{
    {1, 13, 0.06670375918},  {1, 3, 1.388983801},     {2, 18, 0.08390104328},
    {2, 2, 0.02614670893},   {2, 1, -0.03373439453},  {3, 18, 0.4520918904},
    {3, 10, 0.1069036614},   {4, 25, -0.5975336707},  {4, 14, -0.08847535804},
    {5, 32, 0.5958051609},   {5, 28, -0.5159303373},  {5, 24, 0.2075021122},
    {6, 12, 0.1190610271},   {6, 11, -0.09867174132}, {7, 24, 0.1683998803},
    {7, 18, -0.05809438001}, {8, 24, 0.006552390126}, {8, 14, 0.0005710218649},
}};
// IFC-67 region 2, denominator terms b(mu, lambda) X^x(mu, lambda), mu = 6 ... 8.
constexpr std::array<Term, 4> terms_bd{{
    {6, 14, 0.4006073948},
    {7, 19, 0.08636081627},
    {8, 54, -0.8532322921},
    {8, 27, 0.3460208861},
}};
// IFC-67 region 2, B9,0 ... B9,6 of the L-function term.
constexpr std::array<double, 7> coef_b9{193.6587558,  -1388.522425, 4126.607219, -6508.211677,
                                        5745.984054,  -2693.088365, 523.5718623};
constexpr int max_x_power = 54;

detail::GibbsTerms evaluate(double p, double t) {
    const double b = coef_b;
    detail::GibbsTerms r;
    const double th = reduced_temperature(t);
    const double be = p / crit_p;
    r.theta = th;
    r.beta = be;

    std::array<double, max_x_power + 1> xp{};  // X^0 ... X^54
    xp[0] = 1.0;
    xp[1] = std::exp(b * (1.0 - th));
    for (std::size_t i = 2; i < xp.size(); ++i) xp[i] = xp[i - 1] * xp[1];

    // Sums per mu of B X^z, z B X^z, z^2 B X^z and of b X^x, x b X^x, x^2 b X^x.
    using Sums = std::array<double, 9>;
    Sums n0{}, n1{}, n2{}, d0{}, d1{}, d2{};
    const auto sum_by_mu = [&xp](const auto& table, Sums& s0, Sums& s1, Sums& s2) {
        for (const Term& tm : table) {
            const double v = tm.n * xp[static_cast<std::size_t>(tm.z)];
            const auto m = static_cast<std::size_t>(tm.mu);
            s0[m] += v;
            s1[m] += tm.z * v;
            s2[m] += tm.z * tm.z * v;
        }
    };
    sum_by_mu(terms_b, n0, n1, n2);
    sum_by_mu(terms_bd, d0, d1, d2);

    double chi = i1_const * th / be;
    double eps = coef_b0 * th;
    double sigma = -i1_const * std::log(be) + coef_b0 * std::log(th);
    double ztt = -coef_b0 / th;
    double thl = 1.0;  // theta^(lambda - 1)
    for (int l = 1; l <= 5; ++l) {
        const double bl = coef_b0l[static_cast<std::size_t>(l - 1)];
        eps -= (l - 2) * bl * thl;
        if (l >= 2) sigma -= (l - 1) * bl * thl / th;
        if (l >= 3) ztt += (l - 1) * (l - 2) * bl * thl / (th * th);
        thl *= th;
    }

    double bmu = 1.0;  // beta^mu
    for (std::size_t m = 1; m <= 5; ++m) {
        chi -= static_cast<double>(m) * bmu * n0[m];
        bmu *= be;
        eps -= bmu * (n0[m] + b * th * n1[m]);
        sigma -= b * bmu * n1[m];
        ztt -= b * b * bmu * n2[m];
    }
    const double inv_be = 1.0 / be;
    double bp = inv_be * inv_be * inv_be;  // beta^(2 - mu), from beta^-3
    for (std::size_t m = 6; m <= 8; ++m) {
        bp *= inv_be;
        const double mm = bp + d0[m];
        chi -= static_cast<double>(m - 2) * bp / be * n0[m] / (mm * mm);
        eps -= (n0[m] + b * th * n1[m] - b * th * n0[m] * d1[m] / mm) / mm;
        sigma -= b * (n1[m] - n0[m] * d1[m] / mm) / mm;
        const double np = -b * n1[m], npp = b * b * n2[m];
        const double mp = -b * d1[m], mpp = b * b * d2[m];
        ztt -= npp / mm - 2.0 * np * mp / (mm * mm) - n0[m] * mpp / (mm * mm) +
               2.0 * n0[m] * mp * mp / (mm * mm * mm);
    }

    const double bl = pws_cl(t);
    const double blp = pws_cl_slope(t);
    const auto tenth = [](double x) {
        const double x2 = x * x;
        const double x4 = x2 * x2;
        return x4 * x4 * x2;
    };
    const double rr = tenth(be / bl);
    const double l_rate = 10.0 * blp / bl;  // d ln(L^10) / d theta
    double s9 = 0.0, s9p = 0.0, s9pp = 0.0, e9 = 0.0, g9 = 0.0;
    for (std::size_t l = 0; l < coef_b9.size(); ++l) {
        const double v = coef_b9[l] * xp[l];
        const double ld = static_cast<double>(l);
        const double rate = l_rate + ld * b;
        s9 += v;
        s9p += ld * v;
        s9pp += ld * ld * v;
        e9 += v * (1.0 + th * rate);
        g9 += v * rate;
    }
    chi += 11.0 * rr * s9;
    eps += be * rr * e9;
    sigma += be * rr * g9;
    const double f = 1.0 / tenth(bl);
    const double fp = -10.0 * f / bl * blp;
    const double fpp = 110.0 * f / (bl * bl) * blp * blp - 10.0 * f / bl * pws_cl_record.dl2;
    ztt += be * tenth(be) * (fpp * s9 + 2.0 * fp * (-b * s9p) + f * b * b * s9pp);

    r.chi = chi;
    r.eps = eps;
    r.sigma = sigma;
    r.zeta_tt = ztt;
    return r;
}

const detail::GibbsTerms& terms(Context& ctx, double p, double t) {
    comt2(ctx, p, t);
    return ctx.region2.terms;
}

}  // namespace

void comt2(Context& ctx, double p, double t) {
    constexpr detail::StateCheck check{"COMT2", 12, false, p_min, p_max, t2_min, t2_max};
    KeptTerms<detail::GibbsTerms>& s = ctx.region2;
    if (detail::enter_state(ctx, check, p, t, s.a_prev, s.b_prev)) s.terms = evaluate(p, t);
}

double pws_c2(Context& ctx, double p, double t) { return detail::volume(terms(ctx, p, t)); }
double pws_d2(Context& ctx, double p, double t) { return detail::enthalpy(terms(ctx, p, t)); }
double pws_e2(Context& ctx, double p, double t) { return detail::entropy(terms(ctx, p, t)); }
double pws_f2(Context& ctx, double p, double t) { return detail::internal_energy(terms(ctx, p, t)); }
double pws_h2(Context& ctx, double p, double t) { return detail::heat_capacity(terms(ctx, p, t)); }

}  // namespace pws
