#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

namespace {

// IAPWS-IF97, table 2: coefficients and exponents of the region 1 Gibbs equation.
constexpr Term region1_terms[] = {
    {0, -2, 0.14632971213167}, {0, -1, -0.84548187169114}, {0, 0, -3.756360367204},
    {0, 1, 3.3855169168385}, {0, 2, -0.95791963387872}, {0, 3, 0.15772038513228},
    {0, 4, -0.016616417199501}, {0, 5, 0.00081214629983568}, {1, -9, 0.00028319080123804},
    {1, -7, -0.00060706301565874}, {1, -1, -0.018990068218419}, {1, 0, -0.032529748770505},
    {1, 1, -0.021841717175414}, {1, 3, -5.283835796993e-05}, {2, -3, -0.00047184321073267},
    {2, 0, -0.00030001780793026}, {2, 1, 4.7661393906987e-05}, {2, 3, -4.4141845330846e-06},
    {2, 17, -7.2694996297594e-16}, {3, -4, -3.1679644845054e-05}, {3, 0, -2.8270797985312e-06},
    {3, 6, -8.5205128120103e-10}, {4, -5, -2.2425281908e-06}, {4, -2, -6.5171222895601e-07},
    {4, 10, -1.4341729937924e-13}, {5, -8, -4.0516996860117e-07}, {8, -11, -1.2734301741641e-09},
    {8, -6, -1.7424871230634e-10}, {21, -29, -6.8762131295531e-19}, {23, -31, 1.4478307828521e-20},
    {29, -38, 2.6335781662795e-23}, {30, -39, -1.1947622640071e-23}, {31, -40, 1.8228094581404e-24},
    {32, -41, -9.3537087292458e-26},
};

constexpr double region1_p_star = 16.53;   // MPa
constexpr double region1_t_star = 1386.0;  // K

// IAPWS-IF97, equation 7, in pi = p/16.53 MPa and tau = 1386 K/T: the
// series runs in (7.1 - pi) and (tau - 1.222).
template <unsigned Parts>
Series region1_gamma(double pi, double tau) {
    Series g = sum_series<0, 32, -41, 17, Parts>(region1_terms, 7.1 - pi, tau - 1.222);
    g.fa = -g.fa;  // d/dpi = -d/d(7.1 - pi)
    g.fab = -g.fab;
    return g;
}
}  // namespace

Properties region1(double p, double t) {
    const double pi = p / region1_p_star;
    const double tau = region1_t_star / t;
    return from_gibbs(region1_gamma<all_parts>(pi, tau), pi, tau, p, t);
}

double region1_single(GibbsProperty q, double p, double t) {
    const double pi = p / region1_p_star;
    const double tau = region1_t_star / t;
    return gibbs_single(q, pi, tau, p, t, [pi, tau]<unsigned Parts>() { return region1_gamma<Parts>(pi, tau); });
}

// Equation 7 along an isobar: the pi-dependent parts are not needed.
Isobar region1_isobar(double p, double t) {
    const double tau = region1_t_star / t;
    return from_gibbs_isobar(sum_series_b<0, 32, -41, 17>(region1_terms, 7.1 - p / region1_p_star, tau - 1.222),
                             tau, t);
}

}  // namespace if97
