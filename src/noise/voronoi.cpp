// Voronoi cellular noise: one tabled feature point per unit cube, single precision.
//
// The sample's own cube and its 26 neighbours are visited (only the z = 0 layer in the
// planar form); the four smallest distances are kept in ascending order together with the
// absolute positions of their feature points.
#include <cmath>
#include <cstdint>

#include "grainsmith/noise/cellular.h"
#include "grainsmith/numeric.h"
#include "noise/cellular_tables.h"

namespace grainsmith::Voronoi {
namespace {

using cellular::kVoronoiHash;
using cellular::kVoronoiPoints;

constexpr float kFar = 3.4028235e38f;  // the largest float: no point found yet

// The final scale of every value, applied in double: sqrt(2), then 1 / sqrt(3).
constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kInvSqrt3 = 0.5773502691896258;

float distance(float dx, float dy, float dz, int method) {
    switch (method) {
        case SquaredLength:
            return dx * dx + dy * dy + dz * dz;
        case Taxicab: {
            // Squared on purpose, like Chebychev and Minkowski(0.5).
            const float s = std::fabs(dx) + std::fabs(dy) + std::fabs(dz);
            return s * s;
        }
        case Chebychev: {
            const float ax = std::fabs(dx), ay = std::fabs(dy), az = std::fabs(dz);
            const float mxy = ax > ay ? ax : ay;
            const float m = mxy > az ? mxy : az;
            return m * m;
        }
        case Quadratic:
            return dx * dx + dy * dy + dz * dz + dx * dy + dz * dx + dz * dy;
        case Minkowski4: {
            const float s = ((dx * dx) * dx) * dx + ((dy * dy) * dy) * dy + ((dz * dz) * dz) * dz;
            return std::pow(s, 0.25f);
        }
        case Minkowski05: {
            const float s = std::sqrt(std::fabs(dx)) + std::sqrt(std::fabs(dy)) + std::sqrt(std::fabs(dz));
            return s * s;
        }
        default:  // Length, and any code outside the table
            return std::sqrt(dx * dx + dy * dy + dz * dz);
    }
}

// Keeps the four smallest distances in ascending order; a distance equal to a kept one
// goes after it.
void insert(float d, float px, float py, float pz, float F[4], float positions[4][3]) {
    int slot;
    if (d < F[0]) {
        slot = 0;
    } else if (d < F[1]) {
        slot = 1;
    } else if (d < F[2]) {
        slot = 2;
    } else if (d < F[3]) {
        slot = 3;
    } else {
        return;
    }
    for (int i = 3; i > slot; --i) {
        F[i] = F[i - 1];
        positions[i][0] = positions[i - 1][0];
        positions[i][1] = positions[i - 1][1];
        positions[i][2] = positions[i - 1][2];
    }
    F[slot] = d;
    positions[slot][0] = px;
    positions[slot][1] = py;
    positions[slot][2] = pz;
}

// Cube index of a coordinate: a true floor (an integral value is kept). NaN, infinities
// and values beyond the int32 range give INT32_MIN; the neighbours around it wrap.
uint32_t cubeOf(float v) { return static_cast<uint32_t>(toInt32(std::floor(v))); }

void search(float x, float y, float z, bool planar, float F[4], float positions[4][3], int method) {
    for (int i = 0; i < 4; ++i) {
        F[i] = kFar;
        positions[i][0] = positions[i][1] = positions[i][2] = 0.0f;
    }
    const uint32_t xi = cubeOf(x);
    const uint32_t yi = cubeOf(y);
    const uint32_t zi = planar ? 1u : cubeOf(z);  // planar: only the layer cz = 0
    const uint32_t zCount = planar ? 1u : 3u;

    for (uint32_t ox = 0; ox < 3u; ++ox) {
        const uint32_t cx = xi + ox - 1u;
        const float fx = static_cast<float>(static_cast<int32_t>(cx));
        for (uint32_t oy = 0; oy < 3u; ++oy) {
            const uint32_t cy = yi + oy - 1u;
            const float fy = static_cast<float>(static_cast<int32_t>(cy));
            for (uint32_t oz = 0; oz < zCount; ++oz) {
                const uint32_t cz = zi + oz - 1u;
                const float fz = static_cast<float>(static_cast<int32_t>(cz));
                const uint32_t k = kVoronoiHash[(kVoronoiHash[(kVoronoiHash[cz & 255u] + cy) & 255u] + cx) & 255u];
                const float px = fx + kVoronoiPoints[k][0];
                const float py = fy + kVoronoiPoints[k][1];
                const float pz = fz + kVoronoiPoints[k][2];
                insert(distance(x - px, y - py, z - pz, method), px, py, pz, F, positions);
            }
        }
    }
}

float scaled(float v) { return static_cast<float>(static_cast<double>(v) * kSqrt2 * kInvSqrt3); }

float select(const float F[4], int type) {
    switch (type) {
        case Second:
            return scaled(F[1]);
        case Third:
            return scaled(F[2]);
        case Fourth:
            return scaled(F[3]);
        case Difference21:
            return scaled(F[1] - F[0]);
        case Difference32:
            return scaled(F[2] - F[1]);
        case Tile: {
            // The amplified, already scaled difference, but never below 1; scaled once more.
            const float v = 20.0f * scaled(F[1] - F[0]);
            return scaled(v > 1.0f ? v : 1.0f);
        }
        default:  // First, and any code outside 0..6
            return scaled(F[0]);
    }
}

}  // namespace

void voronoi_search3(float x, float y, float z, float F[4], float positions[4][3], int method) {
    search(x, y, z, false, F, positions, method);
}

void voronoi_search2(float x, float y, float F[4], float positions[4][3], int method) {
    search(x, y, 0.0f, true, F, positions, method);
}

float voronoi_value3(float x, float y, float z, int type, int method) {
    float F[4];
    float positions[4][3];
    search(x, y, z, false, F, positions, method);
    return select(F, type);
}

float voronoi_value2(float x, float y, int type, int method) {
    float F[4];
    float positions[4][3];
    search(x, y, 0.0f, true, F, positions, method);
    return select(F, type);
}

}  // namespace grainsmith::Voronoi
