// Erosion: the magnitude times the cubed folded octave sum, through a smooth step.
#include "grainsmith/textures/eroded.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(ErosionKind, Defaults) { expectDefaults<ErodedTexture3D>({0.3, 1.0}); }

TEST(ErosionKind, AllThreeRegionsOfTheStep) {
    ErodedTexture3D t;
    EXPECT_EQ(valueAt(t, -4.0f, 9.0f, 2.0f), 0.0f);    // the sum vanishes: a pit
    EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), 1.0f);  // cubed sum 0.0058: above the step
    EXPECT_EQ(valueAt(t, 0.52f, -0.27f, 0.33f), bits(0x3E3DD0D8u));
    EXPECT_EQ(valueAt(t, 0.071f, 0.093f, 0.017f), bits(0x3DD8D002u));
    // A NaN magnitude fails every comparison and falls through to 1.
    EXPECT_EQ(valueAt(withParams<ErodedTexture3D>({kNaN, 1.0}), 0.52f, -0.27f, 0.33f), 1.0f);
    // Scale 0.125 leaves only the first term (frequency 4) off the lattice: v = 0.3 x 0.117^3,
    // u = (v - 0.0001) x 344.82758 = 0.1312, (3 - 2u) u^2 = 0.047124.
    EXPECT_EQ(valueAt(withParams<ErodedTexture3D>({0.3, 0.125}), 1.0f, 1.0f, 1.0f), bits(0x3D41058Bu));
}

TEST(ErosionKind, PlanarModeIgnoresZ) {
    const ErodedTexture3D t = inPlane(ErodedTexture3D());
    EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), 0.0f);  // cubed sum 0.000041: a pit
    EXPECT_EQ(valueAt(t, -1.05f, 2.2f, 0.9f), 1.0f);
    for (float z : {0.0f, 0.33f, -8.0f}) EXPECT_EQ(valueAt(t, 0.52f, -0.27f, z), bits(0x3CCD3D06u)) << z;
}
