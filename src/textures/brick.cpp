#include "grainsmith/textures/brick.h"

#include <cmath>
#include <cstring>

#include "grainsmith/numeric.h"

namespace grainsmith {

namespace {
constexpr const char* kPatternNames[] = {"Herringbone", "Running Bond"};
}  // namespace

// Listed in the order of the editor page: style, dimensions, rounded corners, colours,
// row offset variability.
ParamTable BrickTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "pattern", .type = FieldType::Enum, .offset = offsetof(BrickData, pattern), .defaultValue = 1,
         .choices = kPatternNames, .group = "Style", .label = "Pattern", .widget = Widget::Combo,
         .description = "Bond: herringbone (two-by-one bricks along diagonal bands) or running bond."},
        {.name = "brickWidth", .type = FieldType::Float32, .offset = offsetof(BrickData, brickWidth),
         .defaultValue = 0.8, .group = "Dimensions", .label = "Width", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.01, .decimals = 3, .objectName = "width",
         .description = "Brick length along x in running bond; herringbone ignores it."},
        {.name = "brickHeight", .type = FieldType::Float32, .offset = offsetof(BrickData, brickHeight),
         .defaultValue = 0.225, .group = "Dimensions", .label = "Height", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.001, .decimals = 3, .objectName = "height",
         .description = "Brick height along y; in herringbone also the side of the square half-brick."},
        {.name = "brickDepth", .type = FieldType::Float32, .offset = offsetof(BrickData, brickDepth),
         .defaultValue = 0.4, .group = "Dimensions", .label = "Depth", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.001, .decimals = 3, .objectName = "depth",
         .description = "Brick depth along z."},
        {.name = "mortarThickness", .type = FieldType::Float32, .offset = offsetof(BrickData, mortarThickness),
         .defaultValue = 0.01, .group = "Dimensions", .label = "Mortar Thickness", .widget = Widget::DoubleSpin,
         .minimum = 0.001, .maximum = 99.99, .step = 0.001, .decimals = 3,
         .description = "Full width of the mortar joint between two bricks."},
        {.name = "roundedCornersEnabled", .type = FieldType::Bool,
         .offset = offsetof(BrickData, roundedCornersEnabled), .defaultValue = 0, .group = "Rounded Corners",
         .label = "Enable", .widget = Widget::Toggle, .objectName = "roundedCornersEnable",
         .description = "Rounds the brick corners in the x-y face."},
        {.name = "roundedCornersRadius", .type = FieldType::Float32,
         .offset = offsetof(BrickData, roundedCornersRadius), .defaultValue = 0.25, .group = "Rounded Corners",
         .label = "Radius", .widget = Widget::Slider, .scale = 0.01,
         .description = "Corner radius as a fraction of half the smaller brick face dimension."},
        {.name = "brickColor", .type = FieldType::Float32, .offset = offsetof(BrickData, brickColor),
         .defaultValue = 0.223688006401062, .group = "Colors", .label = "Brick", .widget = Widget::Slider,
         .scale = 0.01, .description = "Grey of every brick when colours are not randomized."},
        {.name = "mortarColor", .type = FieldType::Float32, .offset = offsetof(BrickData, mortarColor),
         .defaultValue = 0.5, .group = "Colors", .label = "Mortar", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the mortar and of the cut-off corners."},
        {.name = "randomizeColors", .type = FieldType::Bool, .offset = offsetof(BrickData, randomizeColors),
         .defaultValue = 0, .group = "Colors", .label = "Randomize", .widget = Widget::Toggle,
         .description = "Gives each brick its own random grey between the minimum and the maximum."},
        {.name = "minColor", .type = FieldType::Float32, .offset = offsetof(BrickData, minColor), .defaultValue = 0,
         .group = "Colors", .label = "Minimum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Darkest random brick grey."},
        {.name = "maxColor", .type = FieldType::Float32, .offset = offsetof(BrickData, maxColor),
         .defaultValue = 0.5, .group = "Colors", .label = "Maximum", .widget = Widget::Slider, .scale = 0.01,
         .description = "Lightest random brick grey."},
        {.name = "rowOffsetVariabilityEnabled", .type = FieldType::Bool,
         .offset = offsetof(BrickData, rowOffsetVariabilityEnabled), .defaultValue = 0,
         .group = "Row Offset Variability", .label = "Enable", .widget = Widget::Toggle,
         .objectName = "rowOffsetVariabilityEnable",
         .description = "Shifts each running-bond course by its own random amount."},
        {.name = "rowOffsetVariabilityAmplitude", .type = FieldType::Float32,
         .offset = offsetof(BrickData, rowOffsetVariabilityAmplitude), .defaultValue = 0.1,
         .group = "Row Offset Variability", .label = "Amplitude", .widget = Widget::Slider, .scale = 0.01,
         .description = "Largest course shift, in brick lengths (brick width plus mortar)."},
    };
    return table;
}

void BrickTexture3D::migrate(const char* oldRecord) {
    BrickDataV3 old;
    std::memcpy(&old, oldRecord, sizeof old);
    data_.brickHeight = old.brickHeight;
    data_.brickWidth = old.brickWidth;
    data_.brickDepth = old.brickDepth;
    data_.mortarThickness = old.mortarThickness;
    data_.randomizeColors = old.randomizeColors;
    data_.minColor = old.minColor;
    data_.maxColor = old.maxColor;
}

float BrickTexture3D::evaluate(const float* p) const {
    return data_.pattern == RunningBond ? runningBond(p) : herringbone(p);
}

namespace {

// [c] of the bond formulas: 1 when the condition holds, else 0.
int ind(bool c) { return c ? 1 : 0; }

// Inside the brick along one axis: 1 between the two half joints of the cell, else 0.
int between(float f, float margin) { return ind(f >= margin) - ind(f >= 1.0f - margin); }

// The point (fu, fv) lies on or outside the circle of radius r about (cu, cv).
bool outsideCircle(float cu, float cv, float fu, float fv, float r) {
    const float dv = cv - fv, du = cu - fu;
    return dv * dv + du * du >= r * r;
}

}  // namespace

float BrickTexture3D::runningBond(const float* p) const {
    const float H = data_.brickHeight, W = data_.brickWidth, D = data_.brickDepth, M = data_.mortarThickness;
    const float h = M * 0.5f;
    const float cx = W + M, cy = H + M, cz = D + M;
    const float ix = 1.0f / cx, iy = 1.0f / cy, iz = 1.0f / cz;
    const float z = planar() ? 0.5f : p[2];

    float u = p[0] * ix;
    const float v = p[1] * iy;
    const float w = z * iz;

    // Every other course, and every other layer, is shifted by half a brick.
    const float f = std::fmod(v * 0.5f, 1.0f);
    if ((p[1] >= 0.0f && std::fabs(f) > 0.5f) || (p[1] < 0.0f && std::fabs(f) < 0.5f)) u += 0.5f;
    const float g = std::fmod(w * 0.5f, 1.0f);
    if ((z >= 0.0f && std::fabs(g) > 0.5f) || (z < 0.0f && std::fabs(g) < 0.5f)) u += 0.5f;

    const int32_t row = cellFloor(v), layer = cellFloor(w);
    const float rowF = static_cast<float>(row), layerF = static_cast<float>(layer);
    if (data_.rowOffsetVariabilityEnabled)
        u += (cellRandom2(rowF, layerF) - 0.5f) * data_.rowOffsetVariabilityAmplitude;

    const int32_t col = cellFloor(u);
    const float colF = static_cast<float>(col);
    float fu = u - colF, fv = v - rowF;
    const float fw = w - layerF;

    const int inside = between(fu, h * ix) * between(fv, h * iy) * between(fw, h * iz);
    float B = data_.brickColor;
    if (data_.randomizeColors) B = data_.minColor + (data_.maxColor - data_.minColor) * cellRandom3(colF, rowF, layerF);
    const float value = static_cast<float>(1 - inside) * data_.mortarColor + static_cast<float>(inside) * B;

    if (!data_.roundedCornersEnabled || value != B) return value;

    // Rounded corners in the x-y face, worked in units of the larger cell dimension.
    const float m = W <= H ? W : H;
    const float C = cy <= cx ? cx : cy;
    if (m == W)
        fu = fu * cx * iy;
    else
        fv = fv * cy * ix;
    const float r = m * 0.5f * (1.0f / C) * data_.roundedCornersRadius;
    const float e = (1.0f / C) * h + r;
    float Eu, Ev;
    if (m == H) {
        Eu = 1.0f;
        Ev = cy * ix;
    } else {
        Eu = cx * iy;
        Ev = 1.0f;
    }
    const bool cut = (fu <= e && fv <= e && outsideCircle(e, e, fu, fv, r)) ||
                     (fu >= Eu - e && fv <= e && outsideCircle(Eu - e, e, fu, fv, r)) ||
                     (fu <= e && fv >= Ev - e && outsideCircle(e, Ev - e, fu, fv, r)) ||
                     (fu >= Eu - e && fv >= Ev - e && outsideCircle(Eu - e, Ev - e, fu, fv, r));
    return cut ? data_.mortarColor : value;
}

float BrickTexture3D::herringbone(const float* p) const {
    // Bricks are two square cells of side H + M; the brick width plays no part.
    const float H = data_.brickHeight, D = data_.brickDepth, M = data_.mortarThickness;
    const float h = M * 0.5f;
    const float cy = H + M, iy = 1.0f / cy;
    const float cz = D + M, iz = 1.0f / cz;

    const float u = p[0] * iy, v = p[1] * iy;
    const float w = planar() ? (p[2] + 0.5f) * iz : p[2] * iz;
    const float a = std::floor(u), b = std::floor(v);

    // Diagonal bands two cells wide alternate between vertical and horizontal bricks.
    const double band = std::floor(static_cast<double>((a + b) * 0.5f));
    const bool vertical = std::fabs(std::fmod(band, 2.0)) != 0.0;

    const float fu = u - a, fv = v - b, fw = w - std::floor(w);
    const bool pa = toInt32(a) % 2 == 0, pb = toInt32(b) % 2 == 0;
    const bool odd = pa != pb;

    // A cell holds one half of a brick: the joint runs round three of its sides.
    const float e = h * iy, ez = h * iz;
    int bu, bv;
    if (vertical) {
        bu = between(fu, e);
        bv = odd ? 1 - ind(fv >= 1.0f - e) : ind(fv >= e);
    } else {
        bv = between(fv, e);
        bu = odd ? 1 - ind(fu >= 1.0f - e) : ind(fu >= e);
    }
    const int inside = bu * bv * between(fw, ez);

    float B = data_.brickColor;
    if (data_.randomizeColors) {
        // Both halves of one brick hash to the same cell.
        float r;
        if (vertical)
            r = pa ? cellRandom3(u, v * 0.5f, w) : cellRandom3(u, (v + 1.0f) * 0.5f, w);
        else
            r = pb ? cellRandom3(u * 0.5f, v, w) : cellRandom3((u + 1.0f) * 0.5f, v, w);
        B = data_.minColor + (data_.maxColor - data_.minColor) * r;
    }
    const float value = static_cast<float>(1 - inside) * data_.mortarColor + static_cast<float>(inside) * B;

    if (!data_.roundedCornersEnabled || value != B) return value;

    // Only the two outer corners of this half-brick can be rounded; the first that holds
    // the point is the one tested.
    const float r = H * 0.5f * iy * data_.roundedCornersRadius;
    const float E = h * iy + r;
    const float F = 1.0f - E;
    bool selected = false;
    float cu = 0.0f, cv = 0.0f;
    auto select = [&](bool c, float u0, float v0) {
        if (!selected && c) {
            selected = true;
            cu = u0;
            cv = v0;
        }
    };
    if (vertical && odd) {
        select(fu <= E && fv >= F, E, F);
        select(fu >= F && fv >= F, F, F);
    } else if (vertical) {
        select(fu <= E && fv <= E, E, E);
        select(fu >= F && fv <= E, F, E);
    } else if (odd) {
        select(fv <= E && fu >= F, F, E);
        select(fv >= F && fu >= F, F, F);
    } else {
        select(fv <= E && fu <= E, E, E);
        select(fv >= F && fu <= E, E, F);
    }
    return selected && outsideCircle(cu, cv, fu, fv, r) ? data_.mortarColor : value;
}

}  // namespace grainsmith
