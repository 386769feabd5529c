// The texture base, the record rules every kind shares, and the catalogue with its factory.
#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/textures/constant.h"

using namespace grainsmith;

namespace {

struct Handle {
    const Kind* kind;
    Texture3D* texture;
    explicit Handle(const Kind& k) : kind(&k), texture(k.ops->create()) {}
    ~Handle() { kind->ops->destroy(texture); }
    std::vector<char> record() const {
        std::vector<char> out(static_cast<size_t>(kind->recordSize));
        texture->getDescription(out.data());
        return out;
    }
};

std::vector<const Kind*> implementedKinds() {
    std::vector<const Kind*> kinds;
    for (const Kind& k : catalogue())
        if (k.implemented()) kinds.push_back(&k);
    return kinds;
}

}  // namespace

TEST(Texture3DBase, ExportsEmptyAndEvaluatesToOne) {
    Texture3D base;
    EXPECT_EQ(base.getFlags(), 2);
    char out[8];
    std::memset(out, 'x', sizeof out);
    base.getDescription(out);
    EXPECT_EQ(std::memcmp(out, "Empty\0", 6), 0);
    EXPECT_EQ(out[6], 'x');  // six bytes exactly
    const float p[3] = {0.3f, -7.0f, 1e30f};
    EXPECT_EQ(base(p), 1.0f);
    float values[3] = {5, 5, 5};
    base(p, 2, values);
    EXPECT_EQ(values[0], 1.0f);
    EXPECT_EQ(values[1], 1.0f);
    EXPECT_EQ(values[2], 5.0f);
    base(p, 0, values + 2);
    base(p, -4, values + 2);
    EXPECT_EQ(values[2], 5.0f);
}

TEST(Texture3DBase, BatchGoesThroughTheOnePointSlot) {
    // A subclass overriding the one-point slot sees every batch point, in order.
    struct Recording : ConstantTexture3D {
        mutable std::vector<const float*> seen;
        float operator()(const float* p) const override {
            seen.push_back(p);
            return static_cast<float>(seen.size());
        }
        using ConstantTexture3D::operator();
    } t;
    const float points[9] = {};
    float out[3] = {0, 0, -1};
    t(points, 2, out);
    ASSERT_EQ(t.seen.size(), 2u);
    EXPECT_EQ(t.seen[0], points);
    EXPECT_EQ(t.seen[1], points + 3);
    EXPECT_EQ(out[0], 1.0f);
    EXPECT_EQ(out[1], 2.0f);
    EXPECT_EQ(out[2], -1.0f);
}

TEST(RecordRules, FreshObjectExportsItsHead) {
    for (const Kind* kind : implementedKinds()) {
        SCOPED_TRACE(kind->name);
        Handle h(*kind);
        const std::vector<char> r = h.record();
        EXPECT_EQ(static_cast<unsigned char>(r[0]), kind->recordSize);
        EXPECT_STREQ(r.data() + 1, kind->name);
        EXPECT_EQ(r[33], kind->majorVersion);
        EXPECT_EQ(r[34], 0);
        EXPECT_EQ(r[35], 1);
        EXPECT_EQ(h.texture->getFlags(), 2);
    }
}

TEST(RecordRules, EqualVersionsRoundTripByteForByte) {
    std::mt19937 rng(12345);
    for (const Kind* kind : implementedKinds()) {
        SCOPED_TRACE(kind->name);
        for (int trial = 0; trial < 20; ++trial) {
            std::vector<char> in(static_cast<size_t>(kind->recordSize));
            for (char& b : in) b = static_cast<char>(rng());
            in[33] = static_cast<char>(kind->majorVersion);
            in[34] = 0;
            Handle h(*kind);
            h.texture->setStateFromDescription(in.data());
            EXPECT_EQ(h.record(), in);  // head, padding and parameters copied as they are
        }
    }
}

TEST(RecordRules, OtherVersionsAreIgnored) {
    std::mt19937 rng(777);
    for (const Kind* kind : implementedKinds()) {
        SCOPED_TRACE(kind->name);
        Handle fresh(*kind);
        for (int minor : {1, 255}) {
            std::vector<char> in(static_cast<size_t>(kind->recordSize));
            for (char& b : in) b = static_cast<char>(rng());
            in[33] = static_cast<char>(kind->majorVersion);
            in[34] = static_cast<char>(minor);
            Handle h(*kind);
            h.texture->setStateFromDescription(in.data());
            EXPECT_EQ(h.record(), fresh.record());
        }
        // A major version with no migration is ignored too.
        std::vector<char> in(static_cast<size_t>(kind->recordSize), 0x55);
        in[33] = static_cast<char>(kind->majorVersion + 7);
        in[34] = 0;
        Handle h(*kind);
        h.texture->setStateFromDescription(in.data());
        EXPECT_EQ(h.record(), fresh.record());
    }
}

TEST(RecordRules, ParameterTablesMatchTheRecordLayout) {
    for (const Kind* kind : implementedKinds()) {
        SCOPED_TRACE(kind->name);
        for (const Param& p : kind->ops->parameters()) {
            SCOPED_TRACE(p.name);
            const int width = p.type == FieldType::Bool ? 1 : 4;
            EXPECT_GE(p.offset, 36);
            EXPECT_LE(p.offset + width, kind->recordSize);
            EXPECT_EQ(p.offset % width, 0);
            if (p.type == FieldType::Enum) {
                EXPECT_FALSE(p.choices.empty());
            }
        }
    }
}

// The catalogue, as the system defines it: name, record size, major version, creation and
// editor positions (0: none), and whether the kind honours two-dimensional mode.
struct ExpectedKind {
    const char* name;
    int size, major, create, editor;
    bool planar;
};
constexpr ExpectedKind kExpected[] = {
    {"Checkerboard", 48, 3, 1, 2, false},   {"Wood", 60, 2, 2, 3, false},
    {"Perlin Noise", 48, 2, 3, 1, true},    {"Simple Marble", 44, 2, 4, 4, true},
    {"Stripes", 60, 4, 5, 5, false},        {"Spheres", 48, 2, 6, 6, true},
    {"Granite", 44, 2, 7, 7, true},         {"Gradient", 39, 2, 8, 8, false},
    {"Constant", 40, 2, 9, 0, false},       {"Simplex", 40, 2, 10, 9, true},
    {"Voronoi", 48, 2, 11, 10, true},       {"Brick", 92, 4, 12, 11, true},
    {"Grid", 52, 3, 13, 12, true},          {"Turbulence", 52, 2, 14, 13, true},
    {"FBM", 52, 2, 15, 14, true},           {"Erosion", 44, 2, 16, 15, true},
    {"Nested Shapes", 44, 2, 17, 16, false}, {"Dents", 44, 2, 18, 17, true},
    {"Speckled Stone", 56, 2, 19, 18, true}, {"HexTile", 64, 3, 20, 19, false},
    {"Spiral", 44, 2, 21, 20, true},        {"Cheetah", 48, 1, 22, 21, true},
    {"Voronoi Tiles", 96, 1, 23, 22, true}, {"Weave", 96, 3, 24, 23, false},
    {"Plaid", 80, 1, 25, 24, false},        {"Psychedelic", 48, 1, 26, 25, true},
    {"Camouflage", 56, 1, 27, 26, true},    {"Zigzag", 44, 1, 28, 27, false},
    {"Corrugated", 40, 1, 29, 28, false},   {"Snakeskin", 96, 1, 30, 29, false},
    {"Scales", 124, 1, 31, 30, false},      {"Houndstooth", 48, 1, 32, 31, false},
    {"Cell Noise", 48, 2, 0, 0, false},     {"Penrose Rhombus", 68, 1, 0, 0, false},
};

TEST(Catalogue, HoldsAllThirtyFourKinds) {
    ASSERT_EQ(catalogue().size(), std::size(kExpected));
    for (const ExpectedKind& e : kExpected) {
        SCOPED_TRACE(e.name);
        const Kind* k = findKind(e.name);
        ASSERT_NE(k, nullptr);
        EXPECT_EQ(k->recordSize, e.size);
        EXPECT_EQ(k->majorVersion, e.major);
        EXPECT_EQ(k->minorVersion, 0);
        EXPECT_EQ(k->createOrder, e.create);
        EXPECT_EQ(k->editorOrder, e.editor);
        EXPECT_EQ(k->readsFlags, e.planar);  // Brick reads the flags word although not a planar kind
    }
}

TEST(Factory, CreatesByExactNameOnly) {
    for (const ExpectedKind& e : kExpected) {
        SCOPED_TRACE(e.name);
        const CreatedTexture c = createByName(e.name);
        const Kind* k = findKind(e.name);
        if (e.create == 0 || !k->implemented()) {
            EXPECT_EQ(c.texture, nullptr);  // Cell Noise and Penrose Rhombus are never created by name
            continue;
        }
        ASSERT_NE(c.texture, nullptr);
        EXPECT_EQ(c.kind, k);
        char head[256];
        c.texture->getDescription(head);
        EXPECT_STREQ(head + 1, e.name);
        c.kind->ops->destroy(c.texture);
    }
    for (const char* name : {"", "Perlin", "checkerboard", "Checkerboard ", "Hex Tile", "Empty", "Cell Noise",
                             "Penrose Rhombus"})
        EXPECT_EQ(createByName(name).texture, nullptr) << '"' << name << '"';
}

TEST(Catalogue, RecordNameStopsAtTheZeroOrTheEndOfTheField) {
    // Exactly-sized blocks: AddressSanitizer reports any read past byte 32.
    const std::unique_ptr<char[]> full(new char[33]);
    std::memset(full.get(), 'A', 33);
    EXPECT_EQ(recordName(full.get()), std::string(32, 'A'));
    EXPECT_EQ(findKind(recordName(full.get())), nullptr);
    std::memcpy(full.get() + 1, "Constant", 9);
    EXPECT_EQ(recordName(full.get()), "Constant");
    EXPECT_EQ(findKind(recordName(full.get())), findKind("Constant"));
    full[1] = '\0';
    EXPECT_EQ(recordName(full.get()), "");
}
