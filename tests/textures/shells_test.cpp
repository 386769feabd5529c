// Spheres and Nested Shapes against values worked by hand (and by tests/reference/kinds_model.py).
#include "grainsmith/textures/nested_shapes.h"
#include "grainsmith/textures/spheres.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

TEST(Spheres, DefaultsGiveSolidBallsOfRadiusAQuarter) {
    expectDefaults<SpheresTexture3D>({0.25, 0, 0.0});
    SpheresTexture3D t;
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.5f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.74f, 0.5f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.9f, 0.5f), 1.0f);  // distance 0.4
    EXPECT_EQ(valueAt(t, -0.5f, -3.5f, 7.5f), 0.0f);
    EXPECT_EQ(valueAt(t, -1.0f, 0.5f, 0.5f), 1.0f);  // exact -1 lies in cell -2: distance 0.5
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, kNaN), 1.0f);
}

TEST(Spheres, HollownessCutsTheInnerBall) {
    SpheresTexture3D t;
    t.setHollowness(0.5f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.5f), 1.0f);   // in the hole
    EXPECT_EQ(valueAt(t, 0.7f, 0.5f, 0.5f), 0.0f);   // distance 0.2: on the shell
    EXPECT_EQ(valueAt(t, 0.7f, 0.6f, 0.55f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.6f), 1.0f);   // distance 0.1 < 0.125
    // The inner bound is hollowness^2 x size^2, as (h x h) x (R x R): points found with the
    // reference model where (h x R)^2, or h^2 x R x R, would round to a different side.
    t.setSphereSize(0.18f);
    t.setHollowness(0.83f);
    EXPECT_EQ(valueAt(t, 0.6494f, 0.5f, 0.5f), 1.0f);  // (h R)^2 would put it on the shell
    t.setSphereSize(0.4f);
    t.setHollowness(0.15f);
    EXPECT_EQ(valueAt(t, 0.56f, 0.5f, 0.5f), 1.0f);
    t.setSphereSize(0.25f);
    t.setHollowness(1.0f);                          // only the sphere itself
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.75f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.74f), 1.0f);
}

TEST(Spheres, PlanarModeSlicesLayerMinusOneThroughItsCentres) {
    SpheresTexture3D t;
    t.setSphereSize(0.3f);
    // Cell (-1, 1, -1), centre (-0.5, 1.5, -0.5): distance^2 0.0544 <= 0.09.
    EXPECT_EQ(valueAt(t, -0.3f, 1.62f, 7.0f), 1.0f);
    t.setFlags(kPlanar);
    EXPECT_EQ(valueAt(t, -0.3f, 1.62f, 7.0f), 0.0f);
    EXPECT_EQ(valueAt(t, -0.3f, 1.62f, kNaN), 0.0f);
    t.setFlags(8);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.5f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.81f, 0.5f), 1.0f);
}

TEST(Spheres, StaggeredCellsAndTheirFaceNeighbours) {
    SpheresTexture3D t;
    t.setStaggered(true);
    // Cell (0, 0, 0) holds its own ball of radius sqrt(2) x 0.25 = 0.354.
    EXPECT_EQ(valueAt(t, 0.5f, 0.84f, 0.5f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.86f, 0.5f), 1.0f);
    EXPECT_EQ(valueAt(t, -1.5f, 0.5f, 0.5f), 0.0f);  // cell (-2, 0, 0): even, even, even
    EXPECT_EQ(valueAt(t, -0.5f, -0.5f, -0.5f), 1.0f);  // cell (-1, -1, -1): no ball of its own
    t.setSphereSize(0.3f);
    EXPECT_EQ(valueAt(t, 1.5f, 0.5f, 0.5f), 1.0f);  // cell (1, 0, 0) is empty; neighbours reach 0.424
    EXPECT_EQ(valueAt(t, 1.05f, 0.5f, 0.5f), 1.0f);
    t.setSphereSize(0.4f);                          // neighbours now reach 0.566 into it
    EXPECT_EQ(valueAt(t, 1.05f, 0.5f, 0.5f), 0.0f);  // from x - 1
    EXPECT_EQ(valueAt(t, 1.95f, 0.5f, 0.5f), 0.0f);  // from x + 1
    EXPECT_EQ(valueAt(t, 1.5f, 0.05f, 0.5f), 0.0f);  // from y - 1
    EXPECT_EQ(valueAt(t, 1.5f, 0.5f, 0.95f), 0.0f);  // from z + 1
    EXPECT_EQ(valueAt(t, 1.5f, 0.5f, 0.5f), 1.0f);
    EXPECT_EQ(valueAt(t, 1.1f, 0.1f, 0.5f), 1.0f);   // 0.72 from both face neighbours it lies between
    t.setSphereSize(0.3f);
    t.setHollowness(0.5f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.5f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.5f, 0.75f), 0.0f);
}

TEST(NestedShapes, FourShapesOfShells) {
    expectDefaults<NestedShapesTexture3D>({0, 0.25});
    NestedShapesTexture3D t;  // cylinders around z
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 7.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 1.0f, 0.0f, 7.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 1.6f, 1.2f, 0.0f), 0.0f);  // r = 2
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, -3.0f), 0.0f);  // the axis itself
    t.setShapeType(NestedShapesTexture3D::Sphere);
    EXPECT_EQ(valueAt(t, 1.0f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.1f, 0.0f, 0.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 1.6f, 1.2f, 0.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 1.6f, 1.2f, 1.5f), 1.0f);   // r = 2.5
    EXPECT_EQ(valueAt(t, 2.05f, 0.3f, 0.4f), 0.0f);  // r = 2.1
    t.setShapeType(NestedShapesTexture3D::SquareTube);
    EXPECT_EQ(valueAt(t, 1.05f, 0.6f, 3.0f), 0.0f);
    EXPECT_EQ(valueAt(t, 2.2f, -1.9f, 0.3f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.5f, -0.5f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 2.9f, -0.5f, 99.0f), 0.0f);
    t.setShapeType(NestedShapesTexture3D::Cube);
    EXPECT_EQ(valueAt(t, 0.3f, -1.1f, 2.93f), 0.0f);
    EXPECT_EQ(valueAt(t, 0.3f, -1.1f, 2.6f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.2f, -0.3f, -1.95f), 0.0f);
    for (int shape : {-1, 4, 1000}) {
        t.setShapeType(shape);
        EXPECT_EQ(valueAt(t, 1.0f, 0.0f, 0.0f), 1.0f) << shape;  // no shape: no shells
    }
}

TEST(NestedShapes, ThicknessLimits) {
    NestedShapesTexture3D t;
    t.setShapeType(NestedShapesTexture3D::Sphere);
    t.setThickness(0.0f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 0.999f, 0.0f, 0.0f), 1.0f);
    EXPECT_EQ(valueAt(t, 2.0f, 0.0f, 0.0f), 0.0f);  // exactly a whole distance
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.0f);
    for (float thickness : {1.0f, 1.5f, 40.0f}) {
        t.setThickness(thickness);
        for (float x : {0.5f, 0.25f, 3.7f, -8.5f}) EXPECT_EQ(valueAt(t, x, 0.0f, 0.0f), 0.0f) << thickness;
    }
    t.setThickness(0.999f);
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), 1.0f);
}
