// "Cheetah": round spots (0) on a background (1). One spot per cell of a jittered unit
// grid; the spot radius is modulated by noise.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CheetahData {
    BaseData head;
    float spotSize;           // radius before the noise modulation
    float layoutVariability;  // jitter of the spot centres around the cell centres
    float spotVariability;    // amplitude of the radius noise
};
static_assert(sizeof(CheetahData) == 48);
static_assert(offsetof(CheetahData, spotSize) == 36 && offsetof(CheetahData, layoutVariability) == 40 &&
              offsetof(CheetahData, spotVariability) == 44);

class GRAINSMITH_API CheetahTexture3D : public TextureKind<CheetahTexture3D, CheetahData> {
public:
    static constexpr char kName[] = "Cheetah";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    float getSpotSize() const { return data_.spotSize; }
    void setSpotSize(float v) { data_.spotSize = v; }
    float getLayoutVariability() const { return data_.layoutVariability; }
    void setLayoutVariability(float v) { data_.layoutVariability = v; }
    float getSpotVariability() const { return data_.spotVariability; }
    void setSpotVariability(float v) { data_.spotVariability = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;

private:
    // Distance from the point to the nearest spot centre of the 3 x 3 (x 3) cells around it.
    float distToCell2(float x, float y) const;
    float distToCell3(float x, float y, float z) const;
};

}  // namespace grainsmith
