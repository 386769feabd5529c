// "Weave": woven cloth in the x-y plane. Horizontal threads run along x, one per unit row,
// vertical threads along y, one per unit column; at each crossing one thread lies on top,
// alternating like a chequerboard ("Simple") or along diagonals that reverse every eight
// columns ("Herringbone"). Optional shading makes the threads pass over and under. z is never
// read. Records of major version 2 (92 bytes) are migrated.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct WeaveData {
    BaseData head;
    int32_t pattern;  // 0 simple, any other value herringbone
    float backgroundColor;
    float horizontalColor;
    float verticalColor;
    float horizontalWidth;  // fraction of the row
    float verticalWidth;    // fraction of the column
    RecordBool horizontalRandomize;
    uint8_t padding1[3];
    float horizontalMinColor;
    float horizontalMaxColor;
    RecordBool verticalRandomize;
    uint8_t padding2[3];
    float verticalMinColor;
    float verticalMaxColor;
    RecordBool shadingEnable;
    uint8_t padding3[3];
    float shadingHorizontalStrength;
    float shadingVerticalStrength;
};
static_assert(sizeof(WeaveData) == 96);
static_assert(offsetof(WeaveData, pattern) == 36 && offsetof(WeaveData, backgroundColor) == 40 &&
              offsetof(WeaveData, horizontalColor) == 44 && offsetof(WeaveData, verticalColor) == 48 &&
              offsetof(WeaveData, horizontalWidth) == 52 && offsetof(WeaveData, verticalWidth) == 56 &&
              offsetof(WeaveData, horizontalRandomize) == 60 && offsetof(WeaveData, horizontalMinColor) == 64 &&
              offsetof(WeaveData, horizontalMaxColor) == 68 && offsetof(WeaveData, verticalRandomize) == 72 &&
              offsetof(WeaveData, verticalMinColor) == 76 && offsetof(WeaveData, verticalMaxColor) == 80 &&
              offsetof(WeaveData, shadingEnable) == 84 && offsetof(WeaveData, shadingHorizontalStrength) == 88 &&
              offsetof(WeaveData, shadingVerticalStrength) == 92);

class GRAINSMITH_API WeaveTexture3D : public TextureKind<WeaveTexture3D, WeaveData> {
public:
    enum Pattern : int32_t { Simple = 0, Herringbone = 1 };

    static constexpr char kName[] = "Weave";
    static constexpr int kMajor = 3;
    static constexpr int kMigratesFromMajor = 2;
    static constexpr int kOldRecordSize = 92;
    static ParamTable parameters();

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    int getPattern() const { return data_.pattern; }
    void setPattern(int v) { data_.pattern = v; }
    float getBackgroundColor() const { return data_.backgroundColor; }
    void setBackgroundColor(float v) { data_.backgroundColor = v; }
    float getHorizontalColor() const { return data_.horizontalColor; }
    void setHorizontalColor(float v) { data_.horizontalColor = v; }
    float getVerticalColor() const { return data_.verticalColor; }
    void setVerticalColor(float v) { data_.verticalColor = v; }
    float getHorizontalWidth() const { return data_.horizontalWidth; }
    void setHorizontalWidth(float v) { data_.horizontalWidth = v; }
    float getVerticalWidth() const { return data_.verticalWidth; }
    void setVerticalWidth(float v) { data_.verticalWidth = v; }
    bool getHorizontalRandomize() const { return data_.horizontalRandomize; }
    void setHorizontalRandomize(bool on) { data_.horizontalRandomize = on; }
    float getHorizontalMinColor() const { return data_.horizontalMinColor; }
    void setHorizontalMinColor(float v) { data_.horizontalMinColor = v; }
    float getHorizontalMaxColor() const { return data_.horizontalMaxColor; }
    void setHorizontalMaxColor(float v) { data_.horizontalMaxColor = v; }
    bool getVerticalRandomize() const { return data_.verticalRandomize; }
    void setVerticalRandomize(bool on) { data_.verticalRandomize = on; }
    float getVerticalMinColor() const { return data_.verticalMinColor; }
    void setVerticalMinColor(float v) { data_.verticalMinColor = v; }
    float getVerticalMaxColor() const { return data_.verticalMaxColor; }
    // Writes the horizontal maximum, exactly like setHorizontalMaxColor: kept as the interface
    // has it; the vertical maximum changes only through a record.
    void setVerticalMaxColor(float v) { data_.horizontalMaxColor = v; }
    bool getShadingEnable() const { return data_.shadingEnable; }
    void setShadingEnable(bool on) { data_.shadingEnable = on; }
    float getShadingHorizontalStrength() const { return data_.shadingHorizontalStrength; }
    void setShadingHorizontalStrength(float v) { data_.shadingHorizontalStrength = v; }
    float getShadingVerticalStrength() const { return data_.shadingVerticalStrength; }
    void setShadingVerticalStrength(float v) { data_.shadingVerticalStrength = v; }

    float evaluate(const float* p) const;

    // Moves the fields of a version 2 record (92 bytes, no pattern field, shading as a float)
    // into place; the head and the pattern keep their values.
    void migrate(const char* oldRecord);

private:
    float simple(float x, float y) const;
    float herringbone(float x, float y) const;
    // The shared thread geometry: the colour at cell fractions (fx, fy) of column i and row j
    // with the vertical or the horizontal thread on top; alongX and alongY (0 to 1) are the
    // shading arguments of the thread along x and the thread along y where it lies on top.
    float crossing(float fx, float fy, int32_t i, int32_t j, bool verticalOnTop, float alongX,
                   float alongY) const;
};

}  // namespace grainsmith
