// The batch path of the vectorised kinds, compiled once per SIMD level (Highway's
// foreach_target) and chosen at run time for the CPU: a loop that loads a vector of
// points, evaluates the kind's kernel on all lanes at once and stores the values. The
// kernels are the ones the one-point operators use (textures/noise_kinds-inl.h), so every
// level gives exactly the one-point values. On the SCALAR level the loop runs the
// one-point code itself.
#include <cstring>

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "textures/batch_kernels.cpp"
#include "hwy/foreach_target.h"  // IWYU pragma: keep

#include "hwy/highway.h"
#include "simd/hwy_lanes-inl.h"
#include "simd/scalar_lanes.h"
#include "textures/noise_kinds-inl.h"
#include "textures/pattern_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;
namespace kinds = kind_kernels::HWY_NAMESPACE;

// out[i] = kernel(lanes, x, y, z) over the packed points, a vector at a time; the last,
// partial vector goes through a zero-padded copy.
template <class Kernel>
HWY_INLINE void runBatch(const float* HWY_RESTRICT points, int n, float* HWY_RESTRICT out, Kernel kernel) {
#if HWY_TARGET == HWY_SCALAR
    for (int i = 0; i < n; ++i) {
        const float* p = points + 3 * i;
        out[i] = kernel(simd::ScalarLanes{}, p[0], p[1], p[2]);
    }
#else
    using D = hn::ScalableTag<float>;
    using L = simd::HWY_NAMESPACE::HwyLanes<D>;
    const D d;
    const int lanes = static_cast<int>(hn::Lanes(d));
    hn::Vec<D> x, y, z;
    int i = 0;
    for (; i + lanes <= n; i += lanes) {
        hn::LoadInterleaved3(d, points + 3 * i, x, y, z);
        hn::StoreU(kernel(L{}, x, y, z), d, out + i);
    }
    if (i < n) {
        alignas(64) float in[3 * hn::MaxLanes(d)] = {};
        alignas(64) float values[hn::MaxLanes(d)];
        const size_t rest = static_cast<size_t>(n - i);
        std::memcpy(in, points + 3 * i, 3 * rest * sizeof(float));
        hn::LoadInterleaved3(d, in, x, y, z);
        hn::Store(kernel(L{}, x, y, z), d, values);
        std::memcpy(out + i, values, rest * sizeof(float));
    }
#endif
}

// One exported entry per kind: KindBatch(record, planar, points, n, out).
#define GRAINSMITH_BATCH_ENTRY(Entry, Data, kernelName)                                                     \
    void Entry(const Data& data, bool planar, const float* points, int n, float* out) {                     \
        runBatch(points, n, out, [&](auto lanes, auto x, auto y, auto z) {                                  \
            return kinds::kernelName<decltype(lanes)>(data, planar, x, y, z);                               \
        });                                                                                                  \
    }

GRAINSMITH_BATCH_ENTRY(PerlinNoiseBatch, PerlinData, perlinNoise)
GRAINSMITH_BATCH_ENTRY(FBMBatch, FractalSumData, fbm)
GRAINSMITH_BATCH_ENTRY(TurbulenceBatch, FractalSumData, turbulence)
GRAINSMITH_BATCH_ENTRY(SimplexBatch, SimplexData, simplex)
GRAINSMITH_BATCH_ENTRY(VoronoiBatch, CellularData, voronoi)
GRAINSMITH_BATCH_ENTRY(SimpleMarbleBatch, SimpleMarbleData, simpleMarble)
GRAINSMITH_BATCH_ENTRY(GraniteBatch, GraniteData, granite)
GRAINSMITH_BATCH_ENTRY(DentsBatch, FoldedNoiseData, dents)
GRAINSMITH_BATCH_ENTRY(ErosionBatch, FoldedNoiseData, erosion)

// Checkerboard has no planar form.
void CheckerboardBatch(const CheckerboardData& data, const float* points, int n, float* out) {
    runBatch(points, n, out, [&](auto lanes, auto x, auto y, auto z) {
        return kinds::checkerboard<decltype(lanes)>(data, x, y, z);
    });
}

#undef GRAINSMITH_BATCH_ENTRY

// The level this instance was compiled for.
int64_t Level() { return HWY_TARGET; }

}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE
#include <vector>

#include "grainsmith/simd.h"
#include "simd/levels.h"
#include "textures/batch.h"

namespace grainsmith {

namespace batch {

HWY_EXPORT(PerlinNoiseBatch);
HWY_EXPORT(FBMBatch);
HWY_EXPORT(TurbulenceBatch);
HWY_EXPORT(SimplexBatch);
HWY_EXPORT(VoronoiBatch);
HWY_EXPORT(SimpleMarbleBatch);
HWY_EXPORT(CheckerboardBatch);
HWY_EXPORT(GraniteBatch);
HWY_EXPORT(DentsBatch);
HWY_EXPORT(ErosionBatch);
HWY_EXPORT(Level);

void perlinNoise(const PerlinData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(PerlinNoiseBatch)(d, planar, points, n, out);
}
void fbm(const FractalSumData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(FBMBatch)(d, planar, points, n, out);
}
void turbulence(const FractalSumData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(TurbulenceBatch)(d, planar, points, n, out);
}
void simplex(const SimplexData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(SimplexBatch)(d, planar, points, n, out);
}
void voronoi(const CellularData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(VoronoiBatch)(d, planar, points, n, out);
}
void simpleMarble(const SimpleMarbleData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(SimpleMarbleBatch)(d, planar, points, n, out);
}
void granite(const GraniteData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(GraniteBatch)(d, planar, points, n, out);
}
void dents(const FoldedNoiseData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(DentsBatch)(d, planar, points, n, out);
}
void erosion(const FoldedNoiseData& d, bool planar, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(ErosionBatch)(d, planar, points, n, out);
}
void checkerboard(const CheckerboardData& d, const float* points, int n, float* out) {
    HWY_DYNAMIC_DISPATCH(CheckerboardBatch)(d, points, n, out);
}

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

const char* simdLevelName() { return simd::levelName(HWY_DYNAMIC_DISPATCH(batch::Level)()); }

}  // namespace grainsmith
#endif  // HWY_ONCE
