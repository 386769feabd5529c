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
#include "numbers.h"
#include "readers.h"

namespace grainsmith::cli {
namespace {

// The head's interactive-update flag can be set like any parameter.
constexpr Param kInteractiveUpdate{.name = "interactiveUpdate", .type = FieldType::Bool,
                                   .offset = offsetof(BaseData, interactiveUpdate), .defaultValue = 1};

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
    std::string names = kInteractiveUpdate.name;
    for (const Param& p : kind.ops->parameters()) {
        names += ", ";
        names += p.name;
    }
    return names;
}

const Param* findParam(const Kind& kind, std::string_view name) {
    if (name == kInteractiveUpdate.name) return &kInteractiveUpdate;
    for (const Param& p : kind.ops->parameters())
        if (name == p.name) return &p;
    return nullptr;
}

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

std::string typeName(const Param& p) {
    switch (p.type) {
    case FieldType::Bool: return "a boolean (true/false, on/off, 1/0)";
    case FieldType::Int32: return "a whole number from -2147483648 to 2147483647";
    case FieldType::Float32: return "a single-precision number";
    case FieldType::Enum: {
        std::string s = "one of";
        for (size_t i = 0; i < p.choices.size(); ++i)
            s += (i ? ", " : " ") + std::to_string(i) + " \"" + p.choices[i] + "\"";
        return s;
    }
    }
    return "a value";
}

// Parses `text` for `param`; nullopt-like failure through the bool result.
bool parseValue(const Param& p, std::string_view text, double& out) {
    const std::string s(text);
    switch (p.type) {
    case FieldType::Bool:
        for (const char* t : {"true", "on", "yes", "1"})
            if (equalsIgnoringCase(s, t)) return out = 1, true;
        for (const char* f : {"false", "off", "no", "0"})
            if (equalsIgnoringCase(s, f)) return out = 0, true;
        return false;
    case FieldType::Int32: {
        if (s.empty()) return false;
        char* end = nullptr;
        errno = 0;
        const long long v = std::strtoll(s.c_str(), &end, 10);
        if (*end != '\0' || errno == ERANGE || v < INT32_MIN || v > INT32_MAX) return false;
        out = static_cast<double>(v);
        return true;
    }
    case FieldType::Float32: {
        float v = 0.0f;
        std::string why;
        if (!parseFloat32(text, v, why)) return false;
        out = v;
        return true;
    }
    case FieldType::Enum: {
        for (size_t i = 0; i < p.choices.size(); ++i)
            if (equalsIgnoringCase(s, p.choices[i])) return out = static_cast<double>(i), true;
        char* end = nullptr;
        const long v = s.empty() ? -1 : std::strtol(s.c_str(), &end, 10);
        if (s.empty() || *end != '\0' || v < 0 || v >= static_cast<long>(p.choices.size())) return false;
        out = static_cast<double>(v);
        return true;
    }
    }
    return false;
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

// The kind a user means: the exact display name, or else the one name equal to it without
// regard to case (catalogue names never differ by case alone, but a clash is reported).
const Kind* matchKind(std::string_view name) {
    if (const Kind* exact = findKind(name)) return exact;
    const Kind* found = nullptr;
    for (const Kind& k : catalogue()) {
        if (!equalsIgnoringCase(name, k.name)) continue;
        if (found) usageError("kind name '" + std::string(name) + "' is ambiguous: '" + found->name + "' or '" +
                              k.name + "'");
        found = &k;
    }
    return found;
}

const Kind& implementedKind(std::string_view name) {
    const Kind* kind = matchKind(name);
    if (!kind) usageError("unknown kind '" + std::string(name) + "'; the kinds are: " + joinKindNames());
    if (!kind->implemented()) inputError("kind '" + std::string(kind->name) + "' is not implemented yet");
    return *kind;
}

Record defaultRecord(const Kind& kind) {
    Record r{&kind, std::vector<unsigned char>(static_cast<size_t>(kind.recordSize))};
    const TexturePtr fresh(kind.ops->create(), TextureDeleter{&kind});
    fresh->getDescription(reinterpret_cast<char*>(r.bytes.data()));
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
    if (!parseValue(*p, text, value))
        usageError("'" + std::string(text) + "' does not fit parameter '" + std::string(name) + "': expected " +
                   typeName(*p));
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
    TexturePtr t(record.kind->ops->create(), TextureDeleter{record.kind});
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
