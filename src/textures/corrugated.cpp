#include "grainsmith/textures/corrugated.h"

#include <cmath>

#include "grainsmith/noise/improved_noise.h"
#include "pattern_common.h"

namespace grainsmith {

namespace {
constexpr const char* kStyleNames[] = {"Perlin Noise", "Sawtooth", "Ribbon", "Sine", "Triangle"};
constexpr double kPi = 3.141592653589793;
}  // namespace

ParamTable CorrugatedTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "style", .type = FieldType::Enum, .offset = offsetof(CorrugatedData, style), .defaultValue = 3,
         .choices = kStyleNames, .group = "Corrugated", .label = "Wave Shape", .widget = Widget::Combo,
         .description = "Shape of the wave along x."},
    };
    return table;
}

float CorrugatedTexture3D::evaluate(const float* p) const {
    const float x = p[0];
    const float t = x - std::floor(x);
    switch (data_.style) {
    case PerlinNoise:
        return improved_noise1(2.0f * x) * 0.5f + 0.5f;
    case Sawtooth:
        return t;
    case Ribbon:
        return t < 0.5f ? ribbonArc(t, 0.25f) + 0.5f : 1.0f - (ribbonArc(t, 0.75f) + 0.5f);
    case Sine:
        return static_cast<float>(std::sin(2.0 * static_cast<double>(t) * kPi)) * 0.5f + 0.5f;
    case Triangle:
        return triangleWave(t);
    default:
        return std::sin(t * static_cast<float>(kPi)) * 0.5f + 0.5f;
    }
}

}  // namespace grainsmith
