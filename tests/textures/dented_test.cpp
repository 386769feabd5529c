#include "grainsmith/textures/dented.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace grainsmith {
namespace {

// Expected values were worked out independently of this library: a script that follows
// improved noise and the folded sum step by step, rounding to single precision after every
// single-precision operation and keeping the summation step in double.

float value(const DentedTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

float bits(uint32_t b) { return std::bit_cast<float>(b); }

TEST(DentsTexture, Defaults) {
    DentedTexture3D t;
    EXPECT_EQ(t.getMagnitude(), 5.0f);
    EXPECT_EQ(t.getScale(), 5.0f);
    EXPECT_EQ(DentedTexture3D::name(), "Dents");
}

TEST(DentsTexture, ZeroWhereEveryOctaveLandsOnTheLattice) {
    // Noise is 0 at integer points, so every folded term |0.5 - (0 + 1) / 2| is 0.
    DentedTexture3D t;
    EXPECT_EQ(value(t, 0.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(value(t, 3.0f, -2.0f, 7.0f), 0.0f);
    EXPECT_EQ(value(t, 0.2f, 0.4f, -0.6f), 0.0f);  // 0.2f x 5 rounds to exactly 1
}

TEST(DentsTexture, OnlyTheFirstTermAtHalfIntegers) {
    // Scale 0.5 puts (1, 1, 1) at (0.5, 0.5, 0.5) for the first term and on the lattice for
    // the other five. Improved noise at the cube centre is 0.936 x (-0.25), so the sum is
    // |n| / 2 = 0.117 and the value 5 x 0.117^3 = 0.0080081.
    DentedTexture3D t;
    t.setScale(0.5f);
    EXPECT_EQ(value(t, 1.0f, 1.0f, 1.0f), bits(0x3C033442u));
}

TEST(DentsTexture, ValuesAtChosenPoints) {
    DentedTexture3D t;
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(0x3CA28AD3u));
    EXPECT_EQ(value(t, 0.52f, -0.27f, 0.33f), bits(0x3CF87365u));
    EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), bits(0x3E6910BBu));
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.2f), bits(0x3A833442u));
    EXPECT_EQ(value(t, 0.61f, 0.44f, -0.18f), bits(0x3D40556Du));
}

TEST(DentsTexture, ClampedToTheUnitInterval) {
    DentedTexture3D t;
    t.setMagnitude(50.0f);  // 10 x 0.2276
    EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), 1.0f);
    t.setMagnitude(-5.0f);
    EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), 0.0f);
    t.setMagnitude(NAN);
    EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), 0.0f);
}

TEST(DentsTexture, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    DentedTexture3D t;
    t.setFlags(8);
    for (float z : {0.0f, 0.71f, -3.5f, INFINITY}) {
        EXPECT_EQ(value(t, 0.13f, 0.37f, z), bits(0x3B79EBD9u)) << z;
        EXPECT_EQ(value(t, 0.52f, -0.27f, z), bits(0x3D52FA0Eu)) << z;
    }
}

}  // namespace
}  // namespace grainsmith
