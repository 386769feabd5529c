#include "grainsmith/textures/grid.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

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
         .partner = "maxColor", .partnerRule = PartnerRule::Raise,
         .description = "Darkest random cube grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(GridData, maxColor), .defaultValue = 1.0,
         .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "minColor", .partnerRule = PartnerRule::Lower,
         .description = "Lightest random cube grey."},
    };
    return table;
}

float GridTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::grid<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void GridTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::grid(data_, planar(), points, n, out);
}

}  // namespace grainsmith
