// Camouflage: a warped point decides which of the base colour, layer 1 and layer 2 shows.
#include "grainsmith/textures/camouflage.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

// A layer is hit exactly when its noise magnitude exceeds the threshold. With the base and the
// other layer at 0 and the layer at 1, a threshold on the modelled magnitude and one step below
// it pin that magnitude to the bit.
static void expectMagnitudes(int flags, float x, float y, float z, float layer1, float layer2) {
    for (int layer : {1, 2}) {
        const float magnitude = layer == 1 ? layer1 : layer2;
        for (float threshold : {magnitude, std::nextafter(magnitude, 0.0f)}) {
            const double colour1 = layer == 1, colour2 = layer == 2;
            const auto t = inPlane(withParams<CamouflageTexture3D>({0.6, threshold, 0, colour1, colour2}), flags);
            EXPECT_EQ(valueAt(t, x, y, z), threshold < magnitude ? 1.0f : 0.0f) << "layer " << layer;
        }
    }
}

TEST(CamouflageKind, Defaults) { expectDefaults<CamouflageTexture3D>({0.6, 0.2, 1.0, 0.8, 0.3}); }

TEST(CamouflageKind, ValuesAndLayerMagnitudes) {
    CamouflageTexture3D t;
    EXPECT_EQ(valueAt(t, -3.95f, -1.17f, -1.21f), 0.3f);  // layer 2 magnitude 0.200008
    EXPECT_EQ(valueAt(t, -3.04f, -1.4f, -3.98f), 1.0f);   // layer 1 magnitude 0.199948
    EXPECT_EQ(valueAt(t, 3.16f, 0.77f, -3.92f), 0.8f);    // both hit: 0.349 and 0.200066
    expectMagnitudes(2, 0.3f, 0.7f, 1.1f, 0x1.77a38ep-3f, 0x1.d50474p-4f);
    expectMagnitudes(kPlanar, 5.2f, -3.3f, -7.9f, 0x1.1fb89ap-3f, 0x1.218092p-3f);
    t.setLayer1Color(1.0f);  // layer 1 equal to the base lets layer 2 show through
    EXPECT_EQ(valueAt(t, 3.16f, 0.77f, -3.92f), 0.3f);
    t = withParams<CamouflageTexture3D>({0.6, 1.0, 0.42, 0.8, 0.3});  // a threshold no magnitude reaches
    EXPECT_EQ(valueAt(t, 3.16f, 0.77f, -3.92f), 0.42f);
    EXPECT_EQ(valueAt(t, -3.95f, -1.17f, -1.21f), 0.42f);
}

TEST(CamouflageKind, PlanarLayer1IgnoresZButLayer2ReadsSpaceAtZPlusHalf) {
    CamouflageTexture3D t;
    t.setFlags(kPlanar);
    EXPECT_EQ(valueAt(t, 1.0f, -3.47f, -1.8f), 0.3f);  // layer 2 magnitude 0.200034
    t.setLayer2Color(1.0f);  // layer 1 alone; its magnitude here is 0.200099
    for (float z : {-2.84f, 40.0f, 1e30f}) EXPECT_EQ(valueAt(t, 2.13f, 0.26f, z), 0.8f) << z;
    t.setLayer2Color(0.3f);  // layer 2 magnitude at (0.3, 0.7): 0.1425 at z = 0, 0.2174 at z = 0.4
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.4f), 0.3f);
}

TEST(CamouflageKind, IntegerPointsNeverHitLayer1) {
    // Every noise vanishes there, so the warped point and three times it stay integral and the
    // layer 1 noise is exactly 0: never above even a zero threshold.
    const CamouflageTexture3D t = withParams<CamouflageTexture3D>({0.6, 0.0, 1.0, 0.8, 1.0});  // layer 2 hidden
    for (float p : {0.0f, -1.0f, 7.0f}) {
        EXPECT_EQ(valueAt(t, p, -p, 2.0f), 1.0f) << p;
        EXPECT_EQ(valueAt(inPlane(t), p, -p, 2.0f), 1.0f) << p;
    }
}
