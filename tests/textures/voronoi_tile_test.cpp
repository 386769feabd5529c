#include "grainsmith/textures/voronoi_tile.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace grainsmith {
namespace {

// Expected values come from hand-worked geometry and from natural_kinds_reference.py, an
// independent model of the kind (single-precision steps rounded to float32 one by one, the
// double-precision sums kept in double).

float value(const VoronoiTileTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

constexpr int kPlanar = 4;

TEST(VoronoiTileTexture, Defaults) {
    const VoronoiTileTexture3D t;
    EXPECT_EQ(VoronoiTileTexture3D::name(), "Voronoi Tiles");
    EXPECT_EQ(t.getCellVariability(), 0.5f);
    EXPECT_FALSE(t.getCellRandomizeColors());
    EXPECT_EQ(t.getCellMinColor(), 0.5f);
    EXPECT_EQ(t.getCellMaxColor(), 1.0f);
    EXPECT_FALSE(t.getCellAddNoise());
    EXPECT_EQ(t.getCellOctaves(), 2);
    EXPECT_EQ(t.getCellLacunarity(), 2.0f);
    EXPECT_EQ(t.getCellGain(), 0.5f);
    EXPECT_EQ(t.getCellDetail(), 2.0f);
    EXPECT_EQ(t.getBoundaryThickness(), 0.05f);
    EXPECT_FALSE(t.getBoundaryAddNoise());
    EXPECT_EQ(t.getBoundaryOctaves(), 4);
    EXPECT_EQ(t.getBoundaryLacunarity(), 2.0f);
    EXPECT_EQ(t.getBoundaryGain(), 0.5f);
    EXPECT_EQ(t.getBoundaryDetail(), 2.0f);
}

TEST(VoronoiTileTexture, OctaveSettersTruncateTheirFloat) {
    VoronoiTileTexture3D t;
    t.setCellOctaves(3.9f);
    t.setBoundaryOctaves(-2.7f);
    EXPECT_EQ(t.getCellOctaves(), 3);
    EXPECT_EQ(t.getBoundaryOctaves(), -2);
    t.setCellOctaves(std::numeric_limits<float>::quiet_NaN());
    t.setBoundaryOctaves(1e30f);
    EXPECT_EQ(t.getCellOctaves(), INT32_MIN);
    EXPECT_EQ(t.getBoundaryOctaves(), INT32_MIN);
}

TEST(VoronoiTileTexture, DefaultsGiveOnlyTilesAndGrout) {
    bool sawTile = false, sawGrout = false;
    VoronoiTileTexture3D t;
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float x = -3.0f; x < 3.0f; x += 0.071f)
            for (float y = -2.0f; y < 2.0f; y += 0.13f) {
                const float v = value(t, x, y, 0.7f * x - y);
                EXPECT_TRUE(v == 0.0f || v == 1.0f) << v;
                sawTile |= v == 1.0f;
                sawGrout |= v == 0.0f;
            }
    }
    EXPECT_TRUE(sawTile);
    EXPECT_TRUE(sawGrout);
    // (4.18, -1.6) in the plane lies in the grout: the two nearest feature points are 0.0337
    // apart in distance, against a grout ratio of 0.0458.
    EXPECT_EQ(value(t, 4.18f, -1.6f, 4.24f), 0.0f);
}

TEST(VoronoiTileTexture, ZeroThicknessMakesEveryPointATile) {
    VoronoiTileTexture3D t;
    t.setBoundaryThickness(0.0f);
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float x = -3.0f; x < 3.0f; x += 0.071f)
            for (float y = -2.0f; y < 2.0f; y += 0.13f) EXPECT_EQ(value(t, x, y, x + y), 1.0f);
    }
}

TEST(VoronoiTileTexture, WithoutJitterTheGroutRunsMidwayBetweenCentres) {
    // Feature points are the cell centres. Across the boundary x = 1 between the centres
    // 0.5 and 1.5 the two distances differ by 2|x - 1| and the ratio is 1/1 x 0.05, so
    // grout covers |x - 1| < 0.025.
    VoronoiTileTexture3D t;
    t.setCellVariability(0.0f);
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        EXPECT_EQ(value(t, 0.75f, 0.5f, 0.5f), 1.0f);
        EXPECT_EQ(value(t, 0.97f, 0.5f, 0.5f), 1.0f);
        EXPECT_EQ(value(t, 0.98f, 0.5f, 0.5f), 0.0f);
        EXPECT_EQ(value(t, 1.02f, 0.5f, 0.5f), 0.0f);
        EXPECT_EQ(value(t, 1.03f, 0.5f, 0.5f), 1.0f);
        EXPECT_EQ(value(t, 0.5f, -3.985f, 0.5f), 0.0f);
        EXPECT_EQ(value(t, 0.5f, -3.965f, 0.5f), 1.0f);
        // -1.0 counts as cell -2: the search is centred on -1.5, which still finds the
        // centres -1.5 and -0.5 at equal distance, so the point is grout.
        EXPECT_EQ(value(t, -1.0f, 0.5f, 0.5f), 0.0f);
        EXPECT_EQ(value(t, -0.5f, 0.5f, 0.5f), 1.0f);
    }
    t.setFlags(2);
    EXPECT_EQ(value(t, 0.5f, 0.5f, 0.98f), 0.0f);
    EXPECT_EQ(value(t, 0.5f, 0.5f, 0.97f), 1.0f);
}

TEST(VoronoiTileTexture, RandomColourOfTheNearestCell) {
    // No jitter: the nearest feature point of (0.25, 0.5) is the centre of cell (0, 0), whose
    // hash is 1376312589, rounded to the float 1376312576, times 2^-32; the tile value is
    // 0.5 + 0.5 x that.
    VoronoiTileTexture3D t;
    t.setCellVariability(0.0f);
    t.setCellRandomizeColors(true);
    const float expected = 0.5f + 0.5f * (1376312576.0f * 0x1p-32f);
    EXPECT_EQ(value(t, 0.25f, 0.5f, 0.7f), expected);
    t.setFlags(kPlanar);
    EXPECT_EQ(value(t, 0.25f, 0.5f, 0.7f), expected);
}

struct Sample {
    float x, y, z;
    float expected;
};

// Every option on: jitter 0.7, random greys 0.2 to 0.9, tile noise 3 octaves (lacunarity 2.1,
// gain 0.45, detail 1.5), grout 0.08, boundary noise 3 octaves (lacunarity 1.9, gain 0.6,
// detail 2.5).
VoronoiTileTexture3D everythingOn() {
    VoronoiTileTexture3D t;
    t.setCellVariability(0.7f);
    t.setCellRandomizeColors(true);
    t.setCellMinColor(0.2f);
    t.setCellMaxColor(0.9f);
    t.setCellAddNoise(true);
    t.setCellOctaves(3.0f);
    t.setCellLacunarity(2.1f);
    t.setCellGain(0.45f);
    t.setCellDetail(1.5f);
    t.setBoundaryThickness(0.08f);
    t.setBoundaryAddNoise(true);
    t.setBoundaryOctaves(3.0f);
    t.setBoundaryLacunarity(1.9f);
    t.setBoundaryGain(0.6f);
    t.setBoundaryDetail(2.5f);
    return t;
}

TEST(VoronoiTileTexture, SpatialValuesWithEveryOption) {
    const Sample samples[] = {
        {4.82f, 3.72f, -2.11f, 0x1.2788cep-2f}, {4.61f, 0.39f, 1.78f, 0x1.1fb818p-1f},
        {-2.95f, 4.41f, 1.91f, 0.0f},           {4.67f, 3.94f, -2.01f, 0x1.41666ap-1f},
        {-1.39f, -3.34f, -3.54f, 0.0f},         {-4.35f, -1.99f, 1.03f, 0x1.221364p-1f},
        {-4.97f, 1.78f, -1.62f, 0x1.dab286p-2f}, {-1.9f, 3.19f, -0.19f, 0x1.05d3fp-1f},
        {-1.84f, -0.19f, 2.05f, 0x1.5957aep-2f}, {-4.43f, 4.75f, -4.77f, 0x1.50758p-1f},
    };
    const VoronoiTileTexture3D t = everythingOn();
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

TEST(VoronoiTileTexture, PlanarValuesWithEveryOption) {
    const Sample samples[] = {
        {0.45f, -1.88f, -1.83f, 0x1.58aac2p-2f}, {-3.23f, -4.22f, -3.51f, 0x1.11258ep-1f},
        {1.89f, 4.97f, -3.38f, 0x1.9bf374p-2f},  {-4.51f, 4.87f, 0.34f, 0x1.d66f38p-1f},
        {-0.94f, -2.63f, 0.94f, 0x1.e7f25p-2f},  {3.26f, -0.44f, -0.78f, 0.0f},
        {-4.44f, 4.16f, -4.67f, 0x1.b1c84ep-1f}, {-0.06f, 3.38f, -3.69f, 0x1.2c9e5ap-1f},
        {2.32f, 4.5f, 1.3f, 0x1.b9bf9p-2f},      {2.88f, -3.93f, -0.65f, 0x1.6a2d52p-2f},
    };
    VoronoiTileTexture3D t = everythingOn();
    t.setFlags(kPlanar);
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

TEST(VoronoiTileTexture, CellDetailScalesOnlyThePlanarTileNoise) {
    VoronoiTileTexture3D t = everythingOn();
    VoronoiTileTexture3D other = everythingOn();
    other.setCellDetail(7.25f);
    bool planarDiffers = false;
    for (float x = -2.0f; x < 2.0f; x += 0.23f)
        for (float y = -2.0f; y < 2.0f; y += 0.29f) {
            t.setFlags(2);
            other.setFlags(2);
            EXPECT_EQ(value(t, x, y, x * y), value(other, x, y, x * y));
            t.setFlags(kPlanar);
            other.setFlags(kPlanar);
            planarDiffers |= value(t, x, y, 0.0f) != value(other, x, y, 0.0f);
        }
    EXPECT_TRUE(planarDiffers);
}

TEST(VoronoiTileTexture, PlanarIgnoresZ) {
    VoronoiTileTexture3D t = everythingOn();
    t.setFlags(8);
    for (float x = -2.0f; x < 2.0f; x += 0.13f)
        for (float y = -2.0f; y < 2.0f; y += 0.17f) {
            const float ref = value(t, x, y, 0.0f);
            for (float z : {0.37f, -5.0f, 1e30f, std::numeric_limits<float>::quiet_NaN()})
                EXPECT_EQ(value(t, x, y, z), ref);
        }
}

TEST(VoronoiTileTexture, HugeOctaveCountsStopAtTheLoopCap) {
    VoronoiTileTexture3D capped = everythingOn();
    capped.setCellOctaves(64.0f);
    capped.setBoundaryOctaves(64.0f);
    VoronoiTileTexture3D huge = everythingOn();
    huge.setCellOctaves(2147483520.0f);
    huge.setBoundaryOctaves(1e9f);
    for (float x = -1.0f; x < 1.0f; x += 0.31f) EXPECT_EQ(value(huge, x, 0.4f, -x), value(capped, x, 0.4f, -x));
}

TEST(VoronoiTileTexture, NonPositiveOctavesAddNothing) {
    // With no octaves the noises are 0: the perturbation leaves the point and the tile noise
    // adds 0, so the result equals that with both noises off.
    VoronoiTileTexture3D plain = everythingOn();
    plain.setCellAddNoise(false);
    plain.setBoundaryAddNoise(false);
    VoronoiTileTexture3D none = everythingOn();
    none.setCellOctaves(0.0f);
    none.setBoundaryOctaves(-3.0f);
    for (int flags : {2, kPlanar}) {
        plain.setFlags(flags);
        none.setFlags(flags);
        for (float x = -2.0f; x < 2.0f; x += 0.19f)
            EXPECT_EQ(value(none, x, 0.3f - x, 0.6f), value(plain, x, 0.3f - x, 0.6f)) << x;
    }
}

}  // namespace
}  // namespace grainsmith
