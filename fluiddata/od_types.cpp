// Shared types are header-only; this unit keeps the header self-contained.
#include "fluiddata/od_types.hpp"
