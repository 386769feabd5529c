// Granite: a clamped sum of folded noise |0.5 - n| / f over doubling frequencies.
#include "grainsmith/textures/granite.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(GraniteKind, Defaults) { expectDefaults<GraniteTexture3D>({6, 1.0}); }

TEST(GraniteKind, Values) {
    // Where the noise vanishes each term is 0.5 / f: 0.5 * (1 + 1/2 + ... + 1/32), 0.5/2 + 0.5/4,
    // and 0.5/0.25 = 2, clamped.
    EXPECT_EQ(valueAt(GraniteTexture3D(), 1.0f, -2.0f, 3.0f), 0.984375f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({2, 2.0}), 0.0f, 0.0f, 0.0f), 0.375f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({1, 0.25}), 0.0f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({0, 1.0}), 0.3f, 0.7f, 0.2f), 0.0f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({-6, 1.0}), 0.3f, 0.7f, 0.2f), 0.0f);
    EXPECT_EQ(valueAt(GraniteTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.0356aep-1f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({3, 2.0}), 1.37f, 0.51f, 2.86f), 0x1.b9a6bap-2f);
    EXPECT_EQ(valueAt(withParams<GraniteTexture3D>({3, 0.7}), 1.37f, 0.51f, 2.86f), 1.0f);  // first term > 1
}

TEST(GraniteKind, PlanarModeIgnoresZAndOddInputsStayInRange) {
    for (float z : {0.2f, -0.6f, kNaN}) EXPECT_EQ(valueAt(inPlane(GraniteTexture3D()), 0.3f, 0.7f, z), 0x1.0eae7p-1f);
    for (float f : {1.0f, 0.0f, -1.0f, kNaN}) expectUnitRangeAtOddPoints(withParams<GraniteTexture3D>({100000, f}));
}
