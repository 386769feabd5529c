// Batch entries of the noise kinds (kernels in textures/noise_kinds-inl.h), one instance
// per SIMD level.
#define GRAINSMITH_NOISE_BATCH_KINDS(X) \
    X(perlinNoise, PerlinData)          \
    X(fbm, FractalSumData)              \
    X(turbulence, FractalSumData)       \
    X(simplex, SimplexData)             \
    X(voronoi, CellularData)            \
    X(simpleMarble, SimpleMarbleData)   \
    X(granite, GraniteData)             \
    X(dents, FoldedNoiseData)           \
    X(erosion, FoldedNoiseData)         \
    X(wood, WoodData)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "textures/batch_noise_kinds.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "textures/batch_loop-inl.h"
#include "textures/noise_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
GRAINSMITH_NOISE_BATCH_KINDS(GRAINSMITH_BATCH_ENTRY)
}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "textures/batch.h"

namespace grainsmith::batch {
GRAINSMITH_NOISE_BATCH_KINDS(GRAINSMITH_BATCH_DISPATCH)
}  // namespace grainsmith::batch
#endif  // HWY_ONCE
