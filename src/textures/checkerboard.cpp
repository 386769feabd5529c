#include "grainsmith/textures/checkerboard.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

namespace grainsmith {

ParamTable CheckerboardTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "depth", .type = FieldType::Int32, .offset = offsetof(CheckerboardData, depth), .defaultValue = 1,
         .group = "Checkerboard", .label = "Depth", .widget = Widget::IntSpin, .minimum = 1, .maximum = 8,
         .description = "Nesting depth: each cube is subdivided into smaller checkers this many times."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(CheckerboardData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives every cube its own random grey around the dark and light levels."},
        {.name = "variability", .type = FieldType::Float32, .offset = offsetof(CheckerboardData, variability),
         .defaultValue = 0.5, .group = "Colors", .label = "Variability", .widget = Widget::Slider, .scale = 0.01,
         .description = "How far the random greys stray from the dark and light levels (0: not at all)."},
    };
    return table;
}

float CheckerboardTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::checkerboard<simd::ScalarLanes>(data_, false, p[0], p[1], p[2]);
}

void CheckerboardTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::checkerboard(data_, false, points, n, out);
}

}  // namespace grainsmith
