// render and gallery: pictures of textures as PNG images.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "cli.h"
#include "commands.h"
#include "image.h"
#include "view.h"

namespace grainsmith::cli {
namespace {

void savePng(const RgbImage& image, const std::string& path) {
    std::string error;
    if (!writePng(image, path, error)) inputError(error);
}

}  // namespace

int renderCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::printf("usage: grainsmith render (KIND [--set NAME=VALUE]... | --record FILE) -o FILE.png\n"
                    "                         [--flags N] [view options]\n\n"
                    "Renders a texture as a PNG: by default the slice z = 0 of the square [0, 4] x [0, 4]\n"
                    "as a 256 x 256 grey image, x to the right and y upwards, each pixel the value at its\n"
                    "centre (0 black, 1 white, clamped). --flags sets the texture's flags (default 2; 4 or\n"
                    "8 select two-dimensional mode). Options may also be written --option=value.\n\n"
                    "view options:\n%s",
                    kViewOptionsHelp);
        return 0;
    }
    Args args(argv);
    TextureChoice choice;
    ViewOptions view;
    int flags = kDefaultFlags;
    std::string out;
    while (!args.done()) {
        if (takeTextureOption(args, choice) || takeViewOption(args, view)) continue;
        const std::string_view a = args.next();
        if (a == "--flags") flags = parseInt(a, args.value(a));
        else if (a == "-o" || a == "--output") out = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (out.empty()) usageError("missing -o FILE.png");
    const Record record = recordFromChoice(choice);
    requireWritable(out);
    Progress progress("render", static_cast<uint64_t>(view.width) * static_cast<uint64_t>(view.height));
    const RgbImage image = renderView(record, flags, view, &progress);
    progress.finish();
    savePng(image, out);
    return 0;
}

int galleryCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::printf("usage: grainsmith gallery -o FILE.png [view options]\n\n"
                    "Renders every implemented kind with its default parameters as one labelled tile\n"
                    "(160 x 160 pixels unless --size says otherwise) into one PNG, in catalogue order.\n"
                    "Labels are never cut: a column is as wide as its longest name needs. Progress is\n"
                    "reported on standard error when the work is long.\n\n"
                    "view options:\n%s",
                    kViewOptionsHelp);
        return 0;
    }
    Args args(argv);
    ViewOptions view;
    view.width = view.height = 160;
    std::string out;
    while (!args.done()) {
        if (takeViewOption(args, view)) continue;
        const std::string_view a = args.next();
        if (a == "-o" || a == "--output") out = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (out.empty()) usageError("missing -o FILE.png");
    requireWritable(out);
    const auto start = std::chrono::steady_clock::now();
    const RgbImage sheet = renderGallery(view, 6);
    savePng(sheet, out);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    if (seconds >= 1.0) std::fprintf(stderr, "gallery: written to %s in %.1f s\n", out.c_str(), seconds);
    return 0;
}

RgbImage renderGallery(const ViewOptions& view, int maxColumns) {
    std::vector<const Kind*> kinds;
    int labelWidth = 0;
    for (const Kind& k : catalogue()) {
        if (!k.implemented()) continue;
        kinds.push_back(&k);
        labelWidth = std::max(labelWidth, textWidth(k.name));
    }
    const int count = static_cast<int>(kinds.size());
    const int columns = std::max(1, std::min(maxColumns, count));
    const int rows = (count + columns - 1) / columns;
    const int margin = 8, labelHeight = textHeight() + 6;
    const int cellW = std::max(view.width, labelWidth) + margin, cellH = view.height + labelHeight + margin;

    // Background and labels in grey first; the tiles are then laid over in colour.
    GreyImage labels = makeImage(margin + columns * cellW, margin + rows * cellH, 48);
    for (int n = 0; n < count; ++n) {
        const int x = margin + (n % columns) * cellW, y = margin + (n / columns) * cellH;
        const int inner = cellW - margin;
        drawText(labels, x + (inner - textWidth(kinds[n]->name)) / 2, y + view.height + 4, kinds[n]->name, 230);
    }
    RgbImage sheet = toRgb(labels);
    Progress progress("gallery", static_cast<uint64_t>(count) * view.width * view.height);
    for (int n = 0; n < count; ++n) {
        const int x = margin + (n % columns) * cellW, y = margin + (n / columns) * cellH;
        const int inner = cellW - margin;
        blit(sheet, renderView(defaultRecord(*kinds[n]), kDefaultFlags, view, &progress), x + (inner - view.width) / 2, y);
    }
    progress.finish();
    return sheet;
}

}  // namespace grainsmith::cli
