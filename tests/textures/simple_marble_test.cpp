// Simple Marble: a noise sum read through the marble colour spline.
#include "grainsmith/textures/simple_marble.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

// A zero sum reads the spline at 7.5, midway between the flat pairs K7 = K8 and K9 = K10.
constexpr float kSumZeroValue = 0x1.3a53bap-3f;
constexpr float kEndKnot = 0.7349143f;  // knots 1 and 11, where the spline input clamps

TEST(SimpleMarbleKind, Defaults) { expectDefaults<SimpleMarbleTexture3D>({4, 2.5}); }

TEST(SimpleMarbleKind, ValuesAndSplineEnds) {
    EXPECT_EQ(valueAt(SimpleMarbleTexture3D(), 0.0f, 0.0f, 0.0f), kSumZeroValue);
    EXPECT_EQ(valueAt(withParams<SimpleMarbleTexture3D>({0, 2.5}), 0.3f, 0.7f, 0.2f), kSumZeroValue);
    EXPECT_EQ(valueAt(withParams<SimpleMarbleTexture3D>({-300, 2.5}), 0.3f, 0.7f, 0.2f), kSumZeroValue);
    EXPECT_EQ(valueAt(SimpleMarbleTexture3D(), 0.3f, 0.7f, 0.2f), kEndKnot);    // sum -0.4003: t < 0
    EXPECT_EQ(valueAt(SimpleMarbleTexture3D(), 0.9f, 0.35f, 1.75f), kEndKnot);  // sum 0.5983: t = 10
    EXPECT_EQ(valueAt(SimpleMarbleTexture3D(), 0.45f, 0.15f, 0.8f), 0x1.ad0546p-4f);
    EXPECT_EQ(valueAt(SimpleMarbleTexture3D(), 0.62f, 0.41f, 0.27f), 0x1.2e2608p-1f);
    // Frequencies 1, 2.17 and 2.17^2, the ratio applied in double.
    EXPECT_EQ(valueAt(withParams<SimpleMarbleTexture3D>({3, 1.7}), 0.62f, 0.41f, 0.27f), 0x1.7bd70ap-3f);
}

TEST(SimpleMarbleKind, PlanarModeIgnoresZAndOddInputsStayInRange) {
    for (float z : {0.2f, 12.0f, kInf})
        EXPECT_EQ(valueAt(inPlane(SimpleMarbleTexture3D()), 0.3f, 0.7f, z), 0x1.62c29ep-3f);
    expectUnitRangeAtOddPoints(withParams<SimpleMarbleTexture3D>({5000, 2.5}));
    expectUnitRangeAtOddPoints(inPlane(withParams<SimpleMarbleTexture3D>({5000, kNaN})));
}
