// Speckled Stone: a power of remapped noise quantised into shades between two colours.
#include "grainsmith/textures/speckled_stone.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(SpeckledStoneKind, Defaults) { expectDefaults<SpeckledStoneTexture3D>({0.02, 4, 2, 0.0, 0.5}); }

TEST(SpeckledStoneKind, ValuesByHandAndAtChosenPoints) {
    // On the lattice (point / 0.02 integral) the noise is 0 and v = 0.5: 0.5^2 = 0.25,
    // floor(4 x 0.25 + 0.5) / 4 = 0.25, 0.75 x 0 + 0.25 x 0.5.
    SpeckledStoneTexture3D t;
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0.125f);
    EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), 0.25f);
    t.setExponent(0);  // power 1 everywhere: the top shade, the grain colour
    EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), 0.5f);
    t.setExponent(-2);  // 1 / 0.25 = 4; floor(16.5) / 4 = 4; -3 x 0 + 4 x 0.5 = 2, not clamped
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 2.0f);
    // Three shades between 0.2 and 0.9: the first shade is 0.2 + 0.7 / 3.
    EXPECT_EQ(valueAt(withParams<SpeckledStoneTexture3D>({0.02, 3, 2, 0.2, 0.9}), 0.13f, 0.37f, 0.71f),
              bits(0x3EDDDDDEu));
}

TEST(SpeckledStoneKind, FineQuantisationShowsTheExactPower) {
    // With 2^24 shades between 0 and 1 the result follows the power to the last bits.
    SpeckledStoneTexture3D t = withParams<SpeckledStoneTexture3D>({0.3, 1 << 24, 1, 0.0, 1.0});
    // x and y are multiplied by 1 / scale, z is divided by it: the two differ here.
    EXPECT_EQ(valueAt(t, 0.467f, -1.836f, -0.484f), bits(0x3EE39658u));
    t.setFlags(kPlanar);
    for (float z : {1.055f, kNaN}) EXPECT_EQ(valueAt(t, -1.463f, 1.39f, z), bits(0x3E963206u)) << z;
    // Powers by squaring: v^4 = (v^2)^2 and v^5 = v x (v^2)^2 differ here from repeated products.
    t.setFlags(2);
    t.setExponent(4);
    EXPECT_EQ(valueAt(t, -1.874f, -1.21f, -0.368f), bits(0x3E39DB58u));
    t.setExponent(5);
    EXPECT_EQ(valueAt(t, -1.806f, 1.947f, 0.134f), bits(0x3D007B30u));
    t.setExponent(-5);
    EXPECT_EQ(valueAt(t, 0.927f, 1.799f, 0.522f), bits(0x4116A04Eu));
}
