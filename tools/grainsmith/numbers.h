// The one reading of a single-precision number from text, shared by --set and point files.
#pragma once

#include <string>
#include <string_view>

namespace grainsmith::cli {

// Reads the whole of `text` as a number for a float field: a decimal (or hexadecimal)
// number, "inf" or "nan" (any case, with a sign). Rejected, with the reason in `why`: an
// empty text, anything after the number (a second number, a comma, a zero byte), a finite
// number beyond the float range (1e39 would become infinity) and a non-zero number that
// would become 0 (1e-50). Numbers between are rounded to the nearest float.
bool parseFloat32(std::string_view text, float& out, std::string& why);

}  // namespace grainsmith::cli
