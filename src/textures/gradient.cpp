#include "grainsmith/textures/gradient.h"

#include <cmath>

#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable GradientTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "xDir", .type = FieldType::Bool, .offset = offsetof(GradientData, xDir), .defaultValue = 1,
         .group = "Direction", .label = "X", .widget = Widget::Toggle,
         .description = "Ramps along the x axis."},
        {.name = "yDir", .type = FieldType::Bool, .offset = offsetof(GradientData, yDir), .defaultValue = 1,
         .group = "Direction", .label = "Y", .widget = Widget::Toggle,
         .description = "Ramps along the y axis."},
        {.name = "zDir", .type = FieldType::Bool, .offset = offsetof(GradientData, zDir), .defaultValue = 1,
         .group = "Direction", .label = "Z", .widget = Widget::Toggle,
         .description = "Ramps along the z axis."},
    };
    return table;
}

namespace {

// Brings a coordinate outside [-1, 1] into the band by subtracting an even cell index.
float wrapIntoBand(float c) {
    if (!(c > 1.0f || c < -1.0f)) return c;
    uint32_t k = static_cast<uint32_t>(cellFloor(c));
    if (k & 1u) k += 1u;
    return c - static_cast<float>(static_cast<int32_t>(k));
}

}  // namespace

float GradientTexture3D::evaluate(const float* p) const {
    const float x = wrapIntoBand(p[0]);
    const float y = wrapIntoBand(p[1]);
    const float z = wrapIntoBand(p[2]);
    float v = 1.0f;
    if (data_.xDir) v = std::fabs(x + 1.0f) / 2.0f;
    if (data_.yDir) v = v * std::fabs(y + 1.0f) / 2.0f;
    if (data_.zDir) v = v * std::fabs(z + 1.0f) / 2.0f;
    return v;
}

}  // namespace grainsmith
