// "Speckled Stone": improved noise raised to an integer power and quantised into a few
// shades between a base and a grain colour.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct SpeckledStoneData {
    BaseData head;
    float scale;  // speckle size: the point is divided by it
    int32_t nShades;
    int32_t exponent;
    float baseColor;
    float grainColor;
};
static_assert(sizeof(SpeckledStoneData) == 56);
static_assert(offsetof(SpeckledStoneData, scale) == 36 && offsetof(SpeckledStoneData, nShades) == 40 &&
              offsetof(SpeckledStoneData, exponent) == 44 && offsetof(SpeckledStoneData, baseColor) == 48 &&
              offsetof(SpeckledStoneData, grainColor) == 52);

class GRAINSMITH_API SpeckledStoneTexture3D : public TextureKind<SpeckledStoneTexture3D, SpeckledStoneData> {
public:
    static constexpr char kName[] = "Speckled Stone";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float scale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }
    // The two counts are integers in the record and in their setters; their getters return float.
    float nShades() const { return static_cast<float>(data_.nShades); }
    void setNShades(int v) { data_.nShades = v; }
    float exponent() const { return static_cast<float>(data_.exponent); }
    void setExponent(int v) { data_.exponent = v; }
    float baseColor() const { return data_.baseColor; }
    void setBaseColor(float v) { data_.baseColor = v; }
    float grainColor() const { return data_.grainColor; }
    void setGrainColor(float v) { data_.grainColor = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
