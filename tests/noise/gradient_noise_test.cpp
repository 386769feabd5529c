// The free noise functions over the shared permutation: improved gradient noise with its
// octave sums, and simplex noise. Values from tests/reference/noise_model.py.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <set>

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/noise/simplex_noise.h"

namespace grainsmith {
namespace {

TEST(ImprovedNoise, PermutationIsTheReferenceOrderTwice) {
    long weighted = 0;  // position-weighted, so a swapped pair shows
    for (int i = 0; i < 256; ++i) {
        weighted += static_cast<long>(i) * perm[i];
        ASSERT_EQ(perm[i + 256], perm[i]) << i;
    }
    EXPECT_EQ(std::set<int>(perm, perm + 256).size(), 256u);
    EXPECT_EQ(weighted, 4373588);
}

TEST(ImprovedNoise, ValuesAtChosenPoints) {
    EXPECT_EQ(improved_noise1(0.3f), 0x1.6cb468p-2f);
    EXPECT_EQ(improved_noise1(-1.5f), -0x1.e147acp-2f);
    EXPECT_EQ(improved_noise2(0.3f, 0.7f), -0x1.4bc92ap-2f);
    EXPECT_EQ(improved_noise2(12.34f, -56.78f), -0x1.af416ap-3f);
    EXPECT_EQ(improved_noise3(0.3f, 0.7f, 0.1f), -0x1.9029ecp-4f);
    EXPECT_EQ(improved_noise3(123.456f, -78.9f, 0.5f), 0x1.cce53cp-5f);
}

TEST(ImprovedNoise, LatticePointsPeriodAndNegativeIntegers) {
    for (float a : {0.0f, -1.0f, 255.0f, 256.0f, -300.0f, 70000.0f}) {
        EXPECT_EQ(improved_noise1(a), 0.0f) << a;
        for (float b : {0.0f, -5.0f, 129.0f}) {
            EXPECT_EQ(improved_noise2(a, b), 0.0f) << a << ", " << b;
            EXPECT_EQ(improved_noise3(a, b, -a), 0.0f) << a << ", " << b;
        }
    }
    const float x = 0.3125f, y = -2.71875f, z = 5.5625f;  // dyadic: the shifts are exact
    EXPECT_EQ(improved_noise1(x - 512.0f), improved_noise1(x));
    EXPECT_EQ(improved_noise2(x, y - 256.0f), improved_noise2(x, y));
    EXPECT_EQ(improved_noise3(x + 256.0f, y + 768.0f, z - 256.0f), improved_noise3(x, y, z));
    // An exact negative integer k lies in cell k - 1 at fraction 1: the blend then reaches the
    // neighbour's value only up to rounding, so a true floor gives other bits.
    EXPECT_EQ(improved_noise2(-1.0f, 0.1f), -0x1.7bc82ap-4f);        // true floor: -0x1.7bc824p-4
    EXPECT_EQ(improved_noise2(-1.0f, 0.3f), -0x1.1c5684p-3f);        // true floor: -0x1.1c5682p-3
    EXPECT_EQ(improved_noise3(0.3f, -7.0f, 0.7f), -0x1.3a6008p-2f);  // true floor: -0x1.3a600ap-2
}

// Past 64 octaves the doubled coordinates leave the int32 range and the terms stop being
// finite, so an uncapped sum would differ.
TEST(ImprovedNoise, OctaveSums) {
    EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, 4, 1.5f, 0.8f), -0x1.331fdp-2f);
    EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, 5, 2.0f, 1.0f), 0x1.e422e6p-2f);
    EXPECT_EQ(fractal_noise_2D(3.0f, -5.0f, 6, 1.0f, 1.0f), 0.0f);  // every octave on the lattice
    EXPECT_EQ(fractal_noise_3D(1.5f, 2.5f, -0.5f, 8, 2.0f, 0.7f), 0.0f);
    for (int octaves : {0, -1, INT_MIN}) {
        EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, octaves, 1.5f, 0.8f), 0.0f) << octaves;
        EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, octaves, 2.0f, 1.0f), 0.0f) << octaves;
    }
    EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, 64, 0x1p-40f, 1.0f), 0x1.595b92p-36f);
    EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, 1000, 0x1p-40f, 1.0f), 0x1.595b92p-36f);
    EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, INT_MAX, 0x1p-40f, 1.0f), 0x1.d1799p-37f);
}

TEST(ImprovedNoise, ImprovedPerlinIsTheUnscaledNoise) {
    ImprovedPerlin noise;
    for (float x : {0.3f, -9.8f, 250.5f}) {
        EXPECT_EQ(improved_noise3(x, 4.4f, -0.25f), 0.936f * noise.noise3(x, 4.4f, -0.25f));
        EXPECT_EQ(noise.noise1(x), noise.noise3(x, 0.0f, 0.0f));
    }
    float vec[3] = {0.3f, 0.7f, 0.1f};
    EXPECT_EQ(noise.perlin_noise_3D(vec, 5, 2.0f, 1.0f), 0x1.029eaep-1f);
    EXPECT_TRUE(vec[0] == 0.3f && vec[1] == 0.7f && vec[2] == 0.1f);  // read, not scaled
    EXPECT_EQ(noise.Get(0.3f, 0.7f, 0.1f, 5, 2.0f, 1.0f), 0x1.029eaep-1f);
    EXPECT_EQ(noise.Get(-2.2f, 1.3f, 4, 0.9f, 1.2f), noise.Get(-2.2f, 1.3f, 0.0f, 4, 0.9f, 1.2f));
    EXPECT_EQ(noise.Get(0.3f, 0.7f, -3, 2.0f, 1.0f), 0.0f);
    EXPECT_EQ(noise.Get(0.3f, 0.7f, 0.1f, 1000, 0x1p-40f, 1.0f), noise.Get(0.3f, 0.7f, 0.1f, 64, 0x1p-40f, 1.0f));
}

TEST(SimplexNoise, ValuesAtChosenPoints) {
    EXPECT_EQ(simplex_noise2(0.0f, 0.0f), 0.0f);
    EXPECT_EQ(simplex_noise3(0.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(simplex_noise2(0.3f, 0.7f), -0x1.21c494p-3f);
    EXPECT_EQ(simplex_noise2(-1.25f, 2.5f), 0x1.91278ep-1f);
    EXPECT_EQ(simplex_noise2(0.25f, 0.25f), -0x1.05c124p-4f);  // x0 == y0: the middle corner is cut off
    // One point per ordering of the offsets inside the cell, largest first.
    EXPECT_EQ(simplex_noise3(0.3f, 0.1f, 0.7f), 0x1.a416e4p-2f);   // x >= y >= z
    EXPECT_EQ(simplex_noise3(0.3f, 0.7f, 0.1f), 0x1.466424p-3f);   // x >= z > y
    EXPECT_EQ(simplex_noise3(0.1f, 0.7f, 0.3f), 0x1.e0a1aap-3f);   // z > x >= y
    EXPECT_EQ(simplex_noise3(0.7f, 0.1f, 0.3f), -0x1.d41ae8p-6f);  // z > y > x
    EXPECT_EQ(simplex_noise3(0.7f, 0.3f, 0.1f), -0x1.9360d4p-4f);  // y >= z > x
    EXPECT_EQ(simplex_noise3(0.1f, 0.3f, 0.7f), 0x1.bd9938p-2f);   // y > x >= z
    // Negative cells wrap into the table with & 255.
    EXPECT_EQ(simplex_noise3(-3.3f, -1.7f, 2.2f), -0x1.282c14p-3f);
    EXPECT_EQ(simplex_noise3(25.5f, -100.25f, 7.125f), 0x1.582ee6p-5f);
}

TEST(ImprovedAndSimplexNoise, AnyInputIsSafe) {
    const float inf = std::numeric_limits<float>::infinity();
    const float odd[] = {NAN, inf, -inf, 1e30f, -1e30f, 2147483648.0f, -2147483904.0f};
    ImprovedPerlin noise;
    volatile float sink = 0.0f;
    for (float a : odd) {
        for (float b : odd) {
            sink = improved_noise1(a) + improved_noise2(a, b) + improved_noise3(0.5f, a, b);
            sink = fractal_noise_2D(a, b, 64, 1.0f, 1.0f) + fractal_noise_3D(a, 0.5f, b, 64, a, b);
            sink = noise.noise3(b, a, a) + noise.Get(a, b, 0.25f, 64, 1.0f, 1.0f);
            EXPECT_TRUE(std::isfinite(simplex_noise2(a, b) + simplex_noise3(a, b, 0.5f) + simplex_noise3(0.5f, a, b)))
                << a << ", " << b;
        }
    }
    (void)sink;
    EXPECT_EQ(simplex_noise3(0.5f, 0.5f, NAN), 0.0f);  // a NaN offset fails every falloff test
}

}  // namespace
}  // namespace grainsmith
