#include "grainsmith/textures/cheetah.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace grainsmith {
namespace {

// Expected values come from natural_kinds_reference.py, an independent single-precision model
// of the kind (every operation rounded to float32 as it is done).

float value(const CheetahTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

constexpr int kPlanar = 4;

TEST(CheetahTexture, Defaults) {
    const CheetahTexture3D t;
    EXPECT_EQ(t.getSpotSize(), 0.4f);
    EXPECT_EQ(t.getLayoutVariability(), 0.6f);
    EXPECT_EQ(t.getSpotVariability(), 0.5f);
    EXPECT_EQ(CheetahTexture3D::name(), "Cheetah");
    EXPECT_TRUE(t.interactiveUpdate());
}

struct Sample {
    float x, y, z;
    float expected;
};

// Spots are 0, background 1. The first rows lie within 5e-4 of a spot's edge.
TEST(CheetahTexture, SpatialValuesAtDefaults) {
    const Sample samples[] = {
        {-1.41f, 2.58f, 3.88f, 1.0f},  {1.28f, 3.33f, -3.13f, 0.0f},  {-3.91f, 1.61f, -2.59f, 1.0f},
        {-4.51f, -4.76f, -0.49f, 0.0f}, {-4.75f, -2.11f, 4.41f, 1.0f}, {0.62f, -0.8f, 2.81f, 0.0f},
        {2.67f, -4.37f, -4.64f, 1.0f}, {-2.85f, -2.49f, 2.57f, 0.0f},
    };
    const CheetahTexture3D t;
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

TEST(CheetahTexture, PlanarValuesAtDefaults) {
    const Sample samples[] = {
        {-4.84f, -2.95f, 0.63f, 1.0f}, {-2.94f, 3.07f, 4.57f, 0.0f},  {-0.51f, 2.99f, -2.66f, 1.0f},
        {-4.77f, -3.92f, -3.54f, 0.0f}, {0.96f, 0.51f, -3.87f, 1.0f},  {2.76f, -2.19f, 0.75f, 1.0f},
        {-3.56f, 4.5f, 3.74f, 0.0f},   {0.25f, -4.47f, 0.6f, 0.0f},
    };
    CheetahTexture3D t;
    t.setFlags(kPlanar);
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

// At integer points the radius noise is exactly 0 (every scaled coordinate is integral), so
// the radius is the spot size itself and the point is background exactly when the distance
// to the nearest spot centre is at least the spot size. A spot size on the modelled distance
// and one step above it pins that distance to the bit.
struct Distance {
    float x, y, z;
    float distance;
};

void expectDistance(CheetahTexture3D t, const Distance& d) {
    t.setSpotSize(d.distance);
    EXPECT_EQ(value(t, d.x, d.y, d.z), 1.0f) << d.x << ", " << d.y << ", " << d.z;
    t.setSpotSize(std::nextafter(d.distance, 1.0f));
    EXPECT_EQ(value(t, d.x, d.y, d.z), 0.0f) << d.x << ", " << d.y << ", " << d.z;
}

TEST(CheetahTexture, NearestSpotDistanceAtIntegerPoints) {
    CheetahTexture3D t;
    expectDistance(t, {0.0f, 0.0f, 0.0f, 0x1.232a84p-1f});
    expectDistance(t, {3.0f, -2.0f, 5.0f, 0x1.c2a09p-2f});
    expectDistance(t, {-1.0f, -1.0f, -1.0f, 0x1.b2f1cep-2f});
    expectDistance(t, {7.0f, 1.0f, -4.0f, 0x1.7d0fbap-1f});
    t.setFlags(kPlanar);
    expectDistance(t, {0.0f, 0.0f, 0.0f, 0x1.961496p-2f});
    expectDistance(t, {3.0f, -2.0f, 5.0f, 0x1.795f8p-1f});
    expectDistance(t, {-1.0f, -1.0f, -1.0f, 0x1.1c4952p-1f});
    expectDistance(t, {7.0f, 1.0f, -4.0f, 0x1.433e24p-1f});
}

TEST(CheetahTexture, SpotSizeZeroIsBackgroundEverywhere) {
    CheetahTexture3D t;
    t.setSpotSize(0.0f);
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float x = -3.0f; x < 3.0f; x += 0.23f)
            for (float y = -3.0f; y < 3.0f; y += 0.31f) EXPECT_EQ(value(t, x, y, x - y), 1.0f);
    }
}

TEST(CheetahTexture, WithoutLayoutJitterSpotsSitOnCellCentres) {
    CheetahTexture3D t;
    t.setLayoutVariability(0.0f);
    // A cell centre is in its spot whenever the radius is positive.
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float c : {0.5f, -0.5f, 3.5f, -7.5f}) EXPECT_EQ(value(t, c, c + 1.0f, -c), 0.0f) << c;
    }
    // A lattice corner lies sqrt(1/2) from the nearest centres in the plane, sqrt(3/4) in space,
    // and the radius there is the spot size (noise 0). Exact negative integers belong to the
    // cell below, which does not move the centres.
    t.setFlags(kPlanar);
    for (float c : {0.0f, 2.0f, -1.0f, -4.0f}) {
        t.setSpotSize(0.7071f);
        EXPECT_EQ(value(t, c, 1.0f - c, 0.0f), 1.0f) << c;
        t.setSpotSize(0.7072f);
        EXPECT_EQ(value(t, c, 1.0f - c, 0.0f), 0.0f) << c;
    }
    t.setFlags(2);
    for (float c : {0.0f, 2.0f, -1.0f, -4.0f}) {
        t.setSpotSize(0.8660f);
        EXPECT_EQ(value(t, c, 1.0f - c, c), 1.0f) << c;
        t.setSpotSize(0.8661f);
        EXPECT_EQ(value(t, c, 1.0f - c, c), 0.0f) << c;
    }
}

TEST(CheetahTexture, PlanarIgnoresZ) {
    CheetahTexture3D t;
    t.setFlags(8);
    for (float x = -2.0f; x < 2.0f; x += 0.17f)
        for (float y = -2.0f; y < 2.0f; y += 0.19f) {
            const float ref = value(t, x, y, 0.0f);
            for (float z : {0.37f, -5.0f, 1e30f, std::numeric_limits<float>::quiet_NaN()})
                EXPECT_EQ(value(t, x, y, z), ref);
        }
}

TEST(CheetahTexture, NaNPointIsASpot) {
    // The distance and the radius are both undefined, so "distance >= radius" fails.
    const CheetahTexture3D t;
    const float nan = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(value(t, nan, 0.5f, 0.5f), 0.0f);
}

}  // namespace
}  // namespace grainsmith
