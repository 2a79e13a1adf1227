#include <cmath>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

namespace {

// IAPWS-IF97, table 11: residual part of the region 2 Gibbs equation.
constexpr Term region2_residual_terms[] = {
    {1, 0, -0.0017731742473213}, {1, 1, -0.017834862292358}, {1, 2, -0.045996013696365},
    {1, 3, -0.057581259083432}, {1, 6, -0.05032527872793}, {2, 1, -3.3032641670203e-05},
    {2, 2, -0.00018948987516315}, {2, 4, -0.0039392777243355}, {2, 7, -0.043797295650573},
    {2, 36, -2.6674547914087e-05}, {3, 0, 2.0481737692309e-08}, {3, 1, 4.3870667284435e-07},
    {3, 3, -3.227767723857e-05}, {3, 6, -0.0015033924542148}, {3, 35, -0.040668253562649},
    {4, 1, -7.8847309559367e-10}, {4, 2, 1.2790717852285e-08}, {4, 3, 4.8225372718507e-07},
    {5, 7, 2.2922076337661e-06}, {6, 3, -1.6714766451061e-11}, {6, 16, -0.0021171472321355},
    {6, 35, -23.895741934104}, {7, 0, -5.905956432427e-18}, {7, 11, -1.2621808899101e-06},
    {7, 25, -0.038946842435739}, {8, 8, 1.1256211360459e-11}, {8, 36, -8.2311340897998},
    {9, 13, 1.9809712802088e-08}, {10, 4, 1.0406965210174e-19}, {10, 10, -1.0234747095929e-13},
    {10, 14, -1.0018179379511e-09}, {16, 29, -8.0882908646985e-11}, {16, 50, 0.10693031879409},
    {18, 57, -0.33662250574171}, {20, 20, 8.9185845355421e-25}, {20, 35, 3.0629316876232e-13},
    {20, 48, -4.2002467698208e-06}, {21, 21, -5.9056029685639e-26}, {22, 53, 3.7826947613457e-06},
    {23, 39, -1.2768608934681e-15}, {24, 26, 7.3087610595061e-29}, {24, 40, 5.5414715350778e-17},
    {24, 58, -9.436970724121e-07},
};
// IAPWS-IF97, table 10: ideal-gas part of the region 2 Gibbs equation.
constexpr IdealTerm region2_ideal_terms[] = {
    {0, -9.6927686500217}, {1, 10.086655968018}, {-5, -0.005608791128302}, {-4, 0.071452738081455},
    {-3, -0.40710498223928}, {-2, 1.4240819171444}, {-1, -4.383951131945}, {2, -0.28408632460772},
    {3, 0.021268463753307},
};

// IAPWS-IF97, table 16: residual part of the metastable-vapour equation.
constexpr Term metastable_residual_terms[] = {
    {1, 0, -0.73362260186506e-2}, {1, 2, -0.88223831943146e-1}, {1, 5, -0.72334555213245e-1},
    {1, 11, -0.40813178534455e-2}, {2, 1, 0.20097803380207e-2}, {2, 7, -0.53045921898642e-1},
    {2, 16, -0.76190409086970e-2}, {3, 4, -0.63498037657313e-2}, {3, 16, -0.86043093028588e-1},
    {4, 7, 0.75321581522770e-2}, {4, 10, -0.79238375446139e-2}, {5, 9, -0.22888160778447e-3},
    {5, 10, -0.26456501482810e-2},
};
// IAPWS-IF97, equation 19: the metastable-vapour equation replaces the first
// two ideal-gas coefficients of table 10 by these; the others are kept.
constexpr double metastable_ideal_n1 = -0.96937268393049e1;
constexpr double metastable_ideal_n2 = 0.10087275970006e2;

constexpr double region2_t_star = 540.0;  // K; p* = 1 MPa

// Ideal-gas part ln(pi) + sum n·tau^J, equation 16, the sums named by
// Parts; n1 and n2 (the terms with J = 0 and J = 1) may be replaced.
template <unsigned Parts>
Series ideal_part(double pi, double tau, double n1, double n2) {
    Series g;
    if constexpr ((Parts & part_f) != 0) g.f = std::log(pi) + n1 + n2 * tau;
    if constexpr ((Parts & part_fa) != 0) g.fa = 1.0 / pi;
    if constexpr ((Parts & part_faa) != 0) g.faa = -1.0 / (pi * pi);
    if constexpr ((Parts & part_fb) != 0) g.fb = n2;
    if constexpr ((Parts & (part_f | part_fb | part_fbb)) != 0) {
        const Powers<-7, 3> tp(tau);
        for (std::size_t k = 2; k < std::size(region2_ideal_terms); ++k) {
            const IdealTerm& t = region2_ideal_terms[k];
            const double j = t.j;
            if constexpr ((Parts & part_f) != 0) g.f += t.n * tp[t.j];
            if constexpr ((Parts & part_fb) != 0) g.fb += j * t.n * tp[t.j - 1];
            if constexpr ((Parts & part_fbb) != 0) g.fbb += j * (j - 1.0) * t.n * tp[t.j - 2];
        }
    }
    return g;
}

// Ideal-gas part along an isobar (the residual's derivatives in tau only):
// equation 16 with its tau derivatives up to the third.
SeriesB ideal_part_isobar(double pi, double tau) {
    SeriesB g;
    g.f = std::log(pi);
    const Powers<-8, 3> tp(tau);
    for (const IdealTerm& t : region2_ideal_terms) {
        const double j = t.j;
        g.f += t.n * tp[t.j];
        g.fb += j * t.n * tp[t.j - 1];
        g.fbb += j * (j - 1.0) * t.n * tp[t.j - 2];
        g.fbbb += j * (j - 1.0) * (j - 2.0) * t.n * tp[t.j - 3];
    }
    return g;
}

void add(Series& a, const Series& b) {
    a.f += b.f;
    a.fa += b.fa;
    a.faa += b.faa;
    a.fb += b.fb;
    a.fbb += b.fbb;
    a.fab += b.fab;
}

// IAPWS-IF97, equation 15: ideal part plus the residual series in pi and
// (tau - 0.5), pi = p/1 MPa, tau = 540 K/T.
template <unsigned Parts>
Series region2_gamma(double pi, double tau) {
    Series g = ideal_part<Parts>(pi, tau, region2_ideal_terms[0].n, region2_ideal_terms[1].n);
    add(g, sum_series<0, 24, 0, 58, Parts>(region2_residual_terms, pi, tau - 0.5));
    return g;
}
}  // namespace

Properties region2(double p, double t) {
    const double pi = p;
    const double tau = region2_t_star / t;
    return from_gibbs(region2_gamma<all_parts>(pi, tau), pi, tau, p, t);
}

double region2_single(GibbsProperty q, double p, double t) {
    const double pi = p;
    const double tau = region2_t_star / t;
    return gibbs_single(q, pi, tau, p, t, [pi, tau]<unsigned Parts>() { return region2_gamma<Parts>(pi, tau); });
}

// IAPWS-IF97, equation 18.
Properties region2_metastable(double p, double t) {
    const double pi = p;
    const double tau = region2_t_star / t;
    Series g = ideal_part<all_parts>(pi, tau, metastable_ideal_n1, metastable_ideal_n2);
    add(g, sum_series<0, 5, 0, 16>(metastable_residual_terms, pi, tau - 0.5));
    return from_gibbs(g, pi, tau, p, t);
}

// Equation 15 along an isobar.
Isobar region2_isobar(double p, double t) {
    const double tau = region2_t_star / t;
    SeriesB g = ideal_part_isobar(p, tau);
    const SeriesB r = sum_series_b<0, 24, 0, 58>(region2_residual_terms, p, tau - 0.5);
    g.f += r.f;
    g.fb += r.fb;
    g.fbb += r.fbb;
    g.fbbb += r.fbbb;
    return from_gibbs_isobar(g, tau, t);
}

}  // namespace if97
