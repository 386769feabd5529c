// Evaluation from many threads at once gives exactly the single-threaded values, with no data
// race (scripts/test also runs this program under ThreadSanitizer). The threads run before
// anything else in this program has evaluated, so tables built on first use are built while
// several threads want them.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <thread>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/grainsmith.h"

using namespace grainsmith;

namespace {

constexpr int kThreads = 4;

std::vector<const Kind*> kinds(bool creatableOnly) {
    std::vector<const Kind*> out;
    for (const Kind& k : catalogue())
        if (k.implemented() && (!creatableOnly || k.creatable())) out.push_back(&k);
    return out;
}

std::vector<float> testPoints() {
    std::mt19937 rng(7);
    std::uniform_real_distribution<float> spread(-40.0f, 40.0f);
    std::vector<float> points;
    for (int i = 0; i < 3 * 48; ++i) points.push_back(spread(rng));
    for (float odd : {-0.0f, -3.0f, 1e30f, NAN, INFINITY, 1e-40f, 0.5f, -2.0f, 255.5f})
        points.insert(points.end(), {odd, 0.25f, -odd});
    return points;
}

// A record of the kind with every parameter drawn at random from a few telling values, so
// that not only the defaults are compared.
std::vector<char> someRecord(const Kind& kind, uint32_t seed) {
    std::vector<char> record(static_cast<size_t>(kind.recordSize));
    Texture3D* t = kind.ops->create();
    t->getDescription(record.data());
    kind.ops->destroy(t);
    std::mt19937 rng(seed);
    for (const Param& p : kind.ops->parameters())
        if (rng() % 2) writeParam(p, reinterpret_cast<unsigned char*>(record.data()), p.minimum + (p.maximum - p.minimum) * (rng() % 5) / 4.0);
    return record;
}

std::vector<float> evaluate(const Kind& kind, const std::vector<char>& record, int flags, const std::vector<float>& points) {
    Texture3D* t = kind.ops->create();
    t->setStateFromDescription(record.data());
    t->setFlags(flags);
    std::vector<float> values(points.size() / 3);
    (*t)(points.data(), static_cast<int>(values.size()), values.data());
    kind.ops->destroy(t);
    return values;
}

void expectSameBits(const std::vector<float>& got, const std::vector<float>& want, const char* kind) {
    ASSERT_EQ(got.size(), want.size());
    for (size_t i = 0; i < got.size(); ++i) {
        uint32_t a, b;
        std::memcpy(&a, &got[i], 4);
        std::memcpy(&b, &want[i], 4);
        EXPECT_EQ(a, b) << kind << " point " << i;
    }
}

using Entry = float (*)(char*, double, char*, int, char*, int, void**);

}  // namespace

// Each thread builds its own texture of every kind (records drawn per kind) and evaluates it.
TEST(ThreadSafety, ManyThreadsEachWithTheirOwnTexturesOfEveryKind) {
    const std::vector<const Kind*> all = kinds(false);
    const std::vector<float> points = testPoints();
    std::vector<std::vector<std::vector<float>>> results(kThreads);
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([&, t] {
            for (const Kind* kind : all)
                for (int flags : {2, 4}) results[t].push_back(evaluate(*kind, someRecord(*kind, 11), flags, points));
        });
    for (std::thread& th : threads) th.join();
    for (int t = 0; t < kThreads; ++t) {
        size_t i = 0;
        for (const Kind* kind : all)
            for (int flags : {2, 4}) expectSameBits(results[t][i++], evaluate(*kind, someRecord(*kind, 11), flags, points), kind->name);
    }
}

// Two threads evaluate the same object, through both slots.
TEST(ThreadSafety, TwoThreadsOnOneTexture) {
    const std::vector<float> points = testPoints();
    for (const Kind* kind : kinds(false)) {
        const std::vector<char> record = someRecord(*kind, 23);
        Texture3D* shared = kind->ops->create();
        shared->setStateFromDescription(record.data());
        std::vector<float> batch[2], one[2];
        std::thread threads[2];
        for (int t = 0; t < 2; ++t)
            threads[t] = std::thread([&, t] {
                batch[t].resize(points.size() / 3);
                (*shared)(points.data(), static_cast<int>(batch[t].size()), batch[t].data());
                for (size_t i = 0; i < points.size(); i += 3) one[t].push_back((*shared)(points.data() + i));
            });
        for (std::thread& th : threads) th.join();
        const std::vector<float> want = evaluate(*kind, record, kDefaultFlags, points);
        for (int t = 0; t < 2; ++t) {
            expectSameBits(batch[t], want, kind->name);
            expectSameBits(one[t], want, kind->name);
        }
        kind->ops->destroy(shared);
    }
}

// The plug-in as a renderer uses it: one beginSession, then continueSession and
// continueSessionOne from several threads at once.
TEST(ThreadSafety, SessionEvaluatedFromManyThreads) {
    void* handle = dlopen(GRAINSMITH_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(handle, nullptr) << dlerror();
    const auto begin = reinterpret_cast<Entry>(dlsym(handle, "beginSession"));
    const auto batch = reinterpret_cast<Entry>(dlsym(handle, "continueSession"));
    const auto one = reinterpret_cast<Entry>(dlsym(handle, "continueSessionOne"));
    const auto end = reinterpret_cast<Entry>(dlsym(handle, "endSession"));
    const std::vector<float> points = testPoints();
    const int32_t n = static_cast<int32_t>(points.size() / 3);
    std::vector<char> list(4 + points.size() * 4);
    std::memcpy(list.data(), &n, 4);
    std::memcpy(list.data() + 4, points.data(), points.size() * 4);

    for (const Kind* kind : kinds(true)) {
        std::vector<char> record = someRecord(*kind, 31);
        int32_t flags = 4;
        begin(nullptr, 0, record.data(), 0, reinterpret_cast<char*>(&flags), 4, nullptr);
        std::vector<float> batches[kThreads], ones[kThreads];
        std::vector<std::thread> threads;
        for (int t = 0; t < kThreads; ++t)
            threads.emplace_back([&, t] {
                batches[t].resize(static_cast<size_t>(n));
                batch(nullptr, 0, reinterpret_cast<char*>(batches[t].data()), 0, list.data(), 0, nullptr);
                for (int32_t i = 0; i < n; ++i) {
                    float p[3];
                    std::memcpy(p, points.data() + 3 * i, sizeof p);
                    ones[t].push_back(one(reinterpret_cast<char*>(p), 0, nullptr, 0, nullptr, 0, nullptr));
                }
            });
        for (std::thread& th : threads) th.join();
        end(nullptr, 0, nullptr, 0, nullptr, 0, nullptr);
        const std::vector<float> want = evaluate(*kind, record, flags, points);
        for (int t = 0; t < kThreads; ++t) {
            expectSameBits(batches[t], want, kind->name);
            expectSameBits(ones[t], want, kind->name);
        }
    }
    dlclose(handle);
}

// The handle API as a host with two materials uses it: two textures alive at once, each
// evaluated by two threads at the same time while the other is too.
TEST(ThreadSafety, TwoHandleTexturesFromFourThreads) {
    const std::vector<float> points = testPoints();
    const size_t n = points.size() / 3;
    grainsmith_texture* textures[2] = {nullptr, nullptr};
    ASSERT_EQ(grainsmith_texture_create("Wood", &textures[0]), GRAINSMITH_OK);
    ASSERT_EQ(grainsmith_texture_create("Brick", &textures[1]), GRAINSMITH_OK);
    ASSERT_EQ(grainsmith_texture_set(textures[0], "ringScale", 8.0), GRAINSMITH_OK);
    std::vector<float> got[4];
    std::vector<std::thread> threads;
    for (int t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            got[t].resize(n);
            grainsmith_texture_evaluate(textures[t % 2], points.data(), n, got[t].data());
        });
    for (std::thread& th : threads) th.join();
    for (int t = 0; t < 4; ++t) {
        std::vector<float> want(n);
        for (size_t i = 0; i < n; ++i)
            want[i] = grainsmith_texture_evaluate_one(textures[t % 2], points[3 * i], points[3 * i + 1], points[3 * i + 2]);
        expectSameBits(got[t], want, t % 2 ? "Brick" : "Wood");
    }
    grainsmith_texture_destroy(textures[0]);
    grainsmith_texture_destroy(textures[1]);
}
