// "Checkerboard": alternating unit cubes, optionally with random greys, or nested checkers
// that subdivide each cube `depth` times.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct CheckerboardData {
    BaseData head;
    int32_t depth;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float variability;
};
static_assert(sizeof(CheckerboardData) == 48);
static_assert(offsetof(CheckerboardData, depth) == 36 && offsetof(CheckerboardData, randomizeColors) == 40 &&
              offsetof(CheckerboardData, variability) == 44);

class GRAINSMITH_API CheckerboardTexture3D : public TextureKind<CheckerboardTexture3D, CheckerboardData> {
public:
    static constexpr char kName[] = "Checkerboard";
    static constexpr int kMajor = 3;
    static ParamTable parameters();

    int getDepth() const { return data_.depth; }
    void setDepth(int v) { data_.depth = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getVariability() const { return data_.variability; }
    void setVariability(float v) { data_.variability = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
