// Region 3 of IFC-67 (critical region, also the liquid between 350 C and the
// critical temperature): common terms from the characteristic Helmholtz
// equation and the property routines at (v m3/kg, t C).
#include <array>
#include <cmath>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_regions.hpp"
#include "pwsftn/pws_saturation.hpp"
#include "pwsftn/pws_terms.hpp"

namespace pws {
namespace {

// IFC-67 region 3, the groups C0 ... C3: terms C (theta - 1)^i chi^j, with
// j = 1 for C_k1 and j = 1 - nu for C_k,nu (nu >= 2).
struct Term {
    int i;
    int j;
    double n;
};
constexpr std::array<Term, 33> terms_c{{
    {0, 1, -0.017226042},   {0, -1, -7.77175039},  {0, -2, 4.20460752},
    {0, -3, -2.76807038},   {0, -4, 2.10419707},   {0, -5, -1.14649588},
    {0, -6, 0.223138085},   {0, -7, 0.116250363},  {0, -8, -0.0820900544},
    {0, -9, 0.0194129239},  {0, -10, -0.00169470576},
    {1, 1, 0.708636085},    {1, -1, 12.3679455},   {1, -2, -12.0389004},
    {1, -3, 5.40437422},    {1, -4, -0.993865043}, {1, -5, 0.0627523182},
    {2, 1, -4.29885092},    {2, -1, 43.1430538},   {2, -2, -14.1619313},
    {2, -3, 4.04172459},    {2, -4, 1.55546326},   {2, -5, -1.66568935},
    {2, -6, 0.324881158},
    {3, 1, 7.94841842e-6},  {3, -1, 80.8859747},   {3, -2, -83.6153380},
    {3, -3, 35.8636517},    {3, -4, 7.51895954},   {3, -5, -12.6160640},
    {3, -6, 1.09717462},    {3, -7, 2.12145492},   {3, -8, -0.546529566},
}};
// IFC-67 region 3, the logarithmic terms C (theta - 1)^i ln chi: C0,12, C17, C28, C3,10.
constexpr std::array<Term, 4> terms_log{{
    {0, 0, -4.311577033}, {1, 0, -7.74743016}, {2, 0, 29.3655325}, {3, 0, 8.32875413}}};
// IFC-67 region 3, C00, C40, C41, C50.
constexpr double coef_c00 = -6.8399;
constexpr double coef_c40 = 2.75971776e-6;
constexpr double coef_c41 = -5.09073985e-4;
constexpr double coef_c50 = 210.636332;
// IFC-67 region 3, C60 ... C64 of chi^6 theta^(-nu-2).
constexpr std::array<double, 5> coef_c6{0.05528935335, -0.2336365955, 0.3697071420,
                                        -0.2596415470, 0.06828087013};
// IFC-67 region 3, C70 ... C78 of (theta - 1)^(nu+1).
constexpr std::array<double, 9> coef_c7{-257.1600553, -151.8783715, 22.20723208,
                                        -180.2039570, 2357.096220,  -14623.35698,
                                        45429.16630,  -70535.56432, 43815.71428};

detail::Terms3 evaluate(double v, double t) {
    detail::Terms3 r;
    const double th = reduced_temperature(t);
    const double ch = v / crit_v;
    const double d = th - 1.0;
    r.theta = th;
    r.chi = ch;

    std::array<double, 10> dp{};  // d^0 ... d^9
    dp[0] = 1.0;
    for (std::size_t i = 1; i < dp.size(); ++i) dp[i] = dp[i - 1] * d;
    constexpr int low = 12;        // chi powers from chi^-12 ...
    std::array<double, 19> cp{};   // ... to chi^6, at cp[j + low]
    cp[low] = 1.0;
    for (int j = 1; j <= 6; ++j) cp[static_cast<std::size_t>(low + j)] = cp[static_cast<std::size_t>(low + j - 1)] * ch;
    const double inv_ch = 1.0 / ch;
    for (int j = -1; j >= -low; --j) cp[static_cast<std::size_t>(low + j)] = cp[static_cast<std::size_t>(low + j + 1)] * inv_ch;
    auto chi_pow = [&](int j) { return cp[static_cast<std::size_t>(low + j)]; };
    auto d_pow = [&](int i) { return dp[static_cast<std::size_t>(i)]; };

    double psi = coef_c00, pt = 0.0, pc = 0.0, ptt = 0.0, ptc = 0.0, pcc = 0.0;
    for (const Term& tm : terms_c) {
        const double a = tm.n * d_pow(tm.i);
        psi += a * chi_pow(tm.j);
        pc += a * tm.j * chi_pow(tm.j - 1);
        pcc += a * tm.j * (tm.j - 1) * chi_pow(tm.j - 2);
        if (tm.i >= 1) {
            const double at = tm.n * tm.i * d_pow(tm.i - 1);
            pt += at * chi_pow(tm.j);
            ptc += at * tm.j * chi_pow(tm.j - 1);
        }
        if (tm.i >= 2) ptt += tm.n * tm.i * (tm.i - 1) * d_pow(tm.i - 2) * chi_pow(tm.j);
    }
    const double lnc = std::log(ch);
    for (const Term& tm : terms_log) {
        const double a = tm.n * d_pow(tm.i);
        psi += a * lnc;
        pc += a * inv_ch;
        pcc -= a * inv_ch * inv_ch;
        if (tm.i >= 1) {
            const double at = tm.n * tm.i * d_pow(tm.i - 1);
            pt += at * lnc;
            ptc += at * inv_ch;
        }
        if (tm.i >= 2) ptt += tm.n * tm.i * (tm.i - 1) * d_pow(tm.i - 2) * lnc;
    }

    // (theta - 1) theta^-23 (C40 + C41 chi^-5)
    const double it = 1.0 / th;
    const double it22 = std::pow(it, 22);
    const double w = it22 - it22 * it;
    const double wt = -22.0 * it22 * it + 23.0 * it22 * it * it;
    const double wtt = 506.0 * it22 * it * it - 552.0 * it22 * it * it * it;
    const double c = coef_c40 + coef_c41 * chi_pow(-5);
    const double cc = -5.0 * coef_c41 * chi_pow(-6);
    const double ccc = 30.0 * coef_c41 * chi_pow(-7);
    psi += w * c;
    pt += wt * c;
    ptt += wtt * c;
    pc += w * cc;
    pcc += w * ccc;
    ptc += wt * cc;

    // C50 theta ln theta
    const double lnt = std::log(th);
    psi += coef_c50 * th * lnt;
    pt += coef_c50 * (lnt + 1.0);
    ptt += coef_c50 * it;

    // chi^6 sum C6nu theta^(-nu-2)
    double s6 = 0.0, s6t = 0.0, s6tt = 0.0;
    double itn = it * it;  // theta^(-nu-2)
    for (std::size_t nu = 0; nu < coef_c6.size(); ++nu) {
        const double k = static_cast<double>(nu) + 2.0;
        s6 += coef_c6[nu] * itn;
        s6t -= k * coef_c6[nu] * itn * it;
        s6tt += k * (k + 1.0) * coef_c6[nu] * itn * it * it;
        itn *= it;
    }
    psi += chi_pow(6) * s6;
    pt += chi_pow(6) * s6t;
    ptt += chi_pow(6) * s6tt;
    pc += 6.0 * chi_pow(5) * s6;
    pcc += 30.0 * chi_pow(4) * s6;
    ptc += 6.0 * chi_pow(5) * s6t;

    // sum C7nu (theta - 1)^(nu+1)
    for (std::size_t nu = 0; nu < coef_c7.size(); ++nu) {
        const int n = static_cast<int>(nu);
        psi += coef_c7[nu] * d_pow(n + 1);
        pt += (n + 1) * coef_c7[nu] * d_pow(n);
        if (n >= 1) ptt += (n + 1) * n * coef_c7[nu] * d_pow(n - 1);
    }

    r.psi = psi;
    r.psi_t = pt;
    r.psi_c = pc;
    r.psi_tt = ptt;
    r.psi_tc = ptc;
    r.psi_cc = pcc;
    return r;
}

const detail::Terms3& terms(Context& ctx, double v, double t) {
    comt3(ctx, v, t);
    return ctx.region3.terms;
}

}  // namespace

void comt3(Context& ctx, double v, double t) {
    constexpr detail::StateCheck check{"COMT3", 42, true, v3_min, v3_max, t3_min, t3_max};
    KeptTerms<detail::Terms3>& s = ctx.region3;
    if (detail::enter_state(ctx, check, v, t, s.a_prev, s.b_prev)) s.terms = evaluate(v, t);
}

double pws_a3(Context& ctx, double v, double t) { return -terms(ctx, v, t).psi_c * crit_p; }

double pws_d3(Context& ctx, double v, double t) {
    const detail::Terms3& r = terms(ctx, v, t);
    return (r.psi - r.theta * r.psi_t - r.chi * r.psi_c) * energy_scale;
}

double pws_e3(Context& ctx, double v, double t) { return -terms(ctx, v, t).psi_t * entropy_scale; }

double pws_f3(Context& ctx, double v, double t) {
    const double h = pws_d3(ctx, v, t);
    const detail::Terms3& r = ctx.region3.terms;
    // u = h - p v, with p v = pc vc (chi beta) and beta = -psi_chi
    return h + r.chi * r.psi_c * energy_scale;
}

double pws_h3(Context& ctx, double v, double t) {
    const detail::Terms3& r = terms(ctx, v, t);
    return (-r.theta * r.psi_tt + r.theta * r.psi_tc * r.psi_tc / r.psi_cc) * entropy_scale;
}

}  // namespace pws
