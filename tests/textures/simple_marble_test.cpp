// "Simple Marble": a noise sum mapped through the marble colour spline.
// Expected values come from noise_kinds_reference.py (an independent float32 model) and,
// where the spline input is pinned, from the knots themselves.
#include <gtest/gtest.h>

#include "grainsmith/textures/simple_marble.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::SimpleMarbleTexture3D;
using noise_kind_test::valueAt;

namespace {

// A zero sum gives t = 7.5: the spline between the flat pairs K7 = K8 = 0.18617715 and
// K9 = K10 = 0.12078286 at u = 0.5, which is their mean 0.15348 (rounded in float32).
constexpr float kSumZeroValue = 0x1.3a53bap-3f;
constexpr float kVeinKnot = 0.7349143f;         // knots 1 and 11: where the spline input clamps

}  // namespace

TEST(SimpleMarbleKind, DefaultsSitAtTheirRecordOffsets) {
    const SimpleMarbleTexture3D t;
    EXPECT_EQ(t.octaves(), 4);
    EXPECT_EQ(t.textureScale(), 2.5f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 44);
    EXPECT_EQ(noise_kind_test::intAt(r, 36), 4);
    EXPECT_EQ(noise_kind_test::floatAt(r, 40), 2.5f);
}

TEST(SimpleMarbleKind, AZeroSumReadsTheSplineAtSevenAndAHalf) {
    SimpleMarbleTexture3D t;
    // Noise vanishes at the origin in every term.
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), kSumZeroValue);
    for (int octaves : {0, -1, -300}) {
        t.setOctaves(octaves);
        EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), kSumZeroValue) << octaves;
    }
}

TEST(SimpleMarbleKind, SumsOutsideTheSplineRangeReadTheEndKnots) {
    const SimpleMarbleTexture3D t;
    // The sum is -0.4003 here: 2 * sum + 0.75 < 0, so t = 0 and the value is knot 1.
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), kVeinKnot);
    // The sum is 0.5983 here: t = 10, the value is knot 11 (the fourth knot read is weighted by 0).
    EXPECT_EQ(valueAt(t, 0.9f, 0.35f, 1.75f), kVeinKnot);
}

TEST(SimpleMarbleKind, ValuesInsideTheSplineRange) {
    SimpleMarbleTexture3D t;
    EXPECT_EQ(valueAt(t, 0.45f, 0.15f, 0.8f), 0x1.ad0546p-4f);
    EXPECT_EQ(valueAt(t, 0.62f, 0.41f, 0.27f), 0x1.2e2608p-1f);
    // Three terms at frequencies 1, 2.17 and 2.17^2 (the ratio applied in double).
    t.setOctaves(3);
    t.setTextureScale(1.7f);
    EXPECT_EQ(valueAt(t, 0.62f, 0.41f, 0.27f), 0x1.7bd70ap-3f);
}

TEST(SimpleMarbleKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    SimpleMarbleTexture3D t;
    for (int flags : {4, 8}) {
        t.setFlags(flags);
        for (float z : {0.2f, 12.0f, std::numeric_limits<float>::infinity()})
            EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.62c29ep-3f) << flags;
    }
}

TEST(SimpleMarbleKind, OddPointsStayInRange) {
    SimpleMarbleTexture3D t;
    t.setOctaves(5000);
    for (int flags : {2, 4}) {
        t.setFlags(flags);
        for (float c : noise_kind_test::kOddCoordinates) {
            const float v = valueAt(t, c, 0.5f, c);
            EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
        }
    }
    t.setTextureScale(std::numeric_limits<float>::quiet_NaN());
    const float v = valueAt(t, 0.3f, 0.7f, 0.2f);
    EXPECT_TRUE(v >= 0.0f && v <= 1.0f);
}
