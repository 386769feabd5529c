// Cellular (feature-point) noise: distances from a sample to its nearest feature points.
// Two independent families: Voronoi (single precision, one tabled point per unit cube)
// and Worley (double precision, a Poisson-distributed number of hashed points per cube).
#pragma once

#include <cstdint>

#include "grainsmith/api.h"

namespace grainsmith {

namespace Voronoi {
enum VoronoiType { First = 0, Second, Third, Fourth, Difference21, Difference32, Tile };
enum DistanceMethod { Length = 0, SquaredLength, Taxicab, Chebychev, Quadratic, Minkowski4, Minkowski05 };

// Display texts in code order, as the editor lists them.
inline constexpr const char* kTypeNames[] = {"First", "Second", "Third", "Fourth",
                                             "Difference (2-1)", "Difference (3-2)", "Tile"};
inline constexpr const char* kDistanceNames[] = {"Length", "Squared Length", "Taxicab", "Chebychev",
                                                 "Quadratic", "Minkowski(4)", "Minkowski(0.5)"};

// F ascending; positions are the feature points in sample units. A method outside the
// table behaves as Length, a type outside 0..6 as First. Every value carries the final
// sqrt(2) / sqrt(3) scale.
GRAINSMITH_API void voronoi_search3(float x, float y, float z, float F[4], float positions[4][3], int method);
GRAINSMITH_API void voronoi_search2(float x, float y, float F[4], float positions[4][3], int method);
GRAINSMITH_API float voronoi_value3(float x, float y, float z, int type, int method);
GRAINSMITH_API float voronoi_value2(float x, float y, int type, int method);
}  // namespace Voronoi

namespace Worley {
enum VoronoiType { First = 0, Second, Third, Fourth, Difference21, Difference32, Tile };
enum DistanceMethod { Euclidean = 0, Squared, LargestPlusLength, Taxicab, Chebychev, Quadratic, Minkowski4, Minkowski05 };

// maxOrder is 1..4 (below 1 nothing is written, above 4 only four are kept). A method
// outside 0..7 behaves as 0, a type outside 0..6 as First.
GRAINSMITH_API void worley_search(const double at[3], int maxOrder, double* F, double (*delta)[3], uint32_t* id,
                                  int method);
GRAINSMITH_API double worley_value(double x, double y, double z, int type, int method);
}  // namespace Worley

}  // namespace grainsmith
