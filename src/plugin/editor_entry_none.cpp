// interactWithUser in a build without the editor dialog (GRAINSMITH_EDITOR off, as in every
// Windows build): the entry stays, so a host finds the same entries in every build, and it
// behaves as the editor entry does when no display can be used: it returns at once and leaves
// both blocks untouched.
#include "grainsmith/plugin.h"

extern "C" float interactWithUser(char*, double, char*, int, char*, int, void**) { return 1.0f; }
