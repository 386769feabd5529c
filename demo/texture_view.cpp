#include "texture_view.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace demo {
namespace {

struct Stop {
    float at;
    QColor colour;
};
struct Palette {
    const char* name;
    std::vector<Stop> stops;
};

const std::vector<Palette>& palettes() {
    static const std::vector<Palette> all = {
        {"Stone", {{0.0f, QColor(24, 22, 28)}, {0.5f, QColor(128, 120, 112)}, {1.0f, QColor(244, 238, 226)}}},
        {"Grey", {{0.0f, Qt::black}, {1.0f, Qt::white}}},
        {"Ember", {{0.0f, QColor(16, 6, 24)}, {0.35f, QColor(140, 30, 60)}, {0.7f, QColor(240, 120, 40)},
                   {1.0f, QColor(255, 240, 170)}}},
        {"Ocean", {{0.0f, QColor(4, 18, 40)}, {0.5f, QColor(20, 110, 150)}, {1.0f, QColor(210, 250, 240)}}},
        {"Wood", {{0.0f, QColor(70, 36, 14)}, {0.6f, QColor(164, 102, 52)}, {1.0f, QColor(236, 196, 136)}}},
    };
    return all;
}

QRgb colourFor(const Palette& palette, float v) {
    if (!(v >= 0.0f)) v = 0.0f;  // NaN too
    v = std::min(v, 1.0f);
    const auto& s = palette.stops;
    size_t i = 1;
    while (i + 1 < s.size() && v > s[i].at) ++i;
    const float t = (v - s[i - 1].at) / (s[i].at - s[i - 1].at);
    const auto mix = [&](int a, int b) { return static_cast<int>(std::lround(a + (b - a) * std::clamp(t, 0.0f, 1.0f))); };
    return qRgb(mix(s[i - 1].colour.red(), s[i].colour.red()), mix(s[i - 1].colour.green(), s[i].colour.green()),
                mix(s[i - 1].colour.blue(), s[i].colour.blue()));
}

}  // namespace

TextureView::TextureView(PluginLibrary& plugin, QWidget* parent) : QWidget(parent), plugin_(plugin) {
    setMinimumSize(256, 256);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    timer_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &TextureView::work);
}

QStringList TextureView::paletteNames() {
    QStringList names;
    for (const Palette& p : palettes()) names << QString::fromLatin1(p.name);
    return names;
}

void TextureView::show(const RecordBlock& record, const TransformBlock& transform) {
    record_ = record;
    placement_ = Placement::fromBlock(transform);
    restart();
}

void TextureView::setSlice(float z) {
    z_ = z;
    restart();
}

void TextureView::setPalette(int index) {
    palette_ = std::clamp(index, 0, static_cast<int>(palettes().size()) - 1);
    restart();
}

void TextureView::resizeEvent(QResizeEvent*) { restart(); }

void TextureView::restart() {
    const int side = std::max(1, std::min(width(), height()));
    if (image_.width() != side) {
        image_ = QImage(side, side, QImage::Format_RGB32);
        image_.fill(QColor(40, 40, 46));
    }
    pass_ = 0;
    row_ = 0;
    clock_.start();
    if (record_[0] == 0) {
        pass_ = kPasses;
        timer_.stop();
        update();
        return;
    }
    timer_.start();
}

// One slice of work: rows until about 12 ms have passed, then back to the event loop.
void TextureView::work() {
    if (pass_ >= kPasses) {
        timer_.stop();
        return;
    }
    if (!plugin_.begin(record_, placement_.flags)) {
        pass_ = kPasses;
        timer_.stop();
        emit unknownKind();
        return;
    }
    QElapsedTimer slice;
    slice.start();
    while (pass_ < kPasses && slice.elapsed() < 12) {
        const int step = pass_ == 0 ? 8 : 1;
        renderRow(step);
        row_ += step;
        if (row_ >= image_.height()) {
            row_ = 0;
            ++pass_;
        }
    }
    plugin_.end();
    update();
    if (pass_ >= kPasses) {
        timer_.stop();
        emit rendered(clock_.elapsed());
    }
}

// Samples every `step`-th pixel of the current row (pixel centres, y upwards) and fills a
// step x step block with each value.
void TextureView::renderRow(int step) {
    const int side = image_.width();
    const int n = (side + step - 1) / step;
    points_.resize(3 * static_cast<size_t>(n));
    values_.resize(static_cast<size_t>(n));
    const float centre[3] = {kExtent / 2, kExtent / 2, z_};
    const float y = kExtent * (1.0f - (row_ + 0.5f * step) / side);
    for (int i = 0; i < n; ++i) {
        const float p[3] = {kExtent * (i * step + 0.5f * step) / side, y, z_};
        placement_.apply(p, centre, &points_[3 * static_cast<size_t>(i)]);
    }
    plugin_.evaluate(points_.data(), n, values_.data());
    const Palette& palette = palettes()[static_cast<size_t>(palette_)];
    for (int r = row_; r < std::min(row_ + step, side); ++r) {
        auto* line = reinterpret_cast<QRgb*>(image_.scanLine(r));
        for (int x = 0; x < side; ++x) line[x] = colourFor(palette, values_[static_cast<size_t>(x / step)]);
    }
}

void TextureView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor(30, 30, 36));
    const QRect target((width() - image_.width()) / 2, (height() - image_.height()) / 2, image_.width(),
                       image_.height());
    if (record_[0] == 0) {
        painter.setPen(QColor(200, 200, 210));
        painter.drawText(rect(), Qt::AlignCenter,
                         tr("No texture yet.\nPress \u201cEdit Texture...\u201d to choose one,\n"
                            "or open a record file."));
        return;
    }
    painter.drawImage(target, image_);
    if (pass_ < kPasses) {
        // A thin progress bar along the bottom edge while the picture refines.
        const double done = (pass_ + double(row_) / image_.height()) / kPasses;
        painter.fillRect(QRect(target.left(), target.bottom() - 3, int(target.width() * done), 4),
                         QColor(255, 255, 255, 160));
    }
}

}  // namespace demo
