#include "grainsmith/textures/voronoi.h"

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
    const float s = data_.scale;
    const float x = p[0] * s;
    const float y = p[1] * s;
    float v = planar() ? Voronoi::voronoi_value2(x, y, data_.type, data_.distanceMethod)
                       : Voronoi::voronoi_value3(x, y, p[2] * s, data_.type, data_.distanceMethod);
    if (v > 1.0f) v = 1.0f;
    if (!(v >= 0.0f)) v = 0.0f;
    return v;
}

}  // namespace grainsmith
