/* Tables of the IF97 C interface's functions, built by a C translation unit
   so that the header is compiled as C and its functions are reached from C. */
#ifndef IF97_C_CALLS_H
#define IF97_C_CALLS_H

#include <stddef.h>

#include "ondrel/c/if97.h"

#ifdef __cplusplus
extern "C" {
#endif

struct c_pair {
    const char* name; /* as in the function's name: "pT", "ph", ... */
    int (*fn)(double, double, ondrel_if97_state*);
};
extern const struct c_pair c_pairs[];
extern const size_t c_pair_count;

struct c_single {
    const char* name; /* "v", "h", "u", "s", "cp" */
    int (*fn)(double, double, double*);
};
extern const struct c_single c_singles[];
extern const size_t c_single_count;

/* Viscosity and conductivity of the state of (p, T), each with its own
   status, and the state's region, all read in C. */
int c_transport_pT(double p, double T, double* eta, double* lambda, int* region);

#ifdef __cplusplus
}
#endif

#endif /* IF97_C_CALLS_H */
