// The handle-based C API (grainsmith/grainsmith.h): thin over the catalogue, the parameter
// tables and the texture classes. Every entry catches everything: nothing may escape into C.
#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

#include "core/catalogue.h"
#include "core/param_text.h"
#include "core/record_access.h"
#include "grainsmith/grainsmith.h"
#include "grainsmith/make_texture.h"

struct grainsmith_texture {
    grainsmith::TexturePtr texture;
    const grainsmith::Kind* kind;
};

namespace {

using grainsmith::Kind;
using grainsmith::Param;

int adopt(grainsmith::TexturePtr texture, const Kind* kind, grainsmith_texture** out) {
    *out = new (std::nothrow) grainsmith_texture{std::move(texture), kind};
    return *out ? GRAINSMITH_OK : GRAINSMITH_ERROR_OUT_OF_MEMORY;
}

template <class Fn>
int guarded(Fn fn) noexcept {
    try {
        return fn();
    } catch (const std::bad_alloc&) {
        return GRAINSMITH_ERROR_OUT_OF_MEMORY;
    } catch (...) {
        return GRAINSMITH_ERROR_BAD_VALUE;
    }
}

// Writes `value` into the parameter `name` of a record of `kind`, checking name and value.
int setInRecord(const Kind& kind, unsigned char* record, const char* name, double value) {
    if (!name) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    const Param* p = grainsmith::findParam(kind, name);
    if (!p) return GRAINSMITH_ERROR_UNKNOWN_PARAMETER;
    if (!grainsmith::valueFits(*p, value)) return GRAINSMITH_ERROR_BAD_VALUE;
    grainsmith::writeParam(*p, record, value);
    return GRAINSMITH_OK;
}

int parseForRecord(const Kind& kind, const char* name, const char* text, double& value) {
    if (!name || !text) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    const Param* p = grainsmith::findParam(kind, name);
    if (!p) return GRAINSMITH_ERROR_UNKNOWN_PARAMETER;
    return grainsmith::parseParamText(*p, text, value) ? GRAINSMITH_OK : GRAINSMITH_ERROR_BAD_VALUE;
}

int getFromRecord(const Kind& kind, const unsigned char* record, const char* name, double* value) {
    if (!name || !value) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    const Param* p = grainsmith::findParam(kind, name);
    if (!p) return GRAINSMITH_ERROR_UNKNOWN_PARAMETER;
    *value = grainsmith::readParam(*p, record);
    return GRAINSMITH_OK;
}

// A texture's own record, edited by `edit` and read back by the texture (its own version, so
// a plain copy).
template <class Edit>
int editTexture(grainsmith_texture* t, Edit edit) {
    if (!t) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    unsigned char record[grainsmith::kMaxRecordSize] = {};
    t->texture->getDescription(reinterpret_cast<char*>(record));
    const int status = edit(record);
    if (status == GRAINSMITH_OK) t->texture->setStateFromDescription(reinterpret_cast<const char*>(record));
    return status;
}

}  // namespace

extern "C" {

int grainsmith_texture_create(const char* kind, grainsmith_texture** out) {
    return guarded([&]() -> int {
        if (!kind || !out) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        *out = nullptr;
        const Kind* k = grainsmith::matchKind(kind);
        if (!k || !k->implemented()) return GRAINSMITH_ERROR_UNKNOWN_KIND;
        return adopt(grainsmith::makeTexture(k->name), k, out);
    });
}

int grainsmith_texture_from_record(const void* record, size_t size, grainsmith_texture** out) {
    return guarded([&]() -> int {
        if (!record || !out) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        *out = nullptr;
        grainsmith::TexturePtr texture = grainsmith::makeTexture(record, size);
        if (!texture) return GRAINSMITH_ERROR_BAD_RECORD;
        return adopt(std::move(texture), grainsmith::creatableKindOf(record, size), out);
    });
}

int grainsmith_texture_set(grainsmith_texture* t, const char* param, double value) {
    return guarded([&]() -> int {
        return editTexture(t, [&](unsigned char* record) -> int { return setInRecord(*t->kind, record, param, value); });
    });
}

int grainsmith_texture_set_text(grainsmith_texture* t, const char* param, const char* text) {
    return guarded([&]() -> int {
        if (!t) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        double value = 0;
        const int status = parseForRecord(*t->kind, param, text, value);
        return status != GRAINSMITH_OK ? status : grainsmith_texture_set(t, param, value);
    });
}

int grainsmith_texture_get(const grainsmith_texture* t, const char* param, double* value) {
    return guarded([&]() -> int {
        if (!t) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        unsigned char record[grainsmith::kMaxRecordSize] = {};
        t->texture->getDescription(reinterpret_cast<char*>(record));
        return getFromRecord(*t->kind, record, param, value);
    });
}

void grainsmith_texture_set_flags(grainsmith_texture* t, int flags) {
    if (t) t->texture->setFlags(flags);
}

void grainsmith_texture_evaluate(const grainsmith_texture* t, const float* xyz, size_t n, float* out) {
    if (!t || !xyz || !out) return;
    // The batch operator counts in int: long lists go in slices.
    constexpr size_t kSlice = size_t{1} << 24;
    for (size_t done = 0; done < n; done += kSlice) {
        const size_t count = std::min(kSlice, n - done);
        (*t->texture)(xyz + 3 * done, static_cast<int>(count), out + done);
    }
}

float grainsmith_texture_evaluate_one(const grainsmith_texture* t, float x, float y, float z) {
    if (!t) return 1.0f;
    const float p[3] = {x, y, z};
    return (*t->texture)(p);
}

int grainsmith_texture_record(const grainsmith_texture* t, void* buffer, size_t size) {
    if (!t) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    const int recordSize = t->kind->recordSize;
    if (!buffer) return recordSize;
    if (size < static_cast<size_t>(recordSize)) return GRAINSMITH_ERROR_BUFFER_TOO_SMALL;
    unsigned char record[grainsmith::kMaxRecordSize] = {};
    t->texture->getDescription(reinterpret_cast<char*>(record));
    std::memcpy(buffer, record, static_cast<size_t>(recordSize));
    return recordSize;
}

void grainsmith_texture_destroy(grainsmith_texture* t) { delete t; }

int grainsmith_record_set(void* record, size_t size, const char* param, double value) {
    return guarded([&]() -> int {
        if (!record) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        const Kind* kind = grainsmith::currentKindOf(record, size);
        if (!kind) return GRAINSMITH_ERROR_BAD_RECORD;
        return setInRecord(*kind, static_cast<unsigned char*>(record), param, value);
    });
}

int grainsmith_record_set_text(void* record, size_t size, const char* param, const char* text) {
    return guarded([&]() -> int {
        if (!record) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        const Kind* kind = grainsmith::currentKindOf(record, size);
        if (!kind) return GRAINSMITH_ERROR_BAD_RECORD;
        double value = 0;
        const int status = parseForRecord(*kind, param, text, value);
        return status != GRAINSMITH_OK ? status : setInRecord(*kind, static_cast<unsigned char*>(record), param, value);
    });
}

int grainsmith_record_get(const void* record, size_t size, const char* param, double* value) {
    return guarded([&]() -> int {
        if (!record) return GRAINSMITH_ERROR_NULL_ARGUMENT;
        const Kind* kind = grainsmith::currentKindOf(record, size);
        if (!kind) return GRAINSMITH_ERROR_BAD_RECORD;
        return getFromRecord(*kind, static_cast<const unsigned char*>(record), param, value);
    });
}

int grainsmith_kind_creatable(const char* kind) {
    if (!kind) return GRAINSMITH_ERROR_NULL_ARGUMENT;
    const Kind* k = grainsmith::matchKind(kind);
    if (!k || !k->implemented()) return GRAINSMITH_ERROR_UNKNOWN_KIND;
    return k->creatable() ? 1 : 0;
}

const char* grainsmith_error_message(int code) {
    switch (code) {
        case GRAINSMITH_OK: return "success";
        case GRAINSMITH_ERROR_NULL_ARGUMENT: return "a required pointer argument is NULL";
        case GRAINSMITH_ERROR_UNKNOWN_KIND: return "unknown kind: no texture kind has that name";
        case GRAINSMITH_ERROR_UNKNOWN_PARAMETER: return "unknown parameter: the kind has no parameter of that name";
        case GRAINSMITH_ERROR_BAD_VALUE: return "the value does not fit the parameter's type or range";
        case GRAINSMITH_ERROR_BAD_RECORD:
            return "the record cannot be used: too short, of no kind a host can create, or of another version";
        case GRAINSMITH_ERROR_BUFFER_TOO_SMALL: return "the buffer is smaller than the record";
        case GRAINSMITH_ERROR_OUT_OF_MEMORY: return "out of memory";
        default: return "unknown status code";
    }
}

}  // extern "C"
