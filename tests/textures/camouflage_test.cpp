#include "grainsmith/textures/camouflage.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>

namespace grainsmith {
namespace {

// Expected values come from natural_kinds_reference.py, an independent single-precision model
// of the kind (every operation rounded to float32 as it is done).

float value(const CamouflageTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

constexpr int kPlanar = 4;

TEST(CamouflageTexture, DefaultsAndRecordPointer) {
    CamouflageTexture3D t;
    EXPECT_EQ(t.getFrequency(), 0.6f);
    EXPECT_EQ(t.getThreshold(), 0.2f);
    EXPECT_EQ(t.getBaseColor(), 1.0f);
    EXPECT_EQ(t.getLayer1Color(), 0.8f);
    EXPECT_EQ(t.getLayer2Color(), 0.3f);
    EXPECT_EQ(CamouflageTexture3D::name(), "Camouflage");

    // The pointer is the object's own record: reads see the head, writes reach the getters.
    char* record = t.getDescriptionPointer();
    EXPECT_EQ(static_cast<unsigned char>(record[0]), 56);
    EXPECT_STREQ(record + 1, "Camouflage");
    EXPECT_EQ(record[33], 1);
    float threshold;
    std::memcpy(&threshold, record + 40, 4);
    EXPECT_EQ(threshold, 0.2f);
    const float layer2 = 0.125f;
    std::memcpy(record + 52, &layer2, 4);
    EXPECT_EQ(t.getLayer2Color(), 0.125f);
}

struct Sample {
    float x, y, z;
    float expected;
};

// Defaults: which of base (1.0), layer 1 (0.8) and layer 2 (0.3) shows. The first rows lie
// within 1e-4 of the threshold in one layer.
TEST(CamouflageTexture, SpatialValuesAtDefaults) {
    const Sample samples[] = {
        {-3.95f, -1.17f, -1.21f, 0.3f},  // layer 2 noise 0.200008
        {-3.04f, -1.4f, -3.98f, 1.0f},   // layer 1 noise 0.199948
        {3.78f, -1.9f, -1.89f, 0.3f},    {3.16f, 0.77f, -3.92f, 0.8f},   {3.18f, -3.76f, -0.71f, 1.0f},
        {-1.97f, 2.65f, 0.42f, 0.8f},    {-0.15f, 3.28f, 0.62f, 1.0f},   {3.33f, 2.13f, -2.59f, 0.8f},
    };
    const CamouflageTexture3D t;
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

TEST(CamouflageTexture, PlanarValuesAtDefaults) {
    const Sample samples[] = {
        {1.0f, -3.47f, -1.8f, 0.3f},    // layer 2 noise 0.200034
        {2.13f, 0.26f, -2.84f, 0.8f},   // layer 1 noise 0.200099
        {-3.17f, 1.01f, 3.29f, 0.3f},   {-2.88f, -2.95f, -0.22f, 0.8f}, {1.84f, 2.75f, -2.34f, 1.0f},
        {-1.26f, 1.9f, 1.12f, 0.8f},    {1.88f, -3.6f, 3.51f, 1.0f},    {-0.01f, 1.77f, -0.4f, 0.3f},
    };
    CamouflageTexture3D t;
    t.setFlags(kPlanar);
    for (const Sample& s : samples)
        EXPECT_EQ(value(t, s.x, s.y, s.z), s.expected) << s.x << ", " << s.y << ", " << s.z;
}

// Each layer is hit exactly when its noise magnitude is above the threshold. Putting the
// threshold on the modelled magnitude and one step below it pins that magnitude to the bit.
struct Magnitudes {
    float x, y, z;
    float layer1, layer2;
};

void expectMagnitudes(CamouflageTexture3D t, const Magnitudes& m) {
    const float below1 = std::nextafter(m.layer1, 0.0f);
    const float below2 = std::nextafter(m.layer2, 0.0f);
    t.setBaseColor(0.5f);
    t.setLayer1Color(0.75f);
    t.setLayer2Color(0.5f);  // layer 2 invisible: only layer 1 decides
    t.setThreshold(m.layer1);
    EXPECT_EQ(value(t, m.x, m.y, m.z), 0.5f);
    t.setThreshold(below1);
    EXPECT_EQ(value(t, m.x, m.y, m.z), 0.75f);

    t.setLayer1Color(0.5f);  // layer 1 invisible: layer 2 shows through
    t.setLayer2Color(0.25f);
    t.setThreshold(m.layer2);
    EXPECT_EQ(value(t, m.x, m.y, m.z), 0.5f);
    t.setThreshold(below2);
    EXPECT_EQ(value(t, m.x, m.y, m.z), 0.25f);
}

TEST(CamouflageTexture, LayerMagnitudesInSpace) {
    const CamouflageTexture3D t;
    expectMagnitudes(t, {0.3f, 0.7f, 1.1f, 0x1.77a38ep-3f, 0x1.d50474p-4f});
    expectMagnitudes(t, {-2.45f, 1.5f, 0.85f, 0x1.a111aap-4f, 0x1.b72ac6p-2f});
    expectMagnitudes(t, {5.2f, -3.3f, -7.9f, 0x1.8d37cep-4f, 0x1.5788ecp-2f});
}

TEST(CamouflageTexture, LayerMagnitudesInThePlane) {
    CamouflageTexture3D t;
    t.setFlags(8);
    expectMagnitudes(t, {0.3f, 0.7f, 1.1f, 0x1.54c6f2p-10f, 0x1.90ee1p-3f});
    expectMagnitudes(t, {-2.45f, 1.5f, 0.85f, 0x1.df7d9cp-6f, 0x1.2c72f2p-1f});
    expectMagnitudes(t, {5.2f, -3.3f, -7.9f, 0x1.1fb89ap-3f, 0x1.218092p-3f});
}

TEST(CamouflageTexture, ThresholdAtOrAboveOneGivesTheBaseColour) {
    CamouflageTexture3D t;
    t.setBaseColor(0.42f);
    for (float threshold : {1.0f, 1.5f}) {
        t.setThreshold(threshold);
        for (int flags : {2, kPlanar})
            for (float x = -3.0f; x < 3.0f; x += 0.37f)
                for (float y = -2.0f; y < 2.0f; y += 0.43f) {
                    t.setFlags(flags);
                    EXPECT_EQ(value(t, x, y, 0.3f * x - y), 0.42f);
                }
    }
}

TEST(CamouflageTexture, Layer1EqualToBaseLetsLayer2ShowThrough) {
    // At (3.16, 0.77, -3.92) both layers are hit (magnitudes 0.349 and 0.200066 > 0.2):
    // layer 1 wins while it differs from the base colour.
    CamouflageTexture3D t;
    EXPECT_EQ(value(t, 3.16f, 0.77f, -3.92f), 0.8f);
    t.setLayer1Color(1.0f);
    EXPECT_EQ(value(t, 3.16f, 0.77f, -3.92f), 0.3f);
}

TEST(CamouflageTexture, IntegerPointsNeverHitLayer1) {
    // All noises vanish at integer points, so the warped point stays integral, three times it
    // is integral too and the layer 1 noise is exactly 0.
    CamouflageTexture3D t;
    t.setThreshold(0.0f);
    t.setLayer2Color(1.0f);  // hide layer 2
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float p : {0.0f, 1.0f, -1.0f, 7.0f, -12.0f}) EXPECT_EQ(value(t, p, -p, 2.0f), 1.0f);
    }
}

TEST(CamouflageTexture, PlanarLayer1IgnoresZButLayer2SamplesIt) {
    CamouflageTexture3D t;
    t.setFlags(kPlanar);
    // Layer 1 alone (layer 2 hidden): z has no influence.
    t.setLayer2Color(1.0f);
    for (float x = -2.0f; x < 2.0f; x += 0.31f)
        for (float y = -2.0f; y < 2.0f; y += 0.29f) {
            const float ref = value(t, x, y, 0.0f);
            for (float z : {0.4f, -3.7f, 1e30f}) EXPECT_EQ(value(t, x, y, z), ref);
        }
    // Layer 2 of the planar path still reads 3-D noise at z + 0.5: at (0.3, 0.7) its
    // magnitude is 0.1425 at z = 0 and 0.2174 at z = 0.4.
    t.setLayer2Color(0.3f);
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.0f), 1.0f);
    EXPECT_EQ(value(t, 0.3f, 0.7f, 0.4f), 0.3f);
}

}  // namespace
}  // namespace grainsmith
