// Constant, Gradient and Checkerboard against values worked by hand.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/constant.h"
#include "grainsmith/textures/gradient.h"

using namespace grainsmith;

namespace {
template <class T>
float at(const T& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}
}  // namespace

TEST(Constant, DefaultsAndIgnoresThePoint) {
    ConstantTexture3D t;
    EXPECT_EQ(t.getConstant(), 0.5f);
    t.setConstant(-3.25f);
    EXPECT_EQ(at(t, 0, 0, 0), -3.25f);
    EXPECT_EQ(at(t, std::nanf(""), 1e30f, -INFINITY), -3.25f);
}

TEST(Gradient, RampsAcrossThePeriodTwoBand) {
    GradientTexture3D t;
    EXPECT_TRUE(t.getXDir() && t.getYDir() && t.getZDir());
    EXPECT_EQ(at(t, 1, 1, 1), 1.0f);
    EXPECT_EQ(at(t, -1, -1, -1), 0.0f);
    EXPECT_EQ(at(t, 0.5f, 0, 0), 0.75f * 0.5f * 0.5f);
    t.setYDir(false);
    t.setZDir(false);
    EXPECT_EQ(at(t, 1.5f, 9, 9), 0.25f);    // cell 1 is odd -> 2: x = -0.5
    EXPECT_EQ(at(t, -1.5f, 9, 9), 0.75f);   // cell -2 is even: x = 0.5
    EXPECT_EQ(at(t, 3.0f, 9, 9), 0.0f);     // cell 3 -> 4: x = -1
    EXPECT_EQ(at(t, -3.0f, 9, 9), 1.0f);    // exact negative integer: cell -4, x = 1
    EXPECT_EQ(at(t, 2.5f, 9, 9), 0.75f);    // cell 2 even: x = 0.5
    t.setXDir(false);
    EXPECT_EQ(at(t, 0.3f, 0.4f, 0.5f), 1.0f);  // no direction on
}

TEST(Checkerboard, SingleLevelParity) {
    CheckerboardTexture3D t;
    EXPECT_EQ(t.getDepth(), 1);
    EXPECT_FALSE(t.getRandomizeColors());
    EXPECT_EQ(t.getVariability(), 0.5f);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.5f), 0.25f);   // even, even, even
    EXPECT_EQ(at(t, 1.5f, 0.5f, 0.5f), 0.75f);
    EXPECT_EQ(at(t, 1.5f, 1.5f, 0.5f), 0.25f);
    EXPECT_EQ(at(t, -0.5f, 0.5f, 0.5f), 0.75f);  // cell -1
    EXPECT_EQ(at(t, -1.0f, 0.5f, 0.5f), 0.25f);  // exact -1 lies in cell -2
    t.setFlags(8);                                // two-dimensional mode is not honoured
    EXPECT_EQ(at(t, 0.5f, 0.5f, 1.5f), 0.75f);
}

TEST(Checkerboard, RandomizedGreysFromTheCellHash) {
    CheckerboardTexture3D t;
    t.setRandomizeColors(true);
    // Cell (0,0,0): r = 1376312576 * 2^-32; ((r*2-1)*0.5 + 1) * 0.25, worked in float.
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.5f), 0x1.a411bap-3f);
    // Cell (1,0,0): hash 1316808037; (r*2-1)*0.5*0.25 + 0.75.
    EXPECT_EQ(at(t, 1.5f, 0.5f, 0.5f), 0x1.673e72p-1f);
    t.setDepth(2);  // randomisation only applies at depth 1
    EXPECT_EQ(at(t, 0.3f, 0.3f, 0.3f), 0.125f);
}

TEST(Checkerboard, NestedLevels) {
    CheckerboardTexture3D t;
    t.setDepth(2);
    EXPECT_EQ(at(t, 0.3f, 0.3f, 0.3f), 0.125f);  // dark, then dark of (0.125, 0.375)
    EXPECT_EQ(at(t, 0.6f, 0.3f, 0.3f), 0.375f);  // dark, then light
    EXPECT_EQ(at(t, 1.5f, 0.5f, 0.5f), 0.875f);  // light (0.75, 0.875), doubled point all odd: light
    EXPECT_EQ(at(t, 1.2f, 0.2f, 0.2f), 0.75f);   // light, then dark
    t.setDepth(3);
    // Level 0 dark -> (0.125, 0.375); level 1 at (1.6,0.2,0.2) light -> (0.375, 0.375 + 0.0625);
    // level 2 at (3.2,0.4,0.4) light -> 0.4375.
    EXPECT_EQ(at(t, 0.8f, 0.1f, 0.1f), 0.4375f);
    // Dark twice narrows to (0.0625, 0.1875); level 2 at (1.2,0.4,0.4) is light.
    EXPECT_EQ(at(t, 0.3f, 0.1f, 0.1f), 0.1875f);
    for (int depth : {0, -1, INT32_MIN}) {
        t.setDepth(depth);
        t.setRandomizeColors(true);
        EXPECT_EQ(at(t, 0.3f, 0.3f, 0.3f), 0.0f);
    }
}

TEST(Checkerboard, HugeDepthIsCappedNotHung) {
    CheckerboardTexture3D capped, huge;
    capped.setDepth(64);
    huge.setDepth(INT32_MAX);
    for (float x : {0.3f, 0.71f, -5.2f, 1e30f}) {
        EXPECT_EQ(at(huge, x, 0.4f, 0.9f), at(capped, x, 0.4f, 0.9f));
    }
}
