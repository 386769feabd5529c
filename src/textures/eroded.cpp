#include "grainsmith/textures/eroded.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable ErodedTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "magnitude", .type = FieldType::Float32, .offset = offsetof(ErodedData, magnitude),
         .defaultValue = 0.3, .group = "Erosion", .label = "Magnitude", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.01, .decimals = 3,
         .description = "Factor applied to the cubed noise sum: fewer, smaller pits as it grows."},
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(ErodedData, scale), .defaultValue = 1.0,
         .group = "Erosion", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0.001, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: smaller, denser pits as it grows."},
    };
    return table;
}

float ErodedTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::erosion<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void ErodedTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::erosion(data_, planar(), points, n, out);
}

}  // namespace grainsmith
