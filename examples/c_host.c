/* A host written in C: load the plug-in, create a texture from a description record,
 * evaluate a batch of points and one point, end the session.
 * Usage: c_host PLUGIN.so RECORD-FILE     (write a record with: grainsmith record Wood -o wood.rec)
 */
#include <dlfcn.h>
#include <stdio.h>
#include <string.h>

#include "grainsmith/plugin.h"

/* Every entry has the one shape GrainsmithEntry of plugin.h. */
typedef GrainsmithEntry Entry;
_Static_assert(_Generic(&beginSession, Entry*: 1, default: 0), "entry shape");

static int fail(const char* what) {
    fprintf(stderr, "c_host: %s\n", what);
    return 1;
}

int main(int argc, char** argv) {
    if (argc != 3) return fail("usage: c_host PLUGIN.so RECORD-FILE");

    /* 1. Load the plug-in and find the four session entries by name. */
    void* plugin = dlopen(argv[1], RTLD_NOW | RTLD_LOCAL);
    if (!plugin) return fail(dlerror());
    Entry* begin = (Entry*)dlsym(plugin, "beginSession");
    Entry* batch = (Entry*)dlsym(plugin, "continueSession");
    Entry* one = (Entry*)dlsym(plugin, "continueSessionOne");
    Entry* end = (Entry*)dlsym(plugin, "endSession");
    if (!begin || !batch || !one || !end) return fail("the plug-in lacks a session entry");

    /* 2. Read the record: byte 0 holds its size, which never exceeds 255. */
    char record[256] = {0};
    FILE* f = fopen(argv[2], "rb");
    if (!f) return fail("cannot open the record file");
    size_t size = fread(record, 1, sizeof record, f);
    fclose(f);
    if (size < 36 || size != (unsigned char)record[0]) return fail("not a description record");

    /* 3. Begin: the texture named in the record becomes the session texture. The second
     *    block's first int32 is the flags (2: three-dimensional evaluation). */
    void* hostData[8] = {0};
    int flags = 2;
    if (begin(NULL, 0.0, record, (int)size, (char*)&flags, sizeof flags, hostData) != 1.0f)
        return fail("beginSession failed");

    /* 4. A batch: the point list is an int32 count followed by x, y, z floats; one float
     *    per point comes back in the first block. */
    enum { N = 4 };
    float points[3 * N] = {0.1f, 0.2f, 0.3f, 1.5f, 0.5f, 0.25f, 2.0f, 2.0f, 2.0f, -3.0f, 0.7f, 1.1f};
    char list[4 + sizeof points];
    int n = N;
    memcpy(list, &n, 4);
    memcpy(list + 4, points, sizeof points);
    float values[N];
    if (batch(NULL, 0.0, (char*)values, sizeof values, list, sizeof list, hostData) != 1.0f)
        return fail("continueSession failed");
    for (int i = 0; i < N; ++i)
        printf("(%g, %g, %g) -> %.9g\n", points[3 * i], points[3 * i + 1], points[3 * i + 2], values[i]);

    /* 5. One point: its three floats go in `text`; the value is the entry's result, and it
     *    equals the batch's value for the same point. */
    float single = one((char*)points, 0.0, NULL, 0, NULL, 0, hostData);
    printf("single -> %.9g\n", single);
    if (single != values[0]) return fail("the single value differs from the batch value");

    /* 6. End the session, then unload. */
    if (end(NULL, 0.0, NULL, 0, NULL, 0, hostData) != 1.0f) return fail("endSession failed");
    if (dlclose(plugin) != 0) return fail(dlerror());
    return 0;
}
