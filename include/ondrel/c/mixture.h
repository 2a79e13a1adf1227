/*
 * The ideal-gas mixture model for C callers (and any language with a C
 * foreign-function interface): opaque handles, status codes, SI units.
 *
 *   ondrel_mixture* gas = NULL;
 *   const char* names[] = {"N2", "O2", "AR"};
 *   const double x[] = {0.7809, 0.2095, 0.0096};
 *   if (ondrel_mixture_create(3, names, x, &gas, NULL, 0) != ONDREL_OK) ...
 *   ondrel_context* ctx = ondrel_context_create();
 *   double p, T, h;
 *   int st = ondrel_solve(ctx, gas, "Ph", 1.0e5, 3.0e5, &p, &T);
 *   if (st == ONDREL_OK) st = ondrel_property(ctx, gas, p, T, "h", &h);
 *   else puts(ondrel_message(st));
 *   ondrel_context_free(ctx);
 *   ondrel_mixture_free(gas);
 *
 * Units: Pa, K, m3/kg, kg/m3, J/kg, J/(kg K), Pa s, W/(m K). Property and
 * pair names as the C++ API spells them ("h", "dP_dv", ...; "PT", "Ph", ...).
 * A mixture may be shared by threads; a context belongs to one thread at a
 * time. No function keeps a pointer to the caller's arrays.
 */
#ifndef ONDREL_C_MIXTURE_H
#define ONDREL_C_MIXTURE_H

#include <stddef.h>

#include "ondrel/c/status.h"
#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct ondrel_mixture ondrel_mixture;
typedef struct ondrel_context ondrel_context;

/*
 * Builds a mixture on the default gas table.
 *   n        number of components, 1 to 250
 *   names    n NUL-terminated gas-table names ("N2", "H2O(IF)", ...)
 *   x        n mole fractions: finite, not negative, summing to one within 1e-6
 *   out      receives the mixture (NULL on failure); free it with ondrel_mixture_free
 *   detail   NULL, or a buffer of detail_len bytes that receives a
 *            NUL-terminated explanation on failure (the unknown name, or
 *            where the gas data was looked for); cut to fit
 * Returns ONDREL_OK, ONDREL_INVALID_ARGUMENT (a NULL pointer), ONDREL_TOO_MANY_COMPONENTS,
 * ONDREL_INVALID_COMPOSITION, ONDREL_UNKNOWN_COMPONENT or ONDREL_GAS_DATA_NOT_FOUND.
 */
ONDREL_API int ondrel_mixture_create(int n, const char* const* names, const double* x, ondrel_mixture** out,
                                     char* detail, size_t detail_len);
ONDREL_API void ondrel_mixture_free(ondrel_mixture* mix); /* NULL is ignored */
/* Molar mass (kg/mol) and the temperature limits of the gas data (K); 0 for NULL. */
ONDREL_API double ondrel_mixture_molar_mass(const ondrel_mixture* mix);
ONDREL_API double ondrel_mixture_t_min(const ondrel_mixture* mix);
ONDREL_API double ondrel_mixture_t_max(const ondrel_mixture* mix);

/* A context: the mutable state of the calls of one thread. NULL when out of memory. */
ONDREL_API ondrel_context* ondrel_context_create(void);
ONDREL_API void ondrel_context_free(ondrel_context* ctx); /* NULL is ignored */

/*
 * The state given by an input pair.
 *   pair      two letters: "PT", "TP", "Pv", "Pd", "Ph", "Ps", "Pu", "Tv", "Td",
 *             "Th", "Ts", "Tu", "vh", "vs", "vu", "dh", "ds", "du", "hs", "su"
 *   in1, in2  the values of the pair's first and second quantity, SI units
 *   p, T      receive the state (Pa, K); written also on failure, then meaningless
 * Returns ONDREL_OK or the fault (see ondrel_message): ONDREL_INVALID_ARGUMENT,
 * ONDREL_UNKNOWN_PAIR, ONDREL_INVALID_INPUT, ONDREL_NON_POSITIVE_INPUT,
 * ONDREL_PRESSURE_UNDETERMINED, ONDREL_NO_SOLUTION, ONDREL_NOT_CONVERGED.
 */
ONDREL_API int ondrel_solve(ondrel_context* ctx, const ondrel_mixture* mix, const char* pair, double in1,
                            double in2, double* p, double* T);

/*
 * One property at the state (p Pa, T K).
 *   name   "P", "T", "v", "d", "h", "s", "u", "cv", "dP_dT", "dP_dv", "d2P_dT2",
 *          "d2P_dv2", "d2P_dTdv", "dCv_dT", "eta", "lambda"
 *   value  receives it
 * Returns ONDREL_OK, ONDREL_INVALID_ARGUMENT, ONDREL_UNKNOWN_PROPERTY,
 * ONDREL_INVALID_INPUT or ONDREL_NON_POSITIVE_INPUT.
 */
ONDREL_API int ondrel_property(ondrel_context* ctx, const ondrel_mixture* mix, double p, double T,
                               const char* name, double* value);

/*
 * Arrays: n points of the pair; for each point the nprops properties named
 * in props go to out[i * nprops + k] and the point's status to status[i]
 * (NaN in a failed point's row). threads: 0 for all cores. The results equal
 * single calls bit for bit, whatever the thread count. Returns ONDREL_OK, or
 * ONDREL_INVALID_ARGUMENT, ONDREL_UNKNOWN_PAIR or ONDREL_UNKNOWN_PROPERTY
 * with nothing written.
 */
ONDREL_API int ondrel_evaluate(const ondrel_mixture* mix, const char* pair, size_t n, const double* in1,
                               const double* in2, size_t nprops, const char* const* props, double* out,
                               int* status, unsigned threads);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_C_MIXTURE_H */
