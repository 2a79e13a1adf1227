// Pressure derivatives of the ideal-gas mixture and d(cv)/dT.
#include <cmath>

#include "thermo/od_derivative.hpp"
#include "thermo/od_mixinfo.hpp"
#include "thermo/od_thermodyn.hpp"
#include "thermo_support.hpp"

namespace {

using namespace thermo_test;
namespace dv = od::derivative;

class Derivative : public LoadedTable {
protected:
    const TestMix gas{{"N2", 0.7}, {"CO2", 0.2}, {"H2O", 0.1}};
    void SetUp() override {
        LoadedTable::SetUp();
        gas.store();
    }
    // p(v, T) of the ideal-gas mixture.
    double p_of(double v, double t) const { return r_gas * t / (od::mixinfo::mmol(gas.mix()) * v); }
};

TEST(DerivativeConstants, SimpleForms) {
    EXPECT_EQ(dv::d2p_dt2(), 0.0);
    EXPECT_NEAR(dv::dp_dt(100000.0, 300.0), 333.3333333333333, 1e-10);
}

TEST_F(Derivative, AgreeWithDifferencesOfTheIdealGasLaw) {
    const double p = 2e5, t = 500.0;
    const double v = r_gas * t / (od::mixinfo::mmol(gas.mix()) * p);
    const double dv_ = v * 1e-4, dt = t * 1e-4;
    const double dpdv = (p_of(v + dv_, t) - p_of(v - dv_, t)) / (2 * dv_);
    const double d2pdv2 = (p_of(v + dv_, t) - 2 * p_of(v, t) + p_of(v - dv_, t)) / (dv_ * dv_);
    const double d2pdtdv = (p_of(v + dv_, t + dt) - p_of(v - dv_, t + dt) - p_of(v + dv_, t - dt) +
                            p_of(v - dv_, t - dt)) / (4 * dv_ * dt);
    EXPECT_NEAR(dv::dp_dt(p, t), (p_of(v, t + dt) - p_of(v, t - dt)) / (2 * dt), 1e-6 * p / t);
    EXPECT_NEAR(dv::dp_dv(p, t, gas.mix()), dpdv, 1e-6 * std::fabs(dpdv));
    EXPECT_NEAR(dv::d2p_dv2(p, t, gas.mix()), d2pdv2, 1e-5 * std::fabs(d2pdv2));
    EXPECT_NEAR(dv::d2p_dtdv(p, t, gas.mix()), d2pdtdv, 1e-5 * std::fabs(d2pdtdv));
}

TEST_F(Derivative, DcvDtIsTheSlopeOfCv) {
    for (double t : {400.0, 1500.0}) {
        const double h = 1e-2;
        const double slope = (od::thermodyn::cv_pt(1e5, t + h, gas.mix()) - od::thermodyn::cv_pt(1e5, t - h, gas.mix())) /
                             (2 * h);
        EXPECT_NEAR(dv::dcv_dt(t, gas.mix()), slope, 1e-6 * std::fabs(slope) + 1e-9);
    }
}

TEST_F(Derivative, CondensingWaterCountsAsIdealGasWater) {
    const TestMix with_if{{"N2", 0.7}, {"CO2", 0.2}, {"H2O(IF)", 0.1}};
    with_if.store();
    const double a = dv::dcv_dt(320.0, with_if.mix());
    gas.store();
    EXPECT_EQ(a, dv::dcv_dt(320.0, gas.mix()));
}

TEST_F(Derivative, ZeroMolarMass) {
    const TestMix none{{"N2", 0.0}};
    none.store();
    EXPECT_EQ(dv::dcv_dt(300.0, none.mix()), 0.0);
    EXPECT_EQ(dv::dp_dv(1e5, 300.0, none.mix()), 0.0);
    EXPECT_EQ(dv::d2p_dv2(1e5, 300.0, none.mix()), 0.0);
    EXPECT_TRUE(std::isinf(dv::dp_dt(1e5, 0.0)));
}

}  // namespace
