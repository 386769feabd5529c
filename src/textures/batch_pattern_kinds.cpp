// Batch entries of the lattice pattern kinds (kernels in textures/pattern_kinds-inl.h),
// one instance per SIMD level.
#define GRAINSMITH_PATTERN_BATCH_KINDS(X) \
    X(checkerboard, CheckerboardData)    \
    X(gradient, GradientData)            \
    X(grid, GridData)                    \
    X(stripes, StripesData)              \
    X(zigzag, ZigzagData)                \
    X(spiral, SpiralData)                \
    X(corrugated, CorrugatedData)

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "textures/batch_pattern_kinds.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "textures/batch_loop-inl.h"
#include "textures/pattern_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
GRAINSMITH_PATTERN_BATCH_KINDS(GRAINSMITH_BATCH_ENTRY)
}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include "textures/batch.h"

namespace grainsmith::batch {
GRAINSMITH_PATTERN_BATCH_KINDS(GRAINSMITH_BATCH_DISPATCH)
}  // namespace grainsmith::batch
#endif  // HWY_ONCE
