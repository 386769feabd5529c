#include "grainsmith/textures/weave.h"

#include <cmath>
#include <cstring>

#include "core/exact_math.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

namespace {
constexpr const char* kPatternNames[] = {"Simple", "Herringbone"};
}

// Every int slider is value x 0.01. The minimum and maximum sliders do not keep each other in
// order, and the vertical maximum slider goes through setVerticalMaxColor, which writes the
// horizontal maximum: the page shows verticalMaxColor but its slider never changes it.
ParamTable WeaveTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "pattern", .type = FieldType::Enum, .offset = offsetof(WeaveData, pattern), .defaultValue = Simple,
         .choices = kPatternNames, .group = "Style", .label = "Pattern", .widget = Widget::Combo,
         .description = "Which thread lies on top at each crossing: alternating like a chequerboard (Simple) or in "
                        "two-over-two diagonals that reverse every eight columns (Herringbone)."},
        {.name = "backgroundColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, backgroundColor),
         .defaultValue = 0.0, .group = "Colors", .label = "Background", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the gaps between the threads (0 to 1)."},
        {.name = "horizontalColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, horizontalColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Horizontal", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the threads that run along x (0 to 1)."},
        {.name = "verticalColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, verticalColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Vertical", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the threads that run along y (0 to 1)."},
        {.name = "horizontalWidth", .type = FieldType::Float32, .offset = offsetof(WeaveData, horizontalWidth),
         .defaultValue = 0.85, .group = "Thread Widths", .label = "Horizontal", .widget = Widget::Slider,
         .scale = 0.01, .description = "Width of the threads along x as a fraction of their row (0 to 1)."},
        {.name = "verticalWidth", .type = FieldType::Float32, .offset = offsetof(WeaveData, verticalWidth),
         .defaultValue = 0.85, .group = "Thread Widths", .label = "Vertical", .widget = Widget::Slider,
         .scale = 0.01, .description = "Width of the threads along y as a fraction of their column (0 to 1)."},
        {.name = "horizontalRandomize", .type = FieldType::Bool,
         .offset = offsetof(WeaveData, horizontalRandomize), .defaultValue = 0, .group = "Horizontal Colors",
         .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each row's thread its own random grey between the horizontal minimum and maximum."},
        {.name = "horizontalMinColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, horizontalMinColor),
         .defaultValue = 0.0, .group = "Horizontal Colors", .label = "Minimum", .widget = Widget::Slider,
         .scale = 0.01, .description = "Darkest random grey of the threads along x (0 to 1)."},
        {.name = "horizontalMaxColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, horizontalMaxColor),
         .defaultValue = 0.5, .group = "Horizontal Colors", .label = "Maximum", .widget = Widget::Slider,
         .scale = 0.01, .description = "Lightest random grey of the threads along x (0 to 1)."},
        {.name = "verticalRandomize", .type = FieldType::Bool, .offset = offsetof(WeaveData, verticalRandomize),
         .defaultValue = 0, .group = "Vertical Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each column's thread its own random grey between the vertical minimum and maximum."},
        {.name = "verticalMinColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, verticalMinColor),
         .defaultValue = 0.5, .group = "Vertical Colors", .label = "Minimum", .widget = Widget::Slider,
         .scale = 0.01, .description = "Darkest random grey of the threads along y (0 to 1)."},
        // Quirk: this slider writes horizontalMaxColor (through setVerticalMaxColor).
        {.name = "verticalMaxColor", .type = FieldType::Float32, .offset = offsetof(WeaveData, verticalMaxColor),
         .defaultValue = 1.0, .group = "Vertical Colors", .label = "Maximum", .widget = Widget::Slider,
         .scale = 0.01, .storesInto = "horizontalMaxColor",
         .description = "Lightest random grey of the threads along y (0 to 1; set through a record, its slider "
                        "moves the horizontal maximum)."},
        {.name = "shadingEnable", .type = FieldType::Bool, .offset = offsetof(WeaveData, shadingEnable),
         .defaultValue = 1, .group = "Shading", .label = "Enable", .widget = Widget::Toggle,
         .description = "Darkens each hidden thread and rounds each upper one, so the threads pass over and under."},
        {.name = "shadingHorizontalStrength", .type = FieldType::Float32,
         .offset = offsetof(WeaveData, shadingHorizontalStrength), .defaultValue = 0.85, .group = "Shading",
         .label = "Horizontal", .widget = Widget::Slider, .scale = 0.01,
         .description = "Depth of the shading of the threads along x (0 none to 1 full)."},
        {.name = "shadingVerticalStrength", .type = FieldType::Float32,
         .offset = offsetof(WeaveData, shadingVerticalStrength), .defaultValue = 0.85, .group = "Shading",
         .label = "Vertical", .widget = Widget::Slider, .scale = 0.01,
         .description = "Depth of the shading of the threads along y (0 none to 1 full)."},
    };
    return table;
}

void WeaveTexture3D::migrate(const char* oldRecord) {
    unsigned char old[kOldRecordSize];
    std::memcpy(old, oldRecord, sizeof old);
    const auto f32 = [&old](int at) {
        float v;
        std::memcpy(&v, old + at, sizeof v);
        return v;
    };
    data_.backgroundColor = f32(36);
    data_.horizontalColor = f32(40);
    data_.verticalColor = f32(44);
    data_.horizontalWidth = f32(48);
    data_.verticalWidth = f32(52);
    data_.horizontalRandomize = old[56] != 0;
    data_.horizontalMinColor = f32(60);
    data_.horizontalMaxColor = f32(64);
    data_.verticalRandomize = old[68] != 0;
    data_.verticalMinColor = f32(72);
    data_.verticalMaxColor = f32(76);
    data_.shadingEnable = f32(80) != 0.0f && f32(80) == f32(80);  // a NaN gives false
    data_.shadingHorizontalStrength = f32(84);
    data_.shadingVerticalStrength = f32(88);
}

namespace {

constexpr double kPi = 3.141592653589793;

// Position across a unit cell: fmod, made positive; an exact negative integer gives 1.
float cellFraction(float c) {
    const float f = std::fabs(std::fmod(c, 1.0f));
    return c >= 0.0f ? f : 1.0f - f;
}

// 1 inside the band [0.5 - w/2, 0.5 + w/2) of the cell, else 0 (negative when w exceeds 1).
float band(float f, float width) {
    const float half = width * 0.5f;
    return (f >= 0.5f - half ? 1.0f : 0.0f) - (f >= 0.5f + half ? 1.0f : 0.0f);
}

// 1 - s/2 + (s/2) sin(pi a): the upper thread (a in [0, 1]) bright in its middle, the hidden
// one (a in [1, 2]) dark in its middle.
float shade(float strength, float a) {
    const float wave = static_cast<float>(exact::sin(kPi * static_cast<double>(a)));
    return wave / (2.0f / strength) + ((1.0f - strength) * 0.5f + 0.5f);
}

bool even(int32_t i) { return i % 2 == 0; }

}  // namespace

// The hidden thread, seen only between the upper thread and the cell border, is shaded at its
// cell fraction plus 1; the upper thread at its position along its float (bright in its middle).
float WeaveTexture3D::crossing(float fx, float fy, int32_t i, int32_t j, bool verticalOnTop, float alongX,
                               float alongY) const {
    const float hc = data_.horizontalRandomize
                         ? data_.horizontalMinColor + (data_.horizontalMaxColor - data_.horizontalMinColor) *
                                                          cellRandom1(static_cast<float>(j))
                         : data_.horizontalColor;
    const float vc = data_.verticalRandomize
                         ? data_.verticalMinColor +
                               (data_.verticalMaxColor - data_.verticalMinColor) * cellRandom1(static_cast<float>(i))
                         : data_.verticalColor;
    const float bg = data_.backgroundColor;
    const bool shading = data_.shadingEnable;
    if (verticalOnTop) {
        const float hIn = band(fy, data_.horizontalWidth);
        float c = (1.0f - hIn) * bg + hIn * hc;
        if (shading && hIn == 1.0f) c = c * shade(data_.shadingHorizontalStrength, fx + 1.0f);
        const float vIn = band(fx, data_.verticalWidth);
        const float r = (1.0f - vIn) * c + vIn * vc;
        if (!shading || vIn != 1.0f) return r;
        return r * shade(data_.shadingVerticalStrength, alongY);
    }
    const float vIn = band(fx, data_.verticalWidth);
    float c = (1.0f - vIn) * bg + vIn * vc;
    if (shading && vIn == 1.0f) c = c * shade(data_.shadingVerticalStrength, fy + 1.0f);
    const float hIn = band(fy, data_.horizontalWidth);
    const float r = (1.0f - hIn) * c + hIn * hc;
    if (!shading || hIn != 1.0f) return r;
    return r * shade(data_.shadingHorizontalStrength, alongX);
}

// Plain weave: the vertical thread is on top where column and row have equal parity.
float WeaveTexture3D::simple(float x, float y) const {
    const float fx = cellFraction(x), fy = cellFraction(y);
    const int32_t i = cellFloor(x), j = cellFloor(y);
    return crossing(fx, fy, i, j, even(i) == even(j), fx, fy);
}

// Herringbone: a two-over-two twill whose diagonal reverses every eight columns. Column i sits
// at position c (0 to 7) of its block of eight, counted backwards in odd blocks, so the
// diagonals of neighbouring blocks meet in a V. The vertical thread is on top where
// (c + j) mod 4 is 0 or 1, the horizontal one where it is 2 or 3; each thread so floats over
// two cells, and the upper thread's shading spans both (pos = 0 or 1: which cell of the float).
float WeaveTexture3D::herringbone(float x, float y) const {
    const float fy = cellFraction(y);
    const int32_t i = cellFloor(x), j = cellFloor(y);
    const uint32_t ui = static_cast<uint32_t>(i);
    const bool reversed = ((ui >> 3) & 1u) != 0;  // odd block of eight columns
    const uint32_t c = reversed ? 7u - (ui & 7u) : ui & 7u;
    const float fx = cellFraction(x);
    const float fxAlong = reversed ? 1.0f - fx : fx;  // along the thread in the direction of rising c
    const uint32_t q = (c + static_cast<uint32_t>(j)) & 3u;
    const float pos = static_cast<float>(q & 1u);
    const float alongX = (pos + fxAlong) * 0.5f;
    const float alongY = (pos + fy) * 0.5f;
    return crossing(fx, fy, i, j, q < 2u, alongX, alongY);
}

float WeaveTexture3D::evaluate(const float* p) const {
    return data_.pattern == Simple ? simple(p[0], p[1]) : herringbone(p[0], p[1]);
}

}  // namespace grainsmith
