// Owning textures of any kind, by name or from a description record.
//
// Texture3D has no virtual destructor (its four virtual slots are the whole interface hosts
// rely on), so a Texture3D* must never be deleted: `delete` through the base is undefined
// behaviour. TexturePtr's deleter destroys the concrete kind.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>

#include "grainsmith/api.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {

struct TextureDeleter {
    void (*destroy)(Texture3D*) = nullptr;
    void operator()(Texture3D* t) const noexcept {
        if (t && destroy) destroy(t);
    }
};
using TexturePtr = std::unique_ptr<Texture3D, TextureDeleter>;

// A texture of the kind with this display name (the exact name, else the one equal to it
// without regard to case) with its defaults; any implemented kind. Null when none matches.
GRAINSMITH_API TexturePtr makeTexture(std::string_view kind);

// A texture from a description record of `size` bytes, by the plug-in's rules: the record's
// kind must be one a host can create by name, older versions are read by the kind's version
// rules, and nothing beyond `size` bytes is read. Null when the record cannot be used.
GRAINSMITH_API TexturePtr makeTexture(const void* record, std::size_t size);

}  // namespace grainsmith
