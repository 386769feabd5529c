// "FBM": fractional Brownian motion, an octave sum of improved gradient noise with a
// free lacunarity and gain, remapped to [0, 1]. Honours two-dimensional mode.
#pragma once

#include "grainsmith/textures/fractal_sum.h"

namespace grainsmith {

using FBMData = FractalSumData;

class GRAINSMITH_API FBMTexture3D : public FractalSumKind<FBMTexture3D> {
public:
    static constexpr char kName[] = "FBM";
    static constexpr int kMajor = 2;

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
