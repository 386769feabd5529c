#include "editor/page_builder.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QSpinBox>
#include <algorithm>
#include <string_view>
#include <utility>
#include <vector>

#include "editor/form_parts.h"
#include "grainsmith/numeric.h"

namespace grainsmith {

QString widgetObjectName(const Param& param) {
    return QLatin1String(param.objectName != nullptr ? param.objectName : param.name);
}

namespace {

QWidget* addField(QBoxLayout* layout, const Param& p) {
    const QString name = widgetObjectName(p);
    const QString label = QLatin1String(p.label);
    switch (p.widget) {
    case Widget::Slider:
        return addSliderFrame(layout, label, name, toInt32(p.minimum), toInt32(p.maximum));
    case Widget::Toggle:
        return addToggle(layout, label, name);
    case Widget::Combo: {
        auto* combo = new QComboBox;
        combo->setObjectName(name);
        for (const char* choice : p.choices) combo->addItem(QLatin1String(choice));
        addLabelledRow(layout, label, combo);
        return combo;
    }
    case Widget::IntSpin: {
        auto* spin = new QSpinBox;
        spin->setObjectName(name);
        spin->setRange(toInt32(p.minimum), toInt32(p.maximum));
        spin->setSingleStep(p.step >= 1.0 ? toInt32(p.step) : 1);
        spin->setKeyboardTracking(false);
        addLabelledRow(layout, label, spin);
        return spin;
    }
    case Widget::DoubleSpin: {
        auto* spin = new QDoubleSpinBox;
        spin->setObjectName(name);
        spin->setDecimals(p.decimals);
        spin->setRange(p.minimum, p.maximum);
        spin->setSingleStep(p.step);
        spin->setKeyboardTracking(false);
        addLabelledRow(layout, label, spin);
        return spin;
    }
    case Widget::Hidden:
        break;
    }
    return nullptr;
}

QString groupObjectName(int index) {
    return index == 0 ? QStringLiteral("groupBox") : QStringLiteral("groupBox_%1").arg(index + 1);
}

}  // namespace

PageWidgets buildPage(QWidget* page, const QString& heading, ParamTable table) {
    auto* top = new QVBoxLayout(page);
    auto* title = new QLabel(heading);
    title->setObjectName(QStringLiteral("heading"));
    title->setAlignment(Qt::AlignCenter);
    top->addWidget(title);

    PageWidgets widgets;
    widgets.reserve(table.size());
    // One group box per group title, in the order of first appearance; rows without a group
    // sit directly on the page.
    std::vector<std::pair<std::string_view, QBoxLayout*>> groups;
    for (const Param& p : table) {
        if (p.widget == Widget::Hidden) {
            widgets.push_back(nullptr);
            continue;
        }
        QBoxLayout* layout = top;
        if (*p.group != '\0') {
            const auto found = std::find_if(groups.begin(), groups.end(), [&](const auto& g) { return g.first == p.group; });
            if (found != groups.end()) {
                layout = found->second;
            } else {
                QGroupBox* box = addGroup(top, QLatin1String(p.group), groupObjectName(static_cast<int>(groups.size())));
                layout = static_cast<QBoxLayout*>(box->layout());
                groups.emplace_back(p.group, layout);
            }
        }
        widgets.push_back(addField(layout, p));
    }
    return widgets;
}

}  // namespace grainsmith
