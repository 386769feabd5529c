#include "grainsmith/textures/perlin_noise.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable PerlinTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(PerlinData, octaves), .defaultValue = 4,
         .group = "Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1, .maximum = 16,
         .description = "Number of noise octaves summed; more octaves add finer detail."},
        // An integer widget whose value is the frequency itself.
        {.name = "frequency", .type = FieldType::Float32, .offset = offsetof(PerlinData, frequency),
         .defaultValue = 4, .group = "Noise", .label = "Frequency", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 64,
         .description = "Frequency of the first octave: finer features as it grows."},
        {.name = "amplitude", .type = FieldType::Float32, .offset = offsetof(PerlinData, amplitude),
         .defaultValue = 1, .group = "Noise", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .scaleInDouble = true,
         .description = "Amplitude of the first octave: more contrast as it grows."},
    };
    return table;
}

float PerlinTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::perlinNoise<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void PerlinTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::perlinNoise(data_, planar(), points, n, out);
}

}  // namespace grainsmith
