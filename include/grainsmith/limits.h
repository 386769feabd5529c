// Guards that keep any record bytes from hanging the host.
#pragma once

namespace grainsmith {

// A loop whose count comes from a record field or an argument runs at most this often.
inline constexpr int kMaxLoopCount = 64;

inline int capLoopCount(int count) { return count > kMaxLoopCount ? kMaxLoopCount : count; }

}  // namespace grainsmith
