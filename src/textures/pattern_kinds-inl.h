// The value of the lattice pattern kinds at a point, written once over a lanes type L
// (simd/): the one-point operator instantiates it with ScalarLanes, the batch path of every
// SIMD level (textures/batch_pattern_kinds.cpp) with HwyLanes, so both give the same bits.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#undef GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#else
#define GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#endif

#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/textures/checkerboard.h"
#include "hwy/highway.h"
#include "simd/scalar_lanes.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {

// Cell index of a coordinate: truncation toward zero, minus one for negative values (the
// lanes form of cellFloor in numeric.h; NaN is not negative and keeps INT32_MIN).
template <class L>
HWY_INLINE typename L::U cellIndex(typename L::F v) {
    return L::truncate(v) + L::maskBits(L::lt(v, L::f(0.0f)));
}

// The lanes form of cellRandom3 in numeric.h: the cell's hash as an unsigned float times 2^-32.
template <class L>
HWY_INLINE typename L::F cellRandom3(typename L::F x, typename L::F y, typename L::F z) {
    using U = typename L::U;
    U n = cellIndex<L>(x) + cellIndex<L>(y) * L::u(1301u) + cellIndex<L>(z) * L::u(314159u);
    n = n ^ L::template shl<13>(n);
    const U v = (n * n * L::u(15731u) + L::u(789221u)) * n + L::u(1376312589u);
    return L::unsignedToFloat(v) * L::f(2.3283064e-10f);
}

// "Checkerboard": the parity of the cell (the XOR over the axes of "index is even") picks
// the dark or light grey; randomised greys vary per cell; deeper levels nest checkers, each
// narrowing the grey interval of the cell the point is in. It has no planar form.
template <class L>
HWY_INLINE typename L::F checkerboard(const CheckerboardData& d, bool /*planar*/, typename L::F x,
                                      typename L::F y, typename L::F z) {
    using F = typename L::F;
    using M = typename L::M;
    const auto darkCell = [](F cx, F cy, F cz) -> M {
        const typename L::U parity = (cellIndex<L>(cx) ^ cellIndex<L>(cy) ^ cellIndex<L>(cz)) & L::u(1);
        return L::eqU(parity, L::u(0));
    };
    const int depth = capLoopCount(d.depth);
    if (depth <= 0) return L::f(0.0f);
    if (depth == 1) {
        const M dark = darkCell(x, y, z);
        if (!d.randomizeColors) return L::select(dark, L::f(0.25f), L::f(0.75f));
        const F r = cellRandom3<L>(x, y, z);
        const F s = (r * L::f(2.0f) - L::f(1.0f)) * L::f(d.variability);
        return L::select(dark, (s + L::f(1.0f)) * L::f(0.25f), s * L::f(0.25f) + L::f(0.75f));
    }
    // The dark branch centres on the old dark grey, the light branch starts at the old light grey.
    F lo = L::f(0.25f), hi = L::f(0.75f);
    for (int k = 0;; ++k) {
        const F value = L::select(darkCell(x, y, z), lo, hi);
        if (k == depth - 1) return value;
        const F step = L::f(std::ldexp(1.0f, -(k + 3)));
        const M onLow = L::eq(value, lo);
        const F newHi = L::select(onLow, lo + step, hi + step);
        lo = L::select(onLow, lo - step, hi);
        hi = newHi;
        x = x * L::f(2.0f);
        y = y * L::f(2.0f);
        z = z * L::f(2.0f);
    }
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
