#include "grainsmith/textures/cheetah.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/cell_kinds-inl.h"

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

float CheetahTexture3D::distToCell2(float x, float y) const {
    return kind_kernels::HWY_NAMESPACE::cheetahDistance2<simd::ScalarLanes>(data_.layoutVariability, x, y);
}

float CheetahTexture3D::distToCell3(float x, float y, float z) const {
    return kind_kernels::HWY_NAMESPACE::cheetahDistance3<simd::ScalarLanes>(data_.layoutVariability, x, y, z);
}

float CheetahTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::cheetah<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void CheetahTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::cheetah(data_, planar(), points, n, out);
}

}  // namespace grainsmith
