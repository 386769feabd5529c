/* Textures by handle, for C hosts: any number at once, each created by kind name or from a
 * description record, parameters set and read by name, evaluated from any threads.
 *
 * In the core library (link -lgrainsmith_core, or Grainsmith::core). Nothing here prints,
 * aborts or lets an exception out: every failure is a negative status code, which
 * grainsmith_error_message() turns into a sentence.
 *
 * Names are matched as the grainsmith tool matches them: a kind by its display name ("Wood",
 * "Voronoi Tiles"), a parameter by the name `grainsmith list KIND` shows ("ringScale"), the
 * exact name first, else the one name equal to it without regard to case.
 *
 * Threads: any number of threads may call grainsmith_texture_evaluate and _evaluate_one on
 * the same texture at once and get exactly the single-threaded values. Calls that change a
 * texture (_set, _set_text, _set_flags, _destroy) must not overlap any other call on that
 * same texture. Different textures are independent.
 */
#ifndef GRAINSMITH_GRAINSMITH_H
#define GRAINSMITH_GRAINSMITH_H

#include <stddef.h>

#include "grainsmith/api.h"

#ifdef __cplusplus
extern "C" {
#endif

typedef struct grainsmith_texture grainsmith_texture;

/* Status codes: 0 is success, every error is negative. */
enum {
    GRAINSMITH_OK = 0,
    GRAINSMITH_ERROR_NULL_ARGUMENT = -1,     /* a pointer that must not be NULL was */
    GRAINSMITH_ERROR_UNKNOWN_KIND = -2,      /* no kind has that name */
    GRAINSMITH_ERROR_UNKNOWN_PARAMETER = -3, /* the kind has no parameter of that name */
    GRAINSMITH_ERROR_BAD_VALUE = -4,         /* the value does not fit the parameter's type or range */
    GRAINSMITH_ERROR_BAD_RECORD = -5,        /* too short, of no kind a host can create, or another version */
    GRAINSMITH_ERROR_BUFFER_TOO_SMALL = -6,  /* the buffer cannot hold the record */
    GRAINSMITH_ERROR_OUT_OF_MEMORY = -7
};

/* Creates a texture of the named kind with its default parameters, in three-dimensional mode.
 * Every kind the library implements can be created this way, including the two a host cannot
 * create through the plug-in's entries (Cell Noise, Penrose Rhombus). */
GRAINSMITH_API int grainsmith_texture_create(const char* kind, grainsmith_texture** out);

/* Creates a texture from a description record of `size` bytes, as the plug-in's beginSession
 * does: the kind named in the record (exactly) must be one a host can create by name
 * (grainsmith_kind_creatable), and records of older versions are read by that kind's version
 * rules. Never reads beyond `size` bytes; fails when `size` is below 36 or below the record's
 * own size byte. */
GRAINSMITH_API int grainsmith_texture_from_record(const void* record, size_t size, grainsmith_texture** out);

/* Sets a parameter. Booleans take 0 or 1, integers and enumeration indices a whole number in
 * range, floats any value a float holds (rounded to nearest; NaN and infinities included). */
GRAINSMITH_API int grainsmith_texture_set(grainsmith_texture* t, const char* param, double value);

/* Sets a parameter from text as the tool's --set reads it: "true"/"off", "12", "0.25", "nan",
 * an enumeration's display text ("Running Bond", any case) or its index. */
GRAINSMITH_API int grainsmith_texture_set_text(grainsmith_texture* t, const char* param, const char* text);

/* Reads a parameter (booleans as 0/1, enumerations as their index). */
GRAINSMITH_API int grainsmith_texture_get(const grainsmith_texture* t, const char* param, double* value);

/* Sets the flags word: 4 or 8 selects two-dimensional (x, y) evaluation for the kinds that
 * honour it; 2, the default, is three-dimensional. */
GRAINSMITH_API void grainsmith_texture_set_flags(grainsmith_texture* t, int flags);

/* out[i] = value at (xyz[3i], xyz[3i+1], xyz[3i+2]) for i < n. Does nothing when t, xyz or out
 * is NULL. */
GRAINSMITH_API void grainsmith_texture_evaluate(const grainsmith_texture* t, const float* xyz, size_t n,
                                                float* out);

/* The value at one point; exactly what grainsmith_texture_evaluate gives there. 1.0 when t is NULL. */
GRAINSMITH_API float grainsmith_texture_evaluate_one(const grainsmith_texture* t, float x, float y, float z);

/* Copies the texture's description record into `buffer` and returns its size in bytes. With a
 * NULL buffer it only returns the size; a non-NULL buffer smaller than the record gets nothing
 * and GRAINSMITH_ERROR_BUFFER_TOO_SMALL is returned. */
GRAINSMITH_API int grainsmith_texture_record(const grainsmith_texture* t, void* buffer, size_t size);

/* Destroys the texture; NULL is allowed. */
GRAINSMITH_API void grainsmith_texture_destroy(grainsmith_texture* t);

/* The same by-name access on a record buffer, without a texture: the record must be of this
 * library's version of its kind and at least as long as that kind's records. */
GRAINSMITH_API int grainsmith_record_set(void* record, size_t size, const char* param, double value);
GRAINSMITH_API int grainsmith_record_set_text(void* record, size_t size, const char* param, const char* text);
GRAINSMITH_API int grainsmith_record_get(const void* record, size_t size, const char* param, double* value);

/* 1 when a host can create the named kind through the plug-in's entries, 0 when it cannot (Cell
 * Noise, Penrose Rhombus: only this API and the C++ classes create them), or
 * GRAINSMITH_ERROR_UNKNOWN_KIND. */
GRAINSMITH_API int grainsmith_kind_creatable(const char* kind);

/* A sentence for a status code ("unknown parameter", ...); never NULL. */
GRAINSMITH_API const char* grainsmith_error_message(int code);

#ifdef __cplusplus
}
#endif

#endif
