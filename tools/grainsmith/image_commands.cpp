// render and gallery: planar slices of textures as grey PNG images.
#include <chrono>
#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "cli.h"
#include "commands.h"
#include "image.h"

namespace grainsmith::cli {
namespace {

struct Slice {
    int size = 256;        // pixels per side
    float extent = 4.0f;   // the square [0, extent] x [0, extent] in texture space
    float z = 0.0f;
};

constexpr int kMaxSize = 8192;

// Takes --size, --extent and --z; false for any other option.
bool takeSliceOption(Args& args, Slice& slice) {
    const std::string_view a = args.peek();
    if (a == "--size") {
        args.next();
        slice.size = parseInt(a, args.value(a));
        if (slice.size < 1 || slice.size > kMaxSize)
            usageError("--size takes a whole number from 1 to " + std::to_string(kMaxSize));
    } else if (a == "--extent") {
        args.next();
        slice.extent = parseFloat(a, args.value(a));
        if (!(slice.extent > 0.0f)) usageError("--extent takes a number above 0");
    } else if (a == "--z") {
        args.next();
        slice.z = parseFloat(a, args.value(a));
    } else {
        return false;
    }
    return true;
}

// Pixel (i, j) samples the centre of its square; y grows upwards like a plot.
GreyImage renderSlice(const Texture3D& texture, const Slice& s) {
    GreyImage image = makeImage(s.size, s.size);
    std::vector<float> points(static_cast<size_t>(s.size) * 3), values(static_cast<size_t>(s.size));
    const float step = s.extent / static_cast<float>(s.size);
    for (int j = 0; j < s.size; ++j) {
        const float y = (static_cast<float>(s.size - 1 - j) + 0.5f) * step;
        for (int i = 0; i < s.size; ++i) {
            points[3 * i] = (static_cast<float>(i) + 0.5f) * step;
            points[3 * i + 1] = y;
            points[3 * i + 2] = s.z;
        }
        texture(points.data(), s.size, values.data());
        for (int i = 0; i < s.size; ++i) image.pixels[static_cast<size_t>(j) * s.size + i] = toGrey(values[i]);
    }
    return image;
}

void savePng(const GreyImage& image, const std::string& path) {
    std::string error;
    if (!writePng(image, path, error)) inputError(error);
}

}  // namespace

int renderCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith render (KIND [--set NAME=VALUE]... | --record FILE) -o FILE.png\n"
                  "                         [--size N] [--z Z] [--flags N] [--extent E]\n\n"
                  "Renders the slice z = Z (default 0) of the square [0, E] x [0, E] (default E = 4)\n"
                  "as an N x N grey PNG (default 256), x to the right and y upwards, each pixel the\n"
                  "value at its centre (0 black, 1 white, clamped). --flags sets the texture's flags\n"
                  "(default 2; 4 or 8 select two-dimensional mode).");
        return 0;
    }
    Args args(argv);
    TextureChoice choice;
    Slice slice;
    int flags = kDefaultFlags;
    std::string out;
    while (!args.done()) {
        if (takeTextureOption(args, choice) || takeSliceOption(args, slice)) continue;
        const std::string_view a = args.next();
        if (a == "--flags") flags = parseInt(a, args.value(a));
        else if (a == "-o" || a == "--output") out = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (out.empty()) usageError("missing -o FILE.png");
    const Record record = recordFromChoice(choice);
    requireWritable(out);
    savePng(renderSlice(*createTexture(record, flags), slice), out);
    return 0;
}

int galleryCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith gallery -o FILE.png [--size N] [--z Z] [--extent E]\n\n"
                  "Renders every implemented kind with its default parameters as one labelled tile\n"
                  "(N x N pixels, default 160; slice and extent as for 'render') into one PNG, in\n"
                  "catalogue order, reporting progress on standard error.");
        return 0;
    }
    Args args(argv);
    Slice slice;
    slice.size = 160;
    std::string out;
    while (!args.done()) {
        if (takeSliceOption(args, slice)) continue;
        const std::string_view a = args.next();
        if (a == "-o" || a == "--output") out = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (out.empty()) usageError("missing -o FILE.png");
    requireWritable(out);

    std::vector<const Kind*> kinds;
    for (const Kind& k : catalogue())
        if (k.implemented()) kinds.push_back(&k);
    const int columns = std::min<int>(6, static_cast<int>(kinds.size()));
    const int rows = (static_cast<int>(kinds.size()) + columns - 1) / columns;
    const int margin = 8, labelHeight = textHeight() + 6;
    const int cellW = slice.size + margin, cellH = slice.size + labelHeight + margin;
    GreyImage sheet = makeImage(margin + columns * cellW, margin + rows * cellH, 48);

    const auto start = std::chrono::steady_clock::now();
    for (size_t n = 0; n < kinds.size(); ++n) {
        const Kind& kind = *kinds[n];
        std::fprintf(stderr, "gallery: [%zu/%zu] %s\n", n + 1, kinds.size(), kind.name);
        const int x = margin + static_cast<int>(n % columns) * cellW;
        const int y = margin + static_cast<int>(n / columns) * cellH;
        blit(sheet, renderSlice(*createTexture(defaultRecord(kind), kDefaultFlags), slice), x, y);
        std::string label = kind.name;
        while (label.size() > 1 && textWidth(label) > slice.size) label.pop_back();
        drawText(sheet, x + (slice.size - textWidth(label)) / 2, y + slice.size + 4, label, 230);
    }
    savePng(sheet, out);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::fprintf(stderr, "gallery: %zu kinds, %dx%d pixels each, written to %s in %.2f s\n", kinds.size(),
                 slice.size, slice.size, out.c_str(), seconds);
    return 0;
}

}  // namespace grainsmith::cli
