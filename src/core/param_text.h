// Kinds and parameters as people name them, and parameter values as they write them: the
// one reading shared by the tool's --set, the C API's by-name calls and the bindings.
#pragma once

#include <string>
#include <string_view>

#include "core/catalogue.h"

namespace grainsmith {

bool equalsIgnoringCase(std::string_view a, std::string_view b);

// The kind a name means: the exact display name, or else the one name equal to it without
// regard to case. Null when none is; when two differ only by case, `clash` receives the second.
const Kind* matchKind(std::string_view name, const Kind** clash = nullptr);

// The head's interactive-update flag, which can be read and set like any parameter.
const Param& interactiveUpdateParam();

// The parameter of `kind` a name means, the interactive-update flag included: the exact name,
// or else the one name equal to it without regard to case. Null when none is.
const Param* findParam(const Kind& kind, std::string_view name);

// Reads the whole of `text` as a number for a float field: a decimal (or hexadecimal) number,
// "inf" or "nan" (any case, with a sign). Rejected, with the reason in `why`: an empty text,
// anything after the number, a finite number beyond the float range (1e39 would become
// infinity) and a non-zero number that would become 0 (1e-50). Others round to nearest.
bool parseFloat32(std::string_view text, float& out, std::string& why);

// Reads `text` as a value of the parameter: booleans as true/false, on/off, yes/no or 1/0,
// whole numbers in the int32 range, float numbers as parseFloat32 does, enumerations by their
// display text (any case) or index. False when it is none of these.
bool parseParamText(const Param& p, std::string_view text, double& out);

// Whether the field holds `v` as given: 0 or 1 for a boolean, a whole number in range for an
// integer or an enumeration index, and for a float any value parseFloat32 would accept.
bool valueFits(const Param& p, double v);

// What a parameter accepts, for messages: "a whole number from ...", "one of 0 \"Herringbone\", ...".
std::string describeType(const Param& p);

}  // namespace grainsmith
