#include "grainsmith/textures/snakeskin.h"

#include <cmath>

#include "grainsmith/numeric.h"
#include "textures/smooth_step.h"
#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"

namespace grainsmith {

// Editor: grid width, frequency, amplitude, the colours and the radii are sliders x 0.01; the
// octaves an integer spin box; lacunarity, gain and detail double spin boxes. The minimum and
// maximum colour keep their order (each slider pushes the other).
ParamTable SnakeskinTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "gridWidth", .type = FieldType::Float32, .offset = offsetof(SnakeskinData, gridWidth),
         .defaultValue = 0.1, .group = "Grid", .label = "Width", .widget = Widget::Slider, .scale = 0.01,
         .description = "Width of the dark skin between the scales, as a fraction of a scale (0 to 1)."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(SnakeskinData, randomizeColors),
         .defaultValue = 1, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each scale a random grey between the minimum and maximum instead of white."},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(SnakeskinData, minColor),
         .defaultValue = 0.55, .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "maxColor", .partnerRule = PartnerRule::Raise,
         .description = "Darkest random scale grey (0 to 1)."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(SnakeskinData, maxColor),
         .defaultValue = 0.9, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "minColor", .partnerRule = PartnerRule::Lower,
         .description = "Lightest random scale grey (0 to 1)."},
        {.name = "scaleVariabilityEnable", .type = FieldType::Bool,
         .offset = offsetof(SnakeskinData, scaleVariabilityEnable), .defaultValue = 1, .group = "Scale Variability",
         .label = "Enable", .widget = Widget::Toggle,
         .description = "Warps the scale lattice with smooth noise, so scales vary in size and shape."},
        {.name = "scaleVariabilityFrequency", .type = FieldType::Float32,
         .offset = offsetof(SnakeskinData, scaleVariabilityFrequency), .defaultValue = 0.3,
         .group = "Scale Variability", .label = "Frequency", .widget = Widget::Slider, .maximum = 500,
         .scale = 0.01,
         .description = "Frequency of the warp per texture unit: higher values vary neighbouring scales more "
                        "(0 to 5)."},
        {.name = "scaleVariabilityAmplitude", .type = FieldType::Float32,
         .offset = offsetof(SnakeskinData, scaleVariabilityAmplitude), .defaultValue = 0.3,
         .group = "Scale Variability", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .description = "Strength of the warp, in scales (0 to 1)."},
        {.name = "scaleNoiseAdd", .type = FieldType::Bool, .offset = offsetof(SnakeskinData, scaleNoiseAdd),
         .defaultValue = 1, .group = "Scale Noise", .label = "Add", .widget = Widget::Toggle,
         .description = "Mottles the scales with fractal noise."},
        {.name = "scaleNoiseOctaves", .type = FieldType::Int32, .offset = offsetof(SnakeskinData, scaleNoiseOctaves),
         .defaultValue = 3, .group = "Scale Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16, .description = "Number of noise octaves (1 to 16; at most 64 are summed)."},
        {.name = "scaleNoiseLacunarity", .type = FieldType::Float32,
         .offset = offsetof(SnakeskinData, scaleNoiseLacunarity), .defaultValue = 2.0, .group = "Scale Noise",
         .label = "Lacunarity", .widget = Widget::DoubleSpin, .maximum = 99.99, .step = 0.1,
         .description = "Frequency factor from one octave to the next (usually 1.5 to 3)."},
        {.name = "scaleNoiseGain", .type = FieldType::Float32, .offset = offsetof(SnakeskinData, scaleNoiseGain),
         .defaultValue = 0.5, .group = "Scale Noise", .label = "Gain", .widget = Widget::DoubleSpin,
         .maximum = 99.99, .step = 0.05,
         .description = "Weight factor from one octave to the next (usually 0.3 to 0.8)."},
        {.name = "scaleNoiseDetail", .type = FieldType::Float32, .offset = offsetof(SnakeskinData, scaleNoiseDetail),
         .defaultValue = 6.0, .group = "Scale Noise", .label = "Detail", .widget = Widget::DoubleSpin,
         .maximum = 99.99, .step = 0.5,
         .description = "Frequency of the first octave per texture unit: higher values give finer mottling."},
        {.name = "roundCornersEnable", .type = FieldType::Bool, .offset = offsetof(SnakeskinData, roundCornersEnable),
         .defaultValue = 1, .group = "Rounded Corners", .label = "Enable", .widget = Widget::Toggle,
         .description = "Rounds the scales' corners, widening the skin where four scales meet."},
        {.name = "roundCornersLeftRightRadius", .type = FieldType::Float32,
         .offset = offsetof(SnakeskinData, roundCornersLeftRightRadius), .defaultValue = 0.3,
         .group = "Rounded Corners", .label = "Left/Right", .widget = Widget::Slider, .scale = 0.01,
         .description = "Rounding radius of the pointed left and right corners, in scales (0 to 0.5)."},
        {.name = "roundCornersTopBottomRadius", .type = FieldType::Float32,
         .offset = offsetof(SnakeskinData, roundCornersTopBottomRadius), .defaultValue = 0.15,
         .group = "Rounded Corners", .label = "Top/Bottom", .widget = Widget::Slider, .scale = 0.01,
         .description = "Rounding radius of the blunt top and bottom corners, in scales (0 to 0.5)."},
    };
    return table;
}

namespace {

// One scale spans 1 texture unit along x and 0.7 across: lattice coordinates a and b run along
// the two diagonal rows of scales.
constexpr float kScaleHeight = 0.7f;
constexpr float kLargestRadius = 0.5f;

float smaller(float a, float b) { return a < b ? a : b; }

// Radius from a record field: 0 to 0.5, NaN gives 0.
float cornerRadius(float r) {
    if (!(r > 0.0f)) return 0.0f;
    return r < kLargestRadius ? r : kLargestRadius;
}

// Distance inside a corner rounded with radius r, from the distances p and q to its two edges.
float roundedCorner(float p, float q, float r) {
    if (!(p < r && q < r)) return 1.0f;  // outside the corner square: the straight edges decide
    const float dp = r - p, dq = r - q;
    return r - std::sqrt(dp * dp + dq * dq);
}

}  // namespace

namespace {

// The mottling: an octave sum of planar improved noise, the coordinates multiplied by the
// lacunarity and the weight by the gain after each octave (at most 64 octaves).
float planarOctaveSum(const float* p, float scale, int octaves, float lacunarity, float gain) {
    float qx = p[0] * scale;
    float qy = p[1] * scale;
    float sum = 0.0f;
    float w = 1.0f;
    const int count = capLoopCount(octaves);
    for (int i = 0; i < count; ++i) {
        const float n = improved_noise2(qx, qy);
        qx *= lacunarity;
        qy *= lacunarity;
        sum += n * w;
        w *= gain;
    }
    return sum;
}

}  // namespace

float SnakeskinTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1];
    float a = x + y / kScaleHeight;
    float b = x - y / kScaleHeight;
    if (data_.scaleVariabilityEnable) {
        const float f = data_.scaleVariabilityFrequency, amplitude = data_.scaleVariabilityAmplitude;
        a = a + improved_noise2(x * f + 0.37f, y * f + 0.71f) * amplitude;
        b = b + improved_noise2(x * f + 19.53f, y * f - 7.29f) * amplitude;
    }
    const int32_t i = cellFloor(a), k = cellFloor(b);
    const float fa = a - static_cast<float>(i), fb = b - static_cast<float>(k);
    // Distance to the nearest side of the diamond, in lattice units (0.5 at its centre).
    float e = smaller(smaller(fa, 1.0f - fa), smaller(fb, 1.0f - fb));
    if (data_.roundCornersEnable) {
        const float lr = cornerRadius(data_.roundCornersLeftRightRadius);
        const float tb = cornerRadius(data_.roundCornersTopBottomRadius);
        e = smaller(e, roundedCorner(fa, fb, lr));                // left
        e = smaller(e, roundedCorner(1.0f - fa, 1.0f - fb, lr));  // right
        e = smaller(e, roundedCorner(1.0f - fa, fb, tb));         // top
        e = smaller(e, roundedCorner(fa, 1.0f - fb, tb));         // bottom
    }
    const float halfLine = data_.gridWidth * 0.5f;
    if (!(e > halfLine)) return 0.0f;  // on the skin between scales (also for undefined values)

    // The scale: its grey, domed by a gentle darkening towards its sides, lit towards its free
    // end (the right corner; the left one tucks under the scales before it), and mottled.
    float c = data_.randomizeColors
                  ? data_.minColor + (data_.maxColor - data_.minColor) *
                                         cellRandom2(static_cast<float>(i) + 0.5f, static_cast<float>(k) + 0.5f)
                  : 1.0f;
    c = c * (0.7f + 0.3f * smoothStep01((e - halfLine) * 5.0f));
    c = c * (0.75f + 0.25f * clamp01((fa + fb) * 0.5f));
    if (data_.scaleNoiseAdd) {
        const float n = planarOctaveSum(p, data_.scaleNoiseDetail, data_.scaleNoiseOctaves,
                                        data_.scaleNoiseLacunarity, data_.scaleNoiseGain);
        c = c * clamp01(0.75f + 0.25f * n);
    }
    return clamp01(c);
}

}  // namespace grainsmith
