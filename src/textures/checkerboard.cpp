#include "grainsmith/textures/checkerboard.h"

#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable CheckerboardTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "depth", .type = FieldType::Int32, .offset = offsetof(CheckerboardData, depth), .defaultValue = 1,
         .group = "Checkerboard", .label = "Depth", .widget = Widget::IntSpin, .minimum = 1, .maximum = 8,
         .description = "Nesting depth: each cube is subdivided into smaller checkers this many times."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(CheckerboardData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives every cube its own random grey around the dark and light levels."},
        {.name = "variability", .type = FieldType::Float32, .offset = offsetof(CheckerboardData, variability),
         .defaultValue = 0.5, .group = "Colors", .label = "Variability", .widget = Widget::Slider, .scale = 0.01,
         .description = "How far the random greys stray from the dark and light levels (0: not at all)."},
    };
    return table;
}

namespace {

// The parity of the cell: the XOR over the three axes of "cell index is even".
bool darkCell(float x, float y, float z) {
    const bool xe = (cellFloor(x) & 1) == 0;
    const bool ye = (cellFloor(y) & 1) == 0;
    const bool ze = (cellFloor(z) & 1) == 0;
    return xe ^ ye ^ ze;
}

}  // namespace

float CheckerboardTexture3D::evaluate(const float* p) const {
    float x = p[0], y = p[1], z = p[2];
    const int depth = capLoopCount(data_.depth);
    if (depth <= 0) return 0.0f;
    if (depth == 1) {
        const bool dark = darkCell(x, y, z);
        if (!data_.randomizeColors) return dark ? 0.25f : 0.75f;
        const float r = cellRandom3(x, y, z);
        const float s = (r * 2.0f - 1.0f) * data_.variability;
        return dark ? (s + 1.0f) * 0.25f : s * 0.25f + 0.75f;
    }
    // Nested checkers: each level narrows the grey interval of the cell the point is in.
    // The dark branch centres on the old dark grey, the light branch starts at the old light grey.
    float lo = 0.25f, hi = 0.75f;
    for (int k = 0;; ++k) {
        const float value = darkCell(x, y, z) ? lo : hi;
        if (k == depth - 1) return value;
        const float step = std::ldexp(1.0f, -(k + 3));
        if (value == lo) {
            hi = lo + step;
            lo = lo - step;
        } else {
            lo = hi;
            hi = hi + step;
        }
        x *= 2.0f;
        y *= 2.0f;
        z *= 2.0f;
    }
}

}  // namespace grainsmith
