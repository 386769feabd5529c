// "Cell Noise": double-precision cellular noise with a Poisson-distributed number of
// hashed feature points per cube. Always three-dimensional. A complete kind that neither
// the host nor the editor reaches by name; it is used by constructing the class.
#pragma once

#include "grainsmith/noise/cellular.h"
#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CellData {
    BaseData head;
    float scale;
    int32_t type;            // Worley::VoronoiType code
    int32_t distanceMethod;  // Worley::DistanceMethod code
};
static_assert(sizeof(CellData) == 48);
static_assert(offsetof(CellData, scale) == 36 && offsetof(CellData, type) == 40 &&
              offsetof(CellData, distanceMethod) == 44);

class GRAINSMITH_API CellTexture3D : public TextureKind<CellTexture3D, CellData> {
public:
    static constexpr char kName[] = "Cell Noise";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getScale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }
    // Codes of Worley::VoronoiType and Worley::DistanceMethod, as plain ints (a record may
    // carry any value).
    int getType() const { return data_.type; }
    void setType(int v) { data_.type = v; }
    int getDistanceMethod() const { return data_.distanceMethod; }
    void setDistanceMethod(int v) { data_.distanceMethod = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
