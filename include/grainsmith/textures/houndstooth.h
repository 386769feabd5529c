// "Houndstooth": a two-tone check of broken squares repeating every 2 x 2 unit cells of
// the x-y plane (z is never read), in four variants; light and dark cells joined by
// diagonal bands through the mixed cells, optionally with random greys per region.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct HoundstoothData {
    BaseData head;
    int32_t pattern;
    RecordBool randomizeColors;
    uint8_t padding[3];
    float variability;
};
static_assert(sizeof(HoundstoothData) == 48);
static_assert(offsetof(HoundstoothData, pattern) == 36 && offsetof(HoundstoothData, randomizeColors) == 40 &&
              offsetof(HoundstoothData, variability) == 44);

class GRAINSMITH_API HoundstoothTexture3D : public TextureKind<HoundstoothTexture3D, HoundstoothData> {
public:
    static constexpr char kName[] = "Houndstooth";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    // Values outside the enum evaluate as Traditional.
    enum Pattern : int32_t { Chevron = 0, Onyx = 1, Sherlock = 2, Traditional = 3 };

    int getPattern() const { return data_.pattern; }
    void setPattern(int v) { data_.pattern = v; }
    bool getRandomizeColors() const { return data_.randomizeColors; }
    void setRandomizeColors(bool on) { data_.randomizeColors = on; }
    float getVariability() const { return data_.variability; }
    void setVariability(float v) { data_.variability = v; }

    float evaluate(const float* p) const;

private:
    float chevron(const float* p) const;
    float onyx(const float* p) const;
    float sherlock(const float* p) const;
    float traditional(const float* p) const;
};

}  // namespace grainsmith
