// "Erosion": the folded-noise sum of "Dents" (from a higher start frequency), turned into
// pits by a narrow smooth step: 1 almost everywhere, 0 where the cubed sum is tiny.
#pragma once

#include "grainsmith/textures/folded_noise_kind.h"

namespace grainsmith {

using ErodedData = FoldedNoiseData;

class GRAINSMITH_API ErodedTexture3D : public FoldedNoiseKind<ErodedTexture3D> {
public:
    static constexpr char kName[] = "Erosion";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
