#include "grainsmith/make_texture.h"

#include <cstring>

#include "core/catalogue.h"
#include "core/param_text.h"
#include "core/record_access.h"

namespace grainsmith {

TexturePtr makeTexture(std::string_view name) {
    const Kind* kind = matchKind(name);
    if (!kind || !kind->implemented()) return nullptr;
    return TexturePtr(kind->ops->create(), TextureDeleter{kind->ops->destroy});
}

TexturePtr makeTexture(const void* record, std::size_t size) {
    const Kind* kind = creatableKindOf(record, size);
    if (!kind) return nullptr;
    TexturePtr texture(kind->ops->create(), TextureDeleter{kind->ops->destroy});
    // The kinds' version rules may read any byte of a record of their size: give them the
    // caller's bytes, padded with zeros, never the memory beyond `size`.
    unsigned char padded[kMaxRecordSize] = {};
    std::memcpy(padded, record, size < sizeof padded ? size : sizeof padded);
    texture->setStateFromDescription(reinterpret_cast<const char*>(padded));
    return texture;
}

}  // namespace grainsmith
