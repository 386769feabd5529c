/* The texture kinds seen from C: their names, and a kind's default description record.
 *
 * A C host that drives the plug-in needs records to hand to beginSession. These functions,
 * in the core library (link -lgrainsmith_core, or Grainsmith::core), list the kinds of the
 * catalogue and write the record a kind has when freshly built, which the host can then
 * edit field by field (the layouts are in the headers under grainsmith/textures/).
 * Nothing here allocates, throws or keeps state.
 */
#ifndef GRAINSMITH_KINDS_H
#define GRAINSMITH_KINDS_H

#include "grainsmith/api.h"

#ifdef __cplusplus
extern "C" {
#endif

/* The library's version, "MAJOR.MINOR.PATCH". */
GRAINSMITH_API const char* grainsmith_version(void);

/* The number of kinds in the catalogue, implemented or not (34). */
GRAINSMITH_API int grainsmith_kind_count(void);

/* The display name of kind `index` (0 <= index < grainsmith_kind_count()), as stored in
 * records; NULL for any other index. The string lives as long as the library. */
GRAINSMITH_API const char* grainsmith_kind_name(int index);

/* 1 when this build can create kind `index`, 0 when not (or for an index out of range). */
GRAINSMITH_API int grainsmith_kind_implemented(int index);

/* Writes the default record of the kind whose display name is `name` (exact, case-sensitive)
 * into `out` when `capacity` is at least the record's size. Returns the record's size in
 * bytes (so a call with capacity 0 asks for it), or 0 when no implemented kind has that name.
 * Nothing is written when 0 is returned or the capacity is too small. */
GRAINSMITH_API int grainsmith_default_record(const char* name, unsigned char* out, int capacity);

#ifdef __cplusplus
}
#endif

#endif
