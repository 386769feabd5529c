// The Qt application the editor entry needs for the length of one call. A host that already
// runs a QApplication keeps it; otherwise one is created here and destroyed afterwards.
#pragma once

#include <memory>

class QApplication;

namespace grainsmith::host {

// Whether Qt widgets can be shown in this process now without any risk of Qt aborting it:
// true when a QApplication already runs; false when a non-widget Qt application runs, when
// neither DISPLAY nor WAYLAND_DISPLAY is set, or when none of the platforms Qt would try can
// start (its X server does not answer, its plug-in is missing).
bool widgetsCanStart();

class GuiSession {
public:
    GuiSession();  // call only when widgetsCanStart()
    ~GuiSession();
    GuiSession(const GuiSession&) = delete;
    GuiSession& operator=(const GuiSession&) = delete;

    bool ownsApplication() const { return created_ != nullptr; }

private:
    std::unique_ptr<QApplication> created_;
};

}  // namespace grainsmith::host
