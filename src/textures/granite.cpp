#include "grainsmith/textures/granite.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable GraniteTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(GraniteData, octaves), .defaultValue = 6,
         .group = "Granite", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1, .maximum = 16,
         .description = "Number of folded noise octaves summed; more octaves add finer grain."},
        // An integer widget whose value is the frequency itself.
        {.name = "frequency", .type = FieldType::Float32, .offset = offsetof(GraniteData, frequency),
         .defaultValue = 1, .group = "Granite", .label = "Frequency", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 64,
         .description = "Frequency of the first octave: finer grain as it grows."},
    };
    return table;
}

float GraniteTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::granite<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void GraniteTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::granite(data_, planar(), points, n, out);
}

}  // namespace grainsmith
