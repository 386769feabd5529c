#include "editor/record_loading.h"

#include <algorithm>
#include <cstring>

#include "core/catalogue.h"
#include "editor/main_window.h"
#include "editor/transform_block.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {

void loadRecordBytes(MainWindow& dialog, const Kind& kind, const uint8_t* data, size_t size,
                     const char* transform) {
    if (!kind.implemented()) return;
    char record[256] = {};
    Texture3D* texture = kind.ops->create();
    texture->getDescription(record);
    kind.ops->destroy(texture);
    const size_t head = offsetof(BaseData, interactiveUpdate);  // the flag byte is the host's to set too
    const size_t room = static_cast<size_t>(kind.recordSize) - head;
    if (data != nullptr) std::memcpy(record + head, data, std::min(size, room));
    char block[TransformBlock::kSize];
    if (transform != nullptr)
        std::memcpy(block, transform, sizeof block);
    else
        TransformBlock{}.writeTo(block);
    dialog.loadFromHost(record, block);
}

}  // namespace grainsmith
