// Shared helpers of the texture-kind tests.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>

#include "grainsmith/params.h"

namespace noise_kind_test {

using namespace grainsmith;  // tests that use this namespace see the library's names too

constexpr int kPlanar = 4;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN(), kInf = std::numeric_limits<float>::infinity();

template <class T>
float valueAt(const T& texture, float x, float y, float z) {
    const float p[3] = {x, y, z};
    return texture(p);
}

inline float bits(uint32_t b) { return std::bit_cast<float>(b); }

// A fresh object's parameters in table order; a float field holds the float nearest the value.
template <class T>
void expectDefaults(std::initializer_list<double> expected) {
    unsigned char record[256];
    T().getDescription(reinterpret_cast<char*>(record));
    ASSERT_EQ(T::parameters().size(), expected.size());
    for (size_t i = 0; i < expected.size(); ++i)
        EXPECT_EQ(readParam(T::parameters()[i], record), static_cast<float>(expected.begin()[i])) << i;
}

// An object whose parameters, in table order, are set to the given values.
template <class T>
T withParams(std::initializer_list<double> values) {
    T texture;
    unsigned char record[256];
    texture.getDescription(reinterpret_cast<char*>(record));
    EXPECT_EQ(T::parameters().size(), values.size());
    for (size_t i = 0; i < values.size() && i < T::parameters().size(); ++i)
        writeParam(T::parameters()[i], record, values.begin()[i]);
    texture.setStateFromDescription(reinterpret_cast<const char*>(record));
    return texture;
}

// The texture with the given flags, planar by default.
template <class T>
T inPlane(T texture, int flags = kPlanar) {
    texture.setFlags(flags);
    return texture;
}

// Kinds that clamp keep NaN, infinite and huge coordinates inside [0, 1].
template <class T>
void expectUnitRangeAtOddPoints(const T& texture) {
    for (float c : {kNaN, kInf, -kInf, 1e30f, -1e30f, -3.0f})
        for (float v : {valueAt(texture, c, c, c), valueAt(texture, c, 0.5f, 0.25f), valueAt(texture, 0.25f, c, c)})
            EXPECT_TRUE(v >= 0.0f && v <= 1.0f) << c;
}

}  // namespace noise_kind_test
