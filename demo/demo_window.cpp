#include "demo_window.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QSaveFile>
#include <QSlider>
#include <QStatusBar>
#include <QVBoxLayout>

#include <cstring>

namespace demo {

DemoWindow* DemoWindow::editing_ = nullptr;

namespace {

constexpr int kHeadSize = 36;  // size byte, 32-byte name, two version bytes, update flag

QString kindName(const RecordBlock& record) {
    if (record[0] == 0) return QStringLiteral("(none)");
    return QString::fromLatin1(record.data() + 1, static_cast<int>(strnlen(record.data() + 1, 32)));
}

QString number(float v) { return QString::number(double(v), 'g', 4); }

}  // namespace

DemoWindow::DemoWindow(PluginLibrary& plugin)
    : plugin_(plugin), transform_(Placement{}.toBlock()), view_(new TextureView(plugin)) {
    setWindowTitle(tr("Grainsmith Demo Host"));

    auto* side = new QWidget;
    side->setFixedWidth(300);
    auto* column = new QVBoxLayout(side);
    kind_ = new QLabel;
    kind_->setStyleSheet(QStringLiteral("font-size: 20px; font-weight: 600;"));
    kind_->setWordWrap(true);
    details_ = new QLabel;
    details_->setTextFormat(Qt::RichText);
    details_->setWordWrap(true);
    edit_ = new QPushButton(tr("Edit Texture..."));
    edit_->setDefault(true);
    edit_->setMinimumHeight(40);
    auto* open = new QPushButton(tr("Open Record..."));
    save_ = new QPushButton(tr("Save Record..."));

    auto* slice = new QSlider(Qt::Horizontal);
    slice->setRange(0, 400);
    auto* sliceValue = new QLabel(QStringLiteral("0"));
    auto* sliceRow = new QHBoxLayout;
    sliceRow->addWidget(slice);
    sliceRow->addWidget(sliceValue);
    auto* palette = new QComboBox;
    palette->addItems(TextureView::paletteNames());
    auto* options = new QFormLayout;
    options->addRow(tr("Slice z"), sliceRow);
    options->addRow(tr("Colours"), palette);

    column->addWidget(kind_);
    column->addWidget(details_);
    column->addSpacing(12);
    column->addWidget(edit_);
    column->addWidget(open);
    column->addWidget(save_);
    column->addSpacing(12);
    column->addLayout(options);
    column->addStretch(1);
    auto* hint = new QLabel(tr("The preview follows every edit while the editor is open. "
                               "The placement (translate, rotate, scale) is applied here, by the host."));
    hint->setWordWrap(true);
    hint->setStyleSheet(QStringLiteral("color: palette(mid);"));
    column->addWidget(hint);

    auto* central = new QWidget;
    auto* row = new QHBoxLayout(central);
    row->addWidget(view_, 1);
    row->addWidget(side);
    setCentralWidget(central);
    resize(1060, 700);

    connect(edit_, &QPushButton::clicked, this, &DemoWindow::editTexture);
    connect(open, &QPushButton::clicked, this, &DemoWindow::chooseOpen);
    connect(save_, &QPushButton::clicked, this, &DemoWindow::chooseSave);
    connect(slice, &QSlider::valueChanged, this, [this, sliceValue](int v) {
        sliceValue->setText(QString::number(v / 100.0, 'f', 2));
        view_->setSlice(float(v) / 100.0f);
    });
    connect(palette, &QComboBox::currentIndexChanged, view_, &TextureView::setPalette);
    connect(view_, &TextureView::rendered, this,
            [this](qint64 ms) { statusBar()->showMessage(tr("Rendered in %1 ms").arg(ms)); });
    connect(view_, &TextureView::unknownKind, this, [this] {
        statusBar()->showMessage(tr("The plug-in does not know the kind \u201c%1\u201d.").arg(kindName(record_)));
    });
    showCurrent();
}

void DemoWindow::showCurrent() {
    describe(record_, transform_, false);
    save_->setEnabled(record_[0] != 0);
    view_->show(record_, transform_);
}

void DemoWindow::describe(const RecordBlock& record, const TransformBlock& transform, bool live) {
    kind_->setText(kindName(record) + (live ? tr("  (editing)") : QString()));
    const Placement p = Placement::fromBlock(transform);
    details_->setText(
        tr("<table cellspacing=2>"
           "<tr><td>Record</td><td>%1 bytes</td></tr>"
           "<tr><td>Mode</td><td>%2</td></tr>"
           "<tr><td>Overall scale</td><td>%3</td></tr>"
           "<tr><td>Translate</td><td>%4, %5, %6</td></tr>"
           "<tr><td>Scale</td><td>%7, %8, %9</td></tr>"
           "<tr><td>Rotate</td><td>%10°, %11°, %12°</td></tr></table>")
            .arg(int(static_cast<unsigned char>(record[0])))
            .arg((p.flags & 12) ? tr("2-D (flags %1)").arg(p.flags) : tr("3-D (flags %1)").arg(p.flags))
            .arg(number(p.overallScale))
            .arg(number(p.translate[0]), number(p.translate[1]), number(p.translate[2]))
            .arg(number(p.scale[0]), number(p.scale[1]), number(p.scale[2]))
            .arg(number(p.rotate[0] * 360), number(p.rotate[1] * 360), number(p.rotate[2] * 360)));
}

// Called by the plug-in on every edit, on this thread, while the editor runs modally.
void DemoWindow::hostUpdate(float, int, void*, int, char* record, char* transform) {
    DemoWindow* self = editing_;
    if (!self) return;
    ++self->callbacks_;
    RecordBlock r{};
    const int size = static_cast<unsigned char>(record[0]);
    std::memcpy(r.data(), record, static_cast<size_t>(size < 128 ? size : 0));
    TransformBlock t;
    std::memcpy(t.data(), transform, t.size());
    self->describe(r, t, true);
    self->view_->show(r, t);
}

void DemoWindow::editTexture() {
    editing_ = this;
    edit_->setEnabled(false);
    plugin_.interact(record_, transform_, &DemoWindow::hostUpdate);
    editing_ = nullptr;
    edit_->setEnabled(true);
    // OK brings the chosen record; Cancel keeps ours. The placement comes back either way.
    showCurrent();
}

bool DemoWindow::openRecord(const QString& path, QString& error) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        error = tr("Cannot read %1: %2").arg(path, file.errorString());
        return false;
    }
    const QByteArray bytes = file.read(512);
    if (bytes.size() < kHeadSize || bytes.size() > 127) {
        error = tr("%1 is not a description record: it has %2 bytes, a record has 36 to 127.")
                    .arg(path)
                    .arg(bytes.size());
        return false;
    }
    if (static_cast<unsigned char>(bytes[0]) != bytes.size()) {
        error = tr("%1 is not a description record: its size byte says %2 bytes, the file has %3.")
                    .arg(path)
                    .arg(int(static_cast<unsigned char>(bytes[0])))
                    .arg(bytes.size());
        return false;
    }
    if (!std::memchr(bytes.constData() + 1, '\0', 32)) {
        error = tr("%1 is not a description record: bytes 1 to 32 hold no NUL-terminated kind name.").arg(path);
        return false;
    }
    RecordBlock candidate{};
    std::memcpy(candidate.data(), bytes.constData(), static_cast<size_t>(bytes.size()));
    const bool known = plugin_.begin(candidate, Placement::fromBlock(transform_).flags);
    plugin_.end();
    if (!known) {
        error = tr("%1 holds a \u201c%2\u201d record, a kind this plug-in does not render.")
                    .arg(path, kindName(candidate));
        return false;
    }
    record_ = candidate;
    showCurrent();
    return true;
}

bool DemoWindow::saveRecord(const QString& path, QString& error) const {
    const int size = static_cast<unsigned char>(record_[0]);
    if (size == 0) {
        error = tr("There is no texture to save yet.");
        return false;
    }
    QSaveFile file(path);  // all or nothing: never a half-written record
    if (!file.open(QIODevice::WriteOnly) || file.write(record_.data(), size) != size || !file.commit()) {
        error = tr("Cannot write %1: %2").arg(path, file.errorString());
        return false;
    }
    return true;
}

void DemoWindow::chooseOpen() {
    const QString path = QFileDialog::getOpenFileName(this, tr("Open Record"), QString(),
                                                      tr("Description records (*.rec *.bin);;All files (*)"));
    if (path.isEmpty()) return;
    QString error;
    if (!openRecord(path, error)) QMessageBox::warning(this, tr("Open Record"), error);
}

void DemoWindow::chooseSave() {
    const QString path = QFileDialog::getSaveFileName(this, tr("Save Record"), kindName(record_) + ".rec",
                                                      tr("Description records (*.rec);;All files (*)"));
    if (path.isEmpty()) return;
    QString error;
    if (!saveRecord(path, error)) QMessageBox::warning(this, tr("Save Record"), error);
}

}  // namespace demo
