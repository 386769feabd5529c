// The SIMD levels the batch path was built for, and a way to pin one (tests, benchmarks).
#pragma once

#include <cstdint>
#include <vector>

namespace grainsmith::simd {

// Every level this binary holds that the CPU can run, best first (Highway target bits).
std::vector<int64_t> availableLevels();

// Makes the dispatcher use `level` (one of availableLevels()) from now on; 0 restores the
// automatic choice. Not for use while another thread evaluates.
void forceLevel(int64_t level);

// Display name of a level ("AVX2", "SSE4", ...).
const char* levelName(int64_t level);

}  // namespace grainsmith::simd
