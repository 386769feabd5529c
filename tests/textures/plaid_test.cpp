// Plaid against tests/reference/kinds_model.py (plaid, plaid_band) and hand-worked limits.
#include "grainsmith/textures/plaid.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(Plaid, DefaultsInEditorOrder) {
    expectDefaults<PlaidTexture3D>({2.0, 2.0, 3, 5, bits(0x3E6FF10F), bits(0x3E24C272), bits(0x3E979B78), 0.0, 0.0,
                                    0.0, bits(0x3E24C272)});
}

TEST(Plaid, ValuesFromTheReferenceModel) {
    PlaidTexture3D t;
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.08f67p-1f);
    EXPECT_EQ(valueAt(t, -1.37f, 2.51f, 9.0f), 0x1.443cdp-1f);
    EXPECT_EQ(valueAt(t, 4.11f, -0.62f, -3.0f), 0x1.6ee31ap-1f);
    for (float z : {0.0f, -5.0f, 1e30f, kNaN}) EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.08f67p-1f);
    // Table order: frequencies, periods, colours 1-4, primary background, backgrounds 2 and 3.
    const PlaidTexture3D u = withParams<PlaidTexture3D>({1.5, 0.7, 4, 2, 0.1, 0.2, 0.3, 0.4, 0.3, 0.2, 0.1});
    EXPECT_EQ(valueAt(u, 2.3f, -1.4f, 0.0f), 0x1.67d27cp-1f);
}

TEST(Plaid, BandRepeatsEveryPeriodAndIsNotClamped) {
    for (float a : {0.375f, 1.25f, -2.5f, -0.125f})
        EXPECT_EQ(PlaidTexture3D::band(a, 3.0f), PlaidTexture3D::band(a + 3.0f, 3.0f)) << a;
    EXPECT_EQ(PlaidTexture3D::band(0.375f, 3.0f), 0x1.3ebf84p-2f);
    EXPECT_EQ(PlaidTexture3D::band(1.25f, 3.0f), -0x1.39ad9p-4f);  // below 0: the terms stay unclamped
    EXPECT_EQ(PlaidTexture3D::band(-2.5f, 3.0f), 0x1.10b9aep-2f);
    EXPECT_EQ(PlaidTexture3D::band(0.37f, 3.0f), 0x1.3f1ce2p-2f);
}

TEST(Plaid, PeriodSettersTruncateAndZeroPeriodGivesZero) {
    PlaidTexture3D t;
    t.setHorizontalPeriod(3.9f);
    t.setVerticalPeriod(-2.7f);
    EXPECT_EQ(t.getHorizontalPeriod(), 3);
    EXPECT_EQ(t.getVerticalPeriod(), -2);
    t.setVerticalPeriod(kNaN);
    EXPECT_EQ(t.getVerticalPeriod(), INT32_MIN);
    t.setVerticalPeriod(0.0f);  // the band divides by zero: not a number, clamped to 0
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.0f);
    const PlaidTexture3D black = withParams<PlaidTexture3D>({2, 2, 3, 5, 0, 0, 0, 0, 0, 0, 0});
    for (float x : {0.5f, -3.3f, 17.2f}) EXPECT_EQ(valueAt(black, x, x * 0.7f, 0.0f), 0.0f);
    const PlaidTexture3D white = withParams<PlaidTexture3D>({2, 2, 3, 5, 1, 1, 1, 1, 1, 1, 1});
    EXPECT_EQ(valueAt(white, 0.3f, 0.7f, 0.2f), 1.0f);  // sum 4 clamps to 1
}
