// "FBM": octave sum with free lacunarity and gain, remapped to [0, 1].
// Expected values come from noise_kinds_reference.py (an independent float32 model).
#include <gtest/gtest.h>

#include "grainsmith/textures/fbm.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::FBMTexture3D;
using noise_kind_test::valueAt;

TEST(FBMKind, DefaultsSitAtTheirRecordOffsets) {
    const FBMTexture3D t;
    EXPECT_EQ(t.octaves(), 4);
    EXPECT_EQ(t.lacunarity(), 2.0f);
    EXPECT_EQ(t.gain(), 0.5f);
    EXPECT_EQ(t.scale(), 4.0f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 52);
    EXPECT_EQ(noise_kind_test::intAt(r, 36), 4);
    EXPECT_EQ(noise_kind_test::floatAt(r, 40), 2.0f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 44), 0.5f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 48), 4.0f);
}

TEST(FBMKind, ValuesInSpace) {
    FBMTexture3D t;
    // At the origin (and any integer point) every octave's noise is exactly 0.
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 3.0f, -2.0f, 7.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);

    t.setOctaves(5);
    t.setLacunarity(1.9f);
    t.setGain(0.6f);
    t.setScale(1.3f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.24ef1cp-1f);
}

TEST(FBMKind, NoOctavesGiveTheMidpoint) {
    FBMTexture3D t;
    for (int octaves : {0, -1, -2147483647 - 1}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.5f) << octaves;
    }
}

TEST(FBMKind, OctaveCountsAboveTheCapSumSixtyFourOctaves) {
    FBMTexture3D t;
    t.setLacunarity(1.1f);  // keeps every octave's coordinates finite and the sum inside [-1, 1]
    t.setGain(0.95f);
    t.setOctaves(63);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.83b834p-1f);
    for (int octaves : {64, 65, 1000, 2147483647}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.83ebc8p-1f) << octaves;
    }
}

TEST(FBMKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    FBMTexture3D t;
    for (int flags : {4, 8}) {
        t.setFlags(flags);
        for (float z : {0.2f, -9.75f, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.7320dap-1f) << flags;
    }
    t.setFlags(1 | 2 | 16);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.7e6a6p-1f);
}

TEST(FBMKind, OddPointsStayInRange) {
    const FBMTexture3D t;
    for (float c : noise_kind_test::kOddCoordinates) {
        const float v = valueAt(t, c, c, 0.25f);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
    }
}
