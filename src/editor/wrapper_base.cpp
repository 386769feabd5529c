#include "editor/wrapper_base.h"

#include <QBoxLayout>
#include <QCoreApplication>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSlider>
#include <QWidget>

#include "editor/host_callback.h"
#include "grainsmith/numeric.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {

WrapperBase::WrapperBase(Texture3D* texture, ImageArea* imageArea, QWidget* page, QObject* parent)
    : QObject(parent), texture_(texture), imageArea_(imageArea) {
    (void)imageArea_;
    auto* box = qobject_cast<QBoxLayout*>(page->layout());
    // The stretch pushes the kind's own controls up and the common ones to the bottom.
    if (box != nullptr) box->addStretch(10);
    common_ = CommonControls::build();
    if (page->layout() != nullptr) page->layout()->addWidget(common_.widget);

    connect(common_.newInteractiveUpdate, &QPushButton::toggled, this, &WrapperBase::interactiveUpdateToggled);
    // Translate and rotate convert in double and round once; the scale factors multiply in float.
    for (int i = 0; i < 3; ++i) {
        connect(common_.translate[i], &QSlider::valueChanged, this, [this, i](int v) {
            transform_.translate[i] = static_cast<float>(static_cast<double>(v) * 0.01);
            notifyHost();
        });
    }
    for (int i = 0; i < 3; ++i) {
        connect(common_.rotate[i], &QSlider::valueChanged, this, [this, i](int v) {
            transform_.rotate[i] = static_cast<float>(static_cast<double>(v) * 0.002777777777777778);
            notifyHost();
        });
    }
    connect(common_.overallScale, &QDoubleSpinBox::valueChanged, this, [this](double v) {
        transform_.overallScale = static_cast<float>(v);
        notifyHost();
    });
    for (int i = 0; i < 3; ++i) {
        connect(common_.scale[i], &QSlider::valueChanged, this, [this, i](int v) {
            transform_.scale[i] = static_cast<float>(v) * 0.01f;
            notifyHost();
        });
    }
}

WrapperBase::~WrapperBase() = default;

void WrapperBase::setTransform(const char* block) {
    transform_.readFrom(block);
    // Copy first: each setValue below may store its own grain back into transform_.
    const TransformBlock t = transform_;
    for (int i = 0; i < 3; ++i) common_.translate[i]->setValue(toInt32(t.translate[i] * 100.0f));
    for (int i = 0; i < 3; ++i) common_.rotate[i]->setValue(toInt32(t.rotate[i] * 360.0f));
    common_.overallScale->setValue(static_cast<double>(t.overallScale));
    for (int i = 0; i < 3; ++i) common_.scale[i]->setValue(toInt32(t.scale[i] * 100.0f));
}

void WrapperBase::getTransform(char* block) const { transform_.writeTo(block); }

void WrapperBase::interactiveUpdateToggled(bool on) {
    for (QSlider* s : common_.sliders()) s->setTracking(on);
    common_.overallScale->setKeyboardTracking(on);
}

void WrapperBase::notifyHost() {
    char record[256] = {};
    texture_->getDescription(record);
    char block[TransformBlock::kSize];
    transform_.writeTo(block);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
    if (HostUpdateCallback callback = hostUpdateCallback()) callback(4.0f, 8, nullptr, 0, record, block);
    QCoreApplication::processEvents(QEventLoop::AllEvents);
}

}  // namespace grainsmith
