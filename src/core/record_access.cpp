#include "core/record_access.h"

namespace grainsmith {

const Kind* creatableKindOf(const void* record, std::size_t size) {
    if (!record || size < sizeof(BaseData)) return nullptr;
    const auto* bytes = static_cast<const unsigned char*>(record);
    if (size < bytes[offsetof(BaseData, recordSize)]) return nullptr;
    const Kind* kind = findKind(recordName(static_cast<const char*>(record)));
    return kind && kind->creatable() ? kind : nullptr;
}

const Kind* currentKindOf(const void* record, std::size_t size) {
    if (!record || size < sizeof(BaseData)) return nullptr;
    const auto* head = static_cast<const BaseData*>(record);
    const Kind* kind = findKind(recordName(static_cast<const char*>(record)));
    if (!kind || !kind->implemented() || size < static_cast<std::size_t>(kind->recordSize)) return nullptr;
    if (head->majorVersion != kind->majorVersion || head->minorVersion != kind->minorVersion) return nullptr;
    return kind;
}

}  // namespace grainsmith
