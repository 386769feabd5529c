#include "printable.h"

namespace grainsmith::cli {

std::string printable(std::string_view text) {
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte == '\\') {
            out += "\\\\";
        } else if (byte >= 0x20 && byte < 0x7F) {
            out += c;
        } else {
            out += "\\x";
            out += kHex[byte >> 4];
            out += kHex[byte & 15];
        }
    }
    return out;
}

}  // namespace grainsmith::cli
