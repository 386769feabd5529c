#include "grainsmith/textures/simplex.h"

#include "grainsmith/noise/simplex_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable SimplexTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(SimplexData, scale), .defaultValue = 4,
         .group = "Noise", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: finer features as it grows."},
    };
    return table;
}

float SimplexTexture3D::evaluate(const float* p) const {
    const float s = data_.scale;
    const float n = planar() ? simplex_noise2(p[0] * s, p[1] * s) : simplex_noise3(p[0] * s, p[1] * s, p[2] * s);
    return clamp01((n + 1.0f) * 0.5f);
}

}  // namespace grainsmith
