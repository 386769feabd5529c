#include "grainsmith/textures/voronoi_tile.h"

#include "grainsmith/numeric.h"
#include "hwy/highway.h"
#include "simd/scalar_lanes.h"
#include "textures/batch.h"
#include "textures/cell_kinds-inl.h"

namespace grainsmith {

ParamTable VoronoiTileTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "cellVariability", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellVariability),
         .defaultValue = 0.5, .group = "Cells", .label = "Variability", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 1.0, .step = 0.05, .decimals = 3,
         .description = "Jitter of each tile's centre around its grid cell (0: square tiles)."},
        {.name = "cellRandomizeColors", .type = FieldType::Bool,
         .offset = offsetof(VoronoiTileData, cellRandomizeColors), .defaultValue = 0, .group = "Cell Colors",
         .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives every tile its own random grey between the minimum and maximum."},
        {.name = "cellMinColor", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellMinColor),
         .defaultValue = 0.5, .group = "Cell Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "cellMaxColor", .partnerRule = PartnerRule::Raise,
         .description = "Grey of a tile whose random value is 0."},
        {.name = "cellMaxColor", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellMaxColor),
         .defaultValue = 1.0, .group = "Cell Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "cellMinColor", .partnerRule = PartnerRule::Lower,
         .description = "Grey of a tile whose random value is 1."},
        {.name = "cellAddNoise", .type = FieldType::Bool, .offset = offsetof(VoronoiTileData, cellAddNoise),
         .defaultValue = 0, .group = "Cell Noise", .label = "Enable", .widget = Widget::Toggle,
         .description = "Adds noise to the tiles' greys."},
        {.name = "cellOctaves", .type = FieldType::Int32, .offset = offsetof(VoronoiTileData, cellOctaves),
         .defaultValue = 2, .group = "Cell Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16,
         .description = "Number of octaves of the tiles' noise."},
        {.name = "cellLacunarity", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellLacunarity),
         .defaultValue = 2.0, .group = "Cell Noise", .label = "Lacunarity", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Frequency ratio between octaves of the tiles' noise."},
        {.name = "cellGain", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellGain),
         .defaultValue = 0.5, .group = "Cell Noise", .label = "Gain", .widget = Widget::DoubleSpin, .minimum = 0.0,
         .maximum = 99.99, .step = 0.05, .decimals = 3,
         .description = "Amplitude ratio between octaves of the tiles' noise."},
        {.name = "cellDetail", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellDetail),
         .defaultValue = 2.0, .group = "Cell Noise", .label = "Detail", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Frequency of the first octave of the tiles' noise."},
        {.name = "boundaryThickness", .type = FieldType::Float32,
         .offset = offsetof(VoronoiTileData, boundaryThickness), .defaultValue = 0.05, .group = "Boundary",
         .label = "Thickness", .widget = Widget::DoubleSpin, .minimum = 0.0, .maximum = 99.99, .step = 0.01,
         .decimals = 3,
         .description = "Width of the grout between tiles."},
        {.name = "boundaryAddNoise", .type = FieldType::Bool, .offset = offsetof(VoronoiTileData, boundaryAddNoise),
         .defaultValue = 0, .group = "Boundary Noise", .label = "Enable", .widget = Widget::Toggle,
         .description = "Roughens the grout lines by perturbing the point with noise."},
        {.name = "boundaryOctaves", .type = FieldType::Int32, .offset = offsetof(VoronoiTileData, boundaryOctaves),
         .defaultValue = 4, .group = "Boundary Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16,
         .description = "Number of octaves of the grout perturbation."},
        {.name = "boundaryLacunarity", .type = FieldType::Float32,
         .offset = offsetof(VoronoiTileData, boundaryLacunarity), .defaultValue = 2.0, .group = "Boundary Noise",
         .label = "Lacunarity", .widget = Widget::DoubleSpin, .minimum = 0.0, .maximum = 99.99, .step = 0.1,
         .decimals = 3,
         .description = "Frequency ratio between octaves of the grout perturbation."},
        {.name = "boundaryGain", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, boundaryGain),
         .defaultValue = 0.5, .group = "Boundary Noise", .label = "Gain", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.05, .decimals = 3,
         .description = "Amplitude ratio between octaves of the grout perturbation."},
        {.name = "boundaryDetail", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, boundaryDetail),
         .defaultValue = 2.0, .group = "Boundary Noise", .label = "Detail", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Frequency of the first octave of the grout perturbation."},
    };
    return table;
}

void VoronoiTileTexture3D::setCellOctaves(float v) { data_.cellOctaves = toInt32(v); }
void VoronoiTileTexture3D::setBoundaryOctaves(float v) { data_.boundaryOctaves = toInt32(v); }

float VoronoiTileTexture3D::evaluate(const float* p) const {
    return kind_kernels::HWY_NAMESPACE::voronoiTile<simd::ScalarLanes>(data_, planar(), p[0], p[1], p[2]);
}

void VoronoiTileTexture3D::evaluateBatch(const float* points, int n, float* out) const {
    batch::voronoiTile(data_, planar(), points, n, out);
}

}  // namespace grainsmith
