// Deciding whether Qt can start, and owning the QApplication when the host has none.
//
// Qt's default when its platform cannot start (no X server answering, no plug-in) is to abort
// the whole process, which would take the host down with it. So before creating a
// QApplication we ask the same questions Qt will ask: which platforms it tries, in which order,
// and whether any of them can come up.
#include "plugin/gui_session.h"

#include <QApplication>
#include <QByteArray>
#include <QDir>
#include <QLibraryInfo>
#include <QStringList>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>

#include "plugin/host_window.h"

namespace grainsmith::host {
namespace {

bool envSet(const char* name) { return !qEnvironmentVariableIsEmpty(name); }

// The platform names Qt tries, in its order: QT_QPA_PLATFORM when set, else Wayland when a
// Wayland session is advertised, then X11.
QList<QByteArray> platformsQtTries() {
    QList<QByteArray> names;
    const QByteArray forced = qgetenv("QT_QPA_PLATFORM");
    if (!forced.isEmpty()) {
        for (const QByteArray& entry : forced.split(';')) names << entry.split(':').first().trimmed();
        return names;
    }
    if (envSet("WAYLAND_DISPLAY") || qgetenv("XDG_SESSION_TYPE") == "wayland") names << "wayland";
    names << "xcb";
    return names;
}

bool platformPluginPresent(const QByteArray& name) {
    QStringList dirs;
    for (const QByteArray& dir : qgetenv("QT_QPA_PLATFORM_PLUGIN_PATH").split(':'))
        if (!dir.isEmpty()) dirs << QString::fromLocal8Bit(dir);
    for (const QByteArray& dir : qgetenv("QT_PLUGIN_PATH").split(':'))
        if (!dir.isEmpty()) dirs << QString::fromLocal8Bit(dir) + QStringLiteral("/platforms");
    dirs << QLibraryInfo::path(QLibraryInfo::PluginsPath) + QStringLiteral("/platforms");
    const QString prefix = QStringLiteral("libq") + QString::fromLatin1(name);
    for (const QString& dir : dirs)
        if (!QDir(dir).entryList({prefix + QStringLiteral("*.so")}, QDir::Files).isEmpty()) return true;
    return false;
}

bool waylandCompositorAnswers() {
    const QByteArray display = qgetenv("WAYLAND_DISPLAY");
    if (display.isEmpty()) return false;
    const QByteArray path = display.startsWith('/') ? display : qgetenv("XDG_RUNTIME_DIR") + '/' + display;
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (path.size() >= static_cast<qsizetype>(sizeof address.sun_path)) return false;
    std::memcpy(address.sun_path, path.constData(), static_cast<size_t>(path.size()));
    const int fd = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    if (fd < 0) return false;
    const bool ok = ::connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
    close(fd);
    return ok;
}

bool platformStarts(const QByteArray& name) {
    if (!platformPluginPresent(name)) return false;
    if (name == "xcb") return x11DisplayOpens();
    if (name.startsWith("wayland")) return waylandCompositorAnswers();
    return true;  // offscreen, vnc, ...: nothing to connect to
}

// The argument vector of the application created here: the program name "NoisePlugin" in a
// zeroed 256-byte buffer, a null second entry and a count of 2. Qt 6 takes this safely: it
// drops null entries while parsing its options and sets the count to 1, so arguments() is
// {"NoisePlugin"}. Qt keeps references to the count and the vector for the application's whole
// life, so they live in static storage, and the count is set again before every construction.
char g_programName[256] = "NoisePlugin";
char* g_argv[2] = {g_programName, nullptr};
int g_argc = 2;

}  // namespace

bool widgetsCanStart() {
    if (QCoreApplication* app = QCoreApplication::instance()) return qobject_cast<QApplication*>(app) != nullptr;
    if (!envSet("DISPLAY") && !envSet("WAYLAND_DISPLAY")) return false;
    for (const QByteArray& name : platformsQtTries())
        if (platformStarts(name)) return true;
    return false;
}

GuiSession::GuiSession() {
    if (QCoreApplication::instance()) return;
    g_argc = 2;
    created_ = std::make_unique<QApplication>(g_argc, g_argv);
}

GuiSession::~GuiSession() = default;

}  // namespace grainsmith::host
