// Brick against values worked by hand and from the reference model (tests/reference).
#include <gtest/gtest.h>

#include <bit>
#include <cstring>
#include <string>
#include <vector>

#include "grainsmith/textures/brick.h"

using namespace grainsmith;

namespace {

float at(const BrickTexture3D& t, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return t(p);
}

constexpr float kBrick = 0x1.ca1cfp-3f;  // the default brick grey, bits 0x3E650E78
constexpr float kMortar = 0.5f;

}  // namespace

TEST(Brick, DefaultsAndTheEditorPageInFormOrder) {
    BrickTexture3D t;
    EXPECT_EQ(t.getPattern(), BrickTexture3D::RunningBond);
    EXPECT_EQ(std::bit_cast<uint32_t>(t.getBrickHeight()), 0x3E666666u);
    EXPECT_EQ(std::bit_cast<uint32_t>(t.getBrickColor()), 0x3E650E78u);
    EXPECT_EQ(t.getBrickWidth(), 0.8f);
    EXPECT_EQ(t.getMortarThickness(), 0.01f);
    EXPECT_FALSE(t.getRoundedCornersEnabled() || t.getRowOffsetVariabilityEnabled() || t.getRandomizeColors());
    EXPECT_EQ(t.getMaxColor(), 0.5f);

    // The page lists the widgets in this order, with these object names, groups and labels.
    const char* const expected[][3] = {
        {"pattern", "Style", "Pattern"},
        {"width", "Dimensions", "Width"},
        {"height", "Dimensions", "Height"},
        {"depth", "Dimensions", "Depth"},
        {"mortarThickness", "Dimensions", "Mortar Thickness"},
        {"roundedCornersEnable", "Rounded Corners", "Enable"},
        {"roundedCornersRadius", "Rounded Corners", "Radius"},
        {"brickColor", "Colors", "Brick"},
        {"mortarColor", "Colors", "Mortar"},
        {"randomizeColors", "Colors", "Randomize"},
        {"minColor", "Colors", "Minimum"},
        {"maxColor", "Colors", "Maximum"},
        {"rowOffsetVariabilityEnable", "Row Offset Variability", "Enable"},
        {"rowOffsetVariabilityAmplitude", "Row Offset Variability", "Amplitude"},
    };
    const ParamTable table = BrickTexture3D::parameters();
    ASSERT_EQ(table.size(), std::size(expected));
    for (size_t i = 0; i < table.size(); ++i) {
        const Param& p = table[i];
        EXPECT_EQ(std::string(p.objectName ? p.objectName : p.name), expected[i][0]);
        EXPECT_STREQ(p.group, expected[i][1]);
        EXPECT_STREQ(p.label, expected[i][2]);
        EXPECT_STRNE(p.description, "");
        if (p.widget == Widget::DoubleSpin) {
            EXPECT_EQ(p.minimum, 0.001);
            EXPECT_EQ(p.decimals, 3);
            EXPECT_EQ(p.step, i == 1 ? 0.01 : 0.001);  // the width steps ten times coarser
        }
        if (p.widget == Widget::Slider) {
            EXPECT_EQ(p.scale, 0.01);
        }
    }
    ASSERT_EQ(table[0].choices.size(), 2u);
    EXPECT_STREQ(table[0].choices[0], "Herringbone");
    EXPECT_STREQ(table[0].choices[1], "Running Bond");
}

TEST(Brick, RunningBondCoursesLayersAndJoints) {
    BrickTexture3D t;
    EXPECT_EQ(at(t, 0.1f, 0.1f, 0.1f), kBrick);
    EXPECT_EQ(at(t, 0.001f, 0.1f, 0.1f), kMortar);  // within half a joint of the cell's left edge
    EXPECT_EQ(at(t, 0.79f, 0.1f, 0.1f), kBrick);
    // x = 0.405 is mid-brick in course 0; course 1 (y = 0.3) is shifted by half a brick,
    // so the same x meets a head joint; layer 1 (z = 0.5) shifts once more.
    EXPECT_EQ(at(t, 0.405f, 0.1f, 0.1f), kBrick);
    EXPECT_EQ(at(t, 0.405f, 0.3f, 0.1f), kMortar);
    EXPECT_EQ(at(t, 0.405f, 0.1f, 0.5f), kMortar);
    EXPECT_EQ(at(t, 0.405f, 0.3f, 0.5f), kBrick);  // odd in y and z: a whole brick, not visible
    EXPECT_EQ(at(t, 0.3f, 0.1f, 0.0f), kMortar);   // z = 0 is a bed joint in depth
}

TEST(Brick, ExactNegativeIntegersLieInTheCellBelow) {
    // Unit cells without mortar: v = -1 is row -2 with fraction 1, which the upper joint test
    // puts in mortar; v = +1 is row 1 with fraction 0, inside a brick.
    for (int pattern : {0, 1}) {
        BrickTexture3D t;
        t.setPattern(pattern);
        t.setBrickHeight(1.0f);
        t.setBrickWidth(1.0f);
        t.setBrickDepth(1.0f);
        t.setMortarThickness(0.0f);
        EXPECT_EQ(at(t, 0.5f, -1.0f, 0.5f), pattern == 1 ? kMortar : kBrick) << pattern;
        EXPECT_EQ(at(t, 0.5f, 1.0f, 0.5f), kBrick) << pattern;
    }
}

TEST(Brick, RoundedCornersOfTheRunningBond) {
    BrickTexture3D t;
    t.setRoundedCornersEnabled(true);
    t.setRoundedCornersRadius(1.0f);
    EXPECT_EQ(at(t, 0.0081f, 0.01175f, 0.1f), kMortar);  // lower-left corner square, outside the circle
    EXPECT_EQ(at(t, 0.8019f, 0.2256f, 0.1f), kMortar);   // upper-right
    EXPECT_EQ(at(t, 0.0972f, 0.0235f, 0.1f), kBrick);    // inside the lower-left circle
    EXPECT_EQ(at(t, 0.405f, 0.22795f, 0.1f), kBrick);    // top edge, between the corners
    t.setRoundedCornersEnabled(false);
    EXPECT_EQ(at(t, 0.0081f, 0.01175f, 0.1f), kBrick);

    // Bricks narrower than high: the x fraction is rescaled instead, and all four corners cut.
    t.setRoundedCornersEnabled(true);
    t.setRoundedCornersRadius(0.8f);
    t.setBrickWidth(0.1f);
    t.setBrickHeight(0.3f);
    for (float x : {0x1.6872bp-7f, 0x1.958106p-4f}) {
        for (float y : {0x1.9652bep-7f, 0x1.30be0ep-2f}) EXPECT_EQ(at(t, x, y, 0.2f), kMortar) << x << " " << y;
    }
    EXPECT_EQ(at(t, 0x1.c28f5cp-5f, 0x1.9652bep-7f, 0.2f), kBrick);  // bottom edge, mid-width
    EXPECT_EQ(at(t, 0x1.6872bp-7f, 0x1.3d70a4p-3f, 0.2f), kBrick);   // left edge, mid-height
    EXPECT_EQ(at(t, 0x1.0e5604p-5f, 0x1.9652bep-6f, 0.2f), kBrick);  // inside the lower-left circle
}

TEST(Brick, HerringboneBandsHalvesAndCorners) {
    // One point near each corner of a half-brick in each kind of cell: (x, y, value with
    // rounded corners of radius 1). Without rounding every one of them is brick.
    struct Case {
        float x, y, rounded;
    };
    const Case cases[] = {
        // horizontal band, even cell (left half): the left corners round
        {-1.8729499578475952f, -1.8729499578475952f, kMortar},
        {-1.8729499578475952f, -1.6520500183105469f, kMortar},
        {-1.6520500183105469f, -1.8729499578475952f, kBrick},
        // horizontal band, odd cell (right half): the right corners round
        {-1.8729499578475952f, -1.6379499435424805f, kBrick},
        {-1.6520500183105469f, -1.4170500040054321f, kMortar},
        // vertical band, even cell (lower half): the bottom corners round
        {-1.8729499578475952f, -1.4029500484466553f, kMortar},
        {-1.6520500183105469f, -1.4029500484466553f, kMortar},
        {-1.6520500183105469f, -1.1820499897003174f, kBrick},
        // vertical band, odd cell (upper half): the top corners round
        {-1.8729499578475952f, -0.9470499753952026f, kMortar},
        {-1.6520500183105469f, -1.1679500341415405f, kBrick},
    };
    for (int pattern : {0, 2, -1, 7}) {
        BrickTexture3D t;
        t.setPattern(pattern);
        t.setRoundedCornersRadius(1.0f);
        for (const Case& c : cases) EXPECT_EQ(at(t, c.x, c.y, 0.1f), kBrick) << pattern;
        t.setRoundedCornersEnabled(true);
        t.setBrickWidth(3.0f);  // herringbone ignores the brick width
        for (const Case& c : cases) EXPECT_EQ(at(t, c.x, c.y, 0.1f), c.rounded) << pattern << " " << c.x << " " << c.y;
    }
}

TEST(Brick, RandomGreysPerBrickAndRowOffsets) {
    BrickTexture3D t;
    t.setRandomizeColors(true);
    t.setMinColor(0.1f);
    t.setMaxColor(0.9f);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0x1.fc5752p-2f);
    EXPECT_EQ(at(t, -1.37f, 0.51f, 2.86f), 0x1.c1ebdep-1f);
    EXPECT_EQ(at(t, 2.45f, -0.15f, -0.8f), 0x1.d1b75p-2f);
    EXPECT_EQ(at(t, 5.62f, 3.41f, -1.27f), 0x1.aae5c6p-3f);
    t.setRowOffsetVariabilityEnabled(true);
    t.setRowOffsetVariabilityAmplitude(0.6f);
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0x1.fc5752p-2f);      // this course's shift keeps the brick
    EXPECT_EQ(at(t, 5.62f, 3.41f, -1.27f), 0x1.67d6f2p-1f);  // this one moves the point to the next brick
    t.setPattern(BrickTexture3D::Herringbone);  // the herringbone has no row offsets
    EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0x1.a2e806p-3f);
    EXPECT_EQ(at(t, 2.45f, -0.15f, -0.8f), 0x1.7ad1aep-1f);
    EXPECT_EQ(at(t, 5.62f, 3.41f, -1.27f), 0x1.f9eacap-2f);
    t.setMinColor(0.375f);
    t.setMaxColor(0.375f);
    for (int pattern : {0, 1}) {
        t.setPattern(pattern);
        EXPECT_EQ(at(t, 0.3f, 0.7f, 0.2f), 0.375f);
        EXPECT_EQ(at(t, 5.62f, 3.41f, -1.27f), 0.375f);
    }
}

TEST(Brick, TwoDimensionalFlagsFixOrShiftTheDepth) {
    BrickTexture3D t;
    t.setFlags(4);
    // Running bond: z is replaced by 0.5 (layer 1, shifted), whatever the point's z.
    for (float z : {0.1f, 0.0f, -0.7f, 1e30f}) EXPECT_EQ(at(t, 0.405f, 0.1f, z), kMortar);
    // Herringbone: z is moved by 0.5 and still counts. Depth cell 0.21: z = 0.13 is mid-brick
    // in 3-D but lands on the joint at w = 3 when shifted.
    t.setPattern(BrickTexture3D::Herringbone);
    t.setBrickDepth(0.2f);
    t.setFlags(2);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.13f), kBrick);
    t.setFlags(8);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.13f), kMortar);
    EXPECT_EQ(at(t, 0.5f, 0.5f, 0.2f), kBrick);
}

TEST(Brick, Version3RecordsMigrate) {
    BrickTexture3D t;
    t.setPattern(BrickTexture3D::Herringbone);
    t.setRoundedCornersEnabled(true);
    t.setBrickColor(0.7f);
    t.setInteractiveUpdate(false);

    BrickDataV3 old;
    std::memset(&old, 0xAB, sizeof old);
    old.head.majorVersion = 3;
    old.head.minorVersion = 7;  // any minor version of major 3
    old.brickHeight = 0.5f;
    old.brickWidth = 1.5f;
    old.brickDepth = 0.25f;
    old.mortarThickness = 0.125f;
    old.randomizeColors = true;
    old.minColor = 0.2f;
    old.maxColor = 0.6f;
    // The host's buffer is only as long as the old record (the sanitizer build checks that no
    // byte past it is read). The pointer is laundered so that the compiler does not flag the
    // equal-versions copy, a branch this record never takes.
    std::vector<char> in(sizeof old);
    std::memcpy(in.data(), &old, sizeof old);
    const char* volatile buffer = in.data();
    t.setStateFromDescription(buffer);

    EXPECT_EQ(t.getBrickHeight(), 0.5f);
    EXPECT_EQ(t.getBrickWidth(), 1.5f);
    EXPECT_EQ(t.getBrickDepth(), 0.25f);
    EXPECT_EQ(t.getMortarThickness(), 0.125f);
    EXPECT_TRUE(t.getRandomizeColors());
    EXPECT_EQ(t.getMinColor(), 0.2f);
    EXPECT_EQ(t.getMaxColor(), 0.6f);
    // Everything else, the head included, keeps its current value.
    EXPECT_EQ(t.getPattern(), BrickTexture3D::Herringbone);
    EXPECT_TRUE(t.getRoundedCornersEnabled());
    EXPECT_EQ(t.getBrickColor(), 0.7f);
    EXPECT_EQ(t.getMortarColor(), 0.5f);
    EXPECT_FALSE(t.interactiveUpdate());
    char out[92];
    t.getDescription(out);
    EXPECT_EQ(out[0], 92);
    EXPECT_STREQ(out + 1, "Brick");
    EXPECT_EQ(out[33], 4);
    EXPECT_EQ(out[34], 0);

    // A 4.1 record is ignored entirely.
    std::vector<char> newer(out, out + 92);
    newer[34] = 1;
    const float height = 9.0f;
    std::memcpy(newer.data() + offsetof(BrickData, brickHeight), &height, 4);
    t.setStateFromDescription(newer.data());
    EXPECT_EQ(t.getBrickHeight(), 0.5f);
}
