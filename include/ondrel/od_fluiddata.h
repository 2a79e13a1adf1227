/* Gas table of the mixture model and the platform functions it loads with,
 * in the host calling convention.
 *
 * Not installed, and not exported from the libraries: the gas table and its
 * loading are internal to the mixture model, and fluidpath and getfluid are
 * the names of the host's own platform functions, which the library's
 * built-in versions must not stand in for. A program lists the gas table
 * with od_compset_ and od_info_ (ondrel/ondrel.h); a host registers its
 * platform functions with ondrel_set_host_functions_ (ondrel/host.h). The
 * routines below are kept in the host calling convention for the library's
 * own tests. Conventions: every argument by reference; after the
 * listed arguments, one hidden size_t per text argument, in argument order,
 * giving its width (for an array of texts: the width of one element).
 * Texts are fixed-width and blank-padded; a C caller may also pass a
 * NUL-terminated text with a generous width. Logical results are int32_t
 * (1 true, 0 false). Component names have 8 significant characters and
 * compare case-sensitively with trailing blanks ignored. Rows of the gas
 * table are numbered from 1; -8888 marks a missing row and -8888.8 a missing
 * value. No function reports errors otherwise. A NULL text reads as an
 * empty name and a NULL output is left unwritten; arrays must have the
 * length given for them. */
#ifndef ONDREL_OD_FLUIDDATA_H
#define ONDREL_OD_FLUIDDATA_H

#include <stddef.h>
#include <stdint.h>

#include "ondrel/host.h"

#ifdef __cplusplus
extern "C" {
#endif

/* --- gas table lookups ---------------------------------------------------- */

/* 1 when name is a row of the gas table, else 0. Loads the table first when
 * it has not been loaded. */
int32_t iscomp_(const char* name, size_t name_len);

/* First gas table row named name; -8888 when none (or the table is empty). */
int32_t getidx_(const char* name, size_t name_len);

/* Stores a mixture: n names of width names_len each, laid out one after the
 * other, and their gas table rows; also finds the rows of "H2O" and "H2O(L)".
 * n below 0 stores no names; names past the 250th are ignored. A NULL n, or
 * NULL names with n above 0, leaves the stored mixture unchanged. */
void storeidx_(const int32_t* n, const char* names, size_t names_len);

/* Gas table row of a stored component, or of "H2O" / "H2O(L)"; -8888 when
 * not found or when no composition is stored. */
int32_t getstoredidx_(const char* name, size_t name_len);

/* --- values of a stored component (or "H2O" / "H2O(L)") -------------------
 * A name that is neither stored nor a water name gives -8888.8. */

/* a[0..6] receives the coefficients a1..a7 valid at t (K): the upper range
 * above 1000 K, else the lower one (exactly 1000 K takes the lower one); a
 * range whose a1 is 0.0 is replaced by the other range. NULL t or a: nothing
 * is written. */
void getcoef_(const char* name, const double* t, double* a, size_t name_len);
double gettmin_(const char* name, size_t name_len);  /* lower temperature limit, K */
double gettmax_(const char* name, size_t name_len);  /* upper temperature limit, K */
double getmmol_(const char* name, size_t name_len);  /* molar mass, kg/mol */
double geteps_(const char* name, size_t name_len);   /* Lennard-Jones eps/k, K */
double getsigma_(const char* name, size_t name_len); /* Lennard-Jones diameter, Angstrom */

/* Phase from the name: 'S' for a name ending in "(S)", 'L' for "(L)", else
 * 'G'. A character function: the result buffer and its width come first,
 * as a Fortran caller passes them. */
void getphase_(char* result, size_t result_len, const char* name, size_t name_len);

/* --- the table as a whole -------------------------------------------------- */

/* *n receives the number of table rows; names receives all 250 name slots
 * (250 texts of width names_len; slots past *n hold NUL characters). */
void getcompset_(int32_t* n, char* names, size_t names_len);
void setdbread_(void);   /* marks the table as loaded */
int32_t dbread_(void);   /* 1 when the table has been loaded or loading was attempted */

/* --- loading ----------------------------------------------------------------- */

/* Loads the table once from the configured source (gas data file, or the
 * fluid database record when ONDREL_GAS_SOURCE=database) and marks it loaded,
 * also when nothing could be read. */
void readgas_(void);
/* Fills the table from the gas data file at path (256 characters); a path
 * that is not a regular file (missing, a directory, a device) reads nothing.
 * A load that reads rows (the file has its header line; the record has a
 * line) forgets the stored composition first: the next mixture request
 * checks its names against the new table and stores their new rows. */
void readgasfile_(const char* path, size_t path_len);
/* Fills the table from the fluid database record name in directory; forgets
 * the stored composition as readgasfile_ does. */
void readgasdb_(const char* directory, const char* name, size_t directory_len, size_t name_len);

/* --- platform functions -----------------------------------------------------
 * The library's own versions, used unless a host registers its own (see
 * ondrel/host.h for the search order of the built-in fluidpath). */

/* buffer (buffer_len characters, 256 expected) receives the data directory
 * of library, ending with '/', blank-padded: ONDREL_FLUIDPATH when set, else
 * the first installed data directory that holds the gas data. */
void fluidpath_(char* buffer, const char* library, size_t buffer_len, size_t library_len);

/* Fills lines (up to 255 lines of line_len characters each, blank-padded)
 * with the record name from the SQLite file fluids.db in directory and
 * returns the number of lines filled; *status is 1 when a record was found.
 * No database, no record or a read error: returns 0 and *status = 0. */
int32_t getfluid_(const char* directory, const char* name, char* lines, int32_t* status,
                  size_t directory_len, size_t name_len, size_t line_len);

#ifdef __cplusplus
}
#endif

#endif /* ONDREL_OD_FLUIDDATA_H */
