// The handle-based C API with anything a C host could pass. Input layout:
//   byte 0   what to make the texture from: even, a kind of the catalogue by name (byte 1 picks
//            it; byte 2 bit 0 upper-cases the name); odd, the record bytes at the end
//   then up to 4 settings: a byte (0: stop; its low bit: value or text), a byte choosing the
//            parameter (the kind's names, sometimes altered, or 12 raw bytes), then 8 bytes of
//            value or 16 bytes of text
//   flags (4 bytes), point count (1 byte), 12 bytes per point, then the record bytes.
// Oracles: no crash or leak; a refused call changes nothing; a texture made from its own record
// gives its values; batch and one point agree bit for bit (NaN on both sides).
#include <cctype>
#include <string>

#include "fuzz_support.h"
#include "grainsmith/grainsmith.h"

using namespace grainsmith;
using namespace grainsmith::fuzz;

namespace {

const std::vector<const Kind*>& allKinds() {
    static const std::vector<const Kind*> kinds = kindsWhere([](const Kind&) { return true; });
    return kinds;
}

std::string take(Input& in, size_t n) {
    const std::vector<uint8_t> b = in.bytes(n);
    return std::string(b.begin(), b.end()).c_str();  // a C string ends at its first zero
}

std::vector<uint8_t> recordOf(const grainsmith_texture* t) {
    std::vector<uint8_t> r(static_cast<size_t>(grainsmith_texture_record(t, nullptr, 0)));
    if (grainsmith_texture_record(t, r.data(), r.size()) != static_cast<int>(r.size()))
        finding("grainsmith_texture_record did not write its own size");
    return r;
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    writeSeedsIfAsked([] {
        std::vector<std::vector<uint8_t>> seeds;
        for (size_t i = 0; i < allKinds().size(); ++i) seeds.push_back({0, static_cast<uint8_t>(i), 0, 0});
        return seeds;
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input in(data, size);
    const uint8_t source = in.byte(), pick = in.byte(), nameCase = in.byte();
    const Kind& kind = *allKinds()[pick % allKinds().size()];

    // The settings and points come first in the input; the record takes the rest.
    struct Setting {
        bool text;
        std::string name, textValue;
        double value;
    };
    std::vector<Setting> settings;
    for (int i = 0; i < 4; ++i) {
        const uint8_t control = in.byte();
        if (control == 0) break;
        Setting s{(control & 1) != 0, {}, {}, 0};
        const uint8_t which = in.byte();
        const auto params = kind.ops->parameters();
        if (which < 200 && !params.empty()) {
            s.name = params[which % params.size()].name;
            if (which & 64) s.name[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(s.name[0])));
            if (which & 128) s.name += "x";
        } else {
            s.name = take(in, 12);
        }
        if (s.text)
            s.textValue = take(in, 16);
        else
            s.value = in.take<double>();
        settings.push_back(s);
    }
    const int32_t flags = in.take<int32_t>();
    std::vector<float> points;
    for (size_t i = 0, n = in.byte() % 17; i < 3 * n; ++i) points.push_back(in.take<float>());
    if (points.empty()) points = oddPoints();
    const std::vector<uint8_t> rest = in.rest();

    grainsmith_texture* t = nullptr;
    if (source & 1) {
        Block record(rest.size());
        if (!rest.empty()) std::memcpy(record.data(), rest.data(), rest.size());
        if (grainsmith_texture_from_record(record.data(), record.size, &t) != GRAINSMITH_OK) {
            if (t) finding("a refused record gave a texture");
            return 0;
        }
    } else {
        std::string name = kind.name;
        if (nameCase & 1)
            for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        if (grainsmith_texture_create(name.c_str(), &t) != GRAINSMITH_OK) finding("a catalogue kind was refused", name);
    }

    for (const Setting& s : settings) {
        const std::vector<uint8_t> before = recordOf(t);
        const int status = s.text ? grainsmith_texture_set_text(t, s.name.c_str(), s.textValue.c_str())
                                  : grainsmith_texture_set(t, s.name.c_str(), s.value);
        if (status != GRAINSMITH_OK && recordOf(t) != before) finding("a refused setting changed the record", s.name);
        if (status < GRAINSMITH_ERROR_OUT_OF_MEMORY || status > GRAINSMITH_OK) finding("an undocumented status");
        double v;
        if (status == GRAINSMITH_OK && grainsmith_texture_get(t, s.name.c_str(), &v) != GRAINSMITH_OK)
            finding("a parameter just set cannot be read", s.name);
    }
    grainsmith_texture_set_flags(t, flags);

    // The texture's own record, made into a second texture where a host could do so.
    const std::vector<uint8_t> own = recordOf(t);
    grainsmith_texture* copy = nullptr;
    const bool creatable = grainsmith_texture_from_record(own.data(), own.size(), &copy) == GRAINSMITH_OK;
    if (creatable) grainsmith_texture_set_flags(copy, flags);

    const size_t n = points.size() / 3;
    Block out(n * sizeof(float));
    float* values = reinterpret_cast<float*>(out.data());
    grainsmith_texture_evaluate(t, points.data(), n, values);
    for (size_t i = 0; i < n; ++i) {
        const float one = grainsmith_texture_evaluate_one(t, points[3 * i], points[3 * i + 1], points[3 * i + 2]);
        if (!sameValue(one, values[i])) finding("batch and one-point values differ", kind.name);
        if (creatable &&
            !sameValue(one, grainsmith_texture_evaluate_one(copy, points[3 * i], points[3 * i + 1], points[3 * i + 2])))
            finding("a texture made from a texture's record gives other values");
    }
    grainsmith_texture_destroy(copy);
    grainsmith_texture_destroy(t);
    return 0;
}
