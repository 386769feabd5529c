// Simplex-lattice gradient noise in about [-1, 1], hashed through `perm`.
#pragma once

#include "grainsmith/api.h"

namespace grainsmith {

GRAINSMITH_API float simplex_noise2(float x, float y);
GRAINSMITH_API float simplex_noise3(float x, float y, float z);

}  // namespace grainsmith
