// "Plaid": a woven check of two periodic noise bands (across x and across y) blended with a
// background, plus two sets of fine random stripes, summed and clamped. Reads x and y only.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct PlaidData {
    BaseData head;
    float horizontalFrequency;  // applied to x
    float verticalFrequency;    // applied to y
    int32_t horizontalPeriod;   // in noise units
    int32_t verticalPeriod;
    float primaryBackground;
    float background2;
    float background3;
    float color1;
    float color2;
    float color3;
    float color4;
};
static_assert(sizeof(PlaidData) == 80);
static_assert(offsetof(PlaidData, horizontalFrequency) == 36 && offsetof(PlaidData, verticalFrequency) == 40 &&
              offsetof(PlaidData, horizontalPeriod) == 44 && offsetof(PlaidData, verticalPeriod) == 48 &&
              offsetof(PlaidData, primaryBackground) == 52 && offsetof(PlaidData, background2) == 56 &&
              offsetof(PlaidData, background3) == 60 && offsetof(PlaidData, color1) == 64 &&
              offsetof(PlaidData, color2) == 68 && offsetof(PlaidData, color3) == 72 &&
              offsetof(PlaidData, color4) == 76);

class GRAINSMITH_API PlaidTexture3D : public TextureKind<PlaidTexture3D, PlaidData> {
public:
    static constexpr char kName[] = "Plaid";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float getHorizontalFrequency() const { return data_.horizontalFrequency; }
    void setHorizontalFrequency(float v) { data_.horizontalFrequency = v; }
    float getVerticalFrequency() const { return data_.verticalFrequency; }
    void setVerticalFrequency(float v) { data_.verticalFrequency = v; }
    // The period setters take a float and store it truncated toward zero (the editor hands
    // its spin-box values over as floats).
    int getHorizontalPeriod() const { return data_.horizontalPeriod; }
    void setHorizontalPeriod(float v);
    int getVerticalPeriod() const { return data_.verticalPeriod; }
    void setVerticalPeriod(float v);
    float getPrimaryBackground() const { return data_.primaryBackground; }
    void setPrimaryBackground(float v) { data_.primaryBackground = v; }
    float getBackground2() const { return data_.background2; }
    void setBackground2(float v) { data_.background2 = v; }
    float getBackground3() const { return data_.background3; }
    void setBackground3(float v) { data_.background3 = v; }
    float getColor1() const { return data_.color1; }
    void setColor1(float v) { data_.color1 = v; }
    float getColor2() const { return data_.color2; }
    void setColor2(float v) { data_.color2 = v; }
    float getColor3() const { return data_.color3; }
    void setColor3(float v) { data_.color3 = v; }
    float getColor4() const { return data_.color4; }
    void setColor4(float v) { data_.color4 = v; }

    float evaluate(const float* p) const;

    // The periodic band noise: 1-D noise cross-faded with itself one period earlier, so
    // band(a + period) == band(a).
    static float band(float a, float period);
};

}  // namespace grainsmith
