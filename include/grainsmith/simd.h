// Which SIMD level the batch evaluation runs on.
#pragma once

#include "grainsmith/api.h"

namespace grainsmith {

// The instruction-set level the run-time dispatcher chose for the batch path on this CPU,
// e.g. "AVX2", "SSE4", "SSSE3" or "SCALAR" (the one-point code, one lane at a time).
GRAINSMITH_API const char* simdLevelName();

}  // namespace grainsmith
