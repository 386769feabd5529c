#include "grainsmith/textures/perlin_noise.h"

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

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
    const int octaves = capLoopCount(data_.octaves);
    const float n = planar() ? fractal_noise_2D(p[0], p[1], octaves, data_.frequency, data_.amplitude)
                             : fractal_noise_3D(p[0], p[1], p[2], octaves, data_.frequency, data_.amplitude);
    return clamp01((n + 1.0f) * 0.5f);
}

}  // namespace grainsmith
