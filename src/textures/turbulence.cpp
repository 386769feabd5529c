#include "grainsmith/textures/turbulence.h"

#include <cmath>

#include "grainsmith/numeric.h"
#include "textures/octave_sum.h"

namespace grainsmith {

ParamTable TurbulenceTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(TurbulenceData, octaves), .defaultValue = 4,
         .group = "Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1, .maximum = 16},
        {.name = "lacunarity", .type = FieldType::Float32, .offset = offsetof(TurbulenceData, lacunarity),
         .defaultValue = 2, .group = "Noise", .label = "Lacunarity", .widget = Widget::DoubleSpin, .minimum = 0,
         .maximum = 99.99, .step = 0.1, .decimals = 3},
        {.name = "gain", .type = FieldType::Float32, .offset = offsetof(TurbulenceData, gain), .defaultValue = 0.5,
         .group = "Noise", .label = "Gain", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.01, .decimals = 3},
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(TurbulenceData, scale), .defaultValue = 4,
         .group = "Noise", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.1, .decimals = 3},
    };
    return table;
}

float TurbulenceTexture3D::evaluate(const float* p) const {
    const float sum = octaveSum(p, data_.scale, planar(), data_.octaves, data_.lacunarity, data_.gain,
                                [](float n) { return std::fabs(n); });
    return clamp01(sum);
}

}  // namespace grainsmith
