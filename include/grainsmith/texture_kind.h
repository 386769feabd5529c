// What every concrete texture kind shares, written once: the record held inline after the
// Texture3D base, its construction from the kind's identity and parameter table, the
// record copies, the version rule of import and the batch loop.
//
// A kind derives as   class FooTexture3D : public TextureKind<FooTexture3D, FooData>
// and provides
//   static constexpr char kName[]   display name
//   static constexpr int kMajor     major version (the minor version is 0 for every kind)
//   static ParamTable parameters()  its parameter table
//   float evaluate(const float* p) const   the value at one point
// and, where a vectorised batch path exists,
//   void evaluateBatch(const float* points, int n, float* out) const   (the same values as evaluate)
// and, where old records can be migrated,
//   static constexpr int kMigratesFromMajor;
//   void migrate(const char* oldRecord)    moves the old fields into data_
#pragma once

#include <cstring>
#include <string>

#include "grainsmith/params.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {

template <class Derived, class Record>
class TextureKind : public Texture3D {
public:
    using RecordType = Record;
    static constexpr int kRecordSize = static_cast<int>(sizeof(Record));
    static constexpr int kMinor = 0;

    static const std::string name() { return Derived::kName; }

    bool interactiveUpdate() const { return data_.head.interactiveUpdate; }
    void setInteractiveUpdate(bool on) { data_.head.interactiveUpdate = on; }

    void operator()(const float* points, int n, float* out) const override {
        if constexpr (requires(const Derived& kind) { kind.evaluateBatch(points, n, out); }) {
            if (n > 0) static_cast<const Derived*>(this)->evaluateBatch(points, n, out);
        } else {
            for (int i = 0; i < n; ++i) out[i] = (*this)(points + 3 * i);
        }
    }

    float operator()(const float* p) const override { return static_cast<const Derived*>(this)->evaluate(p); }

    void getDescription(char* out) const override { std::memmove(out, &data_, sizeof(Record)); }

    void setStateFromDescription(const char* in) override {
        if (versionsMatch(in, data_.head)) {
            std::memmove(&data_, in, sizeof(Record));
            return;
        }
        if constexpr (requires { Derived::kMigratesFromMajor; }) {
            if (majorVersion(in) == Derived::kMigratesFromMajor) static_cast<Derived*>(this)->migrate(in);
        }
    }

protected:
    TextureKind() {
        static_assert(sizeof(Record) <= 255, "the size byte holds the record size");
        static_assert(offsetof(Record, head) == 0);
        std::memset(static_cast<void*>(&data_), 0, sizeof(Record));
        data_.head.recordSize = static_cast<uint8_t>(sizeof(Record));
        static_assert(sizeof(Derived::kName) <= sizeof(BaseData::name));
        std::memcpy(data_.head.name, Derived::kName, sizeof(Derived::kName));
        data_.head.majorVersion = static_cast<char>(Derived::kMajor);
        data_.head.minorVersion = static_cast<char>(kMinor);
        data_.head.interactiveUpdate = true;
        applyDefaults(Derived::parameters(), reinterpret_cast<unsigned char*>(&data_));
    }
    TextureKind(const TextureKind&) = default;
    TextureKind& operator=(const TextureKind&) = default;

    using Texture3D::majorVersion;
    using Texture3D::minorVersion;

    Record data_;

private:
    static int majorVersion() { return Derived::kMajor; }
    static int minorVersion() { return kMinor; }
};

}  // namespace grainsmith
