// "Simple Marble": veins from a sum of improved gradient noise terms (frequency ratio
// 2.17), mapped through a fixed colour spline. Honours two-dimensional mode.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct SimpleMarbleData {
    BaseData head;
    int32_t octaves;
    float textureScale;
};
static_assert(sizeof(SimpleMarbleData) == 44);
static_assert(offsetof(SimpleMarbleData, octaves) == 36 && offsetof(SimpleMarbleData, textureScale) == 40);

class GRAINSMITH_API SimpleMarbleTexture3D : public TextureKind<SimpleMarbleTexture3D, SimpleMarbleData> {
public:
    static constexpr char kName[] = "Simple Marble";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    int octaves() const { return data_.octaves; }
    void setOctaves(int v) { data_.octaves = v; }
    float textureScale() const { return data_.textureScale; }
    void setTextureScale(float v) { data_.textureScale = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
