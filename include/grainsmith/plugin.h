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

#ifdef __cplusplus
extern "C" {
#endif

#define GRAINSMITH_ENTRY __attribute__((visibility("default")))

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

#ifdef __cplusplus
}
#endif
