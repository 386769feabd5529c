// Lookup tables read by the noise kernels, laid out so that one 4-byte read returns an
// entry together with the entries after it (see bytes4 in simd/scalar_lanes.h).
#pragma once

#include <cstdint>

namespace grainsmith::noise_detail {

// The reference permutation's 256-byte cycle, repeated until a 4-byte read at any index
// below 517 stays inside: byte k of the read at i is perm[(i + k) & 255].
extern const uint8_t kPermPadded[520];

// The Voronoi cube hash followed by its first bytes again, so that the read at i
// (0..256) holds hash[(i + k) & 255] in byte k.
extern const uint8_t kVoronoiHashWrapped[260];

}  // namespace grainsmith::noise_detail
