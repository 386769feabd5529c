// "Granite": a sum of folded improved gradient noise, |0.5 - n|, over octaves of doubling
// frequency. Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct GraniteData {
    BaseData head;
    int32_t octaves;
    float frequency;
};
static_assert(sizeof(GraniteData) == 44);
static_assert(offsetof(GraniteData, octaves) == 36 && offsetof(GraniteData, frequency) == 40);

class GRAINSMITH_API GraniteTexture3D : public TextureKind<GraniteTexture3D, GraniteData> {
public:
    static constexpr char kName[] = "Granite";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    int octaves() const { return data_.octaves; }
    void setOctaves(int v) { data_.octaves = v; }
    float frequency() const { return data_.frequency; }
    void setFrequency(float v) { data_.frequency = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
