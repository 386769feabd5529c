// Batch entries of the kinds built on a jittered cell grid (kernels in
// textures/cell_kinds-inl.h), one instance per SIMD level.
#define GRAINSMITH_CELL_BATCH_KINDS(X) \
    X(cheetah, CheetahData)            \
    X(voronoiTile, VoronoiTileData)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "textures/batch_cell_kinds.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "textures/batch_loop-inl.h"
#include "textures/cell_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
GRAINSMITH_CELL_BATCH_KINDS(GRAINSMITH_BATCH_ENTRY)
}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "textures/batch.h"

namespace grainsmith::batch {
GRAINSMITH_CELL_BATCH_KINDS(GRAINSMITH_BATCH_DISPATCH)
}  // namespace grainsmith::batch
#endif  // HWY_ONCE
