#include "grainsmith/textures/psychedelic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>

namespace grainsmith {
namespace {

// Expected values come from hand-worked hashes and from natural_kinds_reference.py, an
// independent single-precision model of the kind (every operation rounded to float32).

float value(const PsychedelicTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

constexpr int kPlanar = 4;

TEST(PsychedelicTexture, DefaultsAndRecordPointer) {
    PsychedelicTexture3D t;
    EXPECT_EQ(t.getFrequency(), 1.0f);
    EXPECT_EQ(t.getMinColor(), 0.0f);
    EXPECT_EQ(t.getMaxColor(), 1.0f);
    EXPECT_EQ(PsychedelicTexture3D::name(), "Psychedelic");

    char* record = t.getDescriptionPointer();
    EXPECT_EQ(static_cast<unsigned char>(record[0]), 48);
    EXPECT_STREQ(record + 1, "Psychedelic");
    const float frequency = 2.5f;
    std::memcpy(record + 36, &frequency, 4);
    EXPECT_EQ(t.getFrequency(), 2.5f);
}

TEST(PsychedelicTexture, IntegerPointsShowTheirOwnCellsRandomValue) {
    // The noise vanishes at integer points, so the point is not bent and, with the default
    // colours, the value is the cell's random value itself.
    PsychedelicTexture3D t;
    // Cell (0, 0): hash 1376312589, which rounds to the float 1376312576, times 2^-32.
    EXPECT_EQ(value(t, 0.0f, 0.0f, 5.0f), 1376312576.0f * 0x1p-32f);
    EXPECT_EQ(value(t, 3.0f, -2.0f, 1.0f), 0x1.174e5ap-1f);
    // -1.0 lies in cell -2 (one further down than a true floor).
    EXPECT_EQ(value(t, -1.0f, -1.0f, 0.0f), 0x1.d96762p-1f);
    t.setFlags(kPlanar);
    EXPECT_EQ(value(t, 0.0f, 0.0f, 0.75f), 1376312576.0f * 0x1p-32f);
    EXPECT_EQ(value(t, 3.0f, -2.0f, 0.5f), 0x1.174e5ap-1f);
}

struct Sample {
    float x, y, z;
    float expected;
};

TEST(PsychedelicTexture, FrequencyAndColourRange) {
    PsychedelicTexture3D t;
    t.setMinColor(0.2f);
    t.setMaxColor(0.7f);
    t.setFrequency(2.5f);
    EXPECT_EQ(value(t, 1.54f, 1.16f, -3.43f), 0x1.35cb7p-1f);
    t.setFrequency(0.3f);
    EXPECT_EQ(value(t, -4.85f, 0.28f, -4.4f), 0x1.536782p-1f);
    t.setFlags(kPlanar);
    t.setFrequency(2.5f);
    EXPECT_EQ(value(t, -2.11f, -4.3f, 2.66f), 0x1.1de6eap-2f);
    t.setFrequency(0.3f);
    EXPECT_EQ(value(t, -1.0f, 3.47f, -1.13f), 0x1.1626bp-1f);
}

// Points whose bent position lands within 2e-5 of a cell edge (given in the comments), so
// the warp must be exact to the last bits to pick the right cell.
struct EdgeSample {
    float frequency;
    Sample sample;
};

TEST(PsychedelicTexture, BentPositionsNextToCellEdges) {
    const EdgeSample spatial[] = {
        {1.0f, {0.975f, -2.737f, 2.741f, 0x1.52b092p-2f}},    // (1.2644334, -3.0000043)
        {1.0f, {-3.77f, 1.812f, 2.031f, 0x1.ab1c68p-1f}},     // (-4.1382842, 1.9999888)
        {1.0f, {-0.717f, 1.335f, 4.758f, 0x1.adcd48p-2f}},    // (-1.0000118, 1.2407510)
        {2.5f, {-0.717f, 4.75f, -3.856f, 0x1.8d5246p-1f}},    // (-0.0836939, 12.0000076)
        {2.5f, {-4.361f, -2.498f, -2.608f, 0x1.deacfcp-1f}},  // (-10.9999809, -6.9515605)
        {2.5f, {2.852f, 3.352f, -3.42f, 0x1.6e36f6p-1f}},     // (6.8873615, 9.0000219)
    };
    const EdgeSample planar[] = {
        {1.0f, {0.625f, -0.404f, -1.517f, 0x1.bf62c4p-2f}},   // (0.5903137, -0.0000064)
        {1.0f, {4.572f, 0.351f, -2.601f, 0x1.a82e56p-4f}},    // (4.8151164, 0.0000188)
        {1.0f, {0.201f, -1.246f, 2.173f, 0x1.4b277ep-3f}},    // (0.5368453, -1.0000190)
        {2.5f, {2.203f, 3.982f, -4.732f, 0x1.6e36f6p-1f}},    // (6.5198016, 9.0000048)
        {2.5f, {2.805f, -2.977f, -1.503f, 0x1.e8fd8cp-1f}},   // (8.3844643, -7.0000215)
        {2.5f, {-4.965f, 1.389f, -0.008f, 0x1.ec39c6p-6f}},   // (-10.5803537, 4.0000339)
    };
    PsychedelicTexture3D t;
    for (const EdgeSample& e : spatial) {
        t.setFrequency(e.frequency);
        EXPECT_EQ(value(t, e.sample.x, e.sample.y, e.sample.z), e.sample.expected) << e.sample.x;
    }
    t.setFlags(kPlanar);
    for (const EdgeSample& e : planar) {
        t.setFrequency(e.frequency);
        EXPECT_EQ(value(t, e.sample.x, e.sample.y, e.sample.z), e.sample.expected) << e.sample.x;
    }
}

TEST(PsychedelicTexture, EqualColoursGiveThatColourEverywhere) {
    PsychedelicTexture3D t;
    t.setMinColor(0.4f);
    t.setMaxColor(0.4f);
    for (int flags : {2, kPlanar}) {
        t.setFlags(flags);
        for (float x = -3.0f; x < 3.0f; x += 0.37f)
            for (float y = -3.0f; y < 3.0f; y += 0.41f) EXPECT_EQ(value(t, x, y, y - x), 0.4f);
    }
}

TEST(PsychedelicTexture, WideColourRangeIsClampedToUnit) {
    PsychedelicTexture3D t;
    t.setMinColor(-1.0f);
    t.setMaxColor(2.0f);
    bool sawZero = false, sawOne = false;
    for (float x = -3.0f; x < 3.0f; x += 0.13f)
        for (float y = -3.0f; y < 3.0f; y += 0.17f) {
            const float v = value(t, x, y, 0.5f * x);
            EXPECT_GE(v, 0.0f);
            EXPECT_LE(v, 1.0f);
            EXPECT_FALSE(std::signbit(v));
            sawZero |= v == 0.0f;
            sawOne |= v == 1.0f;
        }
    EXPECT_TRUE(sawZero);
    EXPECT_TRUE(sawOne);
    // An undefined colour ends as 0.
    t.setMinColor(std::numeric_limits<float>::quiet_NaN());
    EXPECT_EQ(value(t, 0.3f, 0.6f, 0.9f), 0.0f);
}

TEST(PsychedelicTexture, PlanarIgnoresZ) {
    PsychedelicTexture3D t;
    t.setFlags(12);
    for (float x = -2.0f; x < 2.0f; x += 0.17f)
        for (float y = -2.0f; y < 2.0f; y += 0.19f) {
            const float ref = value(t, x, y, 0.0f);
            for (float z : {0.37f, -5.0f, 1e30f, std::numeric_limits<float>::infinity()})
                EXPECT_EQ(value(t, x, y, z), ref);
        }
}

}  // namespace
}  // namespace grainsmith
