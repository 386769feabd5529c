// Builds a kind's parameter page from its parameter table: a heading with the kind's name,
// then one group box per run of parameters sharing a group, holding sliders in slider
// frames, toggle buttons, combo boxes and spin boxes with the table's object names, labels,
// ranges and steps.
#pragma once

#include <QString>
#include <vector>

#include "grainsmith/params.h"

class QWidget;

namespace grainsmith {

// The widget made for each table row, in table order; null for hidden parameters.
using PageWidgets = std::vector<QWidget*>;

// Fills `page` (which must have no layout yet) with a vertical layout and the kind's widgets.
PageWidgets buildPage(QWidget* page, const QString& heading, ParamTable table);

// The widget object name of a parameter.
QString widgetObjectName(const Param& param);

}  // namespace grainsmith
