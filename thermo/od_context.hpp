// The mutable state of an evaluation of the mixture model: the saved values
// of the condensing water, its gateway's last request and the IF97 adapter's
// buffers. A context is cheap to create; each calling thread uses its own.
// The exported routines run on one process-wide default context.
#pragma once
#include "thermo/od_h2o.hpp"

namespace od {

struct Context {
    h2o::State water;
};

// The context of the exported routines.
Context& default_context();

}  // namespace od
