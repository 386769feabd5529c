// "Spiral": stripes of a given width (0) on white (1) that wind round the y axis, turning
// by `spiralRate` radians per unit of y; in two-dimensional mode they slant instead.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct SpiralData {
    BaseData head;
    float stripeWidth;
    float spiralRate;
};
static_assert(sizeof(SpiralData) == 44);
static_assert(offsetof(SpiralData, stripeWidth) == 36 && offsetof(SpiralData, spiralRate) == 40);

class GRAINSMITH_API SpiralTexture3D : public TextureKind<SpiralTexture3D, SpiralData> {
public:
    static constexpr char kName[] = "Spiral";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getStripeWidth() const { return data_.stripeWidth; }
    void setStripeWidth(float v) { data_.stripeWidth = v; }
    float getSpiralRate() const { return data_.spiralRate; }
    void setSpiralRate(float v) { data_.spiralRate = v; }

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
