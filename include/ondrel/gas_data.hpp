// Where the library looks for its gas data, and the messages that say so.
//
// Search order (also in ondrel/host.h): the directory a host registered, or
// else the one named by ONDREL_FLUIDPATH, alone when given; otherwise
// share/ondrel beside the library (found from the location of libondrel.so
// at run time, so that a moved installation still finds its data), then the
// data directory configured at build time. The gas data is the file
// Ondrel.Dat, or the fluid database fluids.db when ONDREL_GAS_SOURCE is
// "database"; the first directory that holds it is used.
#pragma once
#include <string>
#include <vector>

#include "ondrel/export.h"
#include "ondrel/status.hpp"

namespace ondrel {

// One place the library looks for its gas data.
struct GasDataPlace {
    std::string file;    // the file looked for: <directory>Ondrel.Dat or <directory>fluids.db
    std::string origin;  // "host fluidpath", "ONDREL_FLUIDPATH", "beside the library" or
                         // "configured directory"
    bool present = false;  // the file exists
};

// The places the next load of the gas data looks in, in search order; the
// first that is present is read.
ONDREL_API std::vector<GasDataPlace> gas_data_places();

// The message of a status. For gas_data_not_found it goes on with every
// place the library looked in, e.g. "gas data not found; looked for
// /opt/ondrel/share/ondrel/Ondrel.Dat (beside the library, missing), ...".
ONDREL_API std::string describe(Status status);

}  // namespace ondrel
