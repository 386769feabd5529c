// Classic lattice gradient noise with per-object tables built lazily from a seeded
// generator (the linear congruential sequence state * 214013 + 2531011, 15 bits out).
#pragma once

#include <cstdint>

#include "grainsmith/api.h"

namespace grainsmith {

class GRAINSMITH_API Perlin {
public:
    Perlin();
    Perlin(int octaves, float frequency, float amplitude, int seed);

    float noise1(float x, bool toUnit);
    float noise2(float* vec, bool toUnit);
    float noise3(float* vec, bool toUnit);

    float perlin_noise_1D(float x, bool toUnit);

    float Get(float x, float y, bool toUnit);
    float Get(float x, int octaves, float frequency, float amplitude, bool toUnit);
    float Get(float x, float y, int octaves, float frequency, float amplitude, bool toUnit);
    float Get(float x, float y, float z, int octaves, float frequency, float amplitude, bool toUnit);

    static constexpr int B = 0x400;
    static constexpr int BM = 0x3FF;

private:
    float perlin_noise_1D(float x, int octaves, float frequency, float amplitude, bool toUnit);
    float perlin_noise_2D(float* vec, int octaves, float frequency, float amplitude, bool toUnit);
    float perlin_noise_3D(float* vec, int octaves, float frequency, float amplitude, bool toUnit);
    float perlin_noise_2D(float* vec, bool toUnit);
    void normalize2(float* v);
    void normalize3(float* v);
    void init();

    int32_t octaves;
    float frequency;
    float amplitude;
    int32_t seed;
    int32_t p[B + B + 2];
    float g3[B + B + 2][3];
    float g2[B + B + 2][2];
    float g1[B + B + 2];
    bool needsInit;
};

}  // namespace grainsmith
