#include "grainsmith/textures/gradient.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

namespace grainsmith {

ParamTable GradientTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "xDir", .type = FieldType::Bool, .offset = offsetof(GradientData, xDir), .defaultValue = 1,
         .group = "Direction", .label = "X", .widget = Widget::Toggle,
         .description = "Ramps along the x axis."},
        {.name = "yDir", .type = FieldType::Bool, .offset = offsetof(GradientData, yDir), .defaultValue = 1,
         .group = "Direction", .label = "Y", .widget = Widget::Toggle,
         .description = "Ramps along the y axis."},
        {.name = "zDir", .type = FieldType::Bool, .offset = offsetof(GradientData, zDir), .defaultValue = 1,
         .group = "Direction", .label = "Z", .widget = Widget::Toggle,
         .description = "Ramps along the z axis."},
    };
    return table;
}

float GradientTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::gradient<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void GradientTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::gradient(data_, planar(), points, n, out);
}

}  // namespace grainsmith
