#include "grainsmith/textures/scales.h"

#include <cmath>

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"
#include "textures/smooth_step.h"

namespace grainsmith {

namespace {
constexpr const char* kShapeNames[] = {"Round", "Pointed", "Diamond"};
}

// Editor: fraction sliders are value x 0.01; the two dimension sliders step finer (x 0.005 and
// x 0.001). Each minimum/maximum pair keeps its order: raising a minimum above its maximum
// moves the maximum slider up, lowering a maximum below its minimum moves the minimum down.
ParamTable ScalesTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "scaleShape", .type = FieldType::Enum, .offset = offsetof(ScalesData, scaleShape),
         .defaultValue = Round, .choices = kShapeNames, .group = "Shape", .label = "Scale Shape",
         .widget = Widget::Combo,
         .description = "Outline of each scale's free end: a round arch, a pointed arch or a diamond."},
        {.name = "shadingAlongEnable", .type = FieldType::Bool, .offset = offsetof(ScalesData, shadingAlongEnable),
         .defaultValue = 1, .group = "Shading Along", .label = "Enable", .widget = Widget::Toggle,
         .description = "Darkens each scale from its free rim towards its root, where the row above covers it."},
        {.name = "shadingAlongStrength", .type = FieldType::Float32,
         .offset = offsetof(ScalesData, shadingAlongStrength), .defaultValue = 0.6, .group = "Shading Along",
         .label = "Strength", .widget = Widget::Slider, .scale = 0.01,
         .description = "How dark the root gets: 0 none, 1 black (0 to 1)."},
        {.name = "shadingAcrossEnable", .type = FieldType::Bool, .offset = offsetof(ScalesData, shadingAcrossEnable),
         .defaultValue = 1, .group = "Shading Across", .label = "Enable", .widget = Widget::Toggle,
         .description = "Darkens each scale towards its left and right sides, so it looks curved."},
        {.name = "shadingAcrossStrength", .type = FieldType::Float32,
         .offset = offsetof(ScalesData, shadingAcrossStrength), .defaultValue = 0.4, .group = "Shading Across",
         .label = "Strength", .widget = Widget::Slider, .scale = 0.01,
         .description = "How dark the sides get: 0 none, 1 black (0 to 1)."},
        {.name = "baseDimension", .type = FieldType::Float32, .offset = offsetof(ScalesData, baseDimension),
         .defaultValue = 0.5, .group = "Dimensions", .label = "Scale Width", .widget = Widget::Slider,
         .minimum = 1, .maximum = 200, .scale = 0.005,  // finer steps than the other sliders
         .description = "Width of one scale in texture units (0.005 to 1; rows are 0.4 widths apart)."},
        {.name = "edgeDimension", .type = FieldType::Float32, .offset = offsetof(ScalesData, edgeDimension),
         .defaultValue = 0.03, .group = "Dimensions", .label = "Edge Width", .widget = Widget::Slider,
         .minimum = 0, .maximum = 100, .scale = 0.001,  // finer steps than the other sliders
         .description = "Width of the rim band in edge colour, in texture units (0 for none, up to 0.1)."},
        {.name = "scaleVariabilityEnable", .type = FieldType::Bool,
         .offset = offsetof(ScalesData, scaleVariabilityEnable), .defaultValue = 0, .group = "Scale Variability",
         .label = "Enable", .widget = Widget::Toggle,
         .description = "Shrinks scales by smooth noise, opening gaps that show the base colour."},
        {.name = "scaleVariabilityFrequency", .type = FieldType::Float32,
         .offset = offsetof(ScalesData, scaleVariabilityFrequency), .defaultValue = 1.0,
         .group = "Scale Variability", .label = "Frequency", .widget = Widget::Slider, .maximum = 500,
         .scale = 0.01,
         .description = "Frequency of the size noise per texture unit: higher values vary neighbouring scales "
                        "more (0 to 5)."},
        {.name = "scaleVariabilityAmplitude", .type = FieldType::Float32,
         .offset = offsetof(ScalesData, scaleVariabilityAmplitude), .defaultValue = 0.5,
         .group = "Scale Variability", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .description = "Largest shrink of a scale, as twice the fraction of its size (0 none to 1 half size)."},
        {.name = "baseColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, baseColor),
         .defaultValue = 0.2, .group = "Base Color", .label = "Color", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey at each scale's root and in the gaps between scales (0 to 1)."},
        {.name = "baseRandomizeColors", .type = FieldType::Bool, .offset = offsetof(ScalesData, baseRandomizeColors),
         .defaultValue = 0, .group = "Base Color", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each scale its own random base grey between the base minimum and maximum."},
        {.name = "baseMinColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, baseMinColor),
         .defaultValue = 0.1, .group = "Base Color", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random base grey (0 to 1)."},
        {.name = "baseMaxColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, baseMaxColor),
         .defaultValue = 0.3, .group = "Base Color", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random base grey (0 to 1)."},
        {.name = "bodyColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, bodyColor),
         .defaultValue = 0.8, .group = "Body Color", .label = "Color", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the open face of each scale (0 to 1)."},
        {.name = "bodyRandomizeColors", .type = FieldType::Bool, .offset = offsetof(ScalesData, bodyRandomizeColors),
         .defaultValue = 1, .group = "Body Color", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each scale its own random body grey between the body minimum and maximum."},
        {.name = "bodyMinColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, bodyMinColor),
         .defaultValue = 0.65, .group = "Body Color", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random body grey (0 to 1)."},
        {.name = "bodyMaxColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, bodyMaxColor),
         .defaultValue = 0.9, .group = "Body Color", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random body grey (0 to 1)."},
        {.name = "edgeColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, edgeColor),
         .defaultValue = 0.35, .group = "Edge Color", .label = "Color", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the band along each scale's free rim (0 to 1)."},
        {.name = "edgeRandomizeColors", .type = FieldType::Bool, .offset = offsetof(ScalesData, edgeRandomizeColors),
         .defaultValue = 0, .group = "Edge Color", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each scale its own random rim grey between the edge minimum and maximum."},
        {.name = "edgeMinColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, edgeMinColor),
         .defaultValue = 0.25, .group = "Edge Color", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random rim grey (0 to 1)."},
        {.name = "edgeMaxColor", .type = FieldType::Float32, .offset = offsetof(ScalesData, edgeMaxColor),
         .defaultValue = 0.45, .group = "Edge Color", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random rim grey (0 to 1)."},
    };
    return table;
}

namespace {

// Scale geometry in scale widths: rows 0.4 apart, odd rows shifted by half a width; the
// neighbours within a row touch, and each row lies over the row below it.
constexpr float kRowSpacing = 0.4f;
constexpr float kRadius = 0.5f;
constexpr int kRowsToSearch = 4;  // rows whose scales can reach a point: 2 x radius / spacing, rounded up, + 1
constexpr float kSmallestWidth = 0.001f;
constexpr float kSmallestSize = 0.05f;  // of a varied scale, relative to its full size

// Distance from a scale's centre, relative to the shape: below 1 inside, 1 on the rim.
float shapeDistance(int32_t shape, float du, float dv, float radius) {
    switch (shape) {
    case ScalesTexture3D::Pointed: {
        // A pointed arch: the intersection of two circles of radius 2r centred r to either side,
        // squeezed vertically to the height of the round scale.
        const float a = std::fabs(du) + radius;
        return (std::sqrt(a * a + 3.0f * dv * dv) - radius) / radius;
    }
    case ScalesTexture3D::Diamond:
        return (std::fabs(du) + std::fabs(dv)) / radius;
    default:  // Round, and any value without a shape of its own
        return std::sqrt(du * du + dv * dv) / radius;
    }
}

float pick(bool randomize, float fixed, float lo, float hi, float random) {
    return randomize ? lo + (hi - lo) * random : fixed;
}

}  // namespace

float ScalesTexture3D::evaluate(const float* p) const {
    float width = data_.baseDimension;
    if (!(width >= kSmallestWidth)) width = kSmallestWidth;  // also catches NaN
    const float u = p[0] / width, v = p[1] / width;

    // Highest row first: the first scale that holds the point is the one on top.
    const int32_t topRow = cellFloor((v + kRadius) / kRowSpacing);
    for (int k = 0; k < kRowsToSearch; ++k) {
        const int32_t row = static_cast<int32_t>(static_cast<uint32_t>(topRow) - static_cast<uint32_t>(k));
        const float shift = (row & 1) != 0 ? 0.5f : 0.0f;
        const int32_t col = cellFloor(u - shift + 0.5f);
        const float cu = static_cast<float>(col) + shift;
        const float cv = static_cast<float>(row) * kRowSpacing;
        float radius = kRadius;
        if (data_.scaleVariabilityEnable) {
            const float f = data_.scaleVariabilityFrequency;
            const float n = improved_noise2(cu * width * f, cv * width * f);
            float size = 1.0f - data_.scaleVariabilityAmplitude * (n + 1.0f) * 0.25f;
            if (!(size >= kSmallestSize)) size = kSmallestSize;
            if (size > 1.0f) size = 1.0f;  // a scale never outgrows the rows searched
            radius = kRadius * size;
        }
        const float du = u - cu, dv = v - cv;
        const float d = shapeDistance(data_.scaleShape, du, dv, radius);
        if (!(d <= 1.0f)) continue;

        const float fc = static_cast<float>(col) + 0.5f, fr = static_cast<float>(row) + 0.5f;
        const float base = pick(data_.baseRandomizeColors, data_.baseColor, data_.baseMinColor, data_.baseMaxColor,
                                cellRandom3(fc, fr, 0.5f));
        const float body = pick(data_.bodyRandomizeColors, data_.bodyColor, data_.bodyMinColor, data_.bodyMaxColor,
                                cellRandom3(fc, fr, 1.5f));
        const float edge = pick(data_.edgeRandomizeColors, data_.edgeColor, data_.edgeMinColor, data_.edgeMaxColor,
                                cellRandom3(fc, fr, 2.5f));
        // along: 0 at the free rim, 1 at the root; across: -1 at the left side, 1 at the right.
        const float along = clamp01((dv / radius + 1.0f) * 0.5f);
        const float across = du / radius;
        float c = body + (base - body) * smoothStep01((along - 0.3f) / 0.4f);
        const float rimDistance = (1.0f - d) * radius * width;  // in texture units
        const float edgeWidth = data_.edgeDimension;
        if (edgeWidth > 0.0f) c = c + (edge - c) * (1.0f - smoothStep01(rimDistance / edgeWidth));
        if (data_.shadingAlongEnable) c = c * (1.0f - data_.shadingAlongStrength * along);
        if (data_.shadingAcrossEnable) c = c * (1.0f - data_.shadingAcrossStrength * (across * across));
        return clamp01(c);
    }
    // A gap between shrunken scales shows the skin: the base colour of the cell.
    const float r = cellRandom2(u, v / kRowSpacing);
    return clamp01(pick(data_.baseRandomizeColors, data_.baseColor, data_.baseMinColor, data_.baseMaxColor, r));
}

}  // namespace grainsmith
