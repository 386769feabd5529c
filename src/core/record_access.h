// Checks shared by every reader of records that come from outside (the C API, makeTexture,
// the bindings): which kind a record is of, and whether it may be read or written by name.
#pragma once

#include <cstddef>

#include "core/catalogue.h"

namespace grainsmith {

// A record's size byte is one byte: no record is longer than this.
inline constexpr std::size_t kMaxRecordSize = 256;

// The kind a host can create from this record, as the plug-in's beginSession would: the exact
// name must be of a creatable kind, and the buffer must hold the head and as many bytes as the
// record's size byte says. Null otherwise.
const Kind* creatableKindOf(const void* record, std::size_t size);

// The kind of a record of this library's version whose parameters can be read and written in
// place: an implemented kind by exact name, matching versions, and at least its record size.
const Kind* currentKindOf(const void* record, std::size_t size);

}  // namespace grainsmith
