// Batch evaluation of the vectorised kinds: out[i] = the kind's value at points + 3 * i,
// bit for bit what its one-point operator gives, on the SIMD level the CPU supports best.
// Each is defined by one line of its kind list in textures/batch_<family>_kinds.cpp.
#pragma once

#include "grainsmith/textures/cellular_kind.h"
#include "grainsmith/textures/checkerboard.h"
#include "grainsmith/textures/cheetah.h"
#include "grainsmith/textures/corrugated.h"
#include "grainsmith/textures/folded_noise_kind.h"
#include "grainsmith/textures/fractal_sum.h"
#include "grainsmith/textures/granite.h"
#include "grainsmith/textures/gradient.h"
#include "grainsmith/textures/grid.h"
#include "grainsmith/textures/perlin_noise.h"
#include "grainsmith/textures/simple_marble.h"
#include "grainsmith/textures/simplex.h"
#include "grainsmith/textures/spiral.h"
#include "grainsmith/textures/stripes.h"
#include "grainsmith/textures/voronoi_tile.h"
#include "grainsmith/textures/wood.h"
#include "grainsmith/textures/zigzag.h"

namespace grainsmith::batch {

void perlinNoise(const PerlinData& d, bool planar, const float* points, int n, float* out);
void fbm(const FractalSumData& d, bool planar, const float* points, int n, float* out);
void turbulence(const FractalSumData& d, bool planar, const float* points, int n, float* out);
void simplex(const SimplexData& d, bool planar, const float* points, int n, float* out);
void simpleMarble(const SimpleMarbleData& d, bool planar, const float* points, int n, float* out);
void checkerboard(const CheckerboardData& d, bool planar, const float* points, int n, float* out);
void gradient(const GradientData& d, bool planar, const float* points, int n, float* out);
void grid(const GridData& d, bool planar, const float* points, int n, float* out);
void stripes(const StripesData& d, bool planar, const float* points, int n, float* out);
void zigzag(const ZigzagData& d, bool planar, const float* points, int n, float* out);
void spiral(const SpiralData& d, bool planar, const float* points, int n, float* out);
void corrugated(const CorrugatedData& d, bool planar, const float* points, int n, float* out);
void granite(const GraniteData& d, bool planar, const float* points, int n, float* out);
void dents(const FoldedNoiseData& d, bool planar, const float* points, int n, float* out);
void erosion(const FoldedNoiseData& d, bool planar, const float* points, int n, float* out);
void voronoi(const CellularData& d, bool planar, const float* points, int n, float* out);
void wood(const WoodData& d, bool planar, const float* points, int n, float* out);
void cheetah(const CheetahData& d, bool planar, const float* points, int n, float* out);
void voronoiTile(const VoronoiTileData& d, bool planar, const float* points, int n, float* out);

}  // namespace grainsmith::batch
