#include "grainsmith/textures/speckled_stone.h"

#include <cmath>

#include "grainsmith/noise/improved_noise.h"

namespace grainsmith {

ParamTable SpeckledStoneTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(SpeckledStoneData, scale),
         .defaultValue = 0.02, .group = "Speckles", .label = "Scale", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.001, .decimals = 3,
         .description = "Factor applied to the point: finer speckles as it grows."},
        {.name = "nShades", .type = FieldType::Int32, .offset = offsetof(SpeckledStoneData, nShades),
         .defaultValue = 4, .group = "Speckles", .label = "Shades", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 99,
         .description = "Number of grey steps the speckles are quantised into."},
        {.name = "exponent", .type = FieldType::Int32, .offset = offsetof(SpeckledStoneData, exponent),
         .defaultValue = 2, .group = "Speckles", .label = "Exponent", .widget = Widget::IntSpin, .minimum = 0,
         .maximum = 99,
         .description = "Power applied to the noise: sparser, sharper speckles as it grows."},
        {.name = "baseColor", .type = FieldType::Float32, .offset = offsetof(SpeckledStoneData, baseColor),
         .defaultValue = 0.0, .group = "Colors", .label = "Base", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the stone between the speckles."},
        {.name = "grainColor", .type = FieldType::Float32, .offset = offsetof(SpeckledStoneData, grainColor),
         .defaultValue = 0.5, .group = "Colors", .label = "Grain", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey the brightest speckles reach."},
    };
    return table;
}

namespace {

// v to an integer power by repeated squaring over the bits of |e|, lowest first, in single
// precision; a negative exponent gives the reciprocal. At most 32 steps for any e.
float integerPower(float v, int32_t e) {
    uint32_t bits = e < 0 ? 0u - static_cast<uint32_t>(e) : static_cast<uint32_t>(e);
    float result = 1.0f;
    float square = v;
    while (bits != 0) {
        if (bits & 1u) result *= square;
        bits >>= 1;
        if (bits != 0) square *= square;
    }
    return e < 0 ? 1.0f / result : result;
}

}  // namespace

float SpeckledStoneTexture3D::evaluate(const float* p) const {
    const float scale = data_.scale;
    const float inverse = 1.0f / scale;
    const float n = planar() ? improved_noise2(p[0] * inverse, p[1] * inverse)
                             : improved_noise3(p[0] * inverse, p[1] * inverse, p[2] / scale);
    const float v = integerPower((n + 1.0f) * 0.5f, data_.exponent);
    // Quantise: product and rounding offset in float, floor and division in double.
    const float scaled = static_cast<float>(data_.nShades) * v + 0.5f;
    const float s = static_cast<float>(std::floor(static_cast<double>(scaled)) / static_cast<double>(data_.nShades));
    return (1.0f - s) * data_.baseColor + s * data_.grainColor;
}

}  // namespace grainsmith
