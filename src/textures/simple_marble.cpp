#include "grainsmith/textures/simple_marble.h"

#include "grainsmith/limits.h"
#include "grainsmith/noise/improved_noise.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

ParamTable SimpleMarbleTexture3D::parameters() {
    static constexpr Param table[] = {
        {.name = "octaves", .type = FieldType::Int32, .offset = offsetof(SimpleMarbleData, octaves),
         .defaultValue = 4, .group = "Marble", .label = "Octaves", .widget = Widget::IntSpin, .minimum = 1,
         .maximum = 16,
         .description = "Number of noise terms in the veins' perturbation; more add finer veining."},
        {.name = "textureScale", .type = FieldType::Float32, .offset = offsetof(SimpleMarbleData, textureScale),
         .defaultValue = 2.5, .group = "Marble", .label = "Texture Scale", .widget = Widget::DoubleSpin,
         .minimum = 0, .maximum = 99.99, .step = 0.1, .decimals = 3,
         .description = "Factor applied to the point: narrower, denser veins as it grows."},
    };
    return table;
}

namespace {

// Knots of the marble colour spline. The last entry is not a knot: at the top of the range
// (t = 10, u = 0) the spline reads one knot past the twelfth and weights it by zero, so it
// only has to be finite.
constexpr float kKnots[14] = {0.7349143f,  0.7349143f,  0.32697144f, 0.32697144f, 0.32697144f,
                              0.7349143f,  0.7349143f,  0.18617715f, 0.18617715f, 0.12078286f,
                              0.12078286f, 0.7349143f,  0.12078286f, 0.0f};

// Catmull-Rom spline through the knots, over a noise sum of about [-0.375, 0.125] mapped to [0, 10].
float marbleSpline(float sum) {
    float t = sum * 2.0f + 0.75f;
    if (t < 0.0f) t = 0.0f;
    if (t > 1.0f) t = 1.0f;
    t = t * 10.0f;
    // Only a NaN sum gets past the clamp; keep its knot reads inside the table (the value
    // stays NaN and the caller's clamp turns it into 0).
    int32_t i = toInt32(t);
    if (i < 0) i = 0;
    if (i > 10) i = 10;
    const float u = t - static_cast<float>(i);
    const float k0 = kKnots[i], k1 = kKnots[i + 1], k2 = kKnots[i + 2], k3 = kKnots[i + 3];
    const float c3 = -0.5f * k0 + 1.5f * k1 - 1.5f * k2 + 0.5f * k3;
    const float c2 = k0 - 2.5f * k1 + 2.0f * k2 - 0.5f * k3;
    const float c1 = 0.5f * k2 - 0.5f * k0;
    return ((c3 * u + c2) * u + c1) * u + k1;
}

}  // namespace

float SimpleMarbleTexture3D::evaluate(const float* p) const {
    const bool flat = planar();
    const float s = data_.textureScale;
    const float qx = p[0] * s;
    const float qy = p[1] * s;
    const float qz = flat ? 0.0f : p[2] * s;  // the plane never reads z
    float sum = 0.0f;
    float f = 1.0f;
    const int terms = capLoopCount(data_.octaves);
    for (int k = 0; k < terms; ++k) {
        const float n = flat ? improved_noise2(qx * f, qy * f) : improved_noise3(qx * f, qy * f, qz * f);
        sum += n / f;
        // The frequency ratio is applied in double and rounded back once.
        f = static_cast<float>(static_cast<double>(f) * 2.17);
    }
    return clamp01(marbleSpline(sum));
}

}  // namespace grainsmith
