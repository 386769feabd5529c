// "Wood": rings around the y axis, their radius perturbed by an octave sum of improved
// gradient noise, shaded between a light and a dark colour. Always three-dimensional.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct WoodData {
    BaseData head;
    float ringScale;
    int32_t octaves;
    float frequency;
    float amplitude;
    float darkColor;
    float lightColor;
};
static_assert(sizeof(WoodData) == 60);
static_assert(offsetof(WoodData, ringScale) == 36 && offsetof(WoodData, octaves) == 40 &&
              offsetof(WoodData, frequency) == 44 && offsetof(WoodData, amplitude) == 48 &&
              offsetof(WoodData, darkColor) == 52 && offsetof(WoodData, lightColor) == 56);

class GRAINSMITH_API WoodTexture3D : public TextureKind<WoodTexture3D, WoodData> {
public:
    static constexpr char kName[] = "Wood";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    // The ring scale is a float in the record and in the setter, but this getter has
    // always answered with an int (truncated toward zero); callers rely on that shape.
    int ringScale() const;
    void setRingScale(float v) { data_.ringScale = v; }
    int octaves() const { return data_.octaves; }
    void setOctaves(int v) { data_.octaves = v; }
    float frequency() const { return data_.frequency; }
    void setFrequency(float v) { data_.frequency = v; }
    float amplitude() const { return data_.amplitude; }
    void setAmplitude(float v) { data_.amplitude = v; }
    float darkColor() const { return data_.darkColor; }
    void setDarkColor(float v) { data_.darkColor = v; }
    float lightColor() const { return data_.lightColor; }
    void setLightColor(float v) { data_.lightColor = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
