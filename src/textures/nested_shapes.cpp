#include "grainsmith/textures/nested_shapes.h"

#include <cmath>

#include "grainsmith/numeric.h"

namespace grainsmith {

namespace {
constexpr const char* kShapeNames[] = {"Cylinder", "Sphere", "Square Tube", "Cube"};
}

// The editor page shows both widgets but connects neither: moving them changes nothing.
ParamTable NestedShapesTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "shapeType", .type = FieldType::Enum, .offset = offsetof(NestedShapesData, shapeType),
         .defaultValue = Cylinder, .choices = kShapeNames, .group = "Shape", .label = "Shape",
         .widget = Widget::Combo,  // shown on the page but deliberately unconnected
         .description = "Shape of the shells: cylinders around z, spheres, square tubes around z or cubes, all "
                        "centred on the origin."},
        {.name = "thickness", .type = FieldType::Float32, .offset = offsetof(NestedShapesData, thickness),
         .defaultValue = 0.25, .group = "Shape", .label = "Thickness", .widget = Widget::Slider, .scale = 0.01,
         // shown on the page (value x 100) but deliberately unconnected
         .description = "Total width of each shell in texture units (0 to 1; 1 or more darkens everything)."},
    };
    return table;
}

namespace {

float larger(float a, float b) { return a > b ? a : b; }

// 1/sqrt(n): the square root in single precision, its reciprocal in double, kept as float.
float inverseRoot(float n) { return static_cast<float>(1.0 / static_cast<double>(std::sqrt(n))); }

}  // namespace

float NestedShapesTexture3D::evaluate(const float* p) const {
    static const float k2 = inverseRoot(2.0f);
    static const float k3 = inverseRoot(3.0f);
    const float x = p[0], y = p[1], z = p[2];
    float r;
    switch (data_.shapeType) {
    case Cylinder:
        r = std::sqrt(x * x + y * y);
        break;
    case Sphere:
        r = std::sqrt(x * x + y * y + z * z);
        break;
    case SquareTube: {
        // The Chebyshev distance, by way of the diagonal length.
        const float m = larger(std::fabs(x), std::fabs(y));
        r = std::sqrt(m * 2.0f * m) * k2;
        break;
    }
    case Cube: {
        const float m = larger(larger(std::fabs(x), std::fabs(y)), std::fabs(z));
        r = std::sqrt(m * 3.0f * m) * k3;
        break;
    }
    default:
        return 1.0f;  // no defined shape: no shells
    }
    const int32_t i = cellFloor(r);
    const float t = data_.thickness * 0.5f;
    const float a = r - static_cast<float>(i);
    const float b = static_cast<float>(static_cast<int32_t>(static_cast<uint32_t>(i) + 1u)) - r;
    return (a * a > t * t && b * b > t * t) ? 1.0f : 0.0f;
}

}  // namespace grainsmith
