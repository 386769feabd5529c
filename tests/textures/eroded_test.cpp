#include "grainsmith/textures/eroded.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>

namespace grainsmith {
namespace {

// Expected values were worked out independently of this library: a script that follows
// improved noise, the folded sum (summation step in double) and the smooth step, rounding
// to single precision after every single-precision operation.

float value(const ErodedTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

float bits(uint32_t b) { return std::bit_cast<float>(b); }

TEST(ErosionTexture, Defaults) {
    ErodedTexture3D t;
    EXPECT_EQ(t.getMagnitude(), 0.3f);
    EXPECT_EQ(t.getScale(), 1.0f);
    EXPECT_EQ(ErodedTexture3D::name(), "Erosion");
}

TEST(ErosionTexture, PitsWhereTheSumVanishes) {
    ErodedTexture3D t;
    EXPECT_EQ(value(t, 0.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(value(t, -4.0f, 9.0f, 2.0f), 0.0f);
}

TEST(ErosionTexture, SmoothStepFromOneTerm) {
    // Scale 0.125 puts (1, 1, 1) at (0.5, 0.5, 0.5) for the first term (start frequency 4)
    // and on the lattice for the rest: sum = 4 x 0.117 / 4, v = 0.3 x 0.117^3 = 0.00048048,
    // inside the step: u = (v - 0.0001) x 344.82758 = 0.1312, (3 - 2u) u^2 = 0.047124.
    ErodedTexture3D t;
    t.setScale(0.125f);
    EXPECT_EQ(value(t, 1.0f, 1.0f, 1.0f), bits(0x3D41058Bu));
}

TEST(ErosionTexture, AllThreeRegionsOfTheStep) {
    ErodedTexture3D t;
    // Cubed sums 0.0058 and 0.0056: above the step.
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 1.0f);
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.2f), 1.0f);
    // Inside the step.
    EXPECT_EQ(value(t, 0.52f, -0.27f, 0.33f), bits(0x3E3DD0D8u));
    EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), bits(0x3E04281Fu));
    EXPECT_EQ(value(t, 0.61f, 0.44f, -0.18f), bits(0x3F1B1E83u));
    EXPECT_EQ(value(t, 0.071f, 0.093f, 0.017f), bits(0x3DD8D002u));
}

TEST(ErosionTexture, NotANumberFallsThroughToOne) {
    ErodedTexture3D t;
    t.setMagnitude(NAN);
    EXPECT_EQ(value(t, 0.52f, -0.27f, 0.33f), 1.0f);
}

TEST(ErosionTexture, PlanarModeIgnoresZ) {
    ErodedTexture3D t;
    t.setFlags(4);
    for (float z : {0.0f, 0.33f, -8.0f}) {
        EXPECT_EQ(value(t, 0.13f, 0.37f, z), 0.0f) << z;  // cubed sum 0.000041: a pit
        EXPECT_EQ(value(t, 0.52f, -0.27f, z), bits(0x3CCD3D06u)) << z;
        EXPECT_EQ(value(t, 0.61f, 0.44f, z), bits(0x3F09B404u)) << z;
        EXPECT_EQ(value(t, -1.05f, 2.2f, z), 1.0f) << z;
    }
}

}  // namespace
}  // namespace grainsmith
