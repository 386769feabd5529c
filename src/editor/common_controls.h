// The controls every page shows below the kind's own: translate, rotate, overall scale,
// per-axis scale factors and the Interactive Update toggle.
#pragma once

#include <array>

class QDoubleSpinBox;
class QPushButton;
class QSlider;
class QWidget;

namespace grainsmith {

struct CommonControls {
    QWidget* widget = nullptr;  // holds all of them; its parent owns it
    std::array<QSlider*, 3> translate{};  // transX, transY, transZ: -100..100, value / 100
    std::array<QSlider*, 3> rotate{};     // rotX, rotY, rotZ: -180..180 degrees
    QDoubleSpinBox* overallScale = nullptr;  // 0.0001..512, 4 decimals
    std::array<QSlider*, 3> scale{};      // scaleX, scaleY, scaleZ: 1..100, value / 100
    QPushButton* newInteractiveUpdate = nullptr;

    // The nine sliders, in the order translate, rotate, scale.
    std::array<QSlider*, 9> sliders() const;

    // Builds the form on a new parentless widget.
    static CommonControls build();
};

}  // namespace grainsmith
