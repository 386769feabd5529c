// "Voronoi Tiles": the cells of a jittered grid drawn as tiles (1, or a random grey per
// tile, optionally with noise added) separated by grout (0) of controllable thickness.
// The boundaries can be roughened by perturbing the point with 1-D noise first.
#pragma once


#include "grainsmith/texture_kind.h"

namespace grainsmith {

struct VoronoiTileData {
    BaseData head;
    float cellVariability;  // jitter of the feature point around its cell centre
    RecordBool cellRandomizeColors;
    uint8_t padding1[3];
    float cellMinColor;
    float cellMaxColor;
    RecordBool cellAddNoise;
    uint8_t padding2[3];
    int32_t cellOctaves;
    float cellLacunarity;
    float cellGain;
    float cellDetail;  // coordinate factor of the planar tile noise
    float boundaryThickness;
    RecordBool boundaryAddNoise;
    uint8_t padding3[3];
    int32_t boundaryOctaves;
    float boundaryLacunarity;
    float boundaryGain;
    float boundaryDetail;  // coordinate factor of the boundary noise
};
static_assert(sizeof(VoronoiTileData) == 96);
static_assert(offsetof(VoronoiTileData, cellVariability) == 36 &&
              offsetof(VoronoiTileData, cellRandomizeColors) == 40 && offsetof(VoronoiTileData, cellMinColor) == 44 &&
              offsetof(VoronoiTileData, cellMaxColor) == 48 && offsetof(VoronoiTileData, cellAddNoise) == 52 &&
              offsetof(VoronoiTileData, cellOctaves) == 56 && offsetof(VoronoiTileData, cellLacunarity) == 60 &&
              offsetof(VoronoiTileData, cellGain) == 64 && offsetof(VoronoiTileData, cellDetail) == 68 &&
              offsetof(VoronoiTileData, boundaryThickness) == 72 &&
              offsetof(VoronoiTileData, boundaryAddNoise) == 76 && offsetof(VoronoiTileData, boundaryOctaves) == 80 &&
              offsetof(VoronoiTileData, boundaryLacunarity) == 84 && offsetof(VoronoiTileData, boundaryGain) == 88 &&
              offsetof(VoronoiTileData, boundaryDetail) == 92);

class GRAINSMITH_API VoronoiTileTexture3D : public TextureKind<VoronoiTileTexture3D, VoronoiTileData> {
public:
    static constexpr char kName[] = "Voronoi Tiles";
    static constexpr int kMajor = 1;
    static ParamTable parameters();

    float getCellVariability() const { return data_.cellVariability; }
    void setCellVariability(float v) { data_.cellVariability = v; }
    bool getCellRandomizeColors() const { return data_.cellRandomizeColors; }
    void setCellRandomizeColors(bool on) { data_.cellRandomizeColors = on; }
    float getCellMinColor() const { return data_.cellMinColor; }
    void setCellMinColor(float v) { data_.cellMinColor = v; }
    float getCellMaxColor() const { return data_.cellMaxColor; }
    void setCellMaxColor(float v) { data_.cellMaxColor = v; }
    bool getCellAddNoise() const { return data_.cellAddNoise; }
    void setCellAddNoise(bool on) { data_.cellAddNoise = on; }
    int getCellOctaves() const { return data_.cellOctaves; }
    void setCellOctaves(float v);  // stored truncated toward zero
    float getCellLacunarity() const { return data_.cellLacunarity; }
    void setCellLacunarity(float v) { data_.cellLacunarity = v; }
    float getCellGain() const { return data_.cellGain; }
    void setCellGain(float v) { data_.cellGain = v; }
    float getCellDetail() const { return data_.cellDetail; }
    void setCellDetail(float v) { data_.cellDetail = v; }
    float getBoundaryThickness() const { return data_.boundaryThickness; }
    void setBoundaryThickness(float v) { data_.boundaryThickness = v; }
    bool getBoundaryAddNoise() const { return data_.boundaryAddNoise; }
    void setBoundaryAddNoise(bool on) { data_.boundaryAddNoise = on; }
    int getBoundaryOctaves() const { return data_.boundaryOctaves; }
    void setBoundaryOctaves(float v);  // stored truncated toward zero
    float getBoundaryLacunarity() const { return data_.boundaryLacunarity; }
    void setBoundaryLacunarity(float v) { data_.boundaryLacunarity = v; }
    float getBoundaryGain() const { return data_.boundaryGain; }
    void setBoundaryGain(float v) { data_.boundaryGain = v; }
    float getBoundaryDetail() const { return data_.boundaryDetail; }
    void setBoundaryDetail(float v) { data_.boundaryDetail = v; }

    float evaluate(const float* p) const;
    void evaluateBatch(const float* points, int n, float* out) const;
};

}  // namespace grainsmith
