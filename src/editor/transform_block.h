// The 44-byte transform block the editor carries for the host: flags, overall scale,
// translate, per-axis scale factors and rotation in whole turns. The library never applies
// it to points; it only shows, edits and returns it.
#pragma once

#include <array>
#include <cstdint>
#include <cstring>

#include "grainsmith/plugin.h"

namespace grainsmith {

struct TransformBlock {
    int32_t flags = 2;
    float overallScale = 1.0f;
    float translate[3] = {0.0f, 0.0f, 0.0f};
    float scale[3] = {1.0f, 1.0f, 1.0f};
    float rotate[3] = {0.0f, 0.0f, 0.0f};  // whole turns: 1.0 is 360 degrees

    static constexpr int kSize = 44;

    void readFrom(const char* block) { std::memcpy(this, block, kSize); }
    void writeTo(char* block) const { std::memcpy(block, this, kSize); }
};
static_assert(sizeof(TransformBlock) == TransformBlock::kSize);
// The same layout as the block's C description in plugin.h.
static_assert(TransformBlock::kSize == GRAINSMITH_TRANSFORM_SIZE &&
              offsetof(TransformBlock, rotate) == offsetof(GrainsmithTransform, rotate));
static_assert(offsetof(TransformBlock, overallScale) == 4 && offsetof(TransformBlock, translate) == 8 &&
              offsetof(TransformBlock, scale) == 20 && offsetof(TransformBlock, rotate) == 32);

}  // namespace grainsmith
