#include "editor/common_controls.h"

#include <QBoxLayout>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QWidget>

#include "editor/form_parts.h"

namespace grainsmith {

std::array<QSlider*, 9> CommonControls::sliders() const {
    return {translate[0], translate[1], translate[2], rotate[0], rotate[1], rotate[2], scale[0], scale[1], scale[2]};
}

CommonControls CommonControls::build() {
    CommonControls c;
    c.widget = new QWidget;
    c.widget->setObjectName(QStringLiteral("CommonWidget"));
    auto* top = new QVBoxLayout(c.widget);
    top->setContentsMargins(0, 0, 0, 0);

    QGroupBox* outer = addGroup(top, QStringLiteral("Common Controls"), QStringLiteral("groupBox"));
    auto* outerLayout = static_cast<QBoxLayout*>(outer->layout());
    // The inner groups sit inside the outer one, so they are narrower than the theme's group width.
    const QString innerWidth = QStringLiteral("QGroupBox { min-width: 190px; max-width: 190px; }");

    QGroupBox* trans = addGroup(outerLayout, QStringLiteral("Translate"), QStringLiteral("transGroup_2"));
    trans->setStyleSheet(innerWidth);
    const char* transNames[] = {"transX", "transY", "transZ"};
    const char* transLabels[] = {"XOffset", "YOffset", "ZOffset"};
    for (int i = 0; i < 3; ++i)
        c.translate[i] = addSliderFrame(static_cast<QBoxLayout*>(trans->layout()), QLatin1String(transLabels[i]),
                                        QLatin1String(transNames[i]), -100, 100);

    QGroupBox* rot = addGroup(outerLayout, QStringLiteral("Rotate"), QStringLiteral("rotGroup"));
    rot->setStyleSheet(innerWidth);
    const char* rotNames[] = {"rotX", "rotY", "rotZ"};
    const char* rotLabels[] = {"XAngle", "YAngle", "ZAngle"};
    for (int i = 0; i < 3; ++i)
        c.rotate[i] = addSliderFrame(static_cast<QBoxLayout*>(rot->layout()), QLatin1String(rotLabels[i]),
                                     QLatin1String(rotNames[i]), -180, 180);

    c.overallScale = new QDoubleSpinBox;
    c.overallScale->setObjectName(QStringLiteral("overallScale"));
    c.overallScale->setDecimals(4);
    c.overallScale->setRange(0.0001, 512.0);
    c.overallScale->setSingleStep(0.1);
    c.overallScale->setValue(1.0);
    c.overallScale->setKeyboardTracking(false);
    c.overallScale->setFixedWidth(183);
    // The spin box is nearly as wide as the group, so its label sits above it.
    auto* scaleLabel = new QLabel(QStringLiteral("Scale"));
    scaleLabel->setObjectName(QStringLiteral("overallScaleLabel"));
    scaleLabel->setBuddy(c.overallScale);
    outerLayout->addWidget(scaleLabel);
    outerLayout->addWidget(c.overallScale, 0, Qt::AlignHCenter);

    QGroupBox* scale = addGroup(outerLayout, QStringLiteral("Scale Factors"), QStringLiteral("scaleGroup"));
    scale->setStyleSheet(innerWidth);
    const char* scaleNames[] = {"scaleX", "scaleY", "scaleZ"};
    const char* scaleLabels[] = {"XScale", "YScale", "ZScale"};
    for (int i = 0; i < 3; ++i) {
        c.scale[i] = addSliderFrame(static_cast<QBoxLayout*>(scale->layout()), QLatin1String(scaleLabels[i]),
                                    QLatin1String(scaleNames[i]), 1, 100);
        c.scale[i]->setValue(100);
    }

    c.newInteractiveUpdate =
        addToggle(outerLayout, QStringLiteral("      Interactive Update          "), QStringLiteral("newInteractiveUpdate"));
    c.newInteractiveUpdate->setMinimumWidth(180);
    return c;
}

}  // namespace grainsmith
