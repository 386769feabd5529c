// A C++ program that uses the texture classes directly: build a kind, set its parameters
// through its accessors, evaluate a grid of points into a buffer.
#include <cstdio>
#include <vector>

#include "grainsmith/kinds.h"
#include "grainsmith/textures/wood.h"

int main() {
    std::printf("Grainsmith %s, %d kinds\n", grainsmith_version(), grainsmith_kind_count());

    // 1. A kind is an ordinary object; it starts with its defaults.
    grainsmith::WoodTexture3D wood;
    wood.setRingScale(8.0f);  // more rings per unit
    wood.setOctaves(3);       // a rougher perturbation of the rings
    wood.setAmplitude(0.2f);

    // 2. A grid of points on the plane y = 0.5, where Wood's rings show: x across, z down.
    constexpr int kWidth = 48, kHeight = 20;
    std::vector<float> points;
    points.reserve(3 * kWidth * kHeight);
    for (int j = 0; j < kHeight; ++j) {
        for (int i = 0; i < kWidth; ++i) {
            points.push_back(-1.0f + 2.0f * static_cast<float>(i) / kWidth);  // x
            points.push_back(0.5f);                                            // y
            points.push_back(-1.0f + 2.0f * static_cast<float>(j) / kHeight); // z
        }
    }

    // 3. One call evaluates the whole batch: one value per point, as a rule in [0, 1].
    std::vector<float> values(kWidth * kHeight);
    wood(points.data(), kWidth * kHeight, values.data());

    // 4. Show it as characters, darkest to lightest.
    const char shades[] = " .:-=+*#%@";
    float lowest = 1.0f, highest = 0.0f;
    for (int j = 0; j < kHeight; ++j) {
        for (int i = 0; i < kWidth; ++i) {
            const float v = values[j * kWidth + i];
            lowest = v < lowest ? v : lowest;
            highest = v > highest ? v : highest;
            const int level = static_cast<int>((v < 0 ? 0 : v > 1 ? 1 : v) * 9.0f);
            std::putchar(shades[level]);
        }
        std::putchar('\n');
    }
    std::printf("values from %g to %g\n", lowest, highest);

    // 5. The record is the whole state: another texture restored from it gives the same values.
    char record[grainsmith::WoodTexture3D::kRecordSize];
    wood.getDescription(record);
    grainsmith::WoodTexture3D copy;
    copy.setStateFromDescription(record);
    return copy(points.data()) == values[0] ? 0 : 1;
}
