#include "grainsmith/textures/turbulence.h"

#include <cmath>

#include "grainsmith/numeric.h"
#include "textures/octave_sum.h"

namespace grainsmith {

float TurbulenceTexture3D::evaluate(const float* p) const {
    const float sum = octaveSum(p, data_.scale, planar(), data_.octaves, data_.lacunarity, data_.gain,
                                [](float n) { return std::fabs(n); });
    return clamp01(sum);
}

}  // namespace grainsmith
