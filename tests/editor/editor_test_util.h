// Shared pieces of the editor tests: a host callback that records its calls, records and
// transform blocks built by hand, and lookups of a page's widgets.
#pragma once

#include <gtest/gtest.h>

#include <QSlider>
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "core/catalogue.h"
#include "editor/host_callback.h"
#include "editor/main_window.h"
#include "editor/table_wrapper.h"
#include "editor/transform_block.h"

namespace grainsmith::test {

struct HostCall {
    float f;
    int i;
    void* pointer;
    int zero;
    std::vector<unsigned char> record;  // 256 bytes
    TransformBlock transform;
};

inline std::vector<HostCall>& hostCalls() {
    static std::vector<HostCall> calls;
    return calls;
}

inline void recordingCallback(float f, int i, void* pointer, int zero, char* record, char* transform) {
    HostCall call{f, i, pointer, zero, std::vector<unsigned char>(record, record + 256), {}};
    call.transform.readFrom(transform);
    hostCalls().push_back(call);
}

// Installs the recording callback for the test's lifetime.
class EditorTest : public ::testing::Test {
protected:
    void SetUp() override {
        hostCalls().clear();
        setHostUpdateCallback(&recordingCallback);
    }
    void TearDown() override { setHostUpdateCallback(nullptr); }
};

// A kind's default record, as its texture writes it.
inline std::array<char, 256> defaultRecord(const char* kindName) {
    std::array<char, 256> record{};
    CreatedTexture created = createByName(kindName);
    if (created.texture == nullptr) {
        // Kinds outside the creation chain still have a class.
        const Kind* kind = findKind(kindName);
        if (kind == nullptr || !kind->implemented()) return record;
        Texture3D* t = kind->ops->create();
        t->getDescription(record.data());
        kind->ops->destroy(t);
        return record;
    }
    created.texture->getDescription(record.data());
    created.kind->ops->destroy(created.texture);
    return record;
}

inline const Param& paramNamed(ParamTable table, const char* name) {
    for (const Param& p : table)
        if (std::strcmp(p.name, name) == 0) return p;
    ADD_FAILURE() << "no parameter " << name;
    return table[0];
}

inline double recordValue(const std::vector<unsigned char>& record, ParamTable table, const char* name) {
    return readParam(paramNamed(table, name), record.data());
}

inline void setRecordValue(std::array<char, 256>& record, ParamTable table, const char* name, double value) {
    writeParam(paramNamed(table, name), reinterpret_cast<unsigned char*>(record.data()), value);
}

inline std::vector<unsigned char> currentRecord(const MainWindow& dialog) {
    std::vector<unsigned char> record(256);
    dialog.currentTexture()->getDescription(reinterpret_cast<char*>(record.data()));
    return record;
}

template <class W>
W* widget(const MainWindow& dialog, const char* kind, const char* param) {
    return qobject_cast<W*>(dialog.wrapperFor(kind)->widgetFor(param));
}

inline bool implemented(const char* kindName) {
    const Kind* k = findKind(kindName);
    return k != nullptr && k->implemented();
}

}  // namespace grainsmith::test
