#include "grainsmith/textures/wood.h"

#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

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

namespace {

// Smooth step (3 - 2u) u^2 of u in [0, 1].
inline float smooth(float u) { return (3.0f - 2.0f * u) * (u * u); }

}  // namespace

float WoodTexture3D::simpleWood(const float* p) const {
    float x = p[0];
    float z = p[2];
    if (data_.frequency > 0.0f) {
        // Shift the rings' centre by the perturbing octave sum, remapped as (sum + 1) / 2.
        const float n = (fractal_noise_3D(p[0], p[1], p[2], capLoopCount(data_.octaves), data_.frequency,
                                          data_.amplitude) +
                         1.0f) *
                        0.5f;
        x += n;
        z += n;
    }
    float r = std::sqrt(z * z + x * x) * data_.ringScale;
    r += std::fabs((improved_noise1(r) + 1.0f) * 0.5f);
    r = r - static_cast<float>(cellFloor(r));

    // The dark weight rises over [0, 0.8) and falls back to 0 over [0.83, 1).
    float a;
    if (!(r >= 0.0f))
        a = 0.0f;
    else if (r < 0.8f)
        a = smooth(r * 1.25f);
    else
        a = 1.0f;
    float b;
    if (r < 0.83f)
        b = 0.0f;
    else if (r < 1.0f)
        b = smooth((r - 0.83f) * 5.8823524f);
    else
        b = 1.0f;
    const float d = a - b;
    return (1.0f - d) * data_.lightColor + d * data_.darkColor;
}

void WoodTexture3D::operator()(const float* points, int n, float* out) const {
    for (int i = 0; i < n; ++i) out[i] = simpleWood(points + 3 * i);
}

}  // namespace grainsmith
