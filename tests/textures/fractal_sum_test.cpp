// FBM remaps a signed octave sum to [0, 1]; Turbulence sums noise magnitudes and clamps.
#include "grainsmith/textures/fbm.h"
#include "grainsmith/textures/turbulence.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(FractalSumKinds, Defaults) { expectDefaults<FBMTexture3D>({4, 2.0, 0.5, 4.0}); }

TEST(FractalSumKinds, ValuesInSpace) {
    // At the origin every octave lies on the lattice, where the noise is 0.
    EXPECT_EQ(valueAt(FBMTexture3D(), 0.0f, 0.0f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(TurbulenceTexture3D(), 0.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(valueAt(FBMTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);
    EXPECT_EQ(valueAt(TurbulenceTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.06f792p-1f);
    EXPECT_EQ(valueAt(withParams<FBMTexture3D>({5, 1.9, 0.6, 1.3}), 1.37f, 0.51f, 2.86f), 0x1.24ef1cp-1f);
    EXPECT_EQ(valueAt(withParams<TurbulenceTexture3D>({5, 1.9, 0.6, 1.3}), 1.37f, 0.51f, 2.86f), 0x1.ad305p-2f);
}

TEST(FractalSumKinds, OctaveCountsAndClamping) {
    for (double octaves : {0.0, -1.0, double(INT32_MIN)}) {
        EXPECT_EQ(valueAt(withParams<FBMTexture3D>({octaves, 2, 0.5, 4}), 0.3f, 0.7f, 0.2f), 0.5f) << octaves;
        EXPECT_EQ(valueAt(withParams<TurbulenceTexture3D>({octaves, 2, 0.5, 4}), 0.3f, 0.7f, 0.2f), 0.0f);
    }
    // Lacunarity 1.1 and gain 0.95 keep all sixty-four octaves finite and the sum inside [-1, 1].
    EXPECT_EQ(valueAt(withParams<FBMTexture3D>({63, 1.1, 0.95, 4}), 0.3f, 0.7f, 0.2f), 0x1.83b834p-1f);
    for (double octaves : {64.0, 65.0, double(INT32_MAX)})
        EXPECT_EQ(valueAt(withParams<FBMTexture3D>({octaves, 1.1, 0.95, 4}), 0.3f, 0.7f, 0.2f), 0x1.83ebc8p-1f);
    EXPECT_EQ(valueAt(withParams<TurbulenceTexture3D>({4, 2, 10, 4}), 0.3f, 0.7f, 0.2f), 1.0f);  // sum 114.9
    expectUnitRangeAtOddPoints(withParams<TurbulenceTexture3D>({1000, 2, 0.5, 4}));
    expectUnitRangeAtOddPoints(FBMTexture3D());
}

TEST(FractalSumKinds, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    for (float z : {0.2f, -9.75f, kNaN}) {
        EXPECT_EQ(valueAt(inPlane(FBMTexture3D(), 8), 0.3f, 0.7f, z), 0x1.7320dap-1f);
        EXPECT_EQ(valueAt(inPlane(TurbulenceTexture3D()), 0.3f, 0.7f, z), 0x1.194e8cp-1f);
    }
}
