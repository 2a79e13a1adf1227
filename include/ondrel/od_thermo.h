/* Ondrel ideal-gas mixture thermodynamics in the host calling convention.
 *
 * Every argument is passed by reference; the length of each text argument
 * is appended as a trailing hidden size_t, in argument order (GNU Fortran
 * convention). Texts are blank-padded; a NUL byte ends a text early; a null
 * text reads as blanks. Non-null pointers must be valid; no routine stores
 * them.
 *
 * Units: p in Pa, t in K, molar masses in kg/mol; results per unit mass in
 * J/kg, J/(kg K), m3/kg; per-mole component values divided by
 * R = 8.3143 J/(mol K) as stated below.
 *
 * A mixture is passed as
 *   n      number of components, 0..250; a count below 1 is the empty
 *          mixture (no component is read)
 *   names  n component names of the caller's width, one after the other
 *   conc   n mole fractions (used as given, never normalised)
 *   len    hidden: the width of one name
 * Components are looked up among the stored composition of the gas table
 * (the last mixture stored by a property request), plus "H2O" and "H2O(L)";
 * a name outside it enters the arithmetic with the table's missing-value
 * answer. "H2O(IF)" is water that may condense (IAPWS-IF97).
 *
 * Errors: a mixture routine given n > 250, a null n, or (for n > 0) a null
 * name or concentration list returns -8888.8 (the missing-value marker) and
 * changes no state; so does any routine given a null value argument (p, t,
 * xw, value1, value2), except isinit_ and isnotinit_, which then give 0.
 * Non-finite or non-positive p and t are evaluated without checks: the
 * result is then NaN or infinite (never a crash), except where a guard
 * below gives 0.0.
 */
#ifndef ONDREL_OD_THERMO_H
#define ONDREL_OD_THERMO_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* --- one component (name: gas-table name) ------------------------------ */
/* cp/R at t. */
double cp_0_(const char* name, const double* t, size_t name_len);
/* H/R at t, K. */
double h_0_(const char* name, const double* t, size_t name_len);
/* S/R at p, t; gases include -ln(p/101325 Pa), condensed species do not. */
double s_0_(const char* name, const double* p, const double* t, size_t name_len);
/* d(cp/R)/dT at t, 1/K. */
double dcv_dt_0_(const char* name, const double* t, size_t name_len);
/* Ideal-gas molar volume 8.3143 t / p, m3/mol. */
double v_0_(const double* p, const double* t);
/* Molar volume of a condensed species (AL2O3, C, FE2O3, S, SIO2 solids and
 * liquids), m3/mol; other names divide by -8888.8 (small negative volume). */
double v_sl_(const char* name, size_t name_len);
/* 1 when |x - (-8888.8)| < 0.1, else 0 (Fortran LOGICAL). */
int32_t isinit_(const double* x);
/* 1 when isinit_ would give 0 (also for NaN), else 0. */
int32_t isnotinit_(const double* x);

/* --- mixture information ----------------------------------------------- */
/* Highest lower temperature limit of the components, K; 0.0 when n < 1. */
double tmin_(const int32_t* n, const char* names, size_t names_len);
/* Lowest upper temperature limit, K; 1e10 when n < 1. */
double tmax_(const int32_t* n, const char* names, size_t names_len);
/* Sum of conc * molar mass, kg/mol; 0.0 when n < 1. */
double mmol_(const int32_t* n, const char* names, const double* conc, size_t names_len);

/* --- mixture state at (p, t); 0.0 when the molar mass is not above 0 ---- */
/* Specific enthalpy, J/kg. */
double h_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
             size_t names_len);
/* Specific entropy, J/(kg K). */
double s_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
             size_t names_len);
/* Isochoric heat capacity, J/(kg K). */
double cv_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
              size_t names_len);
/* Specific volume, m3/kg. */
double v_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
             size_t names_len);
/* Internal energy h - p v, J/kg. */
double u_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
             size_t names_len);
/* Moles of gas phase per mole of mixture; 1.0 when no component is a gas. */
double x_gas_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
              size_t names_len);

/* --- condensing water "H2O(IF)" ---------------------------------------- */
/* One IF97 value in SI units. spec1, spec2: first letter read, "P" (Pa),
 * "T" (K) or "X" (quality), giving the unit of value1 and value2; property
 * "P.", "H.", "S.", "CP." or "V.". A first pressure below 611.657 Pa is
 * raised to it.
 * Returns Pa, J/kg, J/(kg K) or m3/kg; -8888.8 for a saturation request
 * above 647.096 K or where IF97 gives no value. */
double h2o_(const char* spec1, const double* value1, const char* spec2, const double* value2,
            const char* property, size_t spec1_len, size_t spec2_len, size_t property_len);
/* Per-mole contribution of the water, xw = moles of water per mole of gas
 * phase, p total pressure: h/R (K), s/R, cp/R, molar volume (m3/mol). */
double h_h2o_(const double* xw, const double* p, const double* t);
double s_h2o_(const double* xw, const double* p, const double* t);
double cp_h2o_(const double* xw, const double* p, const double* t);
double v_h2o_(const double* xw, const double* p, const double* t);

/* --- pressure derivatives of the ideal-gas mixture ---------------------- */
/* (dp/dT)_v = p/t, Pa/K. */
double dp_dt_(const double* p, const double* t);
/* (dp/dv)_T = -(p^2/(R t)) M, Pa kg/m3. */
double dp_dv_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
              size_t names_len);
/* 0.0. */
double d2p_dt2_(void);
/* (d2p/dv2)_T = M^2 (p^3 + p^3)/(R t)^2, Pa kg2/m6. */
double d2p_dv2_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
                size_t names_len);
/* d2p/dTdv = -(p^2/(t^2 R)) M, Pa kg/(m3 K). */
double d2p_dtdv_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
                 size_t names_len);
/* (dcv/dT) of the mixture, J/(kg K2), "H2O(IF)" as ideal-gas "H2O"; 0.0 when M <= 0. */
double dcv_dt_(const double* t, const int32_t* n, const char* names, const double* conc, size_t names_len);

/* --- transport (dilute gas) --------------------------------------------- */
/* Viscosity of one component, Pa s; 0.0 without Lennard-Jones data. */
double viscosity_(const double* t, const char* name, size_t name_len);
/* Thermal conductivity of one component, W/(m K). */
double thermcond_(const double* p, const double* t, const char* name, size_t name_len);
/* Viscosity of the mixture, Pa s; components at or below 1e-6 are left out. */
double eta_t_(const double* t, const int32_t* n, const char* names, const double* conc, size_t names_len);
/* Thermal conductivity of the mixture, W/(m K). */
double lambda_pt_(const double* p, const double* t, const int32_t* n, const char* names, const double* conc,
                  size_t names_len);

#ifdef __cplusplus
}
#endif

#endif
