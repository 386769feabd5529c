// The X11 host window finder against real windows on a private X server: only a shown
// top-level window of this process whose class is exactly "Marlix" is the host's main window.
// gtest and Qt come before Xlib, whose macros (None, Bool, Status) would break them.
#include "plugin/host_window.h"
#include "support/private_x_server.h"
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstring>


namespace {

const bool kServer = grainsmith::testing::usePrivateXServer();

using grainsmith::host::HostWindow;

class Finder : public ::testing::Test {
protected:
    void SetUp() override {
        display = XOpenDisplay(nullptr);
        ASSERT_NE(display, nullptr);
    }
    void TearDown() override {
        if (display) XCloseDisplay(display);
    }

    Window window(const char* cls, Window parent = 0, bool map = true, bool overrideRedirect = false,
                  const char* instance = "host") {
        XSetWindowAttributes a{};
        a.override_redirect = overrideRedirect;
        const Window w = XCreateWindow(display, parent ? parent : DefaultRootWindow(display), 40, 30, 320, 200, 0,
                                       CopyFromParent, InputOutput, CopyFromParent, CWOverrideRedirect, &a);
        XClassHint hint{const_cast<char*>(instance), const_cast<char*>(cls)};
        XSetClassHint(display, w, &hint);
        if (map) XMapWindow(display, w);
        XSync(display, False);
        return w;
    }

    void setClientList(std::initializer_list<Window> windows) {
        std::vector<long> list(windows.begin(), windows.end());
        XChangeProperty(display, DefaultRootWindow(display), XInternAtom(display, "_NET_CLIENT_LIST", False),
                        XA_WINDOW, 32, PropModeReplace, reinterpret_cast<unsigned char*>(list.data()),
                        static_cast<int>(list.size()));
        XSync(display, False);
    }

    Display* display = nullptr;
};

TEST_F(Finder, FindsOnlyAShownTopLevelOfThisProcessWithTheExactClass) {
    const Window other = window("Other");
    window("Marlix", other);  // a child window
    window("Marlix2");
    window("Marlixx");
    window("marlix");
    window("Marli");
    window("Other", 0, true, false, "Marlix");  // the instance part does not count
    window("Marlix", 0, false);                  // never shown
    window("Marlix", 0, true, true);             // a popup or tooltip
    HostWindow host;
    ASSERT_TRUE(host.display());
    EXPECT_EQ(host.find(), 0u);

    const Window marlix = window("Marlix");
    window("Marlix");  // a later one does not replace the first
    EXPECT_EQ(host.find(), marlix);
    EXPECT_EQ(host.ownerPid(marlix), static_cast<std::uint32_t>(getpid()));
}

TEST_F(Finder, SkipsAnotherProcessEvenWhenItClaimsOurProcessId) {
    int fds[2];
    ASSERT_EQ(pipe(fds), 0);
    const pid_t self = getpid();
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        Display* d = XOpenDisplay(nullptr);
        if (!d) _exit(1);
        const Window w = XCreateSimpleWindow(d, DefaultRootWindow(d), 0, 0, 100, 100, 0, 0, 0);
        XClassHint hint{const_cast<char*>("host"), const_cast<char*>("Marlix")};
        XSetClassHint(d, w, &hint);
        long pid = self;
        XChangeProperty(d, w, XInternAtom(d, "_NET_WM_PID", False), XA_CARDINAL, 32, PropModeReplace,
                        reinterpret_cast<unsigned char*>(&pid), 1);
        XMapWindow(d, w);
        XSync(d, False);
        const unsigned long id = w;
        if (write(fds[1], &id, sizeof id) != sizeof id) _exit(1);
        for (;;) pause();  // keeps the window until the test ends this process
    }
    unsigned long id = 0;
    ASSERT_EQ(read(fds[0], &id, sizeof id), static_cast<ssize_t>(sizeof id));
    HostWindow host;
    EXPECT_EQ(host.ownerPid(id), static_cast<std::uint32_t>(child));
    EXPECT_EQ(host.find(), 0u);
    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
    close(fds[0]);
    close(fds[1]);
}

TEST_F(Finder, UsesTheWindowManagersClientListWhenThereIsOne) {
    const Window other = window("Other");
    const Window marlix = window("Marlix");
    setClientList({other});
    HostWindow host;
    EXPECT_EQ(host.find(), 0u);
    setClientList({other, marlix});
    EXPECT_EQ(host.find(), marlix);
}

TEST_F(Finder, MeasuresTheWindowAndGivesTheFocusBack) {
    const Window a = window("Marlix");
    const Window b = window("Other");
    HostWindow host;
    grainsmith::host::ScreenRect r;
    ASSERT_TRUE(host.rect(a, r));
    EXPECT_EQ(r.x, 40);
    EXPECT_EQ(r.y, 30);
    EXPECT_EQ(r.width, 320);
    EXPECT_EQ(r.height, 200);
    EXPECT_FALSE(host.rect(0x7ffffff, r));  // no such window: no X error reaches the process

    auto focus = [&] {
        Window w = 0;
        int revert = 0;
        XGetInputFocus(display, &w, &revert);
        return w;
    };
    XSetInputFocus(display, a, RevertToParent, CurrentTime);
    XSync(display, False);
    host.rememberFocus();
    XSetInputFocus(display, b, RevertToParent, CurrentTime);
    XSync(display, False);
    host.restoreFocus(b);
    EXPECT_EQ(focus(), a);

    // The window that had the focus is gone: the fallback gets it.
    XUnmapWindow(display, a);
    XSetInputFocus(display, b, RevertToParent, CurrentTime);
    XSync(display, False);
    const Window c = window("Third");
    XSetInputFocus(display, c, RevertToParent, CurrentTime);
    XSync(display, False);
    host.rememberFocus();
    XDestroyWindow(display, c);
    XSync(display, False);
    host.restoreFocus(b);
    EXPECT_EQ(focus(), b);
}

}  // namespace
