// Improved gradient noise: a fixed 256-entry permutation, hashed corner gradients and the
// quintic fade. The free functions scale their output to about [-1, 1] and are what the
// textures sample; ImprovedPerlin is the unscaled 3-D form over a class-wide table.
#include "grainsmith/noise/improved_noise.h"

#include <atomic>
#include <cstdint>

#include "grainsmith/limits.h"
#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "noise/noise_tables.h"
#include "simd/scalar_lanes.h"

namespace grainsmith {

// The reference permutation of 0..255, written once and used for both tables.
#define GRAINSMITH_REFERENCE_PERMUTATION \
    151, 160, 137,  91,  90,  15, 131,  13, 201,  95,  96,  53, 194, 233,   7, 225, \
    140,  36, 103,  30,  69, 142,   8,  99,  37, 240,  21,  10,  23, 190,   6, 148, \
    247, 120, 234,  75,   0,  26, 197,  62,  94, 252, 219, 203, 117,  35,  11,  32, \
     57, 177,  33,  88, 237, 149,  56,  87, 174,  20, 125, 136, 171, 168,  68, 175, \
     74, 165,  71, 134, 139,  48,  27, 166,  77, 146, 158, 231,  83, 111, 229, 122, \
     60, 211, 133, 230, 220, 105,  92,  41,  55,  46, 245,  40, 244, 102, 143,  54, \
     65,  25,  63, 161,   1, 216,  80,  73, 209,  76, 132, 187, 208,  89,  18, 169, \
    200, 196, 135, 130, 116, 188, 159,  86, 164, 100, 109, 198, 173, 186,   3,  64, \
     52, 217, 226, 250, 124, 123,   5, 202,  38, 147, 118, 126, 255,  82,  85, 212, \
    207, 206,  59, 227,  47,  16,  58,  17, 182, 189,  28,  42, 223, 183, 170, 213, \
    119, 248, 152,   2,  44, 154, 163,  70, 221, 153, 101, 155, 167,  43, 172,   9, \
    129,  22,  39, 253,  19,  98, 108, 110,  79, 113, 224, 232, 178, 185, 112, 104, \
    218, 246,  97, 228, 251,  34, 242, 193, 238, 210, 144,  12, 191, 179, 162, 241, \
     81,  51, 145, 235, 249,  14, 239, 107,  49, 192, 214,  31, 181, 199, 106, 157, \
    184,  84, 204, 176, 115, 121,  50,  45, 127,   4, 150, 254, 138, 236, 205,  93, \
    222, 114,  67,  29,  24,  72, 243, 141, 128, 195,  78,  66, 215,  61, 156, 180

const uint8_t perm[512] = {GRAINSMITH_REFERENCE_PERMUTATION, GRAINSMITH_REFERENCE_PERMUTATION};

namespace noise_detail {
// The cycle continues into the padding, so that a read anywhere in the table is the cyclic
// read (periodicBytes4) at that index.
const uint8_t kPermPadded[520] = {GRAINSMITH_REFERENCE_PERMUTATION, GRAINSMITH_REFERENCE_PERMUTATION,
                                  151, 160, 137, 91, 90, 15, 131, 13};
}  // namespace noise_detail

namespace {

constexpr int32_t kReference[256] = {GRAINSMITH_REFERENCE_PERMUTATION};
static_assert(kReference[0] == 151 && kReference[1] == 160 && kReference[2] == 137 && kReference[3] == 91 &&
              kReference[4] == 90 && kReference[5] == 15 && kReference[6] == 131 && kReference[7] == 13);

#undef GRAINSMITH_REFERENCE_PERMUTATION

using simd::ScalarLanes;
namespace kernels = noise_kernels::HWY_NAMESPACE;

// Reads the class-wide table of ImprovedPerlin (see there for why the loads are atomic):
// byte 0 of the result is p[i], byte 1 p[i + 1].
struct SharedTablePairs {
    int* table;
    uint32_t operator()(uint32_t i) const {
        const auto at = [this](uint32_t j) {
            return static_cast<uint32_t>(std::atomic_ref<int>(table[j]).load(std::memory_order_relaxed));
        };
        return (at(i) & 255u) | (at(i + 1) & 255u) << 8;
    }
};

}  // namespace

float improved_noise1(float x) { return kernels::improvedNoise1<ScalarLanes>(x); }

float improved_noise2(float x, float y) { return kernels::improvedNoise2<ScalarLanes>(x, y); }

float improved_noise3(float x, float y, float z) { return kernels::improvedNoise3<ScalarLanes>(x, y, z); }

float fractal_noise_2D(float x, float y, int octaves, float frequency, float amplitude) {
    return kernels::fractalNoise2<ScalarLanes>(x, y, octaves, frequency, amplitude);
}

float fractal_noise_3D(float x, float y, float z, int octaves, float frequency, float amplitude) {
    return kernels::fractalNoise3<ScalarLanes>(x, y, z, octaves, frequency, amplitude);
}

// The class-wide table is all zeros until the first construction; every construction
// stores the same values. Accesses are relaxed atomics so that a construction racing with
// an evaluation on another thread is well defined (plain moves on common hardware).
int ImprovedPerlin::p[512] = {};

ImprovedPerlin::ImprovedPerlin() {
    for (int i = 0; i < 256; ++i) {
        std::atomic_ref<int>(p[i]).store(kReference[i], std::memory_order_relaxed);
        std::atomic_ref<int>(p[i + 256]).store(kReference[i], std::memory_order_relaxed);
    }
}

float ImprovedPerlin::noise3(float x, float y, float z) { return kernels::gradientNoise3<ScalarLanes>(SharedTablePairs{p}, x, y, z); }

float ImprovedPerlin::noise3(float* v) { return noise3(v[0], v[1], v[2]); }

float ImprovedPerlin::noise1(float x) { return noise3(x, 0.0f, 0.0f); }

float ImprovedPerlin::perlin_noise_3D(float* vec, int octaves, float frequency, float amplitude) {
    if (octaves < 1) return 0.0f;
    float x = vec[0] * frequency, y = vec[1] * frequency, z = vec[2] * frequency;
    float w = amplitude, sum = 0.0f;
    for (int o = 0, n = capLoopCount(octaves); o < n; ++o) {
        sum += kernels::gradientNoise3<ScalarLanes>(SharedTablePairs{p}, x, y, z) * w;
        x *= 2.0f;
        y *= 2.0f;
        z *= 2.0f;
        w *= 0.5f;
    }
    return sum;
}

float ImprovedPerlin::Get(float x, float y, int octaves, float frequency, float amplitude) {
    float vec[3] = {x, y, 0.0f};
    return perlin_noise_3D(vec, octaves, frequency, amplitude);
}

float ImprovedPerlin::Get(float x, float y, float z, int octaves, float frequency, float amplitude) {
    float vec[3] = {x, y, z};
    return perlin_noise_3D(vec, octaves, frequency, amplitude);
}

}  // namespace grainsmith
