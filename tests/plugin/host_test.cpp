// Drives libgrainsmith.so exactly as a host does: dlopen, look up the entries, hand over raw
// memory blocks. Nothing of the library is linked in.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <vector>

namespace {

using Entry = float (*)(char*, double, char*, int, char*, int, void**);

struct Plugin {
    void* handle = nullptr;
    Entry begin = nullptr, batch = nullptr, one = nullptr, end = nullptr;
    Plugin() {
        handle = dlopen(GRAINSMITH_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
        if (!handle) return;
        begin = reinterpret_cast<Entry>(dlsym(handle, "beginSession"));
        batch = reinterpret_cast<Entry>(dlsym(handle, "continueSession"));
        one = reinterpret_cast<Entry>(dlsym(handle, "continueSessionOne"));
        end = reinterpret_cast<Entry>(dlsym(handle, "endSession"));
    }
};

Plugin& plugin() {
    static Plugin p;
    return p;
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

float begin(std::vector<char>& rec, int32_t flags = 2) {
    char second[8] = {};
    std::memcpy(second, &flags, sizeof flags);
    return plugin().begin(nullptr, 0.0, rec.data(), static_cast<int>(rec.size()), second, 8, nullptr);
}

float one(float x, float y, float z) {
    float p[3] = {x, y, z};
    return plugin().one(reinterpret_cast<char*>(p), 0.0, nullptr, 0, nullptr, 0, nullptr);
}

// continueSession over the points; returns the whole output block (sentinel 0x7F bytes).
std::vector<unsigned char> batch(const std::vector<float>& xyz) {
    std::vector<char> second(4 + xyz.size() * 4);
    const int32_t n = static_cast<int32_t>(xyz.size() / 3);
    std::memcpy(second.data(), &n, 4);
    if (!xyz.empty()) std::memcpy(second.data() + 4, xyz.data(), xyz.size() * 4);
    std::vector<unsigned char> out(64, 0x7F);
    EXPECT_EQ(plugin().batch(nullptr, 0.0, reinterpret_cast<char*>(out.data()), 64, second.data(),
                             static_cast<int>(second.size()), nullptr),
              1.0f);
    return out;
}

float floatAt(const std::vector<unsigned char>& block, int index) {
    float v;
    std::memcpy(&v, block.data() + 4 * index, 4);
    return v;
}

float endSession() { return plugin().end(nullptr, 0.0, nullptr, 0, nullptr, 0, nullptr); }

}  // namespace

TEST(Host, ExportsTheEntriesAndHidesTheInternals) {
    ASSERT_NE(plugin().handle, nullptr) << dlerror();
    EXPECT_NE(plugin().begin, nullptr);
    EXPECT_NE(plugin().batch, nullptr);
    EXPECT_NE(plugin().one, nullptr);
    EXPECT_NE(plugin().end, nullptr);
    // The catalogue lookup is internal.
    EXPECT_EQ(dlsym(plugin().handle, "_ZN10grainsmith12createByNameESt17basic_string_viewIcSt11char_traitsIcEE"),
              nullptr);
}

TEST(Host, SessionLifecycle) {
    ASSERT_NE(plugin().handle, nullptr) << dlerror();
    // No session yet: nothing is written, one point gives 1.0.
    EXPECT_EQ(endSession(), 1.0f);
    EXPECT_EQ(one(0.3f, 0.3f, 0.3f), 1.0f);
    std::vector<unsigned char> out = batch({0.3f, 0.3f, 0.3f});
    EXPECT_EQ(out[0], 0x7F);

    // A nested checkerboard of depth 2.
    std::vector<char> checker = record(48, "Checkerboard", 3, 0);
    put<int32_t>(checker, 36, 2);
    put<float>(checker, 44, 0.5f);
    EXPECT_EQ(begin(checker), 1.0f);
    out = batch({0.3f, 0.3f, 0.3f, 0.6f, 0.3f, 0.3f, 1.5f, 0.5f, 0.5f});
    EXPECT_EQ(floatAt(out, 0), 0.125f);
    EXPECT_EQ(floatAt(out, 1), 0.375f);
    EXPECT_EQ(floatAt(out, 2), 0.875f);
    EXPECT_EQ(out[12], 0x7F);  // exactly 12 bytes written for three points
    EXPECT_EQ(one(0.6f, 0.3f, 0.3f), 0.375f);
    out = batch({});
    EXPECT_EQ(out[0], 0x7F);  // n = 0 writes nothing

    // Names that create nothing leave the session texture as it was.
    for (const char* name : {"Cell Noise", "Penrose Rhombus", "", "Perlin", "checkerboard"}) {
        std::vector<char> r = record(48, name, 2, 0);
        EXPECT_EQ(begin(r), 1.0f);
        EXPECT_EQ(one(0.6f, 0.3f, 0.3f), 0.375f) << name;
    }

    // A second beginSession replaces the texture (the old one is abandoned, not destroyed).
    std::vector<char> constant = record(40, "Constant", 2, 0);
    put<float>(constant, 36, 0.3f);
    begin(constant);
    EXPECT_EQ(one(5, 5, 5), 0.3f);

    // A record with another minor version creates the kind with its defaults.
    std::vector<char> newer = record(40, "Constant", 2, 1);
    put<float>(newer, 36, 0.9f);
    begin(newer);
    EXPECT_EQ(one(5, 5, 5), 0.5f);

    EXPECT_EQ(endSession(), 1.0f);
    EXPECT_EQ(one(5, 5, 5), 1.0f);
    EXPECT_EQ(endSession(), 1.0f);
}

TEST(Host, FlagsComeFromTheSecondBlock) {
    ASSERT_NE(plugin().handle, nullptr) << dlerror();
    // Checkerboard ignores flags, so two-dimensional flags must not change its values.
    std::vector<char> checker = record(48, "Checkerboard", 3, 0);
    put<int32_t>(checker, 36, 1);
    begin(checker, 8);
    EXPECT_EQ(one(0.5f, 0.5f, 1.5f), 0.75f);

    // FBM honours them: with 4 (or 8) it evaluates the plane and z has no effect.
    std::vector<char> fbm = record(52, "FBM", 2, 0);
    put<int32_t>(fbm, 36, 4);
    put<float>(fbm, 40, 2.0f);
    put<float>(fbm, 44, 0.5f);
    put<float>(fbm, 48, 4.0f);
    begin(fbm, 2);
    EXPECT_EQ(one(0, 0, 0), 0.5f);  // every octave's noise is 0 at the origin
    EXPECT_NE(one(0.31f, 0.77f, 0.2f), one(0.31f, 0.77f, 0.9f));
    for (int32_t planar : {4, 8}) {
        begin(fbm, planar);
        EXPECT_EQ(one(0.31f, 0.77f, 0.2f), one(0.31f, 0.77f, 0.9f));
        EXPECT_EQ(one(0.31f, 0.77f, 0.2f), one(0.31f, 0.77f, NAN));
    }
    endSession();
}

TEST(Host, BrickVersion3RecordsMigrateOnBegin) {
    ASSERT_NE(plugin().handle, nullptr) << dlerror();
    // A 64-byte version 3.2 record: unit bricks without mortar, every brick grey 0.375.
    std::vector<char> old = record(64, "Brick", 3, 2);
    put<float>(old, 36, 1.0f);   // height
    put<float>(old, 40, 1.0f);   // width
    put<float>(old, 44, 1.0f);   // depth
    put<float>(old, 48, 0.0f);   // mortar thickness
    old[52] = 1;                 // randomize colours
    put<float>(old, 56, 0.375f);
    put<float>(old, 60, 0.375f);
    begin(old);
    EXPECT_EQ(one(0.5f, 0.5f, 0.5f), 0.375f);
    EXPECT_EQ(one(0.5f, -1.0f, 0.5f), 0.5f);  // the cell below's joint, in the kept mortar grey
    // A 4.1 record is ignored: the defaults evaluate.
    std::vector<char> newer = record(92, "Brick", 4, 1);
    begin(newer);
    EXPECT_EQ(one(0.1f, 0.1f, 0.1f), 0x1.ca1cfp-3f);
    // Two-dimensional flags fix the running bond's depth at 0.5 (layer 1, shifted half a brick).
    begin(newer, 4);
    EXPECT_EQ(one(0.405f, 0.1f, 0.1f), 0.5f);
    EXPECT_EQ(endSession(), 1.0f);
}
