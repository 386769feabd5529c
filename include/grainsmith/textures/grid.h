// "Grid": lines of a given width along the unit lattice (0), with the cubes between them
// white or, optionally, each of its own random grey. Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct GridData {
    BaseData head;
    float stripeWidth;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float minColor;
    float maxColor;
};
static_assert(sizeof(GridData) == 52);
static_assert(offsetof(GridData, stripeWidth) == 36 && offsetof(GridData, randomizeColors) == 40 &&
              offsetof(GridData, minColor) == 44 && offsetof(GridData, maxColor) == 48);

class GRAINSMITH_API GridTexture3D : public TextureKind<GridTexture3D, GridData> {
public:
    static constexpr char kName[] = "Grid";
    static constexpr int kMajor = 3;
    static ParamTable parameters();

    float getStripeWidth() const { return data_.stripeWidth; }
    void setStripeWidth(float v) { data_.stripeWidth = v; }
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
