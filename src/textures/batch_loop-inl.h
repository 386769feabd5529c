// The batch loop shared by every vectorised kind, compiled once per SIMD level (Highway's
// foreach_target) and chosen at run time for the CPU: it loads a vector of points,
// evaluates the kind's kernel on all lanes at once and stores the values. The kernels are
// the ones the one-point operators use, so every level gives exactly the one-point values.
// On the SCALAR level the loop runs the one-point code itself.
//
// A translation unit of batch entries lists its kinds once, as X(kernel, Data) pairs, and
// expands the list twice: with GRAINSMITH_BATCH_ENTRY inside the per-level namespace and
// with GRAINSMITH_BATCH_DISPATCH in its HWY_ONCE part. The kernel kind_kernels::<kernel>
// then has the batch entry batch::<kernel>(data, planar, points, n, out) of textures/batch.h.
//
// Re-included once per SIMD target.

#if defined(GRAINSMITH_TEXTURES_BATCH_LOOP_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_BATCH_LOOP_INL_H_
#undef GRAINSMITH_TEXTURES_BATCH_LOOP_INL_H_
#else
#define GRAINSMITH_TEXTURES_BATCH_LOOP_INL_H_
#endif

#include <cstring>

#include "hwy/highway.h"
#include "simd/hwy_lanes-inl.h"
#include "simd/scalar_lanes.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::batch::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// out[i] = kernel(lanes, x, y, z) over the packed points, a vector at a time; the last,
// partial vector goes through a zero-padded copy. The kernel has one call site, so the
// compiler inlines it into the loop and keeps its constants and tables in registers.
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
    alignas(64) float in[3 * hn::MaxLanes(d)] = {};
    alignas(64) float values[hn::MaxLanes(d)];
    for (int i = 0; i < n; i += lanes) {
        const bool whole = i + lanes <= n;
        const size_t count = whole ? static_cast<size_t>(lanes) : static_cast<size_t>(n - i);
        const float* source = points + 3 * i;
        if (HWY_UNLIKELY(!whole)) {
            std::memcpy(in, source, 3 * count * sizeof(float));
            source = in;
        }
        hn::Vec<D> x, y, z;
        hn::LoadInterleaved3(d, source, x, y, z);
        const hn::Vec<D> v = kernel(L{}, x, y, z);
        if (HWY_LIKELY(whole)) {
            hn::StoreU(v, d, out + i);
        } else {
            hn::Store(v, d, values);
            std::memcpy(out + i, values, count * sizeof(float));
        }
    }
#endif
}

}  // namespace grainsmith::batch::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard

// The per-level entry of one kind: kernel##Batch(data, planar, points, n, out).
#ifndef GRAINSMITH_BATCH_ENTRY
#define GRAINSMITH_BATCH_ENTRY(kernel, Data)                                                            \
    void kernel##Batch(const Data& data, bool planar, const float* points, int n, float* out) {         \
        runBatch(points, n, out, [&](auto lanes, auto x, auto y, auto z) {                              \
            return kind_kernels::HWY_NAMESPACE::kernel<decltype(lanes)>(data, planar, x, y, z);         \
        });                                                                                              \
    }

// The dispatching entry of one kind (namespace grainsmith::batch, HWY_ONCE part).
#define GRAINSMITH_BATCH_DISPATCH(kernel, Data)                                                         \
    HWY_EXPORT(kernel##Batch);                                                                          \
    void kernel(const Data& data, bool planar, const float* points, int n, float* out) {                \
        HWY_DYNAMIC_DISPATCH(kernel##Batch)(data, planar, points, n, out);                              \
    }
#endif
