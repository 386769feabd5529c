// golden_check: compares this build's values with the golden corpus, through the C++ API
// (one point at a time, and in batches on every SIMD level the CPU runs) or through a
// plug-in's session entries, as a host calls them. A plain program with no test framework,
// so that it runs the same way on every platform and under emulators (wine, qemu).
#include <bit>
#include <cinttypes>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#else
#include <dlfcn.h>
#endif

#include "core/catalogue.h"
#include "golden/corpus.h"
#include "simd/levels.h"

namespace {

using namespace grainsmith;
using golden::kPoints;

const char kUsage[] =
    "usage: golden_check CORPUS                     check the C++ API, one point and batch on every SIMD level\n"
    "       golden_check --plugin LIBRARY CORPUS    check a plug-in's session entries (kinds created by name)\n"
    "       golden_check --write CORPUS             regenerate the corpus from this build\n"
    "       golden_check --dump KIND INDEX FLAGS CORPUS\n"
    "                                               print one record's points and values, to compare builds\n";

// Evaluates one record in one mode over the point set; `batch` selects the operator.
using Evaluate = bool (*)(const golden::Record&, int flags, bool batch, std::vector<float>& out);

const Kind* kindOf(const std::string& name) {
    const Kind* k = findKind(name);
    return k && k->implemented() ? k : nullptr;
}

std::string currentKind;  // set before each kind's records are evaluated

bool evaluateApi(const golden::Record& record, int flags, bool batch, std::vector<float>& out) {
    const Kind* kind = kindOf(currentKind);
    if (!kind || static_cast<int>(record.bytes.size()) != kind->recordSize) return false;
    Texture3D* texture = kind->ops->create();
    texture->setStateFromDescription(reinterpret_cast<const char*>(record.bytes.data()));
    texture->setFlags(flags);
    const std::vector<float>& p = golden::points();
    out.assign(kPoints, 0.0f);
    if (batch)
        (*texture)(p.data(), kPoints, out.data());
    else
        for (int i = 0; i < kPoints; ++i) out[i] = (*texture)(p.data() + 3 * i);
    kind->ops->destroy(texture);
    return true;
}

// The plug-in, loaded as a host loads it.
using Entry = float (*)(char*, double, char*, int, char*, int, void**);
Entry beginSession, continueSession, continueSessionOne, endSession;

bool loadPlugin(const char* path) {
#ifdef _WIN32
    HMODULE library = LoadLibraryA(path);
    auto symbol = [library](const char* name) { return reinterpret_cast<Entry>(GetProcAddress(library, name)); };
#else
    void* library = dlopen(path, RTLD_NOW | RTLD_LOCAL);
    auto symbol = [library](const char* name) { return reinterpret_cast<Entry>(dlsym(library, name)); };
#endif
    if (!library) return false;
    beginSession = symbol("beginSession");
    continueSession = symbol("continueSession");
    continueSessionOne = symbol("continueSessionOne");
    endSession = symbol("endSession");
    return beginSession && continueSession && continueSessionOne && endSession;
}

bool evaluatePlugin(const golden::Record& record, int flags, bool batch, std::vector<float>& out) {
    std::vector<char> bytes(record.bytes.begin(), record.bytes.end());
    bytes.resize(256, 0);
    char flagBlock[4];
    std::memcpy(flagBlock, &flags, 4);
    beginSession(nullptr, 0.0, bytes.data(), 256, flagBlock, 4, nullptr);
    const std::vector<float>& p = golden::points();
    out.assign(kPoints, 0.0f);
    if (batch) {
        std::vector<char> list(4 + 12 * static_cast<size_t>(kPoints));
        const int32_t n = kPoints;
        std::memcpy(list.data(), &n, 4);
        std::memcpy(list.data() + 4, p.data(), 12 * static_cast<size_t>(kPoints));
        continueSession(nullptr, 0.0, reinterpret_cast<char*>(out.data()), 4 * kPoints, list.data(),
                        static_cast<int>(list.size()), nullptr);
    } else {
        for (int i = 0; i < kPoints; ++i) {
            float point[3] = {p[3 * i], p[3 * i + 1], p[3 * i + 2]};
            out[i] = continueSessionOne(reinterpret_cast<char*>(point), 0.0, nullptr, 0, nullptr, 0, nullptr);
        }
    }
    endSession(nullptr, 0.0, nullptr, 0, nullptr, 0, nullptr);
    return true;
}

int passed = 0, failed = 0, reported = 0;

// Compares values with an entry; on a difference, names the first block that differs and
// prints this build's values there (run --dump on a reference build for its side).
void compare(const golden::Record& record, const golden::Entry& entry, const char* how,
             const std::vector<float>& values) {
    if (golden::hashValues(values.data(), kPoints) == entry.hash) {
        ++passed;
        return;
    }
    ++failed;
    if (++reported > 4) return;
    const std::string blocks = golden::blockHashes(values.data());
    int block = 0;
    while (block < golden::kBlocks - 1 && blocks.compare(4 * block, 4, entry.blocks, 4 * block, 4) == 0) ++block;
    std::printf("FAIL %s record %d flags %d, %s: first different block %d (points %d-%d):\n", currentKind.c_str(),
                record.index, entry.flags, how, block, block * golden::kBlockSize,
                (block + 1) * golden::kBlockSize - 1);
    const std::vector<float>& p = golden::points();
    for (int i = block * golden::kBlockSize; i < (block + 1) * golden::kBlockSize; ++i)
        std::printf("  point %3d (%.9g, %.9g, %.9g): %08" PRIx32 " %.9g\n", i, p[3 * i], p[3 * i + 1], p[3 * i + 2],
                    std::bit_cast<uint32_t>(values[i]), values[i]);
}

int check(const std::vector<golden::KindRecords>& corpus, Evaluate evaluate, bool plugin) {
    const std::vector<int64_t> levels = plugin ? std::vector<int64_t>{0} : simd::availableLevels();
    if (!plugin) {
        std::printf("SIMD levels checked:");
        for (int64_t level : levels) std::printf(" %s", simd::levelName(level));
        std::printf("\n");
    }
    int skipped = 0;
    std::vector<float> values;
    for (const golden::KindRecords& k : corpus) {
        currentKind = k.kind;
        const Kind* kind = kindOf(k.kind);
        if (plugin && kind && !kind->creatable()) {
            ++skipped;
            continue;
        }
        const int before = failed;
        for (const golden::Record& r : k.records)
            for (const golden::Entry& e : r.entries) {
                if (!evaluate(r, e.flags, false, values)) {
                    ++failed;
                    std::printf("FAIL %s record %d: no such kind, or a record of the wrong size\n", k.kind.c_str(),
                                r.index);
                    continue;
                }
                compare(r, e, "one point", values);
                for (int64_t level : levels) {
                    if (level) simd::forceLevel(level);
                    evaluate(r, e.flags, true, values);
                    const std::string how = plugin ? "batch" : std::string("batch, ") + simd::levelName(level);
                    compare(r, e, how.c_str(), values);
                }
            }
        std::printf("%-20s %2zu records  %s\n", k.kind.c_str(), k.records.size(), failed == before ? "ok" : "DIFFERENT");
    }
    if (!plugin) simd::forceLevel(0);
    if (skipped) std::printf("%d kinds not created by name, left to the C++ API check\n", skipped);
    std::printf("%d passed, %d failed\n", passed, failed);
    return failed == 0 ? 0 : 1;
}

int writeCorpus(const std::string& path) {
    std::vector<golden::KindRecords> corpus;
    std::vector<float> values;
    for (const Kind& kind : catalogue()) {
        if (!kind.implemented()) continue;
        currentKind = kind.name;
        golden::KindRecords k{kind.name, {}};
        int index = 0;
        for (std::vector<unsigned char>& bytes : golden::makeRecords(kind.name)) {
            golden::Record r{index++, std::move(bytes), {}};
            for (int flags : {golden::kDefaultFlags, golden::kPlanarFlags}) {
                if (flags == golden::kPlanarFlags && !kind.readsFlags) continue;
                evaluateApi(r, flags, false, values);
                r.entries.push_back({flags, golden::hashValues(values.data(), kPoints), golden::blockHashes(values.data())});
            }
            k.records.push_back(std::move(r));
        }
        corpus.push_back(std::move(k));
    }
    std::string error;
    if (!golden::write(path, corpus, error)) {
        std::fprintf(stderr, "golden_check: %s\n", error.c_str());
        return 1;
    }
    std::printf("wrote %zu kinds to %s\n", corpus.size(), path.c_str());
    return 0;
}

int dump(const std::vector<golden::KindRecords>& corpus, const std::string& kindName, int index, int flags) {
    for (const golden::KindRecords& k : corpus) {
        if (k.kind != kindName) continue;
        currentKind = k.kind;
        for (const golden::Record& r : k.records) {
            std::vector<float> values;
            if (r.index != index || !evaluateApi(r, flags, false, values)) continue;
            const std::vector<float>& p = golden::points();
            for (int i = 0; i < kPoints; ++i)
                std::printf("%3d (%.9g, %.9g, %.9g): %08" PRIx32 " %.9g\n", i, p[3 * i], p[3 * i + 1], p[3 * i + 2],
                            std::bit_cast<uint32_t>(values[i]), values[i]);
            return 0;
        }
    }
    std::fprintf(stderr, "golden_check: no record %d of \"%s\" in the corpus\n", index, kindName.c_str());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.empty() || args[0] == "-h" || args[0] == "--help") {
        std::fputs(kUsage, args.empty() ? stderr : stdout);
        return args.empty() ? 2 : 0;
    }
    if (args[0] == "--write" && args.size() == 2) return writeCorpus(args[1]);

    std::vector<golden::KindRecords> corpus;
    std::string error;
    if (!golden::read(args.back(), corpus, error) || corpus.empty()) {
        std::fprintf(stderr, "golden_check: %s\n", error.empty() ? "the corpus is empty" : error.c_str());
        return 2;
    }
    if (args.size() == 1) return check(corpus, evaluateApi, false);
    if (args[0] == "--plugin" && args.size() == 3) {
        if (!loadPlugin(args[1].c_str())) {
            std::fprintf(stderr, "golden_check: cannot load the plug-in entries from %s\n", args[1].c_str());
            return 2;
        }
        return check(corpus, evaluatePlugin, true);
    }
    if (args[0] == "--dump" && args.size() == 5)
        return dump(corpus, args[1], std::atoi(args[2].c_str()), std::atoi(args[3].c_str()));
    std::fputs(kUsage, stderr);
    return 2;
}
