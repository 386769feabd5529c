// Which SIMD level the batch dispatcher chooses, and the hooks the tests and the benchmark
// use to force one. The batch entries' translation units are compiled for the same levels
// (Highway's foreach_target with the same targets), so the level chosen here is theirs.
#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "textures/batch_levels.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
// The level this instance was compiled for.
int64_t Level() { return HWY_TARGET; }
}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include <vector>

#include "grainsmith/simd.h"
#include "simd/levels.h"

namespace grainsmith {

namespace batch {
HWY_EXPORT(Level);
// Dispatched from inside the table's namespace: with a single level Highway's dispatch names the
// function by its per-level namespace alone (N_NEON::Level), with several the table by its name.
static int64_t chosenLevel() { return HWY_DYNAMIC_DISPATCH(Level)(); }
}  // namespace batch

namespace simd {

std::vector<int64_t> availableLevels() {
    std::vector<int64_t> levels;
    for (int64_t targets = hwy::SupportedTargets() & HWY_TARGETS; targets != 0; targets &= targets - 1)
        levels.push_back(targets & -targets);
    return levels;
}

void forceLevel(int64_t level) {
    hwy::SetSupportedTargetsForTest(level);
    hwy::GetChosenTarget().Update(hwy::SupportedTargets());
}

const char* levelName(int64_t level) { return hwy::TargetName(level); }

}  // namespace simd

const char* simdLevelName() { return simd::levelName(batch::chosenLevel()); }

}  // namespace grainsmith
#endif  // HWY_ONCE
