// Simplex-lattice gradient noise in 2-D and 3-D, hashed through the reference permutation
// and sharing the corner gradients of the improved gradient noise.
#include "grainsmith/noise/simplex_noise.h"

#include <cstdint>

#include "grainsmith/noise/improved_noise.h"
#include "noise/noise_common.h"

namespace grainsmith {

namespace {

using noise_detail::grad2;
using noise_detail::grad3;
using noise_detail::latticeIndex;
using noise_detail::noiseFloor;

// Sum of two cell coordinates as the hardware adds them (wrapping), read back signed.
inline int32_t wrappingSum(int32_t a, int32_t b) {
    return static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b));
}

// Falloff q^4 times the corner gradient; a corner outside its radius (or NaN) adds 0.
// a, b (and c) are lattice indices 0..256, so every sum below stays under 512.
inline float corner2(float cx, float cy, uint32_t a, uint32_t b) {
    const float q = 0.5f - cx * cx - cy * cy;
    if (!(q >= 0.0f)) return 0.0f;
    const float q2 = q * q;
    return (q2 * q2) * grad2(perm[a + perm[b]], cx, cy);
}

inline float corner3(float cx, float cy, float cz, uint32_t a, uint32_t b, uint32_t c) {
    const float q = 0.6f - cx * cx - cy * cy - cz * cz;
    if (!(q >= 0.0f)) return 0.0f;
    const float q2 = q * q;
    return (q2 * q2) * grad3(perm[a + perm[b + perm[c]]], cx, cy, cz);
}

}  // namespace

float simplex_noise2(float x, float y) {
    constexpr float F2 = 0.3660254f;    // (sqrt(3) - 1) / 2
    constexpr float G2 = 0.21132487f;   // (3 - sqrt(3)) / 6
    constexpr float G2x2 = 0.42264974f;

    // Skew into the lattice of rhombi and find the cell.
    const float s = (x + y) * F2;
    const int32_t i = noiseFloor(x + s), j = noiseFloor(y + s);

    // Unskew the cell origin back and take the offsets from it.
    const float t = static_cast<float>(wrappingSum(i, j)) * G2;
    const float x0 = x - (static_cast<float>(i) - t);
    const float y0 = y - (static_cast<float>(j) - t);

    // Which triangle of the rhombus: ties belong to the upper one.
    const uint32_t i1 = x0 > y0 ? 1u : 0u;
    const uint32_t j1 = 1u - i1;

    const float x1 = x0 - static_cast<float>(i1) + G2, y1 = y0 - static_cast<float>(j1) + G2;
    const float x2 = x0 - 1.0f + G2x2, y2 = y0 - 1.0f + G2x2;

    const uint32_t ii = latticeIndex(i), jj = latticeIndex(j);
    const float n0 = corner2(x0, y0, ii, jj);
    const float n1 = corner2(x1, y1, ii + i1, jj + j1);
    const float n2 = corner2(x2, y2, ii + 1u, jj + 1u);
    return (n1 + n0 + n2) * 40.0f;
}

float simplex_noise3(float x, float y, float z) {
    constexpr float F3 = 0.33333334f;   // 1 / 3
    constexpr float G3 = 0.16666667f;   // 1 / 6
    constexpr float G3x2 = 0.33333334f;

    const float s = (x + y + z) * F3;
    const int32_t i = noiseFloor(x + s), j = noiseFloor(y + s), k = noiseFloor(z + s);

    const float t = static_cast<float>(wrappingSum(wrappingSum(i, j), k)) * G3;
    const float x0 = x - (static_cast<float>(i) - t);
    const float y0 = y - (static_cast<float>(j) - t);
    const float z0 = z - (static_cast<float>(k) - t);

    // The simplex of the cube that holds the point: walk the axes in decreasing offset.
    uint32_t i1, j1, k1, i2, j2, k2;
    if (x0 >= y0) {
        if (y0 >= z0) {
            i1 = 1; j1 = 0; k1 = 0; i2 = 1; j2 = 1; k2 = 0;
        } else if (x0 >= z0) {
            i1 = 1; j1 = 0; k1 = 0; i2 = 1; j2 = 0; k2 = 1;
        } else {
            i1 = 0; j1 = 0; k1 = 1; i2 = 1; j2 = 0; k2 = 1;
        }
    } else {
        if (y0 < z0) {
            i1 = 0; j1 = 0; k1 = 1; i2 = 0; j2 = 1; k2 = 1;
        } else if (x0 < z0) {
            i1 = 0; j1 = 1; k1 = 0; i2 = 0; j2 = 1; k2 = 1;
        } else {
            i1 = 0; j1 = 1; k1 = 0; i2 = 1; j2 = 1; k2 = 0;
        }
    }

    const float x1 = x0 - static_cast<float>(i1) + G3;
    const float y1 = y0 - static_cast<float>(j1) + G3;
    const float z1 = z0 - static_cast<float>(k1) + G3;
    const float x2 = x0 - static_cast<float>(i2) + G3x2;
    const float y2 = y0 - static_cast<float>(j2) + G3x2;
    const float z2 = z0 - static_cast<float>(k2) + G3x2;
    const float x3 = x0 - 0.5f, y3 = y0 - 0.5f, z3 = z0 - 0.5f;

    const uint32_t ii = latticeIndex(i), jj = latticeIndex(j), kk = latticeIndex(k);
    const float n0 = corner3(x0, y0, z0, ii, jj, kk);
    const float n1 = corner3(x1, y1, z1, ii + i1, jj + j1, kk + k1);
    const float n2 = corner3(x2, y2, z2, ii + i2, jj + j2, kk + k2);
    const float n3 = corner3(x3, y3, z3, ii + 1u, jj + 1u, kk + 1u);
    return (n1 + n0 + n2 + n3) * 32.0f;
}

}  // namespace grainsmith
