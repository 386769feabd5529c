// The dialog's dark theme: two style-sheet templates kept as resources, filled in with the
// palette. The main sheet goes on the dialog's central widget, the button sheet on its
// button box.
#pragma once

#include <QColor>
#include <QString>

namespace grainsmith::theme {

// The palette. Each placeholder has its own constant so one can be changed alone.
inline const QColor kDark{40, 40, 40};
inline const QColor kGrey{165, 165, 165};
inline const QColor kOrange{242, 112, 0};
inline const QColor kBlack{0, 0, 0};

inline const QColor kBackgroundColor = kDark;
inline const QColor kForegroundColor = kGrey;
inline const QColor kHiliteColor = kGrey;
inline const QColor kSliderSlitColor = kGrey;
inline const QColor kButtonPressedColor = kOrange;
inline const QColor kSliderHandleColor = kOrange;

// "rgb(165, 165, 165)".
QString cssColor(const QColor& color);

// The substitutions applied to a template's text, in their fixed order.
QString fillMainTemplate(QString sheet);
QString fillButtonTemplate(QString sheet);

// The templates as stored, and the finished sheets.
QString mainTemplate();
QString buttonTemplate();
QString mainStyleSheet();
QString buttonStyleSheet();

}  // namespace grainsmith::theme
