#include "numbers.h"

#include <cfloat>
#include <cmath>
#include <cstdlib>

namespace grainsmith::cli {

bool parseFloat32(std::string_view text, float& out, std::string& why) {
    const std::string s(text);
    if (s.empty()) return why = "no number", false;
    if (s.find('\0') != std::string::npos) return why = "a zero byte inside the number", false;
    char* end = nullptr;
    const double v = std::strtod(s.c_str(), &end);
    if (end == s.c_str() || *end != '\0') return why = "not a number", false;
    if (std::isfinite(v) && std::fabs(v) > FLT_MAX) return why = "beyond the single-precision range, it would become infinity", false;
    const float f = static_cast<float>(v);
    if (v != 0.0 && f == 0.0f) return why = "too small for single precision, it would become 0", false;
    out = f;
    return true;
}

}  // namespace grainsmith::cli
