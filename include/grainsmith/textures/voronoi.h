// "Voronoi": single-precision cellular noise (one tabled feature point per unit cube),
// in space or, in two-dimensional mode, in the layer of cubes at z = 0.
#pragma once

#include "grainsmith/noise/cellular.h"
#include "grainsmith/textures/cellular_kind.h"

namespace grainsmith {

using VoronoiData = CellularData;

class GRAINSMITH_API VoronoiTexture3D : public CellularKind<VoronoiTexture3D> {
public:
    static constexpr char kName[] = "Voronoi";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
