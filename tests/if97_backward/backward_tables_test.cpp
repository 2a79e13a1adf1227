// The backward equations against the check values published with them:
// every row of every table reproduced to the digits printed.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "if97/if97_backward.hpp"
#include "tests/if97/if97_csv.hpp"

namespace bw = if97::backward;
using if97_test::Compute;
using if97_test::Out;
using if97_test::Row;

namespace {

using Fn1 = double (*)(double);
using Fn2 = double (*)(double, double);

// f of the row's column `in` (and `in2`) gives its column `out`.
Compute one(Fn1 f, std::string in, std::string out) {
    return [=](const Row& r) { return std::vector<Out>{{out, f(r.num(in))}}; };
}
Compute two(Fn2 f, std::string a, std::string b, std::string out) {
    return [=](const Row& r) { return std::vector<Out>{{out, f(r.num(a), r.num(b))}}; };
}
// A column of a boundary table, by the equation the row names.
Compute named1(std::map<std::string, Fn1> f, std::string key, std::string in, std::string out) {
    return [=](const Row& r) { return std::vector<Out>{{out, f.at(r.text(key))(r.num(in))}}; };
}
// Both the equation of the sub-region the row names and the function that
// chooses the sub-region itself give column `out`; several such columns
// may come from the same inputs.
struct Column {
    std::map<std::string, Fn2> named;
    Fn2 chosen;
    std::string out;
};
Compute named2(std::string a, std::string b, std::vector<Column> cols) {
    return [=](const Row& r) {
        std::vector<Out> o;
        for (const Column& c : cols) {
            o.push_back({c.out, c.named.at(r.text("subregion"))(r.num(a), r.num(b))});
            o.push_back({c.out, c.chosen(r.num(a), r.num(b))});
        }
        return o;
    };
}

const std::string p = "p_MPa", t = "T_K", h = "h_kJ_per_kg", s = "s_kJ_per_kgK", v = "v_m3_per_kg";

std::vector<if97_test::Case> tables() {
    const std::map<std::string, Compute> tables{
        {"if97_region1_T_ph.csv", two(bw::t_ph_region1, p, h, t)},
        {"if97_region1_T_ps.csv", two(bw::t_ps_region1, p, s, t)},
        {"if97_b2bc_ph.csv",
         [](const Row& r) {
             return std::vector<Out>{{p, bw::p_b2bc_h(r.num(h))}, {h, bw::h_b2bc_p(r.num(p))}};
         }},
        {"if97_region2_T_ph.csv",
         named2(p, h, {{{{"2a", bw::t_ph_region2a}, {"2b", bw::t_ph_region2b}, {"2c", bw::t_ph_region2c}},
                        bw::t_ph_region2, t}})},
        {"if97_region2_T_ps.csv",
         named2(p, s, {{{{"2a", bw::t_ps_region2a}, {"2b", bw::t_ps_region2b}, {"2c", bw::t_ps_region2c}},
                        bw::t_ps_region2, t}})},
        {"supp_phs12_region1_p_hs.csv", two(bw::p_hs_region1, h, s, p)},
        {"supp_phs12_region2_p_hs.csv",
         named2(h, s, {{{{"2a", bw::p_hs_region2a}, {"2b", bw::p_hs_region2b}, {"2c", bw::p_hs_region2c}},
                        bw::p_hs_region2, p}})},
        {"supp_phs12_h2ab_s.csv", one(bw::h_2ab_s, s, h)},
        {"supp_tv3_region3_Tv_ph.csv",
         named2(p, h, {{{{"3a", bw::t_ph_region3a}, {"3b", bw::t_ph_region3b}}, bw::t_ph_region3, t},
                       {{{"3a", bw::v_ph_region3a}, {"3b", bw::v_ph_region3b}}, bw::v_ph_region3, v}})},
        {"supp_tv3_region3_Tv_ps.csv",
         named2(p, s, {{{{"3a", bw::t_ps_region3a}, {"3b", bw::t_ps_region3b}}, bw::t_ps_region3, t},
                       {{{"3a", bw::v_ps_region3a}, {"3b", bw::v_ps_region3b}}, bw::v_ps_region3, v}})},
        {"supp_tv3_h3ab_p.csv", one(bw::h_3ab_p, p, h)},
        {"supp_tv3_psat_h.csv", one(bw::p_3sat_h, h, "psat_MPa")},
        {"supp_tv3_psat_s.csv", one(bw::p_3sat_s, s, "psat_MPa")},
        {"supp_phs3_region3_p_hs.csv",
         named2(h, s, {{{{"3a", bw::p_hs_region3a}, {"3b", bw::p_hs_region3b}}, bw::p_hs_region3, p}})},
        {"supp_phs3_boundaries_h_s.csv",
         named1({{"h1_sat_liquid", bw::h_1_liquid_s}, {"h3a_sat_liquid", bw::h_3a_liquid_s},
                 {"h2ab_sat_vapour", bw::h_2ab_vapour_s}, {"h2c3b_sat_vapour", bw::h_2c3b_vapour_s},
                 {"hB13", bw::h_b13_s}},
                "boundary", s, h)},
        {"supp_phs3_TB23_hs.csv", two(bw::t_b23_hs, h, s, t)},
        {"supp_phs3_region4_Tsat_hs.csv", two(bw::tsat_hs, h, s, "Tsat_K")},
        {"supp_vpt3_boundaries_T_p.csv",
         named1({{"ab", bw::t_3ab_p}, {"cd", bw::t_3cd_p}, {"ef", bw::t_3ef_p}, {"gh", bw::t_3gh_p},
                 {"ij", bw::t_3ij_p}, {"jk", bw::t_3jk_p}, {"mn", bw::t_3mn_p}, {"op", bw::t_3op_p},
                 {"qu", bw::t_3qu_p}, {"rx", bw::t_3rx_p}, {"uv", bw::t_3uv_p}, {"wx", bw::t_3wx_p}},
                "boundary", p, t)},
        {"supp_vpt3_region3_v_pT.csv", [](const Row& r) {
             const char letter = r.text("subregion").at(1);
             return std::vector<Out>{{v, bw::v_pt_region3(letter, r.num(p), r.num(t))}};
         }}};
    return if97_test::cases("if97_backward/", tables);
}

class BackwardTable : public testing::TestWithParam<if97_test::Case> {};
TEST_P(BackwardTable, RowIsReproducedToItsPrintedDigits) { if97_test::expect_row(GetParam()); }
INSTANTIATE_TEST_SUITE_P(Rows, BackwardTable, testing::ValuesIn(tables()));

class Vpt3Choice : public testing::TestWithParam<Row> {};
TEST_P(Vpt3Choice, PicksTheSubregionOfTheBandAndBoundaries) {
    const Row& r = GetParam();
    const char chosen = bw::subregion3_pt(r.num(p), r.num(t), r.num("Tsat_K"));
    EXPECT_EQ(std::string(1, chosen), r.text("subregion")) << r.text("case");
}
INSTANTIATE_TEST_SUITE_P(Rows, Vpt3Choice,
                         testing::ValuesIn(if97_test::load_table("if97_backward/vpt3_subregion_choice.csv")));

}  // namespace
