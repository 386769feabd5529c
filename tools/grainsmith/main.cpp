// grainsmith: inspect, build and render description records from the command line.
#include <cstdio>
#include <exception>
#include <string_view>

#include "cli.h"
#include "commands.h"
#include "grainsmith/simd.h"
#include "grainsmith/version.h"

namespace {

struct Command {
    const char* name;
    const char* summary;
    int (*run)(std::span<char* const>);
};

constexpr Command kCommands[] = {
    {"list", "every texture kind with its record size, version and status", grainsmith::cli::listCommand},
    {"record", "write a description record of one kind", grainsmith::cli::recordCommand},
    {"show", "decode a description record into name = value lines", grainsmith::cli::showCommand},
    {"eval", "evaluate a texture at points read from standard input or a file", grainsmith::cli::evalCommand},
    {"render", "render a texture as a PNG: a slice, or on a lit sphere or cube", grainsmith::cli::renderCommand},
    {"gallery", "render every implemented kind with its defaults into one PNG", grainsmith::cli::galleryCommand},
    {"docs", "write the reference of the kinds (Markdown pages with pictures)", grainsmith::cli::docsCommand},
};

// "grainsmith VERSION" on the first line; further lines describe the build.
// The version, then the SIMD level the batch dispatcher chose for this CPU.
void printVersion() {
    std::printf("grainsmith %s\nbatch evaluation SIMD level: %s\n", GRAINSMITH_VERSION_STRING,
                grainsmith::simdLevelName());
}

void printHelp(std::FILE* to) {
    std::fprintf(to,
                 "usage: grainsmith COMMAND [OPTIONS]\n\n"
                 "Solid procedural textures: build, inspect, evaluate and render description records.\n\n"
                 "commands:\n");
    for (const Command& c : kCommands) std::fprintf(to, "  %-8s %s\n", c.name, c.summary);
    std::fprintf(to, "\n'grainsmith COMMAND --help' describes one command; 'grainsmith --version' prints the version.\n");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        printHelp(stderr);
        return grainsmith::cli::kUsageExit;
    }
    const std::string_view name = argv[1];
    if (name == "--version" || name == "-V") {
        printVersion();
        return 0;
    }
    if (name == "-h" || name == "--help" || name == "help") {
        printHelp(stdout);
        return 0;
    }
    for (const Command& c : kCommands) {
        if (name != c.name) continue;
        try {
            return c.run(std::span<char* const>(argv + 2, static_cast<size_t>(argc - 2)));
        } catch (const grainsmith::cli::Failure& f) {
            std::fprintf(stderr, "grainsmith %s: error: %s\n", c.name, f.what());
            if (f.exitCode == grainsmith::cli::kUsageExit)
                std::fprintf(stderr, "(see 'grainsmith %s --help')\n", c.name);
            return f.exitCode;
        } catch (const std::exception& e) {
            std::fprintf(stderr, "grainsmith %s: error: %s\n", c.name, grainsmith::cli::printable(e.what()).c_str());
            return 1;
        }
    }
    std::fprintf(stderr, "grainsmith: error: unknown command '%s'\n\n", grainsmith::cli::printable(argv[1]).c_str());
    printHelp(stderr);
    return grainsmith::cli::kUsageExit;
}
