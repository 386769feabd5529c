// "Dents": six octaves of folded improved noise, summed, cubed and scaled.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct DentedData {
    BaseData head;
    float magnitude;
    float scale;
};
static_assert(sizeof(DentedData) == 44);
static_assert(offsetof(DentedData, magnitude) == 36 && offsetof(DentedData, scale) == 40);

class GRAINSMITH_API DentedTexture3D : public TextureKind<DentedTexture3D, DentedData> {
public:
    static constexpr char kName[] = "Dents";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getMagnitude() const { return data_.magnitude; }
    void setMagnitude(float v) { data_.magnitude = v; }
    float getScale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
