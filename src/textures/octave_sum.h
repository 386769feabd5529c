// The octave loop shared by FBM and Turbulence: improved gradient noise at the scaled point,
// the coordinates multiplied by the lacunarity and the weight by the gain after each octave.
// `fold` shapes each octave's noise before it is weighted (identity for FBM, magnitude for
// Turbulence).
#pragma once

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"

namespace grainsmith {

template <class Fold>
float octaveSum(const float* p, float scale, bool planar, int octaves, float lacunarity, float gain, Fold fold) {
    float qx = p[0] * scale;
    float qy = p[1] * scale;
    float qz = planar ? 0.0f : p[2] * scale;  // the plane never reads z
    float sum = 0.0f;
    float w = 1.0f;
    const int count = capLoopCount(octaves);
    for (int i = 0; i < count; ++i) {
        const float n = planar ? improved_noise2(qx, qy) : improved_noise3(qx, qy, qz);
        qx *= lacunarity;
        qy *= lacunarity;
        qz *= lacunarity;
        sum += fold(n) * w;
        w *= gain;
    }
    return sum;
}

}  // namespace grainsmith
