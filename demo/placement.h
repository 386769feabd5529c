// The host's use of the transform block: where each preview pixel samples the texture.
#pragma once

#include <cstdint>

#include "plugin_library.h"

namespace demo {

struct Placement {
    std::int32_t flags = 2;
    float overallScale = 1.0f;
    float translate[3] = {0, 0, 0};
    float scale[3] = {1, 1, 1};
    float rotate[3] = {0, 0, 0};  // whole turns about x, y and z

    static Placement fromBlock(const TransformBlock& block);
    TransformBlock toBlock() const;

    // The texture-space point for the scene point p around `centre`:
    // centre + translate + Rz·Ry·Rx·(overallScale · scale ⊙ (p − centre)).
    void apply(const float p[3], const float centre[3], float out[3]) const;
};

}  // namespace demo
