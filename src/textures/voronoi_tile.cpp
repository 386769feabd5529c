#include "grainsmith/textures/voronoi_tile.h"

#include <cfloat>
#include <cmath>

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable VoronoiTileTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "cellVariability", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellVariability),
         .defaultValue = 0.5, .group = "Cells", .label = "Variability", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 1.0, .step = 0.05, .decimals = 3},
        {.name = "cellRandomizeColors", .type = FieldType::Bool,
         .offset = offsetof(VoronoiTileData, cellRandomizeColors), .defaultValue = 0, .group = "Cell Colors",
         .label = "Randomize", .widget = Widget::Toggle},
        {.name = "cellMinColor", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellMinColor),
         .defaultValue = 0.5, .group = "Cell Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "cellMaxColor", .partnerRule = PartnerRule::Raise},
        {.name = "cellMaxColor", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellMaxColor),
         .defaultValue = 1.0, .group = "Cell Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .partner = "cellMinColor", .partnerRule = PartnerRule::Lower},
        {.name = "cellAddNoise", .type = FieldType::Bool, .offset = offsetof(VoronoiTileData, cellAddNoise),
         .defaultValue = 0, .group = "Cell Noise", .label = "Enable", .widget = Widget::Toggle},
        {.name = "cellOctaves", .type = FieldType::Int32, .offset = offsetof(VoronoiTileData, cellOctaves),
         .defaultValue = 2, .group = "Cell Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16},
        {.name = "cellLacunarity", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellLacunarity),
         .defaultValue = 2.0, .group = "Cell Noise", .label = "Lacunarity", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3},
        {.name = "cellGain", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellGain),
         .defaultValue = 0.5, .group = "Cell Noise", .label = "Gain", .widget = Widget::DoubleSpin, .minimum = 0.0,
         .maximum = 99.99, .step = 0.05, .decimals = 3},
        {.name = "cellDetail", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, cellDetail),
         .defaultValue = 2.0, .group = "Cell Noise", .label = "Detail", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3},
        {.name = "boundaryThickness", .type = FieldType::Float32,
         .offset = offsetof(VoronoiTileData, boundaryThickness), .defaultValue = 0.05, .group = "Boundary",
         .label = "Thickness", .widget = Widget::DoubleSpin, .minimum = 0.0, .maximum = 99.99, .step = 0.01,
         .decimals = 3},
        {.name = "boundaryAddNoise", .type = FieldType::Bool, .offset = offsetof(VoronoiTileData, boundaryAddNoise),
         .defaultValue = 0, .group = "Boundary Noise", .label = "Enable", .widget = Widget::Toggle},
        {.name = "boundaryOctaves", .type = FieldType::Int32, .offset = offsetof(VoronoiTileData, boundaryOctaves),
         .defaultValue = 4, .group = "Boundary Noise", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16},
        {.name = "boundaryLacunarity", .type = FieldType::Float32,
         .offset = offsetof(VoronoiTileData, boundaryLacunarity), .defaultValue = 2.0, .group = "Boundary Noise",
         .label = "Lacunarity", .widget = Widget::DoubleSpin, .minimum = 0.0, .maximum = 99.99, .step = 0.1,
         .decimals = 3},
        {.name = "boundaryGain", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, boundaryGain),
         .defaultValue = 0.5, .group = "Boundary Noise", .label = "Gain", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.05, .decimals = 3},
        {.name = "boundaryDetail", .type = FieldType::Float32, .offset = offsetof(VoronoiTileData, boundaryDetail),
         .defaultValue = 2.0, .group = "Boundary Noise", .label = "Detail", .widget = Widget::DoubleSpin,
         .minimum = 0.0, .maximum = 99.99, .step = 0.1, .decimals = 3},
    };
    return table;
}

void VoronoiTileTexture3D::setCellOctaves(float v) { data_.cellOctaves = toInt32(v); }
void VoronoiTileTexture3D::setBoundaryOctaves(float v) { data_.boundaryOctaves = toInt32(v); }

namespace {

// The lattice floor of the gradient noise: truncation toward zero, minus one for negative
// values and for NaN (so NaN gives INT32_MAX after wrapping).
int32_t latticeFloor(float c) {
    const int32_t i = toInt32(c);
    return (c < 0.0f || c != c) ? static_cast<int32_t>(static_cast<uint32_t>(i) - 1u) : i;
}

float hashToUnit(uint32_t h) {
    h ^= h << 13;
    const uint32_t v = (h * h * 15731u + 789221u) * h + 1376312589u;
    return static_cast<float>(v) * 2.3283064e-10f;
}

// Per-cell random values in [0, 1) of the cells holding (a, b) and (a, b, c).
float cellHash2(float a, float b) {
    const uint32_t h = static_cast<uint32_t>(latticeFloor(b)) * 1301u + static_cast<uint32_t>(latticeFloor(a));
    return hashToUnit(h);
}

float cellHash3(float a, float b, float c) {
    const uint32_t h = static_cast<uint32_t>(latticeFloor(b)) * 1301u +
                       static_cast<uint32_t>(latticeFloor(c)) * 314159u + static_cast<uint32_t>(latticeFloor(a));
    return hashToUnit(h);
}

// Octave sum of 1-D noise that roughens the tile boundaries.
float boundaryNoise(float t, int octaves, float lacunarity, float gain) {
    const int count = capLoopCount(octaves);
    float w = 1.0f, s = 0.0f;
    for (int i = 0; i < count; ++i) {
        s += improved_noise1(t) * w;
        t *= lacunarity;
        w *= gain;
    }
    return s;
}

// Octave sum of the tile noise, with the record's lacunarity and gain.
float tileNoise2(float x, float y, int octaves, float lacunarity, float gain) {
    const int count = capLoopCount(octaves);
    float w = 1.0f, sum = 0.0f;
    for (int i = 0; i < count; ++i) {
        const float n = improved_noise2(x, y);
        x *= lacunarity;
        y *= lacunarity;
        sum += n * w;
        w *= gain;
    }
    return sum;
}

float tileNoise3(float x, float y, float z, int octaves, float lacunarity, float gain) {
    const int count = capLoopCount(octaves);
    float w = 1.0f, sum = 0.0f;
    for (int i = 0; i < count; ++i) {
        const float n = improved_noise3(x, y, z);
        x *= lacunarity;
        y *= lacunarity;
        z *= lacunarity;
        sum += n * w;
        w *= gain;
    }
    return sum;
}

// The nearest and second nearest feature points: squared distances while searching,
// distances once done. Points not yet found stay at the origin.
struct Nearest {
    float f1 = FLT_MAX, f2 = FLT_MAX;
    float c1[3] = {0.0f, 0.0f, 0.0f};
    float c2[3] = {0.0f, 0.0f, 0.0f};

    void offer(float d, float px, float py, float pz) {
        if (d < f1) {
            f2 = f1;
            c2[0] = c1[0], c2[1] = c1[1], c2[2] = c1[2];
            f1 = d;
            c1[0] = px, c1[1] = py, c1[2] = pz;
        } else if (d < f2) {
            f2 = d;
            c2[0] = px, c2[1] = py, c2[2] = pz;
        }
    }
    void finish() {
        f1 = std::sqrt(f1);
        f2 = std::sqrt(f2);
    }
};

Nearest searchPlane(float x, float y, float jitter) {
    Nearest n;
    const float cx = static_cast<float>(latticeFloor(x)) + 0.5f;
    const float cy = static_cast<float>(latticeFloor(y)) + 0.5f;
    for (int dx = -1; dx <= 1; ++dx) {
        for (int dy = -1; dy <= 1; ++dy) {
            const float X = cx + static_cast<float>(dx);
            const float Y = cy + static_cast<float>(dy);
            const float px = X + (cellHash3(X, Y, 0.0f) - 0.5f) * jitter;
            const float py = Y + (cellHash3(X + 23.0f, Y - 87.0f, 0.0f) - 0.5f) * jitter;
            const float ey = py - y, ex = px - x;
            n.offer(ey * ey + ex * ex, px, py, 0.0f);
        }
    }
    n.finish();
    return n;
}

Nearest searchSpace(float x, float y, float z, float jitter) {
    Nearest n;
    const float cx = static_cast<float>(latticeFloor(x)) + 0.5f;
    const float cy = static_cast<float>(latticeFloor(y)) + 0.5f;
    const float cz = static_cast<float>(latticeFloor(z)) + 0.5f;
    for (int dx = -1; dx <= 1; ++dx) {
        for (int dy = -1; dy <= 1; ++dy) {
            for (int dz = -1; dz <= 1; ++dz) {
                const float X = cx + static_cast<float>(dx);
                const float Y = cy + static_cast<float>(dy);
                const float Z = cz + static_cast<float>(dz);
                // y and z share one random value.
                const float r1 = cellHash3(X, Y, Z);
                const float r2 = cellHash3(Y, Z, X);
                const float px = X + (r1 - 0.5f) * jitter;
                const float py = Y + (r2 - 0.5f) * jitter;
                const float pz = Z + (r2 - 0.5f) * jitter;
                const float ez = pz - z, ey = py - y, ex = px - x;
                n.offer(ez * ez + ey * ey + ex * ex, px, py, pz);
            }
        }
    }
    n.finish();
    return n;
}

float length2(float a, float b) { return std::sqrt(a * a + b * b); }
float length3(float a, float b, float c) { return std::sqrt(a * a + b * b + c * c); }

// Roughens one coordinate: the sum is formed in double and rounded once.
float perturb(float c, const VoronoiTileData& d) {
    const float b = boundaryNoise(c * d.boundaryDetail, d.boundaryOctaves, d.boundaryLacunarity, d.boundaryGain);
    return static_cast<float>(static_cast<double>(c) + 0.15 * static_cast<double>(b));
}

}  // namespace

float VoronoiTileTexture3D::evaluate(const float* p) const {
    const VoronoiTileData& d = data_;
    const bool plane = planar();
    float x = p[0], y = p[1], z = plane ? 0.0f : p[2];

    if (getBoundaryAddNoise()) {
        x = perturb(x, d);
        y = perturb(y, d);
        if (!plane) z = perturb(z, d);
    }

    // Inside a tile when the margin between the two nearest feature points exceeds the
    // grout width, scaled by how far apart the two points are relative to the path through p.
    const Nearest n = plane ? searchPlane(x, y, d.cellVariability) : searchSpace(x, y, z, d.cellVariability);
    float ratio;
    if (plane) {
        const float between = length2(n.c2[0] - n.c1[0], n.c2[1] - n.c1[1]);
        const float toFirst = length2(x - n.c1[0], y - n.c1[1]);
        const float toSecond = length2(n.c2[0] - x, n.c2[1] - y);
        ratio = between / (toFirst + toSecond) * d.boundaryThickness;
    } else {
        const float between = length3(n.c2[0] - n.c1[0], n.c2[1] - n.c1[1], n.c2[2] - n.c1[2]);
        const float toFirst = length3(x - n.c1[0], y - n.c1[1], z - n.c1[2]);
        const float toSecond = length3(n.c2[0] - x, n.c2[1] - y, n.c2[2] - z);
        ratio = between / (toFirst + toSecond) * d.boundaryThickness;
    }
    if (!(n.f2 - n.f1 >= ratio)) return 0.0f;  // grout

    float v = 1.0f;
    if (getCellRandomizeColors()) {
        const float r = plane ? cellHash2(n.c1[0], n.c1[1]) : cellHash3(n.c1[0], n.c1[1], n.c1[2]);
        v = d.cellMinColor + (d.cellMaxColor - d.cellMinColor) * r;
    }
    if (getCellAddNoise()) {
        const float s = plane ? tileNoise2(d.cellDetail * x, d.cellDetail * y, d.cellOctaves, d.cellLacunarity,
                                           d.cellGain)
                              : tileNoise3(x, y, z, d.cellOctaves, d.cellLacunarity, d.cellGain);
        v = static_cast<float>(0.15 * static_cast<double>(s) + static_cast<double>(v));
    }
    return clamp01(v);
}

}  // namespace grainsmith
