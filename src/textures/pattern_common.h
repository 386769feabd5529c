// Small pieces shared by the lattice and wave patterns (Grid, Stripes, Spiral, Corrugated).
#pragma once

#include <cmath>
#include <cstdint>

namespace grainsmith {

// The cell index k + 1 as a float, with the integer addition wrapping like the hardware.
inline float cellAbove(int32_t k) { return static_cast<float>(static_cast<int32_t>(static_cast<uint32_t>(k) + 1u)); }

// Quarter-circle arcs of radius 0.25 centred on `centre` (0.25 or 0.75): the ribbon shape.
inline float ribbonArc(float t, float centre) {
    const float d = t - centre;
    return std::sqrt(0.0625f - d * d);
}

// Triangle wave over one period, rising from 0 at t = 0 to 1 at t = 0.5 and falling back
// to 0 at t = 1. Each half is written as a blend of 0 and 1, so that it matches the blends
// used elsewhere for odd inputs too.
inline float triangleWave(float t) {
    if (t < 0.5f) {
        const float u = 2.0f * t;
        return (1.0f - u) * 0.0f + u;
    }
    const float u = (t - 0.5f) * 2.0f;
    return (1.0f - u) + u * 0.0f;
}

}  // namespace grainsmith
