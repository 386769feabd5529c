// "Cell Noise": double-precision cellular noise with a Poisson-distributed number of
// hashed feature points per cube. Always three-dimensional. A complete kind that neither
// the host nor the editor reaches by name; it is used by constructing the class.
#pragma once

#include "grainsmith/noise/cellular.h"
#include "grainsmith/textures/cellular_kind.h"

namespace grainsmith {

using CellData = CellularData;

class GRAINSMITH_API CellTexture3D : public CellularKind<CellTexture3D> {
public:
    static constexpr char kName[] = "Cell Noise";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
