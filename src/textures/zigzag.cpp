#include "grainsmith/textures/zigzag.h"

#include <cmath>

#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable ZigzagTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(ZigzagData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Varies the grey of each two-cell piece of a band around its band's grey."},
        {.name = "variability", .type = FieldType::Float32, .offset = offsetof(ZigzagData, variability),
         .defaultValue = 0.5, .group = "Colors", .label = "Variability", .widget = Widget::Slider, .scale = 0.01,
         .description = "How far random greys stray from the band's grey (0 = not at all)."},
    };
    return table;
}

float ZigzagTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1];
    const double fx = std::floor(static_cast<double>(x)), fy = std::floor(static_cast<double>(y));
    const bool light = std::fabs(std::fmod(std::floor((fx + fy) * 0.5), 2.0)) != 0.0;
    if (!data_.randomizeColors) return light ? 0.75f : 0.25f;
    // Odd rows pair their cells one unit further on, so the pieces interlock like bricks.
    const bool oddRow = toInt32(std::floor(y)) % 2 != 0;
    const float u = oddRow ? x + 1.0f : x;
    const float r = cellRandom2(u * 0.5f, y);
    const float s = (r * 2.0f - 1.0f) * data_.variability;
    return clamp01(light ? s * 0.25f + 0.75f : (s + 1.0f) * 0.25f);
}

}  // namespace grainsmith
