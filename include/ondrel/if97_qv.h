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
 * State: the last call's input codes, property text and result slots are
 * kept process-wide; one calling thread at a time.
 */
#ifndef ONDREL_IF97_QV_H
#define ONDREL_IF97_QV_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/*
 * Defines the fluid as pure water.
 *   n               in: number of entries of names and concentrations (values
 *                   below 1 count as 1, above 250 as 250); out: 1
 *   names           out: n names of names_len characters each: "H2O", then "?"
 *   concentrations  out: n doubles: 1.0, then 0.0
 */
void if97_getfluid_(int32_t* n, char* names, double* concentrations, size_t names_len);

/*
 * Fixed fluid data: "M_mol" 0.018015257 kg/mol, "T_crit" 373.946 degrees
 * Celsius, "P_crit" 220.64 bar, "T_min" 0.01000001 degrees Celsius, "T_max"
 * 2000.0 degrees Celsius; message "No errors". Any other name returns 0.0
 * with the message "Error in Quintaver: for IF97 no info available for
 * <name>."
 */
double if97_getinfo_(const char* info, char* message, size_t info_len, size_t message_len);

/*
 * One property at the state given by spec, value1 and value2. Returns the
 * property in the units above, or -8888.8 when the library delivers none
 * (see message). For the name "d" the library's specific volume is
 * inverted.
 */
double if97_prop_(const char* spec, const double* value1, const double* value2,
                  const char* property, char* message, size_t spec_len, size_t property_len,
                  size_t message_len);

/*
 * Several properties, names separated by commas ("p,h,s"). results receives
 * one double per name (the count is the number of names up to the first
 * full stop), each preset to -8888.8 and then filled by the library.
 */
void if97_props_(const char* spec, const double* value1, const double* value2,
                 const char* properties, double* results, char* message, size_t spec_len,
                 size_t properties_len, size_t message_len);

/*
 * The main properties at once: pressure p, temperature t, specific volume v,
 * density d = 1/v, enthalpy h, entropy s, internal energy u, quality x,
 * two lists of 20 doubles (entry 1: liquid fraction 1 - x, and vapour
 * fraction x; entries 2 to 20: -8888.8), cv, dynamic viscosity eta and
 * thermal conductivity lambda. Not delivered values read -8888.8.
 */
void if97_allprops_(const char* spec, const double* value1, const double* value2, double* p,
                    double* t, double* v, double* d, double* h, double* s, double* u, double* x,
                    double* first, double* second, double* cv, double* eta, double* lambda,
                    char* message, size_t spec_len, size_t message_len);

/* Version of the IF97 library: major, minor, patch, build. */
void if97_getversion_(int32_t* major, int32_t* minor, int32_t* patch, int32_t* build);

/* Set-up call of the host: the IF97 library prints its one-line banner. */
void if97_qv_sub_(void);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_IF97_QV_H */
