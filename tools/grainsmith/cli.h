// Shared pieces of the grainsmith tool: errors, argument walking, texture handles.
#pragma once

#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "core/catalogue.h"
#include "grainsmith/make_texture.h"
#include "printable.h"

namespace grainsmith::cli {

// A failure reported to the user: the message goes to stderr, the code is the exit status.
struct Failure : std::runtime_error {
    int exitCode;
    // The message is made printable here, so no raw byte from a file or argument is echoed.
    Failure(int code, const std::string& message) : std::runtime_error(printable(message)), exitCode(code) {}
};
inline constexpr int kUsageExit = 2;    // the command line is wrong
inline constexpr int kInputExit = 1;    // a file or value is wrong or unreadable
[[noreturn]] inline void usageError(const std::string& m) { throw Failure(kUsageExit, m); }
[[noreturn]] inline void inputError(const std::string& m) { throw Failure(kInputExit, m); }

// Walks the arguments of one subcommand. "--opt=value" is taken as "--opt value"; a value
// attached that way to an option that takes none is an error.
class Args {
public:
    explicit Args(std::span<char* const> args);
    bool done() const { return pos_ >= tokens_.size(); }
    // The next argument; fails when it is a value attached to the option before it.
    std::string_view peek() const;
    std::string_view next() { return tokens_[pos_++]; }
    // The value of an option such as "-o FILE"; fails when it is missing.
    std::string value(std::string_view option);

private:
    std::vector<std::string> tokens_;
    std::vector<bool> attached_;  // the token came after '=' in "--opt=value"
    size_t pos_ = 0;
};

int parseInt(std::string_view option, std::string_view text);
float parseFloat(std::string_view option, std::string_view text);

// The record of one kind, as bytes, with its parameters.
struct Record {
    const Kind* kind = nullptr;
    std::vector<unsigned char> bytes;
};

// "KIND [--set NAME=VALUE]..." or "--record FILE" at the start of the options of eval,
// render and record. Other options are handed back to the caller through `other`.
struct TextureChoice {
    std::string kindName;
    std::vector<std::string> settings;
    std::string recordFile;
};

const Kind& implementedKind(std::string_view name);
Record defaultRecord(const Kind& kind);
void applySetting(Record& record, std::string_view setting);  // "name=value"
Record recordFromChoice(const TextureChoice& choice);
TexturePtr createTexture(const Record& record, int flags);

// Writes bytes to `path` through a temporary file renamed into place, so no partial file is
// ever left behind.
void writeFileAtomically(const std::string& path, std::span<const unsigned char> bytes);

// Fails unless `path` can be written; called before long work so that it is not wasted.
void requireWritable(const std::string& path);

// The shortest decimal that reads back to the same float.
std::string shortestFloat(float v);

std::string describeValue(const Param& param, const unsigned char* record);

}  // namespace grainsmith::cli

namespace grainsmith::cli {

// Takes "--set NAME=VALUE", "--record FILE" or a bare KIND from `args` into `choice`; returns
// false (consuming nothing) for any other argument.
bool takeTextureOption(Args& args, TextureChoice& choice);

// True when the arguments ask for help.
bool wantsHelp(std::span<char* const> args);

}  // namespace grainsmith::cli
