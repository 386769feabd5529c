// The large live preview: the slice z = const of the current texture over a square area,
// sampled through the plug-in's session entries. It renders in short slices on the GUI
// thread (first coarse, then at full resolution), so the window, and the editor dialog while
// it is open, stay responsive, and only this one thread ever calls into the plug-in.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QTimer>
#include <QWidget>

#include <vector>

#include "placement.h"
#include "plugin_library.h"

namespace demo {

class TextureView : public QWidget {
    Q_OBJECT
public:
    TextureView(PluginLibrary& plugin, QWidget* parent = nullptr);

    void show(const RecordBlock& record, const TransformBlock& transform);
    void setSlice(float z);
    void setPalette(int index);
    static QStringList paletteNames();

    bool complete() const { return pass_ == kPasses; }
    const QImage& image() const { return image_; }

signals:
    void rendered(qint64 milliseconds);  // a full-resolution picture is complete
    void unknownKind();                  // the plug-in did not recognise the record

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    QSize sizeHint() const override { return {640, 640}; }

private:
    void restart();
    void work();
    void renderRow(int step);

    static constexpr int kPasses = 2;
    static constexpr float kExtent = 4.0f;  // side of the shown area in texture units

    PluginLibrary& plugin_;
    RecordBlock record_{};
    Placement placement_;
    float z_ = 0.0f;
    int palette_ = 0;
    QImage image_;
    QTimer timer_;
    QElapsedTimer clock_;
    int pass_ = kPasses;
    int row_ = 0;
    std::vector<float> points_, values_;
};

}  // namespace demo
