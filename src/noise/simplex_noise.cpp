// Simplex-lattice gradient noise in 2-D and 3-D, hashed through the reference permutation
// and sharing the corner gradients of the improved gradient noise. The arithmetic lives in
// noise_kernels-inl.h, shared with the batch path.
#include "grainsmith/noise/simplex_noise.h"

#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "simd/scalar_lanes.h"

namespace grainsmith {

namespace kernels = noise_kernels::HWY_NAMESPACE;

float simplex_noise2(float x, float y) { return kernels::simplexNoise2<simd::ScalarLanes>(x, y); }

float simplex_noise3(float x, float y, float z) { return kernels::simplexNoise3<simd::ScalarLanes>(x, y, z); }

}  // namespace grainsmith
