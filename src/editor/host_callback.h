// The host's update callback: the one function through which the editor hands each edit
// (a copy of the current record and of the transform block) to the host while the dialog
// is open. The plug-in entry stores it; the dialog only calls it.
#pragma once

namespace grainsmith {

// Called with (4.0f, 8, nullptr, 0, 256-byte record copy, 44-byte transform copy).
using HostUpdateCallback = void (*)(float, int, void*, int, char* record, char* transform);

// Null means no callback: edits are then kept in the dialog only.
void setHostUpdateCallback(HostUpdateCallback callback);
HostUpdateCallback hostUpdateCallback();

}  // namespace grainsmith
