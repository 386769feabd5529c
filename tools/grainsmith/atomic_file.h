// All-or-nothing output files: the content goes to a temporary file next to the destination,
// which is renamed over it only once complete, so a failure never leaves a partial file.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace grainsmith::cli {

// `fill` writes the content into the open descriptor and returns "" on success or the cause
// of its failure. On failure returns false with "cannot write 'PATH': CAUSE" in `error`.
bool writeAtomically(const std::string& path, const std::function<std::string(int fd)>& fill, std::string& error);

// Writes every byte, retrying short writes; returns "" or the cause of the failure.
std::string writeAll(int fd, const void* data, size_t size);

}  // namespace grainsmith::cli
