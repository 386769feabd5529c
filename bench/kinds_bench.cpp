// Batch evaluation speed of every implemented kind with its defaults, in points per second.
// Run: build/grainsmith_bench [--benchmark_filter=NAME]
#include <benchmark/benchmark.h>

#include <random>
#include <string>
#include <vector>

#include "core/catalogue.h"

namespace {

constexpr int kPoints = 4096;

std::vector<float> samplePoints() {
    std::mt19937 rng(7);
    std::uniform_real_distribution<float> coordinate(-8.0f, 8.0f);
    std::vector<float> points(3 * kPoints);
    for (float& c : points) c = coordinate(rng);
    return points;
}

void evaluateKind(benchmark::State& state, const grainsmith::Kind* kind, int flags) {
    static const std::vector<float> points = samplePoints();
    std::vector<float> out(kPoints);
    grainsmith::Texture3D* texture = kind->ops->create();
    texture->setFlags(flags);
    for (auto _ : state) {
        (*texture)(points.data(), kPoints, out.data());
        benchmark::DoNotOptimize(out.data());
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    kind->ops->destroy(texture);
}

const bool registered = [] {
    for (const grainsmith::Kind& kind : grainsmith::catalogue()) {
        if (!kind.implemented()) continue;
        benchmark::RegisterBenchmark((std::string(kind.name) + "/3D").c_str(), evaluateKind, &kind, 2);
        if (kind.readsFlags)
            benchmark::RegisterBenchmark((std::string(kind.name) + "/2D").c_str(), evaluateKind, &kind, 4);
    }
    return true;
}();

}  // namespace

BENCHMARK_MAIN();
