// The demo host's main window (window class "Marlix", which the plug-in's editor looks for):
// the live preview, the buttons that open the editor and read and write record files, and a
// summary of the current texture and placement.
#pragma once

#include <QLabel>
#include <QMainWindow>
#include <QPushButton>

#include "plugin_library.h"
#include "texture_view.h"

namespace demo {

class DemoWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit DemoWindow(PluginLibrary& plugin);

    // Loads a record file; on failure returns false with a message for the user in `error`.
    bool openRecord(const QString& path, QString& error);
    bool saveRecord(const QString& path, QString& error) const;

    TextureView& view() { return *view_; }
    QPushButton& editButton() { return *edit_; }
    const RecordBlock& record() const { return record_; }
    int callbacks() const { return callbacks_; }

public slots:
    void editTexture();

private:
    static void hostUpdate(float, int, void*, int, char* record, char* transform);
    void showCurrent();
    void describe(const RecordBlock& record, const TransformBlock& transform, bool live);
    void chooseOpen();
    void chooseSave();

    static DemoWindow* editing_;  // the window whose editor is open, for the plug-in's callback

    PluginLibrary& plugin_;
    RecordBlock record_{};
    TransformBlock transform_;
    TextureView* view_;
    QLabel* kind_;
    QLabel* details_;
    QPushButton* edit_;
    QPushButton* save_;
    int callbacks_ = 0;
};

}  // namespace demo
