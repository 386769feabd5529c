// The record and accessors shared by "Dents" and "Erosion": a magnitude and a scale for the
// folded-noise sum that both kinds shape in their own way.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct FoldedNoiseData {
    BaseData head;
    float magnitude;
    float scale;
};
static_assert(sizeof(FoldedNoiseData) == 44);
static_assert(offsetof(FoldedNoiseData, magnitude) == 36 && offsetof(FoldedNoiseData, scale) == 40);

template <class Derived>
class FoldedNoiseKind : public TextureKind<Derived, FoldedNoiseData> {
public:
    float getMagnitude() const { return this->data_.magnitude; }
    void setMagnitude(float v) { this->data_.magnitude = v; }
    float getScale() const { return this->data_.scale; }
    void setScale(float v) { this->data_.scale = v; }
};

}  // namespace grainsmith
