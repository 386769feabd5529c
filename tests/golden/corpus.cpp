#include "golden/corpus.h"

#include <bit>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <limits>
#include <sstream>

#include "core/catalogue.h"

namespace grainsmith::golden {
namespace {

// splitmix64: a fixed, platform-independent stream of 64-bit numbers.
struct Random {
    uint64_t state;
    uint64_t next() {
        uint64_t z = (state += 0x9E3779B97F4A7C15ull);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ull;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBull;
        return z ^ (z >> 31);
    }
    uint32_t below(uint32_t n) { return static_cast<uint32_t>(next() % n); }
};

uint64_t fnv1a(uint64_t h, uint32_t word) {
    for (int i = 0; i < 4; ++i) {
        h ^= (word >> (8 * i)) & 0xFFu;
        h *= 0x100000001B3ull;
    }
    return h;
}

constexpr uint64_t kFnvBasis = 0xCBF29CE484222325ull;

float fromBits(uint32_t bits) { return std::bit_cast<float>(bits); }

// Coordinates where arithmetic is awkward: exact negative integers (the cell floor's k - 1),
// signed zeros, cell and lattice boundaries, the hash tables' period, values beyond 2^23 and
// 2^31, magnitudes where sin and cos need a long argument reduction, NaN and infinities.
const float kAwkward[] = {
    0.0f, -0.0f, 1.0f, -1.0f, -2.0f, -3.0f, -16.0f, -255.0f, -256.0f, -257.0f, 255.0f, 256.0f,
    0.5f, -0.5f, 0.25f, fromBits(0x3F7FFFFF) /* 1 - 2^-24 */, fromBits(0xBF7FFFFF), fromBits(0x3F800001),
    fromBits(0x80000001) /* -denormal */, 1e-40f, 1e5f, -1e5f, 100000.5f, 8388608.0f, -8388607.5f,
    16777216.0f, 2147483648.0f, -2147483648.0f, 2147483520.0f, -2147483904.0f, 1e10f,
    9.2233720e18f /* 2^63 */, 1.8446744e19f /* 2^64 */, 1e30f, -1e30f, FLT_MAX, -FLT_MAX,
    std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
    std::numeric_limits<float>::quiet_NaN(),
};
constexpr int kAwkwardCount = static_cast<int>(sizeof kAwkward / sizeof kAwkward[0]);
const float kMild[] = {0.3f, 1.7f, -2.45f, 5.125f};

std::vector<float> makePoints() {
    std::vector<float> p;
    p.reserve(3 * kPoints);
    auto add = [&p](float x, float y, float z) { p.insert(p.end(), {x, y, z}); };
    // Each awkward coordinate on each axis with mild others, then mixed triples.
    for (int axis = 0; axis < 3; ++axis)
        for (int i = 0; i < kAwkwardCount; ++i) {
            float c[3] = {kMild[i % 4], kMild[(i + 1) % 4], kMild[(i + 2) % 4]};
            c[axis] = kAwkward[i];
            add(c[0], c[1], c[2]);
        }
    for (int i = 0; i < 16; ++i)
        add(kAwkward[i * 3 % kAwkwardCount], kAwkward[(i * 7 + 3) % kAwkwardCount],
            kAwkward[(i * 13 + 5) % kAwkwardCount]);
    Random rng{20261125};
    auto signed24 = [&rng] { return static_cast<float>(static_cast<int32_t>(rng.next() >> 40) - (1 << 23)); };
    while (p.size() < 3 * static_cast<size_t>(kPoints)) {
        const size_t i = p.size() / 3;
        float c[3];
        for (float& v : c) {
            if (i < 560)
                v = signed24() * 0x1p-21f;  // [-4, 4), exact
            else if (i < 800)
                v = signed24() * (300.0f * 0x1p-23f);  // [-300, 300)
            else if (i < 900)  // 2^10 to 2^20, either sign
                v = fromBits(static_cast<uint32_t>(rng.next() >> 32 & 0x807FFFFFu) | (137u + rng.below(11)) << 23);
            else
                v = fromBits(static_cast<uint32_t>(rng.next() >> 32));  // any bit pattern
        }
        add(c[0], c[1], c[2]);
    }
    return p;
}

void putHex(std::string& s, const unsigned char* bytes, size_t n) {
    static const char digits[] = "0123456789abcdef";
    for (size_t i = 0; i < n; ++i) {
        s += digits[bytes[i] >> 4];
        s += digits[bytes[i] & 15];
    }
}

bool getHex(const std::string& s, std::vector<unsigned char>& out) {
    if (s.size() % 2) return false;
    out.clear();
    for (size_t i = 0; i < s.size(); i += 2) {
        unsigned v;
        if (std::sscanf(s.c_str() + i, "%2x", &v) != 1) return false;
        out.push_back(static_cast<unsigned char>(v));
    }
    return true;
}

// A value within the range the editor offers for the parameter.
double editorValue(const Param& p, Random& rng, int pick /* -1 random, 0 minimum, 1 maximum */) {
    switch (p.widget) {
        case Widget::Toggle:
            return pick < 0 ? rng.below(2) : pick;
        case Widget::Combo:
            return pick < 0 ? rng.below(static_cast<uint32_t>(p.choices.size())) : pick * (p.choices.size() - 1.0);
        case Widget::Slider:
        case Widget::IntSpin: {
            const int lo = static_cast<int>(p.minimum), hi = static_cast<int>(p.maximum);
            const int k = pick < 0 ? lo + static_cast<int>(rng.below(static_cast<uint32_t>(hi - lo + 1))) : pick ? hi : lo;
            return p.widget == Widget::Slider ? k * p.scale : k;
        }
        case Widget::DoubleSpin: {
            if (pick >= 0) return pick ? p.maximum : p.minimum;
            const double u = static_cast<double>(rng.next() >> 11) * 0x1p-53;
            const double unit = std::pow(10.0, p.decimals);  // generation only: the record keeps the bits
            return std::round((p.minimum + (p.maximum - p.minimum) * u) * unit) / unit;
        }
        case Widget::Hidden:
            break;
    }
    return p.defaultValue;
}

// Values no editor gives: the loop caps, zero and negative counts, NaN of both signs,
// infinities, denormals, enumeration codes outside the table, a bool byte of 0x80.
void wildValue(const Param& p, Random& rng, unsigned char* field) {
    static const int32_t counts[] = {-3, 0, 1, 2, 5, 64, 65, 1000, INT32_MIN, INT32_MAX};
    static const uint32_t floats[] = {0x00000000, 0x80000000, 0x3F000000, 0x40800000, 0xC06CCCCD, 0x00000001,
                                      0x7149F2CA /* 1e30 */, 0x7FC00000, 0xFFCCCCCD, 0x7F800000, 0xFF800000,
                                      0x42C30000 /* 97.5 */, 0x3C54FDF4 /* 0.013 */, 0x7F7FFFFF};
    switch (p.type) {
        case FieldType::Bool:
            *field = static_cast<unsigned char>(rng.below(3) == 0 ? 0x80 : rng.below(2));
            return;
        case FieldType::Int32: {
            const int32_t v = counts[rng.below(sizeof counts / sizeof counts[0])];
            std::memcpy(field, &v, 4);
            return;
        }
        case FieldType::Enum: {
            const int32_t v = static_cast<int32_t>(rng.below(static_cast<uint32_t>(p.choices.size()) + 3)) - 1;
            std::memcpy(field, &v, 4);
            return;
        }
        case FieldType::Float32: {
            const uint32_t v = floats[rng.below(sizeof floats / sizeof floats[0])];
            std::memcpy(field, &v, 4);
            return;
        }
    }
}

}  // namespace

const std::vector<float>& points() {
    static const std::vector<float> p = makePoints();
    return p;
}

uint64_t hashValues(const float* values, int n) {
    uint64_t h = kFnvBasis;
    for (int i = 0; i < n; ++i)
        h = fnv1a(h, std::isnan(values[i]) ? 0x7FC00000u : std::bit_cast<uint32_t>(values[i]));
    return h;
}

std::string blockHashes(const float* values) {
    std::string s;
    for (int b = 0; b < kBlocks; ++b) {
        const uint64_t h = hashValues(values + b * kBlockSize, kBlockSize);
        char text[8];
        std::snprintf(text, sizeof text, "%04x", static_cast<unsigned>((h ^ h >> 16 ^ h >> 32 ^ h >> 48) & 0xFFFF));
        s += text;
    }
    return s;
}

std::vector<std::vector<unsigned char>> makeRecords(const char* kindName) {
    const Kind* kind = findKind(kindName);
    std::vector<std::vector<unsigned char>> records;
    if (!kind || !kind->implemented()) return records;
    std::vector<unsigned char> defaults(static_cast<size_t>(kind->recordSize));
    writeDefaultRecord(*kind, defaults.data());
    records.push_back(defaults);

    uint64_t seed = kFnvBasis;
    for (const char* c = kindName; *c; ++c) seed = fnv1a(seed, static_cast<unsigned char>(*c));
    Random rng{seed};
    const ParamTable table = kind->ops->parameters();
    for (int r = 0; r < kVariedRecords; ++r) {
        std::vector<unsigned char> record = defaults;
        // 16 drawn within the editor's ranges, then all minimum, all maximum, and 3 wild ones.
        const int pick = r < 16 ? -1 : r == 16 ? 0 : r == 17 ? 1 : 2;
        for (const Param& p : table) {
            if (pick == 2)
                wildValue(p, rng, record.data() + p.offset);
            else
                writeParam(p, record.data(), editorValue(p, rng, pick));
        }
        records.push_back(std::move(record));
    }
    return records;
}

// The file: lines "kind NAME", "record INDEX HEX" and "values FLAGS HASH BLOCKS" (for the
// record above), with '#' comments.
bool read(const std::string& path, std::vector<KindRecords>& out, std::string& error) {
    std::ifstream in(path);
    if (!in) {
        error = "cannot open " + path;
        return false;
    }
    out.clear();
    std::string line;
    int lineNumber = 0;
    while (std::getline(in, line)) {
        ++lineNumber;
        if (line.empty() || line[0] == '#') continue;
        std::istringstream fields(line);
        std::string tag;
        fields >> tag;
        bool ok = true;
        if (tag == "kind") {
            out.push_back({line.substr(5), {}});
        } else if (tag == "record" && !out.empty()) {
            Record r;
            std::string hex;
            ok = static_cast<bool>(fields >> r.index >> hex) && getHex(hex, r.bytes);
            out.back().records.push_back(std::move(r));
        } else if (tag == "values" && !out.empty() && !out.back().records.empty()) {
            Entry e;
            std::string hash;
            ok = static_cast<bool>(fields >> e.flags >> hash >> e.blocks) && hash.size() == 16 &&
                 e.blocks.size() == 4 * kBlocks;
            if (ok) e.hash = std::stoull(hash, nullptr, 16);
            out.back().records.back().entries.push_back(std::move(e));
        } else {
            ok = false;
        }
        if (!ok) {
            error = path + ":" + std::to_string(lineNumber) + ": malformed line";
            return false;
        }
    }
    return true;
}

bool write(const std::string& path, const std::vector<KindRecords>& corpus, std::string& error) {
    std::string text =
        "# Golden values: every kind's records over the fixed point set, per mode (flags 2: space,\n"
        "# 4: plane): a 64-bit FNV-1a hash of all values and a 16-bit hash per block of 32 points.\n"
        "# Regenerate with `golden_check --write FILE` only when values are meant to change.\n";
    for (const KindRecords& k : corpus) {
        text += "kind " + k.kind + "\n";
        for (const Record& r : k.records) {
            text += "record " + std::to_string(r.index) + " ";
            putHex(text, r.bytes.data(), r.bytes.size());
            text += "\n";
            for (const Entry& e : r.entries) {
                char hash[20];
                std::snprintf(hash, sizeof hash, "%016llx", static_cast<unsigned long long>(e.hash));
                text += "values " + std::to_string(e.flags) + " " + hash + " " + e.blocks + "\n";
            }
        }
    }
    const std::string temporary = path + ".tmp";
    {
        std::ofstream out(temporary, std::ios::binary);
        out << text;
        if (!out.flush()) {
            error = "cannot write " + temporary;
            return false;
        }
    }
    if (std::rename(temporary.c_str(), path.c_str()) != 0) {
        error = "cannot replace " + path;
        return false;
    }
    return true;
}

}  // namespace grainsmith::golden
