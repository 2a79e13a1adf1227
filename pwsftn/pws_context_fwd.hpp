// The package context, named by the routines of every module of the
// water-and-steam package: everything a call changes (the error record and
// where lines go, the kept common terms, the saturation slope, the
// current-state record, the entry routine's key buffer) lives in the context
// the caller hands in. Its definition is in pws_context.hpp.
#pragma once

namespace pws {

struct Context;

// The process-wide context of the legacy routines: lines on channels 6 and
// 13, the host's error record pwserr_, the stop past maxerr.
Context& default_context();

}  // namespace pws
