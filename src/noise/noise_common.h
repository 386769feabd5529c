// Pieces shared by the improved gradient noise and the simplex noise: the lattice floor,
// the quintic fade, the linear blend and the hashed corner gradients.
//
// Everything here is single precision and evaluated in the order written; the build never
// contracts a*b+c into a fused multiply-add.
#pragma once

#include <bit>
#include <cstdint>

#include "grainsmith/numeric.h"

namespace grainsmith::noise_detail {

// Lattice cell of a coordinate: truncation toward zero, minus one when the coordinate is
// negative or NaN. An exact negative integer k therefore lies in cell k - 1 at fraction 1.
// The subtraction wraps (NaN and -1e30 give INT32_MAX), so no value is undefined.
inline int32_t noiseFloor(float c) {
    const uint32_t i = static_cast<uint32_t>(toInt32(c));
    return static_cast<int32_t>(c >= 0.0f ? i : i - 1u);
}

// Index of a cell into the 256-periodic permutation. Masking on the unsigned view keeps
// every cell, negative or wrapped, inside the table.
inline uint32_t latticeIndex(int32_t cell) { return static_cast<uint32_t>(cell) & 255u; }

// Position of c inside its cell.
inline float cellFraction(float c, int32_t cell) { return c - static_cast<float>(cell); }

// ((t * 6 - 15) * t + 10) * t^3, with t^3 = (t * t) * t.
inline float fade(float t) { return ((t * 6.0f - 15.0f) * t + 10.0f) * ((t * t) * t); }

inline float lerp(float t, float a, float b) { return a + t * (b - a); }

// 1-D gradient: slope 1..8 from the low three bits, negative when bit 3 is set.
inline float grad1(uint32_t hash, float x) {
    const uint32_t h = hash & 15u;
    float g = 1.0f + static_cast<float>(h & 7u);
    if (h & 8u) g = -g;
    return g * x;
}

// Exact negation of v when `negate` is 1: the sign bit flipped, with no branch to mispredict.
inline float negatedIf(uint32_t negate, float v) {
    return std::bit_cast<float>(std::bit_cast<uint32_t>(v) ^ (negate << 31));
}

// 2-D gradient: one of the eight directions (+-1, +-2) and (+-2, +-1). The hash picks which
// coordinate is u and which is v, and their signs; table lookups keep the random hash from
// costing a branch misprediction per corner.
inline float grad2(uint32_t hash, float x, float y) {
    const uint32_t h = hash & 7u;
    const float c[2] = {x, y};
    const uint32_t uIsY = h >> 2;  // h < 4: u = x, v = y; otherwise swapped
    const float u = c[uIsY], v = c[uIsY ^ 1u];
    return negatedIf(h & 1u, u) + negatedIf((h >> 1) & 1u, 2.0f * v);
}

// 3-D gradient: one of the twelve cube-edge directions (four of them repeated).
// u = x for h < 8, else y; v = y for h < 4, x for h 12 and 14, else z.
inline float grad3(uint32_t hash, float x, float y, float z) {
    static constexpr uint8_t kU[16] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1};
    static constexpr uint8_t kV[16] = {1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 0, 2, 0, 2};
    const uint32_t h = hash & 15u;
    const float c[3] = {x, y, z};
    return negatedIf(h & 1u, c[kU[h]]) + negatedIf((h >> 1) & 1u, c[kV[h]]);
}

}  // namespace grainsmith::noise_detail
