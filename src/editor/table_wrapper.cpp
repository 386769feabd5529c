#include "editor/table_wrapper.h"

#include <QComboBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QSpinBox>
#include <cmath>
#include <cstring>

#include "grainsmith/numeric.h"
#include "grainsmith/texture3d.h"

namespace grainsmith {
namespace {

constexpr int kInteractiveUpdateByte = 35;

// The slider steps per parameter unit: 100 for x 0.01, 200 for x 0.005, 1000 for x 0.001.
float stepsPerUnit(const Param& p) { return static_cast<float>(std::round(1.0 / p.scale)); }

}  // namespace

double TableWrapper::sliderToParameter(const Param& p, int value) {
    if (p.scaleInDouble) return static_cast<float>(static_cast<double>(value) * p.scale);
    return static_cast<float>(value) * static_cast<float>(p.scale);
}

int TableWrapper::parameterToSlider(const Param& p, double value) {
    if (p.type != FieldType::Float32) return toInt32(value);
    return toInt32(static_cast<float>(value) * stepsPerUnit(p));
}

TableWrapper::TableWrapper(Texture3D* texture, ImageArea* imageArea, ParamTable table, PageWidgets widgets,
                           QWidget* page, QObject* parent)
    : WrapperBase(texture, imageArea, page, parent), table_(table), widgets_(std::move(widgets)) {
    // The widgets take the texture's values before they are connected, so building the
    // dialog changes no parameter and tells the host nothing.
    updateWidgets();
    connect(common().newInteractiveUpdate, &QPushButton::toggled, this, &TableWrapper::interactiveUpdateToggled);
    for (size_t i = 0; i < table_.size(); ++i) connectWidget(i);
}

QWidget* TableWrapper::widgetFor(const char* paramName) const {
    const int i = indexOf(paramName);
    return i < 0 ? nullptr : widgets_[i];
}

int TableWrapper::indexOf(const char* name) const {
    if (name == nullptr) return -1;
    for (size_t i = 0; i < table_.size(); ++i)
        if (std::strcmp(table_[i].name, name) == 0) return static_cast<int>(i);
    return -1;
}

void TableWrapper::connectWidget(size_t i) {
    QWidget* w = widgets_[i];
    if (w == nullptr || table_[i].inert) return;
    if (auto* slider = qobject_cast<QSlider*>(w)) {
        connect(slider, &QSlider::valueChanged, this, [this, i](int v) { sliderMoved(i, v); });
    } else if (auto* button = qobject_cast<QPushButton*>(w)) {
        connect(button, &QPushButton::toggled, this, [this, i](bool on) {
            store(i, on ? 1.0 : 0.0);
            notifyHost();
        });
    } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
        connect(combo, &QComboBox::currentIndexChanged, this, [this, i](int index) {
            if (index < 0) return;  // the combo was emptied or given an index it does not have
            store(i, index);
            notifyHost();
        });
    } else if (auto* doubleSpin = qobject_cast<QDoubleSpinBox*>(w)) {
        connect(doubleSpin, &QDoubleSpinBox::valueChanged, this, [this, i](double v) {
            store(i, static_cast<float>(v));
            notifyHost();
        });
    } else if (auto* spin = qobject_cast<QSpinBox*>(w)) {
        connect(spin, &QSpinBox::valueChanged, this, [this, i](int v) {
            store(i, v);
            notifyHost();
        });
    }
}

void TableWrapper::store(size_t i, double value) {
    const int target = table_[i].storesInto != nullptr ? indexOf(table_[i].storesInto) : static_cast<int>(i);
    if (target < 0) return;
    char record[256] = {};
    texture()->getDescription(record);
    writeParam(table_[target], reinterpret_cast<unsigned char*>(record), value);
    texture()->setStateFromDescription(record);
}

void TableWrapper::sliderMoved(size_t i, int v) {
    const Param& p = table_[i];
    store(i, sliderToParameter(p, v));
    // A partner slider moved here runs its own store and notification before this one's.
    if (auto* partner = qobject_cast<QSlider*>(widgetFor(p.partner))) {
        if ((p.partnerRule == PartnerRule::Raise && partner->value() < v) ||
            (p.partnerRule == PartnerRule::Lower && partner->value() > v))
            partner->setValue(v);
    }
    notifyHost();
}

void TableWrapper::interactiveUpdateToggled(bool on) {
    char record[256] = {};
    texture()->getDescription(record);
    record[kInteractiveUpdateByte] = on ? 1 : 0;
    texture()->setStateFromDescription(record);
    for (QWidget* w : widgets_) {
        if (auto* slider = qobject_cast<QSlider*>(w)) slider->setTracking(on);
        if (auto* spin = qobject_cast<QAbstractSpinBox*>(w)) spin->setKeyboardTracking(on);
    }
}

void TableWrapper::setWidget(size_t i, double value) {
    QWidget* w = widgets_[i];
    if (w == nullptr) return;
    // A widget that writes another parameter only shows its own: setting it must not copy
    // its value into the other one.
    const QSignalBlocker blocker(table_[i].storesInto != nullptr ? w : nullptr);
    if (auto* slider = qobject_cast<QSlider*>(w)) {
        slider->setValue(parameterToSlider(table_[i], value));
    } else if (auto* button = qobject_cast<QPushButton*>(w)) {
        button->setChecked(value != 0.0);
    } else if (auto* combo = qobject_cast<QComboBox*>(w)) {
        const int index = toInt32(value);
        if (index >= 0 && index < combo->count()) combo->setCurrentIndex(index);
    } else if (auto* doubleSpin = qobject_cast<QDoubleSpinBox*>(w)) {
        doubleSpin->setValue(std::isnan(value) ? doubleSpin->minimum() : value);
    } else if (auto* spin = qobject_cast<QSpinBox*>(w)) {
        spin->setValue(toInt32(value));
    }
}

void TableWrapper::updateWidgets() {
    // Read every value first: a widget's slot may move a partner and change its parameter
    // before that partner's own widget is set.
    char record[256] = {};
    texture()->getDescription(record);
    const auto* bytes = reinterpret_cast<const unsigned char*>(record);
    std::vector<double> values;
    values.reserve(table_.size());
    for (const Param& p : table_) values.push_back(readParam(p, bytes));
    for (size_t i = 0; i < table_.size(); ++i) setWidget(i, values[i]);

    const bool interactive = record[kInteractiveUpdateByte] != 0;
    common().newInteractiveUpdate->setChecked(interactive);
    interactiveUpdateToggled(interactive);
}

}  // namespace grainsmith
