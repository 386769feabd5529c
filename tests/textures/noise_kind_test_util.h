// Small helpers for the tests of the noise-based kinds: one-point evaluation from three
// coordinates and typed reads of an exported record at a byte offset.
#pragma once

#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace noise_kind_test {

template <class T>
float valueAt(const T& texture, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return texture(p);
}

template <class T>
std::vector<unsigned char> exportRecord(const T& texture) {
    std::vector<unsigned char> record(256, 0xCD);
    texture.getDescription(reinterpret_cast<char*>(record.data()));
    record.resize(T::kRecordSize);
    return record;
}

inline int32_t intAt(const std::vector<unsigned char>& record, int offset) {
    int32_t v;
    std::memcpy(&v, record.data() + offset, sizeof v);
    return v;
}

inline float floatAt(const std::vector<unsigned char>& record, int offset) {
    float v;
    std::memcpy(&v, record.data() + offset, sizeof v);
    return v;
}

// Points that must never produce a value outside [0, 1] in the kinds that clamp.
inline constexpr float kOddCoordinates[] = {
    std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity(),
    -std::numeric_limits<float>::infinity(), 1e30f, -1e30f, -3.0f};

}  // namespace noise_kind_test
