// Lookup tables read by the noise kernels, laid out so that one 4-byte read returns an
// entry together with the entries after it (see bytes4 in simd/scalar_lanes.h).
#pragma once

#include <cstdint>

namespace grainsmith::noise_detail {

// The 512-entry reference permutation `perm` followed by zero padding: a 4-byte read at
// any index below 512 stays inside. Byte 1 of the read at i is perm[i + 1].
extern const uint8_t kPermPadded[520];

// The Voronoi cube hash followed by its first bytes again, so that the read at i
// (0..255) holds hash[i], hash[(i + 1) & 255], hash[(i + 2) & 255] in bytes 0 to 2.
extern const uint8_t kVoronoiHashWrapped[260];

}  // namespace grainsmith::noise_detail
