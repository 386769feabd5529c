// Classic gradient noise: the tables drawn for a seed, the lattice set-up, the octave sums
// and the quirks of the Get overloads. Values from tests/reference/noise_model.py.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <limits>
#include <memory>

#include "grainsmith/noise/perlin.h"

namespace grainsmith {
namespace {

// About 57 KB each: keep them off the stack. The default object has 4 octaves, frequency 4,
// amplitude 1 and seed 95.
std::unique_ptr<Perlin> makePerlin() { return std::make_unique<Perlin>(); }

// At x = b - 4095.5 the noise is (g1[p[b]] - g1[p[b + 1]]) / 4 exactly. Seed 95 shuffles p to
// 495, 303, 76, 513, 1015, ... with g1 there -0.09375, -0.7958984375, 0.4521484375, 0.7177734375,
// -0.7431640625; its first draw, 348, gives g1[0] = -0.66015625, and p[380] = 0, p[381] = 35 with
// g1[35] = 0.6005859375.
TEST(Perlin, SeedTables) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->noise1(-4095.5f, false), 0.175537109375f);
    EXPECT_EQ(noise->noise1(-4094.5f, false), -0.31201171875f);
    EXPECT_EQ(noise->noise1(-4093.5f, false), -0.06640625f);
    EXPECT_EQ(noise->noise1(-4092.5f, false), 0.365234375f);
    EXPECT_EQ(noise->noise1(380.0f - 4095.5f, false), -0.315185546875f);
    float v[3] = {0.3f, 0.7f, 0.1f};  // the seed alone decides the tables
    EXPECT_EQ(std::make_unique<Perlin>(1, 1.0f, 1.0f, 95)->noise3(v, false), noise->noise3(v, false));
    EXPECT_EQ(std::make_unique<Perlin>(4, 4.0f, 1.0f, 96)->noise3(v, false), -0x1.25994p-7f);
}

TEST(Perlin, ValuesAtChosenPoints) {
    auto noise = makePerlin();
    float v2[2] = {0.3f, 0.7f}, v3[3] = {0.3f, 0.7f, 0.1f}, w3[3] = {-1.2f, 3.4f, -5.6f};
    EXPECT_EQ(noise->noise1(0.3f, false), 0x1.92339cp-4f);
    EXPECT_EQ(noise->noise2(v2, false), -0x1.a493p-3f);
    EXPECT_EQ(noise->noise3(v3, false), -0x1.6d8c0ep-4f);
    EXPECT_EQ(noise->noise3(w3, true), 0x1.07e13p-1f);
    // Below -4096 truncation gives a negative fraction and the curve extrapolates.
    EXPECT_EQ(noise->noise1(-4096.75f, false), 0x1.b57e4p+1f);
    EXPECT_EQ(noise->noise1(-5000.25f, false), 0x1.64ep-5f);
    for (float a : {0.0f, -3.0f, 1021.0f, -4100.0f, 5000.0f}) {  // lattice points
        float u2[2] = {a, 7.0f}, u3[3] = {-2.0f, a, 12.0f};
        EXPECT_EQ(noise->noise1(a, false), 0.0f) << a;
        EXPECT_EQ(noise->noise1(a, true), 0.5f) << a;
        EXPECT_EQ(noise->noise2(u2, false), 0.0f) << a;
        EXPECT_EQ(noise->noise3(u3, true), 0.5f) << a;
    }
}

// Past 64 octaves the doubled coordinate leaves the int32 range and the terms stop being
// finite, so an uncapped sum would differ.
TEST(Perlin, OctaveSums) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->Get(0.3f, 0.7f, false), -0x1.6cc17ap-2f);
    EXPECT_EQ(noise->Get(0.3f, 0.7f, true), 0x1.84cfap-1f);
    EXPECT_EQ(noise->Get(0.3f, 0.7f, 3, 1.5f, 2.0f, false), -0x1.1b1a8ap-2f);
    EXPECT_EQ(std::make_unique<Perlin>(1, 2.0f, 1.0f, 95)->perlin_noise_1D(0.15f, true), noise->noise1(0.3f, true));
    EXPECT_EQ(std::make_unique<Perlin>(0, 4.0f, 1.0f, 95)->Get(0.3f, 0.7f, true), 0.0f);
    for (int octaves : {-1, INT_MIN}) {
        EXPECT_EQ(noise->Get(0.3f, octaves, 2.0f, 0.5f, false), 0.0f);
        EXPECT_EQ(noise->Get(0.3f, 0.7f, 0.1f, octaves, 2.0f, 0.5f, true), 0.0f);
    }
    EXPECT_EQ(noise->Get(0.3f, 64, 0x1p-40f, 1.0f, false), 0x1.389d6ap-45f);
    EXPECT_EQ(noise->Get(0.3f, 1000, 0x1p-40f, 1.0f, false), 0x1.389d6ap-45f);
    EXPECT_EQ(noise->Get(0.3f, 0.7f, INT_MAX, 0x1p-40f, 1.0f, false),
              noise->Get(0.3f, 0.7f, 64, 0x1p-40f, 1.0f, false));
}

// The 1-D overload always sums the signed noise; the 3-D one builds its vector as (x, z, 0).
TEST(Perlin, GetQuirks) {
    auto noise = makePerlin();
    EXPECT_EQ(noise->Get(0.3f, 3, 2.0f, 0.5f, true), 0x1.673714p-5f);  // honouring toUnit: 0x1.d6737p-2
    for (float y : {0.7f, -123.0f, NAN}) {
        EXPECT_EQ(noise->Get(0.3f, y, 0.1f, 3, 1.5f, 2.0f, false), 0x1.defde6p-1f) << y;  // using y: -0x1.e8fd58p-2
    }
    EXPECT_EQ(noise->Get(0.3f, 0.0f, 0.1f, 2, 1.0f, 1.0f, true), 0x1.eac6p-1f);
}

TEST(Perlin, AnyInputIsSafe) {
    const float inf = std::numeric_limits<float>::infinity();
    const float odd[] = {NAN, inf, -inf, 1e30f, -1e30f, 2147483648.0f, -2147483904.0f, -4096.0f};
    auto noise = makePerlin();
    volatile float sink = 0.0f;
    for (float a : odd) {
        for (float b : odd) {
            float v2[2] = {a, b}, v3[3] = {b, 0.5f, a};
            sink = noise->noise1(a, true) + noise->noise2(v2, false) + noise->noise3(v3, true);
            sink = noise->Get(a, b, true) + noise->Get(a, 64, b, 1.0f, false);
            sink = noise->Get(a, b, 64, 1.0f, a, false) + noise->Get(b, 0.0f, a, 64, b, 1.0f, true);
        }
    }
    (void)sink;
}

}  // namespace
}  // namespace grainsmith
