// Psychedelic: a noise-bent point shows the random grey of the cell it lands in.
#include "grainsmith/textures/psychedelic.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(PsychedelicKind, Defaults) { expectDefaults<PsychedelicTexture3D>({1.0, 0.0, 1.0}); }

TEST(PsychedelicKind, IntegerPointsShowTheirOwnCellsRandomValue) {
    // The noise vanishes at integer points, so the point is not bent. Cell (0, 0) hashes to
    // 1376312589, which rounds to the float 1376312576; times 2^-32.
    PsychedelicTexture3D t;
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 5.0f), 1376312576.0f * 0x1p-32f);
    EXPECT_EQ(valueAt(t, -1.0f, -1.0f, 0.0f), 0x1.d96762p-1f);  // cell -2: one below a true floor
    t.setFlags(kPlanar);
    EXPECT_EQ(valueAt(t, 3.0f, -2.0f, 0.5f), 0x1.174e5ap-1f);
    // Colours -1 to 2 clamp those two cells to +0 and 1; an undefined colour gives 0.
    t = withParams<PsychedelicTexture3D>({1.0, -1.0, 2.0});
    EXPECT_TRUE(valueAt(t, 0.0f, 0.0f, 5.0f) == 0.0f && !std::signbit(valueAt(t, 0.0f, 0.0f, 5.0f)));
    EXPECT_EQ(valueAt(t, -1.0f, -1.0f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(withParams<PsychedelicTexture3D>({1.0, kNaN, 1.0}), 0.3f, 0.6f, 0.9f), 0.0f);
}

TEST(PsychedelicKind, BentPositionsNextToCellEdges) {
    // {flags, frequency, x, y, z, expected}: each bent position (in the comment) lies within 2e-5
    // of a cell edge, so the warp must be exact to the last bits to pick the right cell.
    static constexpr float samples[][6] = {
        {2, 1.0f, 0.975f, -2.737f, 2.741f, 0x1.52b092p-2f},         // (1.2644334, -3.0000043)
        {2, 2.5f, -4.361f, -2.498f, -2.608f, 0x1.deacfcp-1f},       // (-10.9999809, -6.9515605)
        {kPlanar, 1.0f, 0.625f, -0.404f, -1.517f, 0x1.bf62c4p-2f},  // (0.5903137, -0.0000064)
        {kPlanar, 2.5f, -4.965f, 1.389f, -0.008f, 0x1.ec39c6p-6f},  // (-10.5803537, 4.0000339)
    };
    PsychedelicTexture3D t;
    for (const auto& s : samples) {
        t.setFlags(int(s[0]));
        t.setFrequency(s[1]);
        EXPECT_EQ(valueAt(t, s[2], s[3], s[4]), s[5]) << s[2];
    }
    for (float z : {7.5f, 1e30f, kNaN}) EXPECT_EQ(valueAt(t, -4.965f, 1.389f, z), 0x1.ec39c6p-6f);
    EXPECT_EQ(valueAt(withParams<PsychedelicTexture3D>({2.5, 0.2, 0.7}), 1.54f, 1.16f, -3.43f), 0x1.35cb7p-1f);
}
