// Perlin Noise: an octave sum of improved gradient noise remapped to [0, 1].
#include "grainsmith/textures/perlin_noise.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(PerlinNoiseKind, Defaults) { expectDefaults<PerlinTexture3D>({4, 4.0, 1.0}); }

TEST(PerlinNoiseKind, ValuesAndClamping) {
    // Every octave's coordinates are integers, where the noise vanishes: (0 + 1) * 0.5.
    EXPECT_EQ(valueAt(PerlinTexture3D(), 2.0f, -3.0f, 5.0f), 0.5f);
    EXPECT_EQ(valueAt(PerlinTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);
    EXPECT_EQ(valueAt(withParams<PerlinTexture3D>({2, 1.5, 0.8}), 1.37f, 0.51f, 2.86f), 0x1.6f7348p-1f);
    for (double octaves : {0.0, -1.0, -1000.0})
        EXPECT_EQ(valueAt(withParams<PerlinTexture3D>({octaves, 4, 1}), 0.3f, 0.7f, 0.2f), 0.5f) << octaves;
    // The raw sum here is +19.75 with amplitude 40 and -19.75 with amplitude -40.
    EXPECT_EQ(valueAt(withParams<PerlinTexture3D>({4, 4, 40}), 0.3f, 0.7f, 0.2f), 1.0f);
    EXPECT_EQ(valueAt(withParams<PerlinTexture3D>({4, 4, -40}), 0.3f, 0.7f, 0.2f), 0.0f);
    expectUnitRangeAtOddPoints(withParams<PerlinTexture3D>({INT32_MAX, 4, 1}));
}

TEST(PerlinNoiseKind, PlanarModeUsesTheTwoDimensionalSumAndIgnoresZ) {
    for (int flags : {4, 8, 12, 6})
        for (float z : {0.2f, 1e30f})
            EXPECT_EQ(valueAt(inPlane(PerlinTexture3D(), flags), 0.3f, 0.7f, z), 0x1.7320dap-1f) << flags;
    // Other bits keep the kind in space.
    EXPECT_EQ(valueAt(inPlane(PerlinTexture3D(), 2 | 16), 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);
}
