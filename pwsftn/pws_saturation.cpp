// Saturation line (IFC-67 K function), saturation temperature and the L
// function between region 2 and region 3.
#include "pwsftn/pws_saturation.hpp"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>

#include "pwsftn/pws_context.hpp"
#include "pwsftn/pws_error.hpp"
#include "pwsftn/pws_terms.hpp"

namespace pws {
namespace {

// IFC-67 saturation line, constants k1 ... k9 of the K function.
constexpr std::array<double, 9> k_sat{-7.691234564, -26.08023696, -168.1706546,
                                      64.23285504,  -118.9646225, 4.16711732,
                                      20.9750676,   1.0E9,        6.0};
// Scale of the slope kept by psl1.
constexpr double slope_scale = 80.3334;

// Start of the saturation-temperature iteration: Chebyshev series c0 ... c11
// in the normalised variable z of the logarithm of the pressure.
constexpr std::array<double, 12> tp_series{
    1.52264682686,      -0.682309517937,    0.164114951723,     -0.00202321648831,
    -0.00192391110748,  -0.000574549418696, 6.84115542402E-5,   3.36500068426E-5,
    -1.23422483951E-5,  1.48265501702E-6,   -1.02116445578E-6,  -4.09080904092E-6};
constexpr double tp_series_p = 243.3196;      // bar
constexpr double tp_series_shift = 1.48047125;
constexpr double tp_series_scale = -1.089944006;
constexpr double tp_series_power = 0.4;
// Residual tolerances of the saturation-temperature iteration by pressure band.
constexpr double tp_band_1 = 186.1581;  // bar
constexpr double tp_band_2 = 220.6318;  // bar
constexpr double tp_tol_1 = 1.0E-4;
constexpr double tp_tol_2 = 1.0E-9;
constexpr double tp_tol_3 = 1.0E-10;
constexpr int tp_max_steps = 29;        // further steps after the first
constexpr double tp_damping = 0.99;
constexpr double tp_back_step = 0.01;   // C, shrinks by tp_back_shrink per use
constexpr double tp_back_shrink = 0.9;

struct Exponent {
    double value;  // ln(ps / pc)
    double d_du;   // derivative with respect to u = 1 - T/Tc
};

Exponent saturation_exponent(double t) {
    const auto& k = k_sat;
    const double theta = reduced_temperature(t);
    const double u = 1.0 - theta;
    const double n = u * (k[0] + u * (k[1] + u * (k[2] + u * (k[3] + u * k[4]))));
    const double dn = k[0] + u * (2.0 * k[1] + u * (3.0 * k[2] + u * (4.0 * k[3] + u * 5.0 * k[4])));
    const double d = 1.0 + u * (k[5] + u * k[6]);
    const double dd = k[5] + 2.0 * k[6] * u;
    const double q = k[7] * u * u + k[8];
    const double td = theta * d;
    const double value = n / td - u / q;
    const double d_du = dn / td + n * (d - theta * dd) / (td * td) - (k[8] - k[7] * u * u) / (q * q);
    return {value, d_du};
}

}  // namespace

double pws_pt(Context& ctx, double t) {
    if (t > crit_t) {
        pwser(ctx, "PWS_PT", 2, t, 0.0);
        return 0.0;
    }
    // Intended: no lower bound; temperatures below 0.01 C are evaluated as they are.
    return crit_p * std::exp(saturation_exponent(t).value);
}

double psl1(Context& ctx, double t) {
    if (t > crit_t) {
        pwser(ctx, "PSL1", 2, t, 0.0);
        return 0.0;
    }
    const Exponent e = saturation_exponent(t);
    const double ps = crit_p * std::exp(e.value);
    // Intended: the slope is scaled by 80.3334, not by Tc: about eight times
    // dps/dT in bar/K, so the Newton steps of pws_tp are about eight times too
    // short. It carries the sign of dps/dT (minus the derivative in u), the
    // sign under which the step t + (p - ps) / slope moves towards the root.
    ctx.saturation.slope = ps / slope_scale * -e.d_du;
    return ps;
}

double psl1_slope(const Context& ctx) { return ctx.saturation.slope; }

namespace {

// Start value of the saturation-temperature iteration: a Chebyshev series in
// z, which the logarithmic form already maps onto [-1, 1]. A further
// Fahrenheit-style shift (z - 32) / 1.8 would move z near -18, where the
// series explodes and the start falls to absolute zero (division by zero in
// the saturation equation), so the series is evaluated at z itself.
double tp_start(double p) {
    if (p == crit_p) return crit_t;
    const double z = (std::pow(std::log(tp_series_p / p), tp_series_power) - tp_series_shift) /
                     tp_series_scale;
    double t_prev = 1.0;
    double t_cur = z;
    double sum = tp_series[0] * t_prev + tp_series[1] * t_cur;
    for (std::size_t k = 2; k < tp_series.size(); ++k) {
        const double t_next = 2.0 * z * t_cur - t_prev;
        t_prev = t_cur;
        t_cur = t_next;
        sum += tp_series[k] * t_cur;
    }
    return std::min(crit_tk / sum - celsius_offset, crit_t);
}

}  // namespace

double pws_tp(Context& ctx, double p) {
    const double tol = p <= tp_band_1 ? tp_tol_1 : (p <= tp_band_2 ? tp_tol_2 : tp_tol_3);
    if (p > crit_p) {
        pwser(ctx, "PWS_TP", 1, p, 0.0);
        return 0.0;
    }
    double t = tp_start(p);
    double ps = psl1(ctx, t);
    double slope = psl1_slope(ctx);
    t += (p - ps) / slope;
    if (std::fabs((p - ps) / p) < tol) return t;
    double w = 1.0;
    double back = tp_back_step;
    for (int c = 1;; ++c) {
        if (c > tp_max_steps) {
            pwser(ctx, "PWS_TP", -1, p, 0.0);
            return t;
        }
        w *= tp_damping;
        bool evaluate = true;
        if (t >= crit_t) {
            back *= tp_back_shrink;
            t -= back;
            if (t > crit_t) {
                pwser(ctx, "PWS_TP", 2, t, 0.0);
                // Intended: the update below uses the previous pressure and slope.
                evaluate = false;
            }
        }
        if (evaluate) {
            ps = psl1(ctx, t);
            slope = psl1_slope(ctx);
        }
        t += w * (p - ps) / slope;
        if (std::fabs((p - ps) / p) < tol) return t;
    }
}

CurrentState pws_cu(const Context& ctx) { return ctx.saturation.current; }

bool detail::enter_state(Context& ctx, const StateCheck& check, double a, double b, double& a_prev,
                         double& b_prev) {
    const auto bitwise = [](double x) { return std::bit_cast<std::uint64_t>(x); };
    // Intended: a call for the kept state returns before any record is written.
    if (!std::isnan(a) && !std::isnan(b) && bitwise(a) == bitwise(a_prev) && bitwise(b) == bitwise(b_prev))
        return false;
    a_prev = a;
    b_prev = b;
    CurrentState& cu = ctx.saturation.current;
    (check.volume ? cu.v : cu.p) = a;
    cu.t = b;
    const auto outside = [](double x, double low, double high) {
        return x < low * bound_low_factor || x > high * bound_high_factor;
    };
    if (outside(a, check.a_low, check.a_high)) pwser(ctx, check.name, check.code, a, b);
    if (outside(b, check.b_low, check.b_high)) pwser(ctx, check.name, check.code, a, b);
    return true;
}

double pws_cl(double t) {
    const LFunction& l = pws_cl_record;
    const double theta = reduced_temperature(t);
    return l.l0 + theta * (l.l1 + theta * l.l2);
}

double boundary_pressure(double t) { return crit_p * pws_cl(t); }

double boundary_temperature(double p) {
    // The larger root of L2 theta^2 + L1 theta + L0 - p/pc = 0.
    const LFunction& l = pws_cl_record;
    const double c = l.l0 - p / crit_p;
    const double disc = l.l1 * l.l1 - 2.0 * l.dl2 * c;
    if (!(disc >= 0.0)) return std::nan("");
    return (-l.l1 + std::sqrt(disc)) / l.dl2 * crit_tk - celsius_offset;
}

double pws_cl_slope(double t) {
    const LFunction& l = pws_cl_record;
    const double theta = reduced_temperature(t);
    return l.l1 + l.dl2 * theta;
}

void forget_terms(Context& ctx) {
    ctx.region1 = {};
    ctx.region2 = {};
    ctx.region3 = {};
}

void reset_terms_for_tests() {
    Context& ctx = default_context();
    ctx.saturation = SaturationState{};
    forget_terms(ctx);
}

}  // namespace pws
