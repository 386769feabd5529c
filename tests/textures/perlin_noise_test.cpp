// "Perlin Noise": octave sum of improved gradient noise remapped to [0, 1].
// Expected values come from noise_kinds_reference.py (an independent float32 model).
#include <gtest/gtest.h>

#include "grainsmith/textures/perlin_noise.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::PerlinTexture3D;
using noise_kind_test::valueAt;

TEST(PerlinNoiseKind, DefaultsSitAtTheirRecordOffsets) {
    const PerlinTexture3D t;
    EXPECT_EQ(t.octaves(), 4);
    EXPECT_EQ(t.frequency(), 4.0f);
    EXPECT_EQ(t.amplitude(), 1.0f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 48);
    EXPECT_EQ(r[33], 2);
    EXPECT_EQ(noise_kind_test::intAt(r, 36), 4);
    EXPECT_EQ(noise_kind_test::floatAt(r, 40), 4.0f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 44), 1.0f);
}

TEST(PerlinNoiseKind, ValuesInSpace) {
    PerlinTexture3D t;
    // Every octave's coordinates are integers, where the noise vanishes: (0 + 1) * 0.5.
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 2.0f, -3.0f, 5.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);

    t.setOctaves(2);
    t.setFrequency(1.5f);
    t.setAmplitude(0.8f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.6f7348p-1f);
}

TEST(PerlinNoiseKind, NoOctavesGiveTheMidpoint) {
    PerlinTexture3D t;
    for (int octaves : {0, -1, -1000}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.5f) << octaves;
    }
}

TEST(PerlinNoiseKind, LargeSumsClampToTheUnitRange) {
    PerlinTexture3D t;
    // The raw sum at this point is +19.75 with amplitude 40 and -19.75 with amplitude -40.
    t.setAmplitude(40.0f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 1.0f);
    t.setAmplitude(-40.0f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.0f);
}

TEST(PerlinNoiseKind, PlanarModeUsesTheTwoDimensionalSumAndIgnoresZ) {
    PerlinTexture3D t;
    for (int flags : {4, 8, 12, 6}) {
        t.setFlags(flags);
        for (float z : {0.2f, -55.5f, 1e30f}) EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.7320dap-1f) << flags;
    }
    // Other bits keep the kind in space.
    t.setFlags(2 | 16);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);
}

TEST(PerlinNoiseKind, OddPointsAndHugeOctaveCountsStayInRange) {
    PerlinTexture3D t;
    t.setOctaves(2147483647);
    for (float c : noise_kind_test::kOddCoordinates) {
        const float v = valueAt(t, c, 0.5f, c);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
    }
}
