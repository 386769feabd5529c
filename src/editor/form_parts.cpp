#include "editor/form_parts.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

namespace grainsmith {

QGroupBox* addGroup(QBoxLayout* parent, const QString& title, const QString& objectName) {
    auto* group = new QGroupBox(title);
    group->setObjectName(objectName);
    auto* layout = new QVBoxLayout(group);
    layout->setContentsMargins(4, 12, 4, 4);
    layout->setSpacing(2);
    parent->addWidget(group, 0, Qt::AlignHCenter);
    return group;
}

QSlider* addSliderFrame(QBoxLayout* parent, const QString& label, const QString& objectName, int minimum,
                        int maximum) {
    auto* frame = new QFrame;
    frame->setObjectName(objectName + QLatin1String("Frame"));
    frame->setProperty("sliderFrame", true);
    auto* layout = new QVBoxLayout(frame);
    layout->setContentsMargins(6, 2, 6, 4);
    layout->setSpacing(4);
    auto* text = new QLabel(label);
    text->setObjectName(objectName + QLatin1String("Label"));
    layout->addWidget(text);
    auto* slider = new QSlider(Qt::Horizontal);
    slider->setObjectName(objectName);
    slider->setRange(minimum, maximum);
    slider->setCursor(Qt::SizeHorCursor);
    slider->setTracking(false);
    layout->addWidget(slider);
    text->setBuddy(slider);
    parent->addWidget(frame);
    return slider;
}

QPushButton* addToggle(QBoxLayout* parent, const QString& text, const QString& objectName) {
    auto* button = new QPushButton(text);
    button->setObjectName(objectName);
    button->setCheckable(true);
    parent->addWidget(button);
    return button;
}

QLabel* addLabelledRow(QBoxLayout* parent, const QString& label, QWidget* field) {
    auto* row = new QHBoxLayout;
    auto* text = new QLabel(label);
    text->setObjectName(field->objectName() + QLatin1String("Label"));
    text->setBuddy(field);
    row->addWidget(text);
    row->addWidget(field, 1);
    parent->addLayout(row);
    return text;
}

}  // namespace grainsmith
