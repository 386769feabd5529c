// list, record and show: the catalogue and description records as text and files.
#include <cstdio>
#include <string>

#include "cli.h"
#include "commands.h"
#include "readers.h"
#include "grainsmith/simd.h"

namespace grainsmith::cli {

bool wantsHelp(std::span<char* const> args) {
    for (const char* a : args)
        if (std::string_view(a) == "-h" || std::string_view(a) == "--help") return true;
    return false;
}

bool takeTextureOption(Args& args, TextureChoice& choice) {
    const std::string_view a = args.peek();
    if (a == "--set") {
        args.next();
        choice.settings.push_back(args.value("--set"));
        return true;
    }
    if (a == "--record") {
        args.next();
        choice.recordFile = args.value("--record");
        return true;
    }
    if (!a.empty() && a[0] != '-') {
        if (!choice.kindName.empty()) usageError("unexpected argument '" + std::string(a) + "'");
        choice.kindName = args.next();
        return true;
    }
    return false;
}

int listCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith list\n\n"
                  "Lists every texture kind of the catalogue in creation order: display name, class,\n"
                  "record size in bytes, version, two-dimensional mode, position in the creation chain\n"
                  "of beginSession (- : never created by name), position in the editor (- : not offered)\n"
                  "and whether this build implements it. A last line names the SIMD level the batch\n"
                  "evaluation chose for this CPU.");
        return 0;
    }
    if (!argv.empty()) usageError("list takes no arguments");
    std::printf("%-16s %-24s %6s %7s %3s %7s %6s %s\n", "KIND", "CLASS", "RECORD", "VERSION", "2D", "BY-NAME",
                "EDITOR", "IMPLEMENTED");
    for (const Kind& k : catalogue()) {
        const std::string create = k.createOrder ? std::to_string(k.createOrder) : "-";
        const std::string editor = k.editorOrder ? std::to_string(k.editorOrder) : "-";
        const std::string version = std::to_string(k.majorVersion) + "." + std::to_string(k.minorVersion);
        std::printf("%-16s %-24s %6d %7s %3s %7s %6s %s\n", k.name, k.className, k.recordSize, version.c_str(),
                    k.readsFlags ? "yes" : "no", create.c_str(), editor.c_str(), k.implemented() ? "yes" : "no");
    }
    std::printf("batch evaluation SIMD level: %s\n", simdLevelName());
    return 0;
}

int recordCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith record KIND [--set NAME=VALUE]... -o FILE\n"
                  "       grainsmith record --record IN [--set NAME=VALUE]... -o FILE\n\n"
                  "Writes a description record: the kind's defaults (or the record IN), with each\n"
                  "--set applied in order. NAME is a parameter of the kind (see 'grainsmith show') or\n"
                  "interactiveUpdate; an enumeration takes its index or its display text. The file is\n"
                  "written whole or not at all.");
        return 0;
    }
    Args args(argv);
    TextureChoice choice;
    std::string out;
    while (!args.done()) {
        if (takeTextureOption(args, choice)) continue;
        const std::string_view a = args.next();
        if (a == "-o" || a == "--output") out = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (out.empty()) usageError("missing -o FILE");
    const Record record = recordFromChoice(choice);
    writeFileAtomically(out, record.bytes);
    return 0;
}

int showCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith show FILE\n\n"
                  "Decodes a description record into 'name = value' lines: the head (kind, record\n"
                  "size, version, interactive update), then every parameter of the kind in record\n"
                  "order. Parameter lines are written so that 'record --set' accepts them back.");
        return 0;
    }
    if (argv.size() != 1) usageError("show takes exactly one FILE");
    const Record record = readRecordFile(argv[0]);
    const BaseData& head = *reinterpret_cast<const BaseData*>(record.bytes.data());
    std::printf("kind = %s\nrecordSize = %d\nversion = %d.%d\ninteractiveUpdate = %s\n", record.kind->name,
                head.recordSize, head.majorVersion, head.minorVersion, head.interactiveUpdate ? "true" : "false");
    for (const Param& p : record.kind->ops->parameters())
        std::printf("%s = %s\n", p.name, describeValue(p, record.bytes.data()).c_str());
    return 0;
}

}  // namespace grainsmith::cli
