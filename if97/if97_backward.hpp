// Backward equations of IAPWS-IF97 and of its supplementary releases.
// Formulation units throughout: p in MPa, T in K, h in kJ/kg, s in kJ/(kg K),
// v in m3/kg. Each function evaluates one equation as published; none
// iterates, none checks its range of validity. The results are start values:
// they agree with the forward equations only within the release's
// consistency limits (a few mK to 25 mK in T, 1e-5 to 1e-4 relative in v
// and p).
#pragma once

namespace if97::backward {

// --- Region 1 ------------------------------------------------------------
// T(p,h) in region 1, K.
double t_ph_region1(double p, double h);
// T(p,s) in region 1, K.
double t_ps_region1(double p, double s);
// p(h,s) in region 1, MPa.
double p_hs_region1(double h, double s);

// --- Region 2 ------------------------------------------------------------
// B2bc boundary: pressure from enthalpy, MPa.
double p_b2bc_h(double h);
// B2bc boundary: enthalpy from pressure, kJ/kg.
double h_b2bc_p(double p);
// Boundary between 2a and 2b for p(h,s): h_2ab(s), kJ/kg.
double h_2ab_s(double s);

// T(p,h) in sub-regions 2a, 2b, 2c, K.
double t_ph_region2a(double p, double h);
double t_ph_region2b(double p, double h);
double t_ph_region2c(double p, double h);
// T(p,h) in region 2 with the sub-region chosen: 2a for p <= 4 MPa, else 2b
// if h >= h_b2bc(p), else 2c. K.
double t_ph_region2(double p, double h);

// T(p,s) in sub-regions 2a, 2b, 2c, K.
double t_ps_region2a(double p, double s);
double t_ps_region2b(double p, double s);
double t_ps_region2c(double p, double s);
// T(p,s) in region 2 with the sub-region chosen: 2a for p <= 4 MPa, else 2b
// if s >= 5.85 kJ/(kg K), else 2c. K.
double t_ps_region2(double p, double s);

// p(h,s) in sub-regions 2a, 2b, 2c, MPa.
double p_hs_region2a(double h, double s);
double p_hs_region2b(double h, double s);
double p_hs_region2c(double h, double s);
// p(h,s) in region 2 with the sub-region chosen: 2a if h <= h_2ab(s), else
// 2b if s >= 5.85 kJ/(kg K), else 2c. MPa.
double p_hs_region2(double h, double s);

// --- Region 3: (p,h) and (p,s) ---------------------------------------------
// Boundary between 3a and 3b for (p,h): h_3ab(p), kJ/kg.
double h_3ab_p(double p);
// T(p,h) and v(p,h) in sub-regions 3a and 3b (K, m3/kg).
double t_ph_region3a(double p, double h);
double t_ph_region3b(double p, double h);
double v_ph_region3a(double p, double h);
double v_ph_region3b(double p, double h);
// The same with the sub-region chosen: 3a if h <= h_3ab(p), else 3b.
double t_ph_region3(double p, double h);
double v_ph_region3(double p, double h);

// Critical entropy separating 3a and 3b for (p,s) and (h,s), kJ/(kg K).
inline constexpr double s_crit = 4.41202148223476;
// T(p,s) and v(p,s) in sub-regions 3a and 3b (K, m3/kg).
double t_ps_region3a(double p, double s);
double t_ps_region3b(double p, double s);
double v_ps_region3a(double p, double s);
double v_ps_region3b(double p, double s);
// The same with the sub-region chosen: 3a if s <= s_crit, else 3b.
double t_ps_region3(double p, double s);
double v_ps_region3(double p, double s);

// Saturation pressure in region 3 from h (1670.858 to 2563.592 kJ/kg) and
// from s (3.778281340 to 5.210887825 kJ/(kg K)), MPa.
double p_3sat_h(double h);
double p_3sat_s(double s);

// --- (h,s): region 3, boundaries, region 4 -----------------------------------
// p(h,s) in sub-regions 3a and 3b, MPa.
double p_hs_region3a(double h, double s);
double p_hs_region3b(double h, double s);
// p(h,s) in region 3 with the sub-region chosen: 3a if s <= s_crit. MPa.
double p_hs_region3(double h, double s);

// Saturated-liquid enthalpy on the region 1 side, h'_1(s), kJ/kg.
double h_1_liquid_s(double s);
// Saturated-liquid enthalpy on the region 3 side, h'_3a(s), kJ/kg.
double h_3a_liquid_s(double s);
// Saturated-vapour enthalpy on the region 2a/2b side, h''_2ab(s), kJ/kg.
double h_2ab_vapour_s(double s);
// Saturated-vapour enthalpy on the region 2c/3b side, h''_2c3b(s), kJ/kg.
double h_2c3b_vapour_s(double s);
// Boundary between regions 1 and 3, h_B13(s), kJ/kg.
double h_b13_s(double s);
// Temperature of the B23 boundary from h and s, T_B23(h,s), K.
double t_b23_hs(double h, double s);
// Saturation temperature from h and s (s >= 5.210887825 kJ/(kg K)), K.
double tsat_hs(double h, double s);

// --- Region 3: v(p,T) ----------------------------------------------------
// Sub-region boundaries T(p) of v(p,T), K.
double t_3ab_p(double p);
double t_3cd_p(double p);
double t_3ef_p(double p);
double t_3gh_p(double p);
double t_3ij_p(double p);
double t_3jk_p(double p);
double t_3mn_p(double p);
double t_3op_p(double p);
double t_3qu_p(double p);
double t_3rx_p(double p);
double t_3uv_p(double p);
double t_3wx_p(double p);

// Sub-region of v(p,T), a letter 'a' to 'z'. tsat is Tsat(p) in K, the
// saturation line that separates liquid from vapour sub-regions (3c|3t,
// 3s|3t, 3s|3r, 3u|3x, ...); it is read only for p <= 22.064 MPa, above
// that any value will do.
char subregion3_pt(double p, double T, double tsat);
// v(p,T) of the named sub-region ('a' to 'z'), m3/kg; NaN for another letter.
double v_pt_region3(char subregion, double p, double T);
// v(p,T) in region 3 with the sub-region chosen by subregion3_pt, m3/kg.
double v_pt_region3(double p, double T, double tsat);

}  // namespace if97::backward
