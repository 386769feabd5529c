#include "grainsmith/textures/corrugated.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/pattern_kinds-inl.h"

namespace grainsmith {

namespace {
constexpr const char* kStyleNames[] = {"Perlin Noise", "Sawtooth", "Ribbon", "Sine", "Triangle"};
}  // namespace

ParamTable CorrugatedTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "style", .type = FieldType::Enum, .offset = offsetof(CorrugatedData, style), .defaultValue = 3,
         .choices = kStyleNames, .group = "Corrugated", .label = "Wave Shape", .widget = Widget::Combo,
         .description = "Shape of the wave along x."},
    };
    return table;
}

float CorrugatedTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::corrugated<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void CorrugatedTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::corrugated(data_, planar(), points, n, out);
}

}  // namespace grainsmith
