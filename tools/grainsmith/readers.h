// The tool's file readers: description records and point lists. Every bad input ends in one
// cli::Failure naming the file and what was wrong; nothing is read beyond what is needed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "cli.h"

namespace grainsmith::cli {

inline constexpr size_t kMaxRecordBytes = 255;      // the size byte's range
inline constexpr size_t kMaxPointFileBytes = 1u << 30;

// The bytes of a file, at most `limit` + 1 of them (so that the caller can tell that it is
// longer than `limit`). Fails for a missing, unreadable or directory path; `what` says what
// the file should have been ("a description record").
std::vector<unsigned char> readFileBytes(const std::string& path, size_t limit, const char* what);

// A description record of an implemented kind, of its exact size and versions. `source`
// names where the bytes came from in messages (e.g. "'file.rec'").
Record parseRecord(std::vector<unsigned char> bytes, const std::string& source);
Record readRecordFile(const std::string& path);

// Points "x y z", one per line, numbers as --set reads them (see parseFloat32), separated by
// spaces or tabs; blank lines and lines starting with '#' are skipped. Returns x, y, z
// triples in order.
std::vector<float> parsePoints(std::string_view text, const std::string& source);
// From the file `path`, or standard input when `path` is empty.
std::vector<float> readPoints(const std::string& path);

}  // namespace grainsmith::cli
