// eval: values of a texture at points, one per line.
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "cli.h"
#include "commands.h"

namespace grainsmith::cli {
namespace {

// Parses "x y z" (spaces or tabs); blank lines and lines starting with '#' are skipped.
bool parsePoint(const std::string& line, float out[3]) {
    const char* s = line.c_str();
    for (int i = 0; i < 3; ++i) {
        char* end = nullptr;
        const float v = std::strtof(s, &end);
        if (end == s) return false;
        out[i] = v;
        s = end;
    }
    while (*s == ' ' || *s == '\t' || *s == '\r') ++s;
    return *s == '\0';
}

bool skippable(const std::string& line) {
    const size_t first = line.find_first_not_of(" \t\r");
    return first == std::string::npos || line[first] == '#';
}

}  // namespace

int evalCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith eval (KIND [--set NAME=VALUE]... | --record FILE) [--flags N]\n"
                  "                       [--points FILE] [--hex]\n\n"
                  "Reads points 'x y z', one per line, from standard input (or FILE; blank lines and\n"
                  "lines starting with # are skipped), evaluates the texture through its batch\n"
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

    std::ifstream file;
    if (!pointsFile.empty()) {
        file.open(pointsFile);
        if (!file) inputError("cannot read '" + pointsFile + "': " + std::strerror(errno));
    }
    std::istream& in = pointsFile.empty() ? std::cin : file;
    const std::string source = pointsFile.empty() ? "standard input" : "'" + pointsFile + "'";

    // Read everything first so that a bad line fails before any value is printed.
    std::vector<float> points;
    std::string line;
    for (long lineNumber = 1; std::getline(in, line); ++lineNumber) {
        if (skippable(line)) continue;
        float p[3];
        if (!parsePoint(line, p))
            inputError(source + " line " + std::to_string(lineNumber) + ": expected three numbers 'x y z', got '" +
                       line + "'");
        points.insert(points.end(), p, p + 3);
    }
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
