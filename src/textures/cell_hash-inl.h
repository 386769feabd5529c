// Per-cell random values in lanes form (simd/): the integer hash of a cell's indices
// mapped to [0, 1], and cellRandom2 of numeric.h built on it.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_CELL_HASH_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_CELL_HASH_INL_H_
#undef GRAINSMITH_TEXTURES_CELL_HASH_INL_H_
#else
#define GRAINSMITH_TEXTURES_CELL_HASH_INL_H_
#endif

#include "hwy/highway.h"
#include "textures/pattern_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {

// The hash of a combined cell index as an unsigned float times 2^-32 (wrapping uint32).
template <class L>
HWY_INLINE typename L::F cellUnit(typename L::U n) {
    n = n ^ L::template shl<13>(n);
    const typename L::U v = (n * n * L::u(15731u) + L::u(789221u)) * n + L::u(1376312589u);
    return L::unsignedToFloat(v) * L::f(2.3283064e-10f);
}

// The lanes form of cellRandom2 in numeric.h, from the cell indices of x and y.
template <class L>
HWY_INLINE typename L::F cellRandom2OfIndices(typename L::U ix, typename L::U iy) {
    return cellUnit<L>(ix + iy * L::u(1301u));
}

template <class L>
HWY_INLINE typename L::F cellRandom2(typename L::F x, typename L::F y) {
    return cellRandom2OfIndices<L>(cellIndex<L>(x), cellIndex<L>(y));
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
