// One table per texture kind describes its parameters: where each lives in the record,
// its type and default, and how the editor presents it. The constructor takes its
// defaults from it; the command-line tool, record dumps, the editor's pages and the tests
// all read it, so a parameter is described exactly once.
#pragma once

#include <cstdint>
#include <span>

#include "grainsmith/api.h"

namespace grainsmith {

enum class FieldType : uint8_t {
    Bool,     // one byte, 0 or 1
    Int32,    // count or depth
    Float32,
    Enum,     // int32 holding an index into `choices`
};

// How the editor shows a parameter.
enum class Widget : uint8_t {
    Slider,      // integer slider; parameter = slider value x `scale`
    IntSpin,     // integer spin box, parameter as is
    DoubleSpin,  // QDoubleSpinBox, value rounded to float
    Toggle,      // checkable push button
    Combo,       // combo box whose entries are `choices`, index = value
    Hidden,      // not on the page
};

// How a slider moves its partner slider after storing its own value.
enum class PartnerRule : uint8_t {
    None,
    Raise,  // the partner is set to this value when it is below it (a minimum pushes its maximum up)
    Lower,  // the partner is set to this value when it is above it (a maximum pushes its minimum down)
};

struct Param {
    const char* name;        // accessor stem and command-line name, e.g. "mortarThickness"
    FieldType type;
    uint16_t offset;         // byte offset in the record
    double defaultValue;     // converted to the field's type once (0.2 gives float 0x3E4CCCCD)
    std::span<const char* const> choices = {};  // enum display texts in value order

    // Editor presentation.
    const char* group = "";
    const char* label = "";
    Widget widget = Widget::DoubleSpin;
    double minimum = 0.0;
    double maximum = 100.0;
    double step = 1.0;
    int decimals = 3;
    double scale = 1.0;       // slider value x scale = parameter
    bool scaleInDouble = false;  // the conversion is computed in double, then rounded to float
    const char* objectName = nullptr;  // the editor widget's object name where it differs from `name`
    const char* partner = nullptr;     // the parameter whose slider this one moves (see PartnerRule)
    PartnerRule partnerRule = PartnerRule::None;
    const char* storesInto = nullptr;  // the parameter the widget writes, where it is not this one
    bool inert = false;                // shown and set from the record, but changes nothing

    // One short sentence for the reference: what the parameter does to the texture.
    const char* description = "";
};

using ParamTable = std::span<const Param>;

// Writes every parameter's default into a record.
GRAINSMITH_API void applyDefaults(ParamTable table, unsigned char* record);

// Reads a parameter from a record as a double (bool and enum as 0/1 and the index).
GRAINSMITH_API double readParam(const Param& param, const unsigned char* record);

// Writes a value already known to fit the field (see the tool's parser for checking).
GRAINSMITH_API void writeParam(const Param& param, unsigned char* record, double value);

}  // namespace grainsmith
