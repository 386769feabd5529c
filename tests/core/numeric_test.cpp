// The float-to-int helper, the cell floor and the per-cell random values at their edges.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "grainsmith/numeric.h"

using namespace grainsmith;

TEST(ToInt32, TruncatesTowardZeroAndSaturatesToIntMin) {
    EXPECT_EQ(toInt32(2.9f), 2);
    EXPECT_EQ(toInt32(-2.9f), -2);
    EXPECT_EQ(toInt32(-0.0f), 0);
    EXPECT_EQ(toInt32(2147483520.0f), 2147483520);    // largest float below 2^31
    EXPECT_EQ(toInt32(-2147483648.0f), INT32_MIN);
    EXPECT_EQ(toInt32(2147483648.0f), INT32_MIN);     // out of range: the hardware answer
    EXPECT_EQ(toInt32(-2147483904.0f), INT32_MIN);
    EXPECT_EQ(toInt32(std::numeric_limits<float>::quiet_NaN()), INT32_MIN);
    EXPECT_EQ(toInt32(std::numeric_limits<float>::infinity()), INT32_MIN);
    EXPECT_EQ(toInt32(-std::numeric_limits<float>::infinity()), INT32_MIN);
    EXPECT_EQ(toInt32(1e30), INT32_MIN);
    EXPECT_EQ(toInt32(2147483647.9), 2147483647);
    EXPECT_EQ(toInt32(-2147483648.9), INT32_MIN);
}

TEST(CellFloor, ExactNegativeIntegersGoOneCellFurther) {
    EXPECT_EQ(cellFloor(0.0f), 0);
    EXPECT_EQ(cellFloor(-0.0f), 0);
    EXPECT_EQ(cellFloor(0.999f), 0);
    EXPECT_EQ(cellFloor(1.0f), 1);
    EXPECT_EQ(cellFloor(-0.25f), -1);
    EXPECT_EQ(cellFloor(-1.0f), -2);  // unlike a true floor
    EXPECT_EQ(cellFloor(-1.5f), -2);
    EXPECT_EQ(cellFloor(-3.0f), -4);
    EXPECT_EQ(cellFloor(std::numeric_limits<float>::quiet_NaN()), INT32_MIN);
    EXPECT_EQ(cellFloor(-std::numeric_limits<float>::infinity()), INT32_MAX);  // INT32_MIN - 1, wrapped
}

TEST(CellRandom, HandWorkedHashes) {
    // Cell (0, 0): n = 0, v = 1376312589, which rounds to the float 1376312576.
    EXPECT_EQ(cellRandom2(0.5f, 0.25f), 1376312576.0f * 0x1p-32f);
    EXPECT_EQ(cellRandom3(0.0f, 0.9f, 0.1f), 1376312576.0f * 0x1p-32f);
    // Cell (1, 2, 3): n = 1 + 2*1301 + 3*314159 = 945080, v = 2291495589 -> float 2291495680.
    EXPECT_EQ(cellRandom3(1.5f, 2.0f, 3.75f), 2291495680.0f * 0x1p-32f);
    // The cell of an exact negative integer is one further down: -1.0 is cell -2, not -1.
    EXPECT_EQ(cellRandom1(-1.0f), cellRandom1(-1.5f));
    EXPECT_NE(cellRandom1(-1.0f), cellRandom1(-0.5f));
    // Cell -2: v = 3976272811, top bit cleared 1828789163, times 2^-31 in double.
    EXPECT_EQ(cellRandom1(-1.0f), 0x1.b4046ep-1f);
    // The 2-D hash is the 3-D one in the plane k = 0.
    EXPECT_EQ(cellRandom2(7.5f, -3.5f), cellRandom3(7.5f, -3.5f, 0.5f));
}

TEST(Clamp01, ClampsAndMapsNaNToZero) {
    EXPECT_EQ(clamp01(-0.5f), 0.0f);
    EXPECT_EQ(clamp01(0.25f), 0.25f);
    EXPECT_EQ(clamp01(1.5f), 1.0f);
    EXPECT_EQ(clamp01(std::numeric_limits<float>::quiet_NaN()), 0.0f);
    EXPECT_EQ(clamp01(std::numeric_limits<float>::infinity()), 1.0f);
}
