// Improved gradient noise: the permutation table, values worked independently in float32
// (tests/noise/noise_reference.py), the cell rule at negative integers, periodicity, the
// octave sums and the unscaled ImprovedPerlin class.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <limits>

#include "grainsmith/noise/improved_noise.h"

namespace grainsmith {
namespace {

TEST(PermutationTable, IsTheReferencePermutationTwice) {
    std::array<int, 256> seen{};
    for (int i = 0; i < 256; ++i) ++seen[perm[i]];
    EXPECT_TRUE(std::all_of(seen.begin(), seen.end(), [](int n) { return n == 1; }));
    for (int i = 0; i < 256; ++i) ASSERT_EQ(perm[i + 256], perm[i]) << "entry " << i;

    EXPECT_EQ(perm[0], 151);
    EXPECT_EQ(perm[1], 160);
    EXPECT_EQ(perm[2], 137);
    EXPECT_EQ(perm[3], 91);
    EXPECT_EQ(perm[254], 156);
    EXPECT_EQ(perm[255], 180);
    EXPECT_EQ(perm[511], 180);
    // Position-weighted checksum of the published order, so a swapped pair shows too.
    long weighted = 0;
    for (int i = 0; i < 256; ++i) weighted += static_cast<long>(i) * perm[i];
    EXPECT_EQ(weighted, 4373588);
}

TEST(ImprovedNoise, ValuesAtChosenPoints) {
    EXPECT_EQ(improved_noise1(0.3f), 0x1.6cb468p-2f);
    EXPECT_EQ(improved_noise1(-0.7f), 0x1.07753cp-4f);
    EXPECT_EQ(improved_noise1(3.25f), -0x1.fefbe6p-4f);
    EXPECT_EQ(improved_noise1(-1.5f), -0x1.e147acp-2f);
    EXPECT_EQ(improved_noise1(100.6f), 0x1.f7937cp-4f);

    EXPECT_EQ(improved_noise2(0.3f, 0.7f), -0x1.4bc92ap-2f);
    EXPECT_EQ(improved_noise2(-1.25f, 2.5f), 0x1.7831acp-5f);
    EXPECT_EQ(improved_noise2(12.34f, -56.78f), -0x1.af416ap-3f);

    EXPECT_EQ(improved_noise3(0.3f, 0.7f, 0.1f), -0x1.9029ecp-4f);
    EXPECT_EQ(improved_noise3(-1.25f, 2.5f, -3.75f), 0x1.2225aep-2f);
    EXPECT_EQ(improved_noise3(123.456f, -78.9f, 0.5f), 0x1.cce53cp-5f);
}

TEST(ImprovedNoise, ZeroAtEveryLatticePoint) {
    for (float a : {0.0f, 1.0f, -1.0f, 7.0f, -13.0f, 255.0f, 256.0f, -300.0f, 70000.0f}) {
        EXPECT_EQ(improved_noise1(a), 0.0f) << a;
        for (float b : {0.0f, 2.0f, -5.0f, 129.0f}) {
            EXPECT_EQ(improved_noise2(a, b), 0.0f) << a << ", " << b;
            EXPECT_EQ(improved_noise3(a, b, -a), 0.0f) << a << ", " << b;
        }
    }
}

// An exact negative integer k lies in cell k - 1 at fraction 1. In 1-D that still gives 0;
// in 2-D and 3-D the blend at fraction 1 reaches the next cell's value only up to rounding,
// so these values differ in the last bit from what a true floor gives.
TEST(ImprovedNoise, NegativeIntegerBelongsToTheCellBelow) {
    EXPECT_EQ(improved_noise1(-1.0f), 0.0f);
    EXPECT_EQ(improved_noise1(-2.0f), 0.0f);
    EXPECT_EQ(improved_noise2(-1.0f, 0.1f), -0x1.7bc82ap-4f);  // a true floor: -0x1.7bc824p-4
    EXPECT_EQ(improved_noise2(-1.0f, 0.3f), -0x1.1c5684p-3f);  // a true floor: -0x1.1c5682p-3
    EXPECT_EQ(improved_noise3(0.3f, -7.0f, 0.7f), -0x1.3a6008p-2f);  // a true floor: -0x1.3a600ap-2
}

TEST(ImprovedNoise, RepeatsEvery256CellsOnEachAxis) {
    // Dyadic coordinates, so the shifted point is exact.
    const float x = 0.3125f, y = -2.71875f, z = 5.5625f;
    EXPECT_EQ(improved_noise1(x + 256.0f), improved_noise1(x));
    EXPECT_EQ(improved_noise1(x - 512.0f), improved_noise1(x));
    EXPECT_EQ(improved_noise2(x + 256.0f, y), improved_noise2(x, y));
    EXPECT_EQ(improved_noise2(x, y - 256.0f), improved_noise2(x, y));
    EXPECT_EQ(improved_noise3(x + 256.0f, y, z), improved_noise3(x, y, z));
    EXPECT_EQ(improved_noise3(x, y + 768.0f, z), improved_noise3(x, y, z));
    EXPECT_EQ(improved_noise3(x, y, z - 256.0f), improved_noise3(x, y, z));
    EXPECT_NE(improved_noise3(x + 1.0f, y, z), improved_noise3(x, y, z));
}

TEST(FractalNoise, SumsOctavesWithLacunarityTwoAndGainOneHalf) {
    EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, 4, 1.5f, 0.8f), -0x1.331fdp-2f);
    EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, 5, 2.0f, 1.0f), 0x1.e422e6p-2f);
    EXPECT_EQ(fractal_noise_3D(-1.1f, 2.2f, -3.3f, 3, 0.75f, 1.5f), -0x1.7649dcp-2f);
    // One octave is the noise at the scaled point times the amplitude.
    EXPECT_EQ(fractal_noise_3D(0.15f, 0.35f, 0.05f, 1, 2.0f, 1.0f), improved_noise3(0.3f, 0.7f, 0.1f));
}

TEST(FractalNoise, NoOctavesGiveZero) {
    for (int octaves : {0, -1, -64, INT_MIN}) {
        EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, octaves, 1.5f, 0.8f), 0.0f) << octaves;
        EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, octaves, 2.0f, 1.0f), 0.0f) << octaves;
    }
}

TEST(FractalNoise, IntegralScaledCoordinatesGiveZero) {
    EXPECT_EQ(fractal_noise_2D(3.0f, -5.0f, 6, 1.0f, 1.0f), 0.0f);
    EXPECT_EQ(fractal_noise_3D(1.5f, 2.5f, -0.5f, 8, 2.0f, 0.7f), 0.0f);
}

// Past the 64th octave the doubled coordinates leave the int32 range and the terms stop
// being finite, so an uncapped sum of 1000 octaves would not be finite.
TEST(FractalNoise, CountsAtMost64Octaves) {
    const float tiny = 0x1p-40f;
    const float sum2 = fractal_noise_2D(0.3f, 0.7f, 64, tiny, 1.0f);
    const float sum3 = fractal_noise_3D(0.3f, 0.7f, 0.1f, 64, tiny, 1.0f);
    EXPECT_EQ(sum2, 0x1.595b92p-36f);
    EXPECT_EQ(sum3, 0x1.d1799p-37f);
    EXPECT_EQ(fractal_noise_2D(0.3f, 0.7f, 1000, tiny, 1.0f), sum2);
    EXPECT_EQ(fractal_noise_3D(0.3f, 0.7f, 0.1f, INT_MAX, tiny, 1.0f), sum3);
}

TEST(ImprovedPerlin, IsTheUnscaledNoise) {
    ImprovedPerlin noise;
    EXPECT_EQ(noise.noise3(0.3f, 0.7f, 0.1f), -0x1.ab868p-4f);
    EXPECT_EQ(noise.noise3(-1.25f, 2.5f, -3.75f), 0x1.35fc8p-2f);
    EXPECT_EQ(noise.noise3(123.456f, -78.9f, 0.5f), 0x1.ec68ep-5f);

    const float points[][3] = {{0.3f, 0.7f, 0.1f}, {-9.8f, 4.4f, 0.01f}, {250.5f, -0.25f, 31.7f}};
    for (const auto& q : points) {
        EXPECT_EQ(improved_noise3(q[0], q[1], q[2]), 0.936f * noise.noise3(q[0], q[1], q[2]));
        float v[3] = {q[0], q[1], q[2]};
        EXPECT_EQ(noise.noise3(v), noise.noise3(q[0], q[1], q[2]));
        EXPECT_EQ(noise.noise1(q[0]), noise.noise3(q[0], 0.0f, 0.0f));
    }
    EXPECT_EQ(noise.noise3(4.0f, -3.0f, 0.0f), 0.0f);
}

TEST(ImprovedPerlin, OctaveSumReadsButKeepsTheVector) {
    ImprovedPerlin noise;
    float vec[3] = {0.3f, 0.7f, 0.1f};
    EXPECT_EQ(noise.perlin_noise_3D(vec, 5, 2.0f, 1.0f), 0x1.029eaep-1f);
    EXPECT_EQ(vec[0], 0.3f);
    EXPECT_EQ(vec[1], 0.7f);
    EXPECT_EQ(vec[2], 0.1f);
    EXPECT_EQ(noise.Get(0.3f, 0.7f, 0.1f, 5, 2.0f, 1.0f), 0x1.029eaep-1f);

    float flat[3] = {-2.2f, 1.3f, 0.0f};
    EXPECT_EQ(noise.Get(-2.2f, 1.3f, 4, 0.9f, 1.2f), noise.perlin_noise_3D(flat, 4, 0.9f, 1.2f));
    EXPECT_EQ(noise.perlin_noise_3D(vec, 0, 2.0f, 1.0f), 0.0f);
    EXPECT_EQ(noise.Get(0.3f, 0.7f, -3, 2.0f, 1.0f), 0.0f);
    EXPECT_EQ(noise.Get(0.3f, 0.7f, 0.1f, 1000, 0x1p-40f, 1.0f), noise.Get(0.3f, 0.7f, 0.1f, 64, 0x1p-40f, 1.0f));
}

TEST(ImprovedNoise, AnyInputIsSafe) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float big = std::numeric_limits<float>::max();
    const float values[] = {nan, inf, -inf, 1e30f, -1e30f, big, -big, 2147483648.0f, -2147483904.0f,
                            std::numeric_limits<float>::denorm_min()};
    ImprovedPerlin noise;
    volatile float sink = 0.0f;
    for (float a : values) {
        for (float b : values) {
            sink = improved_noise1(a);
            sink = improved_noise2(a, b);
            sink = improved_noise3(a, b, 0.5f);
            sink = improved_noise3(0.5f, a, b);
            sink = fractal_noise_2D(a, b, 64, 1.0f, 1.0f);
            sink = fractal_noise_3D(a, 0.5f, b, 64, a, b);
            sink = noise.noise3(b, a, a);
            sink = noise.Get(a, b, 0.25f, 64, 1.0f, 1.0f);
        }
    }
    (void)sink;
}

}  // namespace
}  // namespace grainsmith
