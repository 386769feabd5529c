// The value of the lattice pattern kinds at a point, written once over a lanes type L
// (simd/): the one-point operator instantiates it with ScalarLanes, the batch path of every
// SIMD level (textures/batch_pattern_kinds.cpp) with HwyLanes, so both give the same bits.
// Choices that depend on the point are selects worked on every lane; choices that depend
// on the record (style, flags, toggles) are ordinary branches. The transcendental functions
// (core/exact_math: correctly rounded sin, cosf, atan2f, the same on every platform) and fmod
// are called lane by lane, so the batch path calls exactly what one point does.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#undef GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#else
#define GRAINSMITH_TEXTURES_PATTERN_KINDS_INL_H_
#endif

#include <cmath>

#include "core/exact_math.h"
#include "grainsmith/limits.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/corrugated.h"
#include "grainsmith/textures/gradient.h"
#include "grainsmith/textures/grid.h"
#include "grainsmith/textures/spiral.h"
#include "grainsmith/textures/stripes.h"
#include "grainsmith/textures/zigzag.h"
#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "simd/scalar_lanes.h"
#include "textures/numeric_lanes-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {
namespace noise = noise_kernels::HWY_NAMESPACE;

inline constexpr double kPatternPi = 3.141592653589793;

// ---- shared pieces -----------------------------------------------------------------------

// Squared distances of a coordinate to the whole values around it: `below` to its cell
// index k, `above` to k + 1. Lines and stripes of half width h are where one is within h².
template <class L>
struct LatticeDistances {
    typename L::F below, above;
};

template <class L>
HWY_INLINE LatticeDistances<L> latticeDistances(typename L::F c) {
    const typename L::U k = cellIndex<L>(c);
    const typename L::F d1 = c - L::toFloat(k), d2 = cellAbove<L>(k) - c;
    return {d1 * d1, d2 * d2};
}

// The square of half a stripe width, worked in float as (width * 0.5)².
inline float halfWidthSquared(float stripeWidth) {
    const float half = stripeWidth * 0.5f;
    return half * half;
}

// Quarter-circle arcs of radius 0.25 centred on `centre` (0.25 or 0.75): the ribbon shape.
template <class L>
HWY_INLINE typename L::F ribbonArc(typename L::F t, float centre) {
    const typename L::F d = t - L::f(centre);
    return L::sqrt(L::f(0.0625f) - d * d);
}

// Triangle wave over one period, rising from 0 at t = 0 to 1 at t = 0.5 and falling back
// to 0 at t = 1. Each half is written as a blend of 0 and 1, so that it matches the blends
// used elsewhere for odd inputs too.
template <class L>
HWY_INLINE typename L::F triangleWave(typename L::F t) {
    using F = typename L::F;
    const F rising = L::f(2.0f) * t;
    const F falling = (t - L::f(0.5f)) * L::f(2.0f);
    return L::select(L::lt(t, L::f(0.5f)), (L::f(1.0f) - rising) * L::f(0.0f) + rising,
                     (L::f(1.0f) - falling) + falling * L::f(0.0f));
}

// ---- the kinds ---------------------------------------------------------------------------

// "Checkerboard": the parity of the cell (the XOR over the axes of "index is even") picks
// the dark or light grey; randomised greys vary per cell; deeper levels nest checkers, each
// narrowing the grey interval of the cell the point is in. It has no planar form.
template <class L>
HWY_INLINE typename L::F checkerboard(const CheckerboardData& d, bool /*planar*/, typename L::F x,
                                      typename L::F y, typename L::F z) {
    using F = typename L::F;
    using M = typename L::M;
    const auto darkCell = [](F cx, F cy, F cz) -> M {
        const typename L::U parity = (cellIndex<L>(cx) ^ cellIndex<L>(cy) ^ cellIndex<L>(cz)) & L::u(1);
        return L::eqU(parity, L::u(0));
    };
    const int depth = capLoopCount(d.depth);
    if (depth <= 0) return L::f(0.0f);
    if (depth == 1) {
        const M dark = darkCell(x, y, z);
        if (!d.randomizeColors) return L::select(dark, L::f(0.25f), L::f(0.75f));
        const F r = cellRandom3<L>(x, y, z);
        const F s = (r * L::f(2.0f) - L::f(1.0f)) * L::f(d.variability);
        return L::select(dark, (s + L::f(1.0f)) * L::f(0.25f), s * L::f(0.25f) + L::f(0.75f));
    }
    // The dark branch centres on the old dark grey, the light branch starts at the old light grey.
    F lo = L::f(0.25f), hi = L::f(0.75f);
    for (int k = 0;; ++k) {
        const F value = L::select(darkCell(x, y, z), lo, hi);
        if (k == depth - 1) return value;
        const F step = L::f(std::ldexp(1.0f, -(k + 3)));
        const M onLow = L::eq(value, lo);
        const F newHi = L::select(onLow, lo + step, hi + step);
        lo = L::select(onLow, lo - step, hi);
        hi = newHi;
        x = x * L::f(2.0f);
        y = y * L::f(2.0f);
        z = z * L::f(2.0f);
    }
}

// Brings a coordinate outside [-1, 1] into the band by subtracting an even cell index
// (an odd index is raised by one); NaN and the band itself are left alone.
template <class L>
HWY_INLINE typename L::F wrapIntoBand(typename L::F c) {
    const typename L::U k = cellIndex<L>(c);
    const typename L::F wrapped = c - L::toFloat(k + (k & L::u(1)));
    return L::select(L::either(L::gt(c, L::f(1.0f)), L::lt(c, L::f(-1.0f))), wrapped, c);
}

// "Gradient": the product of the ramps |c + 1| / 2 of the chosen axes, each coordinate
// first wrapped into [-1, 1]; 1 when no axis is chosen. Halving is a multiplication by
// 0.5, which rounds exactly as the division by 2 does.
template <class L>
HWY_INLINE typename L::F gradient(const GradientData& d, bool /*planar*/, typename L::F x, typename L::F y,
                                  typename L::F z) {
    using F = typename L::F;
    const auto ramp = [](F c) { return L::abs(wrapIntoBand<L>(c) + L::f(1.0f)); };
    // v * r keeping v's NaN when both are NaN. The hardware keeps the first operand's NaN,
    // but a compiler may swap the operands of a product, so the choice is made here.
    const auto times = [](F v, F r) { return L::select(L::eq(v, v), v * r, v); };
    F v = L::f(1.0f);
    if (d.xDir) v = ramp(x) * L::f(0.5f);
    if (d.yDir) v = times(v, ramp(y)) * L::f(0.5f);
    if (d.zDir) v = times(v, ramp(z)) * L::f(0.5f);
    return v;
}

// "Grid": 0 on the lines of the unit lattice (within half the stripe width of a whole
// value on x, y or, in 3-D, z); between them white or the cube's random grey, for which z
// counts even in two-dimensional mode.
template <class L>
HWY_INLINE typename L::F grid(const GridData& d, bool planar, typename L::F x, typename L::F y,
                              typename L::F z) {
    using F = typename L::F;
    const F h2 = L::f(halfWidthSquared(d.stripeWidth));
    const auto onLine = [h2](F c) {
        const LatticeDistances<L> dist = latticeDistances<L>(c);
        return L::either(L::le(dist.below, h2), L::le(dist.above, h2));
    };
    typename L::M line = L::either(onLine(x), onLine(y));
    if (!planar) line = L::either(line, onLine(z));
    const F cube = d.randomizeColors
                       ? L::f(d.minColor) + L::f(d.maxColor - d.minColor) * cellRandom3<L>(x, y, z)
                       : L::f(1.0f);
    return L::select(line, L::f(0.0f), cube);
}

// "Stripes": stripes centred on whole values of x bent along y by the style; 0 on a stripe
// (or the stripe's random grey, the one below taking precedence), 1 between them.
template <class L>
HWY_INLINE typename L::F stripes(const StripesData& d, bool /*planar*/, typename L::F x, typename L::F y,
                                 typename L::F /*z*/) {
    using F = typename L::F;
    const F a = L::f(d.amplitude);
    const F t = y - L::floor(y);
    F xs = x;
    switch (d.stripeStyle) {
        case StripesTexture3D::PerlinNoise:
            xs = x + noise::improvedNoise2<L>(L::f(2.0f) * x, L::f(2.0f) * y) * a;
            break;
        case StripesTexture3D::Ribbon:
            xs = L::select(L::lt(t, L::f(0.5f)), x + ribbonArc<L>(t, 0.25f) * a, x - ribbonArc<L>(t, 0.75f) * a);
            break;
        case StripesTexture3D::Sawtooth:
            xs = x + t * a;
            break;
        case StripesTexture3D::Sine:  // the whole displacement in double, from y itself
            xs = L::perLane(x, y, [amplitude = static_cast<double>(d.amplitude)](float px, float py) {
                const double wave = exact::sin(2.0 * static_cast<double>(py) * kPatternPi);
                return static_cast<float>(static_cast<double>(px) + wave * amplitude);
            });
            break;
        case StripesTexture3D::Triangle:
            xs = x + triangleWave<L>(t) * a;
            break;
        default:
            break;
    }

    const typename L::U k = cellIndex<L>(xs);
    const LatticeDistances<L> dist = latticeDistances<L>(xs);
    const F h2 = L::f(halfWidthSquared(d.stripeWidth));
    const typename L::M onBelow = L::le(dist.below, h2), onAbove = L::le(dist.above, h2);
    if (!d.randomizeColors) return L::select(L::either(onBelow, onAbove), L::f(0.0f), L::f(1.0f));
    const F minColor = L::f(d.minColor), range = L::f(d.maxColor - d.minColor);
    const F greyBelow = minColor + range * cellRandom1<L>(L::toFloat(k));
    const F greyAbove = minColor + range * cellRandom1<L>(cellAbove<L>(k));
    return L::select(onBelow, greyBelow, L::select(onAbove, greyAbove, L::f(1.0f)));
}

// Zigzag's band: 1 where floor((floor x + floor y) / 2), worked in double, is not an even
// whole number (odd, or NaN / infinite, which fmod turns into NaN), else 0.
inline float zigzagLightBand(float x, float y) {
    const double fx = std::floor(static_cast<double>(x)), fy = std::floor(static_cast<double>(y));
    return std::fabs(std::fmod(std::floor((fx + fy) * 0.5), 2.0)) != 0.0 ? 1.0f : 0.0f;
}

// "Zigzag": diagonal bands two cells wide, dark (0.25) and light (0.75); randomised, each
// two-cell piece varies around its band's grey, clamped to [0, 1].
template <class L>
HWY_INLINE typename L::F zigzag(const ZigzagData& d, bool /*planar*/, typename L::F x, typename L::F y,
                                typename L::F /*z*/) {
    using F = typename L::F;
    const typename L::M light = L::eq(L::perLane(x, y, zigzagLightBand), L::f(1.0f));
    if (!d.randomizeColors) return L::select(light, L::f(0.75f), L::f(0.25f));
    // Odd rows pair their cells one unit further on, so the pieces interlock like bricks.
    const typename L::M oddRow = L::negate(L::eqU(L::truncate(L::floor(y)) & L::u(1), L::u(0)));
    const F u = L::select(oddRow, x + L::f(1.0f), x);
    const F r = cellRandom2<L>(u * L::f(0.5f), y);
    const F s = (r * L::f(2.0f) - L::f(1.0f)) * L::f(d.variability);
    return clamp01<L>(L::select(light, s * L::f(0.25f) + L::f(0.75f), (s + L::f(1.0f)) * L::f(0.25f)));
}

// "Spiral": stripes centred on whole values of x turned about the y axis by spiral rate
// radians per unit of y (in two-dimensional mode, slanted by the rate); 1 strictly between
// the stripes, 0 on them.
template <class L>
HWY_INLINE typename L::F spiral(const SpiralData& d, bool planar, typename L::F x, typename L::F y,
                                typename L::F z) {
    using F = typename L::F;
    F xs;
    if (planar) {
        xs = x + y * L::f(d.spiralRate);
    } else {
        const F rho = L::sqrt(x * x + z * z);
        const F theta =
            L::perLane(z, x, [](float pz, float px) { return exact::atan2f(pz, px); }) + y * L::f(d.spiralRate);
        xs = rho * L::perLane(theta, [](float angle) { return exact::cosf(angle); });
    }
    const LatticeDistances<L> dist = latticeDistances<L>(xs);
    const F h2 = L::f(halfWidthSquared(d.stripeWidth));
    return L::select(L::both(L::lt(h2, dist.below), L::lt(h2, dist.above)), L::f(1.0f), L::f(0.0f));
}

// "Corrugated": a wave along x of the chosen shape over each unit period, unclamped.
template <class L>
HWY_INLINE typename L::F corrugated(const CorrugatedData& d, bool /*planar*/, typename L::F x,
                                    typename L::F /*y*/, typename L::F /*z*/) {
    using F = typename L::F;
    const F t = x - L::floor(x);
    const F half = L::f(0.5f);
    switch (d.style) {
        case CorrugatedTexture3D::PerlinNoise:
            return noise::improvedNoise1<L>(L::f(2.0f) * x) * half + half;
        case CorrugatedTexture3D::Sawtooth:
            return t;
        case CorrugatedTexture3D::Ribbon:
            return L::select(L::lt(t, half), ribbonArc<L>(t, 0.25f) + half,
                             L::f(1.0f) - (ribbonArc<L>(t, 0.75f) + half));
        case CorrugatedTexture3D::Sine:
            return L::perLane(t, [](float pt) {
                       return static_cast<float>(exact::sin(2.0 * static_cast<double>(pt) * kPatternPi));
                   }) * half + half;
        case CorrugatedTexture3D::Triangle:
            return triangleWave<L>(t);
        default:
            return L::perLane(t * L::f(static_cast<float>(kPatternPi)), [](float v) { return exact::sinf(v); }) * half +
                   half;
    }
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
