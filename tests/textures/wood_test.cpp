// "Wood": rings around the y axis perturbed by noise, shaded between two colours.
// Expected values come from the ring formula worked by hand where the noise vanishes, and
// from noise_kinds_reference.py (an independent float32 model) elsewhere.
#include <gtest/gtest.h>

#include "grainsmith/textures/wood.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::WoodTexture3D;
using noise_kind_test::valueAt;

namespace {

// Ring fraction 0.5 (radius x ring scale an integer, where the ring noise is 0, plus 0.5):
// u = 0.625, dark weight (3 - 2u) u^2 = 0.68359375, value 0.31640625 * 0.5 + 0.68359375 * 0.1f.
constexpr float kHalfRing = 0.2265625f;

WoodTexture3D unperturbed() {
    WoodTexture3D t;
    t.setFrequency(0.0f);
    return t;
}

}  // namespace

TEST(WoodKind, DefaultsSitAtTheirRecordOffsets) {
    const WoodTexture3D t;
    EXPECT_EQ(t.ringScale(), 6);
    EXPECT_EQ(t.octaves(), 1);
    EXPECT_EQ(t.frequency(), 1.0f);
    EXPECT_EQ(t.amplitude(), 0.1f);
    EXPECT_EQ(t.darkColor(), 0.1f);
    EXPECT_EQ(t.lightColor(), 0.5f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 60);
    EXPECT_EQ(noise_kind_test::floatAt(r, 36), 6.0f);
    EXPECT_EQ(noise_kind_test::intAt(r, 40), 1);
    EXPECT_EQ(noise_kind_test::floatAt(r, 44), 1.0f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 48), 0.1f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 52), 0.1f);
    EXPECT_EQ(noise_kind_test::floatAt(r, 56), 0.5f);
}

TEST(WoodKind, RingScaleGetterTruncatesTheStoredFloat) {
    WoodTexture3D t;
    t.setRingScale(6.75f);
    EXPECT_EQ(t.ringScale(), 6);
    t.setRingScale(-2.5f);
    EXPECT_EQ(t.ringScale(), -2);
    t.setRingScale(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(t.ringScale(), INT32_MIN);
    // The record keeps the float.
    t.setRingScale(6.75f);
    EXPECT_EQ(noise_kind_test::floatAt(noise_kind_test::exportRecord(t), 36), 6.75f);
}

TEST(WoodKind, WithoutPerturbationRingsAreCirclesAroundTheYAxis) {
    const WoodTexture3D t = unperturbed();
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), kHalfRing);
    // Radius 0.5 gives 3 rings: the same phase, at any height and any angle.
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), kHalfRing);
    EXPECT_EQ(valueAt(t, 0.5f, 17.25f, 0.0f), kHalfRing);
    EXPECT_EQ(valueAt(t, 0.0f, -3.0f, -0.5f), kHalfRing);
    EXPECT_EQ(valueAt(t, 0.3f, 2.0f, 0.4f), kHalfRing);
}

TEST(WoodKind, RingBands) {
    const WoodTexture3D t = unperturbed();
    // Ring fraction 0.6631: on the rising edge of the dark band.
    EXPECT_EQ(valueAt(t, 0.015625f, 0.0f, 0.0f), 0x1.0c85ap-3f);
    // Ring fraction 0.8179, between 0.8 and 0.83: fully dark.
    EXPECT_EQ(valueAt(t, 0.03125f, 0.0f, 0.0f), 0.1f);
    // Ring fraction 0.8888: on the falling edge of the dark band.
    EXPECT_EQ(valueAt(t, 0.0390625f, 0.0f, 0.0f), 0x1.af578p-3f);
    // Ring fraction 0.8305, just past the start of the falling edge.
    EXPECT_EQ(valueAt(t, 0.0325927734375f, 0.0f, 0.0f), 0x1.99a3p-4f);
}

TEST(WoodKind, ANonPositiveOrNaNFrequencySwitchesThePerturbationOff) {
    WoodTexture3D t;
    EXPECT_NE(valueAt(t, 0.5f, 0.0f, 0.0f), kHalfRing);
    for (float f : {0.0f, -0.0f, -3.0f, std::numeric_limits<float>::quiet_NaN()}) {
        t.setFrequency(f);
        EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), kHalfRing) << f;
    }
}

TEST(WoodKind, PerturbedValues) {
    WoodTexture3D t;
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.ff5f8p-2f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.28045ap-3f);
    t.setRingScale(4.5f);
    t.setOctaves(3);
    t.setFrequency(2.0f);
    t.setAmplitude(0.3f);
    t.setDarkColor(0.2f);
    t.setLightColor(0.9f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.c9cc5cp-1f);
}

TEST(WoodKind, ColoursOutsideTheUnitRangePassThrough) {
    WoodTexture3D t = unperturbed();
    t.setDarkColor(-1.0f);
    t.setLightColor(2.0f);
    // 0.31640625 * 2 - 0.68359375
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), -0.05078125f);
}

TEST(WoodKind, IgnoresThePlanarFlags) {
    WoodTexture3D t = unperturbed();
    t.setFlags(4);
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.5f), kHalfRing);
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.03125f), 0.1f);
}

TEST(WoodKind, BatchEvaluationGivesTheOnePointValues) {
    WoodTexture3D t;
    t.setOctaves(2);
    const float points[] = {0.3f, 0.7f, 0.2f, 1.37f, 0.51f, 2.86f, 0.0f, 0.0f, 0.0f, -4.5f, 2.25f, 9.0f};
    float out[5] = {-7.0f, -7.0f, -7.0f, -7.0f, -7.0f};
    const grainsmith::Texture3D& base = t;
    base(points, 4, out);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(out[i], base(points + 3 * i)) << i;
    EXPECT_EQ(out[4], -7.0f);

    float untouched[1] = {-7.0f};
    base(points, 0, untouched);
    base(points, -3, untouched);
    EXPECT_EQ(untouched[0], -7.0f);
}

TEST(WoodKind, OddPointsAndParametersGiveABlendOfTheTwoColours) {
    // The dark weight a - b lies in [-1, 1] whatever the ring fraction (even NaN), so with the
    // default colours every value lies between 0.1 (dark) and 2 * 0.5 - 0.1 = 0.9.
    WoodTexture3D t;
    t.setOctaves(2147483647);
    for (float c : noise_kind_test::kOddCoordinates) {
        const float v = valueAt(t, c, c, c);
        EXPECT_TRUE(v >= 0.1f && v <= 0.9f) << c;
    }
    for (float scale : {std::numeric_limits<float>::infinity(), std::numeric_limits<float>::quiet_NaN(), -1e30f}) {
        t.setRingScale(scale);
        const float v = valueAt(t, 0.3f, 0.7f, 0.2f);
        EXPECT_TRUE(v >= 0.1f && v <= 0.9f) << scale;
    }
}
