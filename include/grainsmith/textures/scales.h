// "Scales": overlapping fish scales in the x-y plane, in rows offset by half a scale, each
// row lying over the one below it so that every scale shows its rounded free end. Each scale
// blends from a base colour at its root to a body colour and an edge colour along its rim,
// with optional shading along and across it and noise-driven size variation. z is never read.
#pragma once

#include "grainsmith/texture_kind.h"

namespace grainsmith {

// Every field takes four bytes; a boolean sits in the first byte of its four.
struct ScalesData {
    BaseData head;
    int32_t scaleShape;  // ScalesTexture3D::ScaleShape; a record may carry any value
    RecordBool shadingAlongEnable;
    uint8_t padding1[3];
    float shadingAlongStrength;
    RecordBool shadingAcrossEnable;
    uint8_t padding2[3];
    float shadingAcrossStrength;
    float baseDimension;  // scale width in texture units
    float edgeDimension;  // width of the rim band in texture units
    RecordBool scaleVariabilityEnable;
    uint8_t padding3[3];
    float scaleVariabilityFrequency;
    float scaleVariabilityAmplitude;
    float baseColor;
    RecordBool baseRandomizeColors;
    uint8_t padding4[3];
    float baseMinColor;
    float baseMaxColor;
    float bodyColor;
    RecordBool bodyRandomizeColors;
    uint8_t padding5[3];
    float bodyMinColor;
    float bodyMaxColor;
    float edgeColor;
    RecordBool edgeRandomizeColors;
    uint8_t padding6[3];
    float edgeMinColor;
    float edgeMaxColor;
};
static_assert(sizeof(ScalesData) == 124);
static_assert(offsetof(ScalesData, scaleShape) == 36 && offsetof(ScalesData, shadingAlongEnable) == 40 &&
              offsetof(ScalesData, shadingAlongStrength) == 44 && offsetof(ScalesData, shadingAcrossEnable) == 48 &&
              offsetof(ScalesData, shadingAcrossStrength) == 52 && offsetof(ScalesData, baseDimension) == 56 &&
              offsetof(ScalesData, edgeDimension) == 60 && offsetof(ScalesData, scaleVariabilityEnable) == 64 &&
              offsetof(ScalesData, scaleVariabilityFrequency) == 68 &&
              offsetof(ScalesData, scaleVariabilityAmplitude) == 72 && offsetof(ScalesData, baseColor) == 76 &&
              offsetof(ScalesData, baseRandomizeColors) == 80 && offsetof(ScalesData, baseMinColor) == 84 &&
              offsetof(ScalesData, baseMaxColor) == 88 && offsetof(ScalesData, bodyColor) == 92 &&
              offsetof(ScalesData, bodyRandomizeColors) == 96 && offsetof(ScalesData, bodyMinColor) == 100 &&
              offsetof(ScalesData, bodyMaxColor) == 104 && offsetof(ScalesData, edgeColor) == 108 &&
              offsetof(ScalesData, edgeRandomizeColors) == 112 && offsetof(ScalesData, edgeMinColor) == 116 &&
              offsetof(ScalesData, edgeMaxColor) == 120);

class GRAINSMITH_API ScalesTexture3D : public TextureKind<ScalesTexture3D, ScalesData> {
public:
    enum ScaleShape : int32_t { Round = 0, Pointed = 1, Diamond = 2 };

    static constexpr char kName[] = "Scales";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    int getScaleShape() const { return data_.scaleShape; }
    void setScaleShape(int v) { data_.scaleShape = v; }
    bool getShadingAlongEnable() const { return data_.shadingAlongEnable; }
    void setShadingAlongEnable(bool on) { data_.shadingAlongEnable = on; }
    float getShadingAlongStrength() const { return data_.shadingAlongStrength; }
    void setShadingAlongStrength(float v) { data_.shadingAlongStrength = v; }
    bool getShadingAcrossEnable() const { return data_.shadingAcrossEnable; }
    void setShadingAcrossEnable(bool on) { data_.shadingAcrossEnable = on; }
    float getShadingAcrossStrength() const { return data_.shadingAcrossStrength; }
    void setShadingAcrossStrength(float v) { data_.shadingAcrossStrength = v; }
    float getBaseDimension() const { return data_.baseDimension; }
    void setBaseDimension(float v) { data_.baseDimension = v; }
    float getEdgeDimension() const { return data_.edgeDimension; }
    void setEdgeDimension(float v) { data_.edgeDimension = v; }
    bool getScaleVariabilityEnable() const { return data_.scaleVariabilityEnable; }
    void setScaleVariabilityEnable(bool on) { data_.scaleVariabilityEnable = on; }
    float getScaleVariabilityFrequency() const { return data_.scaleVariabilityFrequency; }
    void setScaleVariabilityFrequency(float v) { data_.scaleVariabilityFrequency = v; }
    float getScaleVariabilityAmplitude() const { return data_.scaleVariabilityAmplitude; }
    void setScaleVariabilityAmplitude(float v) { data_.scaleVariabilityAmplitude = v; }
    float getBaseColor() const { return data_.baseColor; }
    void setBaseColor(float v) { data_.baseColor = v; }
    bool getBaseRandomizeColors() const { return data_.baseRandomizeColors; }
    void setBaseRandomizeColors(bool on) { data_.baseRandomizeColors = on; }
    float getBaseMinColor() const { return data_.baseMinColor; }
    void setBaseMinColor(float v) { data_.baseMinColor = v; }
    float getBaseMaxColor() const { return data_.baseMaxColor; }
    void setBaseMaxColor(float v) { data_.baseMaxColor = v; }
    float getBodyColor() const { return data_.bodyColor; }
    void setBodyColor(float v) { data_.bodyColor = v; }
    bool getBodyRandomizeColors() const { return data_.bodyRandomizeColors; }
    void setBodyRandomizeColors(bool on) { data_.bodyRandomizeColors = on; }
    float getBodyMinColor() const { return data_.bodyMinColor; }
    void setBodyMinColor(float v) { data_.bodyMinColor = v; }
    float getBodyMaxColor() const { return data_.bodyMaxColor; }
    void setBodyMaxColor(float v) { data_.bodyMaxColor = v; }
    float getEdgeColor() const { return data_.edgeColor; }
    void setEdgeColor(float v) { data_.edgeColor = v; }
    bool getEdgeRandomizeColors() const { return data_.edgeRandomizeColors; }
    void setEdgeRandomizeColors(bool on) { data_.edgeRandomizeColors = on; }
    float getEdgeMinColor() const { return data_.edgeMinColor; }
    void setEdgeMinColor(float v) { data_.edgeMinColor = v; }
    float getEdgeMaxColor() const { return data_.edgeMaxColor; }
    void setEdgeMaxColor(float v) { data_.edgeMaxColor = v; }

    float evaluate(const float* p) const;
};

}  // namespace grainsmith
