// Voronoi cellular noise: one tabled feature point per unit cube, single precision.
//
// The sample's own cube and its 26 neighbours are visited (only the z = 0 layer in the
// planar form); the four smallest distances are kept in ascending order together with the
// absolute positions of their feature points. The arithmetic lives in noise_kernels-inl.h,
// shared with the batch path; a value search keeps only the distances its type reads.
#include "grainsmith/noise/cellular.h"
#include "hwy/highway.h"
#include "noise/noise_kernels-inl.h"
#include "simd/scalar_lanes.h"

namespace grainsmith::Voronoi {
namespace {

using simd::ScalarLanes;
namespace kernels = noise_kernels::HWY_NAMESPACE;

// The full search: four distances and their feature points, every method.
void search(float x, float y, float z, bool planar, float F[4], float positions[4][3], int method) {
    kernels::Nearest<ScalarLanes, 4, true> n;
    kernels::voronoiSearch<ScalarLanes, 4, true, -1, false>(x, y, z, planar, method, n);
    for (int i = 0; i < 4; ++i) {
        F[i] = n.d[i];
        positions[i][0] = n.px[i];
        positions[i][1] = n.py[i];
        positions[i][2] = n.pz[i];
    }
}

}  // namespace

void voronoi_search3(float x, float y, float z, float F[4], float positions[4][3], int method) {
    search(x, y, z, false, F, positions, method);
}

void voronoi_search2(float x, float y, float F[4], float positions[4][3], int method) {
    search(x, y, 0.0f, true, F, positions, method);
}

float voronoi_value3(float x, float y, float z, int type, int method) {
    return kernels::voronoiValue<ScalarLanes>(x, y, z, false, type, method);
}

float voronoi_value2(float x, float y, int type, int method) {
    return kernels::voronoiValue<ScalarLanes>(x, y, 0.0f, true, type, method);
}

}  // namespace grainsmith::Voronoi
