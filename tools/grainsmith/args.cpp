// Splitting "--opt=value" and the check that a value goes with an option that takes one.
#include "cli.h"

namespace grainsmith::cli {

Args::Args(std::span<char* const> args) {
    for (const char* raw : args) {
        const std::string_view a = raw;
        const size_t eq = a.find('=');
        if (a.starts_with("--") && eq != std::string_view::npos && eq > 2) {
            tokens_.emplace_back(a.substr(0, eq));
            attached_.push_back(false);
            tokens_.emplace_back(a.substr(eq + 1));
            attached_.push_back(true);
        } else {
            tokens_.emplace_back(a);
            attached_.push_back(false);
        }
    }
}

std::string_view Args::peek() const {
    if (attached_[pos_]) usageError("option '" + tokens_[pos_ - 1] + "' takes no value");
    return tokens_[pos_];
}

}  // namespace grainsmith::cli
