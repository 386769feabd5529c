#include "core/param_text.h"

#include <cctype>
#include <cerrno>
#include <cfloat>
#include <cmath>
#include <cstdint>
#include <cstdlib>

namespace grainsmith {
namespace {

constexpr Param kInteractiveUpdate{.name = "interactiveUpdate", .type = FieldType::Bool,
                                   .offset = offsetof(BaseData, interactiveUpdate), .defaultValue = 1};

bool wholeNumber(double v, double lo, double hi) { return v >= lo && v <= hi && v == std::floor(v); }

}  // namespace

bool equalsIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) != std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

const Kind* matchKind(std::string_view name, const Kind** clash) {
    if (const Kind* exact = findKind(name)) return exact;
    const Kind* found = nullptr;
    for (const Kind& k : catalogue()) {
        if (!equalsIgnoringCase(name, k.name)) continue;
        if (found && clash) *clash = &k;
        if (!found) found = &k;
    }
    return found;
}

const Param& interactiveUpdateParam() { return kInteractiveUpdate; }

const Param* findParam(const Kind& kind, std::string_view name) {
    if (!kind.implemented()) return nullptr;
    if (name == kInteractiveUpdate.name) return &kInteractiveUpdate;
    for (const Param& p : kind.ops->parameters())
        if (name == p.name) return &p;
    if (equalsIgnoringCase(name, kInteractiveUpdate.name)) return &kInteractiveUpdate;
    for (const Param& p : kind.ops->parameters())
        if (equalsIgnoringCase(name, p.name)) return &p;
    return nullptr;
}

bool parseFloat32(std::string_view text, float& out, std::string& why) {
    const std::string s(text);
    if (s.empty()) return why = "no number", false;
    if (s.find('\0') != std::string::npos) return why = "a zero byte inside the number", false;
    char* end = nullptr;
    const double v = std::strtod(s.c_str(), &end);
    if (end == s.c_str() || *end != '\0') return why = "not a number", false;
    if (std::isfinite(v) && std::fabs(v) > FLT_MAX)
        return why = "beyond the single-precision range, it would become infinity", false;
    const float f = static_cast<float>(v);
    if (v != 0.0 && f == 0.0f) return why = "too small for single precision, it would become 0", false;
    out = f;
    return true;
}

bool parseParamText(const Param& p, std::string_view text, double& out) {
    const std::string s(text);
    switch (p.type) {
        case FieldType::Bool:
            for (const char* t : {"true", "on", "yes", "1"})
                if (equalsIgnoringCase(s, t)) return out = 1, true;
            for (const char* f : {"false", "off", "no", "0"})
                if (equalsIgnoringCase(s, f)) return out = 0, true;
            return false;
        case FieldType::Int32: {
            if (s.empty() || s.find('\0') != std::string::npos) return false;
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
            if (s.empty() || s.find('\0') != std::string::npos) return false;
            char* end = nullptr;
            const long v = std::strtol(s.c_str(), &end, 10);
            if (*end != '\0' || v < 0 || v >= static_cast<long>(p.choices.size())) return false;
            out = static_cast<double>(v);
            return true;
        }
    }
    return false;
}

bool valueFits(const Param& p, double v) {
    switch (p.type) {
        case FieldType::Bool:
            return v == 0.0 || v == 1.0;
        case FieldType::Int32:
            return wholeNumber(v, INT32_MIN, INT32_MAX);
        case FieldType::Enum:
            return wholeNumber(v, 0, static_cast<double>(p.choices.size()) - 1);
        case FieldType::Float32:
            return !(std::isfinite(v) && std::fabs(v) > FLT_MAX) && !(v != 0.0 && static_cast<float>(v) == 0.0f);
    }
    return false;
}

std::string describeType(const Param& p) {
    switch (p.type) {
        case FieldType::Bool:
            return "a boolean (true/false, on/off, 1/0)";
        case FieldType::Int32:
            return "a whole number from -2147483648 to 2147483647";
        case FieldType::Float32:
            return "a single-precision number";
        case FieldType::Enum: {
            std::string s = "one of";
            for (size_t i = 0; i < p.choices.size(); ++i)
                s += (i ? ", " : " ") + std::to_string(i) + " \"" + p.choices[i] + "\"";
            return s;
        }
    }
    return "a value";
}

}  // namespace grainsmith
