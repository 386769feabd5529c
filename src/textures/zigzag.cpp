#include "grainsmith/textures/zigzag.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

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
    return kind_kernels::HWY_NAMESPACE::zigzag<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void ZigzagTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::zigzag(data_, planar(), points, n, out);
}

}  // namespace grainsmith
