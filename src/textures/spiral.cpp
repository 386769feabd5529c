#include "grainsmith/textures/spiral.h"

#include <cmath>

#include "grainsmith/numeric.h"
#include "pattern_common.h"

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
    const float x = p[0], y = p[1], z = p[2];
    float xs;
    if (planar()) {
        xs = x + y * data_.spiralRate;
    } else {
        const float rho = std::sqrt(x * x + z * z);
        const float theta = std::atan2(z, x) + y * data_.spiralRate;
        xs = rho * std::cos(theta);
    }
    const int32_t k = cellFloor(xs);
    const float d1 = xs - static_cast<float>(k), d2 = cellAbove(k) - xs;
    const float half = data_.stripeWidth * 0.5f;
    const float h2 = half * half;
    return h2 < d1 * d1 && h2 < d2 * d2 ? 1.0f : 0.0f;
}

}  // namespace grainsmith
