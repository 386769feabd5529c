// Visibility of the public C++ API. Everything else in libgrainsmith.so is hidden.
#pragma once

#if defined(GRAINSMITH_BUILDING_LIBRARY) || defined(GRAINSMITH_USING_LIBRARY)
#define GRAINSMITH_API __attribute__((visibility("default")))
#else
#define GRAINSMITH_API
#endif
