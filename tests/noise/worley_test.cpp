// Worley cellular noise: the pruned search against a brute-force enumeration of the same
// points, exact zero on a feature point, the eight metrics on a hand-worked offset, empty
// cubes, the value types and odd inputs. Values not worked by hand come from
// cellular_reference.py, a separate double-precision model of the search.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <vector>

#include "grainsmith/noise/cellular.h"
#include "noise/cellular_tables.h"

namespace {

namespace W = grainsmith::Worley;
using grainsmith::cellular::kWorleyPoisson;

constexpr double kDensity = 0.39815;
constexpr double kBack = 2.5116162250408136;

// The feature points of one cube, generated from the hash, the Poisson table and the LCG.
struct FeaturePoint {
    uint32_t id;
    double x, y, z;  // absolute, in cube units
    int cube[3];
};

uint32_t step(uint32_t s) { return s * 1402024253u + 586950981u; }

void appendCube(int X, int Y, int Z, std::vector<FeaturePoint>& out) {
    uint32_t seed = static_cast<uint32_t>(X) * 702395077u + static_cast<uint32_t>(Y) * 915488749u +
                    static_cast<uint32_t>(Z) * 2120969693u;
    const int count = kWorleyPoisson[seed >> 24];
    if (count == 0) return;
    seed = step(seed);
    for (int n = 0; n < count; ++n) {
        FeaturePoint p{seed, 0.0, 0.0, 0.0, {X, Y, Z}};
        double f[3];
        for (double& v : f) {
            seed = step(seed);
            v = (static_cast<double>(seed) + 0.5) / 4294967296.0;
        }
        seed = step(seed);
        p.x = X + f[0];
        p.y = Y + f[1];
        p.z = Z + f[2];
        out.push_back(p);
    }
}

int cellOf(double v) { return static_cast<int>(std::floor(v)); }

struct Ranked {
    double F;
    uint32_t id;
    double delta[3];
    int cube[3];
};

// Every point of the cubes within `radius` of the sample's cube (in cube units), ranked by
// Euclidean or taxicab distance, converted back to sample units.
std::vector<Ranked> bruteForce(const double at[3], bool taxicab, int radius) {
    const double a[3] = {at[0] * kDensity, at[1] * kDensity, at[2] * kDensity};
    std::vector<FeaturePoint> points;
    for (int X = cellOf(a[0]) - radius; X <= cellOf(a[0]) + radius; ++X)
        for (int Y = cellOf(a[1]) - radius; Y <= cellOf(a[1]) + radius; ++Y)
            for (int Z = cellOf(a[2]) - radius; Z <= cellOf(a[2]) + radius; ++Z) appendCube(X, Y, Z, points);
    std::vector<Ranked> ranked;
    for (const FeaturePoint& p : points) {
        const double dx = p.x - a[0], dy = p.y - a[1], dz = p.z - a[2];
        const double d = taxicab ? std::fabs(dx) + std::fabs(dy) + std::fabs(dz) : std::sqrt(dx * dx + dy * dy + dz * dz);
        ranked.push_back({d * kBack, p.id, {dx * kBack, dy * kBack, dz * kBack}, {p.cube[0], p.cube[1], p.cube[2]}});
    }
    std::stable_sort(ranked.begin(), ranked.end(), [](const Ranked& l, const Ranked& r) { return l.F < r.F; });
    return ranked;
}

struct Result {
    double F[4];
    double delta[4][3];
    uint32_t id[4];
};

Result search(const double at[3], int order, int method) {
    Result r{};
    W::worley_search(at, order, r.F, r.delta, r.id, method);
    return r;
}

TEST(WorleyTables, PoissonCountsAreZeroToFive) {
    int zeros = 0;
    for (int i = 0; i < 256; ++i) {
        EXPECT_LE(kWorleyPoisson[i], 5);
        zeros += kWorleyPoisson[i] == 0;
    }
    EXPECT_EQ(zeros, 6);
    EXPECT_EQ(kWorleyPoisson[0], 4);
    EXPECT_EQ(kWorleyPoisson[12], 0);
    EXPECT_EQ(kWorleyPoisson[210], 0);
    EXPECT_EQ(kWorleyPoisson[255], 2);
}

std::vector<std::array<double, 3>> samplePoints() {
    std::vector<std::array<double, 3>> samples = {
        {0.0, 0.0, 0.0},
        {-5.023232450081627, 7.534848675122441, -2.5116162250408136},  // exactly -2, 3, -1 in cube units
        {-1.0, -2.0, -3.0},
        {1e-9, -1e-9, 0.5},
    };
    for (int i = -7; i <= 7; ++i)
        for (int j = -4; j <= 4; ++j)
            for (int k = -2; k <= 2; ++k) samples.push_back({i * 0.913 + 0.01, j * 1.37, k * 2.11 - 0.3});
    return samples;
}

// The search looks at the sample's cube and its 26 neighbours; with a metric whose value
// is never below the Euclidean one, skipping a neighbour never loses a point, so the
// result is the best of all the points of those 27 cubes.
TEST(WorleySearch, MatchesABruteForceOverTheTwentySevenCubes) {
    for (const auto& at : samplePoints()) {
        for (const bool taxicab : {false, true}) {
            const auto expected = bruteForce(at.data(), taxicab, 1);
            for (int order = 1; order <= 4; ++order) {
                const Result r = search(at.data(), order, taxicab ? W::Taxicab : W::Euclidean);
                for (int n = 0; n < order; ++n) {
                    SCOPED_TRACE(testing::Message() << at[0] << ',' << at[1] << ',' << at[2] << " taxicab "
                                                    << taxicab << " order " << order << " rank " << n);
                    EXPECT_EQ(r.id[n], expected[n].id);
                    EXPECT_DOUBLE_EQ(r.F[n], expected[n].F);
                    for (int c = 0; c < 3; ++c) EXPECT_EQ(r.delta[n][c], expected[n].delta[c]);
                }
            }
        }
    }
}

// Against every point of the 125 cubes around the sample: a nearest point that lies
// within the distance the 27 cubes surely cover (the gap to the outside of that block)
// must be found.
TEST(WorleySearch, FindsEveryNearestPointWithinReachOfTheBlock) {
    int checked = 0;
    for (const auto& at : samplePoints()) {
        const auto expected = bruteForce(at.data(), false, 2);
        double reach = 2.0;
        for (double v : at) {
            const double a = v * kDensity;
            const double f = a - std::floor(a);
            reach = std::min({reach, 1.0 + f, 2.0 - f});
        }
        const Result r = search(at.data(), 4, W::Euclidean);
        for (int n = 0; n < 4 && expected[n].F < reach * kBack; ++n, ++checked) {
            EXPECT_EQ(r.id[n], expected[n].id) << at[0] << ',' << at[1] << ',' << at[2] << " rank " << n;
            EXPECT_DOUBLE_EQ(r.F[n], expected[n].F);
        }
    }
    EXPECT_GT(checked, 2000);
}

TEST(WorleySearch, SampleOnAFeaturePointGivesZero) {
    // 0.39815 times these doubles is exactly the first point of cube (-2, -2, -2).
    const double at[3] = {-4.073954242595409, -4.042592956040686, -2.62115529248203};
    std::vector<FeaturePoint> cube;
    appendCube(-2, -2, -2, cube);
    ASSERT_FALSE(cube.empty());
    ASSERT_EQ(at[0] * kDensity, cube[0].x);
    ASSERT_EQ(at[1] * kDensity, cube[0].y);
    ASSERT_EQ(at[2] * kDensity, cube[0].z);
    EXPECT_EQ(cube[0].id, 0x39f5671fu);

    for (int order = 1; order <= 4; ++order) {
        const Result r = search(at, order, W::Euclidean);
        EXPECT_EQ(r.F[0], 0.0);
        EXPECT_EQ(r.id[0], 0x39f5671fu);
        for (double d : r.delta[0]) EXPECT_EQ(d, 0.0);
    }
    // The next ones, from a double-precision brute force over the same points.
    const Result r = search(at, 4, W::Euclidean);
    EXPECT_DOUBLE_EQ(r.F[1], 0.604055106420791);
    EXPECT_DOUBLE_EQ(r.F[2], 1.3633583125521211);
    EXPECT_DOUBLE_EQ(r.F[3], 1.6970744141594492);
    EXPECT_EQ(r.id[1], 3401769416u);
    EXPECT_EQ(r.id[3], 1984428992u);
}

// The sample sits at offset (-1/32, 1/64, 1/128) cube units from the first point of cube
// (-2, -2, -2) (point minus sample), exactly; that point is the nearest under every metric.
TEST(WorleySearch, MetricsOnAHandWorkedOffset) {
    const double at[3] = {-3.995466235562884, -4.081836959556949, -2.640777294240161};
    std::vector<FeaturePoint> cube;
    appendCube(-2, -2, -2, cube);
    ASSERT_EQ(cube[0].x - at[0] * kDensity, -0.03125);
    ASSERT_EQ(cube[0].y - at[1] * kDensity, 0.015625);
    ASSERT_EQ(cube[0].z - at[2] * kDensity, 0.0078125);

    // Squares: 1/1024 + 1/4096 + 1/16384 = 21/16384.
    // Largest plus length: m = -1/32 (the signed component), the others' length sqrt(5) / 128.
    // Quadratic: 21/16384 - 8/16384 - 4/16384 + 2/16384 = 11/16384.
    // Minkowski 4: (1/2^20 + 1/2^24 + 1/2^28)^0.25 = 273^0.25 / 128.
    // Minkowski 0.5, to the fourth: (2^-2.5 + 2^-3 + 2^-3.5)^4.
    const double exact[] = {
        std::sqrt(21.0 / 16384.0) * kBack,
        21.0 / 16384.0 * kBack,
        (0.03125 - std::sqrt(5.0) / 128.0) * kBack,  // the magnitude of m + length
        7.0 / 128.0 * kBack,
        kBack / 32.0,
        11.0 / 16384.0 * kBack,
    };
    for (int method = 0; method < 6; ++method) {
        const Result r = search(at, 2, method);
        EXPECT_EQ(r.id[0], 0x39f5671fu) << method;
        EXPECT_DOUBLE_EQ(r.F[0], exact[method]) << method;
        EXPECT_EQ(r.delta[0][0], -0.03125 * kBack);
        EXPECT_EQ(r.delta[0][1], 0.015625 * kBack);
        EXPECT_EQ(r.delta[0][2], 0.0078125 * kBack);
        EXPECT_LE(r.F[0], r.F[1]);
    }
    // Single-precision powers: within float rounding of the exact values.
    const double m4 = std::pow(273.0, 0.25) / 128.0 * kBack;
    EXPECT_NEAR(search(at, 1, W::Minkowski4).F[0], m4, m4 * 2e-7);
    const double m05 = std::pow(std::pow(2.0, -2.5) + 0.125 + std::pow(2.0, -3.5), 4.0) * kBack;
    EXPECT_NEAR(search(at, 1, W::Minkowski05).F[0], m05, m05 * 5e-7);
    // Codes outside 0..7 behave as Euclidean.
    EXPECT_DOUBLE_EQ(search(at, 1, 8).F[0], exact[0]);
    EXPECT_DOUBLE_EQ(search(at, 1, -1).F[0], exact[0]);
}

TEST(WorleySearch, AnEmptyCubeContributesNothing) {
    std::vector<FeaturePoint> cube;
    appendCube(-1, 1, 0, cube);
    ASSERT_TRUE(cube.empty());

    // A sample in the middle of that cube finds its points in the neighbours only.
    const double at[3] = {-0.5 / kDensity, 1.5 / kDensity, 0.5 / kDensity};
    const auto expected = bruteForce(at, false, 2);
    const Result r = search(at, 4, W::Euclidean);
    for (int n = 0; n < 4; ++n) {
        EXPECT_EQ(r.id[n], expected[n].id);
        EXPECT_FALSE(expected[n].cube[0] == -1 && expected[n].cube[1] == 1 && expected[n].cube[2] == 0);
        const double a[3] = {at[0] * kDensity, at[1] * kDensity, at[2] * kDensity};
        const int inX = cellOf(a[0] + r.delta[n][0] / kBack), inY = cellOf(a[1] + r.delta[n][1] / kBack),
                  inZ = cellOf(a[2] + r.delta[n][2] / kBack);
        EXPECT_FALSE(inX == -1 && inY == 1 && inZ == 0) << n;
    }
    EXPECT_GT(r.F[0], 0.5 * kBack);  // at least half a cube away
}

// The gap test compares the squared Euclidean gap with whatever the metric keeps. With
// "Squared" (the fourth power of the length) small values make it skip a neighbour that
// holds a closer point: the 27-cube best is 0x64b091e4 (1.0960912 in that metric, the
// Euclidean nearest too), but the search keeps 0xd1f00e80 at 1.2159730 (values from
// cellular_reference.py).
TEST(WorleySearch, TheGapTestUsesTheEuclideanGapForEveryMetric) {
    const double at[3] = {-6.381, -4.11, -0.3};
    const Result r = search(at, 1, W::Squared);
    EXPECT_EQ(r.id[0], 0xd1f00e80u);
    EXPECT_DOUBLE_EQ(r.F[0], 1.2159729901966705);
    EXPECT_EQ(search(at, 1, W::Euclidean).id[0], 0x64b091e4u);
}

TEST(WorleySearch, DistancesAreSortedForEveryMetric) {
    for (int i = -5; i <= 5; ++i) {
        for (int j = -5; j <= 5; ++j) {
            const double at[3] = {i * 1.7 + 0.25, j * 1.3, (i - j) * 0.7};
            for (int method = 0; method <= 7; ++method) {
                const Result r = search(at, 4, method);
                EXPECT_GE(r.F[0], 0.0);
                EXPECT_LE(r.F[0], r.F[1]);
                EXPECT_LE(r.F[1], r.F[2]);
                EXPECT_LE(r.F[2], r.F[3]);
            }
        }
    }
}

TEST(WorleyValue, TypesSelectAndCombineTheDistances) {
    const double on[3] = {-4.073954242595409, -4.042592956040686, -2.62115529248203};  // on a point
    const double F2 = 0.604055106420791, F3 = 1.3633583125521211, F4 = 1.6970744141594492;
    auto value = [&](int type) { return W::worley_value(on[0], on[1], on[2], type, W::Euclidean); };
    EXPECT_EQ(value(W::First), 0.0);
    EXPECT_DOUBLE_EQ(value(W::Second), F2);
    EXPECT_DOUBLE_EQ(value(W::Third), F3);
    EXPECT_DOUBLE_EQ(value(W::Fourth), F4);
    EXPECT_DOUBLE_EQ(value(W::Difference21), F2);
    EXPECT_DOUBLE_EQ(value(W::Difference32), F3 - F2);
    EXPECT_DOUBLE_EQ(value(W::Tile), 10.0 * F2);
    EXPECT_EQ(value(7), 0.0);   // outside 0..6: First
    EXPECT_EQ(value(-1), 0.0);

    // Halfway between that point and its neighbour F2 == F1: the tile value is 1 exactly.
    const double mid[3] = {-3.945614561194356, -4.071157941886876, -2.3492479357228917};
    EXPECT_EQ(W::worley_value(mid[0], mid[1], mid[2], W::Tile, W::Euclidean), 1.0);
}

TEST(WorleySearch, OddInputsStayDefined) {
    const double inf = std::numeric_limits<double>::infinity();
    // Far beyond the cube range: nothing is near enough, so every distance keeps its start
    // value, rooted and scaled.
    const double far = std::sqrt(999999.9) * kBack;
    for (double big : {1e30, -1e30, inf, -inf}) {
        const double at[3] = {big, 0.5, -0.5};
        const Result r = search(at, 4, W::Euclidean);
        for (double d : r.F) EXPECT_DOUBLE_EQ(d, far);
    }

    const double odd[] = {NAN, inf, -inf, 1e30, -1e30, 6e9, -2147483648.0, -1.0, -2.0, 0.0};
    for (double a : odd) {
        for (double b : odd) {
            const double at[3] = {a, b, -3.0};
            for (int method = -1; method <= 9; ++method) {
                for (int order = 1; order <= 4; ++order) (void)search(at, order, method);
                for (int type = -1; type <= 7; ++type) (void)W::worley_value(b, -5.0, a, type, method);
            }
        }
    }

    // maxOrder below 1 writes nothing; above 4 writes four.
    double F[6], delta[6][3];
    uint32_t id[6];
    std::fill(std::begin(F), std::end(F), -7.0);
    const double at[3] = {0.3, 0.4, 0.5};
    W::worley_search(at, 0, F, delta, id, W::Euclidean);
    W::worley_search(at, -3, F, delta, id, W::Euclidean);
    EXPECT_EQ(F[0], -7.0);
    W::worley_search(at, 6, F, delta, id, W::Euclidean);
    EXPECT_GE(F[3], 0.0);
    EXPECT_EQ(F[4], -7.0);
    EXPECT_EQ(F[5], -7.0);
}

}  // namespace
