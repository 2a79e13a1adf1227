// The package context and the process-wide default context of the legacy routines.
#include "pwsftn/pws_context.hpp"

namespace pws {

Context::~Context() {
    if (error.file != nullptr) std::fclose(error.file);
}

Context& default_context() {
    static Context ctx(Output::channels);
    return ctx;
}

}  // namespace pws
