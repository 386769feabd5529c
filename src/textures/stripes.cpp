#include "grainsmith/textures/stripes.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

namespace grainsmith {

namespace {
constexpr const char* kStyleNames[] = {"Perlin Noise", "Ribbon", "Sawtooth", "Sine", "Straight", "Triangle"};
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
         .partner = "maxColor", .partnerRule = PartnerRule::Raise,
         .description = "Darkest random stripe grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(StripesData, maxColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "minColor", .partnerRule = PartnerRule::Lower,
         .description = "Lightest random stripe grey."},
    };
    return table;
}

float StripesTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::stripes<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void StripesTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::stripes(data_, planar(), points, n, out);
}

}  // namespace grainsmith
