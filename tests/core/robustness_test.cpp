// Every implemented kind, fed random record bytes and odd points, must return without
// crashing, hanging or touching memory it does not own (the sanitizer build checks that).
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "core/catalogue.h"

using namespace grainsmith;

namespace {

const std::vector<float>& oddCoordinates() {
    static const std::vector<float> values = {
        0.0f, -0.0f, 1.0f, -1.0f, -2.0f, -256.0f, 255.5f, 0.5f, -0.5f, 1e-40f, 1e30f, -1e30f, 3e9f, -3e9f,
        2147483648.0f, -2147483904.0f, std::numeric_limits<float>::max(), std::numeric_limits<float>::lowest(),
        std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
        std::numeric_limits<float>::quiet_NaN()};
    return values;
}

// Records whose bytes are random, some with the kind's own versions (so they are taken
// whole), some one major version older (migrated where the kind can), and a few with every parameter at an extreme bit pattern.
std::vector<std::vector<char>> recordsFor(const Kind& kind, std::mt19937& rng) {
    std::vector<std::vector<char>> records;
    const size_t size = static_cast<size_t>(kind.recordSize);
    for (int i = 0; i < 24; ++i) {
        std::vector<char> r(size);
        for (char& b : r) b = static_cast<char>(rng());
        if (i % 4 != 3) {
            r[33] = static_cast<char>(kind.majorVersion);
            r[34] = 0;
        } else if (i % 8 == 7) {
            r[33] = static_cast<char>(kind.majorVersion - 1);  // the older layout, for kinds that migrate
        }
        records.push_back(std::move(r));
    }
    for (unsigned char fill : {0x00, 0xFF, 0x7F, 0x80}) {
        std::vector<char> r(size, static_cast<char>(fill));
        r[33] = static_cast<char>(kind.majorVersion);
        r[34] = 0;
        records.push_back(std::move(r));
    }
    // The previous major version, which kinds with a migration take field by field.
    for (int i = 0; i < 4; ++i) {
        std::vector<char> r(size);
        for (char& b : r) b = static_cast<char>(rng());
        r[33] = static_cast<char>(kind.majorVersion - 1);
        records.push_back(std::move(r));
    }
    // Parameters set to NaN, infinities and huge counts, one pattern at a time.
    for (uint32_t pattern : {0x7FC00000u, 0x7F800000u, 0xFF800000u, 0x7FFFFFFFu, 0x80000000u, 0x4E800000u}) {
        std::vector<char> r(size);
        for (size_t at = 36; at + 4 <= size; at += 4) std::memcpy(r.data() + at, &pattern, 4);
        r[0] = static_cast<char>(size);
        r[33] = static_cast<char>(kind.majorVersion);
        r[34] = 0;
        records.push_back(std::move(r));
    }
    return records;
}

}  // namespace

TEST(Robustness, RandomRecordsAndOddPointsNeverCrash) {
    std::mt19937 rng(2024);
    const std::vector<float>& odd = oddCoordinates();
    for (const Kind& kind : catalogue()) {
        if (!kind.implemented()) continue;
        SCOPED_TRACE(kind.name);
        for (const std::vector<char>& record : recordsFor(kind, rng)) {
            Texture3D* t = kind.ops->create();
            t->setStateFromDescription(record.data());
            for (int flags : {2, 4, 8, -1}) {
                t->setFlags(flags);
                std::vector<float> points;
                for (int i = 0; i < 40; ++i) {
                    for (int c = 0; c < 3; ++c) {
                        const bool pickOdd = rng() % 2 == 0;
                        points.push_back(pickOdd ? odd[rng() % odd.size()]
                                                 : std::ldexp(static_cast<float>(rng() % 2001) - 1000.0f,
                                                              static_cast<int>(rng() % 12) - 8));
                    }
                }
                std::vector<float> out(points.size() / 3);
                (*t)(points.data(), static_cast<int>(out.size()), out.data());
                volatile float sink = out[0];
                (void)sink;
            }
            kind.ops->destroy(t);
        }
    }
}
