/* The C interface used from C: a state from (p, T), its (p, h) and (p, s)
   round trips and its properties, and the messages of a state out of range. */
#include "tests/ifc67_api/ifc67_c_calls.h"

#include <string.h>

#include "ondrel/c/ifc67.h"
#include "ondrel/c/status.h"

int c_round_trip(double p, double T, ondrel_ifc67_state out[3], ondrel_ifc67_properties* props) {
    ondrel_ifc67_context* ctx = ondrel_ifc67_context_create();
    int status;
    if (ctx == NULL) return -1;
    status = ondrel_ifc67_from_pT(ctx, p, T, &out[0]);
    if (status == ONDREL_OK) status = ondrel_ifc67_from_ph(ctx, p, out[0].h, &out[1]);
    if (status == ONDREL_OK) status = ondrel_ifc67_from_ps(ctx, p, out[0].s, &out[2]);
    if (status == ONDREL_OK) status = ondrel_ifc67_state_properties(ctx, &out[0], props);
    ondrel_ifc67_context_free(ctx);
    return status;
}

int c_messages_out_of_range(char* text, size_t text_size, int* code, int* errors) {
    ondrel_ifc67_context* ctx = ondrel_ifc67_context_create();
    ondrel_ifc67_state state;
    int status;
    size_t n;
    if (ctx == NULL) return -1;
    status = ondrel_ifc67_from_pT(ctx, 1.0e8, 1100.0, &state);
    n = ondrel_ifc67_message_count(ctx);
    *code = ondrel_ifc67_message_code(ctx, 0);
    *errors = ondrel_ifc67_error_count(ctx);
    strncpy(text, ondrel_ifc67_message_text(ctx, 0), text_size - 1);
    text[text_size - 1] = '\0';
    ondrel_ifc67_clear_messages(ctx);
    if (ondrel_ifc67_message_count(ctx) != 0 || ondrel_ifc67_error_count(ctx) != 0) status = -2;
    ondrel_ifc67_context_free(ctx);
    return n == 1 ? status : -3;
}
