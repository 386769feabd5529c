// Simplex noise: values worked independently in float32 (tests/noise/noise_reference.py),
// covering every ordering of the 3-D simplex and cells on both sides of zero.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "grainsmith/noise/simplex_noise.h"

namespace grainsmith {
namespace {

TEST(SimplexNoise, ZeroAtTheOrigin) {
    EXPECT_EQ(simplex_noise2(0.0f, 0.0f), 0.0f);
    EXPECT_EQ(simplex_noise3(0.0f, 0.0f, 0.0f), 0.0f);
}

TEST(SimplexNoise, TwoDimensionalValues) {
    EXPECT_EQ(simplex_noise2(0.3f, 0.7f), -0x1.21c494p-3f);
    EXPECT_EQ(simplex_noise2(-1.25f, 2.5f), 0x1.91278ep-1f);
    EXPECT_EQ(simplex_noise2(10.1f, -20.2f), -0x1.bc7a2ep-2f);
    // On the diagonal of a cell (x0 == y0) the middle corner is at the edge of its
    // falloff whichever way the tie goes, so only the other two corners count.
    EXPECT_EQ(simplex_noise2(0.25f, 0.25f), -0x1.05c124p-4f);
}

// The points are chosen so that the offsets inside the cell fall into each of the six
// orderings (largest to smallest offset named in the test comment).
TEST(SimplexNoise, ThreeDimensionalValuesInEverySimplex) {
    EXPECT_EQ(simplex_noise3(0.3f, 0.1f, 0.7f), 0x1.a416e4p-2f);    // x >= y >= z
    EXPECT_EQ(simplex_noise3(0.3f, 0.7f, 0.1f), 0x1.466424p-3f);    // x >= z > y
    EXPECT_EQ(simplex_noise3(0.1f, 0.7f, 0.3f), 0x1.e0a1aap-3f);    // z > x >= y
    EXPECT_EQ(simplex_noise3(0.7f, 0.1f, 0.3f), -0x1.d41ae8p-6f);   // z > y > x
    EXPECT_EQ(simplex_noise3(0.7f, 0.3f, 0.1f), -0x1.9360d4p-4f);   // y >= z > x
    EXPECT_EQ(simplex_noise3(0.1f, 0.3f, 0.7f), 0x1.bd9938p-2f);    // y > x >= z
    EXPECT_EQ(simplex_noise3(0.3f, 0.7f, 0.2f), 0x1.ec32bp-5f);
}

TEST(SimplexNoise, CellsBelowZeroWrapIntoTheTable) {
    EXPECT_EQ(simplex_noise3(-3.3f, -1.7f, 2.2f), -0x1.282c14p-3f);
    EXPECT_EQ(simplex_noise3(25.5f, -100.25f, 7.125f), 0x1.582ee6p-5f);
    // Continuous across zero: no jump between neighbouring points on either side.
    for (float d : {1e-3f, 1e-5f}) {
        EXPECT_NEAR(simplex_noise2(-d, 0.4f), simplex_noise2(d, 0.4f), 0.05f * d * 1e3f);
        EXPECT_NEAR(simplex_noise3(0.2f, -d, 0.4f), simplex_noise3(0.2f, d, 0.4f), 0.05f * d * 1e3f);
    }
}

TEST(SimplexNoise, AnyInputIsSafe) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float big = std::numeric_limits<float>::max();
    const float values[] = {nan, inf, -inf, 1e30f, -1e30f, big, -big, 2147483648.0f, -2147483904.0f, -1.0f};
    for (float a : values) {
        for (float b : values) {
            EXPECT_TRUE(std::isfinite(simplex_noise2(a, b))) << a << ", " << b;
            EXPECT_TRUE(std::isfinite(simplex_noise3(a, b, 0.5f))) << a << ", " << b;
            EXPECT_TRUE(std::isfinite(simplex_noise3(0.5f, a, b))) << a << ", " << b;
        }
    }
    // A NaN offset fails every falloff test, so no corner contributes.
    EXPECT_EQ(simplex_noise2(nan, 0.5f), 0.0f);
    EXPECT_EQ(simplex_noise3(0.5f, 0.5f, nan), 0.0f);
}

}  // namespace
}  // namespace grainsmith
