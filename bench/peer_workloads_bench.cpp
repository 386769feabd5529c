// The four workloads that general-purpose noise libraries are compared on, each through the
// batch operator (on the level the dispatcher chooses, and pinned to every level this CPU
// runs) and one point at a time: 3-D gradient noise of one octave, fBm of four octaves,
// 3-D simplex noise and cellular F1 (Euclidean), at frequency 1 over points in
// [-100, 100)^3. Items per second are points per second.
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/simd.h"
#include "simd/levels.h"

namespace {

using grainsmith::Kind;
using grainsmith::Texture3D;

constexpr int kPoints = 1 << 18;

const std::vector<float>& points() {
    static const std::vector<float> p = [] {
        std::mt19937 rng(1);
        std::uniform_real_distribution<float> coordinate(-100.0f, 100.0f);
        std::vector<float> v(3 * kPoints);
        for (float& c : v) c = coordinate(rng);
        return v;
    }();
    return p;
}

struct Setting {
    const char* name;
    double value;
};

struct Workload {
    const char* label;
    const char* kind;
    std::vector<Setting> settings;
};

const std::vector<Workload>& workloads() {
    static const std::vector<Workload> w = {
        {"perlin1", "Perlin Noise", {{"octaves", 1}, {"frequency", 1}, {"amplitude", 1}}},
        {"fbm4", "FBM", {{"octaves", 4}, {"lacunarity", 2}, {"gain", 0.5}, {"scale", 1}}},
        {"simplex", "Simplex", {{"scale", 1}}},
        {"cellular_f1", "Voronoi", {{"scale", 1}, {"type", 0}, {"distanceMethod", 0}}},
    };
    return w;
}

// The workload's texture: the kind's defaults with the workload's settings.
Texture3D* create(const Workload& w, const Kind*& kind) {
    kind = grainsmith::findKind(w.kind);
    Texture3D* texture = kind->ops->create();
    unsigned char record[256];
    texture->getDescription(reinterpret_cast<char*>(record));
    for (const Setting& s : w.settings)
        for (const grainsmith::Param& p : kind->ops->parameters())
            if (std::string_view(p.name) == s.name) grainsmith::writeParam(p, record, s.value);
    texture->setStateFromDescription(reinterpret_cast<const char*>(record));
    return texture;
}

// level 0: the dispatcher's own choice.
void batch(benchmark::State& state, const Workload* w, int64_t level) {
    const Kind* kind;
    Texture3D* texture = create(*w, kind);
    std::vector<float> out(kPoints);
    grainsmith::simd::forceLevel(level);
    state.SetLabel(grainsmith::simdLevelName());
    for (auto _ : state) {
        (*texture)(points().data(), kPoints, out.data());
        benchmark::DoNotOptimize(out.data());
    }
    grainsmith::simd::forceLevel(0);
    state.SetItemsProcessed(state.iterations() * kPoints);
    kind->ops->destroy(texture);
}

void onePoint(benchmark::State& state, const Workload* w) {
    const Kind* kind;
    Texture3D* texture = create(*w, kind);
    const float* p = points().data();
    for (auto _ : state) {
        float sum = 0.0f;
        for (int i = 0; i < kPoints; ++i) sum += (*texture)(p + 3 * i);
        benchmark::DoNotOptimize(sum);
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    kind->ops->destroy(texture);
}

const bool registered = [] {
    for (const Workload& w : workloads()) {
        const std::string base = std::string("peer/") + w.label;
        benchmark::RegisterBenchmark((base + "/batch").c_str(), batch, &w, int64_t{0})->Unit(benchmark::kMillisecond);
        benchmark::RegisterBenchmark((base + "/one_point").c_str(), onePoint, &w)->Unit(benchmark::kMillisecond);
        for (int64_t level : grainsmith::simd::availableLevels())
            benchmark::RegisterBenchmark((base + "/batch/" + grainsmith::simd::levelName(level)).c_str(), batch, &w,
                                         level)
                ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace
