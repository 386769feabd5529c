#include <gtest/gtest.h>
#include "grainsmith/numeric.h"
TEST(Numeric, Placeholder) { EXPECT_EQ(grainsmith::cellFloor(-1.0f), -2); }
