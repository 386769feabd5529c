// interactWithUser: the editor dialog, run modally over the host's main window.
//
// Steps: store the host update callback; give up at once when no display can be used (a host
// that only evaluates may run headless, and Qt would abort the process); make sure a
// QApplication runs; find the host's main window; run the dialog transient for it, modal and
// centred on it; copy the chosen record and the transform back; tear down the dialog, the
// stand-in for the host window and the QApplication we created, in that order; hand the
// keyboard focus back where it was.
#include <QApplication>
#include <QGuiApplication>
#include <QLayout>
#include <QListWidget>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QWindow>

#include <algorithm>
#include <cstring>
#include <memory>

#include "editor/host_callback.h"
#include "editor/main_window.h"
#include "grainsmith/plugin.h"
#include "plugin/gui_session.h"
#include "plugin/host_window.h"

namespace {

using grainsmith::host::NativeWindow;
using grainsmith::host::ScreenRect;

constexpr int kRecordBuffer = 256;
constexpr int kTransformSize = 44;

// The host's own widget behind a native window, when the host is a Qt program itself.
QWidget* hostWidget(NativeWindow id) {
    if (id == 0) return nullptr;
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w->internalWinId() == static_cast<WId>(id)) return w;
    return nullptr;
}

// Places the dialog so that its centre is the host window's centre (the screen's without a
// host window), kept inside the screen's available area.
void centre(QWidget& dialog, const grainsmith::host::HostWindow& native, NativeWindow host) {
    dialog.ensurePolished();
    if (dialog.layout()) dialog.layout()->activate();
    const QSize size = dialog.size().expandedTo(dialog.minimumSizeHint());
    QScreen* screen = QGuiApplication::primaryScreen();
    if (!screen) return;
    QPoint middle = screen->availableGeometry().center();
    ScreenRect r;
    if (host != 0 && native.rect(host, r)) {
        // X11 reports device pixels; Qt places widgets in device-independent ones.
        const qreal ratio = screen->devicePixelRatio();
        middle = QPoint(qRound((r.x + r.width / 2) / ratio), qRound((r.y + r.height / 2) / ratio));
        if (QScreen* at = QGuiApplication::screenAt(middle)) screen = at;
    }
    const QRect area = screen->availableGeometry();
    const int x = std::clamp(middle.x() - size.width() / 2, area.left(), std::max(area.left(), area.right() - size.width()));
    const int y = std::clamp(middle.y() - size.height() / 2, area.top(), std::max(area.top(), area.bottom() - size.height()));
    dialog.move(x, y);
}

void runEditor(char* record, char* transform, void** hostData) {
    const auto callback = hostData ? reinterpret_cast<grainsmith::HostUpdateCallback>(hostData[7]) : nullptr;
    grainsmith::setHostUpdateCallback(callback);
    if (!grainsmith::host::widgetsCanStart()) return;

    grainsmith::host::GuiSession gui;
    grainsmith::host::HostWindow native;
    const NativeWindow host = QGuiApplication::platformName() == QLatin1String("xcb") ? native.find() : 0;
    QWidget* const qtHost = hostWidget(host);
    const QPointer<QWidget> focusWidget = QApplication::focusWidget();
    native.rememberFocus();

    // Stands in for a host window that is not a Qt widget of this process.
    std::unique_ptr<QWindow> foreignHost;
    {
        grainsmith::MainWindow dialog(qtHost);
        dialog.loadFromHost(record, transform);
        if (host != 0 && !qtHost) {
            foreignHost.reset(QWindow::fromWinId(static_cast<WId>(host)));
            dialog.winId();  // the dialog's own native window, to which the hint is attached
            if (foreignHost && dialog.windowHandle()) dialog.windowHandle()->setTransientParent(foreignHost.get());
        }
        dialog.setWindowModality(Qt::ApplicationModal);
        centre(dialog, native, host);
        dialog.exec();

        char result[kRecordBuffer];
        dialog.takeResultRecord(result);
        const int n = static_cast<signed char>(result[0]);
        if (n > 0) std::memcpy(record, result, static_cast<size_t>(n));
        char placement[kTransformSize];
        dialog.takeTransform(placement);
        std::memcpy(transform, placement, sizeof placement);
        // Tearing the pages down deletes the list's items, which moves its current row: the
        // dialog must not react to that half torn down, and the host must hear nothing of it
        // after the user has closed the dialog.
        QObject::disconnect(dialog.generatorList(), nullptr, &dialog, nullptr);
        grainsmith::setHostUpdateCallback(nullptr);
    }
    grainsmith::setHostUpdateCallback(callback);
    foreignHost.reset();

    if (qtHost) {
        if (QWidget* w = focusWidget.data()) {
            w->activateWindow();
            w->setFocus(Qt::OtherFocusReason);
        } else {
            qtHost->activateWindow();
        }
    } else {
        native.restoreFocus(host);
    }
}

}  // namespace

extern "C" float interactWithUser(char*, double, char* record, int, char* second, int, void** hostData) {
    try {
        runEditor(record, second, hostData);
    } catch (...) {
        // Nothing may escape into the host; the blocks keep whatever was written.
    }
    return 1.0f;
}
