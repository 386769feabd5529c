// The one-lane instance of the lane operations that every evaluation kernel is written
// against (see simd/hwy_lanes-inl.h for the vector instance and the list of operations).
//
// A kernel is one template over its lanes type L; instantiated with ScalarLanes it is the
// one-point path, with HwyLanes<D> the batch path, so both come from one definition of the
// arithmetic. The operations here are plain single-precision float and wrapping uint32
// arithmetic; masks are all-ones or all-zero words, so a select is a bit blend and the
// one-point path has no data-dependent branches either.
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

#include "grainsmith/numeric.h"

namespace grainsmith::simd {

struct ScalarLanes {
    using F = float;
    using U = uint32_t;  // wrapping integer lane; read signed only where said
    using M = uint32_t;  // ~0u for true, 0 for false
    // One point at a time: a kernel may index small tables of its operands here, where a
    // vector selects.
    static constexpr bool kOneLane = true;

    static F f(float c) { return c; }
    static U u(uint32_t c) { return c; }

    // Float comparisons: false when either side is NaN.
    static M lt(F a, F b) { return a < b ? ~0u : 0u; }
    static M le(F a, F b) { return a <= b ? ~0u : 0u; }
    static M gt(F a, F b) { return a > b ? ~0u : 0u; }
    static M ge(F a, F b) { return a >= b ? ~0u : 0u; }
    static M notGe(F a, F b) { return a >= b ? 0u : ~0u; }  // true on NaN
    static M eq(F a, F b) { return a == b ? ~0u : 0u; }
    static M eqU(U a, U b) { return a == b ? ~0u : 0u; }
    static M both(M a, M b) { return a & b; }
    static M either(M a, M b) { return a | b; }
    static M negate(M a) { return ~a; }
    // The mask as a uint32 lane: all ones where true, 0 where false.
    static U maskBits(M m) { return m; }
    // Bit tests of an integer lane against a constant set of bits.
    static M anyBits(U v, U bits) { return (v & bits) != 0 ? ~0u : 0u; }
    static M noBits(U v, U bits) { return (v & bits) == 0 ? ~0u : 0u; }
    // v - 1 where m holds, v elsewhere (wrapping).
    static U decrementWhere(M m, U v) { return v + m; }

    static F select(M m, F a, F b) {
        return std::bit_cast<float>((m & std::bit_cast<uint32_t>(a)) | (~m & std::bit_cast<uint32_t>(b)));
    }
    static U selectU(M m, U a, U b) { return (m & a) | (~m & b); }
    // select(lt(a, b), a, b): the smaller, or b when they are equal or either is NaN. Written
    // as the comparison so that it is one minss, not a blend through integer registers: a
    // running minimum is a dependency chain, and the blend made it four times longer.
    static F minLt(F a, F b) { return a < b ? a : b; }
    // The operand numbered `index` (0, 1 or 2), read from a small table of the operands.
    static F choose(U index, F a, F b) {
        const float operands[2] = {a, b};
        return operands[index];
    }
    static F choose(U index, F a, F b, F c) {
        const float operands[3] = {a, b, c};
        return operands[index];
    }

    // The project's float-to-int conversion (truncation; INT32_MIN for NaN and out of range).
    static U truncate(F v) { return static_cast<uint32_t>(toInt32(v)); }
    // The lane read as a signed int32, converted to the nearest float.
    static F toFloat(U v) { return static_cast<float>(static_cast<int32_t>(v)); }
    // The lane read as an unsigned int32, converted to the nearest float.
    static F unsignedToFloat(U v) { return static_cast<float>(v); }
    static U bits(F v) { return std::bit_cast<uint32_t>(v); }
    static F fromBits(U v) { return std::bit_cast<float>(v); }
    template <int kBits>
    static U shl(U v) { return v << kBits; }
    template <int kBits>
    static U shr(U v) { return v >> kBits; }

    static F floor(F v) { return std::floor(v); }
    static F sqrt(F v) { return std::sqrt(v); }
    static F abs(F v) { return std::fabs(v); }

    // Four bytes of `table` from byte `offset` on, little-endian: the entry at offset in the
    // low byte, the next ones above it. Tables are padded so that offset + 3 stays inside.
    static U bytes4(const uint8_t* table, U offset) {
        const uint8_t* b = table + offset;
        if constexpr (std::endian::native == std::endian::little) {
            uint32_t v;  // one unaligned load
            std::memcpy(&v, b, sizeof v);
            return v;
        } else {
            return static_cast<uint32_t>(b[0]) | static_cast<uint32_t>(b[1]) << 8 |
                   static_cast<uint32_t>(b[2]) << 16 | static_cast<uint32_t>(b[3]) << 24;
        }
    }
    // The same read from a table that repeats a 256-byte cycle (its first bytes stored again
    // after it): byte k is table[(offset + k) & 255]. The vector levels with byte permutes
    // keep the cycle in registers; here it is the plain read.
    static U periodicBytes4(const uint8_t* table, U offset) { return bytes4(table, offset); }
    // No byte permutes here: kernels take their word-at-a-time route.
    static constexpr bool kByteCycles = false;
    static F gather(const float* table, U index) { return table[index]; }
    static void gather3(const float* table, U index, F& a, F& b, F& c) {
        a = table[index];
        b = table[index + 1];
        c = table[index + 2];
    }

    // fn(a, b, ops) evaluated in double on a and b widened, rounded once to float; ops.c(v)
    // is a double constant, ops.abs(v) the magnitude.
    struct DoubleOps {
        static double c(double v) { return v; }
        static double abs(double v) { return std::fabs(v); }
    };
    template <class Fn>
    static F inDouble(F a, F b, Fn fn) {
        return static_cast<float>(fn(static_cast<double>(a), static_cast<double>(b), DoubleOps{}));
    }
    // Calls a scalar function on every lane (for library functions such as pow).
    template <class Fn>
    static F perLane(F v, Fn fn) { return fn(v); }
    // The same for a two-argument function (atan2, a displacement of x by y, ...).
    template <class Fn>
    static F perLane(F a, F b, Fn fn) { return fn(a, b); }
    // fn(i, ops) evaluated in double on the lane read as a signed int32, rounded once to float.
    template <class Fn>
    static F intInDouble(U v, Fn fn) {
        return static_cast<float>(fn(static_cast<double>(static_cast<int32_t>(v)), DoubleOps{}));
    }
};

}  // namespace grainsmith::simd
