// Weave: the simple weave against tests/reference/kinds_model.py (weave) and hand working,
// the migration of version 2 records, and the properties of the herringbone weave.
#include <algorithm>
#include <cstring>

#include "grainsmith/textures/weave.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

namespace {

// A texture whose parameters are (bg, hc, vc, hw, vw) with strengths (hs, vs), randomize off.
WeaveTexture3D woven(float bg, float hc, float vc, float hw, float vw, float hs, float vs, bool shading = true) {
    WeaveTexture3D t;
    t.setBackgroundColor(bg);
    t.setHorizontalColor(hc);
    t.setVerticalColor(vc);
    t.setHorizontalWidth(hw);
    t.setVerticalWidth(vw);
    t.setShadingHorizontalStrength(hs);
    t.setShadingVerticalStrength(vs);
    t.setShadingEnable(shading);
    return t;
}

}  // namespace

TEST(Weave, DefaultsAndTheVerticalMaximumOddity) {
    expectDefaults<WeaveTexture3D>({0, 0.0, 1.0, 1.0, 0.85, 0.85, 0, 0.0, 0.5, 0, 0.5, 1.0, 1, 0.85, 0.85});
    WeaveTexture3D t;
    t.setVerticalMaxColor(0.3f);
    EXPECT_EQ(t.getHorizontalMaxColor(), 0.3f);
    EXPECT_EQ(t.getVerticalMaxColor(), 1.0f);
}

TEST(Weave, SimpleParitiesAndShading) {
    const WeaveTexture3D t;
    // Cell (0, 0): vertical on top; 1.0 x shade(0.85, 0.5) = 1, whatever z.
    for (float z : {0.0f, -7.0f, 1e30f, kNaN}) EXPECT_EQ(valueAt(t, 0.5f, 0.5f, z), 1.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.02f, 0.0f), 0x1.34102ep-1f);  // 1 - 0.425 + 0.425 sin(0.02 pi)
    EXPECT_EQ(valueAt(t, 1.3f, 0.45f, 0.0f), 0x1.d6712cp-1f);  // cells of unequal parity: horizontal on top
    EXPECT_EQ(valueAt(t, -0.2f, -1.3f, 0.0f), 0x1.a64d54p-1f); // cells -1 and -2
    EXPECT_EQ(valueAt(t, -1.0f, 0.5f, 0.0f), 0x1.266666p-1f);  // exact -1: cell -2, fx 1
    const WeaveTexture3D u = woven(0.2f, 0.7f, 0.4f, 0.6f, 0.5f, 0.3f, 0.6f);
    EXPECT_EQ(valueAt(u, -0.2f, -1.3f, 0.0f), 0x1.503d46p-1f);
    EXPECT_EQ(valueAt(u, 1.3f, 0.45f, 0.0f), 0x1.5c21fcp-1f);
    EXPECT_EQ(valueAt(u, 2.12f, 3.9f, 0.0f), 0.2f);  // between the threads: the background
    EXPECT_EQ(valueAt(u, 2.4f, 3.5f, 0.0f), 0x1.63c4dp-1f);
    EXPECT_EQ(valueAt(u, 3.4f, 3.3f, 0.0f), 0x1.8221cap-2f);
    const WeaveTexture3D flat = woven(0.2f, 0.7f, 0.4f, 0.6f, 0.5f, 0.3f, 0.6f, false);
    EXPECT_EQ(valueAt(flat, 2.4f, 3.5f, 0.0f), 0.7f);
    EXPECT_EQ(valueAt(flat, 3.4f, 3.3f, 0.0f), 0.4f);
    const WeaveTexture3D bare = woven(0.3f, 1.0f, 1.0f, 0.0f, 0.0f, 0.85f, 0.85f);
    for (float x : {0.5f, -2.25f, 7.9f}) EXPECT_EQ(valueAt(bare, x, x * 1.3f, 0.0f), 0.3f);
}

TEST(Weave, RandomGreysPerRowAndColumn) {
    WeaveTexture3D t;
    t.setShadingEnable(false);
    t.setHorizontalRandomize(true);
    // Off the vertical thread (fx 0.02) the row's thread shows: hmin + (hmax - hmin) x r. Row -1
    // hashes cellRandom1(-1.0), the cell -2.
    EXPECT_EQ(valueAt(t, 7.02f, -0.5f, 0.0f), 0x1.b4046ep-2f);
    for (float x : {-30.02f, 0.98f, 1000.03f}) EXPECT_EQ(valueAt(t, x, -0.5f, 0.0f), 0x1.b4046ep-2f) << x;
    EXPECT_EQ(valueAt(t, 7.02f, 0.5f, 0.0f), 0x1.482374p-2f);
    t.setHorizontalRandomize(false);
    t.setVerticalRandomize(true);
    EXPECT_EQ(valueAt(t, -3.5f, 0.02f, 0.0f), 0x1.89d8ccp-1f);
    EXPECT_EQ(valueAt(t, -2.5f, 3.5f, 0.0f), 0x1.3407aap-1f);
}

TEST(Weave, MigratesVersionTwoRecords) {
    unsigned char old[96] = {};  // a 92-byte record in a block big enough for any Weave record
    old[0] = 92;
    std::memcpy(old + 1, "Weave", 6);
    old[33] = 2;
    old[34] = 7;  // the minor version of an old record is not looked at
    old[35] = 0;
    const float fields[] = {0.1f, 0.2f, 0.3f, 0.4f, 0.45f};
    std::memcpy(old + 36, fields, sizeof fields);
    old[56] = 1;
    const float h[] = {0.15f, 0.25f};
    std::memcpy(old + 60, h, sizeof h);
    old[68] = 1;
    const float v[] = {0.35f, 0.55f, 0.5f, 0.65f, 0.75f};  // min, max, shading (not 0), strengths
    std::memcpy(old + 72, v, sizeof v);

    WeaveTexture3D t;
    t.setPattern(5);
    t.setShadingEnable(false);
    t.setStateFromDescription(reinterpret_cast<const char*>(old));
    EXPECT_EQ(t.getPattern(), 5);  // not in the old layout: kept
    EXPECT_EQ(t.getBackgroundColor(), 0.1f);
    EXPECT_EQ(t.getHorizontalColor(), 0.2f);
    EXPECT_EQ(t.getVerticalColor(), 0.3f);
    EXPECT_EQ(t.getHorizontalWidth(), 0.4f);
    EXPECT_EQ(t.getVerticalWidth(), 0.45f);
    EXPECT_TRUE(t.getHorizontalRandomize());
    EXPECT_EQ(t.getHorizontalMinColor(), 0.15f);
    EXPECT_EQ(t.getHorizontalMaxColor(), 0.25f);
    EXPECT_TRUE(t.getVerticalRandomize());
    EXPECT_EQ(t.getVerticalMinColor(), 0.35f);
    EXPECT_EQ(t.getVerticalMaxColor(), 0.55f);
    EXPECT_TRUE(t.getShadingEnable());
    EXPECT_EQ(t.getShadingHorizontalStrength(), 0.65f);
    EXPECT_EQ(t.getShadingVerticalStrength(), 0.75f);
    unsigned char now[96];
    t.getDescription(reinterpret_cast<char*>(now));
    EXPECT_EQ(now[0], 96);
    EXPECT_EQ(now[33], 3);
    EXPECT_EQ(now[34], 0);
    EXPECT_EQ(now[35], 1);  // the object's own interactive flag
    EXPECT_STREQ(reinterpret_cast<const char*>(now + 1), "Weave");

    // The shading float becomes a flag: 0, -0 and NaN give false, anything else true.
    for (auto [bitsOfFloat, expected] : {std::pair{0x00000000u, false}, {0x80000000u, false}, {0x7FC00000u, false},
                                         {0x3F800000u, true}, {0xBF000000u, true}, {0x7F800000u, true},
                                         {0x00000001u, true}}) {
        std::memcpy(old + 80, &bitsOfFloat, 4);
        WeaveTexture3D u;
        u.setShadingEnable(!expected);
        u.setStateFromDescription(reinterpret_cast<const char*>(old));
        EXPECT_EQ(u.getShadingEnable(), expected) << std::hex << bitsOfFloat;
    }
    // Other major versions, and 3.1, are ignored.
    for (auto [major, minor] : {std::pair{1, 0}, {4, 0}, {3, 1}}) {
        old[33] = static_cast<unsigned char>(major);
        old[34] = static_cast<unsigned char>(minor);
        WeaveTexture3D u;
        u.setStateFromDescription(reinterpret_cast<const char*>(old));
        EXPECT_EQ(u.getBackgroundColor(), 0.0f) << major << "." << minor;
    }
}

TEST(Weave, HerringboneStaysInsideTheSimpleRangeAndIgnoresZ) {
    // For several records: the herringbone's values lie within the simple weave's extremes (found
    // on a grid of step 1/128, so within 0.01 of them), never depend on z, and differ from the
    // simple weave's arrangement.
    const WeaveTexture3D records[] = {WeaveTexture3D(), woven(0.2f, 0.7f, 0.4f, 0.6f, 0.5f, 0.3f, 0.6f),
                                      woven(0.1f, 0.9f, 0.5f, 0.95f, 0.7f, 1.0f, 0.2f)};
    for (WeaveTexture3D t : records) {
        float lo = 1e9f, hi = -1e9f;
        for (float y = -2.0f; y < 2.0f; y += 0.0078125f)
            for (float x = -2.0f; x < 2.0f; x += 0.0078125f) {
                const float v = valueAt(t, x, y, 0.0f);
                lo = std::min(lo, v), hi = std::max(hi, v);
            }
        const WeaveTexture3D simple = t;
        t.setPattern(WeaveTexture3D::Herringbone);
        int differ = 0;
        for (float y = -4.03f; y < 4.0f; y += 0.11f)
            for (float x = -4.01f; x < 4.0f; x += 0.13f) {
                const float v = valueAt(t, x, y, 0.0f);
                EXPECT_TRUE(v >= lo - 0.01f && v <= hi + 0.01f) << x << ", " << y << ": " << v;
                EXPECT_EQ(valueAt(t, x, y, -9.5f), v);
                EXPECT_EQ(valueAt(t, x, y, kNaN), v);
                differ += v != valueAt(simple, x, y, 0.0f);
            }
        EXPECT_GT(differ, 500);
    }
    // Twill order: in one column of the first block the vertical thread is on top for two rows,
    // then under for two rows; in the mirrored block the diagonal runs the other way.
    WeaveTexture3D t = woven(0.0f, 0.25f, 0.75f, 0.85f, 0.85f, 0.85f, 0.85f, false);
    t.setPattern(WeaveTexture3D::Herringbone);
    const float column0[] = {0.75f, 0.75f, 0.25f, 0.25f, 0.75f};
    for (int j = 0; j < 5; ++j) EXPECT_EQ(valueAt(t, 0.5f, j + 0.5f, 0.0f), column0[j]) << j;
    // Row 0 over columns 0 to 15: c = 0..7, then 7..0.
    const float row0[] = {0.75f, 0.75f, 0.25f, 0.25f, 0.75f, 0.75f, 0.25f, 0.25f,
                          0.25f, 0.25f, 0.75f, 0.75f, 0.25f, 0.25f, 0.75f, 0.75f};
    for (int i = 0; i < 16; ++i) EXPECT_EQ(valueAt(t, i + 0.5f, 0.5f, 0.0f), row0[i]) << i;
    EXPECT_EQ(valueAt(t, -0.5f, 0.5f, 0.0f), 0.75f);  // column -1: c = 0 of the block -8..-1 counted backwards
    EXPECT_EQ(valueAt(t, -2.5f, 0.5f, 0.0f), 0.25f);  // column -3: c = 2
}
