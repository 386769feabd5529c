// The handle-based C API against the two routes a host had before it: the C++ classes and the
// plug-in's session entries, for every kind; then every error path.
#include <dlfcn.h>
#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstring>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/grainsmith.h"
#include "grainsmith/make_texture.h"
#include "grainsmith/textures/brick.h"

using namespace grainsmith;

namespace {

using Entry = float (*)(char*, double, char*, int, char*, int, void**);

std::vector<float> points() {
    std::vector<float> p;
    for (int i = 0; i < 61; ++i) p.insert(p.end(), {i * 0.37f - 11.0f, 3.1f - i * 0.21f, i * 0.53f + 0.3f});
    p.insert(p.end(), {-0.0f, -2.0f, 1e5f, NAN, INFINITY, -1.0f});
    return p;
}

uint32_t bits(float v) { return std::isnan(v) ? 0x7FC00000u : std::bit_cast<uint32_t>(v); }

struct Plugin {
    void* library = dlopen(GRAINSMITH_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    Entry entry(const char* name) const { return reinterpret_cast<Entry>(dlsym(library, name)); }
    ~Plugin() {
        if (library) dlclose(library);
    }
};

// Values of a record through the session entries, batch then one point, as a host calls them.
std::vector<float> sessionValues(const Plugin& plugin, std::vector<char> record, int flags, const std::vector<float>& p) {
    const int n = static_cast<int>(p.size() / 3);
    record.resize(256);
    char flagBlock[4];
    std::memcpy(flagBlock, &flags, 4);
    plugin.entry("beginSession")(nullptr, 0, record.data(), 256, flagBlock, 4, nullptr);
    std::vector<char> list(4 + p.size() * 4);
    std::memcpy(list.data(), &n, 4);
    std::memcpy(list.data() + 4, p.data(), p.size() * 4);
    std::vector<float> out(static_cast<size_t>(n) * 2);
    plugin.entry("continueSession")(nullptr, 0, reinterpret_cast<char*>(out.data()), 4 * n, list.data(),
                                    static_cast<int>(list.size()), nullptr);
    for (int i = 0; i < n; ++i) {
        float point[3] = {p[3 * i], p[3 * i + 1], p[3 * i + 2]};
        out[n + i] = plugin.entry("continueSessionOne")(reinterpret_cast<char*>(point), 0, nullptr, 0, nullptr, 0, nullptr);
    }
    plugin.entry("endSession")(nullptr, 0, nullptr, 0, nullptr, 0, nullptr);
    return out;
}

TEST(HandleApi, GivesTheValuesOfTheClassesAndOfTheSessionEntries) {
    const Plugin plugin;
    ASSERT_NE(plugin.library, nullptr) << dlerror();
    const std::vector<float> p = points();
    const size_t n = p.size() / 3;
    for (const Kind& kind : catalogue()) {
        grainsmith_texture* t = nullptr;
        ASSERT_EQ(grainsmith_texture_create(kind.name, &t), GRAINSMITH_OK) << kind.name;
        // A changed parameter, so the comparison is not of defaults only: the last float one.
        const Param* changed = nullptr;
        for (const Param& param : kind.ops->parameters())
            if (param.type == FieldType::Float32) changed = &param;
        if (changed) {
            ASSERT_EQ(grainsmith_texture_set(t, changed->name, changed->maximum), GRAINSMITH_OK) << kind.name;
        }
        for (int flags : {2, 4}) {
            grainsmith_texture_set_flags(t, flags);
            std::vector<char> record(static_cast<size_t>(grainsmith_texture_record(t, nullptr, 0)));
            ASSERT_EQ(grainsmith_texture_record(t, record.data(), record.size()), kind.recordSize);
            TexturePtr reference = makeTexture(kind.name);
            reference->setStateFromDescription(record.data());
            reference->setFlags(flags);

            std::vector<float> values(n), expected(n);
            grainsmith_texture_evaluate(t, p.data(), n, values.data());
            (*reference)(p.data(), static_cast<int>(n), expected.data());
            const std::vector<float> session =
                kind.creatable() ? sessionValues(plugin, record, flags, p) : std::vector<float>();
            for (size_t i = 0; i < n; ++i) {
                const float one = grainsmith_texture_evaluate_one(t, p[3 * i], p[3 * i + 1], p[3 * i + 2]);
                ASSERT_EQ(bits(values[i]), bits(expected[i])) << kind.name << " flags " << flags << " point " << i;
                ASSERT_EQ(bits(one), bits(expected[i])) << kind.name << " one point " << i;
                if (!session.empty()) {
                    ASSERT_EQ(bits(session[i]), bits(expected[i])) << kind.name << " session batch " << i;
                    ASSERT_EQ(bits(session[n + i]), bits(expected[i])) << kind.name << " session one " << i;
                }
            }
        }
        grainsmith_texture_destroy(t);
    }
}

TEST(HandleApi, SetsAndReadsByNameAsTheToolDoes) {
    grainsmith_texture* t = nullptr;
    ASSERT_EQ(grainsmith_texture_create("brick", &t), GRAINSMITH_OK);  // any case
    EXPECT_EQ(grainsmith_texture_set_text(t, "pattern", "running bond"), GRAINSMITH_OK);
    EXPECT_EQ(grainsmith_texture_set(t, "MORTARTHICKNESS", 0.1), GRAINSMITH_OK);
    EXPECT_EQ(grainsmith_texture_set_text(t, "interactiveUpdate", "off"), GRAINSMITH_OK);
    double v = -1;
    EXPECT_EQ(grainsmith_texture_get(t, "pattern", &v), GRAINSMITH_OK);
    EXPECT_EQ(v, 1.0);
    EXPECT_EQ(grainsmith_texture_get(t, "mortarThickness", &v), GRAINSMITH_OK);
    EXPECT_EQ(v, static_cast<double>(0.1f));  // stored as a float
    BrickData record{};
    ASSERT_EQ(grainsmith_texture_record(t, &record, sizeof record), static_cast<int>(sizeof record));
    EXPECT_EQ(record.pattern, 1);
    EXPECT_EQ(record.mortarThickness, 0.1f);
    EXPECT_FALSE(record.head.interactiveUpdate);

    // The same through a record buffer, and a texture made from that record.
    EXPECT_EQ(grainsmith_record_set_text(&record, sizeof record, "pattern", "0"), GRAINSMITH_OK);
    EXPECT_EQ(grainsmith_record_get(&record, sizeof record, "pattern", &v), GRAINSMITH_OK);
    EXPECT_EQ(v, 0.0);
    grainsmith_texture* fromRecord = nullptr;
    ASSERT_EQ(grainsmith_texture_from_record(&record, sizeof record, &fromRecord), GRAINSMITH_OK);
    EXPECT_EQ(grainsmith_texture_get(fromRecord, "mortarThickness", &v), GRAINSMITH_OK);
    EXPECT_EQ(v, static_cast<double>(0.1f));
    grainsmith_texture_destroy(fromRecord);
    grainsmith_texture_destroy(t);

    EXPECT_EQ(grainsmith_kind_creatable("Wood"), 1);
    EXPECT_EQ(grainsmith_kind_creatable("cell noise"), 0);
    EXPECT_EQ(grainsmith_kind_creatable("Penrose Rhombus"), 0);
}

TEST(HandleApi, EveryErrorHasItsCodeAndLeavesThingsAsTheyWere) {
    grainsmith_texture* t = nullptr;
    EXPECT_EQ(grainsmith_texture_create("Woood", &t), GRAINSMITH_ERROR_UNKNOWN_KIND);
    EXPECT_EQ(t, nullptr);
    EXPECT_EQ(grainsmith_texture_create(nullptr, &t), GRAINSMITH_ERROR_NULL_ARGUMENT);
    EXPECT_EQ(grainsmith_kind_creatable("Marble"), GRAINSMITH_ERROR_UNKNOWN_KIND);
    ASSERT_EQ(grainsmith_texture_create("Brick", &t), GRAINSMITH_OK);
    BrickData before{};
    grainsmith_texture_record(t, &before, sizeof before);

    EXPECT_EQ(grainsmith_texture_set(t, "mortar", 1.0), GRAINSMITH_ERROR_UNKNOWN_PARAMETER);
    EXPECT_EQ(grainsmith_texture_set(t, "pattern", 2.0), GRAINSMITH_ERROR_BAD_VALUE);  // two choices
    EXPECT_EQ(grainsmith_texture_set(t, "pattern", 0.5), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set(t, "interactiveUpdate", 2.0), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set(t, "mortarThickness", 1e39), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set(t, "mortarThickness", 1e-50), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set_text(t, "mortarThickness", "0.1 0.2"), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set_text(t, "pattern", "Flemish"), GRAINSMITH_ERROR_BAD_VALUE);
    EXPECT_EQ(grainsmith_texture_set_text(t, "pattern", nullptr), GRAINSMITH_ERROR_NULL_ARGUMENT);
    double v = 0;
    EXPECT_EQ(grainsmith_texture_get(t, nullptr, &v), GRAINSMITH_ERROR_NULL_ARGUMENT);
    char small[8];
    EXPECT_EQ(grainsmith_texture_record(t, small, sizeof small), GRAINSMITH_ERROR_BUFFER_TOO_SMALL);
    BrickData after{};
    grainsmith_texture_record(t, &after, sizeof after);
    EXPECT_EQ(std::memcmp(&before, &after, sizeof before), 0) << "a refused call changed the texture";

    // Records: too short for the head, shorter than their size byte, of a kind no host creates,
    // of another version (readable by the texture, not writable by name).
    grainsmith_texture* refused = t;
    EXPECT_EQ(grainsmith_texture_from_record(&before, 35, &refused), GRAINSMITH_ERROR_BAD_RECORD);
    EXPECT_EQ(refused, nullptr);
    EXPECT_EQ(grainsmith_texture_from_record(&before, sizeof before - 1, &refused), GRAINSMITH_ERROR_BAD_RECORD);
    std::vector<unsigned char> cell(static_cast<size_t>(findKind("Cell Noise")->recordSize));
    writeDefaultRecord(*findKind("Cell Noise"), cell.data());
    EXPECT_EQ(grainsmith_texture_from_record(cell.data(), cell.size(), &refused), GRAINSMITH_ERROR_BAD_RECORD);
    BrickData old = before;
    old.head.minorVersion = static_cast<char>(old.head.minorVersion + 1);
    EXPECT_EQ(grainsmith_record_set(&old, sizeof old, "pattern", 1), GRAINSMITH_ERROR_BAD_RECORD);
    EXPECT_EQ(grainsmith_record_get(&before, sizeof before - 1, "pattern", &v), GRAINSMITH_ERROR_BAD_RECORD);

    for (int code = 0; code >= -8; --code) EXPECT_NE(grainsmith_error_message(code), nullptr);
    EXPECT_STRNE(grainsmith_error_message(GRAINSMITH_ERROR_UNKNOWN_KIND), grainsmith_error_message(-8));
    grainsmith_texture_destroy(t);
    grainsmith_texture_destroy(nullptr);
}

}  // namespace
