// Broad agreement of the IFC-67 equations with IAPWS-IF97, within the
// differences between the two formulations.
#include "pwsftn/pws_regions.hpp"
#include "pws_test_support.hpp"

namespace {

using pws_test::near;
using pws_test::PackageTest;
using pws_test::read_table;
using pws_test::row_label;
using If97AgreementTest = PackageTest;

// Largest relative differences expected between IFC-67 and IF97.
constexpr double tol_state = 0.01;        // v, h, s, u, p, saturation pressure
constexpr double tol_cp = 0.10;
constexpr double tol_cp_critical = 0.20;  // region-3 liquid side and near the critical point
constexpr double critical_band = 15.0;    // K around the critical temperature
constexpr double tol_viscosity = 0.03;
constexpr double tol_conductivity = 0.20;
// Near-zero liquid values are compared absolutely.
constexpr double abs_energy = 1.0;        // kJ/kg
constexpr double abs_entropy = 0.002;     // kJ/(kg K)

double region_value(const std::string& region, const std::string& quantity, double a, double b) {
    if (region == "psat") return pws::pws_pt(a);
    if (region == "1") {
        if (quantity == "v") return pws::pws_c1(a, b);
        if (quantity == "h") return pws::pws_d1(a, b);
        if (quantity == "s") return pws::pws_e1(a, b);
        if (quantity == "u") return pws::pws_f1(a, b);
        return pws::pws_h1(a, b);
    }
    if (region == "2") {
        if (quantity == "v") return pws::pws_c2(a, b);
        if (quantity == "h") return pws::pws_d2(a, b);
        if (quantity == "s") return pws::pws_e2(a, b);
        if (quantity == "u") return pws::pws_f2(a, b);
        return pws::pws_h2(a, b);
    }
    if (quantity == "p") return pws::pws_a3(a, b);
    if (quantity == "h") return pws::pws_d3(a, b);
    if (quantity == "s") return pws::pws_e3(a, b);
    if (quantity == "u") return pws::pws_f3(a, b);
    return pws::pws_h3(a, b);
}

TEST_F(If97AgreementTest, RegionsAgreeWithIf97WithinTheKnownDifferences) {
    int compared = 0;
    for (const auto& r : read_table("if97_comparison.csv")) {
        const std::string region = r.text.at("region"), q = r.text.at("quantity");
        if (region == "transport") continue;
        SCOPED_TRACE(row_label(r, {"region", "first_value", "second_value", "quantity"}));
        const double a = r["first_value"];
        const double b = region == "psat" ? 0.0 : r["second_value"];
        const double mine = region_value(region, q, a, b);
        EXPECT_TRUE(near(mine, r["ifc67"], 1e-9, 1e-9));
        double tol = tol_state, abs = 0.0;
        if (q == "cp") {
            const double t = b;
            const bool critical = region == "3" && ((t < pws::crit_t && a < pws::crit_v) ||
                                                    std::fabs(t - pws::crit_t) < critical_band);
            tol = critical ? tol_cp_critical : tol_cp;
        }
        if (q == "h" || q == "u") abs = abs_energy;
        if (q == "s") abs = abs_entropy;
        EXPECT_TRUE(near(mine, r["if97_or_iapws"], tol, abs));
        ++compared;
    }
    EXPECT_GT(compared, 400);
}

TEST_F(If97AgreementTest, TransportAgreesWithIapwsWithinTheKnownDifferences) {
    const auto states = read_table("transport.csv");
    int compared = 0;
    for (const auto& r : read_table("if97_comparison.csv")) {
        if (r.text.at("region") != "transport") continue;
        SCOPED_TRACE(row_label(r, {"first_value", "second_value", "quantity"}));
        for (const auto& s : states) {
            if (s["p_bar"] != r["first_value"] || s["t_C"] != r["second_value"]) continue;
            const double v = s["v_m3_per_kg"], t = s["t_C"];
            if (r.text.at("quantity") == "viscosity") {
                EXPECT_TRUE(near(pws::pws_ci(v, t), r["if97_or_iapws"], tol_viscosity));
            } else {
                EXPECT_TRUE(near(pws::pws_cj(v, t), r["if97_or_iapws"], tol_conductivity));
            }
            ++compared;
        }
    }
    EXPECT_EQ(compared, 32);
}

}  // namespace
