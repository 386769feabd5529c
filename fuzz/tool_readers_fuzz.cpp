// The tool's readers of record files and point lists, on any file bytes: a good record or a
// clear error, never a crash. Input: byte 0 even, the rest is a record file; odd, a point list.
// Oracles: an error is one line of printable ASCII that names the file; a record that is
// accepted is a whole record of an implemented kind, and shows and evaluates; a point list
// gives whole x, y, z triples.
#include "fuzz_support.h"
#include "readers.h"

using namespace grainsmith;
using namespace grainsmith::fuzz;

namespace {

const std::string kSource = "'input'";

void checkMessage(const cli::Failure& f) {
    const std::string message = f.what();
    if (message.empty()) finding("empty error message");
    for (const char c : message)
        if (c < 0x20 || c > 0x7E) finding("error message with a byte that is not printable", message);
    if (message.find(kSource) == std::string::npos && message.find("not implemented") == std::string::npos)
        finding("error message that does not name the file", message);
}

void readRecord(const std::vector<uint8_t>& bytes) {
    try {
        const cli::Record record = cli::parseRecord(bytes, kSource);
        if (!record.kind->implemented() || record.bytes.size() != static_cast<size_t>(record.kind->recordSize))
            finding("accepted a record that is not whole", record.kind->name);
        for (const Param& p : record.kind->ops->parameters()) (void)cli::describeValue(p, record.bytes.data());
        const TexturePtr texture = cli::createTexture(record, kDefaultFlags);
        const float p[3] = {0.5f, 0.25f, -0.75f};
        (void)(*texture)(p);
    } catch (const cli::Failure& f) {
        checkMessage(f);
    }
}

void readPoints(const std::vector<uint8_t>& bytes) {
    try {
        const std::vector<float> points =
            cli::parsePoints(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), kSource);
        if (points.size() % 3 != 0) finding("points that are not whole triples");
    } catch (const cli::Failure& f) {
        checkMessage(f);
    }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    writeSeedsIfAsked([] {
        std::vector<std::vector<uint8_t>> seeds;
        for (const Kind* kind : kindsWhere([](const Kind&) { return true; })) {
            std::vector<uint8_t> seed = defaultRecord(*kind);
            seed.insert(seed.begin(), 0);
            seeds.push_back(std::move(seed));
        }
        const std::string points = "# x y z\n0.5 0.25 -0.75\n\n1e-40 -0 nan\n\t-inf 3.4e38 0x1p-3\r\n";
        std::vector<uint8_t> seed = {1};
        seed.insert(seed.end(), points.begin(), points.end());
        seeds.push_back(std::move(seed));
        return seeds;
    });
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input in(data, size);
    const uint8_t which = in.byte();
    const std::vector<uint8_t> bytes = in.rest();
    if (which % 2 == 0) readRecord(bytes);
    else readPoints(bytes);
    return 0;
}
