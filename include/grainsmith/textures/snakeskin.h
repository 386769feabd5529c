// "Snakeskin": diamond-shaped scales in diagonal rows across the x-y plane, separated by dark
// skin lines, optionally with rounded corners, lattice warping that varies their size and
// shape, and fine noise on their surface. z is never read.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

// Every field takes four bytes; a boolean sits in the first byte of its four.
struct SnakeskinData {
    BaseData head;
    float gridWidth;  // width of the skin lines, in scale-lattice units
    RecordBool randomizeColors;
    uint8_t padding1[3];
    float minColor;
    float maxColor;
    RecordBool scaleVariabilityEnable;
    uint8_t padding2[3];
    float scaleVariabilityFrequency;
    float scaleVariabilityAmplitude;
    RecordBool scaleNoiseAdd;
    uint8_t padding3[3];
    int32_t scaleNoiseOctaves;
    float scaleNoiseLacunarity;
    float scaleNoiseGain;
    float scaleNoiseDetail;
    RecordBool roundCornersEnable;
    uint8_t padding4[3];
    float roundCornersLeftRightRadius;
    float roundCornersTopBottomRadius;
};
static_assert(sizeof(SnakeskinData) == 96);
static_assert(offsetof(SnakeskinData, gridWidth) == 36 && offsetof(SnakeskinData, randomizeColors) == 40 &&
              offsetof(SnakeskinData, minColor) == 44 && offsetof(SnakeskinData, maxColor) == 48 &&
              offsetof(SnakeskinData, scaleVariabilityEnable) == 52 &&
              offsetof(SnakeskinData, scaleVariabilityFrequency) == 56 &&
              offsetof(SnakeskinData, scaleVariabilityAmplitude) == 60 && offsetof(SnakeskinData, scaleNoiseAdd) == 64 &&
              offsetof(SnakeskinData, scaleNoiseOctaves) == 68 && offsetof(SnakeskinData, scaleNoiseLacunarity) == 72 &&
              offsetof(SnakeskinData, scaleNoiseGain) == 76 && offsetof(SnakeskinData, scaleNoiseDetail) == 80 &&
              offsetof(SnakeskinData, roundCornersEnable) == 84 &&
              offsetof(SnakeskinData, roundCornersLeftRightRadius) == 88 &&
              offsetof(SnakeskinData, roundCornersTopBottomRadius) == 92);

class GRAINSMITH_API SnakeskinTexture3D : public TextureKind<SnakeskinTexture3D, SnakeskinData> {
public:
    static constexpr char kName[] = "Snakeskin";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float getGridWidth() const { return data_.gridWidth; }
    void setGridWidth(float v) { data_.gridWidth = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getMinColor() const { return data_.minColor; }
    void setMinColor(float v) { data_.minColor = v; }
    float getMaxColor() const { return data_.maxColor; }
    void setMaxColor(float v) { data_.maxColor = v; }
    bool getScaleVariabilityEnable() const { return data_.scaleVariabilityEnable; }
    void setScaleVariabilityEnable(bool on) { data_.scaleVariabilityEnable = on; }
    float getScaleVariabilityFrequency() const { return data_.scaleVariabilityFrequency; }
    void setScaleVariabilityFrequency(float v) { data_.scaleVariabilityFrequency = v; }
    float getScaleVariabilityAmplitude() const { return data_.scaleVariabilityAmplitude; }
    void setScaleVariabilityAmplitude(float v) { data_.scaleVariabilityAmplitude = v; }
    bool getScaleNoiseAdd() const { return data_.scaleNoiseAdd; }
    void setScaleNoiseAdd(bool on) { data_.scaleNoiseAdd = on; }
    int getScaleNoiseOctaves() const { return data_.scaleNoiseOctaves; }
    void setScaleNoiseOctaves(int v) { data_.scaleNoiseOctaves = v; }
    float getScaleNoiseLacunarity() const { return data_.scaleNoiseLacunarity; }
    void setScaleNoiseLacunarity(float v) { data_.scaleNoiseLacunarity = v; }
    float getScaleNoiseGain() const { return data_.scaleNoiseGain; }
    void setScaleNoiseGain(float v) { data_.scaleNoiseGain = v; }
    float getScaleNoiseDetail() const { return data_.scaleNoiseDetail; }
    void setScaleNoiseDetail(float v) { data_.scaleNoiseDetail = v; }
    bool getRoundCornersEnable() const { return data_.roundCornersEnable; }
    void setRoundCornersEnable(bool on) { data_.roundCornersEnable = on; }
    float getRoundCornersLeftRightRadius() const { return data_.roundCornersLeftRightRadius; }
    void setRoundCornersLeftRightRadius(float v) { data_.roundCornersLeftRightRadius = v; }
    float getRoundCornersTopBottomRadius() const { return data_.roundCornersTopBottomRadius; }
    void setRoundCornersTopBottomRadius(float v) { data_.roundCornersTopBottomRadius = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
