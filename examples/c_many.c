/* Two materials at once: a Wood and a Brick texture, each made by kind name with parameters set
 * by name, evaluated at the same time from two threads through the handle API of
 * grainsmith/grainsmith.h (core library: link -lgrainsmith_core).
 * Usage: c_many       prints each material's values at a few points
 */
#include <pthread.h>
#include <stdio.h>

#include "grainsmith/grainsmith.h"

enum { kPoints = 4 };

struct Material {
    const char* name;
    grainsmith_texture* texture;
    float values[kPoints];
};

static const float kXyz[3 * kPoints] = {0.1f, 0.2f, 0.3f, 1.5f, -2.0f, 0.3f, 3.25f, 0.5f, 0.3f, -4.0f, 7.5f, 0.3f};

static void* evaluate(void* arg) {
    struct Material* m = arg;
    grainsmith_texture_evaluate(m->texture, kXyz, kPoints, m->values);
    return NULL;
}

static int check(int status, const char* what) {
    if (status < 0) fprintf(stderr, "c_many: %s: %s\n", what, grainsmith_error_message(status));
    return status < 0;
}

int main(void) {
    struct Material wood = {"Wood", NULL, {0}}, brick = {"Brick", NULL, {0}};
    if (check(grainsmith_texture_create(wood.name, &wood.texture), "create Wood") ||
        check(grainsmith_texture_set(wood.texture, "ringScale", 8.0), "ringScale") ||
        check(grainsmith_texture_set(wood.texture, "octaves", 3), "octaves") ||
        check(grainsmith_texture_create(brick.name, &brick.texture), "create Brick") ||
        check(grainsmith_texture_set_text(brick.texture, "pattern", "Running Bond"), "pattern") ||
        check(grainsmith_texture_set(brick.texture, "mortarThickness", 0.08), "mortarThickness"))
        return 1;

    /* Both textures live at once and are evaluated at the same time. */
    pthread_t threads[2];
    pthread_create(&threads[0], NULL, evaluate, &wood);
    pthread_create(&threads[1], NULL, evaluate, &brick);
    pthread_join(threads[0], NULL);
    pthread_join(threads[1], NULL);

    for (int i = 0; i < kPoints; ++i)
        printf("(%g, %g, %g)  Wood %.6f  Brick %.6f\n", kXyz[3 * i], kXyz[3 * i + 1], kXyz[3 * i + 2], wood.values[i],
               brick.values[i]);
    /* A thread's batch gives exactly the values of one point at a time. */
    int same = 1;
    for (int i = 0; i < kPoints; ++i)
        same &= wood.values[i] == grainsmith_texture_evaluate_one(wood.texture, kXyz[3 * i], kXyz[3 * i + 1], kXyz[3 * i + 2]);
    grainsmith_texture_destroy(wood.texture);
    grainsmith_texture_destroy(brick.texture);
    return same ? 0 : 1;
}
