// The arithmetic of the noise primitives, written once over a lanes type L (simd/): with
// ScalarLanes it is the one-point path, with HwyLanes<D> the batch path of each SIMD
// level. Both evaluate the same single-precision operations in the same order, so they
// agree to the bit.
//
// Re-included once per SIMD target (Highway's foreach_target); a translation unit without
// foreach_target gets the static target only, which is how the one-point functions use it.

#if defined(GRAINSMITH_NOISE_KERNELS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_NOISE_KERNELS_INL_H_
#undef GRAINSMITH_NOISE_KERNELS_INL_H_
#else
#define GRAINSMITH_NOISE_KERNELS_INL_H_
#endif

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <type_traits>

#include "core/exact_math.h"
#include "grainsmith/limits.h"
#include "grainsmith/noise/cellular.h"
#include "hwy/highway.h"
#include "noise/cellular_tables.h"
#include "noise/noise_tables.h"
#include "simd/scalar_lanes.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::noise_kernels::HWY_NAMESPACE {

// ---- shared pieces -----------------------------------------------------------------------

// Byte j (0..3) of a packed 4-byte read.
template <class L>
HWY_INLINE typename L::U byteOf(typename L::U v, int j) {
    switch (j) {
        case 0:
            return v & L::u(255);
        case 1:
            return L::template shr<8>(v) & L::u(255);
        case 2:
            return L::template shr<16>(v) & L::u(255);
        default:
            return L::template shr<24>(v);
    }
}

// Lattice cell of a coordinate: truncation toward zero, minus one when the coordinate is
// negative or NaN. An exact negative integer k therefore lies in cell k - 1 at fraction 1.
// The subtraction wraps (NaN and -1e30 give INT32_MAX), so no value is undefined.
template <class L>
HWY_INLINE typename L::U noiseFloor(typename L::F c) {
    return L::decrementWhere(L::notGe(c, L::f(0.0f)), L::truncate(c));
}

// ((t * 6 - 15) * t + 10) * t^3, with t^3 = (t * t) * t.
template <class L>
HWY_INLINE typename L::F fade(typename L::F t) {
    return ((t * L::f(6.0f) - L::f(15.0f)) * t + L::f(10.0f)) * ((t * t) * t);
}

template <class L>
HWY_INLINE typename L::F lerp(typename L::F t, typename L::F a, typename L::F b) {
    return a + t * (b - a);
}

// v with its sign bit flipped where `signBit` holds bit 31: an exact negation, no branch.
template <class L>
HWY_INLINE typename L::F flipSign(typename L::U signBit, typename L::F v) {
    return L::fromBits(L::bits(v) ^ signBit);
}

// 1-D gradient: slope 1..8 from the low three bits, negative when bit 3 is set.
template <class L>
HWY_INLINE typename L::F grad1(typename L::U hash, typename L::F x) {
    const typename L::U h = hash & L::u(15);
    const typename L::F g = L::f(1.0f) + L::toFloat(h & L::u(7));
    return flipSign<L>(L::template shl<28>(h & L::u(8)), g) * x;
}

// 2-D gradient: one of the eight directions (+-1, +-2) and (+-2, +-1). Bit 2 of the hash
// swaps which coordinate is u and which is v; bits 0 and 1 negate u and 2v.
template <class L>
HWY_INLINE typename L::F grad2(typename L::U hash, typename L::F x, typename L::F y) {
    const typename L::U h = hash & L::u(7);
    const typename L::U uIsY = L::template shr<2>(h);
    const typename L::F u = L::choose(uIsY, x, y), v = L::choose(uIsY, y, x);
    return flipSign<L>(L::template shl<31>(h & L::u(1)), u) +
           flipSign<L>(L::template shl<30>(h & L::u(2)), L::f(2.0f) * v);
}

// 3-D gradient: one of the twelve cube-edge directions (four of them repeated), from the
// low four bits of the hash (the bits above them are not read). u = x for h < 8, else y;
// v = y for h < 4, x for h 12 and 14, else z; bits 0 and 1 negate u and v. No branch
// depends on the random hash: vectors choose by bit tests and selects, one lane reads
// which operand from a table (fewer instructions there); both make the same choice.
inline constexpr uint8_t kGrad3U[16] = {0, 0, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1, 1, 1};
inline constexpr uint8_t kGrad3V[16] = {1, 1, 1, 1, 2, 2, 2, 2, 2, 2, 2, 2, 0, 2, 0, 2};

template <class L>
HWY_INLINE typename L::F grad3(typename L::U hash, typename L::F x, typename L::F y, typename L::F z) {
    typename L::F u, v;
    if constexpr (L::kOneLane) {
        const typename L::F operands[3] = {x, y, z};
        u = operands[kGrad3U[hash & 15]];
        v = operands[kGrad3V[hash & 15]];
    } else {
        u = L::select(L::anyBits(hash, L::u(8)), y, x);
        const typename L::M vIsX = L::eqU(hash & L::u(13), L::u(12));  // 12 and 14
        v = L::select(L::noBits(hash, L::u(12)), y, L::select(vIsX, x, z));
    }
    return flipSign<L>(L::template shl<31>(hash), u) + flipSign<L>(L::template shl<30>(hash) & L::u(0x80000000u), v);
}

// ---- improved gradient noise ---------------------------------------------------------------
// Every table read fetches an entry together with the next one (P[i], P[i + 1]): the
// algorithm always needs both, and one read instead of two halves the lookups.

// The hashes of a cell's eight corners: byte 0 of `aa` hashes the corner (0, 0, 0) and
// byte 1 the corner (0, 0, 1); ab, ba and bb likewise for the offsets (0, 1), (1, 0) and
// (1, 1) in x and y. Only the low four bits of a hash are read (grad3).
template <class L>
struct CornerHashes {
    typename L::U aa, ab, ba, bb;
};

// Word at a time, through `pairs`: A = perm[X] + Y, AA = perm[A] + Z, ..., each read
// fetching an entry with the next one. Indices stay below 511 (a lattice index is at most
// 255 and every table value at most 255).
template <class L, class Pairs>
HWY_INLINE CornerHashes<L> pairedCornerHashes(Pairs pairs, typename L::U cx, typename L::U cy, typename L::U cz) {
    using U = typename L::U;
    const U X = cx & L::u(255), Y = cy & L::u(255), Z = cz & L::u(255);
    const U pX = pairs(X);
    const U A = byteOf<L>(pX, 0) + Y, B = byteOf<L>(pX, 1) + Y;
    const U pA = pairs(A), pB = pairs(B);
    return {pairs(byteOf<L>(pA, 0) + Z), pairs(byteOf<L>(pA, 1) + Z), pairs(byteOf<L>(pB, 0) + Z),
            pairs(byteOf<L>(pB, 1) + Z)};
}

// The same hashes of the reference permutation, a byte at a time: the sums are taken
// modulo 256, which is where the permutation repeats, and one lookup of four index bytes
// serves two pairs: (A, A + 1, B, B + 1), then (AA, AA + 1, AB, AB + 1) and
// (BA, BA + 1, BB, BB + 1). Three lookups instead of seven.
template <class L>
HWY_INLINE CornerHashes<L> bytewiseCornerHashes(typename L::U cx, typename L::U cy, typename L::U cz) {
    using U = typename L::U;
    const uint8_t* P = noise_detail::kPermPadded;
    const U pairOffsets = L::u(0x01000100u);
    const U pX = L::periodicBytes4(P, cx);                                   // perm[X], perm[X + 1]
    const U ab = L::addBytes(pX, L::template spreadBytes<0, 0, 0, 0>(cy));  // A, B
    const U pAB = L::cycleBytes(P, L::addBytes(L::template spreadBytes<0, 0, 1, 1>(ab), pairOffsets));
    const U corners = L::addBytes(pAB, L::template spreadBytes<0, 0, 0, 0>(cz));  // AA, AB, BA, BB
    const U hA = L::cycleBytes(P, L::addBytes(L::template spreadBytes<0, 0, 1, 1>(corners), pairOffsets));
    const U hB = L::cycleBytes(P, L::addBytes(L::template spreadBytes<2, 2, 3, 3>(corners), pairOffsets));
    return {hA, L::template shr<16>(hA), hB, L::template shr<16>(hB)};
}

// Reads the reference permutation: byte 0 of the result is perm[i], byte 1 perm[i + 1].
template <class L>
struct PermutationPairs {
    HWY_INLINE typename L::U operator()(typename L::U i) const {
        return L::periodicBytes4(noise_detail::kPermPadded, i);
    }
};

// One octave of 3-D noise, unscaled, hashing through `pairs`.
template <class L, class Pairs>
HWY_INLINE typename L::F gradientNoise3(Pairs pairs, typename L::F x, typename L::F y, typename L::F z) {
    using F = typename L::F;
    using U = typename L::U;
    const U cx = noiseFloor<L>(x), cy = noiseFloor<L>(y), cz = noiseFloor<L>(z);
    const F fx = x - L::toFloat(cx), fy = y - L::toFloat(cy), fz = z - L::toFloat(cz);
    const F u = fade<L>(fx), v = fade<L>(fy), w = fade<L>(fz);

    CornerHashes<L> h;
    if constexpr (L::kByteCycles && std::is_same_v<Pairs, PermutationPairs<L>>)
        h = bytewiseCornerHashes<L>(cx, cy, cz);
    else
        h = pairedCornerHashes<L>(pairs, cx, cy, cz);
    const U hAA1 = L::template shr<8>(h.aa), hAB1 = L::template shr<8>(h.ab);
    const U hBA1 = L::template shr<8>(h.ba), hBB1 = L::template shr<8>(h.bb);

    const F gx = fx - L::f(1.0f), gy = fy - L::f(1.0f), gz = fz - L::f(1.0f);
    return lerp<L>(w,
                   lerp<L>(v, lerp<L>(u, grad3<L>(h.aa, fx, fy, fz), grad3<L>(h.ba, gx, fy, fz)),
                           lerp<L>(u, grad3<L>(h.ab, fx, gy, fz), grad3<L>(h.bb, gx, gy, fz))),
                   lerp<L>(v, lerp<L>(u, grad3<L>(hAA1, fx, fy, gz), grad3<L>(hBA1, gx, fy, gz)),
                           lerp<L>(u, grad3<L>(hAB1, fx, gy, gz), grad3<L>(hBB1, gx, gy, gz))));
}

// One octave of 2-D noise, unscaled.
template <class L>
HWY_INLINE typename L::F gradientNoise2(typename L::F x, typename L::F y) {
    using F = typename L::F;
    using U = typename L::U;
    const uint8_t* P = noise_detail::kPermPadded;
    const U cx = noiseFloor<L>(x), cy = noiseFloor<L>(y);
    const F fx = x - L::toFloat(cx), fy = y - L::toFloat(cy);
    // Byte 0 of hA hashes the corner (0, 0), byte 1 the corner (0, 1); hB likewise at x + 1.
    U hA, hB;
    if constexpr (L::kByteCycles) {
        // A byte at a time (sums modulo 256): one lookup of (A, A + 1, B, B + 1).
        const U ab = L::addBytes(L::periodicBytes4(P, cx), L::template spreadBytes<0, 0, 0, 0>(cy));
        hA = L::cycleBytes(P, L::addBytes(L::template spreadBytes<0, 0, 1, 1>(ab), L::u(0x01000100u)));
        hB = L::template shr<16>(hA);
    } else {
        const U X = cx & L::u(255), Y = cy & L::u(255);
        const U pX = L::periodicBytes4(P, X);
        hA = L::periodicBytes4(P, byteOf<L>(pX, 0) + Y);
        hB = L::periodicBytes4(P, byteOf<L>(pX, 1) + Y);
    }
    const F gx = fx - L::f(1.0f), gy = fy - L::f(1.0f);
    const F c00 = grad2<L>(hA, fx, fy);
    const F c10 = grad2<L>(hB, gx, fy);
    const F c01 = grad2<L>(L::template shr<8>(hA), fx, gy);
    const F c11 = grad2<L>(L::template shr<8>(hB), gx, gy);
    const F sx = fade<L>(fx);
    return lerp<L>(fade<L>(fy), lerp<L>(sx, c00, c10), lerp<L>(sx, c01, c11));
}

// The scaled noises (about [-1, 1]).
template <class L>
HWY_INLINE typename L::F improvedNoise1(typename L::F x) {
    using F = typename L::F;
    const typename L::U cx = noiseFloor<L>(x);
    const F f = x - L::toFloat(cx);
    // Bytes 0 and 1: the cells cx and cx + 1 (perm[256] repeats perm[0]).
    const typename L::U p = L::periodicBytes4(noise_detail::kPermPadded, cx & L::u(255));
    const F c0 = grad1<L>(p, f);
    const F c1 = grad1<L>(L::template shr<8>(p), f - L::f(1.0f));
    return L::f(0.188f) * lerp<L>(fade<L>(f), c0, c1);
}

template <class L>
HWY_INLINE typename L::F improvedNoise2(typename L::F x, typename L::F y) {
    return L::f(0.507f) * gradientNoise2<L>(x, y);
}

template <class L>
HWY_INLINE typename L::F improvedNoise3(typename L::F x, typename L::F y, typename L::F z) {
    return L::f(0.936f) * gradientNoise3<L>(PermutationPairs<L>{}, x, y, z);
}

// Octave sums with lacunarity 2 and gain 0.5; octaves < 1 gives 0, at most 64 are summed.
template <class L>
HWY_INLINE typename L::F fractalNoise2(typename L::F x, typename L::F y, int octaves, float frequency,
                                       float amplitude) {
    using F = typename L::F;
    F sum = L::f(0.0f);
    if (octaves < 1) return sum;
    x = x * L::f(frequency);
    y = y * L::f(frequency);
    float w = amplitude;
    for (int o = 0, n = capLoopCount(octaves); o < n; ++o) {
        sum = sum + improvedNoise2<L>(x, y) * L::f(w);
        x = x * L::f(2.0f);
        y = y * L::f(2.0f);
        w *= 0.5f;
    }
    return sum;
}

template <class L>
HWY_INLINE typename L::F fractalNoise3(typename L::F x, typename L::F y, typename L::F z, int octaves,
                                       float frequency, float amplitude) {
    using F = typename L::F;
    F sum = L::f(0.0f);
    if (octaves < 1) return sum;
    x = x * L::f(frequency);
    y = y * L::f(frequency);
    z = z * L::f(frequency);
    float w = amplitude;
    for (int o = 0, n = capLoopCount(octaves); o < n; ++o) {
        sum = sum + improvedNoise3<L>(x, y, z) * L::f(w);
        x = x * L::f(2.0f);
        y = y * L::f(2.0f);
        z = z * L::f(2.0f);
        w *= 0.5f;
    }
    return sum;
}

// ---- simplex noise -------------------------------------------------------------------------

// Every hash is perm[a + perm[b (+ perm[c])]] for a corner whose lattice indices are the
// cell's plus 0 or 1 on each axis. The table is read in pairs (perm[i], perm[i + 1]), the
// way improved noise reads it: one read serves the corners that differ only in the offset
// of the outermost axis, which leaves 4 reads instead of 6 in 2-D and 7 instead of 12 in
// 3-D. Indices stay below 511 (a lattice index is at most 255, every entry at most 255).

// The pair at i: byte 0 is perm[i], byte 1 perm[i + 1].
template <class L>
HWY_INLINE typename L::U permPair(typename L::U i) {
    return L::periodicBytes4(noise_detail::kPermPadded, i);
}

// perm[i + offset] from the pair at i, offset 0 or 1 per lane (as a mask).
template <class L>
HWY_INLINE typename L::U pairEntry(typename L::U pair, typename L::M offsetOne) {
    return L::selectU(offsetOne, L::template shr<8>(pair), pair) & L::u(255);
}

// Falloff q^4 times the corner gradient; a corner outside its radius (or NaN) adds 0.
template <class L>
HWY_INLINE typename L::F simplexCorner2(typename L::F cx, typename L::F cy, typename L::U hash) {
    const typename L::F q = L::f(0.5f) - cx * cx - cy * cy;
    const typename L::F q2 = q * q;
    const typename L::F n = (q2 * q2) * grad2<L>(hash, cx, cy);
    return L::select(L::ge(q, L::f(0.0f)), n, L::f(0.0f));
}

template <class L>
HWY_INLINE typename L::F simplexCorner3(typename L::F cx, typename L::F cy, typename L::F cz, typename L::U hash) {
    const typename L::F q = L::f(0.6f) - cx * cx - cy * cy - cz * cz;
    const typename L::F q2 = q * q;
    const typename L::F n = (q2 * q2) * grad3<L>(hash, cx, cy, cz);
    return L::select(L::ge(q, L::f(0.0f)), n, L::f(0.0f));
}

template <class L>
HWY_INLINE typename L::F simplexNoise2(typename L::F x, typename L::F y) {
    using F = typename L::F;
    using U = typename L::U;
    const float F2 = 0.3660254f;    // (sqrt(3) - 1) / 2
    const float G2 = 0.21132487f;   // (3 - sqrt(3)) / 6
    const float G2x2 = 0.42264974f;

    // Skew into the lattice of rhombi and find the cell.
    const F s = (x + y) * L::f(F2);
    const U i = noiseFloor<L>(x + s), j = noiseFloor<L>(y + s);

    // Unskew the cell origin back and take the offsets from it.
    const F t = L::toFloat(i + j) * L::f(G2);
    const F x0 = x - (L::toFloat(i) - t);
    const F y0 = y - (L::toFloat(j) - t);

    // Which triangle of the rhombus: ties belong to the upper one.
    const typename L::M lower = L::gt(x0, y0);
    const F i1 = L::select(lower, L::f(1.0f), L::f(0.0f)), j1 = L::select(lower, L::f(0.0f), L::f(1.0f));

    const F x1 = x0 - i1 + L::f(G2), y1 = y0 - j1 + L::f(G2);
    const F x2 = x0 - L::f(1.0f) + L::f(G2x2), y2 = y0 - L::f(1.0f) + L::f(G2x2);

    // Corner (di, dj) hashes perm[ii + di + perm[jj + dj]] (only its low three bits are read).
    U h0, h1, h2;
    if constexpr (L::kByteCycles) {
        // A byte at a time (sums modulo 256): the pair at jj, then one lookup for the three
        // corners, whose index bytes pick perm[jj + dj] and add ii + di. The middle corner is
        // (1, 0) in the lower triangle, (0, 1) in the upper.
        const uint8_t* P = noise_detail::kPermPadded;
        const U pj = L::periodicBytes4(P, j);
        const U pick = L::selectU(lower, L::u(0x00010000u), L::u(0x00010100u));
        const U di = L::selectU(lower, L::u(0x00010100u), L::u(0x00010000u));
        const U corners = L::addBytes(L::pickBytes(pj, pick), L::template spreadBytes<0, 0, 0, 0>(i));
        h0 = L::cycleBytes(P, L::addBytes(corners, di));
        h1 = L::template shr<8>(h0);
        h2 = L::template shr<16>(h0);
    } else {
        const U ii = i & L::u(255), jj = j & L::u(255);
        const typename L::M yes = L::eqU(ii, ii), no = L::negate(yes);
        const U pj = permPair<L>(jj);
        h0 = pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj, no)), no);
        h1 = pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj, L::negate(lower))), lower);
        h2 = pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj, yes)), yes);
    }
    const F n0 = simplexCorner2<L>(x0, y0, h0);
    const F n1 = simplexCorner2<L>(x1, y1, h1);
    const F n2 = simplexCorner2<L>(x2, y2, h2);
    return (n1 + n0 + n2) * L::f(40.0f);
}

template <class L>
HWY_INLINE typename L::F simplexNoise3(typename L::F x, typename L::F y, typename L::F z) {
    using F = typename L::F;
    using U = typename L::U;
    using M = typename L::M;
    const float F3 = 0.33333334f;   // 1 / 3
    const float G3 = 0.16666667f;   // 1 / 6
    const float G3x2 = 0.33333334f;

    const F s = (x + y + z) * L::f(F3);
    const U i = noiseFloor<L>(x + s), j = noiseFloor<L>(y + s), k = noiseFloor<L>(z + s);

    const F t = L::toFloat(i + j + k) * L::f(G3);
    const F x0 = x - (L::toFloat(i) - t);
    const F y0 = y - (L::toFloat(j) - t);
    const F z0 = z - (L::toFloat(k) - t);

    // The simplex of the cube that holds the point: walk the axes in decreasing offset.
    // With x0 >= y0: (1,0,0)(1,1,0) if y0 >= z0, else (1,0,0)(1,0,1) if x0 >= z0, else
    // (0,0,1)(1,0,1). Otherwise: (0,0,1)(0,1,1) if y0 < z0, else (0,1,0)(0,1,1) if x0 < z0,
    // else (0,1,0)(1,1,0). The comparisons are exactly these (they differ on NaN).
    const M xy = L::ge(x0, y0);
    const M yzGe = L::ge(y0, z0), xzGe = L::ge(x0, z0);
    const M yzLt = L::lt(y0, z0), xzLt = L::lt(x0, z0);
    const M yzOrXz = L::either(yzGe, xzGe);
    const M i1 = L::both(xy, yzOrXz);
    const M j1 = L::both(L::negate(xy), L::negate(yzLt));
    const M yx = L::negate(xy);
    const M k1 = L::either(L::both(xy, L::negate(yzOrXz)), L::both(yx, yzLt));
    const M i2 = L::either(xy, L::both(L::negate(yzLt), L::negate(xzLt)));
    const M j2 = L::either(yx, yzGe);
    const M k2 = L::either(L::both(xy, L::negate(yzGe)), L::both(yx, L::either(yzLt, xzLt)));

    const F one = L::f(1.0f), zero = L::f(0.0f);
    const F x1 = x0 - L::select(i1, one, zero) + L::f(G3);
    const F y1 = y0 - L::select(j1, one, zero) + L::f(G3);
    const F z1 = z0 - L::select(k1, one, zero) + L::f(G3);
    const F x2 = x0 - L::select(i2, one, zero) + L::f(G3x2);
    const F y2 = y0 - L::select(j2, one, zero) + L::f(G3x2);
    const F z2 = z0 - L::select(k2, one, zero) + L::f(G3x2);
    const F x3 = x0 - L::f(0.5f), y3 = y0 - L::f(0.5f), z3 = z0 - L::f(0.5f);

    // Corner (di, dj, dk) hashes perm[ii + di + perm[jj + dj + perm[kk + dk]]] (only its low
    // four bits are read).
    U h0, h1, h2, h3;
    if constexpr (L::kByteCycles) {
        // A byte at a time, the sums modulo 256 (where the permutation repeats): one lookup
        // at kk, one for the four entries perm[jj + dj + perm[kk + dk]] (byte 2 dk + dj), and
        // one for the four corners, whose index bytes pick their entry and add ii + di.
        const uint8_t* P = noise_detail::kPermPadded;
        const U pk = L::periodicBytes4(P, k);
        const U js = L::addBytes(pk, L::template spreadBytes<0, 0, 0, 0>(j));
        const U pj = L::cycleBytes(P, L::addBytes(L::template spreadBytes<0, 0, 1, 1>(js), L::u(0x01000100u)));
        const auto plusWhere = [](M m, U v, uint32_t bits) { return L::selectU(m, v + L::u(bits), v); };
        const U pick = plusWhere(k2, plusWhere(j2, plusWhere(k1, plusWhere(j1, L::u(0x03000000u), 0x100), 0x200),
                                               0x10000), 0x20000);
        const U di = plusWhere(i2, plusWhere(i1, L::u(0x01000000u), 0x100), 0x10000);
        const U corners = L::addBytes(L::addBytes(L::pickBytes(pj, pick), L::template spreadBytes<0, 0, 0, 0>(i)), di);
        h0 = L::cycleBytes(P, corners);
        h1 = L::template shr<8>(h0);
        h2 = L::template shr<16>(h0);
        h3 = L::template shr<24>(h0);
    } else {
        // Word at a time: one pair at kk, one at jj + perm[kk + dk] for each dk, one per
        // corner at the ii level.
        const U ii = i & L::u(255), jj = j & L::u(255), kk = k & L::u(255);
        const M yes = L::eqU(ii, ii), no = L::negate(yes);
        const U pk = permPair<L>(kk);
        const U pj0 = permPair<L>(jj + pairEntry<L>(pk, no)), pj1 = permPair<L>(jj + pairEntry<L>(pk, yes));
        const auto hash = [&](M di, M dj, M dk) {
            const U pj = L::selectU(dk, pj1, pj0);
            return pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj, dj)), di);
        };
        h0 = pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj0, no)), no);
        h1 = hash(i1, j1, k1);
        h2 = hash(i2, j2, k2);
        h3 = pairEntry<L>(permPair<L>(ii + pairEntry<L>(pj1, yes)), yes);
    }
    const F n0 = simplexCorner3<L>(x0, y0, z0, h0);
    const F n1 = simplexCorner3<L>(x1, y1, z1, h1);
    const F n2 = simplexCorner3<L>(x2, y2, z2, h2);
    const F n3 = simplexCorner3<L>(x3, y3, z3, h3);
    return (n1 + n0 + n2 + n3) * L::f(32.0f);
}

// ---- Voronoi cellular noise -----------------------------------------------------------------

// The K smallest distances found so far, ascending, with their feature points when asked.
template <class L, int K, bool kPositions>
struct Nearest {
    typename L::F d[K];
    typename L::F px[kPositions ? K : 1], py[kPositions ? K : 1], pz[kPositions ? K : 1];
};

// Inserts d: it goes before the first kept value it is smaller than, and the values from
// there on move up one place (the last falls off). A d equal to a kept value goes after
// it; a NaN is never kept. Kept values hold no NaN, so "d < d[i - 1]" implies "d < d[i]".
template <class L, int K, bool kPositions>
HWY_INLINE void insertNearest(Nearest<L, K, kPositions>& n, typename L::F d, typename L::F px, typename L::F py,
                              typename L::F pz) {
    typename L::M below[K];
    for (int i = 0; i < K; ++i) below[i] = L::lt(d, n.d[i]);
    for (int i = K - 1; i > 0; --i) {
        n.d[i] = L::select(below[i - 1], n.d[i - 1], L::minLt(d, n.d[i]));
        if constexpr (kPositions) {
            n.px[i] = L::select(below[i - 1], n.px[i - 1], L::select(below[i], px, n.px[i]));
            n.py[i] = L::select(below[i - 1], n.py[i - 1], L::select(below[i], py, n.py[i]));
            n.pz[i] = L::select(below[i - 1], n.pz[i - 1], L::select(below[i], pz, n.pz[i]));
        }
    }
    n.d[0] = L::minLt(d, n.d[0]);
    if constexpr (kPositions) {
        n.px[0] = L::select(below[0], px, n.px[0]);
        n.py[0] = L::select(below[0], py, n.py[0]);
        n.pz[0] = L::select(below[0], pz, n.pz[0]);
    }
}

// Distance metrics. kMethod -1 reads the method at run time (every code of the table);
// Length and SquaredLength have their own instances. With kRootLater, Length keeps the
// squared length: the square root is monotonic, so the K smallest lengths are the roots of
// the K smallest squared lengths (finishNearest takes them).
template <class L, int kMethod, bool kRootLater>
HWY_INLINE typename L::F voronoiDistance(typename L::F dx, typename L::F dy, typename L::F dz, int method) {
    using F = typename L::F;
    const int m = kMethod >= 0 ? kMethod : method;
    switch (m) {
        case Voronoi::SquaredLength:
            return dx * dx + dy * dy + dz * dz;
        case Voronoi::Taxicab: {
            // Squared on purpose, like Chebychev and Minkowski(0.5).
            const F s = L::abs(dx) + L::abs(dy) + L::abs(dz);
            return s * s;
        }
        case Voronoi::Chebychev: {
            const F ax = L::abs(dx), ay = L::abs(dy), az = L::abs(dz);
            const F mxy = L::select(L::gt(ax, ay), ax, ay);
            const F mx = L::select(L::gt(mxy, az), mxy, az);
            return mx * mx;
        }
        case Voronoi::Quadratic:
            return dx * dx + dy * dy + dz * dz + dx * dy + dz * dx + dz * dy;
        case Voronoi::Minkowski4: {
            const F s = ((dx * dx) * dx) * dx + ((dy * dy) * dy) * dy + ((dz * dz) * dz) * dz;
            return L::perLane(s, [](float v) { return exact::fourthRoot(v); });  // powf(v, 0.25f)
        }
        case Voronoi::Minkowski05: {
            const F s = L::sqrt(L::abs(dx)) + L::sqrt(L::abs(dy)) + L::sqrt(L::abs(dz));
            return s * s;
        }
        default: {  // Length, and any code outside the table
            const F s = dx * dx + dy * dy + dz * dz;
            return kRootLater ? s : L::sqrt(s);
        }
    }
}

// Visits the sample's cube and its 26 neighbours (only the z = 0 layer in the plane):
// x outermost, z innermost. The cube hash is H[(H[(H[cz] + cy) & 255] + cx) & 255]; one
// read of the wrapped table returns the hashes of three neighbouring coordinates at once.
template <class L, int K, bool kPositions, int kMethod, bool kRootLater>
HWY_INLINE void voronoiSearch(typename L::F x, typename L::F y, typename L::F z, bool planar, int method,
                              Nearest<L, K, kPositions>& n) {
    using F = typename L::F;
    using U = typename L::U;
    const uint8_t* H = noise_detail::kVoronoiHashWrapped;
    const float* points = &cellular::kVoronoiPoints[0][0];
    const F none = L::f(kRootLater ? INFINITY : FLT_MAX);
    for (int i = 0; i < K; ++i) {
        n.d[i] = none;
        if constexpr (kPositions) n.px[i] = n.py[i] = n.pz[i] = L::f(0.0f);
    }
    // Cube of a coordinate: a true floor (an integral value is kept). NaN, infinities and
    // values beyond the int32 range give INT32_MIN; the neighbours around it wrap.
    const U xi = L::truncate(L::floor(x)), yi = L::truncate(L::floor(y));
    const U zi = planar ? L::u(1) : L::truncate(L::floor(z));
    const int zCount = planar ? 1 : 3;

    const U one = L::u(1), mask = L::u(255);
    const U zHashes = L::periodicBytes4(H, (zi - one) & mask);
    U cubeHashes[3][3];  // [oz][oy]: bytes 0..2 hold the hashes for ox 0..2
    for (int oz = 0; oz < zCount; ++oz) {
        const U yHashes = L::periodicBytes4(H, (byteOf<L>(zHashes, oz) + yi - one) & mask);
        for (int oy = 0; oy < 3; ++oy)
            cubeHashes[oz][oy] = L::periodicBytes4(H, (byteOf<L>(yHashes, oy) + xi - one) & mask);
    }

    for (int ox = 0; ox < 3; ++ox) {
        const F fx = L::toFloat(xi + L::u(static_cast<uint32_t>(ox)) - one);
        for (int oy = 0; oy < 3; ++oy) {
            const F fy = L::toFloat(yi + L::u(static_cast<uint32_t>(oy)) - one);
            for (int oz = 0; oz < zCount; ++oz) {
                const F fz = L::toFloat(zi + L::u(static_cast<uint32_t>(oz)) - one);
                const U k = byteOf<L>(cubeHashes[oz][oy], ox);
                const U row = L::template shl<1>(k) + k;  // 3 floats per feature point
                F ox3, oy3, oz3;  // the feature point's offset inside its cube
                L::gather3(points, row, ox3, oy3, oz3);
                const F px = fx + ox3, py = fy + oy3, pz = fz + oz3;
                const F d = voronoiDistance<L, kMethod, kRootLater>(x - px, y - py, z - pz, method);
                insertNearest<L, K, kPositions>(n, d, px, py, pz);
            }
        }
    }
    if constexpr (kRootLater) {
        for (int i = 0; i < K; ++i) n.d[i] = L::select(L::eq(n.d[i], none), L::f(FLT_MAX), L::sqrt(n.d[i]));
    }
}

// The final scale of every value, applied in double: sqrt(2), then 1 / sqrt(3).
template <class L>
HWY_INLINE typename L::F voronoiScaled(typename L::F v) {
    return L::inDouble(v, v, [](auto d, auto, auto ops) {
        return d * ops.c(1.4142135623730951) * ops.c(0.5773502691896258);
    });
}

// How many of the nearest distances a type reads.
inline int voronoiDepth(int type) {
    switch (type) {
        case Voronoi::Second:
        case Voronoi::Difference21:
        case Voronoi::Tile:
            return 2;
        case Voronoi::Third:
        case Voronoi::Difference32:
            return 3;
        case Voronoi::Fourth:
            return 4;
        default:
            return 1;
    }
}

template <class L, int K>
HWY_INLINE typename L::F voronoiTypeValue(const typename L::F* F, int type) {
    using V = typename L::F;
    switch (type) {
        case Voronoi::Second:
            return voronoiScaled<L>(F[1 % K]);
        case Voronoi::Third:
            return voronoiScaled<L>(F[2 % K]);
        case Voronoi::Fourth:
            return voronoiScaled<L>(F[3 % K]);
        case Voronoi::Difference21:
            return voronoiScaled<L>(F[1 % K] - F[0]);
        case Voronoi::Difference32:
            return voronoiScaled<L>(F[2 % K] - F[1 % K]);
        case Voronoi::Tile: {
            // The amplified, already scaled difference, but never below 1; scaled once more.
            const V v = L::f(20.0f) * voronoiScaled<L>(F[1 % K] - F[0]);
            return voronoiScaled<L>(L::select(L::gt(v, L::f(1.0f)), v, L::f(1.0f)));
        }
        default:  // First, and any code outside 0..6
            return voronoiScaled<L>(F[0]);
    }
}

template <class L, int K>
HWY_INLINE typename L::F voronoiValueOfDepth(typename L::F x, typename L::F y, typename L::F z, bool planar,
                                             int type, int method) {
    Nearest<L, K, false> n;
    if (method == Voronoi::Length)
        voronoiSearch<L, K, false, Voronoi::Length, true>(x, y, z, planar, method, n);
    else if (method == Voronoi::SquaredLength)
        voronoiSearch<L, K, false, Voronoi::SquaredLength, false>(x, y, z, planar, method, n);
    else
        voronoiSearch<L, K, false, -1, false>(x, y, z, planar, method, n);
    return voronoiTypeValue<L, K>(n.d, type);
}

// The Voronoi value of a type and method; the search keeps only the distances it needs.
template <class L>
HWY_INLINE typename L::F voronoiValue(typename L::F x, typename L::F y, typename L::F z, bool planar, int type,
                                      int method) {
    switch (voronoiDepth(type)) {
        case 1:
            return voronoiValueOfDepth<L, 1>(x, y, z, planar, type, method);
        case 2:
            return voronoiValueOfDepth<L, 2>(x, y, z, planar, type, method);
        case 3:
            return voronoiValueOfDepth<L, 3>(x, y, z, planar, type, method);
        default:
            return voronoiValueOfDepth<L, 4>(x, y, z, planar, type, method);
    }
}

}  // namespace grainsmith::noise_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
