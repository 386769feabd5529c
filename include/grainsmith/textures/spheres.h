// "Spheres": one spherical shell per unit cell (or, staggered, larger shells in every other
// cell of a 3-D checkerboard); points on a shell are 0, all others 1.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct SpheresData {
    BaseData head;
    float sphereSize;  // outer radius in cell units (unstaggered)
    RecordBool staggered;
    uint8_t padding[3];
    float hollowness;  // inner radius as a fraction of the outer one
};
static_assert(sizeof(SpheresData) == 48);
static_assert(offsetof(SpheresData, sphereSize) == 36 && offsetof(SpheresData, staggered) == 40 &&
              offsetof(SpheresData, hollowness) == 44);

class GRAINSMITH_API SpheresTexture3D : public TextureKind<SpheresTexture3D, SpheresData> {
public:
    static constexpr char kName[] = "Spheres";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getSphereSize() const { return data_.sphereSize; }
    void setSphereSize(float v) { data_.sphereSize = v; }
    bool getStaggered() const { return data_.staggered; }
    void setStaggered(bool on) { data_.staggered = on; }
    float getHollowness() const { return data_.hollowness; }
    void setHollowness(float v) { data_.hollowness = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
