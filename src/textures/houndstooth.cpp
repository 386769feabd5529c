#include "grainsmith/textures/houndstooth.h"

#include "grainsmith/numeric.h"

namespace grainsmith {

namespace {
constexpr const char* kPatternNames[] = {"Chevron", "Onyx", "Sherlock", "Traditional"};
}  // namespace

ParamTable HoundstoothTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "pattern", .type = FieldType::Enum, .offset = offsetof(HoundstoothData, pattern),
         .defaultValue = 3, .choices = kPatternNames, .group = "Style", .label = "Pattern",
         .widget = Widget::Combo, .description = "Variant of the check: chevron, onyx, sherlock or traditional."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(HoundstoothData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each dark region (and in some variants each light one) its own grey."},
        {.name = "variability", .type = FieldType::Float32, .offset = offsetof(HoundstoothData, variability),
         .defaultValue = 0.5, .group = "Colors", .label = "Variability", .widget = Widget::Slider, .scale = 0.01,
         .description = "How far random greys stray from 0.25 (dark) and 0.75 (light)."},
    };
    return table;
}

namespace {

// The unit cell of a point and the point's place in it.
struct Cell {
    float x, y;    // the point
    float fx, fy;  // fractions within the cell
    bool ex, ey;   // the cell's x and y indices are even
};

Cell cellOf(const float* p) {
    const float x = p[0], y = p[1];
    const int32_t ix = cellFloor(x), iy = cellFloor(y);
    return {x, y, x - static_cast<float>(ix), y - static_cast<float>(iy), ix % 2 == 0, iy % 2 == 0};
}

// Grey of one region: its plain tone, or with randomize colours a grey around `base`
// hashed from the key, which names the full cell the region belongs to.
struct Shader {
    bool randomize;
    float variability;
    float light(float kx, float ky) const { return randomize ? shade(0.75f, kx, ky) : 1.0f; }
    float dark(float kx, float ky) const { return randomize ? shade(0.25f, kx, ky) : 0.0f; }
    float shade(float base, float kx, float ky) const {
        return base + (cellRandom2(kx, ky) * 2.0f - 1.0f) * variability * 0.25f;
    }
};

}  // namespace

float HoundstoothTexture3D::evaluate(const float* p) const {
    switch (data_.pattern) {
    case Chevron:
        return chevron(p);
    case Onyx:
        return onyx(p);
    case Sherlock:
        return sherlock(p);
    default:
        return traditional(p);
    }
}

float HoundstoothTexture3D::chevron(const float* p) const {
    const Cell c = cellOf(p);
    const Shader sh{data_.randomizeColors, data_.variability};
    const float s = c.fx + c.fy;
    // Cells of equal parity are split along the diagonal; the others are full.
    if (c.ex && c.ey) return s <= 1.0f ? sh.light(c.x, c.y - 1.0f) : sh.dark(c.x + 1.0f, c.y);
    if (c.ex) return sh.light(c.x, c.y);
    if (c.ey) return sh.dark(c.x, c.y);
    return s <= 1.0f ? sh.dark(c.x, c.y - 1.0f) : sh.light(c.x + 1.0f, c.y);
}

float HoundstoothTexture3D::traditional(const float* p) const {
    const Cell c = cellOf(p);
    const Shader sh{data_.randomizeColors, data_.variability};
    if (c.ex && c.ey) return sh.light(c.x, c.y);
    if (!c.ex && !c.ey) return sh.dark(c.x, c.y);
    // Mixed cells: four diagonal bands of width 0.5, alternating, each sharing the grey of
    // the neighbouring full cell it joins.
    const float s = c.fx + c.fy;
    if (c.ex) {
        if (s < 0.5f) return sh.dark(c.x - 1.0f, c.y);
        if (s < 1.0f) return sh.light(c.x, c.y - 1.0f);
        if (s < 1.5f) return sh.dark(c.x + 1.0f, c.y);
        return sh.light(c.x, c.y + 1.0f);
    }
    if (s < 0.5f) return sh.light(c.x - 1.0f, c.y);
    if (s < 1.0f) return sh.dark(c.x, c.y - 1.0f);
    if (s < 1.5f) return sh.light(c.x + 1.0f, c.y);
    return sh.dark(c.x, c.y + 1.0f);
}

float HoundstoothTexture3D::sherlock(const float* p) const {
    const Cell c = cellOf(p);
    const Shader sh{data_.randomizeColors, data_.variability};
    // Light regions stay white even with randomize colours.
    if (c.ex && c.ey) return 1.0f;
    if (!c.ex && !c.ey) return sh.dark(c.x, c.y);
    constexpr double c1 = 0.606092, c2 = 1.19188, c3 = 1.79797;
    // The mixed cell with even x runs its bands along the other diagonal.
    const double t = c.ex ? static_cast<double>((1.0f - c.fx) + c.fy) : static_cast<double>(c.fx + c.fy);
    const float firstX = c.ex ? c.x + 1.0f : c.x, firstY = c.ex ? c.y : c.y - 1.0f;
    const float secondX = c.ex ? c.x - 1.0f : c.x, secondY = c.ex ? c.y : c.y + 1.0f;
    if (t <= c1) return sh.dark(firstX, firstY);
    if (t < c2) return 1.0f;
    if (t < c3) return sh.dark(secondX, secondY);
    return 1.0f;
}

float HoundstoothTexture3D::onyx(const float* p) const {
    // Band half-widths: the two dark bands are 3a wide, centred off the diagonals.
    constexpr float a = 0.35355f * 0.33333334f;
    constexpr float b = a * 2.0f;
    const Cell c = cellOf(p);
    const Shader sh{data_.randomizeColors, data_.variability};
    if (c.ex && c.ey) return 1.0f;
    if (!c.ex && !c.ey) return sh.dark(c.x, c.y);
    const float t = c.fx + c.fy;
    const float firstX = c.ex ? c.x - 1.0f : c.x, firstY = c.ex ? c.y : c.y - 1.0f;
    const float secondX = c.ex ? c.x + 1.0f : c.x, secondY = c.ex ? c.y : c.y + 1.0f;
    if (t < 0.5f - b) return 1.0f;
    if (t < 0.5f + a) return sh.dark(firstX, firstY);
    if (t < 1.5f - a) return 1.0f;
    if (t < 1.5f + b) return sh.dark(secondX, secondY);
    return 1.0f;
}

}  // namespace grainsmith
