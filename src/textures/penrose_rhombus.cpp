#include "grainsmith/textures/penrose_rhombus.h"

#include <cmath>

namespace grainsmith {

// The randomize flags and the minimum/maximum greys are edited and carried but never evaluated.
ParamTable PenroseRhombusTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "skinnyColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, skinnyColor),
         .defaultValue = 0.5, .group = "Skinny Rhombi", .label = "Color", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey at the centre of the skinny rhombi (0 to 1)."},
        {.name = "fatColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, fatColor),
         .defaultValue = 1.0, .group = "Fat Rhombi", .label = "Color", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey at the centre of the fat rhombi (0 to 1)."},
        {.name = "skinnyRandomize", .type = FieldType::Bool, .offset = offsetof(PenroseRhombusData, skinnyRandomize),
         .defaultValue = 0, .group = "Skinny Rhombi", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Stored for the editor; does not change the texture."},
        {.name = "skinnyMinColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, skinnyMinColor),
         .defaultValue = 0.0, .group = "Skinny Rhombi", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Stored for the editor; does not change the texture."},
        {.name = "skinnyMaxColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, skinnyMaxColor),
         .defaultValue = 0.5, .group = "Skinny Rhombi", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Stored for the editor; does not change the texture."},
        {.name = "fatRandomize", .type = FieldType::Bool, .offset = offsetof(PenroseRhombusData, fatRandomize),
         .defaultValue = 0, .group = "Fat Rhombi", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Stored for the editor; does not change the texture."},
        {.name = "fatMinColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, fatMinColor),
         .defaultValue = 0.5, .group = "Fat Rhombi", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Stored for the editor; does not change the texture."},
        // Its slider goes through setFatMaxColor, which writes skinnyMaxColor; only a record sets this field.
        {.name = "fatMaxColor", .type = FieldType::Float32, .offset = offsetof(PenroseRhombusData, fatMaxColor),
         .defaultValue = 1.0, .group = "Fat Rhombi", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Stored for the editor (its slider writes the skinny maximum); does not change the "
                        "texture."},
    };
    return table;
}

namespace {

// Unit vectors at 0, 216, 72, 288 and 144 degrees.
constexpr float kCos[5] = {1.0f, -0.809017f, 0.309017f, 0.309017f, -0.809017f};
constexpr float kSin[5] = {0.0f, -0.58778524f, 0.95105654f, -0.95105654f, 0.58778524f};

bool inUnit(float c) { return c >= 0.0f && c <= 1.0f; }

}  // namespace

void PenroseRhombusTexture3D::find_penrose_rhomb(float x, float y, float out[3]) {
    float g[5];
    for (int j = 0; j < 5; ++j) {
        const float d = x * kCos[j] + y * kSin[j];
        // 0.4 sets the rhombus size relative to texture units.
        const float w = static_cast<float>(static_cast<double>(d) * 0.4 + 3.141592653589793) + 1.25f;
        g[j] = std::fmod(w, 1.0f) - 1.25f;
    }
    float best = 1000.0f;
    for (float m = 0.0f; m < 32.0f; m += 1.0f) {
        // The five low bits of m select which of the two neighbouring grid lines each family uses.
        float t[5];
        float z = m;
        for (int j = 0; j < 5; ++j) {
            const float b = std::fmod(z, 2.0f);
            z = (z - b) * 0.5f;
            t[j] = g[j] + b;
        }
        for (int rotation = 0; rotation < 5; ++rotation) {
            for (int r = 0; r < 2; ++r) {
                const float phi = r == 0 ? 1.618034f : 1.0f - 1.618034f;
                const int k = r + 1;
                const float A = t[5 - 2 * k], B = t[5 - k], C = t[k], E = t[2 * k], T = t[0];
                const float c1 = (A + B) * phi - C;
                const float c0 = -(B * phi + (A + T));
                const float c2 = -(A * phi + (B + E));
                if (inUnit(c0) && inUnit(c1) && inUnit(c2)) {
                    const float u = (C - E) * phi + (A - T);
                    const float v = (C - T) * phi + (B - E);
                    const float du = std::fabs(u - 0.5f), dv = std::fabs(v - 0.5f);
                    const float score = du > dv ? du : dv;
                    if (best > score) {
                        out[0] = u;
                        out[1] = v;
                        out[2] = static_cast<float>(r);
                        best = score;
                    }
                }
            }
            const float first = t[0];
            for (int j = 0; j < 4; ++j) t[j] = t[j + 1];
            t[4] = first;
        }
    }
}

float PenroseRhombusTexture3D::evaluate(const float* p) const {
    float found[3] = {0.0f, 0.0f, 0.0f};
    find_penrose_rhomb(p[0], p[1], found);
    const float u = found[0], v = found[1];
    auto smaller = [](float a, float b) { return a < b ? a : b; };
    const float e = smaller(smaller(smaller(u, 1.0f - u), v), 1.0f - v);  // distance to the nearest edge
    float shade = 1.0f;
    if (e < 0.0f) {
        shade = 0.0f;
    } else if (e < 0.1f) {
        const float s = e * 10.0f;
        shade = (3.0f - s * 2.0f) * s * s;  // smooth step over the outer tenth
    }
    return found[2] != 0.0f ? shade * data_.fatColor : shade * data_.skinnyColor;
}

}  // namespace grainsmith
