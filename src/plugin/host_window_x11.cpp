// Host window on X11: the finder walks the window manager's client list (_NET_CLIENT_LIST) or,
// without a window manager, the root window's children; a window belongs to this process when
// the X server says so (X-Resource client ids) or, failing that, by its _NET_WM_PID.
#include "plugin/host_window.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XRes.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace grainsmith::host {
namespace {

Display* dpy(void* connection) { return static_cast<Display*>(connection); }

// Windows may vanish at any moment (another client destroys them): while one of these lives,
// X protocol errors are counted instead of reaching the process-wide handler, which by
// default would exit the host.
class ErrorTrap {
public:
    explicit ErrorTrap(Display* d) : display_(d) {
        XSync(display_, False);
        errors_ = 0;
        previous_ = XSetErrorHandler(&ErrorTrap::count);
    }
    ~ErrorTrap() {
        XSync(display_, False);
        XSetErrorHandler(previous_);
    }
    bool failed() {
        XSync(display_, False);
        return errors_ != 0;
    }

private:
    static int count(Display*, XErrorEvent*) {
        ++errors_;
        return 0;
    }
    static inline int errors_ = 0;
    Display* display_;
    XErrorHandler previous_;
};

// A 32-bit property as a list of longs (Xlib hands format-32 data back as longs).
std::vector<unsigned long> cardinals(Display* d, Window w, Atom property, Atom type) {
    Atom actualType = None;
    int actualFormat = 0;
    unsigned long count = 0, after = 0;
    unsigned char* data = nullptr;
    std::vector<unsigned long> out;
    if (XGetWindowProperty(d, w, property, 0, 1L << 16, False, type, &actualType, &actualFormat, &count, &after,
                           &data) == Success &&
        data && actualType == type && actualFormat == 32) {
        const auto* values = reinterpret_cast<const unsigned long*>(data);
        out.assign(values, values + count);
    }
    if (data) XFree(data);
    return out;
}

// The top-level client windows: the window manager's list when there is one, else the root's
// children (the top-level windows themselves when nothing reparents them).
std::vector<Window> topLevelWindows(Display* d) {
    const Window root = DefaultRootWindow(d);
    const std::vector<unsigned long> managed =
        cardinals(d, root, XInternAtom(d, "_NET_CLIENT_LIST", False), XA_WINDOW);
    if (!managed.empty()) return {managed.begin(), managed.end()};
    Window rootReturn = 0, parent = 0;
    Window* children = nullptr;
    unsigned int count = 0;
    std::vector<Window> out;
    if (XQueryTree(d, root, &rootReturn, &parent, &children, &count) && children) out.assign(children, children + count);
    if (children) XFree(children);
    return out;
}

bool hasExactClass(Display* d, Window w, const char* wanted) {
    XClassHint hint{};
    if (!XGetClassHint(d, w, &hint)) return false;
    const bool equal = hint.res_class && std::strcmp(hint.res_class, wanted) == 0;
    if (hint.res_name) XFree(hint.res_name);
    if (hint.res_class) XFree(hint.res_class);
    return equal;
}

// A window the user can be working in: shown, and not a popup, menu or tooltip (those bypass
// the window manager and carry the application's class too).
bool isShownClientWindow(Display* d, Window w) {
    XWindowAttributes a{};
    if (!XGetWindowAttributes(d, w, &a)) return false;
    return !a.override_redirect && a.map_state != IsUnmapped;
}

bool viewable(Display* d, Window w) {
    XWindowAttributes a{};
    return XGetWindowAttributes(d, w, &a) && a.map_state == IsViewable;
}

}  // namespace

bool x11DisplayOpens() {
    const char* name = std::getenv("DISPLAY");
    if (!name || !*name) return false;
    Display* d = XOpenDisplay(nullptr);
    if (!d) return false;
    XCloseDisplay(d);
    return true;
}

HostWindow::HostWindow() {
    const char* name = std::getenv("DISPLAY");
    if (name && *name) connection_ = XOpenDisplay(nullptr);
}

HostWindow::~HostWindow() {
    if (connection_) XCloseDisplay(dpy(connection_));
}

std::uint32_t HostWindow::ownerPid(NativeWindow window) const {
    if (!connection_) return 0;
    Display* d = dpy(connection_);
    ErrorTrap trap(d);
    // The X server knows which client created a window and, for local clients, its process.
    int event = 0, error = 0, major = 0, minor = 0;
    if (XResQueryExtension(d, &event, &error) && XResQueryVersion(d, &major, &minor) &&
        (major > 1 || (major == 1 && minor >= 2))) {
        XResClientIdSpec spec{static_cast<XID>(window), XRES_CLIENT_ID_PID_MASK};
        long count = 0;
        XResClientIdValue* ids = nullptr;
        std::uint32_t pid = 0;
        if (XResQueryClientIds(d, 1, &spec, &count, &ids) == Success) {
            for (long i = 0; i < count && pid == 0; ++i) {
                const pid_t p = XResGetClientPid(&ids[i]);
                if (p > 0) pid = static_cast<std::uint32_t>(p);
            }
            XResClientIdsDestroy(count, ids);
        }
        if (pid != 0 && !trap.failed()) return pid;
    }
    // Remote clients or servers without the extension: trust what the window says of itself.
    const std::vector<unsigned long> pid =
        cardinals(d, static_cast<Window>(window), XInternAtom(d, "_NET_WM_PID", False), XA_CARDINAL);
    if (pid.empty() || trap.failed()) return 0;
    return static_cast<std::uint32_t>(pid.front());
}

NativeWindow HostWindow::find() const {
    if (!connection_) return 0;
    Display* d = dpy(connection_);
    const auto self = static_cast<std::uint32_t>(getpid());
    for (Window w : topLevelWindows(d)) {
        bool candidate = false;
        {
            ErrorTrap trap(d);
            candidate = hasExactClass(d, w, kHostWindowClass) && isShownClientWindow(d, w) && !trap.failed();
        }
        if (candidate && ownerPid(w) == self) return w;
    }
    return 0;
}

bool HostWindow::rect(NativeWindow window, ScreenRect& out) const {
    if (!connection_ || window == 0) return false;
    Display* d = dpy(connection_);
    ErrorTrap trap(d);
    XWindowAttributes a{};
    Window child = 0;
    int x = 0, y = 0;
    if (!XGetWindowAttributes(d, static_cast<Window>(window), &a) ||
        !XTranslateCoordinates(d, static_cast<Window>(window), a.root, 0, 0, &x, &y, &child) || trap.failed())
        return false;
    out = {x, y, a.width, a.height};
    return true;
}

// The dialog is application-modal: the window manager and Qt keep input from the host window.
void HostWindow::beginModal(NativeWindow) {}
void HostWindow::endModal() {}

void HostWindow::rememberFocus() {
    focus_ = 0;
    if (!connection_) return;
    Window w = 0;
    int revert = 0;
    XGetInputFocus(dpy(connection_), &w, &revert);
    if (w != None && w != PointerRoot) focus_ = w;
}

void HostWindow::restoreFocus(NativeWindow fallback) {
    if (!connection_) return;
    Display* d = dpy(connection_);
    ErrorTrap trap(d);
    Window target = None;
    if (focus_ != 0 && viewable(d, static_cast<Window>(focus_)))
        target = static_cast<Window>(focus_);
    else if (fallback != 0 && viewable(d, static_cast<Window>(fallback)))
        target = static_cast<Window>(fallback);
    if (target != None) XSetInputFocus(d, target, RevertToParent, CurrentTime);
}

}  // namespace grainsmith::host
