// Classic gradient noise: the tables drawn for a seed (checked through noise values worked
// independently in float32 by tests/noise/noise_reference.py), the lattice set-up, the
// octave sums and the quirks of the Get overloads.
#include <gtest/gtest.h>

#include <climits>
#include <limits>
#include <memory>

#include "grainsmith/noise/perlin.h"

namespace grainsmith {
namespace {

// About 57 KB each: keep them off the stack.
std::unique_ptr<Perlin> makePerlin() { return std::make_unique<Perlin>(); }
std::unique_ptr<Perlin> makePerlin(int octaves, float frequency, float amplitude, int seed) {
    return std::make_unique<Perlin>(octaves, frequency, amplitude, seed);
}

// With the offset of 4096, x = b - 4095.5 sits half way through cell b, where the noise is
// (g1[p[b]] - g1[p[b + 1]]) / 4, exactly. For seed 95 the shuffled table starts
// p = 495, 303, 76, 513, 1015 with g1 at those entries -0.09375, -0.7958984375,
// 0.4521484375, 0.7177734375, -0.7431640625. The first draw, state 95 * 214013 + 2531011 =
// 22862246, gives 348 and so g1[0] = (348 - 1024) / 1024 = -0.66015625; p[380] = 0 and
// p[381] = 35 with g1[35] = 0.6005859375.
TEST(Perlin, DefaultSeedTables) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->noise1(-4095.5f, false), 0.175537109375f);
    EXPECT_EQ(noise->noise1(-4094.5f, false), -0.31201171875f);
    EXPECT_EQ(noise->noise1(-4093.5f, false), -0.06640625f);
    EXPECT_EQ(noise->noise1(-4092.5f, false), 0.365234375f);
    EXPECT_EQ(noise->noise1(380.0f - 4095.5f, false), -0.315185546875f);
}

TEST(Perlin, ValuesAtChosenPoints) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->noise1(0.3f, false), 0x1.92339cp-4f);
    EXPECT_EQ(noise->noise1(0.3f, true), 0x1.19233ap-1f);
    float v2[2] = {0.3f, 0.7f};
    EXPECT_EQ(noise->noise2(v2, false), -0x1.a493p-3f);
    float v3[3] = {0.3f, 0.7f, 0.1f};
    EXPECT_EQ(noise->noise3(v3, false), -0x1.6d8c0ep-4f);
    float w3[3] = {-1.2f, 3.4f, -5.6f};
    EXPECT_EQ(noise->noise3(w3, true), 0x1.07e13p-1f);
    // The noise functions only read the vector.
    EXPECT_EQ(v3[0], 0.3f);
    EXPECT_EQ(v3[1], 0.7f);
    EXPECT_EQ(v3[2], 0.1f);
}

// Below -4096 the shifted coordinate is negative and truncation gives a negative offset:
// the curve then extrapolates beyond the two gradients (here well above 1).
TEST(Perlin, NoFloorBelowTheOffset) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->noise1(-4096.75f, false), 0x1.b57e4p+1f);
    EXPECT_EQ(noise->noise1(-5000.25f, false), 0x1.64ep-5f);
}

TEST(Perlin, ZeroAtLatticePoints) {
    auto noise = makePerlin();
    for (float a : {0.0f, 1.0f, -3.0f, 1021.0f, -4100.0f, 5000.0f}) {
        EXPECT_EQ(noise->noise1(a, false), 0.0f) << a;
        EXPECT_EQ(noise->noise1(a, true), 0.5f) << a;
        float v2[2] = {a, 7.0f};
        EXPECT_EQ(noise->noise2(v2, false), 0.0f) << a;
        float v3[3] = {-2.0f, a, 12.0f};
        EXPECT_EQ(noise->noise3(v3, false), 0.0f) << a;
        EXPECT_EQ(noise->noise3(v3, true), 0.5f) << a;
    }
}

TEST(Perlin, SeedDecidesTheTables) {
    auto a = makePerlin();
    auto b = makePerlin(1, 1.0f, 1.0f, 95);
    auto other = makePerlin(4, 4.0f, 1.0f, 96);
    float v[3] = {0.3f, 0.7f, 0.1f};
    EXPECT_EQ(a->noise3(v, false), b->noise3(v, false));
    EXPECT_EQ(other->noise3(v, false), -0x1.25994p-7f);
}

// Assignment copies the parameters and the tables: the target takes on the source's seed.
TEST(Perlin, AssignmentCopiesEverything) {
    auto source = makePerlin(4, 4.0f, 1.0f, 96);
    float v[3] = {0.3f, 0.7f, 0.1f};
    EXPECT_EQ(source->noise3(v, false), -0x1.25994p-7f);
    auto target = makePerlin();
    *target = *source;
    EXPECT_EQ(target->noise3(v, false), -0x1.25994p-7f);
}

TEST(Perlin, OctaveSums) {
    auto noise = makePerlin();  // 4 octaves, frequency 4, amplitude 1
    EXPECT_EQ(noise->Get(0.3f, 0.7f, false), -0x1.6cc17ap-2f);
    // With toUnit every octave adds a value in [0, weight].
    EXPECT_EQ(noise->Get(0.3f, 0.7f, true), 0x1.84cfap-1f);
    EXPECT_EQ(noise->Get(0.3f, 0.7f, 3, 1.5f, 2.0f, false), -0x1.1b1a8ap-2f);
    EXPECT_EQ(noise->Get(0.3f, 0.0f, 0.1f, 2, 1.0f, 1.0f, true), 0x1.eac6p-1f);

    auto one = makePerlin(1, 2.0f, 1.0f, 95);
    EXPECT_EQ(one->perlin_noise_1D(0.15f, false), noise->noise1(0.3f, false));
    EXPECT_EQ(one->perlin_noise_1D(0.15f, true), noise->noise1(0.3f, true));
}

// The 1-D overload always sums the signed noise.
TEST(Perlin, OneDimensionalGetIgnoresToUnit) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->Get(0.3f, 3, 2.0f, 0.5f, false), 0x1.673714p-5f);
    EXPECT_EQ(noise->Get(0.3f, 3, 2.0f, 0.5f, true), 0x1.673714p-5f);  // toUnit would give 0x1.d6737p-2
}

// The 3-D overload builds its vector as (x, z, 0).
TEST(Perlin, ThreeDimensionalGetIgnoresY) {
    auto noise = makePerlin();
    const float expected = 0x1.defde6p-1f;  // (x, y, z) would give -0x1.e8fd58p-2
    for (float y : {0.7f, -123.0f, 0.0f, std::numeric_limits<float>::quiet_NaN()}) {
        EXPECT_EQ(noise->Get(0.3f, y, 0.1f, 3, 1.5f, 2.0f, false), expected) << y;
    }
}

TEST(Perlin, NoOctavesGiveZero) {
    auto noise = makePerlin(0, 4.0f, 1.0f, 95);
    for (int octaves : {0, -1, INT_MIN}) {
        EXPECT_EQ(noise->Get(0.3f, octaves, 2.0f, 0.5f, false), 0.0f);
        EXPECT_EQ(noise->Get(0.3f, 0.7f, octaves, 2.0f, 0.5f, true), 0.0f);
        EXPECT_EQ(noise->Get(0.3f, 0.7f, 0.1f, octaves, 2.0f, 0.5f, true), 0.0f);
    }
    EXPECT_EQ(noise->Get(0.3f, 0.7f, true), 0.0f);
    EXPECT_EQ(noise->perlin_noise_1D(0.3f, true), 0.0f);
}

// Past the 64th octave the doubled coordinate leaves the int32 range and the terms stop
// being finite, so an uncapped sum of 1000 octaves would not be finite.
TEST(Perlin, CountsAtMost64Octaves) {
    auto noise = makePerlin();
    const float tiny = 0x1p-40f;
    EXPECT_EQ(noise->Get(0.3f, 64, tiny, 1.0f, false), 0x1.389d6ap-45f);
    EXPECT_EQ(noise->Get(0.3f, 1000, tiny, 1.0f, false), 0x1.389d6ap-45f);
    EXPECT_EQ(noise->Get(0.3f, 0.7f, INT_MAX, tiny, 1.0f, false), noise->Get(0.3f, 0.7f, 64, tiny, 1.0f, false));
}

TEST(Perlin, AnyInputIsSafe) {
    const float inf = std::numeric_limits<float>::infinity();
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float big = std::numeric_limits<float>::max();
    const float values[] = {nan, inf, -inf, 1e30f, -1e30f, big, -big, 2147483648.0f, -2147483904.0f, -4096.0f};
    auto noise = makePerlin();
    volatile float sink = 0.0f;
    for (float a : values) {
        for (float b : values) {
            sink = noise->noise1(a, true);
            float v2[2] = {a, b};
            sink = noise->noise2(v2, false);
            float v3[3] = {b, 0.5f, a};
            sink = noise->noise3(v3, true);
            sink = noise->Get(a, b, true);
            sink = noise->Get(a, 64, b, 1.0f, false);
            sink = noise->Get(a, b, 64, 1.0f, a, false);
            sink = noise->Get(b, 0.0f, a, 64, b, 1.0f, true);
        }
    }
    (void)sink;
}

}  // namespace
}  // namespace grainsmith
