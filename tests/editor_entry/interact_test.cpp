// interactWithUser driven from a host program on a private X server, as a host calls it:
// the plug-in is loaded with dlopen. While the modal dialog runs, a driver thread watches the
// X server for the dialog's window, checks how it is placed, and then posts the user's actions
// (move a slider, press OK or Cancel) to the Qt event loop running inside the call.
#include <QApplication>
#include <QDialogButtonBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QVBoxLayout>
// gtest and Qt come before Xlib, whose macros (None, Bool, Status) would break them.
#include "support/private_x_server.h"
#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <dlfcn.h>

#include <array>
#include <chrono>
#include <cstring>
#include <functional>
#include <string>
#include <thread>
#include <vector>


namespace {

const bool kServer = grainsmith::testing::usePrivateXServer("1280x1024x24");

}  // namespace

// The sanitizer runtime looks this hook up by name, so it must be visible.
extern "C" __attribute__((visibility("default"), used)) const char* __lsan_default_options() {
    return GRAINSMITH_LSAN_QT_OPTIONS;
}

namespace {

using Entry = float (*)(char*, double, char*, int, char*, int, void**);

Entry interactWithUser() {
    static void* handle = dlopen(GRAINSMITH_PLUGIN_PATH, RTLD_NOW | RTLD_LOCAL);
    return handle ? reinterpret_cast<Entry>(dlsym(handle, "interactWithUser")) : nullptr;
}

// The 44-byte transform block.
struct Transform {
    int32_t flags = 2;
    float overall = 1.0f;
    float translate[3] = {0, 0, 0};
    float scale[3] = {1, 1, 1};
    float rotate[3] = {0, 0, 0};
};
static_assert(sizeof(Transform) == 44);

// What the host update callback received, call by call.
struct Update {
    float a;
    int b;
    void* c;
    int d;
    std::array<char, 256> record;
    Transform transform;
};
std::vector<Update> g_updates;
void hostUpdate(float a, int b, void* c, int d, char* record, char* transform) {
    Update u{a, b, c, d, {}, {}};
    std::memcpy(u.record.data(), record, 256);
    std::memcpy(&u.transform, transform, 44);
    g_updates.push_back(u);
}

float interact(std::array<char, 256>& record, Transform& transform, bool withCallback = true) {
    void* hostData[8] = {};
    hostData[7] = withCallback ? reinterpret_cast<void*>(&hostUpdate) : nullptr;
    return interactWithUser()(nullptr, 0.0, record.data(), 256, reinterpret_cast<char*>(&transform), 44, hostData);
}

std::array<char, 256> blankRecord() {
    std::array<char, 256> r;
    r.fill(0x5A);
    r[0] = 0;
    return r;
}

struct Rect {
    int x = 0, y = 0, w = 0, h = 0;
    int cx() const { return x + w / 2; }
    int cy() const { return y + h / 2; }
};

Rect rectOf(Display* d, Window w) {
    XWindowAttributes a{};
    XGetWindowAttributes(d, w, &a);
    Window child;
    Rect r{0, 0, a.width, a.height};
    XTranslateCoordinates(d, w, a.root, 0, 0, &r.x, &r.y, &child);
    return r;
}

// A plain X11 window of class "Marlix", as a host that is not a Qt program has.
struct XlibHostWindow {
    Display* display = XOpenDisplay(nullptr);
    Window id = 0;
    XlibHostWindow() {
        id = XCreateSimpleWindow(display, DefaultRootWindow(display), 100, 80, 900, 700, 0, 0, 0xffffff);
        XClassHint hint{const_cast<char*>("host"), const_cast<char*>("Marlix")};
        XSetClassHint(display, id, &hint);
        XMapWindow(display, id);
        XSync(display, False);
        XSetInputFocus(display, id, RevertToParent, CurrentTime);
        XSync(display, False);
    }
    ~XlibHostWindow() { XCloseDisplay(display); }
    Window focus() const {
        Window w = 0;
        int revert = 0;
        XGetInputFocus(display, &w, &revert);
        return w;
    }
};

// How the dialog's window looked on the X server when it appeared.
struct DialogSeen {
    bool found = false;
    Window transientFor = 0;
    bool transientForShown = false;  // Qt points unparented dialogs at a hidden window of its own
    bool modalState = false;
    Rect rect;
};

// Watches the X server for the editor's window ("Grainsmith"), notes its placement, then
// runs `act` on the dialog inside the Qt event loop of the call.
class Driver {
public:
    // The display name is read here, on the test's thread: Qt may change the environment while
    // the driver runs, and getenv is not safe against that.
    explicit Driver(std::function<void(QWidget*)> act)
        : display_(std::getenv("DISPLAY")), thread_([this, act] { run(act); }) {}
    ~Driver() {
        if (thread_.joinable()) thread_.join();
    }
    const DialogSeen& seen() {
        if (thread_.joinable()) thread_.join();
        return seen_;
    }

private:
    void run(const std::function<void(QWidget*)>& act) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
        Display* d = XOpenDisplay(display_.c_str());
        if (!d) {
            ADD_FAILURE() << "the driver cannot open " << display_;
            return;
        }
        Window dialog = 0;
        while (!dialog && std::chrono::steady_clock::now() < deadline) {
            dialog = findDialog(d);
            if (!dialog) std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
        if (dialog) {
            std::this_thread::sleep_for(std::chrono::milliseconds(200));  // let it settle
            seen_.found = true;
            seen_.rect = rectOf(d, dialog);
            Window parent = 0;
            if (XGetTransientForHint(d, dialog, &parent)) seen_.transientFor = parent;
            XWindowAttributes a{};
            seen_.transientForShown = parent && XGetWindowAttributes(d, parent, &a) && a.map_state == IsViewable;
            seen_.modalState = hasState(d, dialog, "_NET_WM_STATE_MODAL");
        }
        // Even when the window was not seen, act, so that a dialog open somewhere gets closed
        // and the test fails instead of hanging.
        if (QCoreApplication::instance()) {
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [act] {
                    QWidget* w = QApplication::activeModalWidget();
                    act(w);
                },
                Qt::QueuedConnection);
        }
        XCloseDisplay(d);
    }

    static Window findDialog(Display* d) {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned int n = 0;
        Window found = 0;
        if (XQueryTree(d, DefaultRootWindow(d), &root, &parent, &children, &n)) {
            for (unsigned int i = 0; i < n && !found; ++i) {
                XWindowAttributes a{};
                if (!XGetWindowAttributes(d, children[i], &a) || a.map_state != IsViewable) continue;
                char* name = nullptr;
                if (XFetchName(d, children[i], &name) && name) {
                    if (std::strcmp(name, "Grainsmith") == 0) found = children[i];
                    XFree(name);
                }
            }
            if (children) XFree(children);
        }
        return found;
    }

    static bool hasState(Display* d, Window w, const char* state) {
        Atom type;
        int format;
        unsigned long n = 0, after;
        unsigned char* data = nullptr;
        bool has = false;
        const Atom wanted = XInternAtom(d, state, False);
        if (XGetWindowProperty(d, w, XInternAtom(d, "_NET_WM_STATE", False), 0, 64, False, XA_ATOM, &type, &format,
                               &n, &after, &data) == Success &&
            data) {
            const auto* atoms = reinterpret_cast<const unsigned long*>(data);
            for (unsigned long i = 0; i < n; ++i) has = has || atoms[i] == wanted;
            XFree(data);
        }
        return has;
    }

    std::string display_;
    DialogSeen seen_;
    std::thread thread_;
};

void press(QWidget* dialog, QDialogButtonBox::StandardButton which) {
    ASSERT_NE(dialog, nullptr);
    auto* box = dialog->findChild<QDialogButtonBox*>();
    ASSERT_NE(box, nullptr);
    box->button(which)->click();
}

// The translate-x slider of the page shown (slider value / 100 is the translation).
void moveXOffset(QWidget* dialog, int value) {
    ASSERT_NE(dialog, nullptr);
    for (QSlider* s : dialog->findChildren<QSlider*>(QStringLiteral("transX")))
        if (s->isVisible()) {
            s->setValue(value);
            return;
        }
    ADD_FAILURE() << "no visible translate-x slider";
}

class InteractWithUser : public ::testing::Test {
protected:
    void SetUp() override {
        ASSERT_NE(interactWithUser(), nullptr) << dlerror();
        g_updates.clear();
    }
};

TEST_F(InteractWithUser, OkHandsBackTheShownKindAndTheTransformOverTheHostWindow) {
    XlibHostWindow host;
    auto record = blankRecord();
    Transform transform;
    transform.translate[0] = 0.25f;
    transform.scale[1] = 2.0f;
    transform.rotate[2] = 0.25f;
    QStringList arguments;
    Driver driver([&](QWidget* dialog) {
        arguments = QCoreApplication::arguments();
        press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(interact(record, transform), 1.0f);
    const DialogSeen& seen = driver.seen();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(seen.transientFor, host.id);
    EXPECT_TRUE(seen.modalState);
    EXPECT_NEAR(seen.rect.cx(), 100 + 450, 2);
    EXPECT_NEAR(seen.rect.cy(), 80 + 350, 2);

    // An empty host record opens on Checkerboard; OK returns its whole record, nothing more.
    EXPECT_EQ(record[0], 48);
    EXPECT_STREQ(record.data() + 1, "Checkerboard");
    for (int i = 48; i < 256; ++i) ASSERT_EQ(record[i], 0x5A) << i;
    EXPECT_EQ(transform.translate[0], 0.25f);
    EXPECT_EQ(transform.scale[1], 2.0f);
    EXPECT_EQ(transform.rotate[2], 0.25f);

    // The application created for the call is gone; it was built from the argument vector
    // {"NoisePlugin", null} with the count 2.
    EXPECT_EQ(arguments, QStringList{QStringLiteral("NoisePlugin")});
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    EXPECT_EQ(host.focus(), host.id);
}

TEST_F(InteractWithUser, EveryEditCallsTheHostBackAndCancelKeepsTheRecord) {
    XlibHostWindow host;
    auto record = blankRecord();
    record[0] = 40;
    std::strcpy(record.data() + 1, "Not A Kind");
    const auto before = record;
    Transform transform;
    Driver driver([&](QWidget* dialog) {
        moveXOffset(dialog, 25);
        moveXOffset(dialog, -50);
        press(dialog, QDialogButtonBox::Cancel);
    });
    EXPECT_EQ(interact(record, transform), 1.0f);
    ASSERT_TRUE(driver.seen().found);

    EXPECT_EQ(record, before);
    EXPECT_EQ(transform.translate[0], -0.5f);  // the transform comes back even after Cancel
    ASSERT_GE(g_updates.size(), 2u);
    const Update& last = g_updates.back();
    EXPECT_EQ(last.a, 4.0f);
    EXPECT_EQ(last.b, 8);
    EXPECT_EQ(last.c, nullptr);
    EXPECT_EQ(last.d, 0);
    EXPECT_STREQ(last.record.data() + 1, "Checkerboard");
    EXPECT_EQ(last.record[0], 48);
    EXPECT_EQ(last.transform.translate[0], -0.5f);
    bool sawFirstEdit = false;
    for (const Update& u : g_updates) sawFirstEdit = sawFirstEdit || u.transform.translate[0] == 0.25f;
    EXPECT_TRUE(sawFirstEdit);
}

TEST_F(InteractWithUser, WithoutAHostWindowTheDialogOpensCentredOnTheScreen) {
    auto record = blankRecord();
    Transform transform;
    Driver driver([](QWidget* dialog) { press(dialog, QDialogButtonBox::Ok); });
    EXPECT_EQ(interact(record, transform, false), 1.0f);
    const DialogSeen& seen = driver.seen();
    ASSERT_TRUE(seen.found);
    EXPECT_FALSE(seen.transientForShown);
    EXPECT_NEAR(seen.rect.cx(), 640, 2);
    EXPECT_NEAR(seen.rect.cy(), 512, 2);
    EXPECT_STREQ(record.data() + 1, "Checkerboard");
}

TEST_F(InteractWithUser, WithoutAUsableDisplayReturnsAtOnceAndTouchesNothing) {
    auto record = blankRecord();
    record[0] = 40;
    std::strcpy(record.data() + 1, "Brick");
    Transform transform;
    transform.translate[0] = 0.123f;
    const auto recordBefore = record;
    const std::string display = std::getenv("DISPLAY");

    unsetenv("DISPLAY");
    EXPECT_EQ(interact(record, transform), 1.0f);
    setenv("DISPLAY", ":4093", 1);  // no server there
    EXPECT_EQ(interact(record, transform), 1.0f);
    setenv("DISPLAY", display.c_str(), 1);
    setenv("QT_QPA_PLATFORM", "no-such-platform", 1);
    EXPECT_EQ(interact(record, transform), 1.0f);
    unsetenv("QT_QPA_PLATFORM");

    EXPECT_EQ(record, recordBefore);
    EXPECT_EQ(transform.translate[0], 0.123f);
    EXPECT_EQ(transform.flags, 2);
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
}

TEST_F(InteractWithUser, TwoCallsInOneProcessWorkAlike) {
    XlibHostWindow host;
    for (int call = 0; call < 2; ++call) {
        auto record = blankRecord();
        Transform transform;
        Driver driver([](QWidget* dialog) {
            moveXOffset(dialog, 25);
            press(dialog, QDialogButtonBox::Ok);
        });
        g_updates.clear();
        EXPECT_EQ(interact(record, transform), 1.0f);
        const DialogSeen& seen = driver.seen();
        ASSERT_TRUE(seen.found) << "call " << call;
        EXPECT_EQ(seen.transientFor, host.id) << "call " << call;
        EXPECT_STREQ(record.data() + 1, "Checkerboard") << "call " << call;
        EXPECT_EQ(transform.translate[0], 0.25f) << "call " << call;
        EXPECT_FALSE(g_updates.empty()) << "call " << call;
        EXPECT_EQ(QCoreApplication::instance(), nullptr);
    }
}

TEST_F(InteractWithUser, AHostRunningItsOwnApplicationKeepsItAndGetsItsFocusBack) {
    QCoreApplication::setApplicationName(QStringLiteral("Marlix"));
    int argc = 1;
    char name[] = "qt-host";
    char* argv[] = {name, nullptr};
    QApplication app(argc, argv);
    QWidget main;
    auto* layout = new QVBoxLayout(&main);
    auto* field = new QLineEdit;
    layout->addWidget(new QLineEdit);
    layout->addWidget(field);
    main.setGeometry(200, 150, 700, 500);
    main.show();
    main.activateWindow();
    field->setFocus();
    for (int i = 0; i < 20 && QApplication::focusWidget() != field; ++i) {
        QApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    ASSERT_EQ(QApplication::focusWidget(), field);

    auto record = blankRecord();
    Transform transform;
    QWidget* parentSeen = nullptr;
    Driver driver([&](QWidget* dialog) {
        parentSeen = dialog ? dialog->parentWidget() : nullptr;
        press(dialog, QDialogButtonBox::Ok);
    });
    EXPECT_EQ(interact(record, transform), 1.0f);
    const DialogSeen& seen = driver.seen();
    ASSERT_TRUE(seen.found);
    EXPECT_EQ(parentSeen, &main);
    EXPECT_EQ(seen.transientFor, main.winId());
    const QRect frame = main.geometry();
    EXPECT_NEAR(seen.rect.cx(), frame.center().x(), 2);
    EXPECT_NEAR(seen.rect.cy(), frame.center().y(), 2);
    EXPECT_EQ(QCoreApplication::instance(), &app);
    for (int i = 0; i < 20 && QApplication::focusWidget() != field; ++i) {
        QApplication::processEvents();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    EXPECT_EQ(QApplication::focusWidget(), field);
    EXPECT_STREQ(record.data() + 1, "Checkerboard");
}

}  // namespace
