#include "grainsmith/textures/wood.h"

#include "grainsmith/numeric.h"
#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable WoodTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "ringScale", .type = FieldType::Float32, .offset = offsetof(WoodData, ringScale), .defaultValue = 6,
         .group = "Rings", .label = "Ring Scale", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Rings per unit of radius: more, narrower rings as it grows."},
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(WoodData, octaves), .defaultValue = 1,
         .group = "Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1, .maximum = 16,
         .description = "Number of noise octaves that perturb the rings."},
        // An integer widget whose value is the frequency itself; 0 switches the noise off.
        {.name = "frequency", .type = FieldType::Float32, .offset = offsetof(WoodData, frequency), .defaultValue = 1,
         .group = "Noise", .label = "Frequency", .widget = Widget::IntSpin, .minimum = 0, .maximum = 64,
         .description = "Frequency of the ring perturbation; 0 switches it off (perfect circles)."},
        {.name = "amplitude", .type = FieldType::Float32, .offset = offsetof(WoodData, amplitude),
         .defaultValue = 0.1, .group = "Noise", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .scaleInDouble = true,
         .description = "Strength of the ring perturbation."},
        {.name = "darkColor", .type = FieldType::Float32, .offset = offsetof(WoodData, darkColor),
         .defaultValue = 0.1, .group = "Colors", .label = "Dark", .widget = Widget::Slider, .scale = 0.01,
         .scaleInDouble = true,
         .description = "Grey of the dark part of each ring."},
        {.name = "lightColor", .type = FieldType::Float32, .offset = offsetof(WoodData, lightColor),
         .defaultValue = 0.5, .group = "Colors", .label = "Light", .widget = Widget::Slider, .scale = 0.01,
         .scaleInDouble = true,
         .description = "Grey of the light part of each ring."},
    };
    return table;
}

int WoodTexture3D::ringScale() const { return toInt32(data_.ringScale); }

float WoodTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::wood<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void WoodTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::wood(data_, planar(), points, n, out);
}

}  // namespace grainsmith
