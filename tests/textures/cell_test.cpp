// Cell Noise: a double-precision cell search; not a planar kind.
#include "grainsmith/textures/cell.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(CellNoiseKind, Defaults) { expectDefaults<CellTexture3D>({4.0, Worley::First, Worley::Euclidean}); }

TEST(CellNoiseKind, TypesAndMetricsAtChosenPoints) {
    const auto at = [](int type, int metric, float x, float y, float z) {
        return valueAt(withParams<CellTexture3D>({4.0, double(type), double(metric)}), x, y, z);
    };
    EXPECT_EQ(at(Worley::First, Worley::Euclidean, 0.52f, -0.27f, 0.33f), bits(0x3E9FBA12u));
    EXPECT_EQ(at(Worley::Second, Worley::Euclidean, 0.52f, -0.27f, 0.33f), bits(0x3F2D4E14u));
    EXPECT_EQ(at(Worley::Difference21, Worley::Euclidean, 0.52f, -0.27f, 0.33f), bits(0x3EBAE216u));
    EXPECT_EQ(at(Worley::First, Worley::Taxicab, 0.52f, -0.27f, 0.33f), bits(0x3EC7AF32u));
    // The nearest point is 1.067 away here (after undoing the density adjustment): clamped.
    EXPECT_EQ(at(Worley::First, Worley::Euclidean, 0.13f, 0.37f, 0.71f), 1.0f);
    EXPECT_EQ(at(Worley::Difference21, Worley::Euclidean, 0.13f, 0.37f, 0.71f), bits(0x3D935445u));
    // max(10 x (F2 - F1), 1) is never below 1, and the clamp takes it back to 1.
    for (float x : {0.13f, -1.05f, 7.5f, 1e6f})
        EXPECT_EQ(at(Worley::Tile, Worley::Euclidean, x, 0.37f, 0.33f), 1.0f) << x;
}

TEST(CellNoiseKind, IgnoresThePlanarFlags) {
    const CellTexture3D t = inPlane(CellTexture3D(), 12);
    EXPECT_EQ(valueAt(t, 0.52f, -0.27f, 0.33f), bits(0x3E9FBA12u));
    EXPECT_NE(valueAt(t, 0.52f, -0.27f, 0.0f), bits(0x3E9FBA12u));
}
