// The record and accessors shared by "FBM" and "Turbulence": both sum octaves of improved
// gradient noise with a free lacunarity and gain over the same 52-byte layout, and differ
// only in how each octave's noise is folded and how the sum becomes a grey.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct FractalSumData {
    BaseData head;
    int32_t octaves;
    float lacunarity;
    float gain;
    float scale;
};
static_assert(sizeof(FractalSumData) == 52);
static_assert(offsetof(FractalSumData, octaves) == 36 && offsetof(FractalSumData, lacunarity) == 40 &&
              offsetof(FractalSumData, gain) == 44 && offsetof(FractalSumData, scale) == 48);

// Parameters of both kinds: octaves, lacunarity, gain and scale with their defaults.
GRAINSMITH_API ParamTable fractalSumParameters();

template <class Derived>
class FractalSumKind : public TextureKind<Derived, FractalSumData> {
public:
    static ParamTable parameters() { return fractalSumParameters(); }

    int octaves() const { return this->data_.octaves; }
    void setOctaves(int v) { this->data_.octaves = v; }
    float lacunarity() const { return this->data_.lacunarity; }
    void setLacunarity(float v) { this->data_.lacunarity = v; }
    float gain() const { return this->data_.gain; }
    void setGain(float v) { this->data_.gain = v; }
    float scale() const { return this->data_.scale; }
    void setScale(float v) { this->data_.scale = v; }
};

}  // namespace grainsmith
