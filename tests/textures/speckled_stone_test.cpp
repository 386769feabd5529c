#include "grainsmith/textures/speckled_stone.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <set>
#include <type_traits>

namespace grainsmith {
namespace {

// Expected values were worked out independently of this library: a script that follows
// improved noise, the integer power by squaring and the quantisation step by step, rounding
// to single precision after every single-precision operation.

float value(const SpeckledStoneTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

float bits(uint32_t b) { return std::bit_cast<float>(b); }

TEST(SpeckledStoneTexture, DefaultsAndAccessorTypes) {
    SpeckledStoneTexture3D t;
    EXPECT_EQ(t.scale(), 0.02f);
    EXPECT_EQ(t.nShades(), 4.0f);
    EXPECT_EQ(t.exponent(), 2.0f);
    EXPECT_EQ(t.baseColor(), 0.0f);
    EXPECT_EQ(t.grainColor(), 0.5f);
    // The two counts are integers in the record but are read back as float.
    static_assert(std::is_same_v<decltype(t.nShades()), float>);
    static_assert(std::is_same_v<decltype(t.exponent()), float>);
}

// At a lattice point (x / 0.02 integral) the noise is 0, so v = 0.5.
TEST(SpeckledStoneTexture, LatticePointsByHand) {
    SpeckledStoneTexture3D t;
    // 0.5^2 = 0.25; floor(4 x 0.25 + 0.5) / 4 = 0.25; 0.75 x 0 + 0.25 x 0.5.
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.2f), 0.125f);
    EXPECT_EQ(value(t, 0.0f, 0.0f, 0.0f), 0.125f);
    // Exponent 0: the power is 1 everywhere, so the top shade (the grain colour) everywhere.
    t.setExponent(0);
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.2f), 0.5f);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 0.5f);
    // Exponent -2: 1 / 0.25 = 4; floor(16.5) / 4 = 4; -3 x 0 + 4 x 0.5 = 2, not clamped.
    t.setExponent(-2);
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.2f), 2.0f);
}

TEST(SpeckledStoneTexture, FourShadesGiveOnlyFiveValues) {
    SpeckledStoneTexture3D t;
    t.setBaseColor(0.2f);
    t.setGrainColor(0.6f);
    std::set<float> seen;
    for (int i = 0; i < 40; ++i)
        for (int j = 0; j < 40; ++j) seen.insert(value(t, i * 0.0131f, j * 0.0173f - 0.2f, 0.05f * (i - j)));
    const std::set<float> allowed = {0.2f, 0.75f * 0.2f + 0.25f * 0.6f, 0.5f * 0.2f + 0.5f * 0.6f,
                                     0.25f * 0.2f + 0.75f * 0.6f, 0.6f};
    for (float v : seen) EXPECT_TRUE(allowed.count(v)) << v;
    EXPECT_GE(seen.size(), 3u);
}

TEST(SpeckledStoneTexture, ValuesAtChosenPoints) {
    SpeckledStoneTexture3D t;
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 0.25f);
    EXPECT_EQ(value(t, 0.61f, 0.44f, -0.18f), 0.0f);
    // Three shades between 0.2 and 0.9: the first shade is 0.2 + 0.7 / 3.
    t.setNShades(3);
    t.setBaseColor(0.2f);
    t.setGrainColor(0.9f);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(0x3EDDDDDEu));
}

// With 2^24 shades between 0 and 1 the result follows the power to the last bits, which
// exposes the exact arithmetic of the earlier steps.
TEST(SpeckledStoneTexture, FineQuantisationShowsTheExactPower) {
    SpeckledStoneTexture3D t;
    t.setScale(0.3f);
    t.setNShades(1 << 24);
    t.setBaseColor(0.0f);
    t.setGrainColor(1.0f);
    // x and y are multiplied by 1 / scale, z is divided by scale: the two differ here.
    t.setExponent(1);
    EXPECT_EQ(value(t, 0.467f, -1.836f, -0.484f), bits(0x3EE39658u));
    // Powers by squaring: v^4 = (v^2)^2 and v^5 = v x (v^2)^2 differ in the last bits from
    // plain repeated products at these points.
    t.setExponent(4);
    EXPECT_EQ(value(t, -1.874f, -1.21f, -0.368f), bits(0x3E39DB58u));
    t.setExponent(5);
    EXPECT_EQ(value(t, -1.806f, 1.947f, 0.134f), bits(0x3D007B30u));
    t.setExponent(-5);
    EXPECT_EQ(value(t, 0.927f, 1.799f, 0.522f), bits(0x4116A04Eu));
}

TEST(SpeckledStoneTexture, PlanarModeIgnoresZ) {
    SpeckledStoneTexture3D t;
    t.setScale(0.3f);
    t.setNShades(1 << 24);
    t.setExponent(1);
    t.setGrainColor(1.0f);
    t.setFlags(4);
    for (float z : {1.055f, 9.0f, -0.5f, NAN}) EXPECT_EQ(value(t, -1.463f, 1.39f, z), bits(0x3E963206u)) << z;
}

TEST(SpeckledStoneTexture, DegenerateParametersDoNotTrap) {
    // Neither a zero scale nor zero shades is guarded; both just give a number or NaN.
    SpeckledStoneTexture3D t;
    t.setScale(0.0f);
    (void)value(t, 0.1f, 0.2f, 0.3f);
    t.setScale(0.02f);
    t.setNShades(0);
    EXPECT_TRUE(std::isnan(value(t, 0.1f, 0.2f, 0.3f)));
    t.setNShades(4);
    t.setExponent(INT32_MIN);
    (void)value(t, 0.1f, 0.2f, 0.3f);
}

}  // namespace
}  // namespace grainsmith
