// No record makes one point expensive: for every kind, a search over its parameters' extreme
// values (counts at and beyond the loop cap, huge, tiny, NaN and infinite sizes, every enum
// value and beyond) finds the slowest record, which must still cost less than 20 us a point.
// Timing is taken as the minimum over repeats, so a loaded machine does not fail it; the
// sanitizer builds and runs under an emulator skip it (their cost says nothing about the
// library's).
#include <gtest/gtest.h>

#include <chrono>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <random>
#include <vector>

#include "core/catalogue.h"

using namespace grainsmith;

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kInstrumented = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer)
constexpr bool kInstrumented = true;
#else
constexpr bool kInstrumented = false;
#endif
#else
constexpr bool kInstrumented = false;
#endif

constexpr double kLimitNs = 20000.0;

std::vector<double> extremes(const Param& p) {
    switch (p.type) {
    case FieldType::Bool: return {0, 1};
    case FieldType::Int32: return {p.defaultValue, p.minimum, p.maximum, 0, 1, -1, 63, 64, 65, 1000, INT32_MAX, INT32_MIN};
    case FieldType::Enum: {
        std::vector<double> values;
        for (size_t i = 0; i <= p.choices.size(); ++i) values.push_back(static_cast<double>(i));
        values.insert(values.end(), {-1.0, INT32_MAX, INT32_MIN});
        return values;
    }
    case FieldType::Float32: {
        const double inf = std::numeric_limits<double>::infinity();
        return {p.defaultValue, p.minimum, p.maximum, 0, 1, -1, 1e-6, 64, 1000, 1e30, -1e30, FLT_MAX, inf, -inf,
                std::numeric_limits<double>::quiet_NaN(), 1e-40};
    }
    }
    return {};
}

std::vector<float> timingPoints() {
    std::mt19937 rng(99);
    std::uniform_real_distribution<float> near(-50.0f, 50.0f), far(-1e6f, 1e6f);
    std::vector<float> points;
    for (int i = 0; i < 3 * 128; ++i) points.push_back(i % 4 == 3 ? far(rng) : near(rng));
    return points;
}

// Nanoseconds a point for this record: the minimum over `repeats` batch evaluations.
double costNs(const Kind& kind, const std::vector<unsigned char>& record, int flags, const std::vector<float>& points,
              int repeats) {
    Texture3D* t = kind.ops->create();
    t->setStateFromDescription(reinterpret_cast<const char*>(record.data()));
    t->setFlags(flags);
    const int n = static_cast<int>(points.size() / 3);
    std::vector<float> out(static_cast<size_t>(n));
    double best = std::numeric_limits<double>::infinity();
    for (int r = 0; r < repeats; ++r) {
        const auto start = std::chrono::steady_clock::now();
        (*t)(points.data(), n, out.data());
        const double ns = std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now() - start).count();
        best = std::min(best, ns / n);
    }
    kind.ops->destroy(t);
    return best;
}

}  // namespace

TEST(BoundedWork, WorstRecordOfEveryKindStaysUnderTwentyMicrosecondsAPoint) {
    if (kInstrumented) GTEST_SKIP() << "timing is meaningless under sanitizers";
    if (const char* emulator = std::getenv("GRAINSMITH_TEST_EMULATOR"))
        GTEST_SKIP() << "timing is meaningless under an emulator (" << emulator << ")";
    const std::vector<float> points = timingPoints();
    for (const Kind& kind : catalogue()) {
        if (!kind.implemented()) continue;
        std::vector<unsigned char> record(static_cast<size_t>(kind.recordSize));
        Texture3D* fresh = kind.ops->create();
        fresh->getDescription(reinterpret_cast<char*>(record.data()));
        kind.ops->destroy(fresh);
        const int flags = kind.readsFlags ? 4 : kDefaultFlags;  // planar mode is searched below too

        // Coordinate ascent: each parameter in turn takes the extreme value that costs most,
        // twice round, so that slow settings that compound (two octave counts) are found.
        double worst = costNs(kind, record, kDefaultFlags, points, 3);
        for (int round = 0; round < 2; ++round) {
            for (const Param& p : kind.ops->parameters()) {
                double bestValue = readParam(p, record.data());
                for (const double v : extremes(p)) {
                    writeParam(p, record.data(), v);
                    const double ns = costNs(kind, record, kDefaultFlags, points, 3);
                    if (ns > worst) worst = ns, bestValue = v;
                }
                writeParam(p, record.data(), bestValue);
            }
        }
        const double worst3d = costNs(kind, record, kDefaultFlags, points, 7);
        const double worstPlanar = costNs(kind, record, flags, points, 7);
        const double ns = std::max(worst3d, worstPlanar);
        const double defaults = [&] {
            std::vector<unsigned char> d(record.size());
            Texture3D* t = kind.ops->create();
            t->getDescription(reinterpret_cast<char*>(d.data()));
            kind.ops->destroy(t);
            return costNs(kind, d, kDefaultFlags, points, 7);
        }();
        std::printf("%-16s worst %9.1f ns/point (defaults %7.1f)\n", kind.name, ns, defaults);
        EXPECT_LT(ns, kLimitNs) << kind.name;
    }
}
