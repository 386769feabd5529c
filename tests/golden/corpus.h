// The golden corpus: for every kind, its default record and varied ones, evaluated over one
// fixed point set in three-dimensional and (where the kind honours it) planar mode. The file
// keeps each record's bytes and, per record and mode, a hash of all values plus one short hash
// per block of points, so a build that differs is told which record, mode and block first
// differs. Every build on every platform must reproduce it bit for bit; NaN payloads and signs
// are outside the contract, so every NaN hashes alike.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace grainsmith::golden {

inline constexpr int kPoints = 1024;
inline constexpr int kBlockSize = 32;
inline constexpr int kBlocks = kPoints / kBlockSize;
inline constexpr int kVariedRecords = 21;
inline constexpr int kDefaultFlags = 2;
inline constexpr int kPlanarFlags = 4;

// The fixed points, x y z packed: awkward coordinates first (negative exact integers, -0,
// cell boundaries, 1e5, huge values, NaN and infinities), then random ones at several scales.
// Made from integers only, so every platform builds the same bits.
const std::vector<float>& points();

// Hash of a run of values; every NaN counts as the same NaN.
uint64_t hashValues(const float* values, int n);
// The 16-bit block hashes of kPoints values, as 4 hex digits each.
std::string blockHashes(const float* values);

struct Entry {
    int flags = kDefaultFlags;
    uint64_t hash = 0;
    std::string blocks;  // kBlocks x 4 hex digits
};

struct Record {
    int index = 0;  // 0: the kind's default record
    std::vector<unsigned char> bytes;
    std::vector<Entry> entries;  // one per mode
};

struct KindRecords {
    std::string kind;
    std::vector<Record> records;
};

// The varied records of a kind: its defaults, then records drawn within the editor's ranges,
// every parameter at its minimum and at its maximum, and records with values no editor gives
// (NaN, infinities, negative and huge counts, codes outside the enumerations).
std::vector<std::vector<unsigned char>> makeRecords(const char* kindName);

// Reads and writes the corpus file. read() returns false with a message on a malformed file.
bool read(const std::string& path, std::vector<KindRecords>& out, std::string& error);
bool write(const std::string& path, const std::vector<KindRecords>& corpus, std::string& error);

}  // namespace grainsmith::golden
