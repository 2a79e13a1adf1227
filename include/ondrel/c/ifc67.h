/*
 * Water and steam by the 1967 IFC formulation for industrial use (IFC-67),
 * from C: one function per input pair, SI units throughout.
 *
 * Units: pressure Pa, temperature K, specific volume m3/kg, specific enthalpy
 * and internal energy J/kg, specific entropy and heat capacity J/(kg K),
 * dynamic viscosity Pa s, thermal conductivity W/(m K); x is the dryness
 * fraction (vapour mass fraction).
 *
 * A context holds the package's mutable state and the messages of its calls.
 * It serves one thread at a time; threads that each use their own context run
 * concurrently. Nothing is written to any stream and the process is never
 * stopped: what the package reports is kept in the context, in order, and
 * counted, until the caller clears it.
 *
 * Every function returns a status code of ondrel/c/status.h (text by
 * ondrel_message): ONDREL_OK, or for example ONDREL_OUTSIDE_DATA_RANGE (the
 * package reported the state outside the range of the formulation),
 * ONDREL_NOT_CONVERGED (an iteration ran out of steps), ONDREL_NO_SOLUTION
 * (no state has the inputs), ONDREL_NOT_UNIQUE (pressure and temperature on
 * the saturation line), ONDREL_INVALID_INPUT (NaN or infinite input),
 * ONDREL_NON_POSITIVE_INPUT (pressure or volume at or below zero),
 * ONDREL_NOT_AVAILABLE (heat capacity, viscosity or conductivity of a wet
 * state), ONDREL_INVALID_ARGUMENT (a null pointer), ONDREL_OUT_OF_MEMORY.
 * No function lets an exception through.
 */
#ifndef ONDREL_C_IFC67_H
#define ONDREL_C_IFC67_H

#include <stddef.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The package's mutable state and its messages; opaque. */
typedef struct ondrel_ifc67_context ondrel_ifc67_context;

/* A state and the region of the formulation it lies in:
 *   1  sub-region 1, compressed liquid up to 623.15 K
 *   2  region 2, superheated vapour
 *   3  region 3, vapour side of the critical region
 *   4  region 3, liquid side (liquid between 623.15 K and 647.3 K)
 *   5  wet, saturation temperature above 623.15 K
 *   6  wet, saturation temperature up to 623.15 K
 * x is 0 in regions 1 and 4 and 1 in regions 2 and 3. */
typedef struct ondrel_ifc67_state {
    double p;   /* pressure, Pa */
    double T;   /* temperature, K */
    double v;   /* specific volume, m3/kg */
    double h;   /* specific enthalpy, J/kg */
    double s;   /* specific entropy, J/(kg K) */
    double x;   /* dryness fraction */
    int region; /* 1 to 6, as above */
} ondrel_ifc67_state;

/* Properties of a single-phase state beyond those of the state. */
typedef struct ondrel_ifc67_properties {
    double cp;           /* isobaric specific heat capacity, J/(kg K) */
    double viscosity;    /* dynamic viscosity, Pa s */
    double conductivity; /* thermal conductivity, W/(m K) */
} ondrel_ifc67_properties;

/* A new context with no messages; NULL when memory runs out. */
ONDREL_API ondrel_ifc67_context* ondrel_ifc67_context_create(void);
/* Frees a context and its messages; NULL is ignored. */
ONDREL_API void ondrel_ifc67_context_free(ondrel_ifc67_context* ctx);

/* The state from an input pair: ondrel_ifc67_from_<first><second>(ctx, first, second, state).
 *   ctx     the context of the calling thread; not NULL.
 *   first   the first input value, in the unit of its quantity (above).
 *   second  the second input value.
 *   state   receives the state (not NULL). It is written whenever the package
 *           placed a state, also with ONDREL_OUTSIDE_DATA_RANGE (the equations
 *           evaluated outside their range), ONDREL_NOT_CONVERGED (the last
 *           iterate) and ONDREL_NOT_UNIQUE (what the package makes of a state
 *           on the saturation line); otherwise it is set to zeros, region 0.
 * Returns the status. Inputs are checked before the package is called: NaN or
 * infinite gives ONDREL_INVALID_INPUT, a pressure or volume at or below zero
 * ONDREL_NON_POSITIVE_INPUT, a dryness fraction outside 0 to 1
 * ONDREL_OUTSIDE_DATA_RANGE. */
ONDREL_API int ondrel_ifc67_from_pT(ondrel_ifc67_context* ctx, double p, double T, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_ph(ondrel_ifc67_context* ctx, double p, double h, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_ps(ondrel_ifc67_context* ctx, double p, double s, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_pu(ondrel_ifc67_context* ctx, double p, double u, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_pv(ondrel_ifc67_context* ctx, double p, double v, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_px(ondrel_ifc67_context* ctx, double p, double x, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_Tv(ondrel_ifc67_context* ctx, double T, double v, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_Th(ondrel_ifc67_context* ctx, double T, double h, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_Tx(ondrel_ifc67_context* ctx, double T, double x, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_Tu(ondrel_ifc67_context* ctx, double T, double u, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_Ts(ondrel_ifc67_context* ctx, double T, double s, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_sx(ondrel_ifc67_context* ctx, double s, double x, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_hs(ondrel_ifc67_context* ctx, double h, double s, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_us(ondrel_ifc67_context* ctx, double u, double s, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_vh(ondrel_ifc67_context* ctx, double v, double h, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_vs(ondrel_ifc67_context* ctx, double v, double s, ondrel_ifc67_state* state);
ONDREL_API int ondrel_ifc67_from_vu(ondrel_ifc67_context* ctx, double v, double u, ondrel_ifc67_state* state);

/* Heat capacity, viscosity and conductivity of a single-phase state.
 *   ctx         the context of the calling thread; not NULL.
 *   state       a state (regions 1 to 4), normally one of the functions above
 *               gave; not NULL.
 *   properties  receives the values (not NULL); written whenever the status
 *               is ONDREL_OK, ONDREL_OUTSIDE_DATA_RANGE or ONDREL_NOT_CONVERGED,
 *               otherwise set to zeros.
 * Returns the status: ONDREL_NOT_AVAILABLE for a wet state (region 5 or 6),
 * ONDREL_INVALID_ARGUMENT for a region outside 1 to 6, ONDREL_INVALID_INPUT
 * for a NaN or infinite p, T or v. */
ONDREL_API int ondrel_ifc67_state_properties(ondrel_ifc67_context* ctx, const ondrel_ifc67_state* state,
                                             ondrel_ifc67_properties* properties);

/* The messages kept since the last clear, in the order reported.
 *   ondrel_ifc67_message_count  their number; 0 for a NULL ctx.
 *   ondrel_ifc67_error_count    the errors among them (messages whose code is
 *                               not 0); 0 for a NULL ctx.
 *   ondrel_ifc67_message_code   the code of message `index` (0-based): the
 *                               package's error code of a counted error (above
 *                               0 out of range, below 0 not converged; digits
 *                               1 P, 2 T, 3 H, 4 V, 5 S name the quantities of
 *                               the text), or 0 for a warning or report line
 *                               that is not counted; 0 for a NULL ctx or an
 *                               index out of range.
 *   ondrel_ifc67_message_text   the text of message `index`, NUL-terminated,
 *                               values in bar, C, m3/kg and kJ; "" for a NULL
 *                               ctx or an index out of range. The text stays
 *                               valid until the next call with the context.
 *   ondrel_ifc67_clear_messages forgets the messages and the count; NULL is
 *                               ignored. */
ONDREL_API size_t ondrel_ifc67_message_count(const ondrel_ifc67_context* ctx);
ONDREL_API int ondrel_ifc67_error_count(const ondrel_ifc67_context* ctx);
ONDREL_API int ondrel_ifc67_message_code(const ondrel_ifc67_context* ctx, size_t index);
ONDREL_API const char* ondrel_ifc67_message_text(const ondrel_ifc67_context* ctx, size_t index);
ONDREL_API void ondrel_ifc67_clear_messages(ondrel_ifc67_context* ctx);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_C_IFC67_H */
