// The host-convention exports: blank-padded names of the caller's width,
// hidden lengths, and safe failure for bad component counts.
#include <cstring>
#include <string>

#include "ondrel/od_thermo.h"
#include "thermo/od_basefuncs.hpp"
#include "thermo/od_derivative.hpp"
#include "thermo/od_h2o.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo/od_transport.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;

constexpr std::size_t width = 12;

// Names laid out as a Fortran CHARACTER(12) array.
std::string padded(std::initializer_list<const char*> names) {
    std::string s;
    for (const char* n : names) {
        std::string one(n);
        one.resize(width, ' ');
        s += one;
    }
    return s;
}

class Exports : public LoadedTable {
protected:
    const TestMix mix{{"N2", 0.7}, {"CO2", 0.1}, {"H2O(IF)", 0.15}, {"SIO2(S)", 0.05}};
    const std::string names = padded({"N2", "CO2", "H2O(IF)", "SIO2(S)"});
    const std::int32_t n = 4;
    void SetUp() override {
        LoadedTable::SetUp();
        mix.store();
    }
};

TEST_F(Exports, MixtureFunctionsGiveTheCoreResults) {
    const double p = 1e5, t = 310.0;
    const char* nm = names.data();
    const double* c = mix.conc.data();
    const od::Mixture m = mix.mix();
    EXPECT_EQ(h_pt_(&p, &t, &n, nm, c, width), od::thermodyn::h_pt(p, t, m));
    EXPECT_EQ(s_pt_(&p, &t, &n, nm, c, width), od::thermodyn::s_pt(p, t, m));
    EXPECT_EQ(cv_pt_(&p, &t, &n, nm, c, width), od::thermodyn::cv_pt(p, t, m));
    EXPECT_EQ(v_pt_(&p, &t, &n, nm, c, width), od::thermodyn::v_pt(p, t, m));
    EXPECT_EQ(u_pt_(&p, &t, &n, nm, c, width), od::thermodyn::u_pt(p, t, m));
    EXPECT_EQ(x_gas_(&p, &t, &n, nm, c, width), od::thermodyn::x_gas(p, t, m));
    EXPECT_EQ(tmin_(&n, nm, width), od::mixinfo::tmin(m));
    EXPECT_EQ(tmax_(&n, nm, width), od::mixinfo::tmax(m));
    EXPECT_EQ(mmol_(&n, nm, c, width), od::mixinfo::mmol(m));
    EXPECT_EQ(dp_dv_(&p, &t, &n, nm, c, width), od::derivative::dp_dv(p, t, m));
    EXPECT_EQ(d2p_dv2_(&p, &t, &n, nm, c, width), od::derivative::d2p_dv2(p, t, m));
    EXPECT_EQ(d2p_dtdv_(&p, &t, &n, nm, c, width), od::derivative::d2p_dtdv(p, t, m));
    EXPECT_EQ(dcv_dt_(&t, &n, nm, c, width), od::derivative::dcv_dt(t, m));
    EXPECT_EQ(eta_t_(&t, &n, nm, c, width), od::transport::eta_t(t, m));
    EXPECT_EQ(lambda_pt_(&p, &t, &n, nm, c, width), od::transport::lambda_pt(p, t, m));
    EXPECT_EQ(dp_dt_(&p, &t), p / t);
    EXPECT_EQ(d2p_dt2_(), 0.0);
    EXPECT_NE(h_pt_(&p, &t, &n, nm, c, width), 0.0);
}

TEST_F(Exports, ComponentFunctionsTrimTheCallersText) {
    const double p = 2e5, t = 700.0;
    const od::CompName co2 = od::CompName::from("CO2");
    EXPECT_EQ(cp_0_("CO2         ", &t, 12), od::basefuncs::cp_0(co2, t));
    EXPECT_EQ(h_0_("CO2", &t, 3), od::basefuncs::h_0(co2, t));
    EXPECT_EQ(s_0_("CO2 ", &p, &t, 4), od::basefuncs::s_0(co2, p, t));
    EXPECT_EQ(dcv_dt_0_("CO2", &t, 3), od::basefuncs::dcv_dt_0(co2, t));
    EXPECT_EQ(v_0_(&p, &t), od::basefuncs::v_0(p, t));
    EXPECT_EQ(v_sl_("SIO2(S)     ", 12), od::basefuncs::v_sl(od::CompName::from("SIO2(S)")));
    EXPECT_EQ(viscosity_(&t, "CO2\0garbage", 11), od::transport::viscosity(t, co2));
    EXPECT_EQ(thermcond_(&p, &t, "CO2", 3), od::transport::thermcond(p, t, co2));
    const double marker = -8888.75, other = 1.0;
    EXPECT_EQ(isinit_(&marker), 1);
    EXPECT_EQ(isinit_(&other), 0);
    EXPECT_EQ(isnotinit_(&other), 1);
}

TEST_F(Exports, WaterGatewayReadsFirstLettersAndTrimsTheProperty) {
    const double p = 1e5, t = 303.15, xw = 0.05;
    EXPECT_EQ(h2o_("Pressure", &p, "Temp", &t, "H.  ", 8, 4, 4), od::h2o::h2o('P', p, 'T', t, "H."));
    EXPECT_EQ(h_h2o_(&xw, &p, &t), od::h2o::h_h2o(xw, p, t));
    EXPECT_EQ(s_h2o_(&xw, &p, &t), od::h2o::s_h2o(xw, p, t));
    EXPECT_EQ(cp_h2o_(&xw, &p, &t), od::h2o::cp_h2o(xw, p, t));
    EXPECT_EQ(v_h2o_(&xw, &p, &t), od::h2o::v_h2o(xw, p, t));
    const double zero = 0.0;
    EXPECT_EQ(h2o_("", &p, "", &zero, "P.", 0, 0, 2), od::h2o::h2o(' ', p, ' ', 0.0, "P."));
}

TEST_F(Exports, BadComponentCountFailsWithTheMissingValue) {
    const double p = 1e5, t = 300.0;
    const double* c = mix.conc.data();
    for (std::int32_t bad : {-1, 251, -2147483647 - 1}) {
        EXPECT_EQ(h_pt_(&p, &t, &bad, names.data(), c, width), od::missing_value) << bad;
        EXPECT_EQ(tmin_(&bad, names.data(), width), od::missing_value);
        EXPECT_EQ(eta_t_(&t, &bad, names.data(), c, width), od::missing_value);
        EXPECT_EQ(dcv_dt_(&t, &bad, names.data(), c, width), od::missing_value);
    }
    EXPECT_EQ(h_pt_(&p, &t, &n, nullptr, c, width), od::missing_value);
    EXPECT_EQ(h_pt_(&p, &t, &n, names.data(), nullptr, width), od::missing_value);
    const std::int32_t zero = 0;
    EXPECT_EQ(h_pt_(&p, &t, &zero, nullptr, nullptr, width), 0.0);
    EXPECT_EQ(tmax_(&zero, nullptr, width), 1e10);
}

TEST_F(Exports, OverlongNameMatchesNoComponent) {
    // "N2" followed by non-blank text past column 8 is not "N2".
    const std::string longname = "N2      X   ";
    const double t = 300.0;
    EXPECT_EQ(cp_0_(longname.data(), &t, longname.size()), od::basefuncs::cp_0(od::CompName::from("XX"), t));
}

}  // namespace
