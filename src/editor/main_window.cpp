#include "editor/main_window.h"

#include <QBoxLayout>
#include <QCloseEvent>
#include <QDialogButtonBox>
#include <QFrame>
#include <QListWidget>
#include <QScrollArea>
#include <QStackedWidget>
#include <algorithm>
#include <cstring>
#include <vector>

#include "core/catalogue.h"
#include "editor/image_area.h"
#include "editor/page_builder.h"
#include "editor/table_wrapper.h"
#include "editor/theme.h"

namespace grainsmith {

// One offered kind: its texture, the page generated from its table, the wrapper joining
// them and its list item.
struct MainWindow::Page {
    const Kind* kind = nullptr;
    Texture3D* texture = nullptr;
    QWidget* page = nullptr;        // the kind's form
    QScrollArea* holder = nullptr;  // the page as the stacked widget shows it
    std::unique_ptr<TableWrapper> wrapper;
    QListWidgetItem* item = nullptr;

    ~Page() {
        wrapper.reset();
        kind->ops->destroy(texture);
        delete holder;  // and the page with it
        delete item;
    }
};

namespace {
constexpr char kStartKind[] = "Checkerboard";
}

MainWindow::MainWindow(QWidget* parent) : QDialog(parent) {
    resetResultRecord();
    // A title bar without help button, close button or system menu: the dialog closes only
    // through OK or Cancel.
    setWindowFlags(windowFlags() | Qt::CustomizeWindowHint);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    setWindowFlags(windowFlags() & ~Qt::WindowCloseButtonHint);
    setWindowFlags(windowFlags() & ~Qt::WindowSystemMenuHint);
    resetResultRecord();
    setupUi();

    centralWidget_->setStyleSheet(theme::mainStyleSheet());
    buttonBox_->setStyleSheet(theme::buttonStyleSheet());

    // The preview exists for every page but stays hidden: the host shows the edits.
    auto* previewLayout = new QVBoxLayout;
    imageArea_ = new ImageArea(imageAreaParent_, this);
    previewLayout->addWidget(imageArea_);
    imageAreaParent_->setLayout(previewLayout);
    imageAreaParent_->hide();

    // Pages in the editor's order; the list sorts itself by name.
    std::vector<const Kind*> offered;
    for (const Kind& k : catalogue())
        if (k.editorOrder > 0 && k.implemented()) offered.push_back(&k);
    std::sort(offered.begin(), offered.end(),
              [](const Kind* a, const Kind* b) { return a->editorOrder < b->editorOrder; });
    for (const Kind* k : offered) addPage(*k);

    currentName_ = kStartKind;
    connect(generatorList_, &QListWidget::currentRowChanged, this, &MainWindow::currentRowChangedCB);
    connect(generatorList_, &QListWidget::itemClicked, this, &MainWindow::itemClickedCB);
    connect(buttonBox_, &QDialogButtonBox::accepted, this, &MainWindow::accept);
    connect(buttonBox_, &QDialogButtonBox::rejected, this, &MainWindow::reject);
    formReady_ = true;

    currentName_ = kStartKind;
    if (Page* start = find(currentName_)) {
        char block[TransformBlock::kSize];
        transform_.writeTo(block);
        start->wrapper->setTransform(block);
        generatorList_->setCurrentItem(start->item);
        stackedWidget_->setCurrentWidget(start->holder);
    }
}

MainWindow::~MainWindow() {
    // Removing the items moves the list's current row; nothing may react to that any more.
    formReady_ = false;
    generatorList_->disconnect(this);
    pages_.clear();
}

void MainWindow::setupUi() {
    setObjectName(QStringLiteral("MainWindow"));
    setWindowTitle(QStringLiteral("Grainsmith"));
    resize(572, 368);
    auto* dialogLayout = new QVBoxLayout(this);
    dialogLayout->setContentsMargins(0, 0, 0, 0);

    centralWidget_ = new QWidget(this);
    centralWidget_->setObjectName(QStringLiteral("centralWidget"));
    dialogLayout->addWidget(centralWidget_);
    auto* verticalLayout = new QVBoxLayout(centralWidget_);
    verticalLayout->setObjectName(QStringLiteral("verticalLayout"));
    auto* horizontalLayout = new QHBoxLayout;
    horizontalLayout->setObjectName(QStringLiteral("horizontalLayout"));
    verticalLayout->addLayout(horizontalLayout, 1);

    generatorList_ = new QListWidget(centralWidget_);
    generatorList_->setObjectName(QStringLiteral("generatorList"));
    generatorList_->setSortingEnabled(true);
    generatorList_->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
    // The maximum width is smaller than the minimum on purpose; the minimum wins.
    generatorList_->setMinimumSize(170, 0);
    generatorList_->setMaximumSize(120, 65535);
    horizontalLayout->addWidget(generatorList_);

    frame_ = new QFrame(centralWidget_);
    frame_->setObjectName(QStringLiteral("frame"));
    frame_->setFrameShape(QFrame::NoFrame);
    auto* frameLayout = new QHBoxLayout(frame_);
    frameLayout->setContentsMargins(0, 0, 0, 0);
    stackedWidget_ = new QStackedWidget(frame_);
    stackedWidget_->setObjectName(QStringLiteral("stackedWidget"));
    stackedWidget_->setFrameShape(QFrame::StyledPanel);
    auto* placeholder = new QWidget;
    placeholder->setObjectName(QStringLiteral("page"));
    stackedWidget_->addWidget(placeholder);
    frameLayout->addWidget(stackedWidget_, 1);
    imageAreaParent_ = new QWidget(frame_);
    imageAreaParent_->setObjectName(QStringLiteral("imageAreaParent"));
    imageAreaParent_->setMinimumSize(300, 300);
    frameLayout->addWidget(imageAreaParent_);
    horizontalLayout->addWidget(frame_, 1);

    buttonBox_ = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, centralWidget_);
    buttonBox_->setObjectName(QStringLiteral("buttonBox"));
    verticalLayout->addWidget(buttonBox_);
}

void MainWindow::addPage(const Kind& kind) {
    auto entry = std::make_unique<Page>();
    entry->kind = &kind;
    entry->item = new QListWidgetItem(QString::fromLatin1(kind.name), generatorList_);
    entry->item->setTextAlignment(Qt::AlignLeft);
    entry->item->setFlags(Qt::ItemIsSelectable | Qt::ItemIsUserCheckable | Qt::ItemIsEnabled);
    entry->item->setCheckState(Qt::Unchecked);

    entry->page = new QWidget;
    const QString className = QString::fromLatin1(kind.className);
    entry->page->setObjectName(className.left(className.size() - int(std::strlen("Texture3D"))) +
                               QLatin1String("Widget"));
    PageWidgets widgets = buildPage(entry->page, QString::fromLatin1(kind.name), kind.ops->parameters());
    entry->holder = new QScrollArea;
    entry->holder->setWidgetResizable(true);
    entry->holder->setFrameShape(QFrame::NoFrame);
    entry->holder->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    stackedWidget_->addWidget(entry->holder);

    entry->texture = kind.ops->create();
    entry->wrapper = std::make_unique<TableWrapper>(entry->texture, imageArea_, kind.ops->parameters(),
                                                    std::move(widgets), entry->page);
    // Set the page into its scroll area once the common controls are on it, so the area
    // knows its full height.
    entry->holder->setWidget(entry->page);
    pages_.emplace(kind.name, std::move(entry));
}

MainWindow::Page* MainWindow::find(const std::string& name) const {
    const auto it = pages_.find(name);
    return it == pages_.end() ? nullptr : it->second.get();
}

Texture3D* MainWindow::currentTexture() const {
    const Page* p = find(currentName_);
    return p ? p->texture : nullptr;
}

TableWrapper* MainWindow::currentWrapper() const {
    const Page* p = find(currentName_);
    return p ? p->wrapper.get() : nullptr;
}

TableWrapper* MainWindow::wrapperFor(const std::string& kindName) const {
    const Page* p = find(kindName);
    return p ? p->wrapper.get() : nullptr;
}

QWidget* MainWindow::pageFor(const std::string& kindName) const {
    const Page* p = find(kindName);
    return p ? p->page : nullptr;
}

void MainWindow::resetResultRecord() {
    std::memset(resultRecord_, ' ', sizeof resultRecord_);
    resultRecord_[0] = 0;
}

void MainWindow::loadFromHost(const char* record, const char* transform) {
    transform_.readFrom(transform);
    if (record[0] != 0) {
        // The name is NUL-terminated within the 32 name bytes; a longer one matches nothing.
        const char* name = record + 1;
        const std::string key(name, strnlen(name, 32));
        Page* page = find(key);
        if (page == nullptr) return;
        currentName_ = key;
        generatorList_->setCurrentItem(page->item);
        itemClickedCB(page->item);
        stackedWidget_->setCurrentWidget(page->holder);
        page->texture->setFlags(transform_.flags);
        page->texture->setStateFromDescription(record);
        page->texture->setFlags(transform_.flags);
        page->wrapper->setTransform(transform);
        page->wrapper->updateWidgets();
        return;
    }
    currentName_ = kStartKind;
    if (Page* start = find(currentName_)) {
        start->wrapper->setTransform(transform);
        generatorList_->setCurrentItem(start->item);
        itemClickedCB(start->item);
        stackedWidget_->setCurrentWidget(start->holder);
    }
}

void MainWindow::takeResultRecord(char* buffer) const { std::memmove(buffer, resultRecord_, sizeof resultRecord_); }

void MainWindow::takeTransform(char* buffer) const { transform_.writeTo(buffer); }

void MainWindow::currentRowChangedCB(int row) {
    if (!formReady_ || row < 0) return;
    if (QListWidgetItem* item = generatorList_->item(row)) showKind(item->text());
}

void MainWindow::itemClickedCB(QListWidgetItem* item) {
    for (int i = 0; i < generatorList_->count(); ++i) generatorList_->item(i)->setCheckState(Qt::Unchecked);
    if (item == nullptr || generatorList_->row(item) < 0) return;
    item->setCheckState(Qt::Checked);
    showKind(item->text());
}

// Carries the transform of the page being left to the page of `text`, shows that page and
// tells the host.
void MainWindow::showKind(const QString& text) {
    char carried[TransformBlock::kSize];
    TransformBlock{}.writeTo(carried);
    if (TableWrapper* current = currentWrapper()) current->getTransform(carried);
    const std::string key = text.toLatin1().toStdString();
    Page* page = find(key);
    if (page == nullptr) return;
    currentName_ = key;
    page->wrapper->setTransform(carried);
    page->wrapper->updateWidgets();
    stackedWidget_->setCurrentWidget(page->holder);
    page->wrapper->notifyHost();
}

void MainWindow::accept() {
    if (const Texture3D* texture = currentTexture())
        texture->getDescription(resultRecord_);
    else
        resetResultRecord();
    if (const TableWrapper* wrapper = currentWrapper()) transform_ = wrapper->transform();
    done(QDialog::Accepted);
}

void MainWindow::reject() {
    // The host keeps its record, but the transform comes back even on Cancel.
    resetResultRecord();
    if (const TableWrapper* wrapper = currentWrapper()) transform_ = wrapper->transform();
    done(QDialog::Rejected);
}

void MainWindow::closeEvent(QCloseEvent* event) { event->accept(); }

}  // namespace grainsmith
