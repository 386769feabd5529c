// "Granite": a sum of folded noise |0.5 - n| / f over doubling frequencies, clamped.
// Expected values come from the folded sum worked by hand where the noise vanishes, and
// from noise_kinds_reference.py (an independent float32 model) elsewhere.
#include <gtest/gtest.h>

#include "grainsmith/textures/granite.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::GraniteTexture3D;
using noise_kind_test::valueAt;

TEST(GraniteKind, DefaultsSitAtTheirRecordOffsets) {
    const GraniteTexture3D t;
    EXPECT_EQ(t.octaves(), 6);
    EXPECT_EQ(t.frequency(), 1.0f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 44);
    EXPECT_EQ(noise_kind_test::intAt(r, 36), 6);
    EXPECT_EQ(noise_kind_test::floatAt(r, 40), 1.0f);
}

TEST(GraniteKind, WhereTheNoiseVanishesEachTermIsHalfOverItsFrequency) {
    GraniteTexture3D t;
    // 0.5 * (1 + 1/2 + 1/4 + 1/8 + 1/16 + 1/32)
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.984375f);
    EXPECT_EQ(valueAt(t, 1.0f, -2.0f, 3.0f), 0.984375f);
    t.setOctaves(2);
    t.setFrequency(2.0f);  // 0.5/2 + 0.5/4
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.375f);
    t.setOctaves(1);
    t.setFrequency(0.25f);  // 0.5/0.25 = 2 clamps
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 1.0f);
}

TEST(GraniteKind, NoOctavesGiveZero) {
    GraniteTexture3D t;
    for (int octaves : {0, -6}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.0f) << octaves;
    }
}

TEST(GraniteKind, ValuesInSpace) {
    GraniteTexture3D t;
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.0356aep-1f);
    t.setOctaves(3);
    t.setFrequency(2.0f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.b9a6bap-2f);
    t.setFrequency(0.7f);  // the first term alone exceeds 1
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 1.0f);
}

TEST(GraniteKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    GraniteTexture3D t;
    for (int flags : {4, 8}) {
        t.setFlags(flags);
        for (float z : {0.2f, -0.6f, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.0eae7p-1f) << flags;
    }
}

TEST(GraniteKind, OddPointsAndFrequenciesStayInRange) {
    GraniteTexture3D t;
    t.setOctaves(100000);
    for (float c : noise_kind_test::kOddCoordinates) {
        const float v = valueAt(t, c, c, c);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
    }
    for (float f : {0.0f, -1.0f, std::numeric_limits<float>::quiet_NaN()}) {
        t.setFrequency(f);
        const float v = valueAt(t, 0.3f, 0.7f, 0.2f);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << f;
    }
}
