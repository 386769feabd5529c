// "Erosion": the folded-noise sum of "Dents" (from a higher start frequency), turned into
// pits by a narrow smooth step: 1 almost everywhere, 0 where the cubed sum is tiny.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct ErodedData {
    BaseData head;
    float magnitude;
    float scale;
};
static_assert(sizeof(ErodedData) == 44);
static_assert(offsetof(ErodedData, magnitude) == 36 && offsetof(ErodedData, scale) == 40);

class GRAINSMITH_API ErodedTexture3D : public TextureKind<ErodedTexture3D, ErodedData> {
public:
    static constexpr char kName[] = "Erosion";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getMagnitude() const { return data_.magnitude; }
    void setMagnitude(float v) { data_.magnitude = v; }
    float getScale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
