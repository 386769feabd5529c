#include "plugin_library.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstring>

namespace demo {

PluginLibrary::~PluginLibrary() {
    if (handle_) {
        end();
        dlclose(handle_);
    }
}

bool PluginLibrary::open(const QString& path, QString& error) {
    handle_ = dlopen(path.toLocal8Bit().constData(), RTLD_NOW | RTLD_LOCAL);
    if (!handle_) {
        error = QStringLiteral("Cannot load the texture plug-in %1:\n%2").arg(path, QString::fromLocal8Bit(dlerror()));
        return false;
    }
    const auto entry = [&](const char* name) { return reinterpret_cast<Entry>(dlsym(handle_, name)); };
    begin_ = entry("beginSession");
    continue_ = entry("continueSession");
    end_ = entry("endSession");
    interact_ = entry("interactWithUser");
    if (!begin_ || !continue_ || !end_ || !interact_) {
        error = QStringLiteral("%1 is not a texture plug-in: it lacks one of beginSession, continueSession, "
                               "endSession and interactWithUser.")
                    .arg(path);
        dlclose(handle_);
        handle_ = nullptr;
        return false;
    }
    return true;
}

bool PluginLibrary::begin(const RecordBlock& record, std::int32_t flags) {
    end();
    if (record[0] == 0) return false;
    RecordBlock copy = record;
    char second[4];
    std::memcpy(second, &flags, sizeof flags);
    begin_(nullptr, 0.0, copy.data(), static_cast<int>(copy.size()), second, sizeof second, nullptr);
    // An unknown kind creates nothing, and then nothing is written by an evaluation.
    const std::int32_t one = 1;
    std::memcpy(points_.data(), &one, 4);
    std::memset(points_.data() + 4, 0, 12);
    const float sentinel = -12345.0f;
    float out = sentinel;
    continue_(nullptr, 0.0, reinterpret_cast<char*>(&out), 4, points_.data(), 16, nullptr);
    return std::memcmp(&out, &sentinel, sizeof out) != 0;
}

void PluginLibrary::evaluate(const float* points, int n, float* out) {
    const int most = (static_cast<int>(points_.size()) - 4) / 12;
    for (int done = 0; done < n; done += most) {
        const std::int32_t count = std::min(most, n - done);
        std::memcpy(points_.data(), &count, 4);
        std::memcpy(points_.data() + 4, points + 3 * done, 12 * static_cast<size_t>(count));
        continue_(nullptr, 0.0, reinterpret_cast<char*>(out + done), 4 * count, points_.data(), 4 + 12 * count,
                  nullptr);
    }
}

void PluginLibrary::end() {
    if (end_) end_(nullptr, 0.0, nullptr, 0, nullptr, 0, nullptr);
}

void PluginLibrary::interact(RecordBlock& record, TransformBlock& transform, UpdateCallback callback) {
    void* hostData[8] = {};
    hostData[7] = reinterpret_cast<void*>(callback);
    interact_(nullptr, 0.0, record.data(), static_cast<int>(record.size()), transform.data(),
              static_cast<int>(transform.size()), hostData);
}

}  // namespace demo
