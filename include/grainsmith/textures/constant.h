// "Constant": the same grey everywhere.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct ConstantData {
    BaseData head;
    float constant;
};
static_assert(sizeof(ConstantData) == 40);
static_assert(offsetof(ConstantData, constant) == 36);

class GRAINSMITH_API ConstantTexture3D : public TextureKind<ConstantTexture3D, ConstantData> {
public:
    static constexpr char kName[] = "Constant";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    float getConstant() const { return data_.constant; }
    void setConstant(float v) { data_.constant = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
