// "Turbulence": octave sum of the noise magnitude, clamped to [0, 1] without remapping.
// Expected values come from noise_kinds_reference.py (an independent float32 model).
#include <gtest/gtest.h>

#include "grainsmith/textures/turbulence.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::TurbulenceTexture3D;
using noise_kind_test::valueAt;

TEST(TurbulenceKind, DefaultsSitAtTheirRecordOffsets) {
    const TurbulenceTexture3D t;
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

TEST(TurbulenceKind, ValuesInSpace) {
    TurbulenceTexture3D t;
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(valueAt(t, -1.0f, 4.0f, -6.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.06f792p-1f);

    t.setOctaves(5);
    t.setLacunarity(1.9f);
    t.setGain(0.6f);
    t.setScale(1.3f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.ad305p-2f);
}

TEST(TurbulenceKind, NoOctavesGiveZero) {
    TurbulenceTexture3D t;
    for (int octaves : {0, -5}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.0f) << octaves;
    }
}

TEST(TurbulenceKind, SumsAboveOneClamp) {
    TurbulenceTexture3D t;
    t.setGain(10.0f);  // the raw sum at this point is about 114.9
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 1.0f);
}

TEST(TurbulenceKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    TurbulenceTexture3D t;
    for (int flags : {4, 8}) {
        t.setFlags(flags);
        for (float z : {0.2f, 3.5f, -std::numeric_limits<float>::infinity()})
            EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.194e8cp-1f) << flags;
    }
}

TEST(TurbulenceKind, OddPointsStayInRange) {
    TurbulenceTexture3D t;
    t.setOctaves(1000);
    for (float c : noise_kind_test::kOddCoordinates) {
        const float v = valueAt(t, 0.25f, c, c);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
    }
}
