// The vector instance of the lane operations, one per SIMD level (re-included for each
// target by Highway's foreach_target). Every operation gives, lane by lane, exactly the
// bits that ScalarLanes gives for that lane: the same IEEE single-precision operations in
// the same order, no fused multiply-add, and the project's float-to-int conversion.
//
// Operations every lanes type offers (F float lanes, U uint32 lanes, M masks):
//   kOneLane                       true for the one-point instance only
//   f(c), u(c)                     broadcast constants
//   lt le gt ge eq (F), eqU (U)    comparisons (false on NaN); both, either, negate on masks
//   notGe(F, F)                    negate(ge(a, b)): true on NaN
//   maskBits(M) -> U               all ones where true, 0 where false
//   anyBits, noBits(U, U bits) -> M  whether any / none of the bits are set
//   decrementWhere(M, U)           minus one where the mask holds
//   select(M, F, F), selectU       per-lane choice
//   minLt(a, b)                    select(lt(a, b), a, b)
//   choose(U i, F a, F b[, F c])   the operand numbered i (0, 1 or 2)
//   truncate(F) -> U               toInt32: truncation, INT32_MIN for NaN / out of range
//   toFloat(U), unsignedToFloat(U) signed / unsigned int32 to the nearest float
//   bits, fromBits, shl<k>, shr<k> bit views and logical shifts
//   floor, sqrt, abs               exactly rounded as the C library's floorf/sqrtf/fabsf
//   bytes4(table, offset)          4 table bytes from offset, little-endian
//   periodicBytes4(table, offset)  the same from a table that repeats a 256-byte cycle
//   kByteCycles                    whether the byte operations exist (cycleBytes, addBytes,
//                                  pickBytes, spreadBytes: AVX-512 VBMI only)
//   gather(table, index)           table[index]
//   gather3(table, index, a, b, c)  table[index], table[index + 1], table[index + 2]
//   inDouble(a, b, fn)             float(fn(double(a), double(b), ops)), ops.c(v) / ops.abs(v)
//   perLane(v, fn)                 fn called on each lane (library functions such as pow)
//   perLane(a, b, fn)              fn(a, b) called on each pair of lanes (atan2, ...)
//   intInDouble(U i, fn)           float(fn(double(int32 i), ops)): integer arithmetic in double
// plus the operators + - * on F and + - * & | ^ on U.

#if defined(GRAINSMITH_SIMD_HWY_LANES_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_SIMD_HWY_LANES_INL_H_
#undef GRAINSMITH_SIMD_HWY_LANES_INL_H_
#else
#define GRAINSMITH_SIMD_HWY_LANES_INL_H_
#endif

#include <cstdint>

#include "hwy/highway.h"
#include "simd/scalar_lanes.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::simd::HWY_NAMESPACE {
namespace hn = hwy::HWY_NAMESPACE;

// Truncating float-to-int32. x86's cvttps gives INT32_MIN for NaN and out-of-range lanes,
// which is the project's rule; Highway's ConvertTo saturates positive overflow instead.
#if HWY_ARCH_X86 && HWY_TARGET != HWY_SCALAR && HWY_TARGET != HWY_EMU128
template <size_t N>
HWY_API hn::Vec128<int32_t, N> TruncateToInt32(hn::Vec128<float, N> v) {
    return hn::Vec128<int32_t, N>{_mm_cvttps_epi32(v.raw)};
}
#if HWY_TARGET <= HWY_AVX2
HWY_API hn::Vec256<int32_t> TruncateToInt32(hn::Vec256<float> v) {
    return hn::Vec256<int32_t>{_mm256_cvttps_epi32(v.raw)};
}
#endif
#if HWY_TARGET <= HWY_AVX3
HWY_API hn::Vec512<int32_t> TruncateToInt32(hn::Vec512<float> v) {
    return hn::Vec512<int32_t>{_mm512_cvttps_epi32(v.raw)};
}
#endif
#else
template <class V>
HWY_API auto TruncateToInt32(V v) {
    const hn::DFromV<V> df;
    const hn::RebindToSigned<decltype(df)> di;
    const auto inRange = hn::And(v > hn::Set(df, -2147483904.0f), v < hn::Set(df, 2147483648.0f));
    return hn::IfThenElse(hn::RebindMask(di, inRange), hn::ConvertTo(di, v), hn::Set(di, INT32_MIN));
}
#endif

#if HWY_TARGET == HWY_AVX3_DL
// Byte-wise work on 32-bit lanes with AVX-512 VBMI: a 256-byte cycle lives in four
// registers and two byte permutes (128 entries each) look up all 64 bytes of a vector at
// once; bit 7 of each index byte picks the permute.
HWY_API __m512i CycleBytesVbmi(const uint8_t* cycle, __m512i index) {
    const __m512i t0 = _mm512_loadu_si512(cycle), t1 = _mm512_loadu_si512(cycle + 64);
    const __m512i t2 = _mm512_loadu_si512(cycle + 128), t3 = _mm512_loadu_si512(cycle + 192);
    const __m512i low = _mm512_permutex2var_epi8(t0, index, t1);
    const __m512i high = _mm512_permutex2var_epi8(t2, index, t3);
    return _mm512_mask_blend_epi8(_mm512_movepi8_mask(index), low, high);
}

// The byte shuffle control that gives byte k of each 32-bit lane the lane's own byte
// which[k] (0..3): the shuffle indexes within 16-byte blocks, so each lane's offset in its
// block (0, 4, 8, 12) is added.
HWY_API __m512i LaneByteControl(__m512i which) {
    return _mm512_add_epi8(which, _mm512_set4_epi32(0x0C0C0C0C, 0x08080808, 0x04040404, 0x00000000));
}
#endif

// The SCALAR level runs the one-point code (ScalarLanes) instead.
#if HWY_TARGET != HWY_SCALAR
template <class D>
struct HwyLanes {
    using DF = D;
    using DU = hn::RebindToUnsigned<D>;
    using DI = hn::RebindToSigned<D>;
    using F = hn::Vec<DF>;
    using U = hn::Vec<DU>;
    using M = hn::Mask<DF>;
    static constexpr bool kOneLane = false;

    static HWY_INLINE F f(float c) { return hn::Set(DF(), c); }
    static HWY_INLINE U u(uint32_t c) { return hn::Set(DU(), c); }

    static HWY_INLINE M lt(F a, F b) { return a < b; }
    static HWY_INLINE M le(F a, F b) { return a <= b; }
    static HWY_INLINE M gt(F a, F b) { return a > b; }
    static HWY_INLINE M ge(F a, F b) { return a >= b; }
    static HWY_INLINE M notGe(F a, F b) {
#if HWY_TARGET <= HWY_AVX3
        if constexpr (hn::MaxLanes(DF()) == 16) return M{_mm512_cmp_ps_mask(a.raw, b.raw, _CMP_NGE_UQ)};
#endif
        return negate(ge(a, b));
    }
    static HWY_INLINE M eq(F a, F b) { return a == b; }
    static HWY_INLINE M eqU(U a, U b) { return hn::RebindMask(DF(), a == b); }
    static HWY_INLINE M both(M a, M b) { return hn::And(a, b); }
    static HWY_INLINE M either(M a, M b) { return hn::Or(a, b); }
    static HWY_INLINE M negate(M a) { return hn::Not(a); }
    static HWY_INLINE U maskBits(M m) { return hn::BitCast(DU(), hn::VecFromMask(DF(), m)); }
    // (Highway's TestBit means "all of the bits" on some targets and "any" on others.)
    static HWY_INLINE M anyBits(U v, U bits) {
#if HWY_TARGET <= HWY_AVX3
        if constexpr (hn::MaxLanes(DF()) == 16) return M{_mm512_test_epi32_mask(v.raw, bits.raw)};
#endif
        return negate(noBits(v, bits));
    }
    static HWY_INLINE M noBits(U v, U bits) { return eqU(hn::And(v, bits), u(0)); }
    static HWY_INLINE U decrementWhere(M m, U v) {
#if HWY_TARGET <= HWY_AVX3
        return hn::IfThenElse(hn::RebindMask(DU(), m), v - u(1), v);  // one masked subtraction
#else
        return v + maskBits(m);  // the mask is a vector of all-ones lanes already
#endif
    }

    static HWY_INLINE F select(M m, F a, F b) { return hn::IfThenElse(m, a, b); }
    static HWY_INLINE F minLt(F a, F b) { return select(lt(a, b), a, b); }
    static HWY_INLINE U selectU(M m, U a, U b) { return hn::IfThenElse(hn::RebindMask(DU(), m), a, b); }

    static HWY_INLINE F choose(U index, F a, F b) { return select(eqU(index, u(0)), a, b); }
    static HWY_INLINE F choose(U index, F a, F b, F c) {
        return select(eqU(index, u(0)), a, select(eqU(index, u(1)), b, c));
    }

    static HWY_INLINE U truncate(F v) { return hn::BitCast(DU(), TruncateToInt32(v)); }
    static HWY_INLINE F toFloat(U v) { return hn::ConvertTo(DF(), hn::BitCast(DI(), v)); }
    static HWY_INLINE F unsignedToFloat(U v) {
        // Exact halves: hi * 65536 is exact, so one rounding happens in the addition,
        // which is the correctly rounded conversion of the whole value.
        const F hi = hn::ConvertTo(DF(), hn::BitCast(DI(), hn::ShiftRight<16>(v)));
        const F lo = hn::ConvertTo(DF(), hn::BitCast(DI(), hn::And(v, u(0xFFFFu))));
        return hi * f(65536.0f) + lo;
    }
    static HWY_INLINE U bits(F v) { return hn::BitCast(DU(), v); }
    static HWY_INLINE F fromBits(U v) { return hn::BitCast(DF(), v); }
    template <int kBits>
    static HWY_INLINE U shl(U v) { return hn::ShiftLeft<kBits>(v); }
    template <int kBits>
    static HWY_INLINE U shr(U v) { return hn::ShiftRight<kBits>(v); }

    // Without a rounding instruction (SSSE3 and older) Highway's Floor turns -0 into +0;
    // the floor of a value always carries the value's sign, so the sign is put back.
    static HWY_INLINE F floor(F v) { return hn::CopySign(hn::Floor(v), v); }
    static HWY_INLINE F sqrt(F v) { return hn::Sqrt(v); }
    static HWY_INLINE F abs(F v) { return hn::Abs(v); }

    static HWY_INLINE U bytes4(const uint8_t* table, U offset) {
        return hn::GatherOffset(DU(), reinterpret_cast<const uint32_t*>(table), hn::BitCast(DI(), offset));
    }
    // Byte-wise operations, where the level has byte permutes (kByteCycles):
    //   cycleBytes(cycle, U i)           every byte b of i replaced by cycle[b]
    //   spreadBytes<B0, B1, B2, B3>(U)   byte k of each lane becomes the lane's byte Bk
    //   addBytes(U, U)                   byte-wise wrapping addition
    //   pickBytes(U v, U which)          byte k of each lane becomes v's byte which[k] (0..3)
#if HWY_TARGET == HWY_AVX3_DL
    static_assert(hn::MaxLanes(DF()) == 16, "the byte operations work on whole 512-bit vectors");
    static constexpr bool kByteCycles = true;
    static HWY_INLINE U cycleBytes(const uint8_t* cycle, U index) { return U{CycleBytesVbmi(cycle, index.raw)}; }
    static HWY_INLINE U addBytes(U a, U b) { return U{_mm512_add_epi8(a.raw, b.raw)}; }
    static HWY_INLINE U pickBytes(U v, U which) { return U{_mm512_shuffle_epi8(v.raw, LaneByteControl(which.raw))}; }
    template <int B0, int B1, int B2, int B3>
    static HWY_INLINE U spreadBytes(U v) {  // a constant pick: the control folds at compile time
        return pickBytes(v, u(B0 | B1 << 8 | B2 << 16 | B3 << 24));
    }
    static HWY_INLINE U periodicBytes4(const uint8_t* table, U offset) {
        return cycleBytes(table, addBytes(spreadBytes<0, 0, 0, 0>(offset), u(0x03020100u)));
    }
#else
    static constexpr bool kByteCycles = false;
    static HWY_INLINE U periodicBytes4(const uint8_t* table, U offset) { return bytes4(table, offset); }
#endif
    static HWY_INLINE F gather(const float* table, U index) {
        return hn::GatherIndex(DF(), table, hn::BitCast(DI(), index));
    }
    static HWY_INLINE void gather3(const float* table, U index, F& a, F& b, F& c) {
#if HWY_TARGET <= HWY_AVX3
        if constexpr (hn::MaxLanes(DF()) == 16) {
            // a and b as one 8-byte element per lane (two gathers of 8), then split into the
            // even and odd floats: a gather costs by the element, so 32 elements instead of 48.
            const __m512d low = _mm512_i32gather_pd(_mm512_castsi512_si256(index.raw), table, 4);
            const __m512d high = _mm512_i32gather_pd(_mm512_extracti64x4_epi64(index.raw, 1), table, 4);
            const __m512i even = _mm512_set_epi32(30, 28, 26, 24, 22, 20, 18, 16, 14, 12, 10, 8, 6, 4, 2, 0);
            const __m512i odd = _mm512_set_epi32(31, 29, 27, 25, 23, 21, 19, 17, 15, 13, 11, 9, 7, 5, 3, 1);
            a = F{_mm512_permutex2var_ps(_mm512_castpd_ps(low), even, _mm512_castpd_ps(high))};
            b = F{_mm512_permutex2var_ps(_mm512_castpd_ps(low), odd, _mm512_castpd_ps(high))};
            c = gather(table, index + u(2));
            return;
        }
#elif HWY_TARGET == HWY_AVX2
        if constexpr (hn::MaxLanes(DF()) == 8) {
            // The same with four 8-byte elements per gather: (a0 b0 a1 b1 | a2 b2 a3 b3) and
            // (a4 b4 a5 b5 | a6 b6 a7 b7); the even floats of each 128-bit half, then the
            // 64-bit quarters put in order.
            const double* pairs = reinterpret_cast<const double*>(table);
            const __m256d low = _mm256_i32gather_pd(pairs, _mm256_castsi256_si128(index.raw), 4);
            const __m256d high = _mm256_i32gather_pd(pairs, _mm256_extracti128_si256(index.raw, 1), 4);
            const __m256 lo = _mm256_castpd_ps(low), hi = _mm256_castpd_ps(high);
            a = F{_mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(lo, hi, 0x88)), 0xD8))};
            b = F{_mm256_castpd_ps(_mm256_permute4x64_pd(_mm256_castps_pd(_mm256_shuffle_ps(lo, hi, 0xDD)), 0xD8))};
            c = gather(table, index + u(2));
            return;
        }
#endif
        a = gather(table, index);
        b = gather(table, index + u(1));
        c = gather(table, index + u(2));
    }

    struct DoubleOps {
        static HWY_INLINE hn::Vec<hn::RepartitionToWide<DF>> c(double v) {
            return hn::Set(hn::RepartitionToWide<DF>(), v);
        }
        static HWY_INLINE hn::Vec<hn::RepartitionToWide<DF>> abs(hn::Vec<hn::RepartitionToWide<DF>> v) {
            return hn::Abs(v);
        }
    };
    template <class Fn>
    static HWY_INLINE F inDouble(F a, F b, Fn fn) {
        const DF df;
        const hn::Half<DF> dh;
        const hn::RepartitionToWide<DF> dd;
        const auto lo = fn(hn::PromoteTo(dd, hn::LowerHalf(dh, a)), hn::PromoteTo(dd, hn::LowerHalf(dh, b)), DoubleOps{});
        const auto hi = fn(hn::PromoteTo(dd, hn::UpperHalf(dh, a)), hn::PromoteTo(dd, hn::UpperHalf(dh, b)), DoubleOps{});
        return hn::Combine(df, hn::DemoteTo(dh, hi), hn::DemoteTo(dh, lo));
    }

    template <class Fn>
    static HWY_INLINE F perLane(F v, Fn fn) {
        const DF df;
        alignas(64) float lanes[hn::MaxLanes(df)];
        hn::Store(v, df, lanes);
        for (size_t i = 0; i < hn::Lanes(df); ++i) lanes[i] = fn(lanes[i]);
        return hn::Load(df, lanes);
    }
    template <class Fn>
    static HWY_INLINE F perLane(F a, F b, Fn fn) {
        const DF df;
        alignas(64) float first[hn::MaxLanes(df)];
        alignas(64) float second[hn::MaxLanes(df)];
        hn::Store(a, df, first);
        hn::Store(b, df, second);
        for (size_t i = 0; i < hn::Lanes(df); ++i) first[i] = fn(first[i], second[i]);
        return hn::Load(df, first);
    }

    template <class Fn>
    static HWY_INLINE F intInDouble(U v, Fn fn) {
        const DF df;
        const hn::Half<DF> dh;
        const hn::Half<DI> dih;
        const hn::RepartitionToWide<DF> dd;
        const auto i = hn::BitCast(DI(), v);
        const auto lo = fn(hn::PromoteTo(dd, hn::LowerHalf(dih, i)), DoubleOps{});
        const auto hi = fn(hn::PromoteTo(dd, hn::UpperHalf(dih, i)), DoubleOps{});
        return hn::Combine(df, hn::DemoteTo(dh, hi), hn::DemoteTo(dh, lo));
    }
};
#endif  // HWY_TARGET != HWY_SCALAR

}  // namespace grainsmith::simd::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
