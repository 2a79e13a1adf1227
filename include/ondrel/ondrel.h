/*
 * Ondrel ideal-gas mixture model: the exported routines.
 *
 * Calling convention (the GNU Fortran one): C linkage, lower-case names with
 * a trailing underscore, every argument passed by reference, and the length
 * of each text argument appended as a trailing hidden size_t, in argument
 * order. Texts are fixed-width and blank-padded; a NUL byte ends a text
 * early, so C callers may pass NUL-terminated strings with a generous length.
 * A Fortran program calls these routines as ordinary external procedures.
 *
 * Mixture arguments:
 *   ncomp    number of components, 0 to 250. A count below 0 or above 250
 *            is refused: error code 1 and every result -8888.8.
 *   names    ncomp component names of names_len characters each, stored one
 *            after the other (a Fortran CHARACTER(len=names_len) array, or a
 *            C array char names[ncomp][names_len]). Names are gas table
 *            entries ("N2", "CO2", "H2O", "H2O(IF)" for water that may
 *            condense, "AL2O3(S)", ...); 8 characters are significant,
 *            trailing blanks are ignored, case matters.
 *   conc     ncomp concentrations (mole fractions), used as given, never
 *            normalised.
 *
 * Interface units: pressure bar, temperature degrees Celsius, specific volume
 * m3/kg, density kg/m3, enthalpy and internal energy kJ/kg, entropy and cv
 * kJ/(kg K). Derivatives of pressure in SI units (Pa/K, Pa kg/m3, ...),
 * dCv_dT in J/(kg K2), viscosity eta in Pa s, conductivity lambda in W/(m K).
 *
 * Error codes (errcode; 0 on success):
 *   1  unknown component (or a count outside 0..250): results -8888.8
 *   2  unknown input specification
 *   3  unknown property name: result -8888.8
 *   4  the solution did not converge within 100 iterations
 *   5  the given value is not reached anywhere in the solver's bracket
 *   6  unknown information name: result -8888.8
 *   7  "Th" or "Tu" for a mixture without "H2O(IF)": an ideal gas's enthalpy
 *      and internal energy do not fix its pressure
 * With codes 2, 4, 5 and 7 the properties are evaluated at whatever state the
 * solution gave (pressure or temperature 0.0 or -8888.8): test errcode.
 *
 * Input specifications: "PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv",
 * "Td", "Th", "Ts", "Tu", "vh", "vs", "vu", "dh", "ds", "du", "hs", "su",
 * each in exactly this letter order. First letter: quantity of input1.
 *
 * State: the gas table is loaded on the first call, from Ondrel.Dat in the
 * first of these directories that holds it:
 *   1. the directory a host registered with ondrel_set_host_functions_
 *      (ondrel/host.h), or else the one named by the environment variable
 *      ONDREL_FLUIDPATH: when either is given, no other is tried;
 *   2. share/ondrel beside the library: the installation's data directory
 *      found from the location of libondrel.so itself (for a program linked
 *      with libondrel.a: from the program's location), so that a moved
 *      installation still finds its data;
 *   3. the data directory configured when the library was built
 *      (<prefix>/share/ondrel/).
 * When none holds it, every request fails with code 1; fluiddb where, or
 * ondrel::describe (ondrel/gas_data.hpp), tells where the library looked.
 * The last mixture and the last solved state are kept between calls; one
 * calling thread at a time.
 */
#ifndef ONDREL_ONDREL_H
#define ONDREL_ONDREL_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * One property of a mixture at the state given by an input pair.
 *   inputspec  two-letter input specification ("PT", "Ph", ...)
 *   input1     value of the first letter's quantity (interface units)
 *   input2     value of the second letter's quantity
 *   ncomp, names, conc   the mixture (see above)
 *   outname    "P" (bar), "T" (degrees C), "v" (m3/kg), "d" (kg/m3),
 *              "h", "u" (kJ/kg), "s", "cv" (kJ/(kg K)), "dP_dT" (Pa/K),
 *              "dP_dv" (Pa kg/m3), "d2P_dT2", "d2P_dv2", "d2P_dTdv",
 *              "dCv_dT" (J/(kg K2)), "eta" (Pa s), "lambda" (W/(m K));
 *              case matters, trailing blanks are ignored; there is no "cp"
 *   errcode    out: 0, 1, 2, 3, 4, 5 or 7
 * Returns the property, or -8888.8 with codes 1 and 3.
 */
double od_prop_(const char *inputspec, const double *input1, const double *input2,
                const int32_t *ncomp, const char *names, const double *conc,
                const char *outname, int32_t *errcode, size_t inputspec_len,
                size_t names_len, size_t outname_len);

/*
 * All sixteen properties at once, in the order and units of od_prop_'s
 * outname list: P, T, v, d, h, s, u, cv, dP_dT, dP_dv, d2P_dT2, d2P_dv2,
 * d2P_dTdv, dCv_dT, eta, lambda. errcode: 0, 1, 2, 4, 5 or 7; with code 1
 * every output is -8888.8.
 */
void od_allprops_(const char *inputspec, const double *input1, const double *input2,
                  const int32_t *ncomp, const char *names, const double *conc, double *P,
                  double *T, double *v, double *d, double *h, double *s, double *u,
                  double *cv, double *dP_dT, double *dP_dv, double *d2P_dT2,
                  double *d2P_dv2, double *d2P_dTdv, double *dCv_dT, double *eta,
                  double *lambda, int32_t *errcode, size_t inputspec_len, size_t names_len);

/*
 * Information on a mixture: infoname "M_mol" (molar mass, kg/mol), "T_min"
 * or "T_max" (temperature limits of the gas data, degrees Celsius).
 * errcode: 0, 1 (unknown component) or 6 (unknown infoname), with -8888.8.
 */
double od_info_(const int32_t *ncomp, const char *names, const double *conc,
                const char *infoname, int32_t *errcode, size_t names_len,
                size_t infoname_len);

/*
 * The gas table's components: n receives their number (0 when no data could
 * be loaded); names must have room for 250 texts of names_len characters and
 * receives all 250 name slots in table order (only the first n are names).
 */
void od_compset_(int32_t *n, char *names, size_t names_len);

/* version[0..3] receive 3, 0, 1, 24 (major, minor, patch, build). */
void od_getversion_(int32_t *version);

/* Writes " ****** Hello from the Ondrel      ******" to standard output. */
void ondrel_sub_(void);

/*
 * Inverse solution. A property function of the host has the form
 *   double f(const double *p, const double *t, const int32_t *n,
 *            const char *cmp, const double *cnc, size_t cmp_len)
 * with p in Pa and t in K (od_thermo.h's h_pt_, s_pt_, u_pt_, v_pt_ are
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
 *            (od_thermo.h's functions look the names up in the stored
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

#endif /* ONDREL_ONDREL_H */
