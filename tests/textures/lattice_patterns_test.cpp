// Grid, Stripes, Zigzag, Spiral and Corrugated against values worked by hand and from the
// reference model (tests/reference/kinds_model.py, print_pattern_kinds).
#include <gtest/gtest.h>

#include <bit>
#include <cmath>

#include "grainsmith/textures/corrugated.h"
#include "grainsmith/textures/grid.h"
#include "grainsmith/textures/spiral.h"
#include "grainsmith/textures/stripes.h"
#include "grainsmith/textures/zigzag.h"
#include "pattern_test_util.h"

using namespace grainsmith;
using grainsmith::testing::at;
using grainsmith::testing::sampleBits;

TEST(Grid, LinesOnEveryAxisAndPlanarMode) {
    GridTexture3D t;
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.5f), 1.0f);
    EXPECT_EQ(at(t, 0.125f, 0.5f, 0.5f), 0.0f);   // exactly half the width from the line: on it
    EXPECT_EQ(at(t, 0.126f, 0.5f, 0.5f), 1.0f);
    EXPECT_EQ(at(t, 0.5f, -1.0f, 0.5f), 0.0f);    // exact -1: cell -2, fraction 1
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.05f), 0.0f);    // a line along z
    t.setFlags(4);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.05f), 1.0f);    // two-dimensional mode ignores z
    t.setFlags(2);
    t.setStripeWidth(0.3f);
    EXPECT_EQ(sampleBits(t), "0110110100000000011011010110110100000000000000000110110101101101");
}

TEST(Grid, RandomGreysHashTheWholePoint) {
    GridTexture3D t;
    t.setRandomizeColors(true);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0x1.5208dcp-1f);
    EXPECT_EQ(at(t, -1.37f, 0.51f, 2.86f), 0x1.e868p-1f);
    EXPECT_EQ(at(t, 5.62f, 3.41f, -1.27f), 0x1.74fa44p-1f);
    t.setFlags(8);  // z still picks the grey in two-dimensional mode
    EXPECT_EQ(at(t, -0.62f, -2.33f, 0.47f), 0x1.6a6eb8p-1f);
    EXPECT_EQ(at(t, -0.62f, -2.33f, 0.05f), 0x1.6a6eb8p-1f);
    EXPECT_NE(at(t, -0.62f, -2.33f, 1.47f), 0x1.6a6eb8p-1f);
}

TEST(Stripes, EveryStyleBendsTheStripesItsOwnWay) {
    StripesTexture3D t;
    EXPECT_EQ(t.getStripeStyle(), StripesTexture3D::Straight);
    EXPECT_EQ(at(t, 0.1f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(at(t, 0.5f, 0.0f, 0.0f), 1.0f);
    t.setStripeWidth(0.4f);
    t.setAmplitude(0.6f);
    const char* const expected[] = {
        "0010110100101101010110110010110100101101100010010000100101000011",  // Perlin Noise
        "1010110101101101011010111010110110101101011010110110101110101101",  // Ribbon
        "1101001010110110010010111101101011010110011010110101101111010010",  // Sawtooth
        "1101001001101101101101101011010110010110110101100101101111011010",  // Sine
        "0110110101101101011011010110110101101101011011010110110101101101",  // Straight
        "1101101001101101110110101101011001001011010010111101011011011010",  // Triangle
        "0110110101101101011011010110110101101101011011010110110101101101",  // out of range: straight
    };
    for (int style = 0; style < 7; ++style) {
        t.setStripeStyle(style);
        EXPECT_EQ(sampleBits(t), expected[style]) << style;
    }
    t.setStripeStyle(-3);
    EXPECT_EQ(sampleBits(t), expected[4]);
}

TEST(Stripes, SineDisplacementIsWorkedInDouble) {
    // Here x + sin(2 pi y) a rounded once lies just off the stripe; rounding the sine term
    // to float first would put the point on it.
    StripesTexture3D t;
    t.setStripeStyle(StripesTexture3D::Sine);
    EXPECT_EQ(at(t, 0x1.f10e5p+0f, 0x1.0c67fep-3f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 0x1.ef25d6p+0f, 0x1.23621p+0f, 0.0f), 1.0f);
}

TEST(Stripes, RandomGreysComeFromTheNearerLine) {
    StripesTexture3D t;
    t.setRandomizeColors(true);
    t.setStripeWidth(0.4f);
    t.setMinColor(0.2f);
    t.setMaxColor(0.7f);
    EXPECT_EQ(at(t, 0.1f, 0.3f, 0.0f), 0x1.0a782p-1f);   // line 0
    EXPECT_EQ(at(t, 0.9f, 0.3f, 0.0f), 0x1.036032p-1f);  // line 1, reached as k + 1
    // Both sides of the line at -1: hashed as the cell index -1, which the hash floors to -2.
    EXPECT_EQ(at(t, -1.05f, 2.0f, 0.0f), 0x1.40689ep-1f);
    EXPECT_EQ(at(t, -0.95f, 2.0f, 0.0f), 0x1.40689ep-1f);
    EXPECT_EQ(at(t, 0.5f, 0.3f, 0.0f), 1.0f);
}

TEST(Zigzag, BandsAndClampedRandomGreys) {
    ZigzagTexture3D t;
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0.25f);
    EXPECT_EQ(at(t, -1.37f, 0.51f, 2.86f), 0.75f);
    EXPECT_EQ(at(t, 1.5f, 0.5f, 9.0f), 0.25f);  // floor sum 1: floor(0.5) = 0, still band 0
    EXPECT_EQ(at(t, 1.5f, 1.5f, 9.0f), 0.75f);
    // The band parity is worked in double: 2^24 + 3 halves to 8388609.5, floor odd; a float
    // sum would have rounded to 2^24 + 4 (even).
    EXPECT_EQ(at(t, 16777216.0f, 3.0f, 0.0f), 0.75f);
    EXPECT_EQ(at(t, 16777216.0f, 1.0f, 0.0f), 0.25f);
    t.setRandomizeColors(true);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0x1.a411bap-3f);
    EXPECT_EQ(at(t, -1.37f, 0.51f, 2.86f), 0x1.83322ap-1f);
    EXPECT_EQ(at(t, 2.45f, -0.15f, -0.8f), 0x1.f8b4ep-3f);  // odd row: pieces move by one cell
    t.setVariability(5.0f);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0.0f);  // clamped
    EXPECT_EQ(at(t, -1.37f, 0.51f, 2.86f), 0x1.9ff5a8p-1f);
    EXPECT_EQ(at(t, 2.45f, -0.15f, -0.8f), 0x1.b710cap-3f);
    t.setVariability(-40.0f);
    for (float x = -3.0f; x < 3.0f; x += 0.37f) {
        const float v = at(t, x, x * 0.7f, 0.0f);
        EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << x;
    }
}

TEST(Spiral, StripesTurnAboutTheYAxisOrSlantInThePlane) {
    SpiralTexture3D t;
    EXPECT_EQ(std::bit_cast<uint32_t>(t.getSpiralRate()), 0x3E4CCCCDu);
    t.setFlags(4);
    // x' = x + 0.2 y: at (0.125, 0) the point is exactly half a width from the stripe: on it.
    EXPECT_EQ(at(t, 0.125f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(at(t, 0.13f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 0.5f, 2.5f, 7.0f), 0.0f);  // x' = 1.0
    t.setFlags(2);
    EXPECT_EQ(sampleBits(t), "0111111101101111011011110110111101101111011011010110110111101101");
    t.setStripeWidth(0.6f);
    t.setSpiralRate(1.3f);
    EXPECT_EQ(sampleBits(t), "1111111100000011001000111001100101001001001011010110010011001100");
    t.setFlags(8);
    EXPECT_EQ(sampleBits(t), "0101101010110100010010011001001000100101010010111001011000101101");
}

TEST(Corrugated, FiveWaveShapesAndTheFallback) {
    CorrugatedTexture3D t;
    EXPECT_EQ(t.getStyle(), CorrugatedTexture3D::Sine);
    const float xs[] = {0.3f, -1.37f, 2.45f, 0.8f, -0.62f};
    const float expected[][5] = {
        {0x1.3c317p-1f, 0x1.a3bba4p-2f, 0x1.250f7ap-1f, 0x1.237264p-1f, 0x1.7527bcp-2f},    // Perlin Noise
        {0x1.333334p-2f, 0x1.428f5cp-1f, 0x1.ccccdp-2f, 0x1.99999ap-1f, 0x1.851eb8p-2f},    // Sawtooth
        {0x1.7d69f4p-1f, 0x1.1f6b54p-2f, 0x1.4cccccp-1f, 0x1.052c18p-2f, 0x1.6d5552p-1f},   // Ribbon
        {0x1.f3787p-1f, 0x1.15894p-3f, 0x1.4f1bb8p-1f, 0x1.90f2p-6f, 0x1.af3e7cp-1f},       // Sine
        {0x1.333334p-1f, 0x1.7ae148p-1f, 0x1.ccccdp-1f, 0x1.999998p-2f, 0x1.851eb8p-1f},    // Triangle
        {0x1.cf1bbep-1f, 0x1.eaf1f8p-1f, 0x1.fcd924p-1f, 0x1.967918p-1f, 0x1.ee05d4p-1f},   // other: half sine
    };
    const int styles[] = {0, 1, 2, 3, 4, 9};
    for (int s = 0; s < 6; ++s) {
        t.setStyle(styles[s]);
        for (int i = 0; i < 5; ++i) EXPECT_EQ(at(t, xs[i], 5.0f, -3.0f), expected[s][i]) << styles[s] << " " << xs[i];
    }
    t.setStyle(CorrugatedTexture3D::Sawtooth);
    EXPECT_EQ(at(t, -0.25f, 0.0f, 0.0f), 0.75f);
    t.setStyle(CorrugatedTexture3D::Triangle);
    EXPECT_EQ(at(t, 0.5f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(at(t, 3.0f, 0.0f, 0.0f), 0.0f);
}
