// "Camouflage": two layers of domain-warped noise blobs over a base colour. Layer 1 lies
// over layer 2; where neither layer's blob is hit the base colour shows.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CamouflageData {
    BaseData head;
    float frequency;  // warp strength
    float threshold;  // noise magnitude above which a layer's blob is hit
    float baseColor;
    float layer1Color;
    float layer2Color;
};
static_assert(sizeof(CamouflageData) == 56);
static_assert(offsetof(CamouflageData, frequency) == 36 && offsetof(CamouflageData, threshold) == 40 &&
              offsetof(CamouflageData, baseColor) == 44 && offsetof(CamouflageData, layer1Color) == 48 &&
              offsetof(CamouflageData, layer2Color) == 52);

class GRAINSMITH_API CamouflageTexture3D : public TextureKind<CamouflageTexture3D, CamouflageData> {
public:
    static constexpr char kName[] = "Camouflage";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    float getFrequency() const { return data_.frequency; }
    void setFrequency(float v) { data_.frequency = v; }
    float getThreshold() const { return data_.threshold; }
    void setThreshold(float v) { data_.threshold = v; }
    float getBaseColor() const { return data_.baseColor; }
    void setBaseColor(float v) { data_.baseColor = v; }
    float getLayer1Color() const { return data_.layer1Color; }
    void setLayer1Color(float v) { data_.layer1Color = v; }
    float getLayer2Color() const { return data_.layer2Color; }
    void setLayer2Color(float v) { data_.layer2Color = v; }

    // The object's own record, for callers that edit it in place.
    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
