// The plug-in's C entry points and the layouts of the memory blocks a host exchanges with them.
//
// Every entry has the same seven-parameter shape and returns a float:
//   text     only continueSessionOne reads it, as three floats (x, y, z)
//   value    never read
//   record   first memory block (a description record, or the output of continueSession)
//   second   second memory block (flags in beginSession, the point list in continueSession)
//   hostData array of 8-byte entries; interactWithUser reads entry 7 (the update callback)
// Sizes are never read: the host must supply blocks large enough for the layouts below.
//
// Threads: once beginSession has returned, any number of threads may call continueSession and
// continueSessionOne at once and get exactly the single-threaded values; beginSession and
// endSession must not overlap any other call.
//
// Record block: one description record. Byte 0 is its size (0: no texture chosen yet),
// bytes 1..32 the display name with its NUL (never read beyond byte 32: a name without a
// zero matches no kind), byte 33/34 major/minor version, byte 35 the interactive-update
// flag, the kind's parameters from byte 36 on (little-endian).
//
// Point list (second block of continueSession):
//   offset 0         int32  n, the number of points
//   offset 4 + 12*i  3 x float32, point i (x, y, z)
// Output of continueSession: n float32 values in the record block, value i at offset 4*i.
#pragma once

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

// Exported from the plug-in. On Windows its module definition file (cmake/plugin.def) names
// the exports, and a host finds them with GetProcAddress under these undecorated names.
#if defined(_WIN32)
#define GRAINSMITH_ENTRY
#else
#define GRAINSMITH_ENTRY __attribute__((visibility("default")))
#endif

/* The one shape of every entry: a host finds an entry by name and calls it through a
 * GrainsmithEntry* (for example `GrainsmithEntry* begin = (GrainsmithEntry*)dlsym(p, "beginSession");`). */
typedef float GrainsmithEntry(char* text, double value, char* record, int recordSize, char* second,
                              int secondSize, void** hostData);

/* The 44-byte transform block interactWithUser reads and writes (see there). */
typedef struct GrainsmithTransform {
    int32_t flags;      /* 4 or 8: two-dimensional mode; 2: three-dimensional */
    float overallScale;
    float translate[3];
    float scale[3];
    float rotate[3];    /* whole turns about x, y, z: 1.0 is 360 degrees */
} GrainsmithTransform;
#define GRAINSMITH_TRANSFORM_SIZE 44
#ifdef __cplusplus
static_assert(sizeof(GrainsmithTransform) == GRAINSMITH_TRANSFORM_SIZE, "transform block layout");
#else
_Static_assert(sizeof(GrainsmithTransform) == GRAINSMITH_TRANSFORM_SIZE, "transform block layout");
#endif

// Creates the session texture from the record whose name matches a creatable kind and sets
// its flags to the first int32 of `second`. An unknown name changes nothing. Returns 1.0.
GRAINSMITH_ENTRY float beginSession(char* text, double value, char* record, int recordSize, char* second,
                                    int secondSize, void** hostData);
// Evaluates the session texture over the point list in `second`, writing into `record`. Returns 1.0.
GRAINSMITH_ENTRY float continueSession(char* text, double value, char* record, int recordSize, char* second,
                                       int secondSize, void** hostData);
// Returns the session texture's value at the point `text` (three floats), or 1.0 without one.
GRAINSMITH_ENTRY float continueSessionOne(char* text, double value, char* record, int recordSize, char* second,
                                          int secondSize, void** hostData);
// Destroys the session texture, if any. Returns 1.0.
GRAINSMITH_ENTRY float endSession(char* text, double value, char* record, int recordSize, char* second,
                                  int secondSize, void** hostData);

// The host update callback found in hostData[7] by the editor entry.
typedef void (*HostUpdateCallback)(float, int, void*, int, char* record, char* transform);

// Opens the editor dialog modally over the host's main window (on X11: the top-level window of
// this process whose WM_CLASS class is exactly "Marlix"; without one, centred on the screen).
//   record   the host's description record (size byte 0: none yet). On OK it receives the
//            chosen kind's record (as many bytes as its size byte says); on Cancel it is untouched.
//   second   the 44-byte transform block, read on entry and written back in full on exit:
//              offset 0 int32 flags (4 or 8: two-dimensional mode), 4 float overall scale,
//              8/12/16 translate x/y/z, 20/24/28 scale factors x/y/z,
//              32/36/40 rotation about x/y/z in whole turns.
//            The library never applies it to points: placing the texture is the host's job.
//   hostData entry 7 is stored as the host update callback (null: none), called on every edit
//            with (4.0f, 8, NULL, 0, record copy, transform copy) on the calling thread.
// Creates a QApplication for the call only when the host runs none, and destroys only that one.
// Without a usable display (no DISPLAY nor WAYLAND_DISPLAY, or Qt's platform cannot start)
// it returns at once, both blocks untouched; so does every build without the editor (Windows
// builds among them). Always returns 1.0; never aborts the host.
GRAINSMITH_ENTRY float interactWithUser(char* text, double value, char* record, int recordSize, char* second,
                                        int secondSize, void** hostData);

#ifdef __cplusplus
}
#endif
