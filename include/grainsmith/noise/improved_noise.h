// Improved gradient noise over the reference permutation, the noise the textures sample.
#pragma once

#include <cstdint>

#include "grainsmith/api.h"

namespace grainsmith {

// The reference permutation of 0..255, twice in a row (perm[i + 256] == perm[i]).
extern GRAINSMITH_API const uint8_t perm[512];

// One octave, scaled to about [-1, 1] by 0.188, 0.507 and 0.936 respectively.
GRAINSMITH_API float improved_noise1(float x);
GRAINSMITH_API float improved_noise2(float x, float y);
GRAINSMITH_API float improved_noise3(float x, float y, float z);

// Octave sums with lacunarity 2 and gain 0.5. octaves < 1 gives 0; at most 64 octaves are summed.
GRAINSMITH_API float fractal_noise_2D(float x, float y, int octaves, float frequency, float amplitude);
GRAINSMITH_API float fractal_noise_3D(float x, float y, float z, int octaves, float frequency, float amplitude);

// 3-D improved noise without the output scale, over a class-wide table that every
// construction (re)fills with the reference permutation.
class GRAINSMITH_API ImprovedPerlin {
public:
    ImprovedPerlin();
    ImprovedPerlin& operator=(const ImprovedPerlin&) { return *this; }

    float noise3(float x, float y, float z);
    float noise3(float* v);
    float noise1(float x);
    float perlin_noise_3D(float* vec, int octaves, float frequency, float amplitude);
    float Get(float x, float y, int octaves, float frequency, float amplitude);
    float Get(float x, float y, float z, int octaves, float frequency, float amplitude);

private:
    static int p[512];
};

}  // namespace grainsmith
