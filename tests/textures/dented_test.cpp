// Dents: the magnitude times the cube of a folded octave sum (summed in double), clamped.
#include "grainsmith/textures/dented.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(DentsKind, Defaults) { expectDefaults<DentedTexture3D>({5.0, 5.0}); }

TEST(DentsKind, ValuesInSpace) {
    DentedTexture3D t;
    // On the lattice every folded term |0.5 - (0 + 1) / 2| is 0; 0.2f x 5 rounds to exactly 1.
    EXPECT_EQ(valueAt(t, 0.2f, 0.4f, -0.6f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), bits(0x3CA28AD3u));
    EXPECT_EQ(valueAt(t, 0.52f, -0.27f, 0.33f), bits(0x3CF87365u));
    EXPECT_EQ(valueAt(t, -1.05f, 2.2f, 0.9f), bits(0x3E6910BBu));
    // Scale 0.5 leaves only the first term off the lattice, at a cube centre: noise
    // 0.936 x (-0.25), sum |n| / 2 = 0.117, value 5 x 0.117^3.
    EXPECT_EQ(valueAt(withParams<DentedTexture3D>({5.0, 0.5}), 1.0f, 1.0f, 1.0f), bits(0x3C033442u));
    EXPECT_EQ(valueAt(withParams<DentedTexture3D>({50.0, 5.0}), -1.05f, 2.2f, 0.9f), 1.0f);  // clamped
    EXPECT_EQ(valueAt(withParams<DentedTexture3D>({-5.0, 5.0}), -1.05f, 2.2f, 0.9f), 0.0f);
    EXPECT_EQ(valueAt(withParams<DentedTexture3D>({kNaN, 5.0}), -1.05f, 2.2f, 0.9f), 0.0f);
}

TEST(DentsKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    const DentedTexture3D t = inPlane(DentedTexture3D(), 8);
    for (float z : {0.71f, kInf}) EXPECT_EQ(valueAt(t, 0.13f, 0.37f, z), bits(0x3B79EBD9u)) << z;
    for (float z : {0.33f, -3.5f}) EXPECT_EQ(valueAt(t, 0.52f, -0.27f, z), bits(0x3D52FA0Eu)) << z;
}
