// The session entries driven exactly as a host drives them: any record bytes in an
// exactly-sized heap block, any flags, any points. Input layout:
// Input layout: see EvaluationInput; the record is steered to a creatable kind's name and
// versions most of the time.
// Oracles: every entry but continueSessionOne returns 1.0; a record that creates nothing
// leaves the previous session texture in place; a record that creates a kind evaluates as
// that kind built through the C++ API does; continueSession writes exactly n floats and not
// one byte more; batch and one-point values agree bit for bit; evaluation is repeatable.
#include "fuzz_support.h"
#include "grainsmith/plugin.h"

using namespace grainsmith;
using namespace grainsmith::fuzz;

namespace {

const std::vector<const Kind*>& creatable() {
    static const std::vector<const Kind*> kinds = kindsWhere([](const Kind& k) { return k.creatable(); });
    return kinds;
}

float call(decltype(&beginSession) entry, char* text, char* record, char* second) {
    return entry(text, 0.0, record, 0, second, 0, nullptr);
}

void expectOne(float result, const char* entry) {
    if (bitsOf(result) != bitsOf(1.0f)) finding(entry, "did not return 1.0");
}

// Evaluates the session texture through both entries; returns the batch values.
std::vector<float> evaluateSession(const std::vector<float>& points) {
    const int32_t n = static_cast<int32_t>(points.size() / 3);
    Block list(4 + points.size() * sizeof(float));
    std::memcpy(list.data(), &n, 4);
    if (n > 0) std::memcpy(list.data() + 4, points.data(), points.size() * sizeof(float));
    constexpr size_t kGuard = 8;
    Block out(static_cast<size_t>(n) * sizeof(float) + kGuard);
    std::memset(out.data(), 0xA5, out.size);
    expectOne(call(continueSession, nullptr, out.data(), list.data()), "continueSession");
    for (size_t i = static_cast<size_t>(n) * sizeof(float); i < out.size; ++i)
        if (static_cast<uint8_t>(out.data()[i]) != 0xA5) finding("continueSession wrote past n floats");
    std::vector<float> values(static_cast<size_t>(n));
    if (n > 0) std::memcpy(values.data(), out.data(), values.size() * sizeof(float));
    for (int32_t i = 0; i < n; ++i) {
        Block p(3 * sizeof(float));
        std::memcpy(p.data(), points.data() + 3 * i, 3 * sizeof(float));
        const float one = call(continueSessionOne, p.data(), nullptr, nullptr);
        if (!sameValue(one, values[i])) finding("continueSessionOne differs from continueSession");
    }
    return values;
}

std::vector<float> evaluateDirectly(const Kind& kind, const char* record, int32_t flags, const std::vector<float>& points) {
    Texture3D* t = kind.ops->create();
    t->setStateFromDescription(record);
    t->setFlags(flags);
    std::vector<float> values(points.size() / 3);
    (*t)(points.data(), static_cast<int>(values.size()), values.data());
    kind.ops->destroy(t);
    return values;
}

bool sameBits(const std::vector<float>& a, const std::vector<float>& b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (bitsOf(a[i]) != bitsOf(b[i])) return false;
    return true;
}

// `bytes` is a whole host block (see hostRecord); it is handed over in a block of its size.
void beginWith(const std::vector<uint8_t>& bytes, int32_t flags) {
    Block record(bytes.size());
    std::memcpy(record.data(), bytes.data(), bytes.size());
    Block second(sizeof flags);
    std::memcpy(second.data(), &flags, sizeof flags);
    expectOne(call(beginSession, nullptr, record.data(), second.data()), "beginSession");
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    writeSeedsIfAsked([] {
        std::vector<std::vector<uint8_t>> seeds;
        for (const Kind* kind : creatable()) {
            for (int32_t flags : {2, 4}) seeds.push_back(evaluationSeed(*kind, flags));
        }
        return seeds;
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    if (creatable().empty()) return 0;
    Input in(data, size);
    const auto [control, flags, points, record] = takeEvaluationInput(in, creatable());

    // No session: one point gives 1.0 and a batch writes nothing.
    expectOne(call(endSession, nullptr, nullptr, nullptr), "endSession");
    Block p(3 * sizeof(float));
    std::memset(p.data(), 0, p.size);
    expectOne(call(continueSessionOne, p.data(), nullptr, nullptr), "continueSessionOne without a session");
    if (!evaluateSession({}).empty()) finding("empty batch produced values");

    const std::vector<uint8_t> block = hostRecord(record);
    const Kind* named = findKind(recordName(reinterpret_cast<const char*>(block.data())));
    const bool creates = named && named->creatable();

    // A record that creates nothing must leave the previous session texture in place. (A
    // session texture replaced by another is abandoned on purpose, so a previous one is set
    // up only where nothing replaces it: a long campaign must not accumulate them.)
    const Kind& previous = *creatable()[control % creatable().size()];
    const std::vector<uint8_t> previousRecord = defaultRecord(previous);
    if (!creates) beginWith(previousRecord, kDefaultFlags);

    beginWith(block, flags);
    const std::vector<float> values = evaluateSession(points);
    if (!sameBits(values, evaluateSession(points))) finding("evaluation is not repeatable");
    const std::vector<float> expected =
        creates ? evaluateDirectly(*named, reinterpret_cast<const char*>(block.data()), flags, points)
                : evaluateDirectly(previous, reinterpret_cast<const char*>(previousRecord.data()), kDefaultFlags, points);
    if (!sameBits(values, expected))
        finding(creates ? "session values differ from the kind's own" : "a record creating nothing changed the session");

    expectOne(call(endSession, nullptr, nullptr, nullptr), "endSession");
    if (bitsOf(call(continueSessionOne, p.data(), nullptr, nullptr)) != bitsOf(1.0f))
        finding("continueSessionOne after endSession did not return 1.0");
    return 0;
}
