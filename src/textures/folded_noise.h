// The folded-noise sum shared by "Dents" and "Erosion".
#pragma once

#include <cmath>

#include "grainsmith/noise/improved_noise.h"

namespace grainsmith::detail {

// Six terms, whatever the record holds: each folds one octave of improved noise about its
// midpoint, |0.5 - (n + 1) / 2|, weights it by k / f and adds it on (in double, stored as
// float); f doubles per term. The result is sum^3 x magnitude.
inline float foldedNoiseSum(const float* p, float scale, float magnitude, float f0, double k, bool planar) {
    const float qx = p[0] * scale;
    const float qy = p[1] * scale;
    const float qz = p[2] * scale;
    float sum = 0.0f;
    float f = f0;
    for (int term = 0; term < 6; ++term) {
        const float n = planar ? improved_noise2(qx * f, qy * f) : improved_noise3(qx * f, qy * f, qz * f);
        const double folded = std::fabs(0.5 - (static_cast<double>(n) + 1.0) * 0.5);
        sum = static_cast<float>(folded * k / static_cast<double>(f) + static_cast<double>(sum));
        f *= 2.0f;
    }
    return sum * sum * sum * magnitude;
}

}  // namespace grainsmith::detail
