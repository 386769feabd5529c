#include "placement.h"

#include <cmath>
#include <cstring>
#include <numbers>

namespace demo {

Placement Placement::fromBlock(const TransformBlock& block) {
    static_assert(sizeof(Placement) == std::tuple_size_v<TransformBlock>);
    Placement p;
    std::memcpy(&p, block.data(), sizeof p);
    return p;
}

TransformBlock Placement::toBlock() const {
    TransformBlock block;
    std::memcpy(block.data(), this, sizeof *this);
    return block;
}

void Placement::apply(const float p[3], const float centre[3], float out[3]) const {
    double v[3];
    for (int i = 0; i < 3; ++i) v[i] = double(overallScale) * scale[i] * (p[i] - centre[i]);
    const auto turn = [&](int a, int b, float turns) {
        const double angle = 2.0 * std::numbers::pi * turns;
        const double c = std::cos(angle), s = std::sin(angle);
        const double x = v[a], y = v[b];
        v[a] = c * x - s * y;
        v[b] = s * x + c * y;
    };
    turn(1, 2, rotate[0]);
    turn(2, 0, rotate[1]);
    turn(0, 1, rotate[2]);
    for (int i = 0; i < 3; ++i) out[i] = static_cast<float>(centre[i] + translate[i] + v[i]);
}

}  // namespace demo
