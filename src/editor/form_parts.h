// The building blocks every form of the dialog is made of, so that the common controls and
// the generated pages look and behave alike.
#pragma once

#include <QString>

class QBoxLayout;
class QDoubleSpinBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QSlider;
class QWidget;

namespace grainsmith {

// A group box (the theme fixes its width) with a vertical layout, added to `parent`.
QGroupBox* addGroup(QBoxLayout* parent, const QString& title, const QString& objectName);

// A horizontal slider with the resize cursor, in its own frame (property `sliderFrame` true)
// under a label. Tracking is off until Interactive Update turns it on.
QSlider* addSliderFrame(QBoxLayout* parent, const QString& label, const QString& objectName, int minimum,
                        int maximum);

// A checkable push button (a toggle).
QPushButton* addToggle(QBoxLayout* parent, const QString& text, const QString& objectName);

// A label and a field side by side; returns the label.
QLabel* addLabelledRow(QBoxLayout* parent, const QString& label, QWidget* field);

}  // namespace grainsmith
