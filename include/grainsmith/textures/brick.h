// "Brick": a solid brick wall in running bond (courses and layers shifted by half a brick)
// or herringbone (two-by-one bricks alternating along diagonal bands), with optional
// rounded corners, per-course jitter and one random grey per brick. Version 3 records
// (64 bytes) are migrated on import.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct BrickData {
    BaseData head;
    int32_t pattern;
    float brickHeight;
    float brickWidth;
    float brickDepth;
    float mortarThickness;
    RecordBool roundedCornersEnabled;
    uint8_t padding1[3];
    float roundedCornersRadius;
    RecordBool rowOffsetVariabilityEnabled;
    uint8_t padding2[3];
    float rowOffsetVariabilityAmplitude;
    float brickColor;
    float mortarColor;
    RecordBool randomizeColors;
    uint8_t padding3[3];
    float minColor;
    float maxColor;
};
static_assert(sizeof(BrickData) == 92);
static_assert(offsetof(BrickData, pattern) == 36 && offsetof(BrickData, brickHeight) == 40 &&
              offsetof(BrickData, brickWidth) == 44 && offsetof(BrickData, brickDepth) == 48 &&
              offsetof(BrickData, mortarThickness) == 52 && offsetof(BrickData, roundedCornersEnabled) == 56 &&
              offsetof(BrickData, roundedCornersRadius) == 60 &&
              offsetof(BrickData, rowOffsetVariabilityEnabled) == 64 &&
              offsetof(BrickData, rowOffsetVariabilityAmplitude) == 68 && offsetof(BrickData, brickColor) == 72 &&
              offsetof(BrickData, mortarColor) == 76 && offsetof(BrickData, randomizeColors) == 80 &&
              offsetof(BrickData, minColor) == 84 && offsetof(BrickData, maxColor) == 88);

// The older 64-byte layout that import still accepts (major version 3).
struct BrickDataV3 {
    BaseData head;
    float brickHeight;
    float brickWidth;
    float brickDepth;
    float mortarThickness;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float minColor;
    float maxColor;
};
static_assert(sizeof(BrickDataV3) == 64);
static_assert(offsetof(BrickDataV3, brickHeight) == 36 && offsetof(BrickDataV3, brickWidth) == 40 &&
              offsetof(BrickDataV3, brickDepth) == 44 && offsetof(BrickDataV3, mortarThickness) == 48 &&
              offsetof(BrickDataV3, randomizeColors) == 52 && offsetof(BrickDataV3, minColor) == 56 &&
              offsetof(BrickDataV3, maxColor) == 60);

class GRAINSMITH_API BrickTexture3D : public TextureKind<BrickTexture3D, BrickData> {
public:
    static constexpr char kName[] = "Brick";
    static constexpr int kMajor = 4;
    static constexpr int kMigratesFromMajor = 3;
    static ParamTable parameters();

    // Every value other than RunningBond evaluates as herringbone.
    enum Pattern : int32_t { Herringbone = 0, RunningBond = 1 };

    int getPattern() const { return data_.pattern; }
    void setPattern(int v) { data_.pattern = v; }
    float getBrickHeight() const { return data_.brickHeight; }
    void setBrickHeight(float v) { data_.brickHeight = v; }
    float getBrickWidth() const { return data_.brickWidth; }
    void setBrickWidth(float v) { data_.brickWidth = v; }
    float getBrickDepth() const { return data_.brickDepth; }
    void setBrickDepth(float v) { data_.brickDepth = v; }
    float getMortarThickness() const { return data_.mortarThickness; }
    void setMortarThickness(float v) { data_.mortarThickness = v; }
    bool getRoundedCornersEnabled() const { return data_.roundedCornersEnabled; }
    void setRoundedCornersEnabled(bool on) { data_.roundedCornersEnabled = on; }
    float getRoundedCornersRadius() const { return data_.roundedCornersRadius; }
    void setRoundedCornersRadius(float v) { data_.roundedCornersRadius = v; }
    bool getRowOffsetVariabilityEnabled() const { return data_.rowOffsetVariabilityEnabled; }
    void setRowOffsetVariabilityEnabled(bool on) { data_.rowOffsetVariabilityEnabled = on; }
    float getRowOffsetVariabilityAmplitude() const { return data_.rowOffsetVariabilityAmplitude; }
    void setRowOffsetVariabilityAmplitude(float v) { data_.rowOffsetVariabilityAmplitude = v; }
    float getBrickColor() const { return data_.brickColor; }
    void setBrickColor(float v) { data_.brickColor = v; }
    float getMortarColor() const { return data_.mortarColor; }
    void setMortarColor(float v) { data_.mortarColor = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getMinColor() const { return data_.minColor; }
    void setMinColor(float v) { data_.minColor = v; }
    float getMaxColor() const { return data_.maxColor; }
    void setMaxColor(float v) { data_.maxColor = v; }

    float evaluate(const float* p) const;

private:
    friend class TextureKind<BrickTexture3D, BrickData>;

    // Takes the seven fields of a version 3 record; everything else keeps its value.
    void migrate(const char* oldRecord);

    float runningBond(const float* p) const;
    float herringbone(const float* p) const;
};

}  // namespace grainsmith
