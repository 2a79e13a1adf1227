/* PWSFTN: water and steam properties by the 1967 IFC formulation for
 * industrial use (IFC-67), in the host calling convention.
 *
 * Every argument is passed by reference; a text argument is followed, after
 * all other arguments, by its length as a hidden size_t (GNU Fortran
 * convention), so a Fortran program calls these as ordinary external
 * procedures: CALL PWSER('PWS_PT', 2, T, 0D0), P = PWS_PT(T).
 *
 * Units: pressure bar, temperature degrees Celsius, specific volume m3/kg,
 * enthalpy and internal energy kJ/kg, entropy and heat capacity kJ/(kg K),
 * viscosity Pa s, thermal conductivity W/(m K).
 *
 * Errors: no routine returns an error code. A state outside a region's range,
 * or an iteration that does not converge, is reported by pwser_: one line on
 * channel pwserr_.iunit, the error count pwserr_.nerr is incremented, and
 * the value computed from the equation is returned all the same. Once nerr
 * passes maxerr the process is stopped (exit status 0) after two summary lines.
 *
 * Null pointers (error reporting to iterations below): a function with a
 * null argument, value or procedure, returns a quiet NaN and a subroutine
 * does nothing; pwser_ prints a null x1 or x2 as NaN and ignores a call
 * without icode.
 *
 * Channels: 6 is standard output. 13 is the host's channel: standard error
 * unless set with pws_set_channel13_file_ or pws_set_channel13_callback_.
 * 0 is standard error; any other number writes to the host's channel.
 *
 * Not reentrant: one calling thread at a time.
 */
#ifndef ONDREL_PWSFTN_H
#define ONDREL_PWSFTN_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* ---- Error record and reporting ---------------------------------------- */

/* The error record, the storage of the Fortran common block
 *     INTEGER IUNIT, MAXMSG, MAXERR, NERR
 *     COMMON /PWSERR/ IUNIT, MAXMSG, MAXERR, NERR
 * four 32-bit integers in this order, initially 6, 1000000, 1000000, 0:
 *   iunit   channel of error and warning lines (6: standard output)
 *   maxmsg  number of errors for which a line is still written
 *   maxerr  number of errors after which the process is stopped
 *   nerr    errors counted so far (never reset by the package)
 * A host may write any field before or between calls. */
typedef struct pwserr_record {
    int32_t iunit;
    int32_t maxmsg;
    int32_t maxerr;
    int32_t nerr;
} pwserr_record;
extern ONDREL_API pwserr_record pwserr_;

/* Counts one error and writes " *** PWSFTN-ERROR: <text><label><value>[<label><value>] ***".
 * name: reporting routine (not printed; its length follows as name_len);
 * icode > 0 "Out of range", < 0 "Non converg."; |icode| = 10 a + b: a = 0
 * label b with x1 (x2 not used), otherwise label a with x1 and label b with
 * x2; labels 1 ", P=" 2 ", T=" 3 ", H=" 4 ", V=" 5 ", S=" (a digit without a
 * label, e.g. of code 0, shows ", ?="); values in Fortran 1PE16.8 in the
 * units of their quantity (bar, C, kJ/kg, m3/kg, kJ/(kg K)). */
ONDREL_API void pwser_(const char* name, const int32_t* icode, const double* x1, const double* x2,
                       size_t name_len);

/* Channel 13. The file is opened for appending; *ierr = 0 on success, 1 if it
 * cannot be opened (the channel is then unchanged). The callback receives
 * each line without its line end, as a Fortran SUBROUTINE CB(LINE) with
 * CHARACTER*(*) LINE; a null callback restores standard error. */
typedef void (*pws_line_callback)(const char* text, size_t text_len);
ONDREL_API void pws_set_channel13_file_(const char* path, int32_t* ierr, size_t path_len);
ONDREL_API void pws_set_channel13_callback_(pws_line_callback callback);
ONDREL_API void pws_set_channel13_stderr_(void);

/* ---- Saturation line and common terms ---------------------------------- */

/* Saturation pressure (bar) at t (C). Above 374.15 C: error code 2, returns 0. */
ONDREL_API double pws_pt_(const double* t);
/* As pws_pt_, and keeps the slope of the saturation line, read by psl1_slope_
 * (saturation pressure / 80.3334 times minus the derivative of the exponent
 * with respect to 1 - T/647.3 K). */
ONDREL_API double psl1_(const double* t);
/* The slope kept by the last psl1_ evaluation (0 before the first). */
ONDREL_API double psl1_slope_(void);
/* Saturation temperature (C) at p (bar) by damped Newton steps with the slope
 * of psl1_. Above 221.2 bar: error code 1, returns 0; no convergence in 30
 * updates (the usual case above 186.1581 bar, where the tolerance tightens):
 * error code -1, last iterate. */
ONDREL_API double pws_tp_(const double* p);
/* Common terms of sub-region 1 and region 2 at (p, t), region 3 at (v, t):
 * bound checks (codes 12 for p, t; 42 for v, t; each bound widened by a
 * relative 1e-5), kept for the next call; a call with the kept state (the
 * same values bit for bit, no NaN) neither checks nor evaluates again. */
ONDREL_API void comt1_(const double* p, const double* t);
ONDREL_API void comt2_(const double* p, const double* t);
ONDREL_API void comt3_(const double* v, const double* t);

/* ---- Region equations (p, t: bar, C; v, t: m3/kg, C) ------------------- */

ONDREL_API double pws_c1_(const double* p, const double* t); /* volume, sub-region 1, m3/kg */
ONDREL_API double pws_c2_(const double* p, const double* t); /* volume, region 2, m3/kg */
ONDREL_API double pws_d1_(const double* p, const double* t); /* enthalpy, sub-region 1, kJ/kg */
ONDREL_API double pws_d2_(const double* p, const double* t); /* enthalpy, region 2, kJ/kg */
ONDREL_API double pws_d3_(const double* v, const double* t); /* enthalpy, region 3, kJ/kg */
ONDREL_API double pws_e1_(const double* p, const double* t); /* entropy, sub-region 1, kJ/(kg K) */
ONDREL_API double pws_e2_(const double* p, const double* t); /* entropy, region 2, kJ/(kg K) */
ONDREL_API double pws_e3_(const double* v, const double* t); /* entropy, region 3, kJ/(kg K) */
ONDREL_API double pws_f1_(const double* p, const double* t); /* internal energy, sub-region 1, kJ/kg */
ONDREL_API double pws_f2_(const double* p, const double* t); /* internal energy, region 2, kJ/kg */
ONDREL_API double pws_f3_(const double* v, const double* t); /* internal energy, region 3, kJ/kg */
ONDREL_API double pws_h1_(const double* p, const double* t); /* cp, sub-region 1, kJ/(kg K) */
ONDREL_API double pws_h2_(const double* p, const double* t); /* cp, region 2, kJ/(kg K) */
ONDREL_API double pws_h3_(const double* v, const double* t); /* cp, region 3, kJ/(kg K) */
ONDREL_API double pws_a3_(const double* v, const double* t); /* pressure, region 3, bar */

/* Dynamic viscosity (Pa s) and thermal conductivity (W/(m K)) at (v, t). */
ONDREL_API double pws_ci_(const double* v, const double* t);
ONDREL_API double pws_cj_(const double* v, const double* t);

/* ---- Iterations --------------------------------------------------------- */

/* A property routine of two (or three) arguments, e.g. pws_a3_. */
typedef double (*pws_func2)(const double*, const double*);
typedef double (*pws_func3)(const double*, const double*, const double*);

/* Solves f(fixed, x) = target from the starting values *a, *b (overwritten),
 * relative tolerance *eps; after 40 steps writes the PWS_I1 warning, returns 0. */
ONDREL_API double pws_i1_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
                          const double* eps);
/* Solves f(x, fixed) = target (e.g. region-3 volume from pressure), starting
 * values *a, *b (overwritten): a bracketing pair is narrowed by regula falsi
 * with halving (the midpoint after 40 steps), otherwise up to 40 secant steps
 * (the last one is returned); no warning. */
ONDREL_API double pws_i2_(pws_func2 f, const double* fixed, const double* target, double* a, double* b,
                          const double* eps);
/* As the bracketed pws_i2_, with f(x, fixed, eps); returns the last
 * regula-falsi estimate after 40 steps. */
ONDREL_API double pws_i3_(pws_func3 f, const double* fixed, const double* target, double* a, double* b,
                          const double* eps);
/* Saturation temperature (C) at p (bar) by bracketing on [0.01, 374.15] C;
 * outside 0.006112444 to 221.2 bar: error code 1, evaluated all the same; a
 * trial above 374.15 C: error code 2, not evaluated. */
ONDREL_API double pws_it_(const double* p);
/* Finds (x, y) with f2(x, y) = target2 and f1(x, y) = target1, x in
 * [*xa, *xb], y in [*ya, *yb]; returns *xa = *xb = x and *ya = *yb = y.
 * After 40 outer steps writes the PWS_ID warning. */
ONDREL_API void pws_id_(pws_func2 f1, const double* target1, pws_func2 f2, const double* target2,
                        double* xa, double* xb, double* ya, double* yb, const double* eps);

/* ---- Inverse routines and entry routine ------------------------------- */

/* Inverse routine for an input pair: IREG = pwsrXY_(a, b, eps).
 *   On entry *a and *b hold the two input values in the order of the name
 *   (pwsrph_: pressure bar, enthalpy kJ/kg); *eps is the relative tolerance
 *   (pwsftn_ passes 1.0E-8). On return:
 *     IREG 1  sub-region 1 (liquid up to 350 C)      *a = pressure, *b = temperature
 *     IREG 2  region 2 (vapour)                      *a = pressure, *b = temperature
 *     IREG 3  region 3, vapour side                  *a = volume,   *b = temperature
 *     IREG 4  region 3, liquid side (350-374.15 C)   *a = volume,   *b = temperature
 *     IREG 5  wet, saturation temperature > 350 C    *a = dryness,  *b = temperature
 *     IREG 6  wet, up to 350 C                       *a = dryness,  *b = temperature
 *   Any other result: the state could not be placed (a null pointer, or a
 *   NaN or infinite input of any routine but pwsrpt_ and pwsrtx_, gives 0;
 *   pwsrtx_ gives 7 above 374.15 C).
 *   pwsrpt_ places the state as given (the common terms report it when it
 *   is out of range). The other routines report an input outside the range
 *   through pwser_ and return the nearest state inside it; error codes
 *   (labels in order): 13 (P, H) pwsrph_, 15 (P, S) pwsrps_, 1 (P) pwsrpu_,
 *   14 (P, V) pwsrpv_ and the final state of pwsrvh_, pwsrvs_, pwsrvu_,
 *   24 (T, V) pwsrtv_, 23 (T, H) pwsrth_, 2 (T) pwsrtu_, 25 (T, S) pwsrts_,
 *   35 (H, S) pwsrhs_. Lines that are not counted, on channel pwserr_.iunit:
 *   " SUB-REGION CAN NOT BE CALCULATED IN THIS STATE T= ... H= ..." (pwsrth_),
 *   " SUB-REGION CANNOT BE CALCULATED IN THIS STATE" with T=, U= (pwsrtu_)
 *   or U=, S= (pwsrus_), " POINT IS NOT IN WET-REGION  S= ... X= ..." and
 *   " POINT IS BELOW CRITICAL POINT  S= ..." (pwsrsx_); these return 0.
 * Fortran: INTEGER PWSRPH; EXTERNAL PWSRPH; IREG = PWSRPH(A, B, EPS). */
typedef int32_t (*pws_inverse_routine)(double* a, double* b, const double* eps);

ONDREL_API int32_t pwsrpt_(double* a, double* b, const double* eps); /* P, T; on the saturation line 6 (or 5)
                                                                        with the pressure left in *a */
ONDREL_API int32_t pwsrph_(double* a, double* b, const double* eps); /* P, H */
ONDREL_API int32_t pwsrps_(double* a, double* b, const double* eps); /* P, S */
ONDREL_API int32_t pwsrpu_(double* a, double* b, const double* eps); /* P, U */
ONDREL_API int32_t pwsrpv_(double* a, double* b, const double* eps); /* P, V */
ONDREL_API int32_t pwsrpx_(double* a, double* b, const double* eps); /* P, X */
ONDREL_API int32_t pwsrtv_(double* a, double* b, const double* eps); /* T, V */
ONDREL_API int32_t pwsrth_(double* a, double* b, const double* eps); /* T, H; 0 and a line when no state has H */
ONDREL_API int32_t pwsrtx_(double* a, double* b, const double* eps); /* T, X; 7 above 374.15 C, *eps unused */
ONDREL_API int32_t pwsrtu_(double* a, double* b, const double* eps); /* T, U; 0 and a line when no state has U */
ONDREL_API int32_t pwsrts_(double* a, double* b, const double* eps); /* T, S */
ONDREL_API int32_t pwsrsx_(double* a, double* b, const double* eps); /* S, X; 0 and a line outside the wet region */
ONDREL_API int32_t pwsrhs_(double* a, double* b, const double* eps); /* H, S */
ONDREL_API int32_t pwsrus_(double* a, double* b, const double* eps); /* U, S; 0 and a line when not placeable */
ONDREL_API int32_t pwsrvh_(double* a, double* b, const double* eps); /* V, H */
ONDREL_API int32_t pwsrvs_(double* a, double* b, const double* eps); /* V, S */
ONDREL_API int32_t pwsrvu_(double* a, double* b, const double* eps); /* V, U */

/* One property of the state found by an inner inverse routine, at a varied
 * first quantity and a fixed second one. The inner routine runs with the
 * tolerance min(*eps, 1.0E-8) * 1.0E-4 and writes no range reports (an input
 * out of range is taken at the nearest state inside it). A null argument
 * gives a quiet NaN.
 * pws_hp_, pws_sp_, pws_up_: enthalpy kJ/kg, entropy kJ/(kg K), internal
 * energy kJ/kg of the state (p bar, v m3/kg) by pwsrpv_; pws_ht_, pws_ut_:
 * enthalpy, internal energy of the state (t C, s kJ/(kg K)) by pwsrts_. */
ONDREL_API double pws_hp_(const double* p, const double* v, const double* eps);
ONDREL_API double pws_sp_(const double* p, const double* v, const double* eps);
ONDREL_API double pws_up_(const double* p, const double* v, const double* eps);
ONDREL_API double pws_ht_(const double* t, const double* s, const double* eps);
ONDREL_API double pws_ut_(const double* t, const double* s, const double* eps);

/* Entry routine: CALL PWSFTN(PWSRPH, X, Y, 'H,S,V.', RESULT).
 *   xysub   an inverse routine of the form above, passed as a procedure: one
 *           of the pwsr*_ routines or a host routine with the same interface
 *           (Fortran: INTEGER FUNCTION F(A, B, EPS), DOUBLE PRECISION A, B,
 *           EPS, declared EXTERNAL). It is called once with copies of *x and
 *           *y and eps = 1.0E-8; a null xysub places no state.
 *   x, y    the two input values in the routine's order; not changed.
 *   depend  property keys "P" bar, "T" C, "V" m3/kg, "H" kJ/kg, "S" kJ/(kg K),
 *           "X" dryness fraction, "CP" kJ/(kg K), "DV" Pa s, "TC" kW/(m K),
 *           separated by ",", ended by ".", a blank or any other character
 *           after a key; keys are upper case, cut to 4 characters. Its length
 *           follows as the hidden depend_len.
 *   result  entry k receives the k-th key's value; every key, legal or not,
 *           takes one entry (an illegal key's entry is untouched). The caller
 *           provides one entry per key; at most depend_len + 1 are written.
 * Messages on channel 13: an illegal region number (result untouched), each
 * illegal key, and once after the list when CP, DV or TC met a wet state
 * (their entries are 0). Errors of the routines go through pwser_. */
ONDREL_API void pwsftn_(pws_inverse_routine xysub, const double* x, const double* y, const char* depend,
                        double* result, size_t depend_len);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_PWSFTN_H */
