// The C++ API where no host entry reaches: the kinds that no name creates, and the noise
// primitives with any arguments. Input layout:
//   byte 0  what to call: even, a kind; odd, a noise primitive
// then, for a kind: an EvaluationInput; for a primitive: which one (1 byte), then its
// arguments as raw bytes.
// Oracles: import then export of a record of the kind's versions gives the same bytes; batch
// and one-point values agree bit for bit; every call is repeatable.
#include <array>

#include "fuzz_support.h"
#include "grainsmith/noise/cellular.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/noise/perlin.h"
#include "grainsmith/noise/simplex_noise.h"

using namespace grainsmith;
using namespace grainsmith::fuzz;

namespace {

const std::vector<const Kind*>& uncreatable() {
    static const std::vector<const Kind*> kinds = kindsWhere([](const Kind& k) { return !k.creatable(); });
    return kinds;
}

void fuzzKind(Input& in) {
    if (uncreatable().empty()) return;
    const auto [control, flags, points, bytes] = takeEvaluationInput(in, uncreatable());
    const Kind* named = bytes.size() >= 33 ? findKind(recordName(reinterpret_cast<const char*>(bytes.data()))) : nullptr;
    const Kind& kind = named && !named->creatable() && named->implemented()
                           ? *named
                           : *uncreatable()[(control >> 3) % uncreatable().size()];

    Block record(static_cast<size_t>(kind.recordSize));
    std::memset(record.data(), 0, record.size);
    if (!bytes.empty()) std::memcpy(record.data(), bytes.data(), std::min(bytes.size(), record.size));
    Texture3D* t = kind.ops->create();
    t->setStateFromDescription(record.data());
    t->setFlags(flags);

    Block exported(static_cast<size_t>(kind.recordSize));
    t->getDescription(exported.data());
    const bool versionsMatch = record.data()[33] == kind.majorVersion && record.data()[34] == kind.minorVersion;
    if (versionsMatch && std::memcmp(exported.data(), record.data(), record.size) != 0)
        finding("a record of the kind's versions did not come back whole", kind.name);

    const int n = static_cast<int>(points.size() / 3);
    Block out(static_cast<size_t>(n) * sizeof(float));
    (*t)(points.data(), n, reinterpret_cast<float*>(out.data()));
    for (int i = 0; i < n; ++i) {
        float batch;
        std::memcpy(&batch, out.data() + 4 * i, 4);
        const float one = (*t)(points.data() + 3 * i);
        if (!sameValue(one, batch)) finding("batch and one-point values differ", kind.name);
        if (bitsOf(one) != bitsOf((*t)(points.data() + 3 * i))) finding("evaluation is not repeatable", kind.name);
    }
    kind.ops->destroy(t);
}

// Calls `f` twice and requires the same bits: the primitives keep no state between calls.
template <class F>
void repeatable(const char* name, F f) {
    const auto a = f(), b = f();
    if (std::memcmp(&a, &b, sizeof a) != 0) finding("noise primitive is not repeatable", name);
}

void fuzzNoise(Input& in) {
    const uint8_t which = in.byte();
    const float x = in.take<float>(), y = in.take<float>(), z = in.take<float>();
    const int32_t a = in.take<int32_t>(), b = in.take<int32_t>();
    const float f1 = in.take<float>(), f2 = in.take<float>();
    switch (which % 12) {
    case 0: repeatable("improved_noise1", [&] { return improved_noise1(x); }); break;
    case 1: repeatable("improved_noise2", [&] { return improved_noise2(x, y); }); break;
    case 2: repeatable("improved_noise3", [&] { return improved_noise3(x, y, z); }); break;
    case 3: repeatable("fractal_noise_2D", [&] { return fractal_noise_2D(x, y, a, f1, f2); }); break;
    case 4: repeatable("fractal_noise_3D", [&] { return fractal_noise_3D(x, y, z, a, f1, f2); }); break;
    case 5: repeatable("simplex_noise2", [&] { return simplex_noise2(x, y); }); break;
    case 6: repeatable("simplex_noise3", [&] { return simplex_noise3(x, y, z); }); break;
    case 7: repeatable("voronoi_value3", [&] { return Voronoi::voronoi_value3(x, y, z, a, b); }); break;
    case 8: repeatable("voronoi_value2", [&] { return Voronoi::voronoi_value2(x, y, a, b); }); break;
    case 9: {
        const double dx = in.take<double>(), dy = in.take<double>(), dz = in.take<double>();
        repeatable("worley_value", [&] { return Worley::worley_value(dx, dy, dz, a, b); });
        double F[4] = {}, delta[4][3] = {};
        uint32_t id[4] = {};
        const double at[3] = {dx, dy, dz};
        Worley::worley_search(at, a, F, delta, id, b);
        break;
    }
    case 10: {
        Perlin perlin(a, f1, f2, b);
        const bool unit = (which & 16) != 0;
        repeatable("Perlin", [&] {
            float v[3] = {x, y, z};  // the octave sums scale the caller's vector in place
            float r[6] = {perlin.noise1(x, unit), perlin.noise2(v, unit), perlin.noise3(v, unit),
                          perlin.Get(x, y, unit), perlin.Get(x, y, z, a, f1, f2, unit), perlin.perlin_noise_1D(x, unit)};
            return std::array<uint32_t, 6>{bitsOf(r[0]), bitsOf(r[1]), bitsOf(r[2]), bitsOf(r[3]), bitsOf(r[4]), bitsOf(r[5])};
        });
        break;
    }
    case 11: {
        ImprovedPerlin perlin;
        repeatable("ImprovedPerlin", [&] {
            float v[3] = {x, y, z};
            float r[4] = {perlin.noise3(v), perlin.noise1(x), perlin.perlin_noise_3D(v, a, f1, f2),
                          perlin.Get(x, y, a, f1, f2)};
            return std::array<uint32_t, 4>{bitsOf(r[0]), bitsOf(r[1]), bitsOf(r[2]), bitsOf(r[3])};
        });
        break;
    }
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    writeSeedsIfAsked([] {
        std::vector<std::vector<uint8_t>> seeds;
        for (const Kind* kind : uncreatable()) {
            std::vector<uint8_t> seed = evaluationSeed(*kind, kDefaultFlags);
            seed.insert(seed.begin(), 0);  // a kind, not a primitive
            seeds.push_back(std::move(seed));
        }
        for (uint8_t which = 0; which < 12; ++which) {
            // x 0.3, y -1.5, z 2.25, octaves 4, method 1, frequency 2, amplitude 0.5.
            std::vector<uint8_t> seed = {1, which};
            for (float v : {0.3f, -1.5f, 2.25f}) seed.insert(seed.end(), (uint8_t*)&v, (uint8_t*)&v + 4);
            for (int32_t v : {4, 1}) seed.insert(seed.end(), (uint8_t*)&v, (uint8_t*)&v + 4);
            for (float v : {2.0f, 0.5f}) seed.insert(seed.end(), (uint8_t*)&v, (uint8_t*)&v + 4);
            for (double v : {0.3, -1.5, 2.25}) seed.insert(seed.end(), (uint8_t*)&v, (uint8_t*)&v + 8);
            seeds.push_back(std::move(seed));
        }
        return seeds;
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input in(data, size);
    if (in.byte() % 2 == 0) fuzzKind(in);
    else fuzzNoise(in);
    return 0;
}
