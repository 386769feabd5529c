#include "grainsmith/textures/simplex.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable SimplexTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(SimplexData, scale), .defaultValue = 4,
         .group = "Noise", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: finer features as it grows."},
    };
    return table;
}

float SimplexTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::simplex<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void SimplexTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::simplex(data_, planar(), points, n, out);
}

}  // namespace grainsmith
