#include "grainsmith/textures/camouflage.h"

#include <cmath>

#include "grainsmith/noise/improved_noise.h"

namespace grainsmith {

ParamTable CamouflageTexture3D::parameters() {
    // On the editor page each slider moves one other to its own value: the threshold pushes
    // the base colour up, and each colour pulls the next one down (base, layer 1, layer 2,
    // then the threshold). The chain stops within one round, since a slider already at the
    // value is not moved again.
    static constexpr Param table[] = {
        {.name = "frequency", .type = FieldType::Float32, .offset = offsetof(CamouflageData, frequency),
         .defaultValue = 0.6, .group = "Pattern", .label = "Frequency", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3},
        {.name = "threshold", .type = FieldType::Float32, .offset = offsetof(CamouflageData, threshold),
         .defaultValue = 0.2, .group = "Pattern", .label = "Threshold", .widget = Widget::Slider, .scale = 0.01,
         .partner = "baseColor", .partnerRule = PartnerRule::Raise},
        {.name = "baseColor", .type = FieldType::Float32, .offset = offsetof(CamouflageData, baseColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Base", .widget = Widget::Slider, .scale = 0.01,
         .partner = "layer1Color", .partnerRule = PartnerRule::Lower},
        {.name = "layer1Color", .type = FieldType::Float32, .offset = offsetof(CamouflageData, layer1Color),
         .defaultValue = 0.8, .group = "Colors", .label = "Layer 1", .widget = Widget::Slider, .scale = 0.01,
         .partner = "layer2Color", .partnerRule = PartnerRule::Lower},
        {.name = "layer2Color", .type = FieldType::Float32, .offset = offsetof(CamouflageData, layer2Color),
         .defaultValue = 0.3, .group = "Colors", .label = "Layer 2", .widget = Widget::Slider, .scale = 0.01,
         .partner = "threshold", .partnerRule = PartnerRule::Lower},
    };
    return table;
}

float CamouflageTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1], z = p[2];
    const float f = data_.frequency;
    const float base = data_.baseColor;

    // Layer 1: the point warped by noise, then fine blobs (three times the warped coordinates).
    float a, b, c;
    if (planar()) {
        a = improved_noise2(x, y) * f + x;
        b = improved_noise2(x + 1.0f, y) * f + y;
        c = 0.0f;
    } else {
        a = improved_noise3(x, y, z) * f + x;
        b = improved_noise3(x + 1.0f, y, z) * f + y;
        c = improved_noise3(x, y + 1.0f, z + 2.0f) * f + z;
    }
    const float n1 = std::fabs(improved_noise3(a * 3.0f, b * 3.0f, c * 3.0f));
    const float color1 = n1 > data_.threshold ? data_.layer1Color : base;

    // Layer 2: from the point shifted by one half with x and y exchanged, without the factor
    // three, so its blobs are larger. The planar form still samples 3-D noise at z + 0.5 here.
    const float sx = x + 0.5f, sy = y + 0.5f, sz = z + 0.5f;
    const float a2 = improved_noise3(sy, sx, sz) * f + y;
    float b2, c2;
    if (planar()) {
        b2 = improved_noise3(sy, sx + 1.0f, sz) * f + x;
        c2 = 0.0f;
    } else {
        b2 = improved_noise3(sy, sx + 1.0f, sz) * f + z;
        c2 = improved_noise3(sy + 1.0f, sx, sz + 2.0f) * f + x;
    }
    const float n2 = std::fabs(improved_noise3(a2, b2, c2));
    const float color2 = n2 > data_.threshold ? data_.layer2Color : base;

    return color1 != base ? color1 : color2;
}

}  // namespace grainsmith
