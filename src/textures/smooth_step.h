// The smooth step 3t^2 - 2t^3 over [0, 1], with t clamped first (NaN gives 0).
#pragma once

#include "grainsmith/numeric.h"

namespace grainsmith {

inline float smoothStep01(float t) {
    const float s = clamp01(t);
    return s * s * (3.0f - 2.0f * s);
}

}  // namespace grainsmith
