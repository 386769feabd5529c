// "Zigzag": diagonal bands two cells wide, alternating dark (0.25) and light (0.75), that
// step at every unit square to a zigzag; optionally random greys per brick-like cell.
// x and y only.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct ZigzagData {
    BaseData head;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float variability;
};
static_assert(sizeof(ZigzagData) == 44);
static_assert(offsetof(ZigzagData, randomizeColors) == 36 && offsetof(ZigzagData, variability) == 40);

class GRAINSMITH_API ZigzagTexture3D : public TextureKind<ZigzagTexture3D, ZigzagData> {
public:
    static constexpr char kName[] = "Zigzag";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getVariability() const { return data_.variability; }
    void setVariability(float v) { data_.variability = v; }

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
