#include "grainsmith/textures/dented.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable DentedTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "magnitude", .type = FieldType::Float32, .offset = offsetof(DentedData, magnitude),
         .defaultValue = 5.0, .group = "Dents", .label = "Magnitude", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Factor applied to the cubed noise sum: deeper dents as it grows."},
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(DentedData, scale), .defaultValue = 5.0,
         .group = "Dents", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0.001, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: smaller, denser dents as it grows."},
    };
    return table;
}

float DentedTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::dents<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void DentedTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::dents(data_, planar(), points, n, out);
}

}  // namespace grainsmith
