// "Dents": six octaves of folded improved noise, summed, cubed and scaled.
#pragma once

#include "grainsmith/textures/folded_noise_kind.h"

namespace grainsmith {

using DentedData = FoldedNoiseData;

class GRAINSMITH_API DentedTexture3D : public FoldedNoiseKind<DentedTexture3D> {
public:
    static constexpr char kName[] = "Dents";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
