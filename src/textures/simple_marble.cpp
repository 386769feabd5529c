#include "grainsmith/textures/simple_marble.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable SimpleMarbleTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(SimpleMarbleData, octaves),
         .defaultValue = 4, .group = "Marble", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16,
         .description = "Number of noise terms in the veins' perturbation; more add finer veining."},
        {.name = "textureScale", .type = FieldType::Float32, .offset = offsetof(SimpleMarbleData, textureScale),
         .defaultValue = 2.5, .group = "Marble", .label = "Texture Scale", .widget = Widget::DoubleSpin,
         .minimum = 0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: narrower, denser veins as it grows."},
    };
    return table;
}

float SimpleMarbleTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::simpleMarble<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void SimpleMarbleTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::simpleMarble(data_, planar(), points, n, out);
}

}  // namespace grainsmith
