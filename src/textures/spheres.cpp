#include "grainsmith/textures/spheres.h"

#include <cmath>

#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable SpheresTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "sphereSize", .type = FieldType::Float32, .offset = offsetof(SpheresData, sphereSize),
         .defaultValue = 0.25, .group = "Spheres", .label = "Size", .widget = Widget::Slider, .scale = 0.01,
         .description = "Outer radius of each shell in cell units (0 to 1; staggered shells are larger by the "
                        "square root of 2)."},
        {.name = "staggered", .type = FieldType::Bool, .offset = offsetof(SpheresData, staggered), .defaultValue = 0,
         .group = "Spheres", .label = "Staggered", .widget = Widget::Toggle,
         .description = "Puts larger shells in every other cell of a 3-D checkerboard instead of one per cell."},
        {.name = "hollowness", .type = FieldType::Float32, .offset = offsetof(SpheresData, hollowness),
         .defaultValue = 0.0, .group = "Spheres", .label = "Hollowness", .widget = Widget::Slider, .scale = 0.01,
         .description = "Inner radius as a fraction of the outer one (0 gives solid balls, 1 an infinitely thin "
                        "shell)."},
    };
    return table;
}

namespace {

// True when the point lies on the shell of outer radius r around (cx, cy, cz):
// hollowness^2 x r^2 <= d^2 <= r^2.
bool onShell(float x, float y, float z, float cx, float cy, float cz, float r, float hollowness) {
    const float dx = x - cx, dy = y - cy, dz = z - cz;
    const float d2 = dx * dx + dy * dy + dz * dz;
    const float r2 = r * r;
    return (hollowness * hollowness) * r2 <= d2 && d2 <= r2;
}

bool even(int32_t i) { return i % 2 == 0; }

}  // namespace

float SpheresTexture3D::evaluate(const float* p) const {
    static const float kSqrt2 = std::sqrt(2.0f);
    const float x = p[0], y = p[1];
    // A flat evaluation slices layer -1 through its cell centres, showing full-size circles.
    const float z = planar() ? -0.5f : p[2];
    const int32_t i = cellFloor(x), j = cellFloor(y), k = cellFloor(z);
    const float cx = static_cast<float>(i) + 0.5f;
    const float cy = static_cast<float>(j) + 0.5f;
    const float cz = static_cast<float>(k) + 0.5f;
    const float h = data_.hollowness;
    if (!data_.staggered) return onShell(x, y, z, cx, cy, cz, data_.sphereSize, h) ? 0.0f : 1.0f;

    const float r = kSqrt2 * data_.sphereSize;
    const bool ei = even(i), ej = even(j), ek = even(k);
    if ((ek != ej) != ei) return onShell(x, y, z, cx, cy, cz, r, h) ? 0.0f : 1.0f;
    // An empty cell: the shells of its six face neighbours may reach into it.
    const float fi = static_cast<float>(i), fj = static_cast<float>(j), fk = static_cast<float>(k);
    for (float offset = -0.5f; offset < 1.6f; offset += 2.0f)
        if (onShell(x, y, z, fi + offset, cy, cz, r, h)) return 0.0f;
    for (float offset = -0.5f; offset < 1.6f; offset += 2.0f)
        if (onShell(x, y, z, cx, fj + offset, cz, r, h)) return 0.0f;
    for (float offset = -0.5f; offset < 1.6f; offset += 2.0f)
        if (onShell(x, y, z, cx, cy, fk + offset, r, h)) return 0.0f;
    return 1.0f;
}

}  // namespace grainsmith
