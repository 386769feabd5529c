// Wood: rings around the y axis, perturbed by noise, shaded between two colours.
#include "grainsmith/textures/wood.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

// Ring fraction 0.5 (radius x ring scale an integer, where the ring noise is 0, plus 0.5):
// u = 0.625, dark weight (3 - 2u) u^2 = 0.68359375, value 0.31640625 * 0.5 + 0.68359375 * 0.1f.
constexpr float kHalfRing = 0.2265625f;

TEST(WoodKind, Defaults) { expectDefaults<WoodTexture3D>({6, 1, 1, 0.1, 0.1, 0.5}); }

TEST(WoodKind, UnperturbedRingsAreCirclesAroundTheYAxis) {
    WoodTexture3D t;
    t.setFrequency(0.0f);
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), kHalfRing);
    EXPECT_EQ(valueAt(t, 0.3f, 17.25f, 0.4f), kHalfRing);  // radius 0.5: 3 rings, at any height
    EXPECT_EQ(valueAt(t, 0.015625f, 0.0f, 0.0f), 0x1.0c85ap-3f);        // fraction 0.6631: rising
    EXPECT_EQ(valueAt(t, 0.03125f, 0.0f, 0.0f), 0.1f);                  // 0.8179: fully dark
    EXPECT_EQ(valueAt(t, 0.0325927734375f, 0.0f, 0.0f), 0x1.99a3p-4f);  // 0.8305: just falling
    EXPECT_EQ(valueAt(t, 0.0390625f, 0.0f, 0.0f), 0x1.af578p-3f);       // 0.8888: falling
    t.setFlags(kPlanar);  // not a planar kind: z still counts
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.03125f), 0.1f);
    t.setDarkColor(-1.0f);  // colours outside [0, 1] pass through: 0.31640625 * 2 - 0.68359375
    t.setLightColor(2.0f);
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), -0.05078125f);
}

TEST(WoodKind, PerturbedValues) {
    EXPECT_EQ(valueAt(WoodTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.ff5f8p-2f);
    EXPECT_EQ(valueAt(WoodTexture3D(), 1.37f, 0.51f, 2.86f), 0x1.28045ap-3f);
    EXPECT_EQ(valueAt(withParams<WoodTexture3D>({4.5, 3, 2, 0.3, 0.2, 0.9}), 1.37f, 0.51f, 2.86f), 0x1.c9cc5cp-1f);
    // A non-positive or NaN frequency switches the perturbation off.
    for (double f : {0.0, -0.0, -3.0, double(kNaN)})
        EXPECT_EQ(valueAt(withParams<WoodTexture3D>({6, 1, f, 0.1, 0.1, 0.5}), 0.5f, 0.0f, 0.0f), kHalfRing) << f;
    // Odd inputs: the dark weight stays in [-1, 1] even for a NaN ring fraction, so every value
    // lies between the dark colour 0.1 and 2 * 0.5 - 0.1 = 0.9.
    for (float c : {kNaN, kInf, -1e30f})
        for (float v : {valueAt(withParams<WoodTexture3D>({6, INT32_MAX, 1, 0.1, 0.1, 0.5}), c, c, c),
                        valueAt(withParams<WoodTexture3D>({c, 1, 1, 0.1, 0.1, 0.5}), 0.3f, 0.7f, 0.2f)})
            EXPECT_TRUE(v >= 0.1f && v <= 0.9f) << c;
}

TEST(WoodKind, BatchEvaluationGivesTheOnePointValuesAndStaysInBounds) {
    const WoodTexture3D t = withParams<WoodTexture3D>({6, 2, 1, 0.1, 0.1, 0.5});
    const float points[] = {0.3f, 0.7f, 0.2f, 1.37f, 0.51f, 2.86f, 0.0f, 0.0f, 0.0f, -4.5f, 2.25f, 9.0f};
    float out[5] = {-7.0f, -7.0f, -7.0f, -7.0f, -7.0f};
    static_cast<const Texture3D&>(t)(points, 4, out);
    static_cast<const Texture3D&>(t)(points, -3, out + 4);
    for (int i = 0; i < 4; ++i) EXPECT_EQ(out[i], valueAt(t, points[3 * i], points[3 * i + 1], points[3 * i + 2]));
    EXPECT_EQ(out[4], -7.0f);
}
