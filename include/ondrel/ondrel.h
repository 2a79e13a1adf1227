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
 *   4  the solution did not converge within 100 iterations, or it met a
 *      value that is not a number inside its bracket and found no root
 *   5  the given value is not reached anywhere in the solver's bracket; also
 *      a NaN or infinite input to a pair that is solved, and a search that
 *      met a value that is not a number at an end of its bracket
 *   6  unknown information name: result -8888.8
 *   7  "Th" or "Tu" for a mixture without "H2O(IF)": an ideal gas's enthalpy
 *      and internal energy do not fix its pressure
 * With codes 2, 4, 5 and 7 the properties are evaluated at whatever state the
 * solution gave (pressure or temperature 0.0 or -8888.8): test errcode.
 * Pairs that need no solution ("PT", "TP", and "Pv", "Pd", "Tv", "Td" without
 * "H2O(IF)") only convert their inputs: a NaN input gives NaN results, code 0.
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
 * calling thread at a time. A load of another table (readgasfile_,
 * readgasdb_ of od_fluiddata.h) makes the next request check its names
 * against that table and solve its state again. A failed request leaves
 * nothing behind that changes a later answer.
 */
#ifndef ONDREL_ONDREL_H
#define ONDREL_ONDREL_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/export.h"

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
ONDREL_API double od_prop_(const char *inputspec, const double *input1, const double *input2,
                           const int32_t *ncomp, const char *names, const double *conc,
                           const char *outname, int32_t *errcode, size_t inputspec_len,
                           size_t names_len, size_t outname_len);

/*
 * All sixteen properties at once, in the order and units of od_prop_'s
 * outname list: P, T, v, d, h, s, u, cv, dP_dT, dP_dv, d2P_dT2, d2P_dv2,
 * d2P_dTdv, dCv_dT, eta, lambda. errcode: 0, 1, 2, 4, 5 or 7; with code 1
 * every output is -8888.8.
 */
ONDREL_API void od_allprops_(const char *inputspec, const double *input1, const double *input2,
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
ONDREL_API double od_info_(const int32_t *ncomp, const char *names, const double *conc,
                           const char *infoname, int32_t *errcode, size_t names_len,
                           size_t infoname_len);

/*
 * The gas table's components: n receives their number (0 when no data could
 * be loaded); names must have room for 250 texts of names_len characters and
 * receives all 250 name slots in table order (only the first n are names).
 */
ONDREL_API void od_compset_(int32_t *n, char *names, size_t names_len);

/* version[0..3] receive 3, 0, 1, 24 (major, minor, patch, build). */
ONDREL_API void od_getversion_(int32_t *version);

/* Writes " ****** Hello from the Ondrel      ******" to standard output. */
ONDREL_API void ondrel_sub_(void);

/*
 * Moles of gas phase per mole of mixture at p (Pa) and t (K): the sum of
 * the concentrations of the gas components, less the water of "H2O(IF)"
 * that condenses at this state; 1.0 when no component is a gas. The
 * components are looked up among those of the last mixture a request of
 * od_prop_, od_allprops_ or od_info_ stored: make one with the same names
 * first. A count below 1 is the empty mixture; a count above 250 or a
 * missing argument gives -8888.8.
 */
ONDREL_API double x_gas_(const double *p, const double *t, const int32_t *n, const char *names,
                         const double *conc, size_t names_len);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_ONDREL_H */
