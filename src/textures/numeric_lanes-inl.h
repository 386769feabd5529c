// The lanes forms of the numeric helpers in grainsmith/numeric.h that the kinds' kernels
// share: the cell index, the per-cell random values and the clamp to [0, 1]. Each gives,
// lane by lane, the bits of its one-point counterpart.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_NUMERIC_LANES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_NUMERIC_LANES_INL_H_
#undef GRAINSMITH_TEXTURES_NUMERIC_LANES_INL_H_
#else
#define GRAINSMITH_TEXTURES_NUMERIC_LANES_INL_H_
#endif

#include "hwy/highway.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {

// Cell index of a coordinate: truncation toward zero, minus one for negative values (the
// lanes form of cellFloor; NaN is not negative and keeps INT32_MIN).
template <class L>
HWY_INLINE typename L::U cellIndex(typename L::F v) {
    return L::truncate(v) + L::maskBits(L::lt(v, L::f(0.0f)));
}

// The cell index k + 1 as a float, the integer addition wrapping.
template <class L>
HWY_INLINE typename L::F cellAbove(typename L::U k) {
    return L::toFloat(k + L::u(1));
}

// The hash of a combined cell number that every per-cell random value starts from.
template <class L>
HWY_INLINE typename L::U cellHash(typename L::U n) {
    n = n ^ L::template shl<13>(n);
    return (n * n * L::u(15731u) + L::u(789221u)) * n + L::u(1376312589u);
}

// The hash of a combined cell number as an unsigned float times 2^-32, in [0, 1].
template <class L>
HWY_INLINE typename L::F cellUnit(typename L::U n) {
    return L::unsignedToFloat(cellHash<L>(n)) * L::f(2.3283064e-10f);
}

// cellRandom2 / cellRandom3: the unit value of the cells the coordinates lie in. A search
// over neighbouring cells that already holds the indices hashes them directly.
template <class L>
HWY_INLINE typename L::F cellRandom2OfIndices(typename L::U ix, typename L::U iy) {
    return cellUnit<L>(ix + iy * L::u(1301u));
}

template <class L>
HWY_INLINE typename L::F cellRandom2(typename L::F x, typename L::F y) {
    return cellRandom2OfIndices<L>(cellIndex<L>(x), cellIndex<L>(y));
}

template <class L>
HWY_INLINE typename L::F cellRandom3(typename L::F x, typename L::F y, typename L::F z) {
    return cellUnit<L>(cellIndex<L>(x) + cellIndex<L>(y) * L::u(1301u) + cellIndex<L>(z) * L::u(314159u));
}

// cellRandom1: 31 bits of the hash scaled in double and rounded once to float. The 31 bits
// travel as two floats that hold them exactly (15 high, 16 low bits) and are joined in double.
template <class L>
HWY_INLINE typename L::F cellRandom1(typename L::F x) {
    const typename L::U v = cellHash<L>(cellIndex<L>(x)) & L::u(0x7FFFFFFFu);
    return L::inDouble(L::toFloat(L::template shr<16>(v)), L::toFloat(v & L::u(0xFFFFu)),
                       [](auto high, auto low, auto ops) {
                           return (high * ops.c(65536.0) + low) * ops.c(4.656612875245797e-10);
                       });
}

// Below 0 (and NaN) gives 0, above 1 gives 1.
template <class L>
HWY_INLINE typename L::F clamp01(typename L::F v) {
    const typename L::F low = L::select(L::ge(v, L::f(0.0f)), v, L::f(0.0f));
    return L::select(L::gt(low, L::f(1.0f)), L::f(1.0f), low);
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
