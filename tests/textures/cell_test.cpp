#include "grainsmith/textures/cell.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "core/catalogue.h"

namespace grainsmith {
namespace {

// Expected values were worked out independently of this library: a script that follows the
// double-precision cell search (hash, Poisson count, congruential generator, density
// adjustment and neighbour pruning) step by step.

float value(const CellTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

float bits(uint32_t b) { return std::bit_cast<float>(b); }

TEST(CellNoiseTexture, Defaults) {
    CellTexture3D t;
    EXPECT_EQ(t.getScale(), 4.0f);
    EXPECT_EQ(t.getType(), Worley::First);
    EXPECT_EQ(t.getDistanceMethod(), Worley::Euclidean);
    EXPECT_EQ(CellTexture3D::name(), "Cell Noise");
}

TEST(CellNoiseTexture, ExistsInTheCatalogueButCannotBeCreatedByName) {
    const Kind* kind = findKind("Cell Noise");
    ASSERT_NE(kind, nullptr);
    EXPECT_TRUE(kind->implemented());
    EXPECT_EQ(kind->createOrder, 0);
    EXPECT_EQ(kind->editorOrder, 0);
    EXPECT_FALSE(kind->readsFlags);
    EXPECT_EQ(createByName("Cell Noise").texture, nullptr);
}

struct Case {
    int type;
    int method;
    uint32_t expected;
};

TEST(CellNoiseTexture, TypesAndMetricsAtChosenPoints) {
    CellTexture3D t;
    static constexpr Case atA[] = {
        {0, 0, 0x3E9FBA12}, {1, 0, 0x3F2D4E14}, {4, 0, 0x3EBAE216}, {5, 0, 0x3ED0C41C}, {0, 3, 0x3EC7AF32},
    };
    for (const Case& c : atA) {
        t.setType(c.type);
        t.setDistanceMethod(c.method);
        EXPECT_EQ(value(t, 0.52f, -0.27f, 0.33f), bits(c.expected)) << "type " << c.type << " method " << c.method;
    }
    static constexpr Case atB[] = {{0, 0, 0x3F4EFFBF}, {4, 0, 0x3F06B017}, {5, 0, 0x3F3A3811}};
    for (const Case& c : atB) {
        t.setType(c.type);
        t.setDistanceMethod(c.method);
        EXPECT_EQ(value(t, -1.05f, 2.2f, 0.9f), bits(c.expected)) << "type " << c.type << " method " << c.method;
    }
}

TEST(CellNoiseTexture, DistancesAboveOneAreClamped) {
    // Here the nearest point is 1.067 away (after undoing the density adjustment).
    CellTexture3D t;
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), 1.0f);
    t.setType(Worley::Difference21);
    EXPECT_EQ(value(t, 0.13f, 0.37f, 0.71f), bits(0x3D935445u));
}

TEST(CellNoiseTexture, TileIsOneEverywhere) {
    // max(10 x (F2 - F1), 1) is never below 1, and the clamp takes it back to 1.
    CellTexture3D t;
    t.setType(Worley::Tile);
    for (const float x : {0.0f, 0.13f, -1.05f, 7.5f, 1e6f})
        for (const float y : {0.0f, 0.37f, 2.2f})
            EXPECT_EQ(value(t, x, y, 0.33f), 1.0f) << x << " " << y;
}

TEST(CellNoiseTexture, IgnoresPlanarFlags) {
    CellTexture3D t;
    t.setFlags(12);
    EXPECT_EQ(value(t, 0.52f, -0.27f, 0.33f), bits(0x3E9FBA12u));
    EXPECT_NE(value(t, 0.52f, -0.27f, 0.0f), bits(0x3E9FBA12u));
}

}  // namespace
}  // namespace grainsmith
