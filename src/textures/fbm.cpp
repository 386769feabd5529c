#include "grainsmith/textures/fbm.h"

#include "grainsmith/numeric.h"
#include "textures/octave_sum.h"

namespace grainsmith {

float FBMTexture3D::evaluate(const float* p) const {
    const float sum = octaveSum(p, data_.scale, planar(), data_.octaves, data_.lacunarity, data_.gain,
                                [](float n) { return n; });
    return clamp01((sum + 1.0f) * 0.5f);
}

}  // namespace grainsmith
