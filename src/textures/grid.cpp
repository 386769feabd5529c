#include "grainsmith/textures/grid.h"

#include "grainsmith/numeric.h"
#include "pattern_common.h"

namespace grainsmith {

ParamTable GridTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "stripeWidth", .type = FieldType::Float32, .offset = offsetof(GridData, stripeWidth),
         .defaultValue = 0.25, .group = "Grid", .label = "Width", .widget = Widget::Slider, .scale = 0.01,
         .objectName = "gridWidth", .description = "Width of the grid lines, centred on whole coordinates."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(GridData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each cube between the lines its own random grey instead of white."},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(GridData, minColor), .defaultValue = 0.5,
         .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random cube grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(GridData, maxColor), .defaultValue = 1.0,
         .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random cube grey."},
    };
    return table;
}

float GridTexture3D::evaluate(const float* p) const {
    const int dims = planar() ? 2 : 3;
    const float half = data_.stripeWidth * 0.5f;
    const float h2 = half * half;
    for (int i = 0; i < dims; ++i) {
        const float c = p[i];
        const int32_t k = cellFloor(c);
        const float d1 = c - static_cast<float>(k), d2 = cellAbove(k) - c;
        if (d1 * d1 <= h2 || d2 * d2 <= h2) return 0.0f;
    }
    // z takes part in the cube's grey even in two-dimensional mode.
    if (data_.randomizeColors) return data_.minColor + (data_.maxColor - data_.minColor) * cellRandom3(p[0], p[1], p[2]);
    return 1.0f;
}

}  // namespace grainsmith
