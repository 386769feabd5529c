// Loads arbitrary bytes into one kind's page, as a host record of that kind would arrive:
// the kind's own size, name and version followed by the bytes as its interactive-update byte
// and parameters. Used by the robustness tests and the fuzz targets of record loading.
#pragma once

#include <cstddef>
#include <cstdint>

namespace grainsmith {

class MainWindow;
struct Kind;

// Writes the kind's head, copies up to (record size - 35) bytes from byte 35 on, leaves the rest of
// the kind's default parameters, then runs MainWindow::loadFromHost with `transform` (44
// bytes, or the default transform when null).
void loadRecordBytes(MainWindow& dialog, const Kind& kind, const uint8_t* data, size_t size,
                     const char* transform = nullptr);

}  // namespace grainsmith
