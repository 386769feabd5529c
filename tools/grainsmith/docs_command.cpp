// docs: the reference of the texture kinds, generated from the catalogue, the parameter tables
// and the headers' summaries, with a picture per kind. The output depends on nothing else
// (no dates, fixed image encoding), so a committed copy can be checked for freshness.
#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "cli.h"
#include "commands.h"
#include "view.h"

namespace grainsmith::cli {
namespace {

struct Summary {
    const char* kind;
    const char* text;
};
constexpr Summary kSummaries[] = {
#include "kind_summaries.inc"
};

constexpr int kPanel = 128;     // side of each picture panel on a kind's page
constexpr int kThumb = 80;      // side of a thumbnail on the index
constexpr const char* kBegin = "<!-- implemented-kinds:begin -->";
constexpr const char* kEnd = "<!-- implemented-kinds:end -->";

std::string summaryOf(const Kind& kind) {
    for (const Summary& s : kSummaries)
        if (std::string_view(s.kind) == kind.name) {
            std::string text = s.text;
            if (!text.empty()) text[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(text[0])));
            return text;
        }
    return "";
}

// "Simple Marble" -> "simple-marble"
std::string slug(std::string_view name) {
    std::string s;
    for (const char c : name) s += c == ' ' ? '-' : static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return s;
}

std::string number(double v) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%g", v);
    return buf;
}

const char* typeName(FieldType t) {
    switch (t) {
    case FieldType::Bool: return "bool";
    case FieldType::Int32: return "int32";
    case FieldType::Float32: return "float32";
    case FieldType::Enum: return "enum (int32)";
    }
    return "?";
}

// The values the editor offers, in the parameter's own units.
std::string rangeOf(const Param& p) {
    if (p.type == FieldType::Bool) return "true, false";
    if (p.type == FieldType::Enum) {
        std::string s;
        for (size_t i = 0; i < p.choices.size(); ++i) s += (i ? ", " : "") + std::to_string(i) + " " + p.choices[i];
        return s;
    }
    if (p.widget == Widget::Hidden) return "any";
    const double scale = p.widget == Widget::Slider ? p.scale : 1.0;
    return number(p.minimum * scale) + " to " + number(p.maximum * scale);
}

std::string escapeCell(std::string s) {
    std::string out;
    for (const char c : s) out += c == '|' ? std::string("\\|") : std::string(1, c);
    return out;
}

void writeText(const std::filesystem::path& path, const std::string& text) {
    writeFileAtomically(path.string(), std::span(reinterpret_cast<const unsigned char*>(text.data()), text.size()));
}

void writePicture(const std::filesystem::path& path, const RgbImage& image) {
    std::string error;
    if (!writePng(image, path.string(), error)) inputError(error);
}

// A kind's picture: the default slice, sphere and cube, side by side.
RgbImage kindPicture(const Record& record) {
    constexpr int gap = 4;
    RgbImage picture{3 * kPanel + 2 * gap, kPanel, std::vector<uint8_t>(static_cast<size_t>(3 * kPanel + 2 * gap) * kPanel * 3, 255)};
    const Shape shapes[] = {Shape::Slice, Shape::Sphere, Shape::Cube};
    for (int n = 0; n < 3; ++n) {
        ViewOptions view;
        view.width = view.height = kPanel;
        view.shape = shapes[n];
        blit(picture, renderView(record, kDefaultFlags, view), n * (kPanel + gap), 0);
    }
    return picture;
}

std::string kindPage(const Kind& kind, const Record& record) {
    std::ostringstream md;
    const std::string s = slug(kind.name);
    md << "# " << kind.name << "\n\n";
    const std::string summary = summaryOf(kind);
    if (!summary.empty()) md << summary << "\n\n";
    md << "![" << kind.name << ": slice, sphere and cube](" << s << ".png)\n\n"
       << "*Defaults. Left to right: the slice z = " << ViewOptions{}.offset
       << " over [0, 4] x [0, 4] (y upwards); a sphere and a cube of\nsize 4 centred at (2, 2, " << ViewOptions{}.offset
       << "), lit from the upper left. 0 is black, 1 white.*\n\n"
       << "| | |\n|---|---|\n"
       << "| Class | `" << kind.className << "` |\n"
       << "| Record | " << kind.recordSize << " bytes, version " << kind.majorVersion << "." << kind.minorVersion
       << " |\n"
       << "| Two-dimensional mode | "
       << (kind.readsFlags ? "honoured: with flags 4 or 8 only x and y are read" : "ignored: always three-dimensional")
       << " |\n"
       << "| Created by name | "
       << (kind.createOrder ? "yes, position " + std::to_string(kind.createOrder) + " of the creation chain"
                            : std::string("no: construct the class"))
       << " |\n"
       << "| Editor | "
       << (kind.editorOrder ? "position " + std::to_string(kind.editorOrder) + " of the list" : std::string("not offered"))
       << " |\n\n"
       << "## Parameters\n\n"
       << "The record's head (bytes 0 to 35) holds the size, the name, the version and `interactiveUpdate`;\n"
       << "the parameters follow. Range is what the editor offers; a record may hold any value.\n\n"
       << "| Name | Offset | Type | Range | Default | Meaning |\n|---|---|---|---|---|---|\n";
    for (const Param& p : kind.ops->parameters())
        md << "| `" << p.name << "` | " << p.offset << " | " << typeName(p.type) << " | " << escapeCell(rangeOf(p))
           << " | " << escapeCell(describeValue(p, record.bytes.data())) << " | " << escapeCell(p.description) << " |\n";
    md << "\nWrite a record with the tool: `grainsmith record \"" << kind.name << "\" --set NAME=VALUE -o FILE`;\n"
       << "render it with `grainsmith render \"" << kind.name << "\" --view sphere -o FILE.png`.\n\n"
       << "[All kinds](../index.md)\n";
    return md.str();
}

// The line of the README that names the implemented kinds.
std::string implementedLine(const std::vector<const Kind*>& kinds) {
    std::string line = "**" + std::to_string(kinds.size()) + " of " + std::to_string(catalogue().size()) +
                       " kinds are implemented:** ";
    for (size_t n = 0; n < kinds.size(); ++n)
        line += (n ? ", " : "") + std::string("[") + kinds[n]->name + "](docs/kinds/" + slug(kinds[n]->name) + ".md)";
    return line + ".";
}

std::string indexPage(const std::vector<const Kind*>& kinds) {
    std::ostringstream md;
    md << "# Grainsmith texture kinds\n\n"
       << "Generated by `grainsmith docs` from the parameter tables; do not edit (refresh with `scripts/docs`).\n\n"
       << "![Every implemented kind on a sphere](gallery.png)\n\n"
       << kinds.size() << " of " << catalogue().size() << " kinds are implemented. Each page gives the kind's record,\n"
       << "its parameters and a picture of its defaults.\n\n";
    constexpr int columns = 5;
    md << "|";
    for (int c = 0; c < columns; ++c) md << " |";
    md << "\n|";
    for (int c = 0; c < columns; ++c) md << ":---:|";
    md << "\n";
    for (size_t n = 0; n < kinds.size(); n += columns) {
        md << "|";
        for (size_t k = n; k < n + columns; ++k) {
            if (k < kinds.size()) {
                const std::string s = slug(kinds[k]->name);
                md << " [![" << kinds[k]->name << "](kinds/" << s << "-thumb.png)](kinds/" << s << ".md)<br>["
                   << kinds[k]->name << "](kinds/" << s << ".md) |";
            } else {
                md << " |";
            }
        }
        md << "\n";
    }
    md << "\nNot implemented yet:";
    bool first = true;
    for (const Kind& k : catalogue())
        if (!k.implemented()) md << (first ? " " : ", ") << k.name, first = false;
    md << (first ? " none.\n" : ".\n");
    return md.str();
}

void updateReadme(const std::string& path, const std::string& line) {
    std::ifstream in(path, std::ios::binary);
    if (!in) inputError("cannot read '" + path + "'");
    const std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    const size_t begin = text.find(kBegin), end = text.find(kEnd);
    if (begin == std::string::npos || end == std::string::npos || end < begin)
        inputError("'" + path + "' has no " + kBegin + " ... " + kEnd + " block to fill");
    const size_t from = begin + std::string_view(kBegin).size();
    writeText(path, text.substr(0, from) + "\n" + line + "\n" + text.substr(end));
}

}  // namespace

int docsCommand(std::span<char* const> argv) {
    if (wantsHelp(argv)) {
        std::puts("usage: grainsmith docs -o DIR [--readme FILE]\n\n"
                  "Writes the reference of the texture kinds into DIR: index.md with a thumbnail grid,\n"
                  "gallery.png (every implemented kind on a sphere), and per kind kinds/NAME.md (what it\n"
                  "is, its record, two-dimensional behaviour, a table of its parameters) with its picture\n"
                  "kinds/NAME.png and thumbnail. The same tables always give the same bytes. --readme\n"
                  "also rewrites the list of implemented kinds between the README's markers.");
        return 0;
    }
    Args args(argv);
    std::string dir, readme;
    while (!args.done()) {
        const std::string_view a = args.next();
        if (a == "-o" || a == "--output") dir = args.value(a);
        else if (a == "--readme") readme = args.value(a);
        else usageError("unknown option '" + std::string(a) + "'");
    }
    if (dir.empty()) usageError("missing -o DIR");
    namespace fs = std::filesystem;
    const fs::path root(dir), kindsDir = root / "kinds";
    std::error_code ec;
    fs::create_directories(kindsDir, ec);
    if (ec) inputError("cannot create '" + kindsDir.string() + "': " + ec.message());

    std::vector<const Kind*> kinds;
    for (const Kind& k : catalogue())
        if (k.implemented()) kinds.push_back(&k);
    Progress progress("docs", kinds.size());
    for (const Kind* kind : kinds) {
        const Record record = defaultRecord(*kind);
        const std::string s = slug(kind->name);
        writeText(kindsDir / (s + ".md"), kindPage(*kind, record));
        writePicture(kindsDir / (s + ".png"), kindPicture(record));
        ViewOptions thumb;
        thumb.width = thumb.height = kThumb;
        thumb.shape = Shape::Sphere;
        writePicture(kindsDir / (s + "-thumb.png"), renderView(record, kDefaultFlags, thumb));
        progress.add(1);
    }
    ViewOptions sphere;
    sphere.width = sphere.height = 112;
    sphere.shape = Shape::Sphere;
    writePicture(root / "gallery.png", renderGallery(sphere, 7));
    writeText(root / "index.md", indexPage(kinds));
    progress.finish();
    if (!readme.empty()) updateReadme(readme, implementedLine(kinds));
    return 0;
}

}  // namespace grainsmith::cli
