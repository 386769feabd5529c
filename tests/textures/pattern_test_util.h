// Helpers for the pattern kinds' tests: one-point evaluation and the '0'/'1' map of a
// two-valued pattern over a grid of points, as tests/reference/kinds_model.py prints it.
#pragma once

#include <string>

#include "grainsmith/texture3d.h"

namespace grainsmith::testing {

inline float at(const Texture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

// Row by row (y outer), n x n points (x0 + i dx, y0 + j dy, z) worked in double, then
// rounded to float: '0' for 0.0, '1' for 1.0, '?' for anything else.
inline std::string bitMap(const Texture3D& t, double x0, double y0, double z, double dx, double dy, int n = 8) {
    std::string bits;
    for (int j = 0; j < n; ++j) {
        for (int i = 0; i < n; ++i) {
            const float v = at(t, static_cast<float>(x0 + i * dx), static_cast<float>(y0 + j * dy),
                               static_cast<float>(z));
            bits += v == 0.0f ? '0' : v == 1.0f ? '1' : '?';
        }
    }
    return bits;
}

// The sample grid of the lattice and wave patterns.
inline std::string sampleBits(const Texture3D& t) { return bitMap(t, -2.1, -1.3, 0.37, 0.37, 0.29); }

}  // namespace grainsmith::testing
