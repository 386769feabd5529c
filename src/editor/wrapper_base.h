// What every page's wrapper shares: the common controls added below the kind's own, the
// page's transform block, and the notification of the host after each edit.
#pragma once

#include <QObject>

#include "editor/common_controls.h"
#include "editor/transform_block.h"

class QWidget;

namespace grainsmith {

class ImageArea;
class Texture3D;

class WrapperBase : public QObject {
    Q_OBJECT
public:
    // Adds a stretch and the common controls to the page's layout and connects them.
    WrapperBase(Texture3D* texture, ImageArea* imageArea, QWidget* page, QObject* parent = nullptr);
    ~WrapperBase() override;

    // Copies the block, then sets the common controls from it (which stores each value back
    // at the widget's grain and notifies the host for every widget that moves).
    void setTransform(const char* block);
    void getTransform(char* block) const;
    const TransformBlock& transform() const { return transform_; }

    // Sets the kind's widgets from the texture's current parameters.
    virtual void updateWidgets() = 0;

    // Hands a copy of the record and of the transform to the host's update callback,
    // between two rounds of event processing.
    void notifyHost();

    Texture3D* texture() const { return texture_; }
    const CommonControls& common() const { return common_; }

private:
    // Slider tracking of the common controls follows Interactive Update.
    void interactiveUpdateToggled(bool on);

    Texture3D* texture_;
    ImageArea* imageArea_;  // the dialog's preview; kept for the kinds, unused here
    CommonControls common_;
    TransformBlock transform_;
};

}  // namespace grainsmith
