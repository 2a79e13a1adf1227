// The host-convention exports: blank-padded names of the caller's width,
// hidden lengths, the empty mixture of a negative count, and safe failure
// for missing arguments and counts above 250.
#include "ondrel/od_thermo.h"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace th = od::thermodyn;
namespace dv = od::derivative;
namespace bf = od::basefuncs;
using od::CompName;

// The exports of a mixture state (p, T, n, names, conc) and the core functions they call.
using StateExport = double (*)(const double*, const double*, const std::int32_t*, const char*, const double*, std::size_t);
const std::pair<StateExport, double (*)(double, double, const od::Mixture&)> state_functions[] = {
    {h_pt_, th::h_pt}, {s_pt_, th::s_pt}, {cv_pt_, th::cv_pt}, {v_pt_, th::v_pt}, {u_pt_, th::u_pt}, {x_gas_, th::x_gas},
    {dp_dv_, dv::dp_dv}, {d2p_dv2_, dv::d2p_dv2}, {d2p_dtdv_, dv::d2p_dtdv}, {lambda_pt_, od::transport::lambda_pt}};
const std::pair<double (*)(const double*, const double*, const double*), double (*)(double, double, double)> water_functions[] = {
    {h_h2o_, od::h2o::h_h2o}, {s_h2o_, od::h2o::s_h2o}, {cp_h2o_, od::h2o::cp_h2o}, {v_h2o_, od::h2o::v_h2o}};

class Exports : public LoadedTable {
protected:
    const TestMix mix{"N2=0.7 CO2=0.1 H2O(IF)=0.15 SIO2(S)=0.05"};
    // The names as a Fortran CHARACTER(12) array.
    const std::string names = "N2          CO2         H2O(IF)     SIO2(S)     ";
    const std::int32_t n = 4;
    const double p = 1e5, t = 310.0;
};

TEST_F(Exports, GiveTheCoreResultsOfTheCallersTrimmedText) {
    const char* nm = names.data();
    const double* c = mix.conc.data();
    const od::Mixture m = mix.mix();
    for (const auto& [exported, core] : state_functions) EXPECT_EQ(exported(&p, &t, &n, nm, c, 12), core(p, t, m));
    EXPECT_EQ(tmin_(&n, nm, 12), od::mixinfo::tmin(m));
    EXPECT_EQ(tmax_(&n, nm, 12), od::mixinfo::tmax(m));
    EXPECT_EQ(mmol_(&n, nm, c, 12), od::mixinfo::mmol(m));
    EXPECT_EQ(dcv_dt_(&t, &n, nm, c, 12), dv::dcv_dt(t, m));
    EXPECT_EQ(dp_dt_(&p, &t), dv::dp_dt(p, t));
    EXPECT_EQ(d2p_dt2_(), 0.0);
    EXPECT_EQ(eta_t_(&t, &n, nm, c, 12), od::transport::eta_t(t, m));
    const CompName co2 = CompName::from("CO2");
    EXPECT_EQ(cp_0_("CO2         ", &t, 12), bf::cp_0(co2, t));
    EXPECT_EQ(h_0_("CO2", &t, 3), bf::h_0(co2, t));
    EXPECT_EQ(s_0_("CO2 ", &p, &t, 4), bf::s_0(co2, p, t));
    EXPECT_EQ(dcv_dt_0_("CO2", &t, 3), bf::dcv_dt_0(co2, t));
    EXPECT_EQ(v_0_(&p, &t), bf::v_0(p, t));
    EXPECT_EQ(v_sl_("SIO2(S)     ", 12), bf::v_sl(CompName::from("SIO2(S)")));
    EXPECT_EQ(viscosity_(&t, "CO2\0garbage", 11), od::transport::viscosity(t, co2));
    EXPECT_EQ(thermcond_(&p, &t, "CO2", 3), od::transport::thermcond(p, t, co2));
    EXPECT_EQ(cp_0_("N2      X   ", &t, 12), bf::cp_0(CompName::from("XX"), t));  // text past column 8: no component
    const double marker = -8888.75, other = 1.0, xw = 0.05;
    EXPECT_EQ(isinit_(&marker) * 10 + isnotinit_(&other), 11);
    EXPECT_EQ(isinit_(&other) * 10 + isnotinit_(&marker), 0);
    EXPECT_EQ(h2o_("Pressure", &p, "Temp", &t, "H.  ", 8, 4, 4), od::h2o::h2o('P', p, 'T', t, "H."));
    for (const auto& [exported, core] : water_functions) EXPECT_EQ(exported(&xw, &p, &t), core(xw, p, t));
}

TEST_F(Exports, NegativeCountIsTheEmptyMixture) {
    const std::int32_t zero = 0;
    for (std::int32_t neg : {-1, -2147483647 - 1}) {
        for (const auto& fn : state_functions) {
            EXPECT_EQ(fn.first(&p, &t, &neg, nullptr, nullptr, 12), fn.first(&p, &t, &zero, nullptr, nullptr, 12));
            EXPECT_EQ(fn.first(&p, &t, &neg, nullptr, nullptr, 12), fn.first == x_gas_ ? 1.0 : 0.0);
        }
        EXPECT_EQ(tmin_(&neg, nullptr, 12), 0.0);
        EXPECT_EQ(tmax_(&neg, nullptr, 12), 1e10);
        EXPECT_EQ(mmol_(&neg, nullptr, nullptr, 12) + dcv_dt_(&t, &neg, nullptr, nullptr, 12) + eta_t_(&t, &neg, nullptr, nullptr, 12), 0.0);
    }
}

TEST_F(Exports, MissingArgumentsOrCountAbove250FailWithTheMissingValue) {
    const double* c = mix.conc.data();
    const std::int32_t over = 251;
    for (const auto& fn : state_functions) {
        EXPECT_EQ(fn.first(&p, &t, &over, names.data(), c, 12), od::missing_value);
        EXPECT_EQ(fn.first(nullptr, &t, &n, names.data(), c, 12), od::missing_value);
        EXPECT_EQ(fn.first(&p, nullptr, &n, names.data(), c, 12), od::missing_value);
    }
    EXPECT_EQ(tmin_(&over, names.data(), 12), od::missing_value);
    EXPECT_EQ(h_pt_(&p, &t, &n, nullptr, c, 12), od::missing_value);
    EXPECT_EQ(eta_t_(&t, &n, names.data(), nullptr, 12), od::missing_value);
    EXPECT_EQ(dcv_dt_(nullptr, &n, names.data(), c, 12), od::missing_value);
    for (const auto& fn : water_functions) EXPECT_EQ(fn.first(&p, nullptr, &t), od::missing_value);
    for (double v : {h2o_("P", &p, "T", nullptr, "H.", 1, 1, 2), cp_0_("N2", nullptr, 2), s_0_("N2", nullptr, &t, 2),
                     v_0_(&p, nullptr), dp_dt_(nullptr, &t), viscosity_(nullptr, "N2", 2), thermcond_(&p, nullptr, "N2", 2)})
        EXPECT_EQ(v, od::missing_value);
    EXPECT_EQ(isinit_(nullptr) + isnotinit_(nullptr), 0);
}

}  // namespace
