/* Ondrel ideal-gas mixture thermodynamics and inverse solution in the host
 * calling convention.
 *
 * Not installed, and not exported from the libraries: these are the
 * internal routines of the mixture model (state functions at p and T,
 * condensing water, derivatives, transport, and the solver of Brent's
 * method and the inverse functions), kept in the host calling convention
 * for the library's own tests. A program reaches what they compute through
 * od_prop_ and od_allprops_ (ondrel/ondrel.h) and the modern API.
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

#include "ondrel/ondrel.h"

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
/* x_gas_, the gas fraction, is exported: see ondrel/ondrel.h. */

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

/* --- inverse solution ---------------------------------------------------- */
/*
 * Inverse solution. A property function of the host has the form
 *   double f(const double *p, const double *t, const int32_t *n,
 *            const char *cmp, const double *cnc, size_t cmp_len)
 * with p in Pa and t in K (h_pt_, s_pt_, u_pt_, v_pt_ above are
 * such functions). In the routines below p is in Pa, t in K, v in m3/kg,
 * s in J/(kg K), h and u in J/kg. The mixture arguments are those of
 * od_prop_: n components (0 to 250), cmp their names of cmp_len characters
 * each, cnc their concentrations. Except in brent_, the mixture becomes the
 * stored composition that the state functions look their components up in;
 * an unknown component, a count outside 0..250 or a missing argument gives
 * -8888.8 (and errcode 1 in get_p_ and get_t_).
 */
typedef double (*od_property_fn)(const double *p, const double *t, const int32_t *n,
                                 const char *cmp, const double *cnc, size_t cmp_len);

/*
 * Pressure (get_p_, Pa) or temperature (get_t_, K) from an input pair.
 *   inputspec  two-letter input specification, as for od_prop_
 *   input1, input2  its values in interface units (bar, degrees C, m3/kg,
 *              kg/m3, kJ/kg, kJ/(kg K))
 *   n, cmp, cnc     the mixture
 *   ierr       in/out: written only on failure, never cleared: 1 unknown
 *              component (-8888.8), 2 unknown input specification (0.0), 4 no
 *              convergence (0.0), 5 not bracketed (-8888.8), 7 "Th" or "Tu"
 *              without "H2O(IF)" (get_p_ only, 0.0)
 */
double get_p_(const char *inputspec, const double *input1, const double *input2,
              const int32_t *n, const char *cmp, const double *cnc, int32_t *ierr,
              size_t inputspec_len, size_t cmp_len);
double get_t_(const char *inputspec, const double *input1, const double *input2,
              const int32_t *n, const char *cmp, const double *cnc, int32_t *ierr,
              size_t inputspec_len, size_t cmp_len);

/*
 * Brent's bracketed root finder: the root x of f(x, fixed) = target.
 *   f        property function; the unknown is its first argument when
 *            which is 1, its second for any other which
 *   fixed    the other argument of f
 *   target   the value f must reach
 *   a, b     in/out: the bracket ends, overwritten with the iteration's
 *            points; on success b holds the root
 *   tol      bounds |f - target| at the two ends and, halved, the step on x
 *   n, cmp, cnc, cmp_len  handed to f unchanged and not read otherwise
 *            (the state functions above look the names up in the stored
 *            composition: store the mixture first, e.g. by get_p_)
 *   ierr     in/out: written only on failure, never cleared: 5 with -8888.8
 *            when the ends give residuals of one sign (a, b unchanged), 4
 *            with 0.0 after 100 iterations
 * A missing argument gives -8888.8 and writes nothing.
 */
double brent_(od_property_fn f, const int32_t *which, const double *fixed,
              const double *target, double *a, double *b, const double *tol,
              const int32_t *n, const char *cmp, const double *cnc, int32_t *ierr,
              size_t cmp_len);

/* Property X at the state (Y, Z): h, u in J/kg, s in J/(kg K), v in m3/kg.
 * The missing state variable is solved for; a failure of that inner solution
 * is not reported. */
double h_pv_(const double *p, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double s_pv_(const double *p, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double u_pv_(const double *p, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double h_tv_(const double *t, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double s_tv_(const double *t, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double u_tv_(const double *t, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double h_ps_(const double *p, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double u_ps_(const double *p, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double v_ps_(const double *p, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double h_ts_(const double *t, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double u_ts_(const double *t, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double v_ts_(const double *t, const double *s, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);

/* f at the state (p, v), (t, v), (p, s) or (t, s), called as f(p, t, ...). */
double f_pv_(od_property_fn f, const double *p, const double *v, const int32_t *n,
             const char *cmp, const double *cnc, size_t cmp_len);
double f_tv_(od_property_fn f, const double *t, const double *v, const int32_t *n,
             const char *cmp, const double *cnc, size_t cmp_len);
double f_ps_(od_property_fn f, const double *p, const double *s, const int32_t *n,
             const char *cmp, const double *cnc, size_t cmp_len);
double f_ts_(od_property_fn f, const double *t, const double *s, const int32_t *n,
             const char *cmp, const double *cnc, size_t cmp_len);

/* Ideal-gas closed forms with R = 8.3143 J/(mol K), condensed species and
 * "H2O(IF)" counted as gas: p = R t / (v M) in Pa, t = v M p / R in K. */
double p_tv_(const double *t, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);
double t_pv_(const double *p, const double *v, const int32_t *n, const char *cmp,
             const double *cnc, size_t cmp_len);

#ifdef __cplusplus
}
#endif

#endif
