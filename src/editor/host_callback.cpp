#include "editor/host_callback.h"

namespace grainsmith {
namespace {
HostUpdateCallback gCallback = nullptr;  // one per process, kept between dialogs
}

void setHostUpdateCallback(HostUpdateCallback callback) { gCallback = callback; }
HostUpdateCallback hostUpdateCallback() { return gCallback; }

}  // namespace grainsmith
