#include "grainsmith/textures/stripes.h"

#include <cmath>

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"
#include "pattern_common.h"

namespace grainsmith {

namespace {
constexpr const char* kStyleNames[] = {"Perlin Noise", "Ribbon", "Sawtooth", "Sine", "Straight", "Triangle"};
constexpr double kPi = 3.141592653589793;
}  // namespace

ParamTable StripesTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "stripeStyle", .type = FieldType::Enum, .offset = offsetof(StripesData, stripeStyle),
         .defaultValue = 4, .choices = kStyleNames, .group = "Stripes", .label = "Style", .widget = Widget::Combo,
         .objectName = "style", .description = "Shape by which the stripes are bent along y."},
        {.name = "stripeWidth", .type = FieldType::Float32, .offset = offsetof(StripesData, stripeWidth),
         .defaultValue = 0.25, .group = "Stripes", .label = "Width", .widget = Widget::Slider, .scale = 0.01,
         .description = "Width of each stripe, centred on whole values of the bent x."},
        {.name = "amplitude", .type = FieldType::Float32, .offset = offsetof(StripesData, amplitude),
         .defaultValue = 0.25, .group = "Stripes", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .description = "How far the style bends the stripes along x."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(StripesData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each stripe its own random grey instead of black."},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(StripesData, minColor),
         .defaultValue = 0.0, .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random stripe grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(StripesData, maxColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random stripe grey."},
    };
    return table;
}

float StripesTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1];
    const float a = data_.amplitude;
    const float t = y - std::floor(y);
    float xs = x;
    switch (data_.stripeStyle) {
    case PerlinNoise:
        xs = x + improved_noise2(2.0f * x, 2.0f * y) * a;
        break;
    case Ribbon:
        xs = t < 0.5f ? x + ribbonArc(t, 0.25f) * a : x - ribbonArc(t, 0.75f) * a;
        break;
    case Sawtooth:
        xs = x + t * a;
        break;
    case Sine:  // the whole displacement in double, from y itself
        xs = static_cast<float>(static_cast<double>(x) +
                                std::sin(2.0 * static_cast<double>(y) * kPi) * static_cast<double>(a));
        break;
    case Triangle:
        xs = x + triangleWave(t) * a;
        break;
    default:
        break;
    }

    const int32_t k = cellFloor(xs);
    const float d1 = xs - static_cast<float>(k), d2 = cellAbove(k) - xs;
    const float d1s = d1 * d1, d2s = d2 * d2;
    const float half = data_.stripeWidth * 0.5f;
    const float h2 = half * half;
    if (!data_.randomizeColors) return d1s <= h2 || d2s <= h2 ? 0.0f : 1.0f;
    const float range = data_.maxColor - data_.minColor;
    if (d1s <= h2) return data_.minColor + range * cellRandom1(static_cast<float>(k));
    if (d2s <= h2) return data_.minColor + range * cellRandom1(cellAbove(k));
    return 1.0f;
}

}  // namespace grainsmith
