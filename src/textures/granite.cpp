#include "grainsmith/textures/granite.h"

#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

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
    const bool flat = planar();
    const float x = p[0], y = p[1];
    float sum = 0.0f;
    float f = data_.frequency;
    const int terms = capLoopCount(data_.octaves);
    for (int k = 0; k < terms; ++k) {
        const float n = flat ? improved_noise2(4.0f * x * f, 4.0f * y * f)
                             : improved_noise3(4.0f * x * f, 4.0f * y * f, 4.0f * p[2] * f);
        // Each folded term is weighed and accumulated in double, then rounded once.
        sum = static_cast<float>(std::fabs(0.5 - static_cast<double>(n)) / static_cast<double>(f) +
                                 static_cast<double>(sum));
        f *= 2.0f;
    }
    return clamp01(sum);
}

}  // namespace grainsmith
