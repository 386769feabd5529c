// The value of the noise kinds at a point, written once over a lanes type L (simd/): the
// kinds' one-point operator instantiates it with ScalarLanes, the batch path of every SIMD
// level (textures/batch_noise_kinds.cpp) with HwyLanes, so both give the same bits.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_NOISE_KINDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_NOISE_KINDS_INL_H_
#undef GRAINSMITH_TEXTURES_NOISE_KINDS_INL_H_
#else
#define GRAINSMITH_TEXTURES_NOISE_KINDS_INL_H_
#endif

#include "grainsmith/limits.h"
#include "grainsmith/textures/cellular_kind.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/folded_noise_kind.h"
#include "grainsmith/textures/fractal_sum.h"
#include "grainsmith/textures/granite.h"
#include "grainsmith/textures/perlin_noise.h"
#include "grainsmith/textures/simple_marble.h"
#include "grainsmith/textures/simplex.h"
#include "grainsmith/textures/wood.h"
#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "textures/numeric_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {
namespace noise = noise_kernels::HWY_NAMESPACE;

// "Perlin Noise": the octave sum (lacunarity 2, gain 0.5) remapped to [0, 1].
template <class L>
HWY_INLINE typename L::F perlinNoise(const PerlinData& d, bool planar, typename L::F x, typename L::F y,
                                     typename L::F z) {
    const int octaves = capLoopCount(d.octaves);
    const typename L::F n = planar ? noise::fractalNoise2<L>(x, y, octaves, d.frequency, d.amplitude)
                                   : noise::fractalNoise3<L>(x, y, z, octaves, d.frequency, d.amplitude);
    return clamp01<L>((n + L::f(1.0f)) * L::f(0.5f));
}

// An octave sum: `sample` (a noise, possibly shaped) at the point, then the coordinates
// multiplied by the lacunarity; weights 1, gain, gain^2, ... kept as a float and multiplied
// by the gain after each octave. At most 64 octaves; none for a count below 1.
template <class L, class Sample>
HWY_INLINE typename L::F weightedOctaves(int octaves, float lacunarity, float gain, typename L::F x,
                                         typename L::F y, typename L::F z, Sample sample) {
    using F = typename L::F;
    const F factor = L::f(lacunarity);
    F sum = L::f(0.0f);
    float w = 1.0f;
    const int count = capLoopCount(octaves);
    for (int i = 0; i < count; ++i) {
        const F n = sample(x, y, z);
        x = x * factor;
        y = y * factor;
        z = z * factor;
        sum = sum + n * L::f(w);
        w *= gain;
    }
    return sum;
}

// Improved gradient noise of the plane (x, y) or of space.
template <class L>
HWY_INLINE typename L::F improvedNoise(bool planar, typename L::F x, typename L::F y, typename L::F z) {
    return planar ? noise::improvedNoise2<L>(x, y) : noise::improvedNoise3<L>(x, y, z);
}

// The octave loop shared by FBM and Turbulence: improved gradient noise at the scaled
// point; `fold` shapes each octave's noise before it is weighted.
template <class L, class Fold>
HWY_INLINE typename L::F octaveSum(const FractalSumData& d, bool planar, typename L::F x, typename L::F y,
                                   typename L::F z, Fold fold) {
    using F = typename L::F;
    const F scale = L::f(d.scale);
    const F qz = planar ? L::f(0.0f) : z * scale;  // the plane never reads z
    return weightedOctaves<L>(d.octaves, d.lacunarity, d.gain, x * scale, y * scale, qz,
                              [planar, fold](F a, F b, F c) { return fold(improvedNoise<L>(planar, a, b, c)); });
}

// "FBM": the octave sum remapped from about [-1, 1] to [0, 1].
template <class L>
HWY_INLINE typename L::F fbm(const FractalSumData& d, bool planar, typename L::F x, typename L::F y,
                             typename L::F z) {
    const typename L::F sum = octaveSum<L>(d, planar, x, y, z, [](typename L::F n) { return n; });
    return clamp01<L>((sum + L::f(1.0f)) * L::f(0.5f));
}

// "Turbulence": the sum of the octaves' magnitudes, not remapped.
template <class L>
HWY_INLINE typename L::F turbulence(const FractalSumData& d, bool planar, typename L::F x, typename L::F y,
                                    typename L::F z) {
    return clamp01<L>(octaveSum<L>(d, planar, x, y, z, [](typename L::F n) { return L::abs(n); }));
}

// "Simplex": simplex noise at the scaled point, remapped to [0, 1].
template <class L>
HWY_INLINE typename L::F simplex(const SimplexData& d, bool planar, typename L::F x, typename L::F y,
                                 typename L::F z) {
    const typename L::F s = L::f(d.scale);
    const typename L::F n =
        planar ? noise::simplexNoise2<L>(x * s, y * s) : noise::simplexNoise3<L>(x * s, y * s, z * s);
    return clamp01<L>((n + L::f(1.0f)) * L::f(0.5f));
}

// "Voronoi": the cellular value at the scaled point; above 1 gives 1, then below 0 (or
// NaN) gives 0.
template <class L>
HWY_INLINE typename L::F voronoi(const CellularData& d, bool planar, typename L::F x, typename L::F y,
                                 typename L::F z) {
    using F = typename L::F;
    const F s = L::f(d.scale);
    F v = planar ? noise::voronoiValue<L>(x * s, y * s, L::f(0.0f), true, d.type, d.distanceMethod)
                 : noise::voronoiValue<L>(x * s, y * s, z * s, false, d.type, d.distanceMethod);
    v = L::select(L::gt(v, L::f(1.0f)), L::f(1.0f), v);
    return L::select(L::ge(v, L::f(0.0f)), v, L::f(0.0f));
}

// Knots of the marble colour spline. The last entry is not a knot: at the top of the range
// (t = 10, u = 0) the spline reads one knot past the twelfth and weights it by zero, so it
// only has to be finite.
inline constexpr float kMarbleKnots[14] = {0.7349143f,  0.7349143f,  0.32697144f, 0.32697144f, 0.32697144f,
                                           0.7349143f,  0.7349143f,  0.18617715f, 0.18617715f, 0.12078286f,
                                           0.12078286f, 0.7349143f,  0.12078286f, 0.0f};

// Catmull-Rom spline through the knots, over a noise sum of about [-0.375, 0.125] mapped to [0, 10].
template <class L>
HWY_INLINE typename L::F marbleSpline(typename L::F sum) {
    using F = typename L::F;
    using U = typename L::U;
    F t = sum * L::f(2.0f) + L::f(0.75f);
    t = L::select(L::lt(t, L::f(0.0f)), L::f(0.0f), t);
    t = L::select(L::gt(t, L::f(1.0f)), L::f(1.0f), t);
    t = t * L::f(10.0f);
    // t lies in [0, 10] or is NaN. A NaN reads knot 0 (the value stays NaN and the caller's
    // clamp turns it into 0).
    const U i = L::selectU(L::eq(t, t), L::truncate(t), L::u(0));
    const F u = t - L::toFloat(i);
    const F k0 = L::gather(kMarbleKnots, i), k1 = L::gather(kMarbleKnots, i + L::u(1));
    const F k2 = L::gather(kMarbleKnots, i + L::u(2)), k3 = L::gather(kMarbleKnots, i + L::u(3));
    const F c3 = L::f(-0.5f) * k0 + L::f(1.5f) * k1 - L::f(1.5f) * k2 + L::f(0.5f) * k3;
    const F c2 = k0 - L::f(2.5f) * k1 + L::f(2.0f) * k2 - L::f(0.5f) * k3;
    const F c1 = L::f(0.5f) * k2 - L::f(0.5f) * k0;
    return ((c3 * u + c2) * u + c1) * u + k1;
}

// "Simple Marble": octaves of noise, each divided by its frequency (ratio 2.17, applied in
// double and rounded once), shaped by the marble spline.
template <class L>
HWY_INLINE typename L::F simpleMarble(const SimpleMarbleData& d, bool planar, typename L::F x, typename L::F y,
                                      typename L::F z) {
    using F = typename L::F;
    const F s = L::f(d.textureScale);
    const F qx = x * s;
    const F qy = y * s;
    const F qz = planar ? L::f(0.0f) : z * s;  // the plane never reads z
    F sum = L::f(0.0f);
    float f = 1.0f;
    const int terms = capLoopCount(d.octaves);
    for (int k = 0; k < terms; ++k) {
        const F vf = L::f(f);
        const F n = planar ? noise::improvedNoise2<L>(qx * vf, qy * vf) : noise::improvedNoise3<L>(qx * vf, qy * vf, qz * vf);
        sum = sum + n / vf;
        f = static_cast<float>(static_cast<double>(f) * 2.17);
    }
    return clamp01<L>(marbleSpline<L>(sum));
}

// "Granite": octaves of noise folded about 0.5, each weighed by its frequency and summed
// in double (rounded to float after each octave).
template <class L>
HWY_INLINE typename L::F granite(const GraniteData& d, bool planar, typename L::F x, typename L::F y,
                                 typename L::F z) {
    using F = typename L::F;
    const F four = L::f(4.0f);
    F sum = L::f(0.0f);
    float f = d.frequency;
    const int terms = capLoopCount(d.octaves);
    for (int k = 0; k < terms; ++k) {
        const F vf = L::f(f);
        const F n = planar ? noise::improvedNoise2<L>(four * x * vf, four * y * vf)
                           : noise::improvedNoise3<L>(four * x * vf, four * y * vf, four * z * vf);
        const double weight = f;
        sum = L::inDouble(n, sum, [weight](auto dn, auto ds, auto ops) {
            return ops.abs(ops.c(0.5) - dn) / ops.c(weight) + ds;
        });
        f *= 2.0f;
    }
    return clamp01<L>(sum);
}

// The folded-noise sum shared by "Dents" and "Erosion": six terms, whatever the record
// holds; each folds one octave of noise about its midpoint, |0.5 - (n + 1) / 2|, weights it
// by k / f and adds it on (in double, stored as float); f doubles per term. The result is
// sum^3 x magnitude.
template <class L>
HWY_INLINE typename L::F foldedNoiseSum(const FoldedNoiseData& d, bool planar, typename L::F x, typename L::F y,
                                        typename L::F z, float f0, double k) {
    using F = typename L::F;
    const F scale = L::f(d.scale);
    const F qx = x * scale, qy = y * scale, qz = z * scale;
    F sum = L::f(0.0f);
    float f = f0;
    for (int term = 0; term < 6; ++term) {
        const F vf = L::f(f);
        const F n = planar ? noise::improvedNoise2<L>(qx * vf, qy * vf) : noise::improvedNoise3<L>(qx * vf, qy * vf, qz * vf);
        const double weight = f;
        sum = L::inDouble(n, sum, [weight, k](auto dn, auto ds, auto ops) {
            const auto folded = ops.abs(ops.c(0.5) - (dn + ops.c(1.0)) * ops.c(0.5));
            return folded * ops.c(k) / ops.c(weight) + ds;
        });
        f *= 2.0f;
    }
    return sum * sum * sum * L::f(d.magnitude);
}

// "Dents": the folded sum from frequency 1, clamped.
template <class L>
HWY_INLINE typename L::F dents(const FoldedNoiseData& d, bool planar, typename L::F x, typename L::F y,
                               typename L::F z) {
    return clamp01<L>(foldedNoiseSum<L>(d, planar, x, y, z, 1.0f, 1.0));
}

// The smooth step (3 - 2u) u^2 of u in [0, 1], without a clamp.
template <class L>
HWY_INLINE typename L::F hermite(typename L::F u) {
    return (L::f(3.0f) - L::f(2.0f) * u) * (u * u);
}

// "Erosion": the folded sum from frequency 4 through a smooth step from 0 to 1 over
// [0.0001, 0.003]; NaN falls through to 1.
template <class L>
HWY_INLINE typename L::F erosion(const FoldedNoiseData& d, bool planar, typename L::F x, typename L::F y,
                                 typename L::F z) {
    using F = typename L::F;
    const F v = foldedNoiseSum<L>(d, planar, x, y, z, 4.0f, 4.0);
    const F u = (v - L::f(0.0001f)) * L::f(344.82758f);
    return L::select(L::lt(v, L::f(0.0001f)), L::f(0.0f), L::select(L::lt(v, L::f(0.003f)), hermite<L>(u), L::f(1.0f)));
}

// "Wood": rings around the y axis, their centre shifted by the perturbing octave sum
// remapped as (sum + 1) / 2, the ring fraction shaded by a dark weight that rises over
// [0, 0.8) and falls back to 0 over [0.83, 1). Always three-dimensional; not clamped.
template <class L>
HWY_INLINE typename L::F wood(const WoodData& d, bool /*planar*/, typename L::F x, typename L::F y,
                              typename L::F z) {
    using F = typename L::F;
    F rx = x, rz = z;
    if (d.frequency > 0.0f) {
        const F n = (noise::fractalNoise3<L>(x, y, z, capLoopCount(d.octaves), d.frequency, d.amplitude) +
                     L::f(1.0f)) *
                    L::f(0.5f);
        rx = rx + n;
        rz = rz + n;
    }
    F r = L::sqrt(rz * rz + rx * rx) * L::f(d.ringScale);
    r = r + L::abs((noise::improvedNoise1<L>(r) + L::f(1.0f)) * L::f(0.5f));
    r = r - L::toFloat(cellIndex<L>(r));
    // NaN fractions: no rise (a = 0) but the full fall (b = 1).
    const F a = L::select(L::ge(r, L::f(0.0f)),
                          L::select(L::lt(r, L::f(0.8f)), hermite<L>(r * L::f(1.25f)), L::f(1.0f)), L::f(0.0f));
    const F b = L::select(L::lt(r, L::f(0.83f)), L::f(0.0f),
                          L::select(L::lt(r, L::f(1.0f)), hermite<L>((r - L::f(0.83f)) * L::f(5.8823524f)),
                                    L::f(1.0f)));
    const F dark = a - b;
    return (L::f(1.0f) - dark) * L::f(d.lightColor) + dark * L::f(d.darkColor);
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
