// Record loading into the editor's pages: any bytes, loaded as a host record of one offered
// kind (its own size, name and version, then the bytes as its interactive-update byte and
// parameters), with any transform block. The page's widgets are set from the record, so every
// conversion from a stored value to a widget position runs on hostile values (NaN, infinities,
// huge counts, combo indices out of range). Oracle: no crash, no hang and no sanitizer report,
// and the dialog still hands back a whole transform block.
#include <QApplication>
#include <cstring>

#include "editor/main_window.h"
#include "editor/record_loading.h"
#include "fuzz_support.h"

using namespace grainsmith;
using namespace grainsmith::fuzz;

namespace {

const std::vector<const Kind*>& offeredKinds() {
    static const std::vector<const Kind*> kinds = kindsWhere([](const Kind& k) { return k.editorOrder > 0; });
    return kinds;
}

// One application and one dialog for the whole run: building the 31 pages takes a second.
MainWindow& dialog() {
    static MainWindow* window = [] {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        static int argc = 1;
        static char name[] = "fuzz_editor_records";
        static char* argv[] = {name, nullptr};
        new QApplication(argc, argv);
        return new MainWindow;
    }();
    return *window;
}

}  // namespace

// Qt's font lookup (fontconfig) keeps a cache until exit that the leak check at exit reports;
// only that library is suppressed.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Seeds: each offered kind's default parameters, with the default transform.
    writeSeedsIfAsked([] {
        std::vector<std::vector<uint8_t>> seeds;
        for (size_t i = 0; i < offeredKinds().size(); ++i) {
            std::vector<uint8_t> seed = {static_cast<uint8_t>(i)};
            std::vector<uint8_t> transform(44, 0);
            const float one = 1.0f;
            for (int f = 1; f <= 7; ++f)
                if (f == 1 || f >= 5) std::memcpy(transform.data() + 4 * f, &one, 4);
            seed.insert(seed.end(), transform.begin(), transform.end());
            const std::vector<uint8_t> record = defaultRecord(*offeredKinds()[i]);
            seed.insert(seed.end(), record.begin() + 35, record.end());
            seeds.push_back(std::move(seed));
        }
        return seeds;
    });
    return 0;
}

// Layout: kind byte (index into the offered kinds), 44 transform bytes, then the record bytes
// from byte 35 (interactive update) on.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input in(data, size);
    const Kind& kind = *offeredKinds()[in.byte() % offeredKinds().size()];
    std::vector<uint8_t> transform = in.bytes(44);
    transform.resize(44, 0);
    const std::vector<uint8_t> bytes = in.rest();

    MainWindow& window = dialog();
    loadRecordBytes(window, kind, bytes.data(), bytes.size(), reinterpret_cast<const char*>(transform.data()));
    QCoreApplication::processEvents();

    char back[44];
    window.takeTransform(back);
    return 0;
}
