// "Stripes": stripes of a given width along x (0 on a stripe, 1 between), bent along y by
// one of six shapes, optionally each stripe of its own random grey. x and y only.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct StripesData {
    BaseData head;
    int32_t stripeStyle;
    float stripeWidth;
    float amplitude;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float minColor;
    float maxColor;
};
static_assert(sizeof(StripesData) == 60);
static_assert(offsetof(StripesData, stripeStyle) == 36 && offsetof(StripesData, stripeWidth) == 40 &&
              offsetof(StripesData, amplitude) == 44 && offsetof(StripesData, randomizeColors) == 48 &&
              offsetof(StripesData, minColor) == 52 && offsetof(StripesData, maxColor) == 56);

class GRAINSMITH_API StripesTexture3D : public TextureKind<StripesTexture3D, StripesData> {
public:
    static constexpr char kName[] = "Stripes";
    static constexpr int kMajor = 4;
    static ParamTable parameters();

    // How x is displaced along y. Values outside the enum draw straight stripes.
    enum Style : int32_t { PerlinNoise = 0, Ribbon = 1, Sawtooth = 2, Sine = 3, Straight = 4, Triangle = 5 };

    int getStripeStyle() const { return data_.stripeStyle; }
    void setStripeStyle(int v) { data_.stripeStyle = v; }
    float getStripeWidth() const { return data_.stripeWidth; }
    void setStripeWidth(float v) { data_.stripeWidth = v; }
    float getAmplitude() const { return data_.amplitude; }
    void setAmplitude(float v) { data_.amplitude = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getMinColor() const { return data_.minColor; }
    void setMinColor(float v) { data_.minColor = v; }
    float getMaxColor() const { return data_.maxColor; }
    void setMaxColor(float v) { data_.maxColor = v; }

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
