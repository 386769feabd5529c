// Simplex: one octave of simplex noise at the scaled point, remapped to [0, 1].
#include "grainsmith/textures/simplex.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(SimplexKind, Defaults) { expectDefaults<SimplexTexture3D>({4.0}); }

TEST(SimplexKind, Values) {
    EXPECT_EQ(valueAt(SimplexTexture3D(), 0.0f, 0.0f, 0.0f), 0.5f);
    EXPECT_EQ(valueAt(SimplexTexture3D(), 0.3f, 0.7f, 0.2f), 0x1.68b35p-1f);
    EXPECT_EQ(valueAt(withParams<SimplexTexture3D>({1.3}), 1.37f, 0.51f, 2.86f), 0x1.dd8ca6p-1f);
    EXPECT_EQ(valueAt(withParams<SimplexTexture3D>({0.0}), 1.37f, 0.51f, 2.86f), 0.5f);  // all at the origin
    expectUnitRangeAtOddPoints(SimplexTexture3D());
    for (float z : {0.2f, 0.9f, kNaN}) EXPECT_EQ(valueAt(inPlane(SimplexTexture3D()), 0.3f, 0.7f, z), 0x1.b2262ep-1f);
    expectUnitRangeAtOddPoints(inPlane(SimplexTexture3D()));
}
