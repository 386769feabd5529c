// All-or-nothing output files: the content goes to a temporary file next to the destination,
// which is renamed over it only once complete, so a failure never leaves a partial file.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace grainsmith::cli {

// While the temporary exists, SIGINT, SIGTERM, SIGHUP and SIGXFSZ (file size limit) remove
// it and then end the process with that signal's status, so no partial file is left behind.
//
// `fill` writes the content into the open descriptor and returns "" on success or the cause
// of its failure. On failure returns false with "cannot write 'PATH': CAUSE" in `error`.
bool writeAtomically(const std::string& path, const std::function<std::string(int fd)>& fill, std::string& error);

// Checks, before any long work, that `path` can be written: its directory exists and takes
// a new file, and `path` is not a directory. Returns "" or "cannot write 'PATH': CAUSE".
std::string checkWritable(const std::string& path);

// Writes every byte, retrying short writes; returns "" or the cause of the failure.
std::string writeAll(int fd, const void* data, size_t size);

}  // namespace grainsmith::cli
