// Scales and Snakeskin, whose evaluations are our own design: created by name, values within
// [0, 1] for any record and point, z never read, every parameter acting, and a few values
// worked by hand from the geometry.
#include <cstring>
#include <random>
#include <string_view>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/textures/scales.h"
#include "grainsmith/textures/snakeskin.h"
#include "textures/noise_kind_test_util.h"

using namespace noise_kind_test;

namespace {

// A parameter and the switch that must be set (on unless said otherwise) for it to show.
struct Acting {
    const char* name;
    const char* enabler;
    double enablerValue = 1.0;
};

const Param& find(ParamTable table, std::string_view name) {
    for (const Param& p : table)
        if (name == p.name) return p;
    ADD_FAILURE() << "no parameter " << name;
    return table[0];
}

template <class T>
std::vector<float> sample(const T& t) {
    std::vector<float> values;
    for (float y = 0.013f; y < 4.0f; y += 0.097f)
        for (float x = 0.021f; x < 4.0f; x += 0.089f) values.push_back(valueAt(t, x, y, 0.0f));
    return values;
}

// Each parameter, changed from its default (toggled, next entry, +2, or moved), changes some
// value of a grid over [0, 4] x [0, 4], with its switch set.
template <class T>
void expectEveryParameterActs(const std::vector<Acting>& acting) {
    ASSERT_EQ(acting.size(), T::parameters().size());
    for (const Acting& a : acting) {
        SCOPED_TRACE(a.name);
        unsigned char record[256];
        T().getDescription(reinterpret_cast<char*>(record));
        if (a.enabler) writeParam(find(T::parameters(), a.enabler), record, a.enablerValue);
        T before;
        before.setStateFromDescription(reinterpret_cast<const char*>(record));
        const Param& p = find(T::parameters(), a.name);
        const double v = readParam(p, record);
        const double changed = p.type == FieldType::Bool ? 1.0 - v
                               : p.type == FieldType::Float32 ? v * 0.5 + 0.13
                                                              : v + (p.type == FieldType::Enum ? 1.0 : 2.0);
        writeParam(p, record, changed);
        T after;
        after.setStateFromDescription(reinterpret_cast<const char*>(record));
        EXPECT_NE(sample(before), sample(after));
    }
}

// Random records (values within and far outside the editor's ranges, NaN and infinities) and
// odd points: every value lies in [0, 1], and z never changes it.
template <class T>
void expectUnitRangeAndNoDepth() {
    std::mt19937 rng(77);
    const float odd[] = {kNaN, kInf, -kInf, 1e30f, -1e30f, 0.0f, 64.0f, 1e-30f, 3e9f};
    for (int n = 0; n < 300; ++n) {
        unsigned char record[256];
        T().getDescription(reinterpret_cast<char*>(record));
        for (const Param& p : T::parameters()) {
            const int pick = static_cast<int>(rng() % 8);
            double v = std::uniform_real_distribution<double>(-0.5, 2.0)(rng);
            if (pick == 0) v = odd[rng() % std::size(odd)];
            if (p.type == FieldType::Int32 || p.type == FieldType::Enum)
                v = pick == 0 ? static_cast<double>(static_cast<int32_t>(rng())) : static_cast<double>(rng() % 12);
            writeParam(p, record, v);
        }
        T t;
        t.setStateFromDescription(reinterpret_cast<const char*>(record));
        for (int k = 0; k < 24; ++k) {
            float x = std::uniform_real_distribution<float>(-6.0f, 6.0f)(rng);
            float y = std::uniform_real_distribution<float>(-6.0f, 6.0f)(rng);
            if (k % 6 == 0) x = odd[rng() % std::size(odd)];
            if (k % 7 == 0) y = odd[rng() % std::size(odd)];
            const float v = valueAt(t, x, y, 0.0f);
            ASSERT_TRUE(v >= 0.0f && v <= 1.0f) << n << ": " << x << ", " << y << " gives " << v;
            ASSERT_EQ(std::memcmp(&v, &static_cast<const float&>(valueAt(t, x, y, -3.7f)), 4), 0);
        }
    }
}

}  // namespace

TEST(Scales, CreatedByNameWithItsRecordLayout) {
    const CreatedTexture c = createByName("Scales");
    ASSERT_NE(c.texture, nullptr);
    c.kind->ops->destroy(c.texture);
    ScalesTexture3D t;
    t.setBodyRandomizeColors(true);
    t.setEdgeMaxColor(0.625f);
    unsigned char record[124];
    t.getDescription(reinterpret_cast<char*>(record));
    EXPECT_EQ(record[0], 124);
    EXPECT_EQ(record[33], 1);
    EXPECT_EQ(record[96], 1);  // body randomize: slot 16, the first byte of bytes 96 to 99
    float edgeMax;
    std::memcpy(&edgeMax, record + 120, 4);  // slot 22, the last field
    EXPECT_EQ(edgeMax, 0.625f);
}

TEST(Scales, ValuesStayInTheUnitRangeAndIgnoreZ) { expectUnitRangeAndNoDepth<ScalesTexture3D>(); }

TEST(Scales, EveryParameterActs) {
    expectEveryParameterActs<ScalesTexture3D>({
        {"scaleShape", nullptr},
        {"shadingAlongEnable", nullptr},
        {"shadingAlongStrength", nullptr},
        {"shadingAcrossEnable", nullptr},
        {"shadingAcrossStrength", nullptr},
        {"baseDimension", nullptr},
        {"edgeDimension", nullptr},
        {"scaleVariabilityEnable", nullptr},
        {"scaleVariabilityFrequency", "scaleVariabilityEnable"},
        {"scaleVariabilityAmplitude", "scaleVariabilityEnable"},
        {"baseColor", nullptr},
        {"baseRandomizeColors", nullptr},
        {"baseMinColor", "baseRandomizeColors"},
        {"baseMaxColor", "baseRandomizeColors"},
        {"bodyColor", "bodyRandomizeColors", 0.0},  // randomized by default
        {"bodyRandomizeColors", nullptr},
        {"bodyMinColor", "bodyRandomizeColors"},
        {"bodyMaxColor", "bodyRandomizeColors"},
        {"edgeColor", nullptr},
        {"edgeRandomizeColors", nullptr},
        {"edgeMinColor", "edgeRandomizeColors"},
        {"edgeMaxColor", "edgeRandomizeColors"},
    });
    // The pointed and diamond outlines differ from each other too.
    ScalesTexture3D pointed, diamond;
    pointed.setScaleShape(ScalesTexture3D::Pointed);
    diamond.setScaleShape(ScalesTexture3D::Diamond);
    EXPECT_NE(sample(pointed), sample(diamond));
}

TEST(Scales, TheUpperRowLiesOnTop) {
    ScalesTexture3D t;  // scale width 0.5: rows 0.2 apart, odd rows shifted by 0.25
    t.setBodyRandomizeColors(false);
    // (0, -0.125) lies straight below the centre of scale (0, 0), half way to its rim: along the
    // scale 0.25 (body colour), 0.125 from the rim (no edge), in the middle across.
    EXPECT_EQ(valueAt(t, 0.0f, -0.125f, 0.0f), 0.8f * (1.0f - 0.6f * 0.25f));
    // (0.15, 0.05) lies inside scale (0, 0) of row 0 and scale (0, 1) of row 1 (centre (0.25,
    // 0.2)); row 1 is on top. Without shading and edge its own random body grey shows:
    // 0.65 + 0.25 x cellRandom3 of the cell (0, 1, 1).
    t.setBodyRandomizeColors(true);
    t.setShadingAlongEnable(false);
    t.setShadingAcrossEnable(false);
    t.setEdgeDimension(0.0f);
    EXPECT_EQ(valueAt(t, 0.15f, 0.05f, 0.0f), 0x1.557476p-1f);
}

TEST(Snakeskin, CreatedByNameWithItsRecordLayout) {
    const CreatedTexture c = createByName("Snakeskin");
    ASSERT_NE(c.texture, nullptr);
    c.kind->ops->destroy(c.texture);
    SnakeskinTexture3D t;
    t.setScaleNoiseOctaves(9);
    unsigned char record[96];
    t.getDescription(reinterpret_cast<char*>(record));
    EXPECT_EQ(record[0], 96);
    int32_t octaves;
    std::memcpy(&octaves, record + 68, 4);  // slot 9
    EXPECT_EQ(octaves, 9);
}

TEST(Snakeskin, ValuesStayInTheUnitRangeAndIgnoreZ) { expectUnitRangeAndNoDepth<SnakeskinTexture3D>(); }

TEST(Snakeskin, EveryParameterActs) {
    expectEveryParameterActs<SnakeskinTexture3D>({
        {"gridWidth", nullptr},
        {"randomizeColors", nullptr},
        {"minColor", "randomizeColors"},
        {"maxColor", "randomizeColors"},
        {"scaleVariabilityEnable", nullptr},
        {"scaleVariabilityFrequency", "scaleVariabilityEnable"},
        {"scaleVariabilityAmplitude", "scaleVariabilityEnable"},
        {"scaleNoiseAdd", nullptr},
        {"scaleNoiseOctaves", "scaleNoiseAdd"},
        {"scaleNoiseLacunarity", "scaleNoiseAdd"},
        {"scaleNoiseGain", "scaleNoiseAdd"},
        {"scaleNoiseDetail", "scaleNoiseAdd"},
        {"roundCornersEnable", nullptr},
        {"roundCornersLeftRightRadius", "roundCornersEnable"},
        {"roundCornersTopBottomRadius", "roundCornersEnable"},
    });
}

TEST(Snakeskin, DiamondScalesBetweenSkinLines) {
    // Without warping and noise: the scale whose lattice cell is (0, 0) has its centre at
    // (0.5, 0) and its left corner at the origin.
    SnakeskinTexture3D t;
    t.setScaleVariabilityEnable(false);
    t.setScaleNoiseAdd(false);
    t.setRandomizeColors(false);
    // Centre: white, fully domed, lit half way between its left and right corners: 1 x 0.875.
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), 0.875f);
    EXPECT_EQ(valueAt(t, 0.7f, 0.0f, 0.0f), 0.75f + 0.25f * 0.7f);  // nearer the free end: lighter
    EXPECT_EQ(valueAt(t, 0.0f, 0.0f, 0.0f), 0.0f);   // a corner: skin
    EXPECT_EQ(valueAt(t, 0.25f, 0.175f, 0.0f), 0.0f);  // on the upper left side
    // 0.08 from both sides near the left corner: a scale with sharp corners, skin once rounded
    // with radius 0.3 (0.3 - sqrt(2) x 0.22 < 0).
    EXPECT_EQ(valueAt(t, 0.08f, 0.0f, 0.0f), 0.0f);
    t.setRoundCornersEnable(false);
    EXPECT_GT(valueAt(t, 0.08f, 0.0f, 0.0f), 0.0f);
    // Random greys per scale: min + (max - min) x cellRandom2 of the cell (0, 0).
    t.setRandomizeColors(true);
    EXPECT_EQ(valueAt(t, 0.5f, 0.0f, 0.0f), (0.55f + (0.9f - 0.55f) * (1376312576.0f * 0x1p-32f)) * 0.875f);
}
