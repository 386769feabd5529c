// The session entries: one texture lives in a global between beginSession and endSession.
// All entries run on the host's thread, one at a time; the global is unguarded.
#include <cstdio>
#include <cstring>
#include <string>

#include "core/catalogue.h"
#include "grainsmith/plugin.h"

#if defined(__SANITIZE_ADDRESS__)
#include <sanitizer/lsan_interface.h>
#endif

namespace {

using grainsmith::CreatedTexture;

CreatedTexture g_session;

// A second beginSession replaces the session texture without destroying the old one. The
// host relies on nothing being torn down there, so the old object is deliberately abandoned;
// tell the leak checker that this is intended.
void abandon(const CreatedTexture& old) {
#if defined(__SANITIZE_ADDRESS__)
    if (old.texture) __lsan_ignore_object(old.texture);
#else
    (void)old;
#endif
}

}  // namespace

extern "C" {

float beginSession(char*, double, char* record, int, char* second, int, void**) {
    char name[256];
    std::snprintf(name, sizeof name, "%s", record + 1);
    const CreatedTexture created = grainsmith::createByName(std::string(name));
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
