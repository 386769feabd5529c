#include "grainsmith/textures/voronoi.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

ParamTable VoronoiTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(VoronoiData, scale), .defaultValue = 4.0,
         .group = "Voronoi", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0.001, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: more cells per unit as it grows."},
        {.name = "type", .type = FieldType::Enum, .offset = offsetof(VoronoiData, type), .defaultValue = 0,
         .choices = Voronoi::kTypeNames, .group = "Voronoi", .label = "Type", .widget = Widget::Combo,
         .description = "Which feature distances make the value (nearest, second nearest, their difference, ...)."},
        {.name = "distanceMethod", .type = FieldType::Enum, .offset = offsetof(VoronoiData, distanceMethod),
         .defaultValue = 1, .choices = Voronoi::kDistanceNames, .group = "Voronoi", .label = "Method",
         .widget = Widget::Combo,
         .description = "How the distance to a feature point is measured."},
    };
    return table;
}

float VoronoiTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::voronoi<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void VoronoiTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::voronoi(data_, planar(), points, n, out);
}

}  // namespace grainsmith
