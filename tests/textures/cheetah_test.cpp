// Cheetah: spots (0) of noise-modulated radius around jittered cell centres on a background (1).
#include <tuple>

#include "grainsmith/textures/cheetah.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

// At integer points the radius noise is 0, so the point is background exactly when the distance
// to the nearest centre reaches the spot size: that size and the next float pin it to the bit.
static void expectDistance(CheetahTexture3D t, float x, float y, float z, float distance) {
    t.setSpotSize(distance);
    EXPECT_EQ(valueAt(t, x, y, z), 1.0f) << x << ", " << y << ", " << z;
    t.setSpotSize(std::nextafter(distance, 1.0f));
    EXPECT_EQ(valueAt(t, x, y, z), 0.0f) << x << ", " << y << ", " << z;
}

TEST(CheetahKind, Defaults) {
    expectDefaults<CheetahTexture3D>({0.4, 0.6, 0.5});
    EXPECT_TRUE(CheetahTexture3D().interactiveUpdate());
}

TEST(CheetahKind, ValuesAtDefaults) {
    CheetahTexture3D t;
    EXPECT_EQ(valueAt(t, -1.41f, 2.58f, 3.88f), 1.0f);  // this point and the next lie within 5e-4
    EXPECT_EQ(valueAt(t, 1.28f, 3.33f, -3.13f), 0.0f);  // of a spot's edge
    EXPECT_EQ(valueAt(t, kNaN, 0.5f, 0.5f), 0.0f);      // "distance >= radius" fails for NaN: a spot
    expectDistance(t, 0.0f, 0.0f, 0.0f, 0x1.232a84p-1f);
    expectDistance(t, -1.0f, -1.0f, -1.0f, 0x1.b2f1cep-2f);
    t.setFlags(kPlanar);
    for (float z : {-1.0f, 1e30f}) expectDistance(t, -1.0f, -1.0f, z, 0x1.1c4952p-1f);
    expectDistance(t, 3.0f, -2.0f, 5.0f, 0x1.795f8p-1f);
    EXPECT_EQ(valueAt(withParams<CheetahTexture3D>({0.0, 0.6, 0.5}), 1.28f, 3.33f, -3.13f), 1.0f);  // no spots
}

TEST(CheetahKind, WithoutLayoutJitterSpotsSitOnCellCentres) {
    // The lattice corner (c, 1 - c) lies sqrt(1/2) = 0.70711 from the nearest centres in the
    // plane, (c, 1 - c, c) sqrt(3/4) = 0.86603 in space. Exact negative integers belong to the
    // cell below, which does not move the centres.
    EXPECT_EQ(valueAt(withParams<CheetahTexture3D>({0.4, 0.0, 0.5}), -7.5f, -6.5f, 7.5f), 0.0f);  // centre in its spot
    for (auto [flags, inside, outside] : {std::tuple{kPlanar, 0.7071f, 0.7072f}, std::tuple{2, 0.8660f, 0.8661f}})
        for (float c : {0.0f, 2.0f, -1.0f, -4.0f}) {
            EXPECT_EQ(valueAt(inPlane(withParams<CheetahTexture3D>({inside, 0, 0.5}), flags), c, 1 - c, c), 1.0f) << c;
            EXPECT_EQ(valueAt(inPlane(withParams<CheetahTexture3D>({outside, 0, 0.5}), flags), c, 1 - c, c), 0.0f) << c;
        }
}

TEST(CheetahKind, CellCentresAreFormedInDoubleBeforeRounding) {
    // x = -16777218 lies in cell -16777219; its centre -16777218.5 rounds once to -16777218, so
    // with no jitter the point sits on a spot centre (distance 0, radius 1: a spot). Rounding the
    // index to float first (-16777220) would put every centre along x 2 away: background.
    const CheetahTexture3D t = withParams<CheetahTexture3D>({1.0, 0.0, 0.0});
    EXPECT_EQ(valueAt(t, -16777218.0f, 0.5f, 0.5f), 0.0f);
    EXPECT_EQ(valueAt(inPlane(t, kPlanar), -16777218.0f, 0.5f, 0.5f), 0.0f);
}
