// Voronoi Tiles: tiles and grout from the two nearest jittered cell centres.
#include "grainsmith/textures/voronoi_tile.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

// Jitter 0.7, random greys 0.2 to 0.9, grout 0.08; tile noise (lacunarity 2.1, gain 0.45,
// detail 1.5) and boundary noise (lacunarity 1.9, gain 0.6, detail 2.5) of the given octaves.
static VoronoiTileTexture3D withNoise(double cellOctaves = 3, double boundaryOctaves = 3, bool on = true) {
    return withParams<VoronoiTileTexture3D>(
        {0.7, 1, 0.2, 0.9, double(on), cellOctaves, 2.1, 0.45, 1.5, 0.08, double(on), boundaryOctaves, 1.9, 0.6, 2.5});
}

TEST(VoronoiTilesKind, DefaultsGiveOnlyTilesAndGrout) {
    expectDefaults<VoronoiTileTexture3D>({0.5, 0, 0.5, 1, 0, 2, 2, 0.5, 2, 0.05, 0, 4, 2, 0.5, 2});
    VoronoiTileTexture3D t, noGrout;
    noGrout.setBoundaryThickness(0.0f);
    for (float x = -3.0f; x < 3.0f; x += 0.01f) {
        const float v = valueAt(t, x, 0.4f * x, 1.3f - x);
        EXPECT_TRUE(v == 0.0f || v == 1.0f) << v;
        EXPECT_EQ(valueAt(noGrout, x, 0.4f * x, 1.3f - x), 1.0f);
    }
    t.setFlags(kPlanar);  // the two nearest distances differ by 0.0337, under a grout ratio of 0.0458
    EXPECT_EQ(valueAt(t, 4.18f, -1.6f, 4.24f), 0.0f);
    t.setCellOctaves(-3.9f);
    EXPECT_EQ(t.getCellOctaves(), -3);  // the float setter truncates toward zero
}

TEST(VoronoiTilesKind, WithoutJitterTheGroutRunsMidwayBetweenCentres) {
    // The feature points are the centres: across x = 1 their distances differ by 2|x - 1|, so with
    // ratio 0.05 the grout covers |x - 1| < 0.025; -1.0 counts as cell -2, which still finds -1.5
    // and -0.5. With random greys cell (0, 0) hashes to 1376312589, rounded to the float 1376312576.
    VoronoiTileTexture3D t;
    t.setCellVariability(0.0f);
    t.setCellRandomizeColors(true);
    const float grey = 0.5f + 0.5f * (1376312576.0f * 0x1p-32f);
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float x : {0.98f, 1.02f, -1.0f}) EXPECT_EQ(valueAt(t, x, 0.5f, 0.5f), 0.0f) << x;
        for (float x : {0.97f, 1.03f, -0.5f}) EXPECT_GE(valueAt(t, x, 0.5f, 0.5f), 0.5f) << x;
        EXPECT_EQ(valueAt(t, 0.25f, 0.5f, 0.7f), grey);
    }
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.98f), grey);  // planar: z plays no part
    t.setFlags(2);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.98f), 0.0f);
}

TEST(VoronoiTilesKind, ValuesWithEveryOption) {
    VoronoiTileTexture3D t = withNoise();
    t.setCellDetail(7.25f);  // scales the planar tile noise only
    EXPECT_EQ(valueAt(t, 4.82f, 3.72f, -2.11f), 0x1.2788cep-2f);
    EXPECT_EQ(valueAt(t, -2.95f, 4.41f, 1.91f), 0.0f);
    t.setFlags(kPlanar);
    EXPECT_NE(valueAt(t, 0.45f, -1.88f, -1.83f), 0x1.58aac2p-2f);
    t.setCellDetail(1.5f);
    for (float z : {-1.83f, 1e30f, kNaN}) EXPECT_EQ(valueAt(t, 0.45f, -1.88f, z), 0x1.58aac2p-2f);
    EXPECT_EQ(valueAt(t, 3.26f, -0.44f, -0.78f), 0.0f);
}

TEST(VoronoiTilesKind, OctaveCountsAreCappedAndNonPositiveCountsAddNothing) {
    for (int flags : {2, kPlanar}) {
        const auto capped = inPlane(withNoise(64, 64), flags), huge = inPlane(withNoise(2147483520.0, 1e9), flags);
        const auto none = inPlane(withNoise(0, -3), flags), off = inPlane(withNoise(3, 3, false), flags);
        for (float x = -2.0f; x < 2.0f; x += 0.19f) {
            EXPECT_EQ(valueAt(huge, x, 0.4f, -x), valueAt(capped, x, 0.4f, -x)) << x;
            EXPECT_EQ(valueAt(none, x, 0.3f - x, 0.6f), valueAt(off, x, 0.3f - x, 0.6f)) << x;
        }
    }
}
