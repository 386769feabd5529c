// Host window on Win32: the finder walks the desktop's top-level windows and takes the first
// one without a parent (nor, for a popup, an owner) that belongs to this process and whose
// class name is exactly "Marlix". Around a modal dialog the host window is disabled, the dialog
// is centred on it, and afterwards the window is enabled again and the keyboard focus goes back
// to the window that had it.
#include "plugin/host_window.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdint>
#include <cstring>

namespace grainsmith::host {
namespace {

HWND hwnd(NativeWindow window) { return reinterpret_cast<HWND>(static_cast<std::uintptr_t>(window)); }
NativeWindow native(HWND window) { return static_cast<NativeWindow>(reinterpret_cast<std::uintptr_t>(window)); }

struct Search {
    DWORD process = 0;
    HWND result = nullptr;
};

BOOL CALLBACK visit(HWND window, LPARAM context) {
    auto& search = *reinterpret_cast<Search*>(context);
    // GetParent gives the parent of a child window and the owner of a popup: either way not
    // the application's main window.
    if (GetParent(window) != nullptr) return TRUE;
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process != search.process) return TRUE;
    // The name and its terminating zero: "Marlix" exactly, not a longer name that starts so.
    char name[256] = {};
    GetClassNameA(window, name, sizeof name);
    if (std::memcmp(name, kHostWindowClass, std::strlen(kHostWindowClass) + 1) != 0) return TRUE;
    search.result = window;
    return FALSE;
}

}  // namespace

HostWindow::HostWindow() : connection_(GetDesktopWindow()) {}

// A dialog that ends without endModal (an exception on its way out) leaves no disabled host.
HostWindow::~HostWindow() { endModal(); }

std::uint32_t HostWindow::ownerPid(NativeWindow window) const {
    if (window == 0 || !IsWindow(hwnd(window))) return 0;
    DWORD process = 0;
    GetWindowThreadProcessId(hwnd(window), &process);
    return process;
}

NativeWindow HostWindow::find() const {
    Search search;
    search.process = GetCurrentProcessId();
    // A null desktop means the calling thread's desktop. The callback's FALSE that ends the
    // walk makes the call itself report failure, so its result says nothing.
    EnumDesktopWindows(nullptr, &visit, reinterpret_cast<LPARAM>(&search));
    return native(search.result);
}

bool HostWindow::rect(NativeWindow window, ScreenRect& out) const {
    RECT r{};
    if (window == 0 || !GetWindowRect(hwnd(window), &r)) return false;
    out = {r.left, r.top, r.right - r.left, r.bottom - r.top};
    return true;
}

void HostWindow::beginModal(NativeWindow window) {
    if (window == 0 || !IsWindow(hwnd(window)) || !IsWindowEnabled(hwnd(window))) return;
    EnableWindow(hwnd(window), FALSE);
    disabled_ = window;
}

void HostWindow::endModal() {
    if (disabled_ == 0) return;
    if (IsWindow(hwnd(disabled_))) EnableWindow(hwnd(disabled_), TRUE);
    disabled_ = 0;
}

// The focus window belongs to the calling thread's input state: the host calls the editor
// entry on its user-interface thread, which owns its windows.
void HostWindow::rememberFocus() { focus_ = native(GetFocus()); }

void HostWindow::restoreFocus(NativeWindow fallback) {
    HWND target = nullptr;
    if (focus_ != 0 && IsWindow(hwnd(focus_)) && IsWindowVisible(hwnd(focus_)))
        target = hwnd(focus_);
    else if (fallback != 0 && IsWindow(hwnd(fallback)) && IsWindowVisible(hwnd(fallback)))
        target = hwnd(fallback);
    if (!target) return;
    // Its top-level window is brought to the front and activated first: SetFocus only moves the
    // focus among the windows of this thread, and keys go to the active window's focus.
    SetForegroundWindow(GetAncestor(target, GA_ROOT));
    SetFocus(target);
}

}  // namespace grainsmith::host
