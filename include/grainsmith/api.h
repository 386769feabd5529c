// Visibility of the public C++ API. Everything else in libgrainsmith.so is hidden.
//
// Windows has no visibility: the core is a static library there and the plug-in's exports are
// listed in its module definition file, so the API is left unmarked. (dllexport would put every
// API symbol into the plug-in's export table.)
#pragma once

#if defined(_WIN32)
#define GRAINSMITH_API
#elif defined(GRAINSMITH_BUILDING_LIBRARY) || defined(GRAINSMITH_USING_LIBRARY)
#define GRAINSMITH_API __attribute__((visibility("default")))
#else
#define GRAINSMITH_API
#endif
