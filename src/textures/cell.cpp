#include "grainsmith/textures/cell.h"

namespace grainsmith {

namespace {
// The Worley metrics have no display texts of their own; these are their code names.
constexpr const char* kWorleyDistanceNames[] = {"Euclidean", "Squared",   "LargestPlusLength", "Taxicab",
                                                "Chebychev", "Quadratic", "Minkowski4",        "Minkowski05"};
}  // namespace

ParamTable CellTexture3D::parameters() {
    // Only the scale has a control (the kind has no page in the editor); type and metric
    // come from the record.
    static constexpr Param table[] = {
        {.name = "scale", .type = FieldType::Float32, .offset = offsetof(CellData, scale), .defaultValue = 4.0,
         .group = "Cell Noise", .label = "Scale", .widget = Widget::DoubleSpin, .minimum = 0.001, .maximum = 99.99,
         .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: more cells per unit as it grows."},
        {.name = "type", .type = FieldType::Enum, .offset = offsetof(CellData, type), .defaultValue = 0,
         .choices = Voronoi::kTypeNames, .group = "Cell Noise", .label = "Type", .widget = Widget::Hidden,
         .description = "Which feature distances make the value (nearest, second nearest, their difference, ...)."},
        {.name = "distanceMethod", .type = FieldType::Enum, .offset = offsetof(CellData, distanceMethod),
         .defaultValue = 0, .choices = kWorleyDistanceNames, .group = "Cell Noise", .label = "Method",
         .widget = Widget::Hidden,
         .description = "How the distance to a feature point is measured."},
    };
    return table;
}

float CellTexture3D::evaluate(const float* p) const {
    const float s = data_.scale;
    const double x = p[0] * s;
    const double y = p[1] * s;
    const double z = p[2] * s;
    double v = Worley::worley_value(x, y, z, data_.type, data_.distanceMethod);
    if (v > 1.0) v = 1.0;
    if (!(v >= 0.0)) v = 0.0;
    return static_cast<float>(v);
}

}  // namespace grainsmith
