/*
 * IAPWS-IF97 water and steam through the host's calling convention: the
 * exported routines of the IF97 adapter (module if97_qv). Properties are
 * computed by the IF97 library (libif97) through its entry if97_main.
 *
 * Calling convention (the GNU Fortran one): C linkage, lower-case names with
 * a trailing underscore, every argument passed by reference, and the length
 * of each text argument appended as a trailing hidden size_t, in argument
 * order. Texts are fixed-width and blank-padded (a NUL byte ends a text
 * early); comparisons ignore trailing blanks and are case-sensitive. Output
 * texts are cut or blank-padded to the caller's width. A Fortran program
 * calls these routines as ordinary external procedures.
 *
 * Units, passed through unchanged in both directions: pressure bar,
 * temperature degrees Celsius, specific volume m3/kg, density kg/m3,
 * enthalpy and internal energy kJ/kg, entropy and heat capacities
 * kJ/(kg K), vapour quality as a fraction, speed of sound m/s, dynamic
 * viscosity Pa s, thermal conductivity W/(m K), surface tension N/m.
 *
 * Input letters spec (2 characters): the letters of the IF97 library
 * ("P", "T", "h", "s", "u", "v", "x"/"X"), plus "d" (density, either
 * position, sent as specific volume 1/value) and "q" (quality, second
 * position only, sent as "x"; a first letter "q" is passed on as it is).
 * A density of 0 is inverted unchecked; the library then rejects it.
 *
 * Property names: those of the IF97 library ("p", "t", "v", "d", "h", "s",
 * "u", "x", "cp", "cv", "w", "dv", "tc", "st", "kv", "pr", any case) plus
 * the host names "d" (density), "q" (quality), "c" (speed of sound),
 * "eta" (dynamic viscosity), "lambda" (thermal conductivity) and "sigma"
 * (surface tension). A host name is translated only when it is the whole
 * text; any other text, lists included, is sent as it is with a full stop
 * appended, cut to 80 characters. The library reads names up to the first
 * full stop.
 *
 * Errors: message receives "No errors" or the IF97 library's message (an
 * unknown name, input pair or range fault, no convergence, a property
 * undefined in the two-phase region). A result the library does not
 * deliver reads -8888.8. Only if97_getinfo_ reports by itself.
 *
 * NULL arguments: a NULL input value reads as NaN, which the library
 * refuses with a message (the result stays -8888.8); a NULL text reads as
 * empty; NULL outputs and messages are not written.
 *
 * State: the last call's input codes, property text and result slots are
 * kept process-wide; one calling thread at a time.
 */
#ifndef ONDREL_IF97_QV_H
#define ONDREL_IF97_QV_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Defines the fluid as pure water.
 *   n               in: number of entries of names and concentrations (values
 *                   below 1 count as 1, above 250 as 250; NULL counts as 1);
 *                   out: 1
 *   names           out: n names of names_len characters each, blank-padded:
 *                   "H2O", then "?"
 *   concentrations  out: n doubles (mole fractions): 1.0, then 0.0
 *   names_len       hidden: width of one name
 */
ONDREL_API void if97_getfluid_(int32_t* n, char* names, double* concentrations, size_t names_len);

/*
 * Fixed fluid data by name.
 *   info         in: "M_mol" (0.018015257 kg/mol), "T_crit" (373.946 degrees
 *                Celsius), "P_crit" (220.64 bar), "T_min" (0.01000001 degrees
 *                Celsius), "T_max" (2000.0 degrees Celsius); case-sensitive
 *   message      out: "No errors", or for any other name "Error in
 *                Quintaver: for IF97 no info available for <name>." with
 *                the name's trailing blanks removed
 *   info_len, message_len  hidden: widths of info and message
 * Returns the value, or 0.0 for an unknown name.
 */
ONDREL_API double if97_getinfo_(const char* info, char* message, size_t info_len, size_t message_len);

/*
 * One property at a state.
 *   spec         in: the two input letters (see above)
 *   value1       in: value of the first letter's quantity, in its unit
 *   value2       in: value of the second letter's quantity
 *   property     in: one property name (see above), or a list sent as it is
 *   message      out: "No errors" or the IF97 library's message
 *   spec_len, property_len, message_len  hidden: widths of the texts
 * Returns the property in its unit above, or -8888.8 when the library
 * delivers none (see message). For the name "d" the library's specific
 * volume is inverted, even when it is -8888.8.
 */
ONDREL_API double if97_prop_(const char* spec, const double* value1, const double* value2,
                             const char* property, char* message, size_t spec_len, size_t property_len,
                             size_t message_len);

/*
 * Several properties at a state.
 *   spec, value1, value2  in: as for if97_prop_
 *   properties   in: names separated by commas ("p,h,s"); the list is
 *                translated only when it is one host name as a whole
 *   results      out: one double per name (as many as there are names up to
 *                the first full stop, at least one), each preset to -8888.8
 *                and then filled by the library; further entries are not
 *                touched
 *   message      out: "No errors" or the library's message (its first fault)
 *   spec_len, properties_len, message_len  hidden: widths of the texts
 */
ONDREL_API void if97_props_(const char* spec, const double* value1, const double* value2,
                            const char* properties, double* results, char* message, size_t spec_len,
                            size_t properties_len, size_t message_len);

/*
 * The main properties at a state, from the library's list
 * "p,t,v,h,s,u,x,cv,dv,tc".
 *   spec, value1, value2  in: as for if97_prop_
 *   p, t, v, d   out: pressure (bar), temperature (degrees Celsius),
 *                specific volume (m3/kg), density 1/v (kg/m3)
 *   h, s, u      out: enthalpy (kJ/kg), entropy (kJ/(kg K)), internal
 *                energy (kJ/kg)
 *   x            out: vapour quality (0 for a liquid-like single phase, 1
 *                otherwise)
 *   first        out: 20 doubles: entry 1 the liquid fraction 1 - x,
 *                entries 2 to 20 -8888.8
 *   second       out: 20 doubles: entry 1 the vapour fraction x, entries 2
 *                to 20 -8888.8
 *   cv           out: isochoric heat capacity (kJ/(kg K))
 *   eta          out: dynamic viscosity (Pa s)
 *   lambda       out: thermal conductivity (W/(m K))
 *   message      out: "No errors" or the library's message (its first fault)
 *   spec_len, message_len  hidden: widths of spec and message
 * A value the library does not deliver reads -8888.8; d and the fraction
 * entries are formed from v and x all the same (d = 1/-8888.8, 1 - x =
 * 8889.8). A NULL output pointer is skipped.
 */
ONDREL_API void if97_allprops_(const char* spec, const double* value1, const double* value2, double* p,
                               double* t, double* v, double* d, double* h, double* s, double* u, double* x,
                               double* first, double* second, double* cv, double* eta, double* lambda,
                               char* message, size_t spec_len, size_t message_len);

/*
 * Version of the IF97 library, handed on unchanged.
 *   major, minor, patch, build  out: the four 32-bit numbers
 */
ONDREL_API void if97_getversion_(int32_t* major, int32_t* minor, int32_t* patch, int32_t* build);

/* Set-up call of the host, handed on unchanged: the IF97 library prints its
 * one-line banner to standard output. */
ONDREL_API void if97_qv_sub_(void);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_IF97_QV_H */
