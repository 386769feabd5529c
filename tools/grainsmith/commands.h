// The subcommands of the grainsmith tool. Each takes the arguments after its own name and
// returns the exit status; failures are thrown as cli::Failure.
#pragma once

#include <span>

namespace grainsmith::cli {

int listCommand(std::span<char* const> args);
int recordCommand(std::span<char* const> args);
int showCommand(std::span<char* const> args);
int evalCommand(std::span<char* const> args);
int renderCommand(std::span<char* const> args);
int galleryCommand(std::span<char* const> args);
int docsCommand(std::span<char* const> args);

struct ViewOptions;
struct RgbImage;
// One labelled tile per implemented kind with its defaults, at most maxColumns per row.
RgbImage renderGallery(const ViewOptions& view, int maxColumns);

}  // namespace grainsmith::cli
