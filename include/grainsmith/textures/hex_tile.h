// "HexTile": rows of pointed-top hexagonal tiles separated by mortar, each tile optionally
// of its own random grey. Flat: reads x and y only; mirrored about x = 0, and the lower
// half-plane repeats the upper one shifted by the tile radius.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct HexTileData {
    BaseData head;
    float tileColor;
    float mortarColor;
    float tileRadius;
    float mortarThickness;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float minColor;
    float maxColor;
};
static_assert(sizeof(HexTileData) == 64);
static_assert(offsetof(HexTileData, tileColor) == 36 && offsetof(HexTileData, mortarColor) == 40 &&
              offsetof(HexTileData, tileRadius) == 44 && offsetof(HexTileData, mortarThickness) == 48 &&
              offsetof(HexTileData, randomizeColors) == 52 && offsetof(HexTileData, minColor) == 56 &&
              offsetof(HexTileData, maxColor) == 60);

class GRAINSMITH_API HexTileTexture3D : public TextureKind<HexTileTexture3D, HexTileData> {
public:
    static constexpr char kName[] = "HexTile";
    static constexpr int kMajor = 3;
    static ParamTable parameters();

    float getTileColor() const { return data_.tileColor; }
    void setTileColor(float v) { data_.tileColor = v; }
    float getMortarColor() const { return data_.mortarColor; }
    void setMortarColor(float v) { data_.mortarColor = v; }
    float getTileRadius() const { return data_.tileRadius; }
    void setTileRadius(float v) { data_.tileRadius = v; }
    float getMortarThickness() const { return data_.mortarThickness; }
    void setMortarThickness(float v) { data_.mortarThickness = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getMinColor() const { return data_.minColor; }
    void setMinColor(float v) { data_.minColor = v; }
    float getMaxColor() const { return data_.maxColor; }
    void setMaxColor(float v) { data_.maxColor = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
