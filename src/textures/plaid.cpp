#include "grainsmith/textures/plaid.h"

#include <bit>
#include <cmath>

#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

// Table order is the editor's order: frequencies, periods, the four colours, then the three
// backgrounds (the record keeps the backgrounds before the colours).
ParamTable PlaidTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "horizontalFrequency", .type = FieldType::Float32,
         .offset = offsetof(PlaidData, horizontalFrequency), .defaultValue = 2.0, .group = "Frequency",
         .label = "Horizontal", .widget = Widget::DoubleSpin, .maximum = 99.99, .step = 0.1,
         .description = "Scale of the bands along x: higher values give narrower bands (any real, usually 0.1 to "
                        "10)."},
        {.name = "verticalFrequency", .type = FieldType::Float32, .offset = offsetof(PlaidData, verticalFrequency),
         .defaultValue = 2.0, .group = "Frequency", .label = "Vertical", .widget = Widget::DoubleSpin,
         .maximum = 99.99, .step = 0.1,
         .description = "Scale of the bands along y: higher values give narrower bands (any real, usually 0.1 to "
                        "10)."},
        // Both periods reach the texture through its float setters, which truncate.
        {.name = "horizontalPeriod", .type = FieldType::Int32, .offset = offsetof(PlaidData, horizontalPeriod),
         .defaultValue = 3, .group = "Period", .label = "Horizontal", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 99,
         .description = "Repeat length of the bands along x, in noise units (1 or more; 0 turns the pattern off)."},
        {.name = "verticalPeriod", .type = FieldType::Int32, .offset = offsetof(PlaidData, verticalPeriod),
         .defaultValue = 5, .group = "Period", .label = "Vertical", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 99,
         .description = "Repeat length of the bands along y, in noise units (1 or more; 0 turns the pattern off)."},
        {.name = "color1", .type = FieldType::Float32, .offset = offsetof(PlaidData, color1),
         .defaultValue = std::bit_cast<float>(0x3E6FF10Fu), .group = "Colors", .label = "Color 1",
         .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the bands that run along x (0 to 1)."},
        {.name = "color2", .type = FieldType::Float32, .offset = offsetof(PlaidData, color2),
         .defaultValue = std::bit_cast<float>(0x3E24C272u), .group = "Colors", .label = "Color 2",
         .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the bands that run along y (0 to 1)."},
        {.name = "color3", .type = FieldType::Float32, .offset = offsetof(PlaidData, color3),
         .defaultValue = std::bit_cast<float>(0x3E979B78u), .group = "Colors", .label = "Color 3",
         .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the fine stripes that change every 0.2 units along x (0 to 1)."},
        {.name = "color4", .type = FieldType::Float32, .offset = offsetof(PlaidData, color4), .defaultValue = 0.0,
         .group = "Colors", .label = "Color 4", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey of the fine stripes that change every 0.2 units along y (0 to 1)."},
        {.name = "primaryBackground", .type = FieldType::Float32, .offset = offsetof(PlaidData, primaryBackground),
         .defaultValue = 0.0, .group = "Backgrounds", .label = "Primary", .widget = Widget::Slider, .scale = 0.01,
         .description = "Grey that both noise bands blend towards between them (0 to 1)."},
        {.name = "background2", .type = FieldType::Float32, .offset = offsetof(PlaidData, background2),
         .defaultValue = 0.0, .group = "Backgrounds", .label = "Background 2", .widget = Widget::Slider,
         .scale = 0.01, .description = "Grey that the stripes along x blend towards (0 to 1)."},
        {.name = "background3", .type = FieldType::Float32, .offset = offsetof(PlaidData, background3),
         .defaultValue = std::bit_cast<float>(0x3E24C272u), .group = "Backgrounds", .label = "Background 3",
         .widget = Widget::Slider, .scale = 0.01, .description = "Grey that the stripes along y blend towards (0 to 1)."},
    };
    return table;
}

void PlaidTexture3D::setHorizontalPeriod(float v) { data_.horizontalPeriod = toInt32(v); }
void PlaidTexture3D::setVerticalPeriod(float v) { data_.verticalPeriod = toInt32(v); }

float PlaidTexture3D::band(float a, float period) {
    float m = std::fmod(a, period);
    if (a < 0.0f) m += period;
    return (improved_noise1(m) * (period - m) + improved_noise1(m - period) * m) / period;
}

float PlaidTexture3D::evaluate(const float* p) const {
    const float x = p[0], y = p[1];
    const float a = band(data_.verticalFrequency * y, static_cast<float>(data_.verticalPeriod));
    const float term1 = (1.0f - a) * data_.color1 + a * data_.primaryBackground;
    const float b = band(data_.horizontalFrequency * x, static_cast<float>(data_.horizontalPeriod));
    const float term2 = (1.0f - b) * data_.color2 + b * data_.primaryBackground;
    // Fine stripes every 0.2 units, independent of the frequencies.
    const float c = cellRandom1(x * 5.0f);
    const float term3 = (1.0f - c) * data_.color3 + c * data_.background2;
    const float d = cellRandom1(y * 5.0f);
    const float term4 = (1.0f - d) * data_.color4 + d * data_.background3;
    const float sum = term2 + term1 + term3 + term4;
    const float capped = sum >= 1.0f ? 1.0f : sum;
    return capped > 0.0f ? capped : 0.0f;
}

}  // namespace grainsmith
