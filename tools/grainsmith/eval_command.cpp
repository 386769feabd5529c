// eval: values of a texture at points, one per line.
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "cli.h"
#include "commands.h"
#include "readers.h"

namespace grainsmith::cli {
int evalCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith eval (KIND [--set NAME=VALUE]... | --record FILE) [--flags N]\n"
                  "                       [--points FILE] [--hex]\n\n"
                  "Reads points 'x y z', one per line, from standard input (or FILE; blank lines and\n"
                  "lines starting with # are skipped; numbers as --set takes them: nan and inf are\n"
                  "accepted, 1e39 and 1e-50 are not), evaluates the texture through its batch\n"
                  "operation and prints one value per line: the shortest decimal that reads back to\n"
                  "the same float, or with --hex the float's bits as 0xXXXXXXXX. --flags sets the\n"
                  "texture's flags (default 2; 4 or 8 select two-dimensional mode).");
        return 0;
    }
    Args args(argv);
    TextureChoice choice;
    int flags = kDefaultFlags;
    bool hex = false;
    std::string pointsFile;
    while (!args.done()) {
        if (takeTextureOption(args, choice)) continue;
        const std::string_view a = args.next();
        if (a == "--flags") flags = parseInt(a, args.value(a));
        else if (a == "--points") pointsFile = args.value(a);
        else if (a == "--hex") hex = true;
        else usageError("unknown option '" + std::string(a) + "'");
    }
    const Record record = recordFromChoice(choice);
    const TexturePtr texture = createTexture(record, flags);

    // Read everything first so that a bad line fails before any value is printed.
    const std::vector<float> points = readPoints(pointsFile);
    const int n = static_cast<int>(points.size() / 3);
    std::vector<float> values(static_cast<size_t>(n));
    (*texture)(points.data(), n, values.data());
    for (const float v : values) {
        if (hex) {
            uint32_t bits;
            std::memcpy(&bits, &v, sizeof bits);
            std::printf("0x%08X\n", bits);
        } else {
            std::puts(shortestFloat(v).c_str());
        }
    }
    return 0;
}

}  // namespace grainsmith::cli
