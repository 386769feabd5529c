#include "grainsmith/textures/fractal_sum.h"

namespace grainsmith {

ParamTable fractalSumParameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(FractalSumData, octaves), .defaultValue = 4,
         .group = "Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1, .maximum = 16,
         .description = "Number of noise octaves summed; more octaves add finer detail."},
        {.name = "lacunarity", .type = FieldType::Float32, .offset = offsetof(FractalSumData, lacunarity),
         .defaultValue = 2, .group = "Noise", .label = "Lacunarity", .widget = Widget::DoubleSpin, .minimum = 0,
         .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Frequency ratio between one octave and the next."},
        {.name = "gain", .type = FieldType::Float32, .offset = offsetof(FractalSumData, gain), .defaultValue = 0.5,
         .group = "Noise", .label = "Gain", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.01, .decimals = 3,
         .description = "Amplitude ratio between one octave and the next: rougher as it grows."},
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(FractalSumData, scale), .defaultValue = 4,
         .group = "Noise", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: finer features as it grows."},
    };
    return table;
}

}  // namespace grainsmith
