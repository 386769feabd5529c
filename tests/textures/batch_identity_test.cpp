// The batch operator of every kind gives exactly the one-point operator's bits, on every
// SIMD level the dispatcher can choose on this machine, for records with odd parameters
// and for points made of raw bit patterns (NaN, infinities, denormals, huge values, -0,
// exact negative integers).
#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/textures/corrugated.h"
#include "grainsmith/textures/gradient.h"
#include "grainsmith/textures/perlin_noise.h"
#include "grainsmith/textures/simplex.h"
#include "grainsmith/textures/voronoi.h"
#include "grainsmith/simd.h"
#include "simd/levels.h"

namespace grainsmith {
namespace {

constexpr float kSpecialCoordinates[] = {
    0.0f, -0.0f, 1.0f, -1.0f, -2.0f, -255.0f, -256.0f, -257.0f, 255.0f, 256.0f, 0.5f, -0.5f, 0.999999f,
    -1e-45f, 1e-45f, 1e-40f, -1e-38f, 1e30f, -1e30f, FLT_MAX, -FLT_MAX, INFINITY, -INFINITY, NAN, -NAN,
    2147483648.0f, -2147483648.0f, 2147483520.0f, -2147483904.0f, 8388608.0f, -8388607.5f, 16777217.0f,
};

float randomCoordinate(std::mt19937& rng) {
    switch (rng() % 3) {
        case 0:
            return std::bit_cast<float>(static_cast<uint32_t>(rng()));
        case 1:
            return kSpecialCoordinates[rng() % std::size(kSpecialCoordinates)];
        default:
            return std::uniform_real_distribution<float>(-300.0f, 300.0f)(rng);
    }
}

std::vector<float> randomPoints(std::mt19937& rng, int n) {
    std::vector<float> points(3 * static_cast<size_t>(n));
    for (float& c : points) c = randomCoordinate(rng);
    return points;
}

// A record of the kind with every parameter drawn from values that stress the arithmetic:
// zero and negative counts, the 64 cap, NaN, infinities, denormals, codes outside tables.
void randomiseRecord(const Kind& kind, std::mt19937& rng, unsigned char* record) {
    static constexpr int32_t kCounts[] = {-3, 0, 1, 1, 2, 3, 4, 5, 8, 65, INT32_MIN};
    static constexpr float kFloats[] = {0.0f, -0.0f, 0.5f, 1.0f, 2.0f, 4.0f, -3.7f, 0.013f, 2.17f,
                                        1e-40f, 1e30f, NAN, INFINITY, -INFINITY, 97.5f,
                                        std::bit_cast<float>(0xffcccccdu), std::bit_cast<float>(0x7fa00001u)};
    for (const Param& p : kind.ops->parameters()) {
        unsigned char* field = record + p.offset;
        switch (p.type) {
            case FieldType::Bool:
                *field = static_cast<unsigned char>(rng() % 3 == 0 ? 0x80 : rng() % 2);
                break;
            case FieldType::Int32: {
                const int32_t v = kCounts[rng() % std::size(kCounts)];
                std::memcpy(field, &v, sizeof v);
                break;
            }
            case FieldType::Enum: {
                const int32_t v = static_cast<int32_t>(rng() % (p.choices.size() + 3)) - 1;
                std::memcpy(field, &v, sizeof v);
                break;
            }
            case FieldType::Float32: {
                const float v = rng() % 2 ? kFloats[rng() % std::size(kFloats)]
                                          : std::uniform_real_distribution<float>(-5.0f, 5.0f)(rng);
                std::memcpy(field, &v, sizeof v);
                break;
            }
        }
    }
}

struct Case {
    std::string label;
    Texture3D* texture;
    const Kind* kind;
};

class BatchIdentity : public ::testing::Test {
protected:
    void TearDown() override { simd::forceLevel(0); }
};

TEST_F(BatchIdentity, BatchEqualsOnePointOnEverySimdLevel) {
    const std::vector<int64_t> levels = simd::availableLevels();
#if defined(__x86_64__)
    ASSERT_GE(levels.size(), 3u) << "x86-64 offers at least SSSE3, SSE4 (where the CPU has it) and SCALAR";
#elif defined(__aarch64__)
    // NEON belongs to the base architecture: every AArch64 CPU runs it, whatever extensions
    // (AES, SVE) it has or lacks.
    std::vector<std::string> levelNames;
    for (int64_t level : levels) levelNames.emplace_back(simd::levelName(level));
    ASSERT_EQ(levelNames, (std::vector<std::string>{"NEON", "SCALAR"}));
#endif
    std::mt19937 rng(20240611);
    constexpr int kPoints = 203;  // not a multiple of any vector width: the tail path runs too
    const std::vector<float> points = randomPoints(rng, kPoints);

    // The textures and their one-point values, computed once.
    std::vector<Case> cases;
    std::vector<std::vector<float>> expected;
    for (const Kind& kind : catalogue()) {
        if (!kind.implemented()) continue;
        for (int variant = 0; variant < 4; ++variant) {
            for (int flags : {2, 4}) {
                if (flags == 4 && !kind.readsFlags) continue;
                Texture3D* texture = kind.ops->create();
                if (variant > 0) {
                    unsigned char record[256];
                    texture->getDescription(reinterpret_cast<char*>(record));
                    randomiseRecord(kind, rng, record);
                    texture->setStateFromDescription(reinterpret_cast<const char*>(record));
                }
                texture->setFlags(flags);
                std::vector<float> values(kPoints);
                for (int i = 0; i < kPoints; ++i) values[i] = (*texture)(points.data() + 3 * i);
                cases.push_back({std::string(kind.name) + " record " + std::to_string(variant) + " flags " +
                                     std::to_string(flags),
                                 texture, &kind});
                expected.push_back(std::move(values));
            }
        }
    }

    std::string names;
    for (int64_t level : levels) names += std::string(" ") + simd::levelName(level);
    RecordProperty("levels", names);
    std::printf("SIMD levels checked:%s\n", names.c_str());

    for (int64_t level : levels) {
        simd::forceLevel(level);
        ASSERT_STREQ(simdLevelName(), simd::levelName(level));
        for (size_t c = 0; c < cases.size(); ++c) {
            std::vector<float> out(kPoints + 1, 42.0f);
            (*cases[c].texture)(points.data(), kPoints, out.data());
            int mismatches = 0;
            for (int i = 0; i < kPoints && mismatches < 3; ++i) {
                if (std::bit_cast<uint32_t>(out[i]) != std::bit_cast<uint32_t>(expected[c][i])) {
                    ++mismatches;
                    ADD_FAILURE() << simd::levelName(level) << ", " << cases[c].label << ", point " << i << " ("
                                  << points[3 * i] << ", " << points[3 * i + 1] << ", " << points[3 * i + 2]
                                  << "): batch " << out[i] << ", one point " << expected[c][i];
                }
            }
            EXPECT_EQ(out[kPoints], 42.0f) << "wrote past n: " << cases[c].label;
            // A short batch from an odd offset: only the partial-vector path.
            std::vector<float> shortOut(5);
            (*cases[c].texture)(points.data() + 3, 5, shortOut.data());
            for (int i = 0; i < 5; ++i)
                EXPECT_EQ(std::bit_cast<uint32_t>(shortOut[i]), std::bit_cast<uint32_t>(expected[c][i + 1]))
                    << simd::levelName(level) << ", " << cases[c].label << ", short batch point " << i;
        }
    }
    for (const Case& c : cases) c.kind->ops->destroy(c.texture);
}

// Every hash table entry on every level: the levels with byte permutes hash a byte at a
// time (sums modulo 256), the others a word at a time (sums up to 510); the cells here sweep
// each axis over 0..255 and over negative cells, in a grid that also varies the other axes,
// in space and in the plane.
TEST_F(BatchIdentity, NoiseHashesAgreeOnEveryCellIndex) {
    std::vector<float> points;
    for (int a = -260; a < 260; ++a)
        for (int b = 0; b < 3; ++b) {
            const float cell = static_cast<float>(a) + 0.37f, other = static_cast<float>(a * 7 + b * 91) + 0.61f;
            const float third = static_cast<float>(b * 113 - a * 3) + 0.13f;
            points.insert(points.end(), {cell, other, third, other, cell, third, third, other, cell});
        }
    const int n = static_cast<int>(points.size() / 3);

    PerlinTexture3D perlin;
    perlin.setOctaves(1);
    perlin.setFrequency(1.0f);
    SimplexTexture3D simplex;
    simplex.setScale(1.0f);
    VoronoiTexture3D voronoi;
    voronoi.setScale(1.0f);
    PerlinTexture3D perlinPlane = perlin;
    perlinPlane.setFlags(4);
    SimplexTexture3D simplexPlane = simplex;
    simplexPlane.setFlags(4);
    const Texture3D* textures[] = {&perlin, &simplex, &voronoi, &perlinPlane, &simplexPlane};
    for (const Texture3D* t : textures) {
        std::vector<float> expected(n);
        for (int i = 0; i < n; ++i) expected[i] = (*t)(points.data() + 3 * i);
        for (int64_t level : simd::availableLevels()) {
            simd::forceLevel(level);
            std::vector<float> out(n);
            (*t)(points.data(), n, out.data());
            int mismatches = 0;
            for (int i = 0; i < n && mismatches < 3; ++i)
                if (std::bit_cast<uint32_t>(out[i]) != std::bit_cast<uint32_t>(expected[i])) {
                    ++mismatches;
                    ADD_FAILURE() << simd::levelName(level) << ", point (" << points[3 * i] << ", "
                                  << points[3 * i + 1] << ", " << points[3 * i + 2] << "): batch " << out[i]
                                  << ", one point " << expected[i];
                }
        }
        simd::forceLevel(0);
    }
}

TEST_F(BatchIdentity, DispatcherNamesTheLevelItChose) {
    const std::vector<int64_t> levels = simd::availableLevels();
    ASSERT_FALSE(levels.empty());
    // Unforced, the dispatcher takes the best level the CPU runs, which comes first.
    EXPECT_STREQ(simdLevelName(), simd::levelName(levels.front()));
}

// Bits that a vector level can lose where the one-point path keeps them, worked by hand and
// checked in every lane (a batch of 19 fills whole vectors and a tail) on every level.
TEST_F(BatchIdentity, SignedZeroAndNanPayloadsOnEveryLevel) {
    const auto expectOnEveryLevel = [](const Texture3D& t, float x, float y, float z, uint32_t want,
                                       const char* what) {
        constexpr int kPoints = 19;
        std::vector<float> points;
        for (int i = 0; i < kPoints; ++i) points.insert(points.end(), {x, y, z});
        EXPECT_EQ(std::bit_cast<uint32_t>(t(points.data())), want) << what << ", one point";
        for (int64_t level : simd::availableLevels()) {
            simd::forceLevel(level);
            std::vector<float> out(kPoints);
            t(points.data(), kPoints, out.data());
            for (int i = 0; i < kPoints; ++i)
                ASSERT_EQ(std::bit_cast<uint32_t>(out[i]), want)
                    << what << ", " << simd::levelName(level) << ", point " << i;
        }
        simd::forceLevel(0);
    };

    // Sawtooth: t = x - floor(x); floor(-0) is -0, so t = -0 - -0 = +0.
    CorrugatedTexture3D corrugated;
    corrugated.setStyle(CorrugatedTexture3D::Sawtooth);
    expectOnEveryLevel(corrugated, -0.0f, 0.0f, 0.0f, 0x00000000u, "Corrugated sawtooth at x = -0");

    // x = 1 gives the factor 1; a NaN y + 1 is quiet with y's payload, |.| clears the sign;
    // when the z factor is NaN too, the product keeps the first factor's NaN (y's).
    GradientTexture3D gradient;
    expectOnEveryLevel(gradient, 1.0f, std::bit_cast<float>(0x7f917287u), std::bit_cast<float>(0xffb05adbu),
                       0x7fd17287u, "Gradient with signalling y and negative z NaNs");
    expectOnEveryLevel(gradient, 1.0f, std::bit_cast<float>(0xffc3038cu), std::bit_cast<float>(0x7fe2aedfu),
                       0x7fc3038cu, "Gradient with negative y and positive z NaNs");
}

}  // namespace
}  // namespace grainsmith
