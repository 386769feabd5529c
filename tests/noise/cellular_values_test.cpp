// Cellular noise values at points where a plausible variant of the computation gives a
// different result: the precision of the "Tile" amplification, the product order of the
// fourth powers, the visiting order of the Worley neighbours and the sign of the largest
// component. Expected values come from a separate step-by-step model (float32 emulated by
// rounding after each operation); the variant's result is noted beside each case.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>

#include "grainsmith/noise/cellular.h"

namespace {

namespace V = grainsmith::Voronoi;
namespace W = grainsmith::Worley;

float f(uint32_t b) { return std::bit_cast<float>(b); }

struct VoronoiCase {
    uint32_t x, y, z;
    int method;
    bool planar;
    uint32_t expected;
};

float voronoi(const VoronoiCase& c, int type) {
    return c.planar ? V::voronoi_value2(f(c.x), f(c.y), type, c.method)
                    : V::voronoi_value3(f(c.x), f(c.y), f(c.z), type, c.method);
}

// 20 x the scaled difference is rounded to float before it is compared and scaled again;
// keeping it in double moves each result by one unit in the last place.
TEST(CellularValues, TileAmplifiesInSinglePrecision) {
    const VoronoiCase cases[] = {
        {0xBCA6FB1Fu, 0xBF813870u, 0x402EEB45u, V::Length, false, 0x3F7900E5u},         // double: ...E6
        {0xC0617FAEu, 0x4041FD5Au, 0xBEC154F8u, V::Length, true, 0x410440DBu},          // double: ...DA
        {0x402089EEu, 0x408ECFEBu, 0xC087067Fu, V::SquaredLength, false, 0x40DE0EC8u},  // double: ...C9
        {0xC0B88ADBu, 0x408C517Fu, 0x40841484u, V::SquaredLength, true, 0x4077192Cu},   // double: ...2D
        {0xBFF9F815u, 0x40A8FAD4u, 0x40BFADEEu, V::Quadratic, false, 0x3FD395B3u},      // double: ...B4
        {0x400F49CAu, 0xC09A5F1Eu, 0x4083ED0Bu, V::Quadratic, true, 0x3F95E7BAu},       // double: ...BB
    };
    for (const auto& c : cases) {
        EXPECT_EQ(std::bit_cast<uint32_t>(voronoi(c, V::Tile)), c.expected)
            << std::hex << c.x << " " << c.y << " " << c.z << " method " << c.method << " planar " << c.planar;
    }
}

// Minkowski(4) sums ((d x d) x d) x d per axis; (d x d) x (d x d) differs here.
TEST(CellularValues, MinkowskiFourthPowersMultiplyLeftToRight) {
    const VoronoiCase cases[] = {
        {0xBFAB1CACu, 0x3E3B9CFDu, 0xC0548DD8u, V::Minkowski4, false, 0x3EC8517Cu},  // squared squares: ...7D
        {0x3F7240F4u, 0x40A5E6A0u, 0x3F07A876u, V::Minkowski4, true, 0x3F169137u},   // squared squares: ...36
    };
    for (const auto& c : cases) {
        EXPECT_EQ(std::bit_cast<uint32_t>(voronoi(c, V::First)), c.expected) << std::hex << c.x;
    }
}

struct WorleyCase {
    double x, y, z;
    int type, method;
    double expected;
};

// The gap test prunes against whatever the metric keeps, so for these metrics the result
// depends on the order of the neighbours: faces, edges, corners, each group from -x to +z
// with the lower offset first. Visiting each group in reverse gives the noted value.
// The sign of the largest component counts in "largest plus length" (the magnitude gives
// 1.3694523532898815 at the fourth case). The Minkowski metrics take their power in single
// precision.
TEST(CellularValues, WorleyValuesUnderOrderSensitiveMetrics) {
    const WorleyCase cases[] = {
        {13.181803587150874, 16.26686055510811, 4.597852505388037, W::Second, W::Squared,
         1.2709788338316423},  // reversed: 1.2303348398882246
        {3.357443749585144, 9.273617614826513, -13.518576000097905, W::Fourth, W::LargestPlusLength,
         0.2505316767245509},  // reversed: 0.17245487002553553
        {3.815404804932893, 2.401326352307514, 1.771409123634129, W::Third, W::Quadratic,
         0.6524949928751917},  // reversed: 0.922820694392757
        {-7.4104177950428785, -15.085422908973666, -18.843211179301814, W::First, W::LargestPlusLength,
         0.11566456802277361},
        {-17.540718882143945, 5.413956599637501, 4.995876453353738, W::First, W::Minkowski4, 1.0819441407196608},
        {4.794557015365367, -11.593064195167347, -11.685782180860297, W::Difference21, W::Minkowski4,
         0.6822366503694316},
        {-12.39617602200048, -12.553678908056632, -7.453505017546744, W::First, W::Minkowski05, 4.32680318751677},
        {9.303919212188617, 5.372017752861943, 13.384857093080896, W::Difference21, W::Minkowski05,
         5.10183827415657},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(W::worley_value(c.x, c.y, c.z, c.type, c.method), c.expected)
            << c.x << " " << c.y << " " << c.z << " type " << c.type << " method " << c.method;
    }
}

}  // namespace
