#include "grainsmith/textures/psychedelic.h"

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable PsychedelicTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "frequency", .type = FieldType::Float32, .offset = offsetof(PsychedelicData, frequency),
         .defaultValue = 1.0, .group = "Pattern", .label = "Frequency", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(PsychedelicData, minColor),
         .defaultValue = 0.0, .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "maxColor", .partnerRule = PartnerRule::Raise},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(PsychedelicData, maxColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "minColor", .partnerRule = PartnerRule::Lower},
    };
    return table;
}

float PsychedelicTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1], z = p[2];
    const float f = data_.frequency;

    // Bend the point by noise, then pick the random grey of the cell it lands in.
    float a, n2;
    if (planar()) {
        a = improved_noise2(x, y) * f + x;
        n2 = improved_noise2(x + 1.0f, y);
    } else {
        a = improved_noise3(x, y, z) * f + x;
        n2 = improved_noise3(x + 1.0f, y, z);
    }
    const float b = n2 * f + y;
    const float h = cellRandom2(f * a, f * b);

    float value = data_.minColor + (data_.maxColor - data_.minColor) * h;
    if (value >= 1.0f) value = 1.0f;
    if (!(value > 0.0f)) value = 0.0f;  // also turns -0 and NaN into +0
    return value;
}

}  // namespace grainsmith
