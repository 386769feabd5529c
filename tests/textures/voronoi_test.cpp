// Voronoi: a single-precision cellular search, with the final sqrt(2)/sqrt(3) factor in double.
#include "grainsmith/textures/voronoi.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(VoronoiKind, Defaults) { expectDefaults<VoronoiTexture3D>({4.0, Voronoi::First, Voronoi::SquaredLength}); }

TEST(VoronoiKind, FirstIsZeroOnAFeaturePoint) {
    // Cube (0, 0, 0) holds table point H[H[H[0]]] = 219, (0.867608, 0.773604, 0.226616); the
    // default scale 4 maps a quarter of it exactly onto it.
    const float x = bits(0x3F5E1B8Fu) * 0.25f, y = bits(0x3F460AE9u) * 0.25f, z = bits(0x3E680E06u) * 0.25f;
    for (int method = 0; method <= 6; ++method)
        EXPECT_EQ(valueAt(withParams<VoronoiTexture3D>({4, 0, double(method)}), x, y, z), 0.0f) << method;
    // The nearest other point is far away, so Tile's amplified difference saturates.
    EXPECT_EQ(valueAt(withParams<VoronoiTexture3D>({4, Voronoi::Tile, Voronoi::Length}), x, y, z), 1.0f);
}

TEST(VoronoiKind, TypesAndMetricsAtOnePoint) {
    // {type, metric, bits}. Squared Taxicab distances of the third and fourth points exceed 1 and
    // clamp; under Chebychev the two nearest are 0.0082 apart, so Tile keeps 1 x sqrt(2)/sqrt(3).
    // Minkowski(4) takes powf(s, 0.25f), correctly rounded (the model works it in rationals).
    static constexpr uint32_t cases[][3] = {
        {0, 0, 0x3EC35B5E}, {1, 1, 0x3E84CC6B}, {2, 4, 0x3F44B2DD}, {3, 3, 0x3F1EBAA3}, {4, 2, 0x3E978BC5},
        {5, 6, 0x3ED758CE}, {2, 2, 0x3F800000}, {3, 2, 0x3F800000}, {6, 3, 0x3F5105EC}, {0, 5, 0x3EB273EF},
        {2, 5, 0x3F3E0CDA}, {4, 5, 0x3CEF53DD},
    };
    for (const auto& c : cases) {
        const VoronoiTexture3D t = withParams<VoronoiTexture3D>({4, double(c[0]), double(c[1])});
        EXPECT_EQ(valueAt(t, 0.13f, 0.37f, 0.71f), bits(c[2])) << "type " << c[0] << " metric " << c[1];
    }
    for (double unknown : {7.0, -1.0, double(INT32_MIN)})  // measured as Length
        EXPECT_EQ(valueAt(withParams<VoronoiTexture3D>({4, 0, unknown}), 0.13f, 0.37f, 0.71f), bits(0x3EC35B5Eu));
}

TEST(VoronoiKind, NegativeCoordinatesScaleAndPlanarMode) {
    EXPECT_EQ(valueAt(withParams<VoronoiTexture3D>({4, 1, 0}), -1.3f, 2.6f, -0.45f), bits(0x3F4A8646u));
    EXPECT_EQ(valueAt(withParams<VoronoiTexture3D>({1, 0, 1}), 0.52f, 1.48f, 2.84f), bits(0x3E36958Du));
    // The planar search only takes cubes with z index 0, unlike the 3-D search at z = 0.
    VoronoiTexture3D t;
    EXPECT_NE(valueAt(t, 0.13f, 0.37f, 0.0f), bits(0x3F0C4ADEu));
    t.setFlags(kPlanar);
    for (float z : {0.0f, -5.25f, 1e30f}) EXPECT_EQ(valueAt(t, 0.13f, 0.37f, z), bits(0x3F0C4ADEu)) << z;
    t.setDistanceMethod(Voronoi::Length);
    EXPECT_EQ(valueAt(t, -1.3f, 2.6f, 3.0f), bits(0x3E8527A8u));
}
