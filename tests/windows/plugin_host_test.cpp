// Drives grainsmith.dll exactly as a Windows host does: LoadLibraryA, GetProcAddress, raw
// memory blocks. Nothing of the library is linked in. The DLL's path is the first argument.
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "check.h"

namespace {

using Entry = float (*)(char*, double, char*, int, char*, int, void**);

struct Plugin {
    HMODULE module = nullptr;
    Entry begin = nullptr, batch = nullptr, one = nullptr, end = nullptr, interact = nullptr;
};
Plugin g;

Entry entry(const char* name) { return reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(g.module, name))); }

// The names in the loaded DLL's export table, read from its PE headers.
std::vector<std::string> exportedNames(HMODULE module) {
    std::vector<std::string> names;
    const auto* base = reinterpret_cast<const unsigned char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS64*>(base + dos->e_lfanew);
    const IMAGE_DATA_DIRECTORY& dir = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
    if (dir.VirtualAddress == 0) return names;
    const auto* exports = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + dir.VirtualAddress);
    const auto* nameRvas = reinterpret_cast<const DWORD*>(base + exports->AddressOfNames);
    for (DWORD i = 0; i < exports->NumberOfNames; ++i)
        names.emplace_back(reinterpret_cast<const char*>(base + nameRvas[i]));
    return names;
}

// A record laid out by hand: size, name, versions, interactive flag, then parameter bytes.
std::vector<char> record(int size, const char* name, int major, int minor) {
    std::vector<char> r(256, 0);
    r[0] = static_cast<char>(size);
    std::strcpy(r.data() + 1, name);
    r[33] = static_cast<char>(major);
    r[34] = static_cast<char>(minor);
    r[35] = 1;
    return r;
}
template <class T>
void put(std::vector<char>& r, int offset, T v) {
    std::memcpy(r.data() + offset, &v, sizeof v);
}

// No kind has version 255.255 and none migrates from it: the kind is created with its defaults.
std::vector<char> defaults(const char* name) { return record(36, name, 255, 255); }

float begin(std::vector<char>& rec, std::int32_t flags = 2) {
    char second[8] = {};
    std::memcpy(second, &flags, sizeof flags);
    return g.begin(nullptr, 0.0, rec.data(), static_cast<int>(rec.size()), second, 8, nullptr);
}

float one(const float p[3]) {
    float q[3] = {p[0], p[1], p[2]};
    return g.one(reinterpret_cast<char*>(q), 0.0, nullptr, 0, nullptr, 0, nullptr);
}
float one(float x, float y, float z) {
    const float p[3] = {x, y, z};
    return one(p);
}

// continueSession over the points (x, y, z each); the output block has 16 sentinel bytes 0x7F
// beyond the values.
std::vector<unsigned char> batch(const std::vector<float>& xyz) {
    const std::int32_t n = static_cast<std::int32_t>(xyz.size() / 3);
    std::vector<char> second(4 + xyz.size() * 4);
    std::memcpy(second.data(), &n, 4);
    if (n > 0) std::memcpy(second.data() + 4, xyz.data(), xyz.size() * 4);
    std::vector<unsigned char> out(4 * static_cast<size_t>(n) + 16, 0x7F);
    CHECK_EQ(g.batch(nullptr, 0.0, reinterpret_cast<char*>(out.data()), static_cast<int>(out.size()), second.data(),
                     static_cast<int>(second.size()), nullptr),
             1.0f);
    return out;
}

float at(const std::vector<unsigned char>& block, size_t index) {
    float v;
    std::memcpy(&v, block.data() + 4 * index, 4);
    return v;
}

bool untouchedAfter(const std::vector<unsigned char>& block, size_t values) {
    return std::all_of(block.begin() + 4 * values, block.end(), [](unsigned char b) { return b == 0x7F; });
}

float endSession() { return g.end(nullptr, 0.0, nullptr, 0, nullptr, 0, nullptr); }

void exportsTheEntriesAndNothingElse(const char* path) {
    grainsmith::wintest::group("exports");
    g.module = LoadLibraryA(path);
    if (!CHECK(g.module != nullptr)) {
        std::printf("    LoadLibraryA(%s) failed, error %lu\n", path, GetLastError());
        return;
    }
    g.begin = entry("beginSession");
    g.batch = entry("continueSession");
    g.one = entry("continueSessionOne");
    g.end = entry("endSession");
    g.interact = entry("interactWithUser");
    CHECK(g.begin && g.batch && g.one && g.end && g.interact);

    // The core's C interface and the C++ API are in the DLL but not exported from it.
    for (const char* internal : {"grainsmith_kind_count", "grainsmith_default_record",
                                 "_ZN10grainsmith12createByNameESt17basic_string_viewIcSt11char_traitsIcEE",
                                 "_ZNK10grainsmith21CheckerboardTexture3D8evaluateEPKf",
                                 "_ZN10grainsmith13simdLevelNameEv"}) {
        if (!CHECK(GetProcAddress(g.module, internal) == nullptr)) std::printf("    exported: %s\n", internal);
    }
    std::vector<std::string> names = exportedNames(g.module);
    std::sort(names.begin(), names.end());
    const std::vector<std::string> expected = {"beginSession", "continueSession", "continueSessionOne", "endSession",
                                               "interactWithUser"};
    if (!CHECK(names == expected)) {
        std::printf("    %zu exported names:", names.size());
        for (const std::string& n : names) std::printf(" %s", n.c_str());
        std::printf("\n");
    }
}

void sessions() {
    grainsmith::wintest::group("sessions");
    // Nothing begun: nothing written, one point gives 1.0.
    CHECK_EQ(endSession(), 1.0f);
    CHECK_EQ(one(0.3f, 0.3f, 0.3f), 1.0f);
    std::vector<unsigned char> out = batch({0.3f, 0.3f, 0.3f});
    CHECK(untouchedAfter(out, 0));

    // Checkerboard's defaults (depth 1, plain greys): 0.25 where (x even) XOR (y even) XOR
    // (z even) holds for the cell indices, else 0.75. The cell index of -1.0 is -2 (whole
    // negative numbers go one lower), that of -0.5 is -1.
    std::vector<char> checker = defaults("Checkerboard");
    CHECK_EQ(begin(checker), 1.0f);
    const std::vector<float> points = {0.3f, 0.3f, 0.3f,  1.5f, 0.3f, 0.3f,  -0.5f, 0.3f, 0.3f,
                                       -1.0f, 0.3f, 0.3f, 2.0f, 1.0f, 0.5f};
    const float checkerValues[] = {0.25f, 0.75f, 0.75f, 0.25f, 0.75f};
    out = batch(points);
    for (size_t i = 0; i < 5; ++i) {
        CHECK_EQ(at(out, i), checkerValues[i]);
        CHECK_EQ(one(&points[3 * i]), checkerValues[i]);
    }
    CHECK(untouchedAfter(out, 5));
    out = batch({});
    CHECK(untouchedAfter(out, 0));

    // Gradient's defaults (all three directions): the product of |c + 1| / 2 over the
    // coordinates, each first wrapped into [-1, 1] by an even shift when outside it:
    // 3 -> -1 (factor 0), -3.5 -> 0.5 (factor 0.75), 1.5 -> -0.5 (factor 0.25).
    std::vector<char> gradient = defaults("Gradient");
    begin(gradient);
    CHECK_EQ(one(0, 0, 0), 0.125f);
    CHECK_EQ(one(1, 1, 1), 1.0f);
    CHECK_EQ(one(-1, -1, -1), 0.0f);
    CHECK_EQ(one(0.5f, -0.5f, 0), 0.09375f);
    CHECK_EQ(one(1.5f, 0, 0), 0.0625f);
    CHECK_EQ(one(3, 0.5f, 0.5f), 0.0f);
    CHECK_EQ(one(-3.5f, 1, 1), 0.75f);
    out = batch({0.5f, -0.5f, 0, -3.5f, 1, 1});
    CHECK_EQ(at(out, 0), 0.09375f);
    CHECK_EQ(at(out, 1), 0.75f);

    // A record with its own values, then a name that creates nothing: the session stays.
    std::vector<char> constant = record(40, "Constant", 2, 0);
    put<float>(constant, 36, 0.3f);
    begin(constant);
    CHECK_EQ(one(5, 5, 5), 0.3f);
    std::vector<char> unknown = defaults("Perlin");
    begin(unknown);
    CHECK_EQ(one(5, 5, 5), 0.3f);

    // FBM: every octave's noise is 0 at the origin; with two-dimensional flags z has no effect.
    std::vector<char> fbm = defaults("FBM");
    begin(fbm, 2);
    CHECK_EQ(one(0, 0, 0), 0.5f);
    CHECK(!grainsmith::wintest::same(one(0.31f, 0.77f, 0.2f), one(0.31f, 0.77f, 0.9f)));
    begin(fbm, 4);
    CHECK_EQ(one(0.31f, 0.77f, 0.2f), one(0.31f, 0.77f, 0.9f));

    CHECK_EQ(endSession(), 1.0f);
    CHECK_EQ(one(5, 5, 5), 1.0f);
    CHECK_EQ(endSession(), 1.0f);
}

// Points of every sort, the same each run: ordinary ones near and far, whole and half values,
// zeros of both signs, huge values, infinities and NaN.
std::vector<float> awkwardPoints(size_t count) {
    std::uint64_t state = 0x9E3779B97F4A7C15u;
    auto next = [&state] {
        state ^= state << 13;
        state ^= state >> 7;
        state ^= state << 17;
        return state;
    };
    const float specials[] = {0.0f, -0.0f, 0.5f, -0.5f, 1.0f, -1.0f, 2147483648.0f, -2147483904.0f, 1e30f, -1e30f,
                              std::numeric_limits<float>::infinity(), -std::numeric_limits<float>::infinity(),
                              std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::denorm_min()};
    std::vector<float> xyz;
    for (size_t i = 0; i < 3 * count; ++i) {
        const std::uint64_t r = next();
        float v;
        switch (r % 8) {
            case 0: v = specials[(r >> 8) % (sizeof specials / sizeof specials[0])]; break;
            case 1: {  // any bit pattern
                const std::uint32_t bits = static_cast<std::uint32_t>(r >> 32);
                std::memcpy(&v, &bits, sizeof v);
                break;
            }
            case 2: v = static_cast<float>(static_cast<std::int32_t>((r >> 16) % 2001) - 1000) * 0.25f; break;
            default: v = static_cast<float>(static_cast<double>(r >> 11) * 0x1p-53 * 200.0 - 100.0); break;
        }
        xyz.push_back(v);
    }
    return xyz;
}

// Every kind the host can create, in the catalogue's creation order.
const char* const kCreatable[] = {"Checkerboard", "Wood", "Perlin Noise", "Simple Marble", "Stripes", "Spheres",
                                  "Granite", "Gradient", "Constant", "Simplex", "Voronoi", "Brick", "Grid",
                                  "Turbulence", "FBM", "Erosion", "Nested Shapes", "Dents", "Speckled Stone",
                                  "HexTile", "Spiral", "Cheetah", "Voronoi Tiles", "Weave", "Plaid", "Psychedelic",
                                  "Camouflage", "Zigzag", "Corrugated", "Snakeskin", "Scales", "Houndstooth"};

// The batch entry may take a vectorised path for the CPU it runs on (Highway, chosen at run
// time); its values must be the one-point entry's, bit for bit, in this build as in every other.
void batchAgreesWithOnePoint() {
    grainsmith::wintest::group("batch against one point, every creatable kind");
    const size_t count = 301;  // not a multiple of any vector width: the tails are exercised too
    const std::vector<float> xyz = awkwardPoints(count);
    for (const char* name : kCreatable) {
        for (std::int32_t flags : {2, 4}) {
            std::vector<char> r = defaults(name);
            begin(r, flags);
            const std::vector<unsigned char> out = batch(xyz);
            size_t differ = 0, first = count;
            for (size_t i = 0; i < count; ++i) {
                if (!grainsmith::wintest::same(at(out, i), one(&xyz[3 * i]))) {
                    if (differ++ == 0) first = i;
                }
            }
            if (!CHECK(differ == 0 && untouchedAfter(out, count))) {
                std::printf("    %s, flags %d: %zu of %zu points differ", name, flags, differ, count);
                if (first < count) {
                    std::printf(", first (%a, %a, %a): batch ", xyz[3 * first], xyz[3 * first + 1], xyz[3 * first + 2]);
                    grainsmith::wintest::show(at(out, first));
                    std::printf(", one point ");
                    grainsmith::wintest::show(one(&xyz[3 * first]));
                }
                std::printf("\n");
            }
        }
    }
    endSession();
}

int g_callbacks = 0;
void countCallback(float, int, void*, int, char*, char*) { ++g_callbacks; }

// Without the editor (no Qt on Windows) interactWithUser returns at once: 1.0, both blocks as
// they were, no host callback.
void interactReturnsAtOnce() {
    grainsmith::wintest::group("interactWithUser");
    std::vector<char> rec = record(48, "Checkerboard", 3, 0);
    put<std::int32_t>(rec, 36, 3);
    std::vector<char> transform(44);
    for (size_t i = 0; i < transform.size(); ++i) transform[i] = static_cast<char>(0xA0 + i);
    const std::vector<char> recordBefore = rec, transformBefore = transform;
    void* hostData[8] = {};
    hostData[7] = reinterpret_cast<void*>(&countCallback);
    CHECK_EQ(g.interact(nullptr, 0.0, rec.data(), static_cast<int>(rec.size()), transform.data(), 44, hostData), 1.0f);
    CHECK(rec == recordBefore);
    CHECK(transform == transformBefore);
    CHECK_EQ(g_callbacks, 0);

    std::vector<char> empty(256, 0);  // no texture chosen yet
    CHECK_EQ(g.interact(nullptr, 0.0, empty.data(), 256, transform.data(), 44, nullptr), 1.0f);
    CHECK(std::all_of(empty.begin(), empty.end(), [](char c) { return c == 0; }));
    CHECK(transform == transformBefore);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::printf("usage: %s PATH-TO-grainsmith.dll\n", argv[0]);
        return 2;
    }
    exportsTheEntriesAndNothingElse(argv[1]);
    if (g.begin && g.batch && g.one && g.end && g.interact) {
        sessions();
        batchAgreesWithOnePoint();
        interactReturnsAtOnce();
    }
    return grainsmith::wintest::finish();
}
