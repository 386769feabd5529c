// The record and accessors shared by "Voronoi" and "Cell Noise": a scale and two codes, the
// feature-distance type and the distance method, which each kind reads through its own
// cellular family. The codes stay plain ints because a record may carry any value.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CellularData {
    BaseData head;
    float scale;
    int32_t type;
    int32_t distanceMethod;
};
static_assert(sizeof(CellularData) == 48);
static_assert(offsetof(CellularData, scale) == 36 && offsetof(CellularData, type) == 40 &&
              offsetof(CellularData, distanceMethod) == 44);

template <class Derived>
class CellularKind : public TextureKind<Derived, CellularData> {
public:
    float getScale() const { return this->data_.scale; }
    void setScale(float v) { this->data_.scale = v; }
    int getType() const { return this->data_.type; }
    void setType(int v) { this->data_.type = v; }
    int getDistanceMethod() const { return this->data_.distanceMethod; }
    void setDistanceMethod(int v) { this->data_.distanceMethod = v; }
};

}  // namespace grainsmith
