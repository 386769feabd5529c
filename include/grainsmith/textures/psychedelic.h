// "Psychedelic": a grid of random greys whose cells are bent by noise.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct PsychedelicData {
    BaseData head;
    float frequency;  // warp strength and cell density
    float minColor;
    float maxColor;
};
static_assert(sizeof(PsychedelicData) == 48);
static_assert(offsetof(PsychedelicData, frequency) == 36 && offsetof(PsychedelicData, minColor) == 40 &&
              offsetof(PsychedelicData, maxColor) == 44);

class GRAINSMITH_API PsychedelicTexture3D : public TextureKind<PsychedelicTexture3D, PsychedelicData> {
public:
    static constexpr char kName[] = "Psychedelic";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    float getFrequency() const { return data_.frequency; }
    void setFrequency(float v) { data_.frequency = v; }
    float getMinColor() const { return data_.minColor; }
    void setMinColor(float v) { data_.minColor = v; }
    float getMaxColor() const { return data_.maxColor; }
    void setMaxColor(float v) { data_.maxColor = v; }

    // The object's own record, for callers that edit it in place.
    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
