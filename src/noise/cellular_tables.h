// Constant tables of the two cellular noise families, shared by their sources and tests.
#pragma once

#include <cstdint>

namespace grainsmith::cellular {

// Voronoi: a permutation of 0..255 hashing a cube's integer coordinates (used with & 255).
extern const uint8_t kVoronoiHash[256];
// Voronoi: the feature point of each hash value, an offset in (0, 1) inside its unit cube.
extern const float kVoronoiPoints[256][3];
// Worley: the number of feature points in a cube (0 to 5), indexed by the top 8 bits of its hash.
extern const uint8_t kWorleyPoisson[256];

}  // namespace grainsmith::cellular
