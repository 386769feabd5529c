// "FBM": fractional Brownian motion, an octave sum of improved gradient noise with a
// free lacunarity and gain, remapped to [0, 1]. Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct FBMData {
    BaseData head;
    int32_t octaves;
    float lacunarity;
    float gain;
    float scale;
};
static_assert(sizeof(FBMData) == 52);
static_assert(offsetof(FBMData, octaves) == 36 && offsetof(FBMData, lacunarity) == 40 &&
              offsetof(FBMData, gain) == 44 && offsetof(FBMData, scale) == 48);

class GRAINSMITH_API FBMTexture3D : public TextureKind<FBMTexture3D, FBMData> {
public:
    static constexpr char kName[] = "FBM";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    int octaves() const { return data_.octaves; }
    void setOctaves(int v) { data_.octaves = v; }
    float lacunarity() const { return data_.lacunarity; }
    void setLacunarity(float v) { data_.lacunarity = v; }
    float gain() const { return data_.gain; }
    void setGain(float v) { data_.gain = v; }
    float scale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
