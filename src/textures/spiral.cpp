#include "grainsmith/textures/spiral.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

namespace grainsmith {

ParamTable SpiralTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "stripeWidth", .type = FieldType::Float32, .offset = offsetof(SpiralData, stripeWidth),
         .defaultValue = 0.25, .group = "Spiral", .label = "Stripe Width", .widget = Widget::Slider, .scale = 0.01,
         .description = "Width of each stripe, centred on whole values of the turned x."},
        {.name = "spiralRate", .type = FieldType::Float32, .offset = offsetof(SpiralData, spiralRate),
         .defaultValue = 0.2, .group = "Spiral", .label = "Spiral Rate", .widget = Widget::DoubleSpin,
         .minimum = -99.99, .maximum = 99.99, .step = 0.01, .decimals = 3,
         .description = "Turn of the stripes per unit of y, in radians (in 2-D mode: their slant)."},
    };
    return table;
}

float SpiralTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::spiral<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void SpiralTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::spiral(data_, planar(), points, n, out);
}

}  // namespace grainsmith
