// What every fuzz target shares: reading the fuzzer's bytes, building records in exactly-sized
// heap blocks, the kinds taken from the catalogue (so kinds added later are fuzzed without an
// edit here), seed corpora generated from the catalogue, and the findings themselves.
//
// Seeds: a target run with GRAINSMITH_FUZZ_SEEDS=DIR writes its seed corpus (built from the
// catalogue's default records) into DIR and exits; scripts/fuzz and scripts/test do that first.
#pragma once

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "core/catalogue.h"

namespace grainsmith::fuzz {

// Stops the run with a message; libFuzzer saves the input as a crash.
[[noreturn]] inline void finding(const char* what, const std::string& detail = {}) {
    std::fprintf(stderr, "FINDING: %s %s\n", what, detail.c_str());
    std::abort();
}

// Consumes the fuzzer's bytes front to back; missing bytes read as zero.
class Input {
public:
    Input(const uint8_t* data, size_t size) : data_(data), size_(size) {}
    size_t left() const { return size_ - pos_; }
    uint8_t byte() { return pos_ < size_ ? data_[pos_++] : 0; }
    template <class T>
    T take() {
        T v{};
        const size_t n = left() < sizeof v ? left() : sizeof v;
        if (n > 0) std::memcpy(&v, data_ + pos_, n);
        pos_ += n;
        return v;
    }
    // The next `n` bytes (fewer when the input ends).
    std::vector<uint8_t> bytes(size_t n) {
        if (n > left()) n = left();
        std::vector<uint8_t> out(data_ + pos_, data_ + pos_ + n);
        pos_ += n;
        return out;
    }
    std::vector<uint8_t> rest() { return bytes(left()); }

private:
    const uint8_t* data_;
    size_t size_;
    size_t pos_ = 0;
};

// A heap block of exactly `size` bytes, so that AddressSanitizer catches any read or write
// one byte past what a host would hand over.
struct Block {
    std::unique_ptr<char[]> bytes;
    size_t size;
    explicit Block(size_t n) : bytes(new char[n == 0 ? 1 : n]), size(n) {}
    char* data() { return bytes.get(); }
};

inline std::vector<const Kind*> kindsWhere(const std::function<bool(const Kind&)>& pick) {
    std::vector<const Kind*> kinds;
    for (const Kind& k : catalogue())
        if (k.implemented() && pick(k)) kinds.push_back(&k);
    return kinds;
}

inline std::vector<uint8_t> defaultRecord(const Kind& kind) {
    std::vector<uint8_t> record(static_cast<size_t>(kind.recordSize));
    Texture3D* t = kind.ops->create();
    t->getDescription(reinterpret_cast<char*>(record.data()));
    kind.ops->destroy(t);
    return record;
}

// Makes the fuzzer reach evaluation most of the time: unless `raw` is set, a record that
// names no kind is given the name of one of `kinds` (chosen by `pick`), and a record whose
// versions differ from its kind's mostly gets the kind's versions.
inline void steerRecord(std::vector<uint8_t>& record, uint8_t control, const std::vector<const Kind*>& kinds) {
    if (record.size() < sizeof(BaseData) || kinds.empty() || (control & 7) == 7) return;
    const char* head = reinterpret_cast<const char*>(record.data());
    const Kind* kind = findKind(recordName(head));
    if (!kind || !kind->implemented()) {
        kind = kinds[(control >> 3) % kinds.size()];
        std::memset(record.data() + 1, 0, sizeof(BaseData::name));
        std::memcpy(record.data() + 1, kind->name, std::strlen(kind->name));
    }
    if ((control & 7) != 6) {
        record[offsetof(BaseData, majorVersion)] = static_cast<uint8_t>(kind->majorVersion);
        record[offsetof(BaseData, minorVersion)] = static_cast<uint8_t>(kind->minorVersion);
    }
}

// The record block a host hands over for these bytes: at least the 33 bytes up to the end of
// the name field, and exactly the named kind's record size when it names one (a host hands
// over whole records).
inline std::vector<uint8_t> hostRecord(std::vector<uint8_t> record) {
    if (record.size() < 33) record.resize(33, 0);
    const Kind* kind = findKind(recordName(reinterpret_cast<const char*>(record.data())));
    if (kind && kind->implemented()) record.resize(static_cast<size_t>(kind->recordSize), 0);
    return record;
}

// Points that matter to evaluation: NaN, infinities, huge values, denormals, -0, exact
// negative integers and ordinary values.
inline std::vector<float> oddPoints() {
    const float inf = INFINITY;
    return {0.3f,   0.7f,    1.4f,   -0.0f, 0.0f,    0.0f,  -1.0f,  -2.0f,   -3.0f, 1e30f,  -1e30f, 1e-40f,
            NAN,    0.5f,    0.5f,   inf,   -inf,    0.0f,  255.5f, -256.0f, 7.25f, 3e9f,   -3e9f,  0.125f,
            1e-45f, -1e-45f, 65536.0f, 2.5f, -7.5f, 100.0f};
}

// What a texture is driven with: a steered record, flags and points. Layout of the bytes:
//   steering byte (see steerRecord), flags (4 bytes), point count byte (0: oddPoints()),
//   12 bytes per point, then the record: every remaining byte.
struct EvaluationInput {
    uint8_t control;
    int32_t flags;
    std::vector<float> points;
    std::vector<uint8_t> record;
};

inline EvaluationInput takeEvaluationInput(Input& in, const std::vector<const Kind*>& kinds) {
    EvaluationInput e;
    e.control = in.byte();
    e.flags = in.take<int32_t>();
    const size_t count = in.byte() % 33;
    for (size_t i = 0; i < 3 * count; ++i) e.points.push_back(in.take<float>());
    if (e.points.empty()) e.points = oddPoints();
    e.record = in.rest();
    steerRecord(e.record, e.control, kinds);
    return e;
}

// The seed of one kind's default record in the layout above.
inline std::vector<uint8_t> evaluationSeed(const Kind& kind, int32_t flags) {
    std::vector<uint8_t> seed = {0};
    const auto* f = reinterpret_cast<const uint8_t*>(&flags);
    seed.insert(seed.end(), f, f + sizeof flags);
    seed.push_back(0);
    const std::vector<uint8_t> record = defaultRecord(kind);
    seed.insert(seed.end(), record.begin(), record.end());
    return seed;
}

inline uint32_t bitsOf(float v) {
    uint32_t b;
    std::memcpy(&b, &v, sizeof b);
    return b;
}

// Batch against one-point: the same bits, or NaN on both sides. The fuzz build is clang's,
// and clang may swap the operands of an operation whose operands are both NaN (Wood with
// two NaN colours of different payloads), so which NaN comes out can differ between the
// scalar and the vector code. The g++ build that the test suite checks agrees to the bit,
// NaN payloads included (batch_identity_test).
inline bool sameValue(float a, float b) { return bitsOf(a) == bitsOf(b) || (a != a && b != b); }

// Seed files: one per entry, written when GRAINSMITH_FUZZ_SEEDS names a directory.
inline void writeSeedsIfAsked(const std::function<std::vector<std::vector<uint8_t>>()>& seeds) {
    const char* dir = std::getenv("GRAINSMITH_FUZZ_SEEDS");
    if (!dir || !*dir) return;
    int n = 0;
    for (const std::vector<uint8_t>& seed : seeds()) {
        const std::string path = std::string(dir) + "/seed-" + std::to_string(n++);
        std::FILE* f = std::fopen(path.c_str(), "wb");
        if (!f || std::fwrite(seed.data(), 1, seed.size(), f) != seed.size() || std::fclose(f) != 0) {
            std::fprintf(stderr, "cannot write seed %s\n", path.c_str());
            std::exit(1);
        }
    }
    std::fprintf(stderr, "wrote %d seeds to %s\n", n, dir);
    std::exit(0);
}

}  // namespace grainsmith::fuzz
