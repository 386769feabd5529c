// The one wrapper every kind's page uses: it connects the widgets that the page builder made
// from the kind's parameter table to the texture's record, with the table's conversions,
// partner sliders and quirks, and notifies the host after each edit.
#pragma once

#include <vector>

#include "editor/page_builder.h"
#include "editor/wrapper_base.h"
#include "grainsmith/params.h"

namespace grainsmith {

class TableWrapper : public WrapperBase {
    Q_OBJECT
public:
    TableWrapper(Texture3D* texture, ImageArea* imageArea, ParamTable table, PageWidgets widgets, QWidget* page,
                 QObject* parent = nullptr);

    void updateWidgets() override;

    ParamTable table() const { return table_; }
    // The widget of a parameter by its name; null when it has none.
    QWidget* widgetFor(const char* paramName) const;

    // Widget value <-> parameter value, as the sliders convert them.
    static double sliderToParameter(const Param& param, int value);
    static int parameterToSlider(const Param& param, double value);

private:
    void interactiveUpdateToggled(bool on);
    void connectWidget(size_t index);
    void store(size_t index, double value);
    void sliderMoved(size_t index, int value);
    int indexOf(const char* name) const;
    void setWidget(size_t index, double value);

    ParamTable table_;
    PageWidgets widgets_;
};

}  // namespace grainsmith
