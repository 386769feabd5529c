// The value of the kinds built on a jittered cell grid ("Cheetah", "Voronoi Tiles"), written
// once over a lanes type L (simd/): the one-point operators instantiate it with
// ScalarLanes, the batch path of every SIMD level (textures/batch_cell_kinds.cpp) with
// HwyLanes, so both give the same bits. Every per-point choice is a select; the searches
// visit every neighbour cell on all lanes.
//
// Re-included once per SIMD target (Highway's foreach_target).

#if defined(GRAINSMITH_TEXTURES_CELL_KINDS_INL_H_) == defined(HWY_TARGET_TOGGLE)
#ifdef GRAINSMITH_TEXTURES_CELL_KINDS_INL_H_
#undef GRAINSMITH_TEXTURES_CELL_KINDS_INL_H_
#else
#define GRAINSMITH_TEXTURES_CELL_KINDS_INL_H_
#endif

#include <cfloat>
#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/textures/cheetah.h"
#include "grainsmith/textures/voronoi_tile.h"
#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "textures/numeric_lanes-inl.h"
#include "textures/noise_kinds-inl.h"

HWY_BEFORE_NAMESPACE();
namespace grainsmith::kind_kernels::HWY_NAMESPACE {
namespace noise = noise_kernels::HWY_NAMESPACE;

// A cell and its two neighbours along one axis: their centres (the cell's centre plus -1, 0
// and 1) and their indices by `index` (one of the floors).
template <class L>
struct AxisCells {
    typename L::F centre[3];
    typename L::U index[3];
};

template <class L, class Index>
HWY_INLINE AxisCells<L> axisCells(typename L::F centre, Index index) {
    AxisCells<L> cells;
    for (int o = 0; o < 3; ++o) {
        cells.centre[o] = centre + L::f(static_cast<float>(o - 1));
        cells.index[o] = index(cells.centre[o]);
    }
    return cells;
}

// ---- Cheetah ---------------------------------------------------------------------------------

// Centre of the cell with this index: the index plus one half, formed in double and
// rounded once to float (exact below 2^23; large indices round as that double does).
template <class L>
HWY_INLINE typename L::F cheetahCellCentre(typename L::U index) {
    return L::intInDouble(index, [](auto i, auto ops) { return i + ops.c(0.5); });
}

// The cell of v and its neighbours along one axis, by cellIndex.
template <class L>
HWY_INLINE AxisCells<L> cheetahAxis(typename L::F v) {
    return axisCells<L>(cheetahCellCentre<L>(cellIndex<L>(v)), [](typename L::F c) { return cellIndex<L>(c); });
}

// The nearest spot centre's distance from its squared value: the square root is monotonic
// and correctly rounded, so the root of the smallest squared distance is the smallest
// distance. A point with no finite distance keeps the start value, the largest float.
template <class L>
HWY_INLINE typename L::F cheetahNearest(typename L::F smallestSquare) {
    return L::select(L::lt(smallestSquare, L::f(INFINITY)), L::sqrt(smallestSquare), L::f(FLT_MAX));
}

// Distance from (x, y) to the nearest spot centre of the 3 x 3 cells around it. A cell's
// spot is its centre c moved by (cellRandom2(c) - 0.5) x jitter on x and by the value of
// the cell 23 across and 87 down on y.
template <class L>
HWY_INLINE typename L::F cheetahDistance2(float jitter, typename L::F x, typename L::F y) {
    using F = typename L::F;
    using U = typename L::U;
    const AxisCells<L> X = cheetahAxis<L>(x), Y = cheetahAxis<L>(y);
    const F J = L::f(jitter), half = L::f(0.5f);
    U iyShifted[3];
    for (int j = 0; j < 3; ++j) iyShifted[j] = cellIndex<L>(Y.centre[j] - L::f(87.0f));
    F best = L::f(INFINITY);
    for (int i = 0; i < 3; ++i) {
        const F cx = X.centre[i];
        const U ixShifted = cellIndex<L>(cx + L::f(23.0f));
        for (int j = 0; j < 3; ++j) {
            const F sx = (cellRandom2OfIndices<L>(X.index[i], Y.index[j]) - half) * J + cx;
            const F sy = (cellRandom2OfIndices<L>(ixShifted, iyShifted[j]) - half) * J + Y.centre[j];
            const F ex = sx - x, ey = sy - y;
            const F square = ex * ex + ey * ey;
            best = L::minLt(square, best);
        }
    }
    return cheetahNearest<L>(best);
}

// The same over the 3 x 3 x 3 cells around (x, y, z). The x jitter is cellRandom2 of the
// cell's (x, z) indices; y and z share one jitter, cellRandom2 of its (y, x) indices. Each
// jitter depends on two of the three offsets only, so nine of each are computed.
template <class L>
HWY_INLINE typename L::F cheetahDistance3(float jitter, typename L::F x, typename L::F y, typename L::F z) {
    using F = typename L::F;
    const AxisCells<L> X = cheetahAxis<L>(x), Y = cheetahAxis<L>(y), Z = cheetahAxis<L>(z);
    const F J = L::f(jitter), half = L::f(0.5f);
    F best = L::f(INFINITY);
    for (int i = 0; i < 3; ++i) {
        F ex2[3];  // by z offset
        for (int k = 0; k < 3; ++k) {
            const F ex = (cellRandom2OfIndices<L>(X.index[i], Z.index[k]) - half) * J + X.centre[i] - x;
            ex2[k] = ex * ex;
        }
        for (int j = 0; j < 3; ++j) {
            const F shift = (cellRandom2OfIndices<L>(Y.index[j], X.index[i]) - half) * J;
            const F ey = shift + Y.centre[j] - y;
            const F ey2 = ey * ey;
            for (int k = 0; k < 3; ++k) {
                const F ez = shift + Z.centre[k] - z;
                const F square = ex2[k] + ey2 + ez * ez;
                best = L::minLt(square, best);
            }
        }
    }
    return cheetahNearest<L>(best);
}

// "Cheetah": 0 inside a spot (the nearest spot centre closer than the noise-modulated
// radius (n + 1) x spot size), 1 on the background.
template <class L>
HWY_INLINE typename L::F cheetah(const CheetahData& d, bool planar, typename L::F x, typename L::F y,
                                 typename L::F z) {
    using F = typename L::F;
    const F n = planar ? noise::fractalNoise2<L>(x, y, 2, 2.0f, d.spotVariability)
                       : noise::fractalNoise3<L>(x, y, z, 2, 2.0f, d.spotVariability);
    const F distance = planar ? cheetahDistance2<L>(d.layoutVariability, x, y)
                              : cheetahDistance3<L>(d.layoutVariability, x, y, z);
    const F radius = (n + L::f(1.0f)) * L::f(d.spotSize);
    return L::select(L::ge(distance, radius), L::f(1.0f), L::f(0.0f));
}

// ---- Voronoi Tiles -----------------------------------------------------------------------------
// The tiles' cell indices are lattice floors (noise::noiseFloor: minus one for negative
// values and NaN), unlike cellIndex.

// The tile hash of the cells (a, b, c), from their lattice floors.
template <class L>
HWY_INLINE typename L::F tileHash(typename L::U a, typename L::U b, typename L::U c) {
    return cellUnit<L>(b * L::u(1301u) + c * L::u(314159u) + a);
}

// The cell of v and its neighbours along one axis, by the lattice floor.
template <class L>
HWY_INLINE AxisCells<L> tileAxis(typename L::F v) {
    return axisCells<L>(L::toFloat(noise::noiseFloor<L>(v)) + L::f(0.5f),
                        [](typename L::F c) { return noise::noiseFloor<L>(c); });
}

// The two nearest feature points: squared distances while searching, distances once done.
template <class L>
using TileNearest = noise::Nearest<L, 2, true>;

template <class L>
HWY_INLINE void startTileSearch(TileNearest<L>& n) {
    for (int i = 0; i < 2; ++i) {
        n.d[i] = L::f(FLT_MAX);
        n.px[i] = n.py[i] = n.pz[i] = L::f(0.0f);
    }
}

template <class L>
HWY_INLINE void finishTileSearch(TileNearest<L>& n) {
    n.d[0] = L::sqrt(n.d[0]);
    n.d[1] = L::sqrt(n.d[1]);
}

// The 3 x 3 cells around (x, y), x outermost. A feature point is its cell centre moved by
// (hash of (X, Y, 0) - 0.5) x jitter on x and by the hash of (X + 23, Y - 87, 0) on y.
template <class L>
HWY_INLINE TileNearest<L> tileSearchPlane(typename L::F x, typename L::F y, float jitter) {
    using F = typename L::F;
    using U = typename L::U;
    TileNearest<L> n;
    startTileSearch<L>(n);
    const AxisCells<L> X = tileAxis<L>(x), Y = tileAxis<L>(y);
    const F J = L::f(jitter), half = L::f(0.5f);
    const U zero = L::u(0);
    U fYShifted[3];
    for (int j = 0; j < 3; ++j) fYShifted[j] = noise::noiseFloor<L>(Y.centre[j] - L::f(87.0f));
    for (int i = 0; i < 3; ++i) {
        const F px0 = X.centre[i];
        const U fXShifted = noise::noiseFloor<L>(px0 + L::f(23.0f));
        for (int j = 0; j < 3; ++j) {
            const F px = px0 + (tileHash<L>(X.index[i], Y.index[j], zero) - half) * J;
            const F py = Y.centre[j] + (tileHash<L>(fXShifted, fYShifted[j], zero) - half) * J;
            const F ey = py - y, ex = px - x;
            noise::insertNearest<L, 2, true>(n, ey * ey + ex * ex, px, py, L::f(0.0f));
        }
    }
    finishTileSearch<L>(n);
    return n;
}

// The 3 x 3 x 3 cells around (x, y, z), x outermost, then y, then z. The feature point moves
// by (hash of (X, Y, Z) - 0.5) x jitter on x; y and z share the hash of (Y, Z, X).
template <class L>
HWY_INLINE TileNearest<L> tileSearchSpace(typename L::F x, typename L::F y, typename L::F z, float jitter) {
    using F = typename L::F;
    TileNearest<L> n;
    startTileSearch<L>(n);
    const AxisCells<L> X = tileAxis<L>(x), Y = tileAxis<L>(y), Z = tileAxis<L>(z);
    const F J = L::f(jitter), half = L::f(0.5f);
    for (int i = 0; i < 3; ++i) {
        for (int j = 0; j < 3; ++j) {
            for (int k = 0; k < 3; ++k) {
                const F r1 = tileHash<L>(X.index[i], Y.index[j], Z.index[k]);
                const F r2 = tileHash<L>(Y.index[j], Z.index[k], X.index[i]);
                const F px = X.centre[i] + (r1 - half) * J;
                const F py = Y.centre[j] + (r2 - half) * J;
                const F pz = Z.centre[k] + (r2 - half) * J;
                const F ez = pz - z, ey = py - y, ex = px - x;
                noise::insertNearest<L, 2, true>(n, ez * ez + ey * ey + ex * ex, px, py, pz);
            }
        }
    }
    finishTileSearch<L>(n);
    return n;
}

template <class L>
HWY_INLINE typename L::F tileLength(typename L::F a, typename L::F b) {
    return L::sqrt(a * a + b * b);
}

template <class L>
HWY_INLINE typename L::F tileLength(typename L::F a, typename L::F b, typename L::F c) {
    return L::sqrt(a * a + b * b + c * c);
}

// Octave sum of 1-D noise that roughens the tile boundaries.
template <class L>
HWY_INLINE typename L::F boundaryNoise(const VoronoiTileData& d, typename L::F t) {
    using F = typename L::F;
    return weightedOctaves<L>(d.boundaryOctaves, d.boundaryLacunarity, d.boundaryGain, t, t, t,
                              [](F a, F, F) { return noise::improvedNoise1<L>(a); });
}

// One coordinate moved by 0.15 x the boundary noise of its own value; the sum is formed in
// double and rounded once.
template <class L>
HWY_INLINE typename L::F perturbForBoundary(const VoronoiTileData& d, typename L::F c) {
    const typename L::F b = boundaryNoise<L>(d, c * L::f(d.boundaryDetail));
    return L::inDouble(c, b, [](auto dc, auto db, auto ops) { return dc + ops.c(0.15) * db; });
}

// Octave sum of the tile noise, with the record's lacunarity and gain.
template <class L>
HWY_INLINE typename L::F tileNoise(const VoronoiTileData& d, bool planar, typename L::F x, typename L::F y,
                                   typename L::F z) {
    using F = typename L::F;
    return weightedOctaves<L>(d.cellOctaves, d.cellLacunarity, d.cellGain, x, y, z,
                              [planar](F a, F b, F c) { return improvedNoise<L>(planar, a, b, c); });
}

// "Voronoi Tiles": a point is inside a tile when the margin F2 - F1 between its two
// nearest feature points reaches the grout width, scaled by how far apart the two points
// are relative to the path through the point; the grout is 0. The tile value is 1, or a
// random grey of the nearest point's cell, plus the tile noise, clamped to [0, 1].
template <class L>
HWY_INLINE typename L::F voronoiTile(const VoronoiTileData& d, bool planar, typename L::F x, typename L::F y,
                                     typename L::F z) {
    using F = typename L::F;
    if (planar) z = L::f(0.0f);
    if (d.boundaryAddNoise) {
        x = perturbForBoundary<L>(d, x);
        y = perturbForBoundary<L>(d, y);
        if (!planar) z = perturbForBoundary<L>(d, z);
    }
    const TileNearest<L> n =
        planar ? tileSearchPlane<L>(x, y, d.cellVariability) : tileSearchSpace<L>(x, y, z, d.cellVariability);
    const F c1x = n.px[0], c1y = n.py[0], c1z = n.pz[0];
    const F c2x = n.px[1], c2y = n.py[1], c2z = n.pz[1];
    F ratio;
    if (planar) {
        const F between = tileLength<L>(c2x - c1x, c2y - c1y);
        const F toFirst = tileLength<L>(x - c1x, y - c1y);
        const F toSecond = tileLength<L>(c2x - x, c2y - y);
        ratio = between / (toFirst + toSecond) * L::f(d.boundaryThickness);
    } else {
        const F between = tileLength<L>(c2x - c1x, c2y - c1y, c2z - c1z);
        const F toFirst = tileLength<L>(x - c1x, y - c1y, z - c1z);
        const F toSecond = tileLength<L>(c2x - x, c2y - y, c2z - z);
        ratio = between / (toFirst + toSecond) * L::f(d.boundaryThickness);
    }
    const typename L::M inTile = L::ge(n.d[1] - n.d[0], ratio);

    F v = L::f(1.0f);
    if (d.cellRandomizeColors) {
        // The plane's cell hash is the space's with the z floor 0.
        const typename L::U fz = planar ? L::u(0) : noise::noiseFloor<L>(c1z);
        const F r = tileHash<L>(noise::noiseFloor<L>(c1x), noise::noiseFloor<L>(c1y), fz);
        v = L::f(d.cellMinColor) + (L::f(d.cellMaxColor) - L::f(d.cellMinColor)) * r;
    }
    if (d.cellAddNoise) {
        const F s = planar ? tileNoise<L>(d, true, L::f(d.cellDetail) * x, L::f(d.cellDetail) * y, z)
                           : tileNoise<L>(d, false, x, y, z);
        v = L::inDouble(s, v, [](auto ds, auto dv, auto ops) { return ops.c(0.15) * ds + dv; });
    }
    return L::select(inTile, clamp01<L>(v), L::f(0.0f));
}

}  // namespace grainsmith::kind_kernels::HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#endif  // include guard
