// "Corrugated": a wave along x, constant in y and z, of one of five shapes, in [0, 1].
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CorrugatedData {
    BaseData head;
    int32_t style;
};
static_assert(sizeof(CorrugatedData) == 40);
static_assert(offsetof(CorrugatedData, style) == 36);

class GRAINSMITH_API CorrugatedTexture3D : public TextureKind<CorrugatedTexture3D, CorrugatedData> {
public:
    static constexpr char kName[] = "Corrugated";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    // The wave's shape; values outside the enum give a half sine per period.
    enum Style : int32_t { PerlinNoise = 0, Sawtooth = 1, Ribbon = 2, Sine = 3, Triangle = 4 };

    int getStyle() const { return data_.style; }
    void setStyle(int v) { data_.style = v; }

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
