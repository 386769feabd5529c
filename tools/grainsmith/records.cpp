// Building, reading, checking and describing description records for the tool.
#include <cerrno>
#include <charconv>
#include <cfloat>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "atomic_file.h"
#include "cli.h"
#include "core/param_text.h"
#include "readers.h"

namespace grainsmith::cli {
namespace {

std::string joinKindNames() {
    std::string names;
    for (const Kind& k : catalogue()) {
        if (!names.empty()) names += ", ";
        names += '"';
        names += k.name;
        names += '"';
    }
    return names;
}

std::string joinParamNames(const Kind& kind) {
    std::string names = interactiveUpdateParam().name;
    for (const Param& p : kind.ops->parameters()) {
        names += ", ";
        names += p.name;
    }
    return names;
}

}  // namespace

std::string shortestFloat(float v) {
    char buf[64];
    const auto result = std::to_chars(buf, buf + sizeof buf, v);
    return std::string(buf, result.ptr);
}

std::string Args::value(std::string_view option) {
    if (done()) usageError(std::string(option) + " needs a value");
    return std::string(next());
}

int parseInt(std::string_view option, std::string_view text) {
    const std::string s(text);
    char* end = nullptr;
    errno = 0;
    const long long v = s.empty() ? 0 : std::strtoll(s.c_str(), &end, 10);
    if (s.empty() || *end != '\0' || errno == ERANGE || v < INT32_MIN || v > INT32_MAX)
        usageError(std::string(option) + " takes a whole number, not '" + s + "'");
    return static_cast<int>(v);
}

float parseFloat(std::string_view option, std::string_view text) {
    float v = 0.0f;
    std::string why;
    if (!parseFloat32(text, v, why) || !std::isfinite(v))
        usageError(std::string(option) + " takes a finite number, not '" + std::string(text) + "'");
    return v;
}

const Kind& implementedKind(std::string_view name) {
    const Kind* clash = nullptr;
    const Kind* kind = matchKind(name, &clash);
    if (clash)
        usageError("kind name '" + std::string(name) + "' is ambiguous: '" + kind->name + "' or '" + clash->name + "'");
    if (!kind) usageError("unknown kind '" + std::string(name) + "'; the kinds are: " + joinKindNames());
    if (!kind->implemented()) inputError("kind '" + std::string(kind->name) + "' is not implemented yet");
    return *kind;
}

Record defaultRecord(const Kind& kind) {
    Record r{&kind, std::vector<unsigned char>(static_cast<size_t>(kind.recordSize))};
    writeDefaultRecord(kind, r.bytes.data());
    return r;
}

void applySetting(Record& record, std::string_view setting) {
    const size_t eq = setting.find('=');
    if (eq == std::string_view::npos || eq == 0)
        usageError("--set takes NAME=VALUE, not '" + std::string(setting) + "'");
    const std::string_view name = setting.substr(0, eq), text = setting.substr(eq + 1);
    const Param* p = findParam(*record.kind, name);
    if (!p)
        usageError("kind '" + std::string(record.kind->name) + "' has no parameter '" + std::string(name) +
                   "'; its parameters are: " + joinParamNames(*record.kind));
    double value = 0;
    if (!parseParamText(*p, text, value))
        usageError("'" + std::string(text) + "' does not fit parameter '" + std::string(name) + "': expected " +
                   describeType(*p));
    writeParam(*p, record.bytes.data(), value);
}

Record recordFromChoice(const TextureChoice& choice) {
    if (!choice.recordFile.empty()) {
        if (!choice.kindName.empty()) usageError("give either a KIND or --record FILE, not both");
        if (!choice.settings.empty()) {
            Record r = readRecordFile(choice.recordFile);
            for (const std::string& s : choice.settings) applySetting(r, s);
            return r;
        }
        return readRecordFile(choice.recordFile);
    }
    if (choice.kindName.empty()) usageError("missing KIND (or --record FILE); 'grainsmith list' shows the kinds");
    Record r = defaultRecord(implementedKind(choice.kindName));
    for (const std::string& s : choice.settings) applySetting(r, s);
    return r;
}

TexturePtr createTexture(const Record& record, int flags) {
    TexturePtr t(record.kind->ops->create(), TextureDeleter{record.kind->ops->destroy});
    t->setStateFromDescription(reinterpret_cast<const char*>(record.bytes.data()));
    t->setFlags(flags);
    return t;
}

void writeFileAtomically(const std::string& path, std::span<const unsigned char> bytes) {
    std::string error;
    if (!writeAtomically(path, [&](int fd) { return writeAll(fd, bytes.data(), bytes.size()); }, error))
        inputError(error);
}

void requireWritable(const std::string& path) {
    if (const std::string error = checkWritable(path); !error.empty()) inputError(error);
}

std::string describeValue(const Param& p, const unsigned char* record) {
    const double v = readParam(p, record);
    switch (p.type) {
    case FieldType::Bool: return v != 0 ? "true" : "false";
    case FieldType::Int32: return std::to_string(static_cast<long long>(v));
    case FieldType::Float32: return shortestFloat(static_cast<float>(v));
    case FieldType::Enum: {
        const long long i = static_cast<long long>(v);
        std::string s = std::to_string(i);
        if (i >= 0 && i < static_cast<long long>(p.choices.size())) s += std::string(" (") + p.choices[i] + ")";
        return s;
    }
    }
    return "?";
}

}  // namespace grainsmith::cli
