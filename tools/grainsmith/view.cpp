// Slices, lit spheres and cubes, colour ramps and levels for render and gallery.
#include "view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <thread>
#include <unistd.h>
#include <vector>

#include "grainsmith/numeric.h"

namespace grainsmith::cli {

const char* const kViewOptionsHelp =
    "  --size N | WxH        image size in pixels (N x N, or W wide and H high)\n"
    "  --extent E            texture units across the image's width (slice) or the object\n"
    "                        (default 4)\n"
    "  --plane xy|xz|yz      the image's axes, first to the right, second upwards (default\n"
    "                        xy); the viewer looks along the third\n"
    "  --z Z, --offset Z     the slice's position on the third axis, or the object's centre\n"
    "                        (default 0.3, off the cell boundaries at whole numbers)\n"
    "  --view slice|sphere|cube\n"
    "                        a planar slice over [0, E] (default), or the texture on the\n"
    "                        surface of a lit sphere or cube of size E centred at (E/2, E/2, Z)\n"
    "  --ramp grey|heat|viridis|earth\n"
    "                        colour map applied to the value (default grey: 0 black, 1 white)\n"
    "  --levels fixed|auto   map [0, 1] (default), or stretch the picture's own value range;\n"
    "                        the texture's values themselves never change\n"
    "  --threads N           worker threads (default: one per core; the image is the same)\n";

namespace {

constexpr int kMaxSide = 8192;

template <class T, size_t N>
T pickNamed(const std::string& option, const std::string& text, const std::array<std::pair<const char*, T>, N>& names) {
    std::string accepted;
    for (const auto& [name, value] : names) {
        if (text == name) return value;
        accepted += accepted.empty() ? name : std::string(", ") + name;
    }
    usageError(option + " takes one of " + accepted + ", not '" + text + "'");
}

void parseSize(const std::string& text, ViewOptions& view) {
    const size_t x = text.find_first_of("xX");
    const std::string w = x == std::string::npos ? text : text.substr(0, x);
    const std::string h = x == std::string::npos ? text : text.substr(x + 1);
    const auto side = [&](const std::string& s) {
        char* end = nullptr;
        const long v = s.empty() ? 0 : std::strtol(s.c_str(), &end, 10);
        if (s.empty() || *end != '\0' || v < 1 || v > kMaxSide)
            usageError("--size takes N or WxH, whole numbers from 1 to " + std::to_string(kMaxSide) + ", not '" +
                       text + "'");
        return static_cast<int>(v);
    };
    view.width = side(w);
    view.height = side(h);
}

}  // namespace

bool takeViewOption(Args& args, ViewOptions& view) {
    const std::string a(args.peek());
    if (a == "--size") {
        args.next();
        parseSize(args.value(a), view);
    } else if (a == "--extent") {
        args.next();
        view.extent = parseFloat(a, args.value(a));
        if (!(view.extent > 0.0f)) usageError("--extent takes a number above 0");
    } else if (a == "--z" || a == "--offset") {
        args.next();
        view.offset = parseFloat(a, args.value(a));
    } else if (a == "--plane") {
        args.next();
        view.plane = pickNamed<Plane, 3>(a, args.value(a), {{{"xy", Plane::XY}, {"xz", Plane::XZ}, {"yz", Plane::YZ}}});
    } else if (a == "--view") {
        args.next();
        view.shape = pickNamed<Shape, 3>(a, args.value(a),
                                         {{{"slice", Shape::Slice}, {"sphere", Shape::Sphere}, {"cube", Shape::Cube}}});
    } else if (a == "--ramp") {
        args.next();
        view.ramp = pickNamed<Ramp, 4>(
            a, args.value(a),
            {{{"grey", Ramp::Grey}, {"heat", Ramp::Heat}, {"viridis", Ramp::Viridis}, {"earth", Ramp::Earth}}});
    } else if (a == "--levels") {
        args.next();
        view.autoLevels = pickNamed<bool, 2>(a, args.value(a), {{{"fixed", false}, {"auto", true}}});
    } else if (a == "--threads") {
        args.next();
        view.threads = parseInt(a, args.value(a));
        if (view.threads < 1 || view.threads > 256) usageError("--threads takes a whole number from 1 to 256");
    } else {
        return false;
    }
    return true;
}

Progress::Progress(std::string label, uint64_t total) : label_(std::move(label)), total_(std::max<uint64_t>(total, 1)) {}

void Progress::add(uint64_t units) {
    const uint64_t done = done_ += units;
    const Clock::time_point now = Clock::now();
    if (now - start_ < std::chrono::seconds(1)) return;
    const std::lock_guard lock(mutex_);
    if (reported_ && now - lastReport_ < std::chrono::milliseconds(500)) return;
    const bool terminal = isatty(STDERR_FILENO);
    std::fprintf(stderr, terminal ? "\r%s: %3d%%" : "%s: %3d%%\n", label_.c_str(),
                 static_cast<int>(std::min<uint64_t>(done, total_) * 100 / total_));
    reported_ = true;
    lastReport_ = now;
}

void Progress::finish() {
    const std::lock_guard lock(mutex_);
    if (reported_ && isatty(STDERR_FILENO)) std::fprintf(stderr, "\r%s: 100%%\n", label_.c_str());
    reported_ = false;
}

namespace {

using Vec = std::array<double, 3>;

double dot(const Vec& a, const Vec& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vec normalised(Vec v) {
    const double n = std::sqrt(dot(v, v));
    return {v[0] / n, v[1] / n, v[2] / n};
}

// Light from the upper left, in front of the object; a fifth of the light is ambient.
const Vec kLight = normalised({-0.45, 0.6, 0.66});
constexpr double kAmbient = 0.2;

// The cube turned so that three faces show: 45 degrees about the vertical axis, then tipped
// towards the viewer. Rows map object axes to view axes.
struct Rotation {
    std::array<Vec, 3> m;
    Vec apply(const Vec& v) const { return {dot(m[0], v), dot(m[1], v), dot(m[2], v)}; }
    Vec applyInverse(const Vec& v) const {
        return {m[0][0] * v[0] + m[1][0] * v[1] + m[2][0] * v[2], m[0][1] * v[0] + m[1][1] * v[1] + m[2][1] * v[2],
                m[0][2] * v[0] + m[1][2] * v[1] + m[2][2] * v[2]};
    }
};

Rotation cubeRotation() {
    const double yaw = -M_PI / 4, pitch = std::atan(1.0 / std::sqrt(2.0));  // isometric
    const double cy = std::cos(yaw), sy = std::sin(yaw), cp = std::cos(pitch), sp = std::sin(pitch);
    // Rx(pitch) * Ry(yaw)
    return {{{{cy, 0, sy}, {sp * sy, cp, -sp * cy}, {-cp * sy, sp, cp * cy}}}};
}

// One pixel: the texture point it shows and its light (negative: background).
struct Sample {
    float point[3];
    float light;
};

// Object coordinates (u to the right, v upwards, w towards the viewer) to texture coordinates:
// w is always the third axis itself, so the offset is that axis's coordinate (for xz this
// makes the picture the mirror image of a view from +y, which a texture picture can afford).
void toTexture(const ViewOptions& view, double u, double v, double w, float out[3]) {
    switch (view.plane) {
    case Plane::XY: out[0] = static_cast<float>(u), out[1] = static_cast<float>(v), out[2] = static_cast<float>(w); break;
    case Plane::XZ: out[0] = static_cast<float>(u), out[1] = static_cast<float>(w), out[2] = static_cast<float>(v); break;
    case Plane::YZ: out[0] = static_cast<float>(w), out[1] = static_cast<float>(u), out[2] = static_cast<float>(v); break;
    }
}

Sample samplePixel(const ViewOptions& view, const Rotation& cube, int i, int j) {
    Sample s{{0, 0, 0}, 1.0f};
    const double e = view.extent;
    if (view.shape == Shape::Slice) {
        // Pixel (i, j) samples the centre of its square; v grows upwards like a plot.
        const double step = e / view.width;
        toTexture(view, (i + 0.5) * step, (view.height - 1 - j + 0.5) * step, view.offset, s.point);
        return s;
    }
    const double step = e / std::min(view.width, view.height);
    const double du = (i + 0.5 - view.width / 2.0) * step, dv = (view.height / 2.0 - (j + 0.5)) * step;
    const double radius = e / 2 * 0.96;
    Vec local, normal;
    if (view.shape == Shape::Sphere) {
        const double d2 = du * du + dv * dv;
        if (d2 > radius * radius) return {{0, 0, 0}, -1.0f};
        local = {du, dv, std::sqrt(radius * radius - d2)};
        normal = {local[0] / radius, local[1] / radius, local[2] / radius};
    } else {
        // A ray along -w through the pixel, met with the cube's slabs in the cube's own frame.
        const double half = radius / std::sqrt(3.0);
        const Vec origin = cube.applyInverse({du, dv, 4 * e}), dir = cube.applyInverse({0, 0, -1});
        double enter = -1e300, leave = 1e300;
        int axis = 0;
        for (int k = 0; k < 3; ++k) {
            const double t0 = (-half - origin[k]) / dir[k], t1 = (half - origin[k]) / dir[k];
            if (std::min(t0, t1) > enter) enter = std::min(t0, t1), axis = k;
            leave = std::min(leave, std::max(t0, t1));
        }
        if (enter > leave) return {{0, 0, 0}, -1.0f};
        local = {origin[0] + enter * dir[0], origin[1] + enter * dir[1], origin[2] + enter * dir[2]};
        Vec n{0, 0, 0};
        n[axis] = dir[axis] < 0 ? 1 : -1;
        normal = cube.apply(n);
    }
    toTexture(view, e / 2 + local[0], e / 2 + local[1], view.offset + local[2], s.point);
    s.light = static_cast<float>(kAmbient + (1 - kAmbient) * std::max(0.0, dot(normal, kLight)));
    return s;
}

// Colour maps: control points at even steps from 0 to 1, linear in between.
using Rgb = std::array<float, 3>;
Rgb rampColour(Ramp ramp, float t) {
    static const std::vector<Rgb> heat{{0, 0, 0}, {0.55f, 0.05f, 0.05f}, {0.95f, 0.35f, 0.0f}, {1, 0.85f, 0.2f}, {1, 1, 1}};
    static const std::vector<Rgb> viridis{{0.267f, 0.005f, 0.329f}, {0.230f, 0.322f, 0.546f}, {0.128f, 0.567f, 0.551f},
                                          {0.369f, 0.789f, 0.383f}, {0.993f, 0.906f, 0.144f}};
    static const std::vector<Rgb> earth{{0.12f, 0.07f, 0.03f}, {0.45f, 0.27f, 0.12f}, {0.72f, 0.55f, 0.33f},
                                        {0.90f, 0.82f, 0.65f}, {1, 0.98f, 0.94f}};
    if (ramp == Ramp::Grey) return {t, t, t};
    const std::vector<Rgb>& points = ramp == Ramp::Heat ? heat : ramp == Ramp::Viridis ? viridis : earth;
    const float at = t * static_cast<float>(points.size() - 1);
    const size_t k = std::min(static_cast<size_t>(at), points.size() - 2);
    const float f = at - static_cast<float>(k);
    Rgb c;
    for (int ch = 0; ch < 3; ++ch) c[ch] = points[k][ch] + (points[k + 1][ch] - points[k][ch]) * f;
    return c;
}

constexpr uint8_t kBackground = 40;

}  // namespace

RgbImage renderView(const Record& record, int flags, const ViewOptions& view, Progress* progress) {
    const size_t pixels = static_cast<size_t>(view.width) * static_cast<size_t>(view.height);
    std::vector<float> values(pixels), light(pixels);
    const Rotation cube = cubeRotation();

    // Rows are handed out one at a time; each worker evaluates its rows with its own texture.
    std::atomic<int> nextRow{0};
    const auto work = [&] {
        const TexturePtr texture = createTexture(record, flags);
        std::vector<float> points, out;
        std::vector<int> columns;
        for (int j = nextRow++; j < view.height; j = nextRow++) {
            points.clear();
            columns.clear();
            for (int i = 0; i < view.width; ++i) {
                const Sample s = samplePixel(view, cube, i, j);
                light[static_cast<size_t>(j) * view.width + i] = s.light;
                if (s.light < 0) continue;
                points.insert(points.end(), s.point, s.point + 3);
                columns.push_back(i);
            }
            out.resize(columns.size());
            (*texture)(points.data(), static_cast<int>(columns.size()), out.data());
            for (size_t k = 0; k < columns.size(); ++k) values[static_cast<size_t>(j) * view.width + columns[k]] = out[k];
            if (progress) progress->add(static_cast<uint64_t>(view.width));
        }
    };
    const unsigned cores = std::max(1u, std::thread::hardware_concurrency());
    const int threads = std::min(view.threads > 0 ? view.threads : static_cast<int>(cores), view.height);
    std::vector<std::thread> workers;
    for (int t = 1; t < threads; ++t) workers.emplace_back(work);
    work();
    for (std::thread& w : workers) w.join();

    // Levels: the fixed [0, 1], or the range of the values shown (a flat picture stays as it is).
    float low = 0.0f, high = 1.0f;
    if (view.autoLevels) {
        low = INFINITY, high = -INFINITY;
        for (size_t p = 0; p < pixels; ++p) {
            if (light[p] < 0 || !std::isfinite(values[p])) continue;
            low = std::min(low, values[p]);
            high = std::max(high, values[p]);
        }
        if (!(high > low)) low = 0.0f, high = 1.0f;
    }

    RgbImage image{view.width, view.height, std::vector<uint8_t>(pixels * 3, kBackground)};
    for (size_t p = 0; p < pixels; ++p) {
        if (light[p] < 0) continue;
        const float t = clamp01((values[p] - low) / (high - low));
        const Rgb c = rampColour(view.ramp, t);
        for (int ch = 0; ch < 3; ++ch) image.pixels[3 * p + ch] = toGrey(c[ch] * light[p]);
    }
    return image;
}

}  // namespace grainsmith::cli
