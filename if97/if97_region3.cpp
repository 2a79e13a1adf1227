#include <cmath>

#include "if97/if97_constants.hpp"
#include "if97/if97_forward.hpp"

namespace if97 {

namespace {

// IAPWS-IF97, table 30: region 3 Helmholtz equation (terms 2 to 40; n1 is the log term).
constexpr Term region3_terms[] = {
    {0, 0, -15.732845290239}, {0, 1, 20.944396974307}, {0, 2, -7.6867707878716},
    {0, 7, 2.6185947787954}, {0, 10, -2.808078114862}, {0, 12, 1.2053369696517},
    {0, 23, -0.0084566812812502}, {1, 2, -1.2654315477714}, {1, 6, -1.1524407806681},
    {1, 15, 0.88521043984318}, {1, 17, -0.64207765181607}, {2, 0, 0.38493460186671},
    {2, 2, -0.85214708824206}, {2, 6, 4.8972281541877}, {2, 7, -3.0502617256965},
    {2, 22, 0.039420536879154}, {2, 26, 0.12558408424308}, {3, 0, -0.2799932969871},
    {3, 2, 1.389979956946}, {3, 4, -2.018991502357}, {3, 16, -0.0082147637173963},
    {3, 26, -0.47596035734923}, {4, 0, 0.0439840744735}, {4, 2, -0.44476435428739},
    {4, 4, 0.90572070719733}, {4, 26, 0.70522450087967}, {5, 1, 0.10770512626332},
    {5, 3, -0.32913623258954}, {5, 26, -0.50871062041158}, {6, 0, -0.022175400873096},
    {6, 2, 0.094260751665092}, {6, 26, 0.16436278447961}, {7, 2, -0.013503372241348},
    {8, 26, -0.014834345352472}, {9, 2, 0.00057922953628084}, {9, 26, 0.0032308904703711},
    {10, 0, 8.0964802996215e-05}, {10, 1, -0.00016557679795037}, {11, 26, -4.4923899061815e-05},
};
// IAPWS-IF97, table 30: n1, the coefficient of the logarithmic term.
constexpr double region3_n1 = 0.10658070028513e1;
}  // namespace

// IAPWS-IF97, equation 28: phi = n1 ln(delta) + sum n·delta^I·tau^J with
// delta = rho/322 kg/m3, tau = 647.096 K/T; relations of table 31.
Properties region3(double rho, double t) {
    const double delta = rho / critical_density;
    const double tau = critical_temperature / t;
    Series phi = sum_series<0, 11, 0, 26>(region3_terms, delta, tau);
    phi.f += region3_n1 * std::log(delta);
    phi.fa += region3_n1 / delta;
    phi.faa -= region3_n1 / (delta * delta);

    Properties st;
    st.t = t;
    st.rho = rho;
    st.v = 1.0 / rho;
    const double rt = gas_constant * t;
    const double dphid = delta * phi.fa;              // delta·phi_delta
    const double dp_drho_term = 2.0 * dphid + delta * delta * phi.faa;
    const double c = dphid - delta * tau * phi.fab;  // delta·phi_delta - delta·tau·phi_delta_tau
    st.p = rho * rt * dphid / kj_per_mpa_m3;
    st.h = rt * (tau * phi.fb + dphid);
    st.u = rt * tau * phi.fb;
    st.s = gas_constant * (tau * phi.fb - phi.f);
    st.cv = -gas_constant * tau * tau * phi.fbb;
    st.cp = gas_constant * (-tau * tau * phi.fbb + c * c / dp_drho_term);
    st.w = std::sqrt(rt * kj_per_mpa_m3 * (dp_drho_term - c * c / (tau * tau * phi.fbb)));
    // dp/drho at constant T and dp/dT at constant rho, MPa per kg/m3 and per K.
    const double dp_drho = rt * dp_drho_term / kj_per_mpa_m3;
    const double dp_dt = rho * gas_constant * c / kj_per_mpa_m3;
    st.kappa = 1.0 / (rho * dp_drho);
    st.alpha = st.kappa * dp_dt;
    return st;
}

}  // namespace if97
