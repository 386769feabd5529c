// The host application's main window, as the editor entry needs it: found among the display's
// top-level windows, measured for centring, kept from input while the dialog is open over it,
// and given the keyboard focus back afterwards. This is the platform part of the editor entry:
// host_window_x11.cpp is the X11 one, host_window_win32.cpp the Win32 one.
#pragma once

#include <cstdint>

namespace grainsmith::host {

// A native window id: an X11 window or an HWND; 0 means none.
using NativeWindow = std::uint64_t;

// The class name that marks the host's main window.
inline constexpr const char* kHostWindowClass = "Marlix";

struct ScreenRect {
    int x = 0, y = 0, width = 0, height = 0;
};

// One connection to the window system for the length of one editor call. Every operation is
// harmless when the connection could not be opened (display() is then false). On Win32 there
// is nothing to open: display() says whether this process has a desktop.
class HostWindow {
public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    bool display() const { return connection_ != nullptr; }

    // The first top-level window owned by this process whose class is exactly kHostWindowClass;
    // 0 when there is none. (Win32: among the desktop's windows without a parent or owner.)
    NativeWindow find() const;

    // The window's rectangle in screen coordinates; false when it cannot be read.
    bool rect(NativeWindow window, ScreenRect& out) const;

    // A rectangle of the given size whose centre is the window's centre, (left + width / 2,
    // top + height / 2) in whole pixels, the halves truncated; false when the window's
    // rectangle cannot be read.
    bool centredOn(NativeWindow window, int width, int height, ScreenRect& out) const {
        ScreenRect host;
        if (!rect(window, host)) return false;
        out = {host.x + host.width / 2 - width / 2, host.y + host.height / 2 - height / 2, width, height};
        return true;
    }

    // While a modal dialog is open over `window`, the window takes no input: Win32 disables it
    // (EnableWindow) and endModal enables it again, but only when beginModal was what disabled
    // it (and at the latest when this object goes). On X11 the dialog's modality does this, and
    // both do nothing.
    void beginModal(NativeWindow window);
    void endModal();

    // Remembers which window has the keyboard focus now.
    void rememberFocus();
    // Gives the keyboard focus back to the remembered window when it still shows, else to
    // `fallback` (when not 0).
    void restoreFocus(NativeWindow fallback);

    // The process id that owns `window`, or 0 when unknown. Exposed for tests.
    std::uint32_t ownerPid(NativeWindow window) const;

private:
    void* connection_ = nullptr;  // Display*; on Win32 the desktop window
    NativeWindow focus_ = 0;
    NativeWindow disabled_ = 0;  // the window beginModal disabled, to enable again
};

// Whether a window system connection can be opened from the environment (DISPLAY) without
// any risk of aborting the process.
bool x11DisplayOpens();

}  // namespace grainsmith::host
