#include "editor/image_area.h"

#include <QPainter>
#include <QPaintEvent>
#include <QResizeEvent>
#include <algorithm>

#include "editor/main_window.h"
#include "grainsmith/numeric.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {
namespace {
QImage whiteImage(int width, int height) {
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(0xFFFFFFFFu);
    return image;
}
}  // namespace

ImageArea::ImageArea(QWidget* parent, const MainWindow* owner)
    : QWidget(parent), image_(whiteImage(256, 256)), owner_(owner) {}

void ImageArea::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.drawImage(event->rect(), image_, event->rect());
}

void ImageArea::resizeEvent(QResizeEvent* event) {
    if (width() != image_.width() || height() != image_.height()) {
        const int side = std::min(width(), height());
        if (image_.width() != side || image_.height() != side) image_ = whiteImage(side, side);
        render(owner_ ? owner_->currentTexture() : nullptr);
        update();
    }
    QWidget::resizeEvent(event);
}

void ImageArea::render(const Texture3D* texture) {
    if (texture == nullptr) {
        image_.fill(0xFFFFFFFFu);
        update();
        return;
    }
    const int w = image_.width(), h = image_.height();
    if (w < 1) {
        update();
        return;
    }
    const float s = static_cast<float>(std::max(w, h));
    for (int x = 0; x < w; ++x) {
        for (int y = 0; y < h; ++y) {
            const float p[3] = {static_cast<float>(x) / s - 0.5f, static_cast<float>(y) / s - 0.5f, 0.0f};
            const float value = (*texture)(p);
            // No clamping: values outside [0, 1] wrap in the low eight bits.
            const uint32_t g = static_cast<uint32_t>(toInt32(static_cast<double>(value) * 255.0)) & 255u;
            image_.setPixel(x, y, 0xFF000000u | g << 16 | g << 8 | g);
        }
    }
    update();
}

}  // namespace grainsmith
