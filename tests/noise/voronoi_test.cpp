// Voronoi cellular noise: tables, feature points, metrics, the planar layer, the final
// scale, the "Tile" type and odd inputs. Expected values are worked by hand from the
// definitions or come from cellular_reference.py, a separate float32 model of the search.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

#include "grainsmith/noise/cellular.h"
#include "noise/cellular_tables.h"

namespace {

namespace V = grainsmith::Voronoi;
using grainsmith::cellular::kVoronoiHash;
using grainsmith::cellular::kVoronoiPoints;

constexpr float kFar = 3.4028235e38f;
constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kInvSqrt3 = 0.5773502691896258;

// Index of the feature point of cube (cx, cy, cz), written out from its definition.
int featureIndex(int cx, int cy, int cz) {
    return kVoronoiHash[(kVoronoiHash[(kVoronoiHash[cz & 255] + cy) & 255] + cx) & 255];
}

std::array<float, 3> featurePoint(int cx, int cy, int cz) {
    const int k = featureIndex(cx, cy, cz);
    return {static_cast<float>(cx) + kVoronoiPoints[k][0], static_cast<float>(cy) + kVoronoiPoints[k][1],
            static_cast<float>(cz) + kVoronoiPoints[k][2]};
}

float finalScale(double v) { return static_cast<float>(v * kSqrt2 * kInvSqrt3); }

TEST(VoronoiTables, HashIsAPermutationAndPointsLieInsideTheCube) {
    std::vector<int> seen(256, 0);
    for (int i = 0; i < 256; ++i) ++seen[kVoronoiHash[i]];
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), 256);
    EXPECT_EQ(kVoronoiHash[0], 162);
    EXPECT_EQ(kVoronoiHash[128], 191);
    EXPECT_EQ(kVoronoiHash[255], 93);

    for (int k = 0; k < 256; ++k) {
        for (int c = 0; c < 3; ++c) {
            EXPECT_GT(kVoronoiPoints[k][c], 0.0f) << k;
            EXPECT_LT(kVoronoiPoints[k][c], 1.0f) << k;
        }
    }
    EXPECT_EQ(kVoronoiPoints[0][0], 0.536902f);
    EXPECT_EQ(kVoronoiPoints[0][2], 0.501445f);
    EXPECT_EQ(kVoronoiPoints[124][1], 0.733461f);
    EXPECT_EQ(kVoronoiPoints[255][0], 0.713870f);
    EXPECT_EQ(kVoronoiPoints[255][2], 0.951333f);
}

TEST(VoronoiSearch, SampleOnAFeaturePointGivesZeroUnderEveryMetric) {
    const int cubes[][3] = {{0, 0, 0}, {1, 0, 0}, {-3, 5, -7}, {-1, -1, -1}};
    for (const auto& c : cubes) {
        const auto p = featurePoint(c[0], c[1], c[2]);
        for (int method = -1; method <= 7; ++method) {
            float F[4], pos[4][3];
            V::voronoi_search3(p[0], p[1], p[2], F, pos, method);
            EXPECT_EQ(F[0], 0.0f) << c[0] << ',' << c[1] << ',' << c[2] << " method " << method;
            EXPECT_EQ(pos[0][0], p[0]);
            EXPECT_EQ(pos[0][1], p[1]);
            EXPECT_EQ(pos[0][2], p[2]);
            EXPECT_GT(F[1], 0.0f);
            EXPECT_EQ(V::voronoi_value3(p[0], p[1], p[2], V::First, method), 0.0f);
        }
    }
}

// The sample is the feature point of cube (1, 0, 0) moved by (0.25, -0.125, 0.0625); that
// point stays the nearest under every metric and the offsets are exact in float.
TEST(VoronoiSearch, MetricsOnAHandWorkedOffset) {
    ASSERT_EQ(featureIndex(1, 0, 0), 124);
    const auto p = featurePoint(1, 0, 0);
    const float x = p[0] + 0.25f, y = p[1] - 0.125f, z = p[2] + 0.0625f;
    ASSERT_EQ(x - p[0], 0.25f);
    ASSERT_EQ(y - p[1], -0.125f);
    ASSERT_EQ(z - p[2], 0.0625f);

    // dx, dy, dz = (0.25, -0.125, 0.0625):
    // squares 1/16 + 1/64 + 1/256 = 21/256; taxicab (7/16)^2; Chebychev (1/4)^2;
    // quadratic 21/256 - 1/32 + 1/64 - 1/128 = 15/256;
    // Minkowski(4): (1/256 + 1/4096 + 1/65536)^0.25 = 273^0.25 / 16;
    // Minkowski(0.5): (1/2 + sqrt(1/8) + 1/4)^2.
    const float minkowskiHalf = (0.5f + std::sqrt(0.125f)) + 0.25f;
    const struct {
        int method;
        float expected;
    } cases[] = {
        {V::Length, std::sqrt(0.08203125f)},
        {V::SquaredLength, 0.08203125f},
        {V::Taxicab, 0.19140625f},
        {V::Chebychev, 0.0625f},
        {V::Quadratic, 0.05859375f},
        {V::Minkowski05, minkowskiHalf * minkowskiHalf},
        {7, std::sqrt(0.08203125f)},   // outside the table: Length
        {-1, std::sqrt(0.08203125f)},  // likewise
    };
    for (const auto& c : cases) {
        float F[4], pos[4][3];
        V::voronoi_search3(x, y, z, F, pos, c.method);
        EXPECT_EQ(F[0], c.expected) << "method " << c.method;
        EXPECT_EQ(pos[0][0], p[0]);
        EXPECT_EQ(V::voronoi_value3(x, y, z, V::First, c.method), finalScale(c.expected)) << "method " << c.method;
    }
    // The single-precision power may differ from the exact root in the last place.
    float F[4], pos[4][3];
    V::voronoi_search3(x, y, z, F, pos, V::Minkowski4);
    EXPECT_FLOAT_EQ(F[0], static_cast<float>(std::pow(273.0, 0.25) / 16.0));
}

// At the feature point of cube (1, 0, 0) the Length distances are, from a float32
// emulation of the search: 0, 0.8721177, 0.96165186, 0.9795771.
TEST(VoronoiValue, TypesCarryTheFinalScale) {
    const auto p = featurePoint(1, 0, 0);
    const float F2 = 0.8721176981925964f, F3 = 0.9616518616676331f, F4 = 0.9795771241188049f;
    auto value = [&](int type) { return V::voronoi_value3(p[0], p[1], p[2], type, V::Length); };
    EXPECT_EQ(value(V::First), 0.0f);
    EXPECT_EQ(value(V::Second), finalScale(F2));
    EXPECT_EQ(value(V::Third), finalScale(F3));
    EXPECT_EQ(value(V::Fourth), finalScale(F4));
    EXPECT_EQ(value(V::Difference21), finalScale(F2));
    EXPECT_EQ(value(V::Difference32), finalScale(F3 - F2));
    EXPECT_EQ(value(V::Difference21), 0.7120811343193054f);
    // Types outside 0..6 give the First value.
    EXPECT_EQ(value(7), 0.0f);
    EXPECT_EQ(value(-1), 0.0f);
}

TEST(VoronoiValue, TileAmplifiesTheScaledDifferenceAndNeverGoesBelowOne) {
    // Inside a cell: 20 x the scaled F2 - F1, scaled once more (20 x 0.7120811 x sqrt(2/3)).
    const auto p = featurePoint(1, 0, 0);
    const float amplified = 20.0f * 0.7120811343193054f;
    EXPECT_EQ(V::voronoi_value3(p[0], p[1], p[2], V::Tile, V::Length), finalScale(amplified));
    EXPECT_EQ(V::voronoi_value3(p[0], p[1], p[2], V::Tile, V::Length), 11.628236770629883f);

    // Halfway between that point and the one of cube (0, 0, 0) F2 - F1 is about 3e-8: the
    // amplified difference is below 1, so the value is 1 x sqrt(2) / sqrt(3).
    const float border = finalScale(1.0);
    EXPECT_EQ(border, 0.8164966106414795f);
    EXPECT_EQ(V::voronoi_value3(1.3028955459594727f, 0.7535325288772583f, 0.210207000374794f, V::Tile, V::Length),
              border);
    // With every distance left at the largest float the difference is 0: also the floor value.
    EXPECT_EQ(V::voronoi_value3(NAN, 0.5f, 0.5f, V::Tile, V::Length), border);
}

TEST(VoronoiSearch, PlanarSearchUsesTheZeroLayerAndNeverReachesZero) {
    float smallestZ = 1.0f;
    for (int k = 0; k < 256; ++k) smallestZ = std::min(smallestZ, kVoronoiPoints[k][2]);
    ASSERT_GT(smallestZ, 0.0f);

    // On a feature point of the z = 0 layer only dz = -P[k][2] remains.
    const int cubes[][2] = {{2, 3}, {1, 0}, {0, 0}};
    for (const auto& c : cubes) {
        const int k = featureIndex(c[0], c[1], 0);
        const float x = static_cast<float>(c[0]) + kVoronoiPoints[k][0];
        const float y = static_cast<float>(c[1]) + kVoronoiPoints[k][1];
        const float pz = kVoronoiPoints[k][2];
        float F[4], pos[4][3];
        V::voronoi_search2(x, y, F, pos, V::SquaredLength);
        EXPECT_EQ(F[0], pz * pz) << c[0] << ',' << c[1];
        EXPECT_EQ(pos[0][0], x);
        EXPECT_EQ(pos[0][1], y);
        EXPECT_EQ(pos[0][2], pz);
    }
    EXPECT_EQ(featureIndex(2, 3, 0), 140);

    // Nine cubes instead of 27: every kept distance is at least the 3-D one at z = 0, and
    // no distance is 0.
    for (int i = -20; i <= 20; ++i) {
        for (int j = -20; j <= 20; ++j) {
            const float x = static_cast<float>(i) * 0.37f, y = static_cast<float>(j) * 0.29f;
            for (int method = 0; method < 7; ++method) {
                float F2[4], pos2[4][3], F3[4], pos3[4][3];
                V::voronoi_search2(x, y, F2, pos2, method);
                V::voronoi_search3(x, y, 0.0f, F3, pos3, method);
                for (int n = 0; n < 4; ++n) {
                    EXPECT_GE(F2[n], F3[n]);
                    EXPECT_GT(F2[n], 0.0f);
                }
                EXPECT_EQ(V::voronoi_value2(x, y, V::First, method), finalScale(F2[0]));
            }
        }
    }
}

// The cube index is a true floor: at x = -3 exactly the cubes -4..-2 are searched, not -5..-3.
// The fourth distance differs between the two (1.0911018 with the cell floor).
TEST(VoronoiSearch, ExactNegativeIntegersUseATrueFloor) {
    float F[4], pos[4][3];
    V::voronoi_search3(-3.0f, 0.5f, -2.5f, F, pos, V::SquaredLength);
    EXPECT_EQ(F[0], 0.483622670173645f);
    EXPECT_EQ(F[1], 0.5535168051719666f);
    EXPECT_EQ(F[2], 0.9752567410469055f);
    EXPECT_EQ(F[3], 1.16061532497406f);
    for (const auto& p : pos) {
        EXPECT_GE(p[0], -4.0f);
        EXPECT_LT(p[0], -1.0f);
    }
}

// Squared lengths against all 27 cubes, computed and sorted independently.
TEST(VoronoiSearch, KeepsTheFourSmallestOfTheTwentySevenCubesInOrder) {
    for (int i = -6; i <= 6; ++i) {
        for (int j = -5; j <= 5; ++j) {
            for (int l = -4; l <= 4; ++l) {
                const float x = static_cast<float>(i) * 0.731f, y = static_cast<float>(j) * 0.519f + 0.05f,
                            z = static_cast<float>(l) * 0.887f;
                std::vector<float> all;
                const int xi = static_cast<int>(std::floor(x)), yi = static_cast<int>(std::floor(y)),
                          zi = static_cast<int>(std::floor(z));
                for (int cx = xi - 1; cx <= xi + 1; ++cx) {
                    for (int cy = yi - 1; cy <= yi + 1; ++cy) {
                        for (int cz = zi - 1; cz <= zi + 1; ++cz) {
                            const auto p = featurePoint(cx, cy, cz);
                            const float dx = x - p[0], dy = y - p[1], dz = z - p[2];
                            all.push_back(dx * dx + dy * dy + dz * dz);
                        }
                    }
                }
                std::sort(all.begin(), all.end());
                float F[4], pos[4][3];
                V::voronoi_search3(x, y, z, F, pos, V::SquaredLength);
                for (int n = 0; n < 4; ++n) {
                    EXPECT_EQ(F[n], all[n]) << x << ',' << y << ',' << z << " rank " << n;
                    const float dx = x - pos[n][0], dy = y - pos[n][1], dz = z - pos[n][2];
                    EXPECT_EQ(dx * dx + dy * dy + dz * dz, F[n]);
                }
                for (int method = 0; method < 7; ++method) {
                    V::voronoi_search3(x, y, z, F, pos, method);
                    EXPECT_LE(F[0], F[1]);
                    EXPECT_LE(F[1], F[2]);
                    EXPECT_LE(F[2], F[3]);
                }
            }
        }
    }
}

TEST(VoronoiSearch, OddInputsStayDefined) {
    const float inf = std::numeric_limits<float>::infinity();
    const float odd[] = {NAN, inf, -inf, 1e30f, -1e30f, 3e9f, -2147483648.0f, 2147483520.0f, -1.0f, -2.0f, 0.0f};
    for (float a : odd) {
        for (float b : odd) {
            for (int method = -2; method <= 8; ++method) {
                float F[4], pos[4][3];
                V::voronoi_search3(a, b, -3.0f, F, pos, method);
                EXPECT_LE(F[0], F[3]);
                V::voronoi_search2(a, b, F, pos, method);
                EXPECT_LE(F[0], F[3]);
                for (int type = -1; type <= 7; ++type) {
                    (void)V::voronoi_value3(b, -5.0f, a, type, method);
                    (void)V::voronoi_value2(a, b, type, method);
                }
            }
        }
    }
    // NaN matches no point: every distance stays at the largest float.
    float F[4], pos[4][3];
    V::voronoi_search3(NAN, 1.0f, 1.0f, F, pos, V::Length);
    for (float d : F) EXPECT_EQ(d, kFar);
    EXPECT_EQ(V::voronoi_value3(NAN, 1.0f, 1.0f, V::First, V::Length), finalScale(kFar));
}

}  // namespace
