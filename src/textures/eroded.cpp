#include "grainsmith/textures/eroded.h"

#include "textures/folded_noise.h"

namespace grainsmith {

ParamTable ErodedTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "magnitude", .type = FieldType::Float32, .offset = offsetof(ErodedData, magnitude),
         .defaultValue = 0.3, .group = "Erosion", .label = "Magnitude", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.01, .decimals = 3,
         .description = "Factor applied to the cubed noise sum: fewer, smaller pits as it grows."},
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(ErodedData, scale), .defaultValue = 1.0,
         .group = "Erosion", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0.001, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: smaller, denser pits as it grows."},
    };
    return table;
}

float ErodedTexture3D::evaluate(const float* p) const {
    const float v = detail::foldedNoiseSum(p, data_.scale, data_.magnitude, 4.0f, 4.0, planar());
    // Smooth step from 0 to 1 over [0.0001, 0.003]; NaN falls through to 1.
    if (v < 0.0001f) return 0.0f;
    if (v < 0.003f) {
        const float u = (v - 0.0001f) * 344.82758f;
        return (3.0f - 2.0f * u) * (u * u);
    }
    return 1.0f;
}

}  // namespace grainsmith
