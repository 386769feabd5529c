// The editor dialog: the list of kinds, one generated parameter page per offered kind, the
// transform carried from page to page, and the record and transform handed back on closing.
//
// Calling order: construct, loadFromHost, exec, takeResultRecord, takeTransform, destroy.
#pragma once

#include <QDialog>
#include <map>
#include <memory>
#include <string>

#include "editor/transform_block.h"

class QDialogButtonBox;
class QFrame;
class QListWidget;
class QListWidgetItem;
class QStackedWidget;

namespace grainsmith {

class ImageArea;
class TableWrapper;
class Texture3D;
struct Kind;

class MainWindow : public QDialog {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);
    ~MainWindow() override;

    // Copies the transform block (44 bytes), then selects the record's kind and loads the
    // record and the transform into its page. An empty record (size byte 0) selects
    // "Checkerboard"; a name without a page leaves the selection as it is.
    void loadFromHost(const char* record, const char* transform);
    // The record to hand back: the current kind's after OK, size byte 0 after Cancel.
    void takeResultRecord(char* buffer) const;  // copies 256 bytes
    // The current page's transform after OK or Cancel.
    void takeTransform(char* buffer) const;  // copies 44 bytes

    void accept() override;
    void reject() override;

    // The current kind's texture and wrapper; null when the current name has no page.
    Texture3D* currentTexture() const;
    TableWrapper* currentWrapper() const;
    const std::string& currentKindName() const { return currentName_; }

    // A page's parts by kind name, null when the kind has no page.
    TableWrapper* wrapperFor(const std::string& kindName) const;
    QWidget* pageFor(const std::string& kindName) const;
    QListWidget* generatorList() const { return generatorList_; }
    QStackedWidget* stackedWidget() const { return stackedWidget_; }
    QDialogButtonBox* buttonBox() const { return buttonBox_; }
    ImageArea* imageArea() const { return imageArea_; }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    struct Page;
    void setupUi();
    void addPage(const Kind& kind);
    Page* find(const std::string& name) const;
    void currentRowChangedCB(int row);
    void itemClickedCB(QListWidgetItem* item);
    void showKind(const QString& text);
    void selectPage(Page& page, bool loadWidgets);
    void resetResultRecord();

    std::map<std::string, std::unique_ptr<Page>> pages_;
    std::string currentName_;
    char resultRecord_[256];
    TransformBlock transform_;

    QWidget* centralWidget_ = nullptr;
    QListWidget* generatorList_ = nullptr;
    QFrame* frame_ = nullptr;
    QStackedWidget* stackedWidget_ = nullptr;
    QWidget* imageAreaParent_ = nullptr;
    QDialogButtonBox* buttonBox_ = nullptr;
    ImageArea* imageArea_ = nullptr;
    bool formReady_ = false;
};

}  // namespace grainsmith
