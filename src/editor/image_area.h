// A grey-level picture of the plane z = 0 of the current texture, over the square from
// -0.5 to 0.5. The dialog keeps it hidden; it renders only when resized.
#pragma once

#include <QImage>
#include <QWidget>

namespace grainsmith {

class MainWindow;
class Texture3D;

class ImageArea : public QWidget {
    Q_OBJECT
public:
    ImageArea(QWidget* parent, const MainWindow* owner);

    // Fills the image from the texture (white without one) and schedules a repaint.
    void render(const Texture3D* texture);
    const QImage& image() const { return image_; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QImage image_;
    const MainWindow* owner_;
};

}  // namespace grainsmith
