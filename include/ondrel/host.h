/*
 * Where the mixture model finds its gas data, and how a host framework puts
 * its own platform functions in place of the library's.
 *
 * The gas table is loaded once, on the first mixture call, from one of two
 * sources chosen by the environment variable ONDREL_GAS_SOURCE:
 *   - the file Ondrel.Dat in the data directory (the default);
 *   - "database": the record "Ondrel.Dat" of the SQLite fluid database
 *     fluids.db in the data directory (tool: fluiddb).
 * The data directory is the first of these that holds that file:
 *   1. the directory a registered host fluidpath returns, or else the one
 *      named by ONDREL_FLUIDPATH: when either is given, no other is tried;
 *   2. share/ondrel beside the library: the installation's data directory
 *      found from the location of libondrel.so at run time (for a program
 *      linked with libondrel.a: from the program's own location), so that a
 *      moved installation still finds its data;
 *   3. the data directory configured when the library was built
 *      (<prefix>/share/ondrel/).
 * When none holds it, the table stays empty and every mixture request
 * fails with error code 1; `fluiddb where` and ondrel::describe
 * (ondrel/gas_data.hpp) tell where the library looked.
 *
 * Calling convention as in ondrel/ondrel.h: every argument by reference,
 * the width of each text as a trailing hidden size_t, in argument order.
 */
#ifndef ONDREL_HOST_H
#define ONDREL_HOST_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/export.h"

#ifdef __cplusplus
extern "C" {
#endif

/* A host's fluidpath: writes the data directory of library (ending with its
 * path separator) into buffer, blank-padded. */
typedef void (*ondrel_fluidpath_fn)(char* buffer, const char* library, size_t buffer_len,
                                    size_t library_len);
/* A host's getfluid: fills lines (up to 255 lines of line_len characters)
 * with the record name of its fluid database in directory, returns the
 * number of lines and sets *status to 0 when no record is available. */
typedef int32_t (*ondrel_getfluid_fn)(const char* directory, const char* name, char* lines,
                                      int32_t* status, size_t directory_len, size_t name_len,
                                      size_t line_len);

/* Puts the host's fluidpath and getfluid in place of the library's own for
 * every later load; NULL restores the library's own. The library calls
 * fluidpath with a buffer of 256 characters and "Ondrel", and getfluid with
 * the directory and "Ondrel.Dat" each as a blank-padded text of 256
 * characters and a buffer of 255 lines of 255 characters; a returned count
 * outside 0..255 is taken as 0 or 255. Call it before the first mixture
 * call: the table is loaded only once. A Fortran host passes its two
 * external procedures: call ondrel_set_host_functions(my_fluidpath,
 * my_getfluid). */
ONDREL_API void ondrel_set_host_functions_(ondrel_fluidpath_fn fluidpath, ondrel_getfluid_fn getfluid);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_HOST_H */
