// The C view of the catalogue (grainsmith/kinds.h).
#include "grainsmith/kinds.h"

#include "core/catalogue.h"
#include "grainsmith/version.h"

using grainsmith::catalogue;
using grainsmith::Kind;

namespace {

const Kind* kindAt(int index) {
    const auto kinds = catalogue();
    if (index < 0 || static_cast<size_t>(index) >= kinds.size()) return nullptr;
    return &kinds[static_cast<size_t>(index)];
}

}  // namespace

extern "C" {

const char* grainsmith_version(void) { return GRAINSMITH_VERSION_STRING; }

int grainsmith_kind_count(void) { return static_cast<int>(catalogue().size()); }

const char* grainsmith_kind_name(int index) {
    const Kind* k = kindAt(index);
    return k ? k->name : nullptr;
}

int grainsmith_kind_implemented(int index) {
    const Kind* k = kindAt(index);
    return k && k->implemented() ? 1 : 0;
}

int grainsmith_default_record(const char* name, unsigned char* out, int capacity) {
    if (name == nullptr) return 0;
    const Kind* k = grainsmith::findKind(name);
    if (k == nullptr || !k->implemented()) return 0;
    if (out != nullptr && capacity >= k->recordSize) grainsmith::writeDefaultRecord(*k, out);
    return k->recordSize;
}

}  // extern "C"
