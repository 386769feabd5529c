// The host application's main window, as the editor entry needs it: found among the display's
// top-level windows, measured for centring, and given the keyboard focus back afterwards.
// This is the platform part of the editor entry; host_window_x11.cpp is the X11 one.
#pragma once

#include <cstdint>

namespace grainsmith::host {

// A native window id (an X11 window; 0 means none).
using NativeWindow = std::uint64_t;

// The class name that marks the host's main window.
inline constexpr const char* kHostWindowClass = "Marlix";

struct ScreenRect {
    int x = 0, y = 0, width = 0, height = 0;
};

// One connection to the window system for the length of one editor call. Every operation is
// harmless when the connection could not be opened (display() is then false).
class HostWindow {
public:
    HostWindow();
    ~HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    bool display() const { return connection_ != nullptr; }

    // The first top-level window owned by this process whose class is exactly kHostWindowClass;
    // 0 when there is none.
    NativeWindow find() const;

    // The window's rectangle in screen coordinates; false when it cannot be read.
    bool rect(NativeWindow window, ScreenRect& out) const;

    // Remembers which window has the keyboard focus now.
    void rememberFocus();
    // Gives the keyboard focus back to the remembered window when it still shows, else to
    // `fallback` (when not 0).
    void restoreFocus(NativeWindow fallback);

    // The process id that owns `window`, or 0 when unknown. Exposed for tests.
    std::uint32_t ownerPid(NativeWindow window) const;

private:
    void* connection_ = nullptr;  // Display*
    NativeWindow focus_ = 0;
};

// Whether a window system connection can be opened from the environment (DISPLAY) without
// any risk of aborting the process.
bool x11DisplayOpens();

}  // namespace grainsmith::host
