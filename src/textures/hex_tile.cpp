#include "grainsmith/textures/hex_tile.h"

#include <cmath>

#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable HexTileTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "tileColor", .type = FieldType::Float32, .offset = offsetof(HexTileData, tileColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Tile", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of every tile when colours are not randomized."},
        {.name = "mortarColor", .type = FieldType::Float32, .offset = offsetof(HexTileData, mortarColor),
         .defaultValue = 0.0, .group = "Colors", .label = "Mortar", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the mortar between the tiles."},
        {.name = "tileRadius", .type = FieldType::Float32, .offset = offsetof(HexTileData, tileRadius),
         .defaultValue = 0.2, .group = "Dimensions", .label = "Tile Radius", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.01, .decimals = 3,
         .description = "Distance from a tile's centre to its corners."},
        {.name = "mortarThickness", .type = FieldType::Float32, .offset = offsetof(HexTileData, mortarThickness),
         .defaultValue = 0.02, .group = "Dimensions", .label = "Mortar Thickness", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.001, .decimals = 3,
         .description = "Full width of the mortar joint between two tiles."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(HexTileData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each tile its own random grey between the minimum and the maximum."},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(HexTileData, minColor),
         .defaultValue = 0.5, .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random tile grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(HexTileData, maxColor),
         .defaultValue = 1.0, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random tile grey."},
    };
    return table;
}

namespace {

// The square root of 3, taken in double and rounded to float once (a thread-safe static).
float sqrt3() {
    static const float s = static_cast<float>(std::sqrt(3.0));
    return s;
}

}  // namespace

float HexTileTexture3D::evaluate(const float* p) const {
    const float S = sqrt3();
    const float R = data_.tileRadius;
    const float x = std::fabs(p[0]);
    const float y = p[1] < 0.0f ? std::fabs(p[1]) + R : p[1];

    const float rowHeight = 1.5f * R, colWidth = S * R;
    const float t = data_.mortarThickness * 0.5f;

    const float fy = std::fmod(y, 1.5f * R);
    float row = std::floor(y / rowHeight);
    const float odd = std::fmod(row * 0.5f, 1.0f);
    const float xs = odd == 0.5f ? S * R * 0.5f + x : x;  // odd rows are shifted by half a tile
    float col = std::floor(xs / colWidth);
    const float fx = std::fmod(xs, S * R);

    bool mortar;
    if (fy < R) {
        // Band of the hexagons' vertical sides.
        mortar = !(t <= fx && fx < S * R - t);
    } else {
        // Band of the slanted edges: above the roof line the point is in the next row's tile.
        const float half = S * R * 0.5f;
        const float d = (fy - R) * S;
        const float line = half - std::fabs(fx - half);
        if (d > line) {
            if (odd == 0.5f) col -= 1.0f;
            row += 1.0f;
            if (fx > half) col += 1.0f;
        }
        mortar = line - S * t <= d && d < line + S * t;
    }

    float G = data_.tileColor;
    if (data_.randomizeColors) G = data_.minColor + (data_.maxColor - data_.minColor) * cellRandom2(col, row);
    const float m = mortar ? 1.0f : 0.0f;
    return (1.0f - m) * G + m * data_.mortarColor;
}

}  // namespace grainsmith
