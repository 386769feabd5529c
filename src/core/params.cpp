#include "grainsmith/params.h"

#include <cstring>

#include "grainsmith/numeric.h"

namespace grainsmith {

double readParam(const Param& param, const unsigned char* record) {
    const unsigned char* at = record + param.offset;
    switch (param.type) {
    case FieldType::Bool:
        return *at != 0 ? 1.0 : 0.0;
    case FieldType::Int32:
    case FieldType::Enum: {
        int32_t v;
        std::memcpy(&v, at, sizeof v);
        return v;
    }
    case FieldType::Float32: {
        float v;
        std::memcpy(&v, at, sizeof v);
        return v;
    }
    }
    return 0.0;
}

void writeParam(const Param& param, unsigned char* record, double value) {
    unsigned char* at = record + param.offset;
    switch (param.type) {
    case FieldType::Bool:
        *at = value != 0.0 ? 1 : 0;
        return;
    case FieldType::Int32:
    case FieldType::Enum: {
        const int32_t v = toInt32(value);
        std::memcpy(at, &v, sizeof v);
        return;
    }
    case FieldType::Float32: {
        const float v = static_cast<float>(value);
        std::memcpy(at, &v, sizeof v);
        return;
    }
    }
}

void applyDefaults(ParamTable table, unsigned char* record) {
    for (const Param& p : table) writeParam(p, record, p.defaultValue);
}

}  // namespace grainsmith
