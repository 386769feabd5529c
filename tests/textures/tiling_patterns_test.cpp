// HexTile and Houndstooth against values worked by hand and from the reference model
// (tests/reference/kinds_model.py, print_pattern_kinds).
#include <gtest/gtest.h>

#include <cstring>

#include "grainsmith/textures/hex_tile.h"
#include "grainsmith/textures/houndstooth.h"
#include "pattern_test_util.h"

using namespace grainsmith;
using grainsmith::testing::at;
using grainsmith::testing::bitMap;

TEST(HexTile, TilesMortarAndTheirLayout) {
    HexTileTexture3D t;
    EXPECT_EQ(at(t, 0.0f, 0.1f, 0.0f), 0.0f);   // x' = 0 lies in the vertical joint
    EXPECT_EQ(at(t, 0.17f, 0.1f, 0.0f), 1.0f);
    EXPECT_EQ(bitMap(t, -0.9, -0.7, 0.0, 0.113, 0.097),
              "1111111111011011111111111111111101111111111111111111111111111111");
    t.setTileRadius(0.3f);
    t.setMortarThickness(0.05f);
    EXPECT_EQ(bitMap(t, -0.9, -0.7, 0.0, 0.113, 0.097),
              "1111111111111111010110111011111110111111101111111111100111100111");
}

TEST(HexTile, MirroredAboutXAndShiftedBelowY) {
    HexTileTexture3D t;
    t.setRandomizeColors(true);  // so that the tile, not only tile-or-mortar, must match
    const float R = t.getTileRadius();
    for (float x = 0.013f; x < 1.5f; x += 0.0517f) {
        for (float y = 0.007f; y < 1.2f; y += 0.0431f) {
            EXPECT_EQ(at(t, -x, y, 0.0f), at(t, x, y, 0.0f)) << x << " " << y;
            EXPECT_EQ(at(t, x, -y, 0.0f), at(t, x, y + R, 0.0f)) << x << " " << y;
            EXPECT_EQ(at(t, x, y, 5.0f), at(t, x, y, 0.0f));
        }
    }
}

TEST(HexTile, RandomGreysPerTile) {
    HexTileTexture3D t;
    t.setRandomizeColors(true);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.0f), 0x1.7edb4ap-1f);
    EXPECT_EQ(at(t, -0.31f, 0.45f, 0.0f), 0x1.21744p-1f);
    EXPECT_EQ(at(t, 0.52f, -0.41f, 0.0f), 0x1.517298p-1f);
    EXPECT_EQ(at(t, 1.13f, 2.2f, 0.0f), 0x1.892824p-1f);
    t.setMortarColor(0.25f);
    EXPECT_EQ(at(t, 0.0f, 0.1f, 0.0f), 0.25f);
}

TEST(Houndstooth, FourVariantsOverTwoPeriods) {
    HoundstoothTexture3D t;
    EXPECT_EQ(t.getPattern(), HoundstoothTexture3D::Traditional);
    EXPECT_EQ(at(t, 0.2f, 0.2f, 0.0f), 1.0f);  // light cell
    EXPECT_EQ(at(t, 1.2f, 1.2f, 0.0f), 0.0f);  // dark cell
    EXPECT_EQ(at(t, 0.2f, 1.2f, 0.0f), 0.0f);  // x even only, s = 0.4
    EXPECT_EQ(at(t, 0.4f, 1.4f, 0.0f), 1.0f);  // s = 0.8
    const char* const expected[] = {
        "0111000011100001100000110000010000001000000000000000000011110001111001111100111110111111111111111101"
        "100000110000010000001000000000000000000011110001111000111100111110011111011111101101110000111000",
        "1111101111110111110111111011011111101111101111110111110000110000011000011000001100000100000010100011"
        "110111111011011111101111111111110111111000110000011000011100001110000110000011000011111011111101",
        "1111001111100101110110111011011111001111101111100111110001100000110000001100000110000001000000100011"
        "110110111011011111001111100111100111110001100000100000001100001110000001000000100011110011111001",
        "1111110111111011111011111001011101101110110111110011111001100000110000010000001000000001000000100011"
        "111001111100111100101110010111010011101000110000010000011000001000000001000000100011111101111100",
    };
    for (int pattern = 0; pattern < 4; ++pattern) {
        t.setPattern(pattern);
        EXPECT_EQ(bitMap(t, -2.05, -1.95, 0.0, 0.29, 0.31, 14), expected[pattern]) << pattern;
        EXPECT_EQ(bitMap(t, -2.05, -1.95, -7.5, 0.29, 0.31, 14), expected[pattern]);  // z is never read
    }
    for (int other : {7, -1, 4}) {
        t.setPattern(other);
        EXPECT_EQ(bitMap(t, -2.05, -1.95, 0.0, 0.29, 0.31, 14), expected[3]) << other;
    }
}

TEST(Houndstooth, BandThresholds) {
    HoundstoothTexture3D t;
    // Traditional: the band edge s = 0.5 belongs to the upper band.
    EXPECT_EQ(at(t, 0.5f, 1.0f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 0x1.fffffep-2f, 1.0f, 0.0f), 0.0f);
    // Chevron: the diagonal s = 1 belongs to the lower triangle.
    t.setPattern(HoundstoothTexture3D::Chevron);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 1.5f, 1.5f, 0.0f), 0.0f);
    EXPECT_EQ(at(t, 0.8f, 0.8f, 0.0f), 0.0f);
    // Onyx: the first dark band starts at 0.5 - 2a, a = 0.35355 x 0.33333334 in float.
    t.setPattern(HoundstoothTexture3D::Onyx);
    EXPECT_EQ(at(t, 0x1.0ea4a8p-2f, 1.0f, 0.0f), 0.0f);
    EXPECT_EQ(at(t, 0x1.0ea4a6p-2f, 1.0f, 0.0f), 1.0f);
    // Sherlock compares in double: the float nearest 1.19188 lies below it, so a sum equal
    // to that float is still in the light band.
    t.setPattern(HoundstoothTexture3D::Sherlock);
    EXPECT_EQ(at(t, 0x1.b11f0cp+0f, 0.5f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 0x1.b11f0ep+0f, 0.5f, 0.0f), 0.0f);

    // Every other band edge of the mixed cells (x even only: y in [1, 2); y even only:
    // x in [1, 2)), at the edge's sum and one float below it.
    struct Edge {
        int pattern;
        float x, y, value;
    };
    const Edge edges[] = {
        {1, 0x1.0ea4a8p-2f, 0x1p+0f, 0.0f},  {1, 0x1.43a92ap+0f, 0x1p+1f, 0.0f},
        {1, 0x1.3c56d6p-1f, 0x1p+0f, 1.0f},  {1, 0x1.3c56d4p-1f, 0x1p+0f, 0.0f},
        {1, 0x1.9e2b6ap+0f, 0x1p+1f, 0.0f},  {1, 0x1.c3a92cp-1f, 0x1.8p+0f, 0.0f},
        {1, 0x1.c3a928p-1f, 0x1.8p+0f, 1.0f}, {1, 0x1.e1d496p+0f, 0x1.4p+1f, 0.0f},
        {1, 0x1.e1d494p+0f, 0x1.4p+1f, 1.0f}, {2, 0x1.935cap-2f, 0x1p+0f, 0.0f},
        {2, 0x1.9b28d8p+0f, 0x1p+1f, 0.0f},  {2, 0x1.3b83dp-2f, 0x1.8p+0f, 1.0f},
        {2, 0x1.3b83d8p-2f, 0x1.8p+0f, 1.0f}, {2, 0x1.b11f0ap+0f, 0x1.4p+1f, 1.0f},
        {3, 0x1.8p+0f, 0x1p+1f, 0.0f},       {3, 0x1p-1f, 0x1.8p+0f, 0.0f},
        {3, 0x1.8p+0f, 0x1.4p+1f, 1.0f},     {3, 0x1.fffffep-1f, 0x1p+0f, 1.0f},
        {3, 0x1.fffffcp-1f, 0x1.8p+0f, 0.0f}, {3, 0x1.fffffep+0f, 0x1.4p+1f, 1.0f},
    };
    for (const Edge& e : edges) {
        t.setPattern(e.pattern);
        EXPECT_EQ(at(t, e.x, e.y, 0.0f), e.value) << e.pattern << " " << e.x << " " << e.y;
    }
}

TEST(Houndstooth, RandomGreys) {
    HoundstoothTexture3D t;
    t.setRandomizeColors(true);
    const float points[][2] = {{0.3f, 0.7f}, {-1.37f, 0.51f}, {2.45f, -0.15f}, {1.62f, 3.41f}, {-0.62f, -2.33f}, {1.8f, 1.9f}};
    const float expected[4][6] = {
        {0x1.77ec58p-1f, 0x1.066454p-2f, 0x1.9e4174p-1f, 0x1.62ba34p-1f, 0x1.4d3502p-1f, 0x1.49b1dp-1f},
        {1.0f, 1.0f, 1.0f, 0x1.42b3p-2f, 0x1.d4dd72p-3f, 0x1.42e882p-3f},
        {1.0f, 1.0f, 0x1.f8b4ep-3f, 0x1.42b3p-2f, 0x1.d4dd72p-3f, 0x1.42e882p-3f},
        {0x1.69046ep-1f, 0x1.b6808ep-1f, 0x1.7e10c8p-2f, 0x1.42b3p-2f, 0x1.d4dd72p-3f, 0x1.42e882p-3f},
    };
    for (int pattern = 0; pattern < 4; ++pattern) {
        t.setPattern(pattern);
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(at(t, points[i][0], points[i][1], 0.0f), expected[pattern][i]) << pattern << " " << i;
    }
    // Variability 0: exactly the base greys; Onyx and Sherlock keep their light regions white.
    t.setVariability(0.0f);
    const float cells[][2] = {{0.3f, 0.7f}, {1.2f, 1.2f}, {0.2f, 1.2f}, {1.2f, 0.2f}};
    const float plain[4][4] = {{0.75f, 0.25f, 0.75f, 0.25f},
                               {1.0f, 0.25f, 0.25f, 0.25f},
                               {1.0f, 0.25f, 1.0f, 0.25f},
                               {0.75f, 0.25f, 0.25f, 0.75f}};
    for (int pattern = 0; pattern < 4; ++pattern) {
        t.setPattern(pattern);
        for (int i = 0; i < 4; ++i) EXPECT_EQ(at(t, cells[i][0], cells[i][1], 0.0f), plain[pattern][i]) << pattern;
    }
}
