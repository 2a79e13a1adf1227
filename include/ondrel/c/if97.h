/*
 * Water and steam by IAPWS-IF97, C interface, SI units: p in Pa, T in K, v
 * in m3/kg, rho in kg/m3, h and u in J/kg, s, cp and cv in J/(kg K), w in
 * m/s, viscosity in Pa s, thermal conductivity in W/(m K), surface tension
 * in N/m.
 *
 * Every function returns a status code of ondrel/c/status.h (ONDREL_OK = 0
 * on success; ondrel_message gives its text) and writes its result through
 * the last argument only on success: on failure the caller's struct or
 * double is left as it was. A null result pointer gives
 * ONDREL_INVALID_ARGUMENT. The library keeps no state between calls; every
 * function may be called from any number of threads at once.
 */
#ifndef ONDREL_C_IF97_H
#define ONDREL_C_IF97_H

#include "ondrel/c/status.h"
#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/*
 * A state of water or steam: one phase (regions 1, 2, 3, 5) or a wet
 * mixture (region 4, 0 < x < 1). In a wet state v, rho, h, u and s are the
 * mixed values and cp, cv, w, alpha and kappa are NaN. A saturated state
 * asked for with x = 0 or x = 1 is the saturated phase itself.
 */
typedef struct ondrel_if97_state {
    double p;     /* pressure, Pa */
    double T;     /* temperature, K */
    double v;     /* specific volume, m3/kg */
    double rho;   /* density, kg/m3 */
    double h;     /* specific enthalpy, J/kg */
    double s;     /* specific entropy, J/(kg K) */
    double u;     /* specific internal energy, J/kg */
    double cp;    /* isobaric heat capacity, J/(kg K) */
    double cv;    /* isochoric heat capacity, J/(kg K) */
    double w;     /* speed of sound, m/s */
    double alpha; /* isobaric expansion coefficient, 1/K */
    double kappa; /* isothermal compressibility, 1/Pa */
    double x;     /* vapour quality; in one phase 0 when liquid-like, 1 otherwise */
    int region;   /* IF97 region: 1, 2, 3, 4 (wet) or 5 */
} ondrel_if97_state;

/*
 * States from an input pair: the two inputs in the order of the function's
 * name, then the state to fill.
 *   p      pressure, Pa (above 0; the state carries this value exactly)
 *   T      temperature, K
 *   h      specific enthalpy, J/kg
 *   s      specific entropy, J/(kg K)
 *   u      specific internal energy, J/kg
 *   v      specific volume, m3/kg (above 0)
 *   x      vapour quality, 0 to 1
 *   state  receives the state on success
 * Returns ONDREL_OK; ONDREL_INVALID_INPUT for a NaN or infinite input;
 * ONDREL_NON_POSITIVE_INPUT for a pressure or volume at or below zero;
 * ONDREL_OUTSIDE_DATA_RANGE outside 273.15 K to 1073.15 K up to 100 MPa
 * and 1073.15 K to 2273.15 K up to 50 MPa, for a quality outside 0 to 1 or
 * a saturation input off the saturation line (273.15 K to 647.096 K,
 * 611.213 Pa to 22.064 MPa); ONDREL_NOT_CONVERGED; ONDREL_INVALID_ARGUMENT
 * for a null state.
 */
ONDREL_API int ondrel_if97_from_pT(double p, double T, ondrel_if97_state* state);
/* Along an isobar. For (p, v) in the liquid below the temperature of
   maximum density, the warmer of the two states sharing v. */
ONDREL_API int ondrel_if97_from_ph(double p, double h, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_ps(double p, double s, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_pu(double p, double u, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_pv(double p, double v, ondrel_if97_state* state);
/* Along an isotherm. Where a compressed liquid and a wet mixture share T
   and h (or s), the compressed liquid. */
ONDREL_API int ondrel_if97_from_Th(double T, double h, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_Ts(double T, double s, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_Tv(double T, double v, ondrel_if97_state* state);
/* Along an isochore. */
ONDREL_API int ondrel_if97_from_vh(double v, double h, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_vs(double v, double s, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_vu(double v, double u, ondrel_if97_state* state);
/* Along an isentrope. */
ONDREL_API int ondrel_if97_from_hs(double h, double s, ondrel_if97_state* state);
/* On the saturation line. */
ONDREL_API int ondrel_if97_from_Tx(double T, double x, ondrel_if97_state* state);
ONDREL_API int ondrel_if97_from_px(double p, double x, ondrel_if97_state* state);

/*
 * Single properties from (p, T), each the value ondrel_if97_from_pT gives
 * in the struct, bit for bit, at a fraction of its cost.
 *   p      pressure, Pa
 *   T      temperature, K
 *   value  receives the property on success: v in m3/kg, h and u in J/kg,
 *          s and cp in J/(kg K)
 * Returns the statuses of ondrel_if97_from_pT; ONDREL_INVALID_ARGUMENT for
 * a null value.
 */
ONDREL_API int ondrel_if97_v_pT(double p, double T, double* value);
ONDREL_API int ondrel_if97_h_pT(double p, double T, double* value);
ONDREL_API int ondrel_if97_u_pT(double p, double T, double* value);
ONDREL_API int ondrel_if97_s_pT(double p, double T, double* value);
ONDREL_API int ondrel_if97_cp_pT(double p, double T, double* value);

/*
 * Dynamic viscosity (IAPWS 2008, industrial use) and thermal conductivity
 * (IAPWS 2011, industrial formulation) of a state.
 *   state  a state as the from functions give it (viscosity reads rho and
 *          T; conductivity also cp, cv and kappa)
 *   value  receives Pa s or W/(m K) on success
 * Returns ONDREL_OK; ONDREL_NOT_AVAILABLE for a wet state (region 4);
 * ONDREL_INVALID_INPUT when a property read is NaN or infinite;
 * ONDREL_NON_POSITIVE_INPUT for a density at or below zero;
 * ONDREL_OUTSIDE_DATA_RANGE for T outside 273.15 K to 2273.15 K;
 * ONDREL_INVALID_ARGUMENT for a null state or value.
 */
ONDREL_API int ondrel_if97_viscosity(const ondrel_if97_state* state, double* value);
ONDREL_API int ondrel_if97_conductivity(const ondrel_if97_state* state, double* value);

/*
 * Surface tension on the saturation line (IAPWS 2014).
 *   T      temperature, K, from 273.15 K to the critical 647.096 K (where
 *          it is zero)
 *   value  receives N/m on success
 * Returns ONDREL_OK; ONDREL_INVALID_INPUT for a NaN or infinite T;
 * ONDREL_OUTSIDE_DATA_RANGE outside that range; ONDREL_INVALID_ARGUMENT for
 * a null value.
 */
ONDREL_API int ondrel_if97_surface_tension(double T, double* value);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_C_IF97_H */
