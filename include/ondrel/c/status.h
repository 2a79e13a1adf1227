/*
 * Status codes of the C interface and their messages. The numbers equal those
 * of the C++ enum ondrel::Status and never change.
 */
#ifndef ONDREL_C_STATUS_H
#define ONDREL_C_STATUS_H

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

enum {
    ONDREL_OK = 0,
    ONDREL_GAS_DATA_NOT_FOUND = 1,
    ONDREL_UNKNOWN_COMPONENT = 2,
    ONDREL_TOO_MANY_COMPONENTS = 3,
    ONDREL_INVALID_COMPOSITION = 4,
    ONDREL_UNKNOWN_PAIR = 5,
    ONDREL_UNKNOWN_PROPERTY = 6,
    ONDREL_INVALID_INPUT = 7,
    ONDREL_NON_POSITIVE_INPUT = 8,
    ONDREL_OUTSIDE_DATA_RANGE = 9,
    ONDREL_NO_SOLUTION = 10,
    ONDREL_NOT_CONVERGED = 11,
    ONDREL_PRESSURE_UNDETERMINED = 12,
    ONDREL_NOT_AVAILABLE = 13,
    ONDREL_INVALID_ARGUMENT = 14,
    ONDREL_NOT_UNIQUE = 15,
    ONDREL_OUT_OF_MEMORY = 16
};

/* The message of a status code, a NUL-terminated text with static storage;
   "unknown status" for a number that is no status. */
ONDREL_API const char* ondrel_message(int status);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_C_STATUS_H */
