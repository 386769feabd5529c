// Classic lattice gradient noise. Each object owns its permutation and gradient tables,
// built on first use from a seeded linear congruential generator, so equal seeds give
// bit-identical noise.
#include "grainsmith/noise/perlin.h"

#include <cmath>
#include <cstdint>

#include "grainsmith/limits.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

namespace {

// The 15-bit generator the tables are drawn from: state * 214013 + 2531011 modulo 2^32,
// each draw the bits 16..30 of the new state. Seeding sets the state to the seed.
class TableGenerator {
public:
    explicit TableGenerator(int32_t seed) : state_(static_cast<uint32_t>(seed)) {}

    int32_t next() {
        state_ = state_ * 214013u + 2531011u;
        return static_cast<int32_t>((state_ >> 16) & 0x7FFFu);
    }

    // A gradient coordinate in [-1, 1) on a grid of 1/1024.
    float coordinate() { return static_cast<float>(next() % 2048 - 1024) * 0.0009765625f; }

private:
    uint32_t state_;
};

constexpr float kOffset = 4096.0f;

inline float sCurve(float t) { return t * t * (3.0f - 2.0f * t); }

inline float lerp(float t, float a, float b) { return a + t * (b - a); }

inline float toUnitRange(float r) { return (r + 1.0f) * 0.5f; }

// One coordinate placed on the lattice: the two cells around it and the offsets from them.
// No floor is taken: below -4096 the truncation gives a negative r0. The cells are masked
// on the unsigned view, so NaN and huge values still land inside the tables.
struct LatticePoint {
    uint32_t b0, b1;
    float r0, r1;
};

inline LatticePoint setup(float c) {
    const float t = c + kOffset;
    const int32_t i = toInt32(t);
    LatticePoint l;
    l.b0 = static_cast<uint32_t>(i) & static_cast<uint32_t>(Perlin::BM);
    l.b1 = (l.b0 + 1u) & static_cast<uint32_t>(Perlin::BM);
    l.r0 = t - static_cast<float>(i);
    l.r1 = l.r0 - 1.0f;
    return l;
}

inline float at2(float rx, float ry, const float* q) { return rx * q[0] + ry * q[1]; }

inline float at3(float rx, float ry, float rz, const float* q) { return rx * q[0] + ry * q[1] + rz * q[2]; }

}  // namespace

Perlin::Perlin() : Perlin(4, 4.0f, 1.0f, 95) {}

// The tables are zeroed rather than left indeterminate so that copying a fresh object is
// well defined; they are built on the first evaluation.
Perlin::Perlin(int octaves_, float frequency_, float amplitude_, int seed_)
    : octaves(octaves_), frequency(frequency_), amplitude(amplitude_), seed(seed_), p{}, g3{}, g2{}, g1{},
      needsInit(true) {}

void Perlin::normalize2(float* v) {
    const float lengthSquared = v[0] * v[0] + v[1] * v[1];
    if (lengthSquared == 0.0f) return;  // a zero gradient stays zero
    const float s = 1.0f / std::sqrt(lengthSquared);
    v[0] = v[0] * s;
    v[1] = v[1] * s;
}

void Perlin::normalize3(float* v) {
    const float lengthSquared = v[0] * v[0] + v[1] * v[1] + v[2] * v[2];
    if (lengthSquared == 0.0f) return;
    const float s = 1.0f / std::sqrt(lengthSquared);
    v[0] = v[0] * s;
    v[1] = v[1] * s;
    v[2] = v[2] * s;
}

// The order of the draws fixes the tables: per entry one 1-D, two 2-D and three 3-D
// coordinates, then one draw per step of the shuffle, 7167 draws in all.
void Perlin::init() {
    TableGenerator random(seed);

    for (int i = 0; i < B; ++i) {
        p[i] = i;
        g1[i] = random.coordinate();
        g2[i][0] = random.coordinate();
        g2[i][1] = random.coordinate();
        normalize2(g2[i]);
        g3[i][0] = random.coordinate();
        g3[i][1] = random.coordinate();
        g3[i][2] = random.coordinate();
        normalize3(g3[i]);
    }

    // Index 0 is never the moving slot.
    for (int i = B - 1; i > 0; --i) {
        const int32_t k = p[i];
        const int32_t j = random.next() % B;
        p[i] = p[j];
        p[j] = k;
    }

    // Wrap copy, so that a cell index plus a table value never needs a second mask.
    for (int i = 0; i < B + 2; ++i) {
        p[B + i] = p[i];
        g1[B + i] = g1[i];
        g2[B + i][0] = g2[i][0];
        g2[B + i][1] = g2[i][1];
        g3[B + i][0] = g3[i][0];
        g3[B + i][1] = g3[i][1];
        g3[B + i][2] = g3[i][2];
    }
}

float Perlin::noise1(float x, bool toUnit) {
    if (needsInit) {
        needsInit = false;
        init();
    }
    const LatticePoint lx = setup(x);
    const float u = lx.r0 * g1[p[lx.b0]];
    const float v = lx.r1 * g1[p[lx.b1]];
    const float r = lerp(sCurve(lx.r0), u, v);
    return toUnit ? toUnitRange(r) : r;
}

float Perlin::noise2(float* vec, bool toUnit) {
    if (needsInit) {
        needsInit = false;
        init();
    }
    const LatticePoint lx = setup(vec[0]), ly = setup(vec[1]);
    // p holds 0..1023, so a table value plus a cell index is at most 2046.
    const uint32_t i = static_cast<uint32_t>(p[lx.b0]), j = static_cast<uint32_t>(p[lx.b1]);
    const uint32_t b00 = static_cast<uint32_t>(p[i + ly.b0]), b10 = static_cast<uint32_t>(p[j + ly.b0]);
    const uint32_t b01 = static_cast<uint32_t>(p[i + ly.b1]), b11 = static_cast<uint32_t>(p[j + ly.b1]);
    const float sx = sCurve(lx.r0), sy = sCurve(ly.r0);
    const float a = lerp(sx, at2(lx.r0, ly.r0, g2[b00]), at2(lx.r1, ly.r0, g2[b10]));
    const float b = lerp(sx, at2(lx.r0, ly.r1, g2[b01]), at2(lx.r1, ly.r1, g2[b11]));
    const float r = lerp(sy, a, b);
    return toUnit ? toUnitRange(r) : r;
}

float Perlin::noise3(float* vec, bool toUnit) {
    if (needsInit) {
        needsInit = false;
        init();
    }
    const LatticePoint lx = setup(vec[0]), ly = setup(vec[1]), lz = setup(vec[2]);
    const uint32_t i = static_cast<uint32_t>(p[lx.b0]), j = static_cast<uint32_t>(p[lx.b1]);
    const uint32_t b00 = static_cast<uint32_t>(p[i + ly.b0]), b10 = static_cast<uint32_t>(p[j + ly.b0]);
    const uint32_t b01 = static_cast<uint32_t>(p[i + ly.b1]), b11 = static_cast<uint32_t>(p[j + ly.b1]);
    const float sx = sCurve(lx.r0), sy = sCurve(ly.r0), sz = sCurve(lz.r0);

    float a = lerp(sx, at3(lx.r0, ly.r0, lz.r0, g3[b00 + lz.b0]), at3(lx.r1, ly.r0, lz.r0, g3[b10 + lz.b0]));
    float b = lerp(sx, at3(lx.r0, ly.r1, lz.r0, g3[b01 + lz.b0]), at3(lx.r1, ly.r1, lz.r0, g3[b11 + lz.b0]));
    const float c = lerp(sy, a, b);

    a = lerp(sx, at3(lx.r0, ly.r0, lz.r1, g3[b00 + lz.b1]), at3(lx.r1, ly.r0, lz.r1, g3[b10 + lz.b1]));
    b = lerp(sx, at3(lx.r0, ly.r1, lz.r1, g3[b01 + lz.b1]), at3(lx.r1, ly.r1, lz.r1, g3[b11 + lz.b1]));
    const float d = lerp(sy, a, b);

    const float r = lerp(sz, c, d);
    return toUnit ? toUnitRange(r) : r;
}

// Octave sums: lacunarity 2, gain 0.5; toUnit maps each octave before its weight. The
// tables are built by the first noise call, so a sum of no octaves leaves them unbuilt.
float Perlin::perlin_noise_1D(float x, int octaves_, float frequency_, float amplitude_, bool toUnit) {
    if (octaves_ < 1) return 0.0f;
    float sum = 0.0f, w = amplitude_;
    x = x * frequency_;
    for (int o = 0, n = capLoopCount(octaves_); o < n; ++o) {
        sum += noise1(x, toUnit) * w;
        x *= 2.0f;
        w *= 0.5f;
    }
    return sum;
}

// The 2-D and 3-D sums scale the caller's vector in place, before the octave test, and
// keep doubling it there.
float Perlin::perlin_noise_2D(float* vec, int octaves_, float frequency_, float amplitude_, bool toUnit) {
    float sum = 0.0f, w = amplitude_;
    vec[0] *= frequency_;
    vec[1] *= frequency_;
    if (octaves_ < 1) return 0.0f;
    for (int o = 0, n = capLoopCount(octaves_); o < n; ++o) {
        sum += noise2(vec, toUnit) * w;
        vec[0] *= 2.0f;
        vec[1] *= 2.0f;
        w *= 0.5f;
    }
    return sum;
}

float Perlin::perlin_noise_3D(float* vec, int octaves_, float frequency_, float amplitude_, bool toUnit) {
    float sum = 0.0f, w = amplitude_;
    vec[0] *= frequency_;
    vec[1] *= frequency_;
    vec[2] *= frequency_;
    if (octaves_ < 1) return 0.0f;
    for (int o = 0, n = capLoopCount(octaves_); o < n; ++o) {
        sum += noise3(vec, toUnit) * w;
        vec[0] *= 2.0f;
        vec[1] *= 2.0f;
        vec[2] *= 2.0f;
        w *= 0.5f;
    }
    return sum;
}

float Perlin::perlin_noise_1D(float x, bool toUnit) {
    return perlin_noise_1D(x, octaves, frequency, amplitude, toUnit);
}

float Perlin::perlin_noise_2D(float* vec, bool toUnit) {
    return perlin_noise_2D(vec, octaves, frequency, amplitude, toUnit);
}

float Perlin::Get(float x, float y, bool toUnit) {
    float vec[2] = {x, y};
    return perlin_noise_2D(vec, toUnit);
}

// toUnit is not passed on: this overload always sums the signed noise.
float Perlin::Get(float x, int octaves_, float frequency_, float amplitude_, bool /*toUnit*/) {
    return perlin_noise_1D(x, octaves_, frequency_, amplitude_, false);
}

float Perlin::Get(float x, float y, int octaves_, float frequency_, float amplitude_, bool toUnit) {
    float vec[2] = {x, y};
    return perlin_noise_2D(vec, octaves_, frequency_, amplitude_, toUnit);
}

// The vector is (x, z, 0): y takes no part in this overload.
float Perlin::Get(float x, float /*y*/, float z, int octaves_, float frequency_, float amplitude_, bool toUnit) {
    float vec[3] = {x, z, 0.0f};
    return perlin_noise_3D(vec, octaves_, frequency_, amplitude_, toUnit);
}

}  // namespace grainsmith
