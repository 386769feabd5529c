#include "grainsmith/textures/cheetah.h"

#include <cfloat>
#include <cmath>

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable CheetahTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "spotSize", .type = FieldType::Float32, .offset = offsetof(CheetahData, spotSize),
         .defaultValue = 0.4, .group = "Spots", .label = "Spot Size", .widget = Widget::Slider, .scale = 0.01,
         .description = "Radius of the spots relative to their unit cell."},
        {.name = "layoutVariability", .type = FieldType::Float32, .offset = offsetof(CheetahData, layoutVariability),
         .defaultValue = 0.6, .group = "Spots", .label = "Layout Variability", .widget = Widget::Slider,
         .scale = 0.01,
         .description = "Jitter of the spot centres away from the cell centres (0: a regular grid)."},
        {.name = "spotVariability", .type = FieldType::Float32, .offset = offsetof(CheetahData, spotVariability),
         .defaultValue = 0.5, .group = "Spots", .label = "Spot Variability", .widget = Widget::Slider,
         .scale = 0.01,
         .description = "Amplitude of the noise that makes the spots' outlines irregular."},
    };
    return table;
}

namespace {

// Centre of the cell with this index: the index plus one half, formed in double and
// rounded once to float.
float cellCentre(int32_t i) { return static_cast<float>(static_cast<double>(i) + 0.5); }

}  // namespace

float CheetahTexture3D::distToCell2(float x, float y) const {
    const float L = data_.layoutVariability;
    const float ci = cellCentre(cellFloor(x));
    const float cj = cellCentre(cellFloor(y));
    float best = FLT_MAX;
    for (int di = -1; di <= 1; ++di) {
        for (int dj = -1; dj <= 1; ++dj) {
            const float cx = static_cast<float>(di) + ci;
            const float cy = static_cast<float>(dj) + cj;
            const float h1 = cellRandom2(cx, cy);
            const float h2 = cellRandom2(cx + 23.0f, cy - 87.0f);
            const float sx = (h1 - 0.5f) * L + cx;
            const float sy = (h2 - 0.5f) * L + cy;
            const float dx = sx - x, dy = sy - y;
            const float d = std::sqrt(dx * dx + dy * dy);
            if (d < best) best = d;
        }
    }
    return best;
}

float CheetahTexture3D::distToCell3(float x, float y, float z) const {
    const float L = data_.layoutVariability;
    const float ci = cellCentre(cellFloor(x));
    const float cj = cellCentre(cellFloor(y));
    const float ck = cellCentre(cellFloor(z));
    float best = FLT_MAX;
    for (int di = -1; di <= 1; ++di) {
        for (int dj = -1; dj <= 1; ++dj) {
            for (int dk = -1; dk <= 1; ++dk) {
                const float cx = static_cast<float>(di) + ci;
                const float cy = static_cast<float>(dj) + cj;
                const float cz = static_cast<float>(dk) + ck;
                // y and z share one jitter value; a third hash of (cz, cy) plays no part.
                const float h1 = cellRandom2(cx, cz);
                const float h2 = cellRandom2(cy, cx);
                const float sx = (h1 - 0.5f) * L + cx;
                const float sy = (h2 - 0.5f) * L + cy;
                const float sz = (h2 - 0.5f) * L + cz;
                const float dx = sx - x, dy = sy - y, dz = sz - z;
                const float d = std::sqrt(dx * dx + dy * dy + dz * dz);
                if (d < best) best = d;
            }
        }
    }
    return best;
}

float CheetahTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1], z = p[2];
    float n, d;
    if (planar()) {
        n = fractal_noise_2D(x, y, 2, 2.0f, data_.spotVariability);
        d = distToCell2(x, y);
    } else {
        n = fractal_noise_3D(x, y, z, 2, 2.0f, data_.spotVariability);
        d = distToCell3(x, y, z);
    }
    const float r = (n + 1.0f) * data_.spotSize;
    return d >= r ? 1.0f : 0.0f;
}

}  // namespace grainsmith
