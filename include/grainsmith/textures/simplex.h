// "Simplex": one octave of simplex noise at the scaled point, remapped to [0, 1].
// Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct SimplexData {
    BaseData head;
    float scale;
};
static_assert(sizeof(SimplexData) == 40);
static_assert(offsetof(SimplexData, scale) == 36);

class GRAINSMITH_API SimplexTexture3D : public TextureKind<SimplexTexture3D, SimplexData> {
public:
    static constexpr char kName[] = "Simplex";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getScale() const { return data_.scale; }
    void setScale(float v) { data_.scale = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
