#include "grainsmith/textures/fbm.h"

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/noise_kinds-inl.h"

namespace grainsmith {

float FBMTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::fbm<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void FBMTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::fbm(data_, planar(), points, n, out);
}

}  // namespace grainsmith
