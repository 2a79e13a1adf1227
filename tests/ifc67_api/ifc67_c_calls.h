/* C functions of the C-interface test, compiled as C. */
#ifndef IFC67_C_CALLS_H
#define IFC67_C_CALLS_H

#include <stddef.h>

#include "ondrel/c/ifc67.h"

#ifdef __cplusplus
extern "C" {
#endif

/* From C: the state at (p, T) into out[0], back from its (p, h) into out[1]
   and its (p, s) into out[2], its properties into *props; the first status
   that is not ONDREL_OK, else ONDREL_OK. */
int c_round_trip(double p, double T, ondrel_ifc67_state out[3], ondrel_ifc67_properties* props);
/* From C: a state above 800 C; the text and code of its one message and the
   error count; the call's status, or a negative number when the messages or
   their clearing are not as they should be. */
int c_messages_out_of_range(char* text, size_t text_size, int* code, int* errors);

#ifdef __cplusplus
}
#endif

#endif
