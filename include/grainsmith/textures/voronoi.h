// "Voronoi": single-precision cellular noise (one tabled feature point per unit cube),
// in space or, in two-dimensional mode, in the layer of cubes at z = 0.
#pragma once

#include "grainsmith/noise/cellular.h"
#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct VoronoiData {
    BaseData head;
    float scale;
    int32_t type;            // Voronoi::VoronoiType code
    int32_t distanceMethod;  // Voronoi::DistanceMethod code
};
static_assert(sizeof(VoronoiData) == 48);
static_assert(offsetof(VoronoiData, scale) == 36 && offsetof(VoronoiData, type) == 40 &&
              offsetof(VoronoiData, distanceMethod) == 44);

class GRAINSMITH_API VoronoiTexture3D : public TextureKind<VoronoiTexture3D, VoronoiData> {
public:
    static constexpr char kName[] = "Voronoi";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getScale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }
    // Codes of Voronoi::VoronoiType and Voronoi::DistanceMethod. Kept as plain ints because a
    // record may carry any value.
    int getType() const { return data_.type; }
    void setType(int v) { data_.type = v; }
    int getDistanceMethod() const { return data_.distanceMethod; }
    void setDistanceMethod(int v) { data_.distanceMethod = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
