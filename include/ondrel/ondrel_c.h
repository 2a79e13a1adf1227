/*
 * The C interface of the library: status codes and messages, the mixture
 * model, and (where present) IF97 and IFC-67 water and steam. SI units.
 */
#ifndef ONDREL_ONDREL_C_H
#define ONDREL_ONDREL_C_H

#include "ondrel/c/status.h"
#include "ondrel/c/mixture.h"

#endif /* ONDREL_ONDREL_C_H */
