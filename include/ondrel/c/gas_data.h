/*
 * The message of a status with its cause, for C callers: where the library
 * looked for its gas data (search order in ondrel/host.h).
 */
#ifndef ONDREL_C_GAS_DATA_H
#define ONDREL_C_GAS_DATA_H

#include <stddef.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* Writes the message of status into buffer as a NUL-terminated text, cut to
 * size - 1 characters; for status 1 (gas data not found) the message goes
 * on with every place the library looked in for its gas data. Returns the
 * length of the whole text without the NUL, as snprintf does: a result of
 * size or more means the text was cut. A NULL buffer or a size of 0 writes
 * nothing. */
ONDREL_API size_t ondrel_describe(int status, char* buffer, size_t size);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_C_GAS_DATA_H */
