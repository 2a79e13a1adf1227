#include "thermo/od_context.hpp"

namespace od {

Context& default_context() {
    static Context c;
    return c;
}

}  // namespace od
