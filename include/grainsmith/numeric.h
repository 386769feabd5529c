// Numeric helpers shared by every texture: the one float-to-int conversion, the cell
// floor built on it, the per-cell random values and the clamp to [0, 1].
//
// All integer hashing is done on uint32_t so that overflow wraps as intended.
#pragma once

#include <cstdint>

namespace grainsmith {

// Truncates toward zero. NaN and values outside the int32 range give INT32_MIN, the
// x86 conversion result, without undefined behaviour.
inline int32_t toInt32(float v) {
    // -2147483904 is the first float below -2^31 - 1; 2^31 is the first float above INT32_MAX.
    if (!(v > -2147483904.0f && v < 2147483648.0f)) return INT32_MIN;
    return static_cast<int32_t>(v);
}

inline int32_t toInt32(double v) {
    if (!(v > -2147483649.0 && v < 2147483648.0)) return INT32_MIN;
    return static_cast<int32_t>(v);
}

// Cell index of a coordinate: truncation toward zero, minus one for negative values, so
// an exact negative integer k gives k - 1 (unlike a true floor). Wraps like the hardware.
inline int32_t cellFloor(float v) {
    const int32_t i = toInt32(v);
    return v < 0.0f ? static_cast<int32_t>(static_cast<uint32_t>(i) - 1u) : i;
}

namespace detail {
inline uint32_t cellHash(uint32_t n) {
    n ^= n << 13;
    return (n * n * 15731u + 789221u) * n + 1376312589u;
}
}  // namespace detail

// Per-cell random value of the cells (i, j) and (i, j, k), in [0, 1].
inline float cellRandom2(float x, float y) {
    const uint32_t n = static_cast<uint32_t>(cellFloor(x)) + static_cast<uint32_t>(cellFloor(y)) * 1301u;
    return static_cast<float>(detail::cellHash(n)) * 2.3283064e-10f;
}

inline float cellRandom3(float x, float y, float z) {
    const uint32_t n = static_cast<uint32_t>(cellFloor(x)) + static_cast<uint32_t>(cellFloor(y)) * 1301u +
                       static_cast<uint32_t>(cellFloor(z)) * 314159u;
    return static_cast<float>(detail::cellHash(n)) * 2.3283064e-10f;
}

// One-dimensional companion: 31 bits scaled in double, rounded once to float, in [0, 1).
inline float cellRandom1(float x) {
    const uint32_t v = detail::cellHash(static_cast<uint32_t>(cellFloor(x)));
    return static_cast<float>(static_cast<double>(v & 0x7FFFFFFFu) * 4.656612875245797e-10);
}

// Below 0 (and NaN) gives 0, above 1 gives 1.
inline float clamp01(float v) {
    const float low = v >= 0.0f ? v : 0.0f;
    return low > 1.0f ? 1.0f : low;
}

}  // namespace grainsmith
