// The session entries: one texture lives in a global between beginSession and endSession.
// The global is unguarded: beginSession and endSession write it and must not overlap any other
// call; between them any number of threads may evaluate at once, because evaluation only reads
// the global and the texture (every kind's evaluation is const and keeps no state).
#include <cstring>

#include "core/catalogue.h"
#include "grainsmith/plugin.h"

// g++ says __SANITIZE_ADDRESS__, clang says __has_feature(address_sanitizer).
#if defined(__SANITIZE_ADDRESS__)
#define GRAINSMITH_LEAK_CHECKED 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define GRAINSMITH_LEAK_CHECKED 1
#endif
#endif
#if defined(GRAINSMITH_LEAK_CHECKED)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using grainsmith::CreatedTexture;

CreatedTexture g_session;

// A second beginSession replaces the session texture without destroying the old one. The
// host relies on nothing being torn down there, so the old object is deliberately abandoned;
// tell the leak checker that this is intended.
void abandon(const CreatedTexture& old) {
#if defined(GRAINSMITH_LEAK_CHECKED)
    if (old.texture) __lsan_ignore_object(old.texture);
#else
    (void)old;
#endif
}

}  // namespace

extern "C" {

float beginSession(char*, double, char* record, int, char* second, int, void**) {
    const CreatedTexture created = grainsmith::createByName(grainsmith::recordName(record));
    if (!created.texture) return 1.0f;
    abandon(g_session);
    g_session = created;
    g_session.texture->setStateFromDescription(record);
    int32_t flags;
    std::memcpy(&flags, second, sizeof flags);
    g_session.texture->setFlags(flags);
    return 1.0f;
}

float continueSession(char*, double, char* record, int, char* second, int, void**) {
    if (!g_session.texture) return 1.0f;
    int32_t n;
    std::memcpy(&n, second, sizeof n);
    (*g_session.texture)(reinterpret_cast<const float*>(second + 4), n, reinterpret_cast<float*>(record));
    return 1.0f;
}

float continueSessionOne(char* text, double, char*, int, char*, int, void**) {
    if (!g_session.texture) return 1.0f;
    return (*g_session.texture)(reinterpret_cast<const float*>(text));
}

float endSession(char*, double, char*, int, char*, int, void**) {
    if (!g_session.texture) return 1.0f;
    g_session.kind->ops->destroy(g_session.texture);
    g_session = {};
    return 1.0f;
}

}  // extern "C"
