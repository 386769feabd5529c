#include "editor/theme.h"

#include <QFile>

// Resources compiled into a static library must be registered by name from outside any namespace.
static void registerThemeResources() { Q_INIT_RESOURCE(theme); }

namespace grainsmith::theme {
namespace {

QString readResource(const char* path) {
    static const bool registered = (registerThemeResources(), true);
    (void)registered;
    QFile file(QString::fromLatin1(path));
    if (!file.open(QIODevice::ReadOnly)) return {};
    return QString::fromUtf8(file.readAll());
}

}  // namespace

QString cssColor(const QColor& color) {
    return QStringLiteral("rgb(%1, %2, %3)").arg(color.red()).arg(color.green()).arg(color.blue());
}

QString fillMainTemplate(QString sheet) {
    sheet.replace(QLatin1String("10pt"), QLatin1String("8pt"));
    // The templates mark platform-specific margins; this platform drops the button margin and
    // replaces the group box title offset.
    sheet.replace(QLatin1String("margin-bottom: 8px; /* MAC BUTTON FIX */"), QString());
    sheet.replace(QLatin1String("margin-top: 0.5ex; /* MAC GROUP BOX TITLE FIX */"),
                  QLatin1String("margin-top: 0.0ex;"));
    sheet.replace(QLatin1String("HILITE_COLOR"), cssColor(kHiliteColor));
    sheet.replace(QLatin1String("BACKGROUND_COLOR"), cssColor(kBackgroundColor));
    sheet.replace(QLatin1String("FOREGROUND_COLOR"), cssColor(kForegroundColor));
    sheet.replace(QLatin1String("BUTTON_PRESSED_COLOR"), cssColor(kButtonPressedColor));
    sheet.replace(QLatin1String("SLIDER_SLIT_COLOR"), cssColor(kSliderSlitColor));
    sheet.replace(QLatin1String("SLIDER_HANDLE_COLOR"), cssColor(kSliderHandleColor));
    return sheet;
}

QString fillButtonTemplate(QString sheet) {
    sheet.replace(QLatin1String("margin-top: 4px; /* MAC BUTTON FIX TOP */"), QString());
    sheet.replace(QLatin1String("margin-left: 4px; /* MAC BUTTON FIX LEFT */"), QString());
    sheet.replace(QLatin1String("margin-right: 4px; /* MAC BUTTON FIX RIGHT */"), QString());
    sheet.replace(QLatin1String("HILITE_COLOR"), cssColor(kHiliteColor));
    sheet.replace(QLatin1String("FOREGROUND_COLOR"), cssColor(kForegroundColor));
    return sheet;
}

QString mainTemplate() { return readResource(":/grainsmith/theme/main.qss"); }
QString buttonTemplate() { return readResource(":/grainsmith/theme/buttons.qss"); }
QString mainStyleSheet() { return fillMainTemplate(mainTemplate()); }
QString buttonStyleSheet() { return fillButtonTemplate(buttonTemplate()); }

}  // namespace grainsmith::theme
