// "Turbulence": like FBM, but each octave adds the magnitude of its noise, and the sum is
// used as it is (clamped, not remapped). Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct TurbulenceData {
    BaseData head;
    int32_t octaves;
    float lacunarity;
    float gain;
    float scale;
};
static_assert(sizeof(TurbulenceData) == 52);
static_assert(offsetof(TurbulenceData, octaves) == 36 && offsetof(TurbulenceData, lacunarity) == 40 &&
              offsetof(TurbulenceData, gain) == 44 && offsetof(TurbulenceData, scale) == 48);

class GRAINSMITH_API TurbulenceTexture3D : public TextureKind<TurbulenceTexture3D, TurbulenceData> {
public:
    static constexpr char kName[] = "Turbulence";
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
