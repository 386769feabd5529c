// "Gradient": a linear ramp along any of the three axes, repeating with period 2.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct GradientData {
    BaseData head;
    RecordBool xDir;
    RecordBool yDir;
    RecordBool zDir;
};
static_assert(sizeof(GradientData) == 39);
static_assert(offsetof(GradientData, xDir) == 36 && offsetof(GradientData, yDir) == 37 &&
              offsetof(GradientData, zDir) == 38);

class GRAINSMITH_API GradientTexture3D : public TextureKind<GradientTexture3D, GradientData> {
public:
    static constexpr char kName[] = "Gradient";
    static constexpr int kMajor = 2;
    static ParamTable parameters();

    bool getXDir() const { return data_.xDir; }
    void setXDir(bool on) { data_.xDir = on; }
    bool getYDir() const { return data_.yDir; }
    void setYDir(bool on) { data_.yDir = on; }
    bool getZDir() const { return data_.zDir; }
    void setZDir(bool on) { data_.zDir = on; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
