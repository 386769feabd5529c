// Cellular noise, both families. Values not worked by hand come from
// tests/reference/noise_model.py (Voronoi in float32, Worley in double).
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

#include "grainsmith/noise/cellular.h"
#include "noise/cellular_tables.h"

namespace {

namespace V = grainsmith::Voronoi;
namespace W = grainsmith::Worley;
using namespace grainsmith::cellular;

constexpr double kDensity = 0.39815, kBack = 2.5116162250408136;

float finalScale(double v) { return static_cast<float>(v * 1.4142135623730951 * 0.5773502691896258); }

// The Voronoi feature point of cube (cx, cy, cz), from its definition.
std::array<float, 3> featurePoint(int cx, int cy, int cz) {
    const int k = kVoronoiHash[(kVoronoiHash[(kVoronoiHash[cz & 255] + cy) & 255] + cx) & 255];
    return {cx + kVoronoiPoints[k][0], cy + kVoronoiPoints[k][1], cz + kVoronoiPoints[k][2]};
}

TEST(CellularTables, Shapes) {
    std::array<int, 256> seen{};
    int emptyCubes = 0;
    for (int i = 0; i < 256; ++i) {
        ++seen[kVoronoiHash[i]];
        for (float c : kVoronoiPoints[i]) EXPECT_TRUE(c > 0.0f && c < 1.0f) << i;
        EXPECT_LE(kWorleyPoisson[i], 5);
        emptyCubes += kWorleyPoisson[i] == 0;
    }
    EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), 256);
    EXPECT_EQ(emptyCubes, 6);
}

// On a feature point F1 is 0 under every metric. Moved by (1/4, -1/8, 1/16): squares 21/256,
// taxicab (7/16)^2, Chebychev (1/4)^2, quadratic 21/256 - 1/32 + 1/64 - 1/128, Minkowski(0.5)
// (1/2 + sqrt(1/8) + 1/4)^2.
TEST(VoronoiSearch, FeaturePointAndMetricsOnAHandWorkedOffset) {
    float F[4], pos[4][3];
    for (const auto& p : {featurePoint(1, 0, 0), featurePoint(-3, 5, -7)}) {
        for (int method = -1; method <= 7; ++method) {
            V::voronoi_search3(p[0], p[1], p[2], F, pos, method);
            EXPECT_TRUE(F[0] == 0.0f && F[1] > 0.0f && pos[0][0] == p[0] && pos[0][2] == p[2]) << method;
        }
    }
    const auto p = featurePoint(1, 0, 0);
    const float x = p[0] + 0.25f, y = p[1] - 0.125f, z = p[2] + 0.0625f, half = (0.5f + std::sqrt(0.125f)) + 0.25f;
    ASSERT_TRUE(x - p[0] == 0.25f && y - p[1] == -0.125f && z - p[2] == 0.0625f);
    const std::pair<int, float> cases[] = {{V::Length, std::sqrt(0.08203125f)}, {V::SquaredLength, 0.08203125f},
        {V::Taxicab, 0.19140625f}, {V::Chebychev, 0.0625f}, {V::Quadratic, 0.05859375f},
        {V::Minkowski05, half * half}, {7, std::sqrt(0.08203125f)}};  // 7 is outside the table: Length
    for (const auto& [method, expected] : cases) {
        V::voronoi_search3(x, y, z, F, pos, method);
        EXPECT_EQ(F[0], expected) << method;
    }
}

TEST(VoronoiValue, TypesAndTile) {
    const auto p = featurePoint(1, 0, 0);  // Length distances there: 0, F2, F3, F4
    const float F2 = 0.8721176981925964f, F3 = 0.9616518616676331f, F4 = 0.9795771241188049f;
    auto value = [&](int type) { return V::voronoi_value3(p[0], p[1], p[2], type, V::Length); };
    EXPECT_EQ(value(V::Second), finalScale(F2));
    EXPECT_EQ(value(V::Third), finalScale(F3));
    EXPECT_EQ(value(V::Fourth), finalScale(F4));
    EXPECT_EQ(value(V::Difference21), 0.7120811343193054f);
    EXPECT_EQ(value(V::Difference32), finalScale(F3 - F2));
    EXPECT_EQ(value(7), 0.0f);  // outside 0..6: First
    // Tile: 20 x the scaled F2 - F1, never below 1, scaled again; 1 half way to the second point.
    EXPECT_EQ(V::voronoi_value3(1.3028955459594727f, 0.7535325288772583f, 0.210207000374794f, V::Tile, V::Length),
              0.8164966106414795f);
}

// Planar: the z = 0 layer with z = 0, so on its feature points only dz = -P[k][2] remains.
// The cube index is a true floor: at x = -3 the cubes -4..-2 (the cell floor changes F[3]).
TEST(VoronoiSearch, PlanarLayerAndTrueFloor) {
    float F[4], pos[4][3];
    for (const auto& p : {featurePoint(2, 3, 0), featurePoint(1, 0, 0), featurePoint(0, 0, 0)}) {
        V::voronoi_search2(p[0], p[1], F, pos, V::SquaredLength);
        EXPECT_EQ(F[0], p[2] * p[2]);
        EXPECT_TRUE(pos[0][0] == p[0] && pos[0][1] == p[1] && pos[0][2] == p[2]);
    }
    V::voronoi_search3(-3.0f, 0.5f, -2.5f, F, pos, V::SquaredLength);
    const float expected[] = {0.483622670173645f, 0.5535168051719666f, 0.9752567410469055f, 1.16061532497406f};
    for (int n = 0; n < 4; ++n) EXPECT_EQ(F[n], expected[n]) << n;
}

struct Result {
    double F[4], delta[4][3];
    uint32_t id[4];
};

Result search(const double at[3], int order, int method) {
    Result r{};
    W::worley_search(at, order, r.F, r.delta, r.id, method);
    return r;
}

// The pruned search must keep the nearest of all feature points of the 27 cubes, in order.
TEST(WorleySearch, MatchesABruteForceOverTheTwentySevenCubes) {
    auto cubeSeed = [](uint32_t X, uint32_t Y, uint32_t Z) {
        return X * 702395077u + Y * 915488749u + Z * 2120969693u;
    };
    auto step = [](uint32_t s) { return s * 1402024253u + 586950981u; };
    ASSERT_EQ(kWorleyPoisson[cubeSeed(-1, 1, 0) >> 24], 0);
    std::vector<std::array<double, 3>> samples = {
        {-5.023232450081627, 7.534848675122441, -2.5116162250408136},  // exactly -2, 3, -1 in cube units
        {1e-9, -1e-9, 0.5},
        {-0.5 / kDensity, 1.5 / kDensity, 0.5 / kDensity}};  // inside the empty cube (-1, 1, 0)
    for (int i = -7; i <= 7; ++i)
        for (int j = -4; j <= 4; ++j)
            for (int k = -2; k <= 2; ++k) samples.push_back({i * 0.913 + 0.01, j * 1.37, k * 2.11 - 0.3});
    struct Point { uint32_t id; double d[3], F; };
    for (const auto& at : samples) {
        const double a[3] = {at[0] * kDensity, at[1] * kDensity, at[2] * kDensity};
        std::vector<Point> points;
        for (int cube = 0; cube < 27; ++cube) {
            int c[3] = {cube / 9 - 1, cube / 3 % 3 - 1, cube % 3 - 1};
            for (int axis = 0; axis < 3; ++axis) c[axis] += static_cast<int>(std::floor(a[axis]));
            uint32_t seed = cubeSeed(c[0], c[1], c[2]);
            const int count = kWorleyPoisson[seed >> 24];
            seed = step(seed);
            for (int n = 0; n < count; ++n, seed = step(seed)) {
                Point p{seed, {}, 0.0};
                for (int axis = 0; axis < 3; ++axis) {
                    seed = step(seed);
                    p.d[axis] = (c[axis] + (static_cast<double>(seed) + 0.5) / 4294967296.0) - a[axis];
                }
                p.F = std::sqrt(p.d[0] * p.d[0] + p.d[1] * p.d[1] + p.d[2] * p.d[2]) * kBack;
                points.push_back(p);
            }
        }
        std::stable_sort(points.begin(), points.end(), [](const Point& l, const Point& r) { return l.F < r.F; });
        for (int order = 1; order <= 4; ++order) {
            const Result r = search(at.data(), order, W::Euclidean);
            for (int n = 0; n < order; ++n) {
                SCOPED_TRACE(testing::Message() << at[0] << ',' << at[1] << ',' << at[2] << " order " << order);
                EXPECT_EQ(r.id[n], points[n].id) << "rank " << n;
                EXPECT_DOUBLE_EQ(r.F[n], points[n].F);
                for (int c = 0; c < 3; ++c) EXPECT_EQ(r.delta[n][c], points[n].d[c] * kBack);
            }
        }
    }
}

// 0.39815 times kOn is exactly the first feature point of cube (-2, -2, -2).
const double kOn[3] = {-4.073954242595409, -4.042592956040686, -2.62115529248203};

// The sample `at` sits (-1/32, 1/64, 1/128) cube units from that point (point minus sample).
// Squares 21/16384; largest plus length: the signed -1/32 plus sqrt(5) / 128; taxicab 7/128;
// Chebychev 1/32; quadratic (21 - 8 - 4 + 2) / 16384.
TEST(WorleySearch, FeaturePointValueTypesAndHandWorkedMetrics) {
    const Result r = search(kOn, 4, W::Euclidean);
    EXPECT_TRUE(r.F[0] == 0.0 && r.delta[0][0] == 0.0 && r.delta[0][2] == 0.0);
    EXPECT_EQ(r.id[0], 0x39f5671fu);
    const double F2 = 0.604055106420791, F3 = 1.3633583125521211, F4 = 1.6970744141594492;
    auto value = [](int type) { return W::worley_value(kOn[0], kOn[1], kOn[2], type, W::Euclidean); };
    EXPECT_DOUBLE_EQ(value(W::Second), F2);
    EXPECT_DOUBLE_EQ(value(W::Fourth), F4);
    EXPECT_DOUBLE_EQ(value(W::Difference32), F3 - F2);
    EXPECT_DOUBLE_EQ(value(W::Tile), 10.0 * F2);
    EXPECT_EQ(value(7), 0.0);  // outside 0..6: First
    // Half way to the neighbouring point F2 == F1: the tile value is 1 exactly.
    EXPECT_EQ(W::worley_value(-3.945614561194356, -4.071157941886876, -2.3492479357228917, W::Tile, W::Euclidean),
              1.0);

    const double at[3] = {-3.995466235562884, -4.081836959556949, -2.640777294240161};
    const double offset[3] = {-0.03125, 0.015625, 0.0078125};
    for (int c = 0; c < 3; ++c) ASSERT_EQ(kOn[c] * kDensity - at[c] * kDensity, offset[c]);
    const double exact[] = {std::sqrt(21.0 / 16384.0) * kBack, 21.0 / 16384.0 * kBack,
                            (0.03125 - std::sqrt(5.0) / 128.0) * kBack, 7.0 / 128.0 * kBack, kBack / 32.0,
                            11.0 / 16384.0 * kBack};
    for (int method : {0, 1, 2, 3, 4, 5, 8, -1}) {  // outside 0..7: Euclidean
        const Result m = search(at, 2, method);
        EXPECT_EQ(m.id[0], 0x39f5671fu) << method;
        EXPECT_DOUBLE_EQ(m.F[0], exact[method < 0 || method > 7 ? 0 : method]) << method;
        for (int c = 0; c < 3; ++c) EXPECT_EQ(m.delta[0][c], offset[c] * kBack);
    }
}

// The gap test compares the squared Euclidean gap with whatever the metric keeps; with
// "Squared" it skips the neighbour holding the 27-cube best (0x64b091e4, the Euclidean nearest).
TEST(WorleySearch, TheGapTestUsesTheEuclideanGapForEveryMetric) {
    const double at[3] = {-6.381, -4.11, -0.3};
    const Result r = search(at, 1, W::Squared);
    EXPECT_EQ(r.id[0], 0xd1f00e80u);
    EXPECT_DOUBLE_EQ(r.F[0], 1.2159729901966705);
    EXPECT_EQ(search(at, 1, W::Euclidean).id[0], 0x64b091e4u);
}

TEST(CellularNoise, OddInputsStayDefined) {
    const double inf = std::numeric_limits<double>::infinity();
    const double odd[] = {NAN, inf, -inf, 1e30, -1e30, 6e9, -2147483648.0, -1.0, 0.0};
    float F[4], pos[4][3];
    volatile double sink = 0.0;
    for (double a : odd) {
        for (double b : odd) {
            const double at[3] = {a, b, -3.0};
            const float fa = static_cast<float>(a), fb = static_cast<float>(b);
            for (int method = -2; method <= 9; ++method) {
                V::voronoi_search3(fa, fb, -3.0f, F, pos, method);
                V::voronoi_search2(fa, fb, F, pos, method);
                for (int order = 1; order <= 4; ++order) sink = search(at, order, method).F[0];
                for (int type = -1; type <= 7; ++type) {
                    sink = V::voronoi_value3(fb, -5.0f, fa, type, method) + V::voronoi_value2(fa, fb, type, method);
                    sink = W::worley_value(b, -5.0, a, type, method);
                }
            }
        }
    }
    (void)sink;
    // Nothing found: the start values stay (Voronoi's Tile: the floor 1, scaled).
    V::voronoi_search3(NAN, 1.0f, 1.0f, F, pos, V::Length);
    EXPECT_TRUE(F[0] == std::numeric_limits<float>::max() && F[3] == std::numeric_limits<float>::max());
    EXPECT_EQ(V::voronoi_value3(NAN, 0.5f, 0.5f, V::Tile, V::Length), 0.8164966106414795f);
    const double far[3] = {1e30, 0.5, -0.5};
    for (double d : search(far, 4, W::Euclidean).F) EXPECT_DOUBLE_EQ(d, std::sqrt(999999.9) * kBack);
    double WF[6] = {-7.0, -7.0, -7.0, -7.0, -7.0, -7.0}, delta[6][3];  // maxOrder < 1: none; > 4: four
    uint32_t id[6];
    W::worley_search(far, 0, WF, delta, id, W::Euclidean);
    EXPECT_EQ(WF[0], -7.0);
    W::worley_search(far, 6, WF, delta, id, W::Euclidean);
    EXPECT_TRUE(WF[3] > 0.0 && WF[4] == -7.0);
}

// Values where a plausible variant gives the noted last digit. "Tile" rounds 20 x the scaled
// difference to float (not double); Minkowski(4) takes ((d x d) x d) x d (not (d x d) x (d x d)).
TEST(CellularValues, VoronoiTileInSinglePrecisionAndMinkowskiPowersLeftToRight) {
    const struct { uint32_t x, y, z; int type, method; bool planar; uint32_t expected; } cases[] = {
        {0xBCA6FB1Fu, 0xBF813870u, 0x402EEB45u, V::Tile, V::Length, false, 0x3F7900E5u},         // double: ...E6
        {0xC0617FAEu, 0x4041FD5Au, 0xBEC154F8u, V::Tile, V::Length, true, 0x410440DBu},          // double: ...DA
        {0x402089EEu, 0x408ECFEBu, 0xC087067Fu, V::Tile, V::SquaredLength, false, 0x40DE0EC8u},  // double: ...C9
        {0xC0B88ADBu, 0x408C517Fu, 0x40841484u, V::Tile, V::SquaredLength, true, 0x4077192Cu},   // double: ...2D
        {0xBFF9F815u, 0x40A8FAD4u, 0x40BFADEEu, V::Tile, V::Quadratic, false, 0x3FD395B3u},      // double: ...B4
        {0x400F49CAu, 0xC09A5F1Eu, 0x4083ED0Bu, V::Tile, V::Quadratic, true, 0x3F95E7BAu},       // double: ...BB
        {0xBFAB1CACu, 0x3E3B9CFDu, 0xC0548DD8u, V::First, V::Minkowski4, false, 0x3EC8517Cu},    // squares: ...7D
        {0x3F7240F4u, 0x40A5E6A0u, 0x3F07A876u, V::First, V::Minkowski4, true, 0x3F169137u},     // squares: ...36
    };
    for (const auto& c : cases) {
        const float x = std::bit_cast<float>(c.x), y = std::bit_cast<float>(c.y), z = std::bit_cast<float>(c.z);
        const float v = c.planar ? V::voronoi_value2(x, y, c.type, c.method)
                                 : V::voronoi_value3(x, y, z, c.type, c.method);
        EXPECT_EQ(std::bit_cast<uint32_t>(v), c.expected) << std::hex << c.x << " method " << c.method;
    }
}

// Neighbours are visited faces, edges, corners, each group from -x to +z (reversed, the first
// three differ); "largest plus length" keeps the sign (the magnitude changes the fourth).
TEST(CellularValues, WorleyValuesUnderOrderSensitiveMetrics) {
    using M = W::DistanceMethod;
    const struct { double x, y, z; int type, method; double expected; } cases[] = {
        {13.181803587150874, 16.26686055510811, 4.597852505388037, W::Second, M::Squared, 1.2709788338316423},
        {3.357443749585144, 9.273617614826513, -13.518576000097905, W::Fourth, M::LargestPlusLength,
         0.2505316767245509},
        {3.815404804932893, 2.401326352307514, 1.771409123634129, W::Third, M::Quadratic, 0.6524949928751917},
        {-7.4104177950428785, -15.085422908973666, -18.843211179301814, W::First, M::LargestPlusLength,
         0.11566456802277361},
        {-17.540718882143945, 5.413956599637501, 4.995876453353738, W::First, M::Minkowski4, 1.0819441407196608},
        {4.794557015365367, -11.593064195167347, -11.685782180860297, W::Difference21, M::Minkowski4,
         0.6822366503694316},
        {-12.39617602200048, -12.553678908056632, -7.453505017546744, W::First, M::Minkowski05, 4.32680318751677},
        {9.303919212188617, 5.372017752861943, 13.384857093080896, W::Difference21, M::Minkowski05, 5.10183827415657},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(W::worley_value(c.x, c.y, c.z, c.type, c.method), c.expected)
            << c.x << " " << c.y << " " << c.z << " type " << c.type << " method " << c.method;
    }
}

}  // namespace
