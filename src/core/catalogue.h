// The one table of texture kinds: identity, record size, version, the two orders in which
// the system walks them, whether they honour two-dimensional mode, and (once a kind is
// implemented) how to create, destroy and describe it.
#pragma once

#include <span>
#include <string_view>

#include "grainsmith/params.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {

struct KindOps {
    Texture3D* (*create)();
    void (*destroy)(Texture3D*);  // deletes through the concrete type (no virtual destructor)
    ParamTable (*parameters)();
};

struct Kind {
    const char* name;        // display name, as stored in records
    const char* className;
    int recordSize;
    int majorVersion;
    int minorVersion;
    int createOrder;         // position in the creation chain; 0: never created by name
    int editorOrder;         // position in the editor's list; 0: not offered
    bool readsFlags;         // honours two-dimensional mode (reads `flags`)
    const KindOps* ops;      // null while the kind is not implemented

    bool implemented() const { return ops != nullptr; }
    bool creatable() const { return createOrder > 0 && implemented(); }
};

// Every kind, in creation order, followed by the kinds that cannot be created by name.
std::span<const Kind> catalogue();

// The kind with this display name, whatever it can do; null when there is none.
const Kind* findKind(std::string_view name);

// The display name held in a record's name field (bytes 1 to 32): up to its first zero byte,
// or all 32 bytes when the field holds none. Never reads beyond byte 32, so a corrupt or
// uninitialised record cannot make a name read run into foreign memory; a 32-byte name
// without a zero matches no kind. Every reader of a record's name goes through this.
std::string_view recordName(const char* record);

// Writes the record a freshly built texture of the kind has (kind.recordSize bytes). The kind
// must be implemented.
void writeDefaultRecord(const Kind& kind, unsigned char* out);

// Creation by name: walks the creation chain and creates the first implemented kind whose
// name is equal (whole, case-sensitive). Unknown and uncreatable names give nullptr.
struct CreatedTexture {
    Texture3D* texture = nullptr;
    const Kind* kind = nullptr;
};
CreatedTexture createByName(std::string_view name);

}  // namespace grainsmith
