// "Turbulence": like FBM, but each octave adds the magnitude of its noise, and the sum is
// used as it is (clamped, not remapped). Honours two-dimensional mode.
#pragma once

#include "grainsmith/textures/fractal_sum.h"

namespace grainsmith {

using TurbulenceData = FractalSumData;

class GRAINSMITH_API TurbulenceTexture3D : public FractalSumKind<TurbulenceTexture3D> {
public:
    static constexpr char kName[] = "Turbulence";
    static constexpr int kMajor = 2;

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
