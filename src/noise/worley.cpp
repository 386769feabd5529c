// Worley cellular noise: a Poisson-distributed number of hashed feature points per unit
// cube, double precision.
//
// The sample is first scaled by a density factor so that the mean point count per cube
// suits the table; the search visits the sample's cube, then only those of its 26
// neighbours whose nearest face, edge or corner is still closer than the farthest kept
// distance, and finally scales the distances and offsets back.
#include <cmath>
#include <cstdint>

#include "core/exact_math.h"
#include "grainsmith/noise/cellular.h"
#include "grainsmith/numeric.h"
#include "noise/cellular_tables.h"

namespace grainsmith::Worley {
namespace {

using cellular::kWorleyPoisson;

constexpr double kDensity = 0.39815;
constexpr double kInvDensity = 2.5116162250408136;  // 1 / kDensity
constexpr double kFar = 999999.9;                   // no point found yet
constexpr double kUnit = 2.3283064365386963e-10;    // 2^-32
constexpr int kMaxOrder = 4;

constexpr uint32_t lcg(uint32_t s) { return 1402024253u * s + 586950981u; }

// The value each metric keeps while searching; its square root is the final distance.
double storedDistance(double dx, double dy, double dz, int method) {
    switch (method) {
        case Squared: {
            const double s = dx * dx + dy * dy + dz * dz;
            return s * s;
        }
        case LargestPlusLength: {
            // m is the component of largest magnitude, with its sign; ties go to x, then y.
            const double ax = std::fabs(dx), ay = std::fabs(dy), az = std::fabs(dz);
            double m, o1, o2;
            if (ax >= ay && ax >= az) {
                m = dx, o1 = dy, o2 = dz;
            } else if (ay >= az) {
                m = dy, o1 = dx, o2 = dz;
            } else {
                m = dz, o1 = dx, o2 = dy;
            }
            const double s = m + std::sqrt(o1 * o1 + o2 * o2);
            return s * s;
        }
        case Taxicab: {
            const double s = std::fabs(dx) + std::fabs(dy) + std::fabs(dz);
            return s * s;
        }
        case Chebychev: {
            const double ax = std::fabs(dx), ay = std::fabs(dy), az = std::fabs(dz);
            const double mxy = ax > ay ? ax : ay;
            const double m = mxy > az ? mxy : az;
            return m * m;
        }
        case Quadratic: {
            const double q = dx * dx + dy * dy + dz * dz + dx * dy + dz * dx + dz * dy;
            return q * q;
        }
        case Minkowski4: {
            // The root is taken in single precision.
            const double s = ((dx * dx) * dx) * dx + ((dy * dy) * dy) * dy + ((dz * dz) * dz) * dz;
            const double r = exact::fourthRoot(static_cast<float>(s));  // powf(s, 0.25f)
            return r * r;
        }
        case Minkowski05: {
            // The fourth power is taken in single precision; the final value is that power
            // itself, the square of the Minkowski(0.5) distance.
            const double s = std::sqrt(std::fabs(dx)) + std::sqrt(std::fabs(dy)) + std::sqrt(std::fabs(dz));
            const double r = exact::fourthPower(static_cast<float>(s));  // powf(s, 4.0f)
            return r * r;
        }
        default:  // Euclidean, and any code outside 0..7
            return dx * dx + dy * dy + dz * dz;
    }
}

struct Search {
    double a[3];  // the sample in cube units
    int order;    // number of distances kept, 1..4
    int method;
    double* F;
    double (*delta)[3];
    uint32_t* id;
};

// Adds the feature points of cube (X, Y, Z); the coordinates wrap like the hash.
void addCube(Search& s, uint32_t X, uint32_t Y, uint32_t Z) {
    uint32_t seed = 702395077u * X + 915488749u * Y + 2120969693u * Z;
    const int count = kWorleyPoisson[seed >> 24];
    if (count < 1) return;
    seed = lcg(seed);

    const double cx = static_cast<double>(static_cast<int32_t>(X));
    const double cy = static_cast<double>(static_cast<int32_t>(Y));
    const double cz = static_cast<double>(static_cast<int32_t>(Z));
    const int last = s.order - 1;
    for (int n = 0; n < count; ++n) {
        const uint32_t pointId = seed;
        seed = lcg(seed);
        const double fx = (static_cast<double>(seed) + 0.5) * kUnit;
        seed = lcg(seed);
        const double fy = (static_cast<double>(seed) + 0.5) * kUnit;
        seed = lcg(seed);
        const double fz = (static_cast<double>(seed) + 0.5) * kUnit;
        seed = lcg(seed);

        const double dx = cx + fx - s.a[0];
        const double dy = cy + fy - s.a[1];
        const double dz = cz + fz - s.a[2];
        const double d = storedDistance(dx, dy, dz, s.method);
        if (d >= s.F[last]) continue;

        int i = last;
        while (i > 0 && d < s.F[i - 1]) --i;
        for (int j = last; j > i; --j) {
            s.F[j] = s.F[j - 1];
            s.id[j] = s.id[j - 1];
            s.delta[j][0] = s.delta[j - 1][0];
            s.delta[j][1] = s.delta[j - 1][1];
            s.delta[j][2] = s.delta[j - 1][2];
        }
        s.F[i] = d;
        s.id[i] = pointId;
        s.delta[i][0] = dx;
        s.delta[i][1] = dy;
        s.delta[i][2] = dz;
    }
}

// The 26 neighbours: the 6 sharing a face, then the 12 sharing an edge, then the 8
// sharing a corner.
struct Offset {
    int8_t x, y, z;
};
constexpr Offset kNeighbours[26] = {
    {-1, 0, 0},  {1, 0, 0},   {0, -1, 0},  {0, 1, 0},   {0, 0, -1},   {0, 0, 1},
    {-1, -1, 0}, {-1, 1, 0},  {1, -1, 0},  {1, 1, 0},   {-1, 0, -1},  {-1, 0, 1},
    {1, 0, -1},  {1, 0, 1},   {0, -1, -1}, {0, -1, 1},  {0, 1, -1},   {0, 1, 1},
    {-1, -1, -1}, {-1, -1, 1}, {-1, 1, -1}, {-1, 1, 1}, {1, -1, -1}, {1, -1, 1},
    {1, 1, -1},  {1, 1, 1},
};

// Cube index of a coordinate: truncated, minus 1 when negative (an exact negative integer
// k gives k - 1). NaN and values beyond the int32 range give INT32_MIN (minus 1 if negative).
uint32_t cubeOf(double v) {
    const uint32_t i = static_cast<uint32_t>(toInt32(v));
    return v < 0.0 ? i - 1u : i;
}

}  // namespace

void worley_search(const double at[3], int maxOrder, double* F, double (*delta)[3], uint32_t* id, int method) {
    if (maxOrder < 1) return;
    Search s{{at[0] * kDensity, at[1] * kDensity, at[2] * kDensity},
             maxOrder > kMaxOrder ? kMaxOrder : maxOrder,
             method < 0 || method > 7 ? 0 : method,
             F,
             delta,
             id};
    for (int i = 0; i < s.order; ++i) {
        F[i] = kFar;
        id[i] = 0;
        delta[i][0] = delta[i][1] = delta[i][2] = 0.0;
    }

    const uint32_t cube[3] = {cubeOf(s.a[0]), cubeOf(s.a[1]), cubeOf(s.a[2])};
    addCube(s, cube[0], cube[1], cube[2]);

    // Squared gaps from the sample to the lower and upper face of its cube, per axis.
    double gapLow[3], gapHigh[3];
    for (int axis = 0; axis < 3; ++axis) {
        const double f = s.a[axis] - static_cast<double>(static_cast<int32_t>(cube[axis]));
        gapLow[axis] = f * f;
        gapHigh[axis] = (1.0 - f) * (1.0 - f);
    }

    // The gap test uses the Euclidean gap whatever the metric keeps.
    const int last = s.order - 1;
    for (const Offset& o : kNeighbours) {
        const int8_t off[3] = {o.x, o.y, o.z};
        double gap = 0.0;
        for (int axis = 0; axis < 3; ++axis) {
            if (off[axis] < 0) gap += gapLow[axis];
            if (off[axis] > 0) gap += gapHigh[axis];
        }
        if (gap < F[last]) {
            addCube(s, cube[0] + static_cast<uint32_t>(static_cast<int32_t>(o.x)),
                    cube[1] + static_cast<uint32_t>(static_cast<int32_t>(o.y)),
                    cube[2] + static_cast<uint32_t>(static_cast<int32_t>(o.z)));
        }
    }

    for (int i = 0; i < s.order; ++i) {
        F[i] = std::sqrt(F[i]) * kInvDensity;
        delta[i][0] *= kInvDensity;
        delta[i][1] *= kInvDensity;
        delta[i][2] *= kInvDensity;
    }
}

double worley_value(double x, double y, double z, int type, int method) {
    const double at[3] = {x, y, z};
    double F[kMaxOrder];
    double delta[kMaxOrder][3];
    uint32_t id[kMaxOrder];
    switch (type) {
        case Second:
            worley_search(at, 2, F, delta, id, method);
            return F[1];
        case Third:
            worley_search(at, 3, F, delta, id, method);
            return F[2];
        case Fourth:
            worley_search(at, 4, F, delta, id, method);
            return F[3];
        case Difference21:
            worley_search(at, 2, F, delta, id, method);
            return F[1] - F[0];
        case Difference32:
            worley_search(at, 3, F, delta, id, method);
            return F[2] - F[1];
        case Tile: {
            worley_search(at, 2, F, delta, id, method);
            const double v = 10.0 * (F[1] - F[0]);
            return v > 1.0 ? v : 1.0;
        }
        default:  // First, and any code outside 0..6
            worley_search(at, 1, F, delta, id, method);
            return F[0];
    }
}

}  // namespace grainsmith::Worley
