// What render and gallery show of a texture: a planar slice, or the texture on the surface
// of a lit sphere or cube (how a solid texture is judged), turned into colours by a ramp.
// The texture's values are never changed: levels and ramps act on the picture only.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <mutex>
#include <string>

#include "cli.h"
#include "image.h"

namespace grainsmith::cli {

enum class Plane { XY, XZ, YZ };      // the image's two axes; the third is the offset's
enum class Shape { Slice, Sphere, Cube };
enum class Ramp { Grey, Heat, Viridis, Earth };

struct ViewOptions {
    int width = 256, height = 256;  // pixels
    float extent = 4.0f;            // texture units across the image's width (slice) or the object
    // Position of the slice, or of the object's centre, on the third axis. Not 0: whole numbers
    // are cell boundaries, where Brick, Grid and Spheres show only mortar, line or background.
    float offset = 0.3f;
    Plane plane = Plane::XY;
    Shape shape = Shape::Slice;
    Ramp ramp = Ramp::Grey;
    bool autoLevels = false;        // stretch the picture's own value range to black..white
    int threads = 0;                // 0: one per core
};

// Takes one of --size, --extent, --z/--offset, --plane, --view, --ramp, --levels, --threads
// into `view`; false (consuming nothing) for any other option.
bool takeViewOption(Args& args, ViewOptions& view);

// The help text of those options, for the commands that take them.
extern const char* const kViewOptionsHelp;

// Reports the share of long work done on standard error: nothing for work that ends within
// a second, then a line at most every half second. Safe to call from several threads.
class Progress {
public:
    Progress(std::string label, uint64_t total);
    void add(uint64_t units);
    void finish();  // ends the report line, if one was started

private:
    using Clock = std::chrono::steady_clock;
    const std::string label_;
    const uint64_t total_;
    const Clock::time_point start_ = Clock::now();
    std::atomic<uint64_t> done_{0};
    std::mutex mutex_;
    Clock::time_point lastReport_{};
    bool reported_ = false;
};

// Renders the texture of `record` with `flags` as the view says. The work is shared between
// threads, each with its own texture built from the record, so the values are exactly those
// of a single-threaded render. `progress` (optional) receives one unit per pixel.
RgbImage renderView(const Record& record, int flags, const ViewOptions& view, Progress* progress = nullptr);

}  // namespace grainsmith::cli
