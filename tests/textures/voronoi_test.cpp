#include "grainsmith/textures/voronoi.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

namespace grainsmith {
namespace {

// Expected values below were worked out independently of this library: a small script that
// follows the cellular search step by step, rounding to single precision after every
// operation and applying the final sqrt(2)/sqrt(3) factor in double.

float value(const VoronoiTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

float bits(uint32_t b) { return std::bit_cast<float>(b); }

TEST(VoronoiTexture, Defaults) {
    VoronoiTexture3D t;
    EXPECT_EQ(t.getScale(), 4.0f);
    EXPECT_EQ(t.getType(), Voronoi::First);
    EXPECT_EQ(t.getDistanceMethod(), Voronoi::SquaredLength);
    EXPECT_EQ(VoronoiTexture3D::name(), "Voronoi");
}

TEST(VoronoiTexture, EditorListsTheTypeAndMethodTextsInCodeOrder) {
    const ParamTable table = VoronoiTexture3D::parameters();
    ASSERT_EQ(table.size(), 3u);
    const Param& type = table[1];
    const Param& method = table[2];
    EXPECT_STREQ(type.label, "Type");
    EXPECT_STREQ(method.label, "Method");
    ASSERT_EQ(type.choices.size(), 7u);
    ASSERT_EQ(method.choices.size(), 7u);
    EXPECT_STREQ(type.choices[4], "Difference (2-1)");
    EXPECT_STREQ(type.choices[6], "Tile");
    EXPECT_STREQ(method.choices[1], "Squared Length");
    EXPECT_STREQ(method.choices[6], "Minkowski(0.5)");
    EXPECT_EQ(type.widget, Widget::Combo);
    EXPECT_EQ(method.widget, Widget::Combo);
}

// The feature point of cube (0, 0, 0) is table point H[H[H[0]]] = H[H[162]] = H[71] = 219,
// (0.867608, 0.773604, 0.226616). A sample exactly on it (after the default scale 4, which
// is exact for a quarter of the point) is at distance 0 under every metric.
TEST(VoronoiTexture, FirstIsZeroOnAFeaturePoint) {
    VoronoiTexture3D t;
    const float x = bits(0x3F5E1B8Fu) * 0.25f, y = bits(0x3F460AE9u) * 0.25f, z = bits(0x3E680E06u) * 0.25f;
    for (int method = 0; method <= 6; ++method) {
        t.setDistanceMethod(method);
        EXPECT_EQ(value(t, x, y, z), 0.0f) << "method " << method;
    }
    // The nearest other point is far away, so the amplified difference of Tile saturates.
    t.setType(Voronoi::Tile);
    t.setDistanceMethod(Voronoi::Length);
    EXPECT_EQ(value(t, x, y, z), 1.0f);
}

struct Case {
    int type;
    int method;
    uint32_t expected;
};

TEST(VoronoiTexture, EveryTypeAndMetricAtOnePoint) {
    // Point (0.13, 0.37, 0.71) with the default scale 4. Minkowski(4) is left out: it goes
    // through powf, whose last bit is the math library's.
    static constexpr Case cases[] = {
        {0, 0, 0x3EC35B5E}, {1, 0, 0x3EEB9E40}, {2, 0, 0x3F519B6E}, {3, 0, 0x3F5414BE},
        {4, 0, 0x3DA10B8A}, {5, 0, 0x3EB7989B}, {0, 1, 0x3E36958D}, {1, 1, 0x3E84CC6B},
        {3, 1, 0x3F572F04}, {4, 1, 0x3DA60690}, {5, 1, 0x3F0FCB24}, {0, 2, 0x3EC128B8},
        {1, 2, 0x3F2C5A3E}, {4, 2, 0x3E978BC5}, {0, 3, 0x3E0D1D04}, {3, 3, 0x3F1EBAA3},
        {4, 3, 0x3C06F4EE}, {0, 4, 0x3DCDA72B}, {2, 4, 0x3F44B2DD}, {5, 4, 0x3F1FE1F7},
        {4, 6, 0x3E5B8D68}, {5, 6, 0x3ED758CE},
    };
    VoronoiTexture3D t;
    for (const Case& c : cases) {
        t.setType(c.type);
        t.setDistanceMethod(c.method);
        EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(c.expected)) << "type " << c.type << " method " << c.method;
    }
}

TEST(VoronoiTexture, ValuesAboveOneAreClamped) {
    // Taxicab distances are squared; the third and fourth here exceed 1 after scaling.
    VoronoiTexture3D t;
    t.setDistanceMethod(Voronoi::Taxicab);
    t.setType(Voronoi::Third);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 1.0f);
    t.setType(Voronoi::Fourth);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 1.0f);
}

TEST(VoronoiTexture, TileIsSqrtTwoThirdsWhereTheDifferenceIsSmall) {
    // Under Chebychev the two nearest points are nearly equidistant here (difference 0.0082
    // after scaling): 20 times that is below 1, so Tile keeps 1, times sqrt(2)/sqrt(3).
    VoronoiTexture3D t;
    t.setType(Voronoi::Tile);
    t.setDistanceMethod(Voronoi::Chebychev);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(0x3F5105ECu));  // 0.81649661
}

TEST(VoronoiTexture, UnknownMetricCodesMeasureLength) {
    VoronoiTexture3D t;
    for (int method : {7, -1, 1000, INT32_MIN}) {
        t.setDistanceMethod(method);
        EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(0x3EC35B5Eu)) << method;
    }
}

TEST(VoronoiTexture, NegativeCoordinatesAndScale) {
    VoronoiTexture3D t;
    t.setType(Voronoi::Second);
    t.setDistanceMethod(Voronoi::Length);
    EXPECT_EQ(value(t, -1.3f, 2.6f, -0.45f), bits(0x3F4A8646u));
    VoronoiTexture3D unscaled;
    unscaled.setScale(1.0f);
    EXPECT_EQ(value(unscaled, 0.52f, 1.48f, 2.84f), bits(0x3E36958Du));  // (0.13, 0.37, 0.71) x 4
}

TEST(VoronoiTexture, PlanarModeSearchesTheLayerAtZeroAndIgnoresZ) {
    VoronoiTexture3D t;
    const float threeD = value(t, 0.13f, 0.37f, 0.0f);
    for (int flags : {4, 8, 12}) {
        t.setFlags(flags);
        for (float z : {0.0f, 0.71f, -5.25f, 1e30f})
            EXPECT_EQ(value(t, 0.13f, 0.37f, z), bits(0x3F0C4ADEu)) << flags << " " << z;
    }
    // The planar search differs from the 3-D search at z = 0: it only looks at cubes with
    // z index 0, so the points of the layer below are not candidates.
    EXPECT_NE(threeD, bits(0x3F0C4ADEu));

    t.setDistanceMethod(Voronoi::Length);
    t.setFlags(4);
    EXPECT_EQ(value(t, -1.3f, 2.6f, 3.0f), bits(0x3E8527A8u));
}

}  // namespace
}  // namespace grainsmith
