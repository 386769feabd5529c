// "Perlin Noise": an octave sum of improved gradient noise (lacunarity 2, gain 0.5),
// remapped from about [-1, 1] to [0, 1]. Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct PerlinData {
    BaseData head;
    int32_t octaves;
    float frequency;
    float amplitude;
};
static_assert(sizeof(PerlinData) == 48);
static_assert(offsetof(PerlinData, octaves) == 36 && offsetof(PerlinData, frequency) == 40 &&
              offsetof(PerlinData, amplitude) == 44);

class GRAINSMITH_API PerlinTexture3D : public TextureKind<PerlinTexture3D, PerlinData> {
public:
    static constexpr char kName[] = "Perlin Noise";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    int octaves() const { return data_.octaves; }
    void setOctaves(int v) { data_.octaves = v; }
    float frequency() const { return data_.frequency; }
    void setFrequency(float v) { data_.frequency = v; }
    float amplitude() const { return data_.amplitude; }
    void setAmplitude(float v) { data_.amplitude = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
