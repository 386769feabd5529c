// The Win32 host window finder and the steps around a modal dialog, against real windows:
// the program registers window classes and creates its own windows, and a second instance of
// itself (started with --other-process-host) owns a "Marlix" window of another process.
#include "plugin/host_window.h"

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "check.h"

namespace {

using grainsmith::host::HostWindow;
using grainsmith::host::NativeWindow;
using grainsmith::host::ScreenRect;

constexpr const char* kOtherProcessArg = "--other-process-host";
constexpr const char* kOtherTitle = "host window of the other process";

NativeWindow id(HWND w) { return static_cast<NativeWindow>(reinterpret_cast<std::uintptr_t>(w)); }

void registerClass(const char* name) {
    WNDCLASSA wc{};
    wc.lpfnWndProc = DefWindowProcA;
    wc.hInstance = GetModuleHandleA(nullptr);
    wc.lpszClassName = name;
    RegisterClassA(&wc);
}

HWND topLevel(const char* cls, int x = 100, int y = 50, int w = 400, int h = 300, const char* title = "test") {
    return CreateWindowExA(0, cls, title, WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, w, h, nullptr, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

HWND child(const char* cls, HWND parent) {
    return CreateWindowExA(0, cls, "child", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 10, 10, 50, 20, parent, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

// A popup window whose owner is `owner`: top-level, but GetParent names the owner.
HWND ownedPopup(const char* cls, HWND owner) {
    return CreateWindowExA(0, cls, "popup", WS_POPUP | WS_VISIBLE, 20, 20, 100, 80, owner, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

std::string eventName(DWORD parent, const char* what) {
    return "grainsmith-host-window-test-" + std::to_string(parent) + "-" + what;
}

// The second instance: a top-level "Marlix" window in a process of its own, kept until the
// first instance kills this process (or a minute has passed, should it never do so).
int runOtherProcessHost(const char* parentPid) {
    registerClass("Marlix");
    if (!topLevel("Marlix", 300, 200, 320, 240, kOtherTitle)) return 3;
    const DWORD parent = static_cast<DWORD>(std::strtoul(parentPid, nullptr, 10));
    HANDLE ready = OpenEventA(EVENT_MODIFY_STATE, FALSE, eventName(parent, "ready").c_str());
    if (!ready) return 4;
    SetEvent(ready);
    CloseHandle(ready);
    Sleep(60000);
    return 0;
}

struct OtherProcess {
    PROCESS_INFORMATION info{};
    bool started = false;

    OtherProcess() {
        const std::string readyName = eventName(GetCurrentProcessId(), "ready");
        HANDLE ready = CreateEventA(nullptr, TRUE, FALSE, readyName.c_str());
        char self[MAX_PATH] = {};
        GetModuleFileNameA(nullptr, self, MAX_PATH);
        std::string command = std::string("\"") + self + "\" " + kOtherProcessArg + " " +
                              std::to_string(GetCurrentProcessId());
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        started = ready && CreateProcessA(self, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                          &startup, &info);
        // Its window exists once it has signalled.
        if (started) started = WaitForSingleObject(ready, 30000) == WAIT_OBJECT_0;
        if (ready) CloseHandle(ready);
    }
    ~OtherProcess() {
        if (!info.hProcess) return;
        TerminateProcess(info.hProcess, 0);
        WaitForSingleObject(info.hProcess, 10000);
        CloseHandle(info.hProcess);
        CloseHandle(info.hThread);
    }
};

bool sameRect(const ScreenRect& a, const ScreenRect& b) {
    return a.x == b.x && a.y == b.y && a.width == b.width && a.height == b.height;
}

void findsOnlyATopLevelOfThisProcessWithTheExactClass() {
    grainsmith::wintest::group("finder");
    HostWindow host;
    CHECK(host.display());
    CHECK_EQ(host.find(), 0u);

    // Windows that must not be taken for the host's main window.
    const HWND other = topLevel("Other");
    const HWND marlixChild = child("Marlix", other);
    const HWND marlixPopup = ownedPopup("Marlix", other);
    const HWND longer = topLevel("Marlix2");
    const HWND shorter = topLevel("Marli");
    const HWND titled = topLevel("Other", 100, 50, 400, 300, "Marlix");  // the title does not count
    CHECK(other && marlixChild && marlixPopup && longer && shorter && titled);
    CHECK_EQ(GetParent(marlixChild), other);
    CHECK_EQ(GetParent(marlixPopup), other);

    OtherProcess process;
    CHECK(process.started);
    const HWND foreign = FindWindowA("Marlix", kOtherTitle);
    CHECK(foreign != nullptr);
    CHECK_EQ(host.ownerPid(id(foreign)), process.info.dwProcessId);
    CHECK_EQ(host.find(), 0u);

    const HWND marlix = topLevel("Marlix");
    CHECK_EQ(host.find(), id(marlix));
    CHECK_EQ(host.ownerPid(id(marlix)), GetCurrentProcessId());
    CHECK_EQ(host.ownerPid(0), 0u);

    DestroyWindow(marlix);
    CHECK_EQ(host.find(), 0u);
    for (HWND w : {titled, shorter, longer, marlixPopup, other}) DestroyWindow(w);
}

void centresOnTheHostWindow() {
    grainsmith::wintest::group("centring");
    HostWindow host;
    const HWND window = topLevel("Marlix", 100, 50, 400, 300);
    ScreenRect r;
    CHECK(host.rect(id(window), r));
    CHECK(sameRect(r, {100, 50, 400, 300}));
    // Centre (300, 200); a 200 x 100 dialog starts 100 left of it and 50 above.
    CHECK(host.centredOn(id(window), 200, 100, r));
    CHECK(sameRect(r, {200, 150, 200, 100}));

    // Odd sizes and a window reaching left of the screen: the centre is
    // (-301 + 401 / 2, 7 + 201 / 2) = (-101, 107), and a 51 x 31 dialog starts 25 left of it and
    // 15 above, halves truncated.
    MoveWindow(window, -301, 7, 401, 201, FALSE);
    CHECK(host.rect(id(window), r));
    CHECK(sameRect(r, {-301, 7, 401, 201}));
    CHECK(host.centredOn(id(window), 51, 31, r));
    CHECK(sameRect(r, {-126, 92, 51, 31}));

    DestroyWindow(window);
    CHECK(!host.rect(id(window), r));
    CHECK(!host.centredOn(id(window), 51, 31, r));
    CHECK(!host.rect(0, r));
}

void disablesTheHostWhileTheDialogIsOpen() {
    grainsmith::wintest::group("modal");
    const HWND window = topLevel("Marlix");
    {
        HostWindow host;
        host.beginModal(id(window));
        CHECK(!IsWindowEnabled(window));
        host.endModal();
        CHECK(IsWindowEnabled(window));
        host.endModal();  // a second end changes nothing
        CHECK(IsWindowEnabled(window));
    }
    {
        // A host window that was disabled already stays so: only what beginModal disabled is
        // enabled again.
        EnableWindow(window, FALSE);
        HostWindow host;
        host.beginModal(id(window));
        host.endModal();
        CHECK(!IsWindowEnabled(window));
        EnableWindow(window, TRUE);
    }
    {
        // Left without endModal: the host window is enabled again all the same.
        HostWindow host;
        host.beginModal(id(window));
    }
    CHECK(IsWindowEnabled(window));
    {
        // No host window, or one destroyed while the dialog was open: nothing to do.
        HostWindow host;
        host.beginModal(0);
        host.endModal();
        const HWND gone = topLevel("Marlix");
        host.beginModal(id(gone));
        DestroyWindow(gone);
        host.endModal();
        CHECK(IsWindowEnabled(window));
    }
    DestroyWindow(window);
}

void givesTheFocusBack() {
    grainsmith::wintest::group("focus");
    const HWND window = topLevel("Marlix");
    const HWND field = child("Other", window);
    SetForegroundWindow(window);
    SetFocus(field);
    CHECK_EQ(GetFocus(), field);

    HostWindow host;
    host.rememberFocus();
    // The dialog takes the focus while it is open, then goes away.
    const HWND dialog = topLevel("Other", 150, 100, 200, 100, "dialog");
    SetForegroundWindow(dialog);
    SetFocus(dialog);
    CHECK_EQ(GetFocus(), dialog);
    DestroyWindow(dialog);
    host.restoreFocus(id(window));
    CHECK_EQ(GetFocus(), field);
    CHECK_EQ(GetForegroundWindow(), window);

    // The window that had the focus is gone: the fallback gets it.
    const HWND other = topLevel("Other", 500, 100, 200, 100, "other");
    SetForegroundWindow(other);
    SetFocus(other);
    host.rememberFocus();
    DestroyWindow(other);
    host.restoreFocus(id(window));
    CHECK_EQ(GetFocus(), window);
    CHECK_EQ(GetForegroundWindow(), window);

    // Nothing had the focus and there is no fallback: the focus stays where it is.
    SetFocus(nullptr);
    host.rememberFocus();
    SetFocus(field);
    host.restoreFocus(0);
    CHECK_EQ(GetFocus(), field);
    DestroyWindow(window);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3 && std::strcmp(argv[1], kOtherProcessArg) == 0) return runOtherProcessHost(argv[2]);
    for (const char* cls : {"Marlix", "Marlix2", "Marli", "Other"}) registerClass(cls);
    findsOnlyATopLevelOfThisProcessWithTheExactClass();
    centresOnTheHostWindow();
    disablesTheHostWhileTheDialogIsOpen();
    givesTheFocusBack();
    return grainsmith::wintest::finish();
}
