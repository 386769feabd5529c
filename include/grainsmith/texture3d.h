// The base of every solid texture and the head of every description record.
//
// A texture is evaluated through four virtual operations, in this slot order: batch
// evaluation, one-point evaluation, export of the description record and import of one.
// The class deliberately has no virtual destructor: those four slots are the whole
// interface a host sees. Concrete kinds own no resources; code that destroys a texture
// through a base pointer must know its concrete kind (the catalogue row does).
#pragma once

#include <cstddef>
#include <cstdint>

#include "grainsmith/api.h"

namespace grainsmith {

// A one-byte boolean in a record. Records come from hosts and files, so the byte may hold
// any value; it reads as true when it is not 0, and writing stores 0 or 1.
struct RecordBool {
    uint8_t byte;
    constexpr operator bool() const { return byte != 0; }
    constexpr RecordBool& operator=(bool on) {
        byte = on ? 1 : 0;
        return *this;
    }
};
static_assert(sizeof(RecordBool) == 1);

// The first 36 bytes of every description record.
struct BaseData {
    uint8_t recordSize;     // whole record, head included
    char name[32];          // display name, NUL-terminated
    char majorVersion;
    char minorVersion;
    RecordBool interactiveUpdate;
};
static_assert(sizeof(BaseData) == 36);
static_assert(offsetof(BaseData, name) == 1);
static_assert(offsetof(BaseData, majorVersion) == 33);
static_assert(offsetof(BaseData, minorVersion) == 34);
static_assert(offsetof(BaseData, interactiveUpdate) == 35);

// Bits of `flags` that select two-dimensional (x, y only) evaluation.
inline constexpr int kPlanarFlagsMask = 12;
inline constexpr int kDefaultFlags = 2;

class GRAINSMITH_API Texture3D {
public:
    Texture3D() : flags(kDefaultFlags), reserved1(0), reserved2(0) {}
    Texture3D(const Texture3D&) = default;
    Texture3D& operator=(const Texture3D&) = default;
    ~Texture3D() = default;  // not virtual, on purpose

    // Slot 0: out[i] = value at points + 3*i for i in [0, n). The base writes 1.0.
    virtual void operator()(const float* points, int n, float* out) const;
    // Slot 1: value at one point (x, y, z). The base returns 1.0.
    virtual float operator()(const float* p) const;
    // Slot 2: copies the whole record into out. The base writes "Empty".
    virtual void getDescription(char* out) const;
    // Slot 3: restores the state from a record (version rules per kind). The base ignores it.
    virtual void setStateFromDescription(const char* in);

    void setFlags(int value) { flags = value; }
    int getFlags() const { return flags; }

protected:
    static int majorVersion(const char* record) { return record[33]; }
    static int minorVersion(const char* record) { return record[34]; }
    static bool versionsMatch(const char* record, const BaseData& own) {
        return record[33] == own.majorVersion && record[34] == own.minorVersion;
    }
    // True when flags select two-dimensional evaluation.
    bool planar() const { return (flags & kPlanarFlagsMask) != 0; }

    int32_t flags;

private:
    int32_t reserved1;  // never read; copied with the object
    int32_t reserved2;
};

}  // namespace grainsmith
