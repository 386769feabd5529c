// "Penrose Rhombus": a Penrose tiling of fat and skinny rhombi in the x-y plane, found by a
// pentagrid search, each rhombus shaded with its kind's grey and darkened smoothly towards its
// edges. z is never read. No name creates it; construct the class directly.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct PenroseRhombusData {
    BaseData head;
    float skinnyColor;
    float fatColor;
    RecordBool skinnyRandomize;  // stored and carried, never evaluated
    uint8_t padding1[3];
    float skinnyMinColor;
    float skinnyMaxColor;
    RecordBool fatRandomize;
    uint8_t padding2[3];
    float fatMinColor;
    float fatMaxColor;
};
static_assert(sizeof(PenroseRhombusData) == 68);
static_assert(offsetof(PenroseRhombusData, skinnyColor) == 36 && offsetof(PenroseRhombusData, fatColor) == 40 &&
              offsetof(PenroseRhombusData, skinnyRandomize) == 44 &&
              offsetof(PenroseRhombusData, skinnyMinColor) == 48 &&
              offsetof(PenroseRhombusData, skinnyMaxColor) == 52 && offsetof(PenroseRhombusData, fatRandomize) == 56 &&
              offsetof(PenroseRhombusData, fatMinColor) == 60 && offsetof(PenroseRhombusData, fatMaxColor) == 64);

class GRAINSMITH_API PenroseRhombusTexture3D : public TextureKind<PenroseRhombusTexture3D, PenroseRhombusData> {
public:
    static constexpr char kName[] = "Penrose Rhombus";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    char* getDescriptionPointer() { return reinterpret_cast<char*>(&data_); }

    float getSkinnyColor() const { return data_.skinnyColor; }
    void setSkinnyColor(float v) { data_.skinnyColor = v; }
    float getFatColor() const { return data_.fatColor; }
    void setFatColor(float v) { data_.fatColor = v; }
    bool getSkinnyRandomize() const { return data_.skinnyRandomize; }
    void setSkinnyRandomize(bool on) { data_.skinnyRandomize = on; }
    float getSkinnyMinColor() const { return data_.skinnyMinColor; }
    void setSkinnyMinColor(float v) { data_.skinnyMinColor = v; }
    float getSkinnyMaxColor() const { return data_.skinnyMaxColor; }
    void setSkinnyMaxColor(float v) { data_.skinnyMaxColor = v; }
    bool getFatRandomize() const { return data_.fatRandomize; }
    void setFatRandomize(bool on) { data_.fatRandomize = on; }
    float getFatMinColor() const { return data_.fatMinColor; }
    void setFatMinColor(float v) { data_.fatMinColor = v; }
    float getFatMaxColor() const { return data_.fatMaxColor; }
    // Writes the skinny maximum, exactly like setSkinnyMaxColor: kept as the interface has it.
    void setFatMaxColor(float v) { data_.skinnyMaxColor = v; }

    float evaluate(const float* p) const;

private:
    // The rhombus holding (x, y): its local coordinates u, v (each 0..1 inside it) and its kind
    // (0 skinny, 1 fat); all three stay 0 when no candidate holds the point.
    static void find_penrose_rhomb(float x, float y, float out[3]);
};

}  // namespace grainsmith
