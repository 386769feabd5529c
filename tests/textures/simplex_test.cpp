// "Simplex": one octave of simplex noise at the scaled point, remapped to [0, 1].
// Expected values come from noise_kinds_reference.py (an independent float32 model).
#include <gtest/gtest.h>

#include "grainsmith/textures/simplex.h"
#include "textures/noise_kind_test_util.h"

using grainsmith::SimplexTexture3D;
using noise_kind_test::valueAt;

TEST(SimplexKind, DefaultScaleSitsAtItsRecordOffset) {
    const SimplexTexture3D t;
    EXPECT_EQ(t.getScale(), 4.0f);
    const auto r = noise_kind_test::exportRecord(t);
    EXPECT_EQ(r[0], 40);
    EXPECT_EQ(noise_kind_test::floatAt(r, 36), 4.0f);
}

TEST(SimplexKind, ValuesInSpace) {
    SimplexTexture3D t;
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(t, 0.3f, 0.7f, 0.2f), 0x1.68b35p-1f);
    t.setScale(1.3f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0x1.dd8ca6p-1f);
    // A zero scale maps every point onto the origin.
    t.setScale(0.0f);
    EXPECT_EQ(valueAt(t, 1.37f, 0.51f, 2.86f), 0.5f);
}

TEST(SimplexKind, PlanarModeUsesTwoDimensionalNoiseAndIgnoresZ) {
    SimplexTexture3D t;
    for (int flags : {4, 8}) {
        t.setFlags(flags);
        for (float z : {0.2f, 0.9f, std::numeric_limits<float>::quiet_NaN()})
            EXPECT_EQ(valueAt(t, 0.3f, 0.7f, z), 0x1.b2262ep-1f) << flags;
    }
}

TEST(SimplexKind, OddPointsStayInRange) {
    SimplexTexture3D t;
    for (int flags : {2, 4}) {
        t.setFlags(flags);
        for (float c : noise_kind_test::kOddCoordinates) {
            const float v = valueAt(t, c, c, c);
            EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
        }
    }
}
