// The texture plug-in as this host sees it: a shared library opened with dlopen and driven
// only through its five C entries and raw memory blocks, as any host application would.
#pragma once

#include <QString>

#include <array>
#include <cstdint>

namespace demo {

// A description record as the host keeps it: byte 0 its size (0: no texture yet), the kind's
// display name from byte 1.
using RecordBlock = std::array<char, 256>;
// The placement the editor carries for the host (44 bytes): flags, overall scale, translate,
// scale factors, rotation in turns.
using TransformBlock = std::array<char, 44>;

using UpdateCallback = void (*)(float, int, void*, int, char* record, char* transform);

class PluginLibrary {
public:
    PluginLibrary() = default;
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    // Opens the library; on failure returns false and says why in `error`.
    bool open(const QString& path, QString& error);

    // Creates the session texture from `record` with `flags`; false when the plug-in does not
    // know the record's kind (then no texture is left behind).
    bool begin(const RecordBlock& record, std::int32_t flags);
    // Evaluates the session texture at `n` points (x, y, z triples) into `out`.
    void evaluate(const float* points, int n, float* out);
    void end();
    // Runs the editor on the two blocks; `callback` hears every edit.
    void interact(RecordBlock& record, TransformBlock& transform, UpdateCallback callback);

private:
    using Entry = float (*)(char*, double, char*, int, char*, int, void**);
    void* handle_ = nullptr;
    Entry begin_ = nullptr, continue_ = nullptr, end_ = nullptr, interact_ = nullptr;
    std::array<char, 4 + 12 * 1024> points_{};
};

}  // namespace demo
