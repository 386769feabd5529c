// Penrose Rhombus, through its class (no name creates it), against
// tests/reference/kinds_model.py (penrose) and the properties of its definition.
#include <cstring>

#include "core/catalogue.h"
#include "grainsmith/textures/penrose_rhombus.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(PenroseRhombus, DefaultsAndTheFatMaximumOddity) {
    expectDefaults<PenroseRhombusTexture3D>({0.5, 1.0, 0, 0.0, 0.5, 0, 0.5, 1.0});
    PenroseRhombusTexture3D t;
    t.setFatMaxColor(0.9f);
    EXPECT_EQ(t.getSkinnyMaxColor(), 0.9f);
    EXPECT_EQ(t.getFatMaxColor(), 1.0f);
    EXPECT_EQ(createByName("Penrose Rhombus").texture, nullptr);
}

TEST(PenroseRhombus, CentresShowTheKindsColourAndEdgesFallToZero) {
    PenroseRhombusTexture3D t;
    EXPECT_EQ(valueAt(t, 3.54f, 5.31f, 0.0f), 1.0f);    // fat, 0.149 from its nearest edge
    EXPECT_EQ(valueAt(t, 4.81f, -4.64f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, -5.65f, -0.41f, 0.0f), 0.5f);  // skinny
    EXPECT_EQ(valueAt(t, 3.19f, -4.08f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 1.47f, 2.9f, 0.0f), 0x1.493d2ep-1f);  // fat, 0.0597 from an edge
    EXPECT_EQ(valueAt(t, 5.32f, 1.79f, 0.0f), 0x1.d9b39ep-2f);
    EXPECT_EQ(valueAt(t, -3.7f, 4.2f, 0.0f), 0x1.100f12p-7f);
    EXPECT_EQ(valueAt(t, -0.37f, -3.04f, 0.0f), 0x1.fc843p-16f);  // skinny, 0.00045 from an edge
    EXPECT_EQ(valueAt(t, 10.5f, 7.25f, 0.0f), 0.0f);  // the best candidate has u 1.24: outside, so 0
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.0f);     // a vertex (u = v = 1)
    EXPECT_EQ(valueAt(t, kNaN, 1.0f, 0.0f), 0.0f);     // no candidate: u = v = 0, kind 0
    t.setFatColor(0.25f);
    t.setSkinnyColor(0.75f);
    EXPECT_EQ(valueAt(t, 3.54f, 5.31f, 0.0f), 0.25f);
    EXPECT_EQ(valueAt(t, -5.65f, -0.41f, 0.0f), 0.75f);
}

TEST(PenroseRhombus, NeitherZNorTheStoredRandomFieldsChangeAValue) {
    const PenroseRhombusTexture3D plain;
    const PenroseRhombusTexture3D stored = withParams<PenroseRhombusTexture3D>({0.5, 1.0, 1, 0.9, 0.1, 1, 0.2, 0.3});
    for (float x = -4.0f; x < 4.0f; x += 0.37f) {
        const float v = valueAt(plain, x, x * 0.61f + 0.2f, 0.0f);
        for (float z : {3.0f, -1e30f, kNaN}) EXPECT_EQ(valueAt(plain, x, x * 0.61f + 0.2f, z), v);
        EXPECT_EQ(valueAt(stored, x, x * 0.61f + 0.2f, 0.0f), v);
    }
}

TEST(PenroseRhombus, OtherVersionsAreIgnored) {
    PenroseRhombusTexture3D t;
    char record[68];
    PenroseRhombusTexture3D changed;
    changed.setFatColor(0.125f);
    changed.getDescription(record);
    record[34] = 1;  // version 1.1
    t.setStateFromDescription(record);
    EXPECT_EQ(t.getFatColor(), 1.0f);
    record[34] = 0;
    t.setStateFromDescription(record);
    EXPECT_EQ(t.getFatColor(), 0.125f);
}
