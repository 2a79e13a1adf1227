/* IAPWS-IF97 water and steam properties: exported entry points.
 *
 * Host calling convention (callable from Fortran as ordinary external
 * procedures): every argument by reference; the length of each text
 * argument follows as a hidden trailing size_t, in argument order.
 *
 * Units: pressure in bar, temperature in degrees Celsius, specific volume in
 * m3/kg, density in kg/m3, h and u in kJ/kg, s, cp, cv in kJ/(kg K), speed
 * of sound in m/s, dynamic viscosity in Pa s, thermal conductivity in
 * W/(m K), surface tension in N/m, kinematic viscosity in m2/s, vapour
 * quality and Prandtl number dimensionless.
 */
#ifndef IF97_IF97_H
#define IF97_IF97_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Properties from an input pair.
 *   code1, code2  one character each: 'P' pressure (bar), 'T' temperature
 *                 (degrees Celsius), 'h' (kJ/kg), 's' (kJ/(kg K)), 'u'
 *                 (kJ/kg), 'v' (m3/kg), 'x' or 'X' vapour quality; letters
 *                 are read case-insensitively. Accepted pairs, in either
 *                 order: PT, Ph, Ps, Pu, Pv, Px, Th, Ts, Tv, Tx, hs, vh, vs,
 *                 vu.
 *   value1, value2  the two input values.
 *   properties    names separated by commas, case-insensitive, the list
 *                 ending at the first full stop ("P.." is the one name "P"):
 *                 p, t, v, d, h, s, u, x, cp, cv, w, dv, tc, st, kv, pr.
 *   results       receives the k-th name's value in results[k-1]; it must
 *                 have room for as many entries as there are names in the
 *                 list. A value that cannot be computed is left as the
 *                 caller preset it.
 *   message       receives "No errors" or one sentence naming the first
 *                 fault (unknown property name, unknown input pair, state
 *                 outside the range of validity and the bound, no
 *                 convergence, property undefined in the two-phase region),
 *                 cut or blank-padded to its length.
 * Two-phase mixtures (0 < x < 1) leave cp, cv, w, dv, tc, kv and pr unset
 * with a message; saturated states (x = 0 or 1) give those of the phase. x
 * of a single-phase state is 0 for a liquid-like state (region 1, or region
 * 3 denser than 322 kg/m3) and 1 otherwise. st is defined up to the
 * critical temperature. */
ONDREL_API void if97_main_(const char* code1, const double* value1, const char* code2, const double* value2,
                           const char* properties, double* results, char* message, size_t code1_len,
                           size_t code2_len, size_t properties_len, size_t message_len);

/* Library version as four 32-bit integers: major, minor, patch, build. */
ONDREL_API void getversion_(int32_t* major, int32_t* minor, int32_t* patch, int32_t* build);

/* Set-up call: prints a one-line banner to standard output. No arguments. */
ONDREL_API void if97_sub_(void);

#ifdef __cplusplus
}
#endif

#endif
