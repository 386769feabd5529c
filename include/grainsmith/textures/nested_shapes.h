// "Nested Shapes": thin shells of one shape (cylinder, sphere, square tube or cube) nested at
// every whole unit of distance from the origin; points on a shell are 0, all others 1.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct NestedShapesData {
    BaseData head;
    int32_t shapeType;  // NestedShapesTexture3D::ShapeType; a record may carry any value
    float thickness;    // total shell width in texture units
};
static_assert(sizeof(NestedShapesData) == 44);
static_assert(offsetof(NestedShapesData, shapeType) == 36 && offsetof(NestedShapesData, thickness) == 40);

class GRAINSMITH_API NestedShapesTexture3D : public TextureKind<NestedShapesTexture3D, NestedShapesData> {
public:
    enum ShapeType : int32_t { Cylinder = 0, Sphere = 1, SquareTube = 2, Cube = 3 };

    static constexpr char kName[] = "Nested Shapes";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    int getShapeType() const { return data_.shapeType; }
    void setShapeType(int v) { data_.shapeType = v; }
    float getThickness() const { return data_.thickness; }
    void setThickness(float v) { data_.thickness = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
